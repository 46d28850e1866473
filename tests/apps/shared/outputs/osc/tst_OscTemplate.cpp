// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscTemplate.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::OscTemplate;

class tst_OscTemplate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_areRead();
    void presets_areRead_andHaveTheirPorts();
    void preset_canStandBesideRules();
    void division_suitsAllRules();
    void nonsense_isRefused_withTheReason_data();
    void nonsense_isRefused_withTheReason();
};

void tst_OscTemplate::rules_areRead()
{
    QString reason;
    const auto read = OscTemplate::Parse(
        QStringLiteral("beat /a if beat, min(1, bpm);bar /b/c i 1 ; bundle; playing /d d playing;"),
        reason);
    QVERIFY2(read, qPrintable(reason));
    QVERIFY(read->isBundled);
    QCOMPARE(int(read->rules.size()), 3);
    QCOMPARE(read->rules[0].event, shared::eOscBeat);
    QCOMPARE(read->rules[0].address, QByteArray("/a"));
    QCOMPARE(read->rules[0].types, QByteArray("if"));
    QCOMPARE(int(read->rules[0].values.size()), 2);
    QCOMPARE(read->rules[1].event, shared::eOscBar);
    QCOMPARE(read->rules[1].address, QByteArray("/b/c"));
    QCOMPARE(read->rules[2].event, shared::eOscPlaying);
    QCOMPARE(read->division, 1);
}

void tst_OscTemplate::presets_areRead_andHaveTheirPorts()
{
    QStringList names;
    for (const shared::OscPreset& preset : OscTemplate::getPresets()) {
        QString reason;
        const auto read = OscTemplate::Parse(QString::fromLatin1(preset.text), reason);
        QVERIFY2(read, qPrintable(reason));
        names += QStringLiteral("%1 %2").arg(QLatin1String(preset.name)).arg(preset.port);
    }
    QCOMPARE(names.join(QLatin1Char(',')),
             QStringLiteral("plain 9000,resolume 7000,chromatik 3030,grandma3 8000,wled 12000,"
                            "touchdesigner 10000,qlcplus 7700"));
}

void tst_OscTemplate::preset_canStandBesideRules()
{
    QString reason;
    const auto wled = OscTemplate::Parse(QStringLiteral("WLED; tick24 /phase f phase"), reason);
    QVERIFY2(wled, qPrintable(reason));
    QCOMPARE(int(wled->rules.size()), 2);
    QCOMPARE(wled->rules[0].address, QByteArray("/wled/bpm"));
    QCOMPARE(wled->rules[1].ticks, 24);
    QVERIFY(!wled->isBundled);
}

void tst_OscTemplate::division_suitsAllRules()
{
    QString reason;
    const auto read = OscTemplate::Parse(
        QStringLiteral("tick6 /a f phase; tick4 /b f phase; beat /c i beat"), reason);
    QVERIFY(read);
    QCOMPARE(read->division, 12);
}

void tst_OscTemplate::nonsense_isRefused_withTheReason_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto add = [](const char* pText, const char* pReason) {
        QTest::newRow(pText) << QString::fromLatin1(pText) << QString::fromLatin1(pReason);
    };
    add("", "give 1 to 32 messages");
    add("bundle;", "give 1 to 32 messages");
    add("Resolum", "\"Resolum\": give a preset, or begin with beat, bar, tempo, playing or tickN");
    add("tick0 /a i 1",
        "\"tick0\": give a preset, or begin with beat, bar, tempo, playing or tickN");
    add("tick193 /a i 1",
        "\"tick193\": give a preset, or begin with beat, bar, tempo, playing or tickN");
    add("beat a i 1", "\"a\": the address must begin with / and have no blanks or # * , ? [ ] { }");
    add("beat / i 1", "\"/\": the address must begin with / and have no blanks or # * , ? [ ] { }");
    add("beat /a* i 1",
        "\"/a*\": the address must begin with / and have no blanks or # * , ? [ ] { }");
    add("beat /a", "/a: give a type for each value, at most 8 of i, f, d and h");
    add("beat /a s 1", "/a: give a type for each value, at most 8 of i, f, d and h");
    add("beat /a iiiiiiiii 1", "/a: give a type for each value, at most 8 of i, f, d and h");
    add("beat /a if 1", "/a: give as many values as types, with commas between them");
    add("beat /a i 1, 2", "/a: give as many values as types, with commas between them");
    add("beat /a f bmp", "/a: \"bmp\": \"bmp\" is not known");
    add("tick7 /a f phase; tick64 /b f phase",
        "the numbers of ticks a beat have no common multiple up to 192");
    QTest::newRow("many") << QStringLiteral("beat /a i 1;").repeated(33)
                          << QStringLiteral("give 1 to 32 messages");
    QTest::newRow("long") << QStringLiteral(" ").repeated(2001)
                          << QStringLiteral("the messages are too long");
}

void tst_OscTemplate::nonsense_isRefused_withTheReason()
{
    QFETCH(QString, text);
    QString reason;
    QVERIFY(!OscTemplate::Parse(text, reason));
    QTEST(reason, "reason");
}

AA_TEST(tst_OscTemplate, NoApplication)
#include "tst_OscTemplate.moc"
