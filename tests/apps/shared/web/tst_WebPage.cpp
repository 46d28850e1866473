// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/web/WebPage.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWebSocket>
#include <QtTest>

#include <memory>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr int kPageMs = 60000;  // only a hang takes that long

/// An output that is never there.
class AwayReceiver : public shared::OutputReceiver
{
public:
    bool Open() override { return false; }
    void Close() override {}
    QString getState() const override { return QStringLiteral("it is away"); }
    bool Beat(const shared::OutputMoment&) override { return false; }
};

/// A page on a clock of nothing, and somebody who looks at it.
struct PageBench
{
    bool look()
    {
        const bool isOpen = page.getServer().Open(QString(), 0);
        const QString place = QStringLiteral("://127.0.0.1:%1").arg(page.getServer().getPort());
        browser = std::make_unique<QWebSocket>(QStringLiteral("http") + place);
        QObject::connect(
            browser.get(), &QWebSocket::textMessageReceived, [this](const QString& pText) {
                const QJsonObject message = QJsonDocument::fromJson(pText.toUtf8()).object();
                const QString type = message[QStringLiteral("type")].toString();
                (type == QLatin1String("beat")      ? told
                 : type == QLatin1String("choices") ? choices
                                                    : states)
                    .push_back(message);
            });
        browser->open(QUrl(QStringLiteral("ws") + place));
        return isOpen && QTest::qWaitFor([this] { return !states.empty(); }, kPageMs);
    }
    /// Whether the state comes to have this.
    bool isTold(const char* pName, const QJsonValue& pValue)
    {
        const QString name = QString::fromLatin1(pName);
        return QTest::qWaitFor([&] { return states.back()[name] == pValue; }, kPageMs);
    }

    LiveBeats beats;
    BeatClock& clock = beats.getClock();
    Hands hands{beats, {}};
    Outputs outputs{beats.getThread(), [](const BeatClockState&) { return 0.5; }};
    WebPage page{beats, hands, outputs};
    std::unique_ptr<QWebSocket> browser;
    std::vector<QJsonObject> told;
    std::vector<QJsonObject> states;
    std::vector<QJsonObject> choices;
};

shared::WebChoices twoProfilesAndInputs()
{
    return {{QStringLiteral("House"), QStringLiteral("Slow")},
            QString(),
            {{QStringLiteral("default")}, {QStringLiteral("Deck"), QStringLiteral("The deck")}},
            QStringLiteral("default")};
}

}  // namespace

/// What somebody who looks at the page is told, and does.
class tst_WebPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_areForetold();
    void action_acts();
    void lateComer_isToldAll();
    void output_isShown();
    void level_isShown();
    void choices_areTold_andFollow();
    void choice_isWanted_data();
    void choice_isWanted();
    void unknownName_isRefused_withoutEffect_data();
    void unknownName_isRefused_withoutEffect();
};

void tst_WebPage::beats_areForetold()
{
    PageBench bench;
    bench.clock.HoldAt(240.0, shared::ClockThread::getTime());
    QVERIFY(bench.look());
    QVERIFY(QTest::qWaitFor([&] { return bench.told.size() >= 4; }, kPageMs));
    const BeatClockState state = bench.clock.getState();
    double last = -1.0;
    for (const QJsonObject& beat : bench.told) {
        const double number = beat[QStringLiteral("beat")].toDouble();
        QVERIFY2(number > last, "a beat is told twice");
        last = number;
        QCOMPARE(beat[QStringLiteral("beatInBar")].toInt(),
                 state.getBeatInBar(std::int64_t(number)) + 1);
        QCOMPARE(beat[QStringLiteral("bpm")].toDouble(), 240.0);
        QCOMPARE(beat[QStringLiteral("confidence")].toDouble(), 1.0);
        // Before it is due, and after the one before.
        const double ms = beat[QStringLiteral("ms")].toDouble();
        QVERIFY2(ms >= 0.0 && ms <= 250.0, qPrintable(QString::number(ms)));
    }
}

void tst_WebPage::action_acts()
{
    PageBench bench;
    bench.clock.HoldAt(120.0, shared::ClockThread::getTime());
    QVERIFY(bench.look());
    QVERIFY(bench.isTold("charge", QStringLiteral("held")));
    bench.browser->sendTextMessage(QStringLiteral("half"));
    QVERIFY(QTest::qWaitFor([&] { return bench.clock.getState().bpm == 60.0; }, kPageMs));
    QVERIFY(QTest::qWaitFor(
        [&] { return !bench.told.empty() && bench.told.back()[QStringLiteral("bpm")] == 60.0; },
        kPageMs));
    bench.browser->sendTextMessage(QStringLiteral("hold"));
    QVERIFY(bench.isTold("charge", QStringLiteral("music")));
    bench.browser->sendTextMessage(QStringLiteral("reset"));
    QVERIFY(bench.isTold("isRunning", false));
    QVERIFY(!bench.clock.getState().isRunning());
}

