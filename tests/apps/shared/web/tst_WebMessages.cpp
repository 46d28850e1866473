// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/web/detail/WebMessages.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <support/TestClass.h>

using namespace shared::detail;

namespace {

/// %1 becomes the number.
QJsonObject readJson(const QByteArray& pText, int pNumber = 0)
{
    QByteArray text = pText;
    text.replace("%1", QByteArray::number(pNumber));
    return QJsonDocument::fromJson(text).object();
}

}  // namespace

/// What browsers are told, and what they may ask for.
class tst_WebMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttons_areUnderstood_data();
    void buttons_areUnderstood();
    void choice_isItsName_data();
    void choice_isItsName();
    void else_isRefused_data();
    void else_isRefused();
    void beat_isTheNextOne();
    void state_hasItsOutputs();
    void choices_areTold();
};

void tst_WebMessages::buttons_areUnderstood_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"tap", "one", "half", "double", "hold", "reset", "nudge -10", "nudge 10"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_WebMessages::buttons_areUnderstood()
{
    QFETCH(QString, text);
    const auto wish = ReadWebMessage(text);
    QVERIFY(wish);
    QCOMPARE(int(wish->kind), int(WebWish::eAction));
    QCOMPARE(wish->action.getText(), text);
}

void tst_WebMessages::choice_isItsName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    const auto add = [](const char* pText, WebWish::eKind pKind, const char* pName) {
        QTest::newRow(pText) << QString::fromUtf8(pText) << int(pKind) << QString::fromUtf8(pName);
    };
    add("profile House", WebWish::eProfile, "House");
    add("profile ", WebWish::eProfile, "");
    // Names are what they are.
    add("profile  My  H\u00f6use ", WebWish::eProfile, " My  H\u00f6use ");
    add("input default", WebWish::eInput, "default");
    add("input profile x", WebWish::eInput, "profile x");
    add("input ", WebWish::eInput, "");
}

void tst_WebMessages::choice_isItsName()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(QString, name);
    const auto wish = ReadWebMessage(text);
    QVERIFY(wish);
    QCOMPARE(int(wish->kind), kind);
    QCOMPARE(wish->name, name);
}

void tst_WebMessages::else_isRefused_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"",
                             "bend 2",
                             "offset 10",
                             "nudge",
                             "nudge 501",
                             "nudge nan",
                             "{}",
                             "profile",
                             " profile House",
                             "Profile House",
                             "input"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_WebMessages::else_isRefused()
{
    QFETCH(QString, text);
    QVERIFY(!ReadWebMessage(text));
}

void tst_WebMessages::beat_isTheNextOne()
{
    BeatClock clock;
    clock.HoldAt(120.0, 1000000);
    const BeatClockState state = clock.getState();
    const std::int64_t now = state.getTickTime(6) - 123400;
    QCOMPARE(readJson(describeWebBeat(state, 0.876, now)),
             readJson(R"({"type":"beat","beat":6,"beatInBar":%1,"bpm":120,"confidence":0.88,)"
                      R"("ms":123.4})",
                      state.getBeatInBar(6) + 1));
}

void tst_WebMessages::state_hasItsOutputs()
{
    BeatClock clock;
    clock.HoldAt(120.0, 1000000);
    const QVector<WebOutput> outputs = {
        {QStringLiteral("desk"), QStringLiteral("it is \"away\""), false},
        {QStringLiteral("lamp"), QString(), true}};
    QCOMPARE(readJson(describeWebState(clock.getState(), true, 0.254, outputs)),
             readJson(R"({"type":"state","isRunning":true,"isPlaying":true,"charge":"held",)"
                      R"("beatsPerBar":4,"level":0.25,"outputs":[)"
                      R"({"name":"desk","state":"it is \"away\"","isOpen":false},)"
                      R"({"name":"lamp","state":"","isOpen":true}]})"));
}

void tst_WebMessages::choices_areTold()
{
    const shared::WebChoices choices = {
        {QStringLiteral("House"), QStringLiteral("\"Slow\"")},
        QStringLiteral("House"),
        {{QStringLiteral("default"), QString(), false},
         {QStringLiteral("deck.monitor"), QStringLiteral("Monitor of Deck"), true}},
        QStringLiteral("default")};
    QCOMPARE(readJson(describeWebChoices(choices)),
             readJson(R"({"type":"choices","profile":"House","profiles":["House","\"Slow\""],)"
                      R"("input":"default","inputs":[)"
                      R"({"name":"default","description":"","isMonitor":false},)"
                      R"({"name":"deck.monitor","description":"Monitor of Deck",)"
                      R"("isMonitor":true}]})"));
}

AA_TEST(tst_WebMessages, NoApplication)

#include "tst_WebMessages.moc"