void tst_WebPage::lateComer_isToldAll()
{
    PageBench bench;
    bench.clock.HoldAt(60.0, shared::ClockThread::getTime());
    QVERIFY(bench.look());
    const std::size_t states = bench.states.size();
    QWebSocket late(bench.browser->origin());
    int beats = 0;
    int others = 0;
    connect(&late, &QWebSocket::textMessageReceived, [&](const QString& pText) {
        ++(pText.contains(QLatin1String("\"beat\"}")) ? beats : others);
    });
    late.open(bench.browser->requestUrl());
    QVERIFY(QTest::qWaitFor([&] { return beats > 0 && others > 0; }, kPageMs));
    QVERIFY(QTest::qWaitFor([&] { return bench.states.size() > states; }, kPageMs));
}

void tst_WebPage::output_isShown()
{
    PageBench bench;
    QVERIFY(bench.look());
    QVERIFY(bench.isTold("outputs", QJsonArray()));
    bench.outputs.Add(QStringLiteral("desk"), std::make_unique<AwayReceiver>());
    const QByteArray wanted = R"([{"name":"desk","state":"it is away","isOpen":false}])";
    QVERIFY(bench.isTold("outputs", QJsonDocument::fromJson(wanted).array()));
}

void tst_WebPage::level_isShown()
{
    PageBench bench;
    QVERIFY(bench.look());
    QVERIFY(bench.isTold("level", 0.0));
    bench.page.setLevel(0.5);
    QVERIFY(bench.isTold("level", 0.5));
    QVERIFY(bench.told.empty());
}

void tst_WebPage::choices_areTold_andFollow()
{
    PageBench bench;
    bench.page.setChoices(twoProfilesAndInputs());
    QVERIFY(bench.look());
    // Before all else.
    QVERIFY(!bench.choices.empty());
    QCOMPARE(bench.choices.back()[QStringLiteral("profiles")].toArray().size(), 2);
    shared::WebChoices choices = twoProfilesAndInputs();
    choices.profile = QStringLiteral("Slow");
    choices.inputs.pop_back();
    bench.page.setChoices(choices);
    QVERIFY(QTest::qWaitFor([&] { return bench.choices.size() == 2; }, kPageMs));
    QCOMPARE(bench.choices.back()[QStringLiteral("profile")].toString(), QStringLiteral("Slow"));
    QCOMPARE(bench.choices.back()[QStringLiteral("inputs")].toArray().size(), 1);
    // What is the same is not told again: the next one is the third.
    bench.page.setChoices(choices);
    bench.page.setChoices(twoProfilesAndInputs());
    QVERIFY(QTest::qWaitFor([&] { return bench.choices.size() == 3; }, kPageMs));
    QCOMPARE(bench.choices.back()[QStringLiteral("profile")].toString(), QString());
}

void tst_WebPage::choice_isWanted_data()
{
    QTest::addColumn<QString>("message");
    for (const char* message : {"profile Slow", "profile ", "input default", "input Deck"})
        QTest::newRow(message) << QString::fromLatin1(message);
}

void tst_WebPage::choice_isWanted()
{
    QFETCH(QString, message);
    PageBench bench;
    bench.page.setChoices(twoProfilesAndInputs());
    QVERIFY(bench.look());
    QString wanted;
    connect(
        &bench.page,
        &WebPage::OnProfileWanted,
        [&](const QString& pName) { wanted = QStringLiteral("profile ") + pName; });
    connect(&bench.page, &WebPage::OnInputWanted, [&](const QString& pName) {
        wanted = QStringLiteral("input ") + pName;
    });
    bench.browser->sendTextMessage(message);
    QTRY_COMPARE_WITH_TIMEOUT(wanted, message, kPageMs);
}

void tst_WebPage::unknownName_isRefused_withoutEffect_data()
{
    QTest::addColumn<QString>("message");
    for (const char* message :
         {"profile house", "profile Deck", "input House", "input ", "input *"})
        QTest::newRow(message) << QString::fromLatin1(message);
}

void tst_WebPage::unknownName_isRefused_withoutEffect()
{
    QFETCH(QString, message);
    PageBench bench;
    bench.page.setChoices(twoProfilesAndInputs());
    QVERIFY(bench.look());
    int wanted = 0;
    connect(
        &bench.page, &WebPage::OnProfileWanted, [&] { ++wanted; });
    connect(&bench.page, &WebPage::OnInputWanted, [&] { ++wanted; });
    bench.browser->sendTextMessage(message);
    // The browser is told what holds, and is not sent away: the list may have changed just now.
    QVERIFY(QTest::qWaitFor([&] { return bench.choices.size() == 2; }, kPageMs));
    QVERIFY(bench.choices[0] == bench.choices[1]);
    QCOMPARE(wanted, 0);
    QCOMPARE(bench.page.getServer().getClients().getCount(), 1);
    QCOMPARE(bench.browser->state(), QAbstractSocket::ConnectedState);
}

AA_TEST(tst_WebPage, QCoreApplication)

#include "tst_WebPage.moc"
