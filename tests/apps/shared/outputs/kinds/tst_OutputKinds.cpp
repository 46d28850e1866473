// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/outputs/osc/OscTemplate.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// The state of a receiver that is not open, or why there is none.
QString TryReceiver(const char* pKind, const char* pAddress, const char* pPreset = "")
{
    QString reason;
    const auto pReceiver = shared::makeReceiver(
        QString::fromUtf8(pKind), QString::fromUtf8(pAddress), QString::fromUtf8(pPreset), reason);
    return pReceiver ? pReceiver->getState() : QStringLiteral("refused: ") + reason;
}

}  // namespace

class tst_OutputKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kinds_areFound();
    void osc_isMade();
    void osc_takesThePortOfItsPreset();
    void os2l_isMade_withAndWithoutAnAddress();
    void wled_isMade_withAndWithoutAnAddress();
    void midiClock_isMade_withItsPreset();
    void midiNotes_areMade_withTheirSettings_data();
    void midiNotes_areMade_withTheirSettings();
    void nonsense_isRefused_withTheReason();
    void presets_toChooseFrom_areAllTaken();
    void place_isDivided_andPutTogether();
    void tests_sayWhatToSee();
    void recipes_areThere_forAllKindsAndPresets();
};

void tst_OutputKinds::kinds_areFound()
{
    QVERIFY(shared::findOutputKind(QStringLiteral("OSC")));
    QVERIFY(!shared::findOutputKind(QStringLiteral("")));
    for (const shared::OutputKind& kind : shared::getOutputKinds())
        QCOMPARE(shared::findOutputKind(QLatin1String(kind.name)), &kind);
}

void tst_OutputKinds::osc_isMade()
{
    QCOMPARE(TryReceiver("osc", "desk:7001", "resolume"), QStringLiteral("OSC to desk:7001 (UDP)"));
    QCOMPARE(TryReceiver("OSC", "tcp:desk:7001", "beat /a i 1"),
             QStringLiteral("OSC to desk:7001 (TCP)"));
}

void tst_OutputKinds::osc_takesThePortOfItsPreset()
{
    QCOMPARE(TryReceiver("osc", "desk"), QStringLiteral("OSC to desk:9000 (UDP)"));
    QCOMPARE(TryReceiver("osc", "[::1]", "Resolume"), QStringLiteral("OSC to [::1]:7000 (UDP)"));
    QCOMPARE(TryReceiver("osc", "tcp:desk", "wled ; beat /a i 1"),
             QStringLiteral("OSC to desk:12000 (TCP)"));
}

void tst_OutputKinds::os2l_isMade_withAndWithoutAnAddress()
{
    QVERIFY(!TryReceiver("os2l", "").startsWith(QStringLiteral("refused")));
    QVERIFY(!TryReceiver("os2l", "desk:8010").startsWith(QStringLiteral("refused")));
    QCOMPARE(
        TryReceiver("os2l", "desk:0"),
        QStringLiteral("refused: \"desk:0\": give HOST or HOST:PORT, or nothing for all in the "
                       "net"));
}

void tst_OutputKinds::wled_isMade_withAndWithoutAnAddress()
{
    for (const char* pAddress : {"", "strip", "10.0.0.5:11989"})
        QVERIFY(!TryReceiver("wled", pAddress).startsWith(QStringLiteral("refused")));
    QCOMPARE(TryReceiver("wled", "strip:0"),
             QStringLiteral("refused: \"strip:0\": give HOST or HOST:PORT, or nothing for all in "
                            "the net"));
}

void tst_OutputKinds::midiClock_isMade_withItsPreset()
{
    for (const char* pPreset : {"", "always", "ALWAYS"})
        QVERIFY(!TryReceiver("midi-clock", "", pPreset).startsWith(QStringLiteral("refused")));
    QCOMPARE(TryReceiver("midi-clock", "synth", "never"),
             QStringLiteral("refused: \"never\": give always, or nothing"));
    QString reason;
    const auto pReceiver = shared::makeReceiver(
        QStringLiteral("midi-clock"), QStringLiteral("synth"), QString(), reason);
    QCOMPARE(pReceiver->getDivision(), 24);
}

void tst_OutputKinds::midiNotes_areMade_withTheirSettings_data()
{
    QTest::addColumn<bool>("isMade");
    for (const char* pText :
         {"", "beat 0", "bar none", "channel 16, velocity 1,length 24 ,beat 127", "Beat NONE"})
        QTest::newRow(pText) << true;
    for (const char* pText : {"beat",
                              "beat 128",
                              "beat -2",
                              "channel 0",
                              "channel none",
                              "velocity 0",
                              "length 25",
                              "pitch 3",
                              "beat 1 2",
                              "beat=1"})
        QTest::newRow(pText) << false;
}

void tst_OutputKinds::midiNotes_areMade_withTheirSettings()
{
    QFETCH(bool, isMade);
    const QString result = TryReceiver("midi-notes", "", QTest::currentDataTag());
    QCOMPARE(
        !result.startsWith(QStringLiteral("refused: \"") + QLatin1String(QTest::currentDataTag())),
        isMade);
}

void tst_OutputKinds::nonsense_isRefused_withTheReason()
{
    QVERIFY(TryReceiver("dmx", "desk")
                .startsWith(
                    QStringLiteral("refused: there is no kind of output \"dmx\"; there are: osc")));
    QCOMPARE(TryReceiver("osc", ""), QStringLiteral("refused: osc: give its address"));
    QCOMPARE(TryReceiver("osc", "desk:0"),
             QStringLiteral("refused: \"desk:0\": give HOST:PORT[/PRESET], or "
                            "tcp:HOST:PORT[/PRESET]"));
    QVERIFY(TryReceiver("osc", "desk", "beat /a i 1").startsWith(QStringLiteral("refused: ")));
    QVERIFY(TryReceiver("osc", "desk:1", "resolum").startsWith(QStringLiteral("refused: ")));
}

void tst_OutputKinds::presets_toChooseFrom_areAllTaken()
{
    int count = 0;
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        StoredOutput output;
        output.kind = QLatin1String(kind.name);
        output.address = QStringLiteral("desk");
        for (const QString& preset : kind.listPresets ? kind.listPresets() : QStringList()) {
            output.preset = preset;
            QCOMPARE(shared::findOutputFault(output), QString());
            QVERIFY2(kind.describePresets().contains(preset), qPrintable(preset));
            ++count;
        }
    }
    // Seven of OSC, one of the MIDI clock.
    QCOMPARE(count, 8);
}

void tst_OutputKinds::place_isDivided_andPutTogether()
{
    StoredOutput output;
    output.kind = QStringLiteral("osc");
    for (const char* pText : {"desk:7000", "[::1]:7000/resolume", "desk:1/beat /a/b f 1 / bpm"}) {
        shared::readOutputPlace(QString::fromLatin1(pText), output);
        QCOMPARE(shared::describeOutputPlace(output), QString::fromLatin1(pText));
    }
    QCOMPARE(output.address, QStringLiteral("desk:1"));
    QCOMPARE(output.preset, QStringLiteral("beat /a/b f 1 / bpm"));
    // The name of a port may hold slashes; so may nothing else.
    output.kind = QStringLiteral("midi-clock");
    shared::readOutputPlace(QStringLiteral("USB/DIN 1/always"), output);
    QCOMPARE(output.address, QStringLiteral("USB/DIN 1"));
    QCOMPARE(output.preset, QStringLiteral("always"));
    output.kind = QStringLiteral("os2l");
    shared::readOutputPlace(QStringLiteral("desk:9996"), output);
    QCOMPARE(output.address, QStringLiteral("desk:9996"));
    QVERIFY(output.preset.isEmpty());
}

void tst_OutputKinds::tests_sayWhatToSee()
{
    QSet<QString> words;
    const shared::OutputKind& osc = *shared::findOutputKind(QStringLiteral("osc"));
    for (const char* pPreset : {"",
                                "resolume",
                                "chromatik",
                                "grandma3",
                                "wled",
                                "touchdesigner",
                                "qlcplus",
                                "beat /a i 1"})
        words.insert(osc.describeTest(QLatin1String(pPreset)));
    QCOMPARE(words.size(), 8);
    QCOMPARE(osc.describeTest(QStringLiteral("Plain")), osc.describeTest(QString()));
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        QVERIFY(!kind.describe().isEmpty());
        QVERIFY(!kind.describeTest(QString()).isEmpty());
        QCOMPARE(kind.describePresets == nullptr, kind.division == shared::OutputKind::eAtNoSlash);
    }
}

void tst_OutputKinds::recipes_areThere_forAllKindsAndPresets()
{
    QFile file(QStringLiteral(OUTPUT_DOCS));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    for (const shared::OutputKind& kind : shared::getOutputKinds())
        QVERIFY2(page.contains(
                     QStringLiteral("audio-analyzer listen --%1 ").arg(QLatin1String(kind.name))),
                 kind.name);
    for (const shared::OscPreset& preset : shared::OscTemplate::getPresets())
        QVERIFY2(page.contains(QStringLiteral("`--osc HOST/%1`, port %2\n")
                                   .arg(QLatin1String(preset.name))
                                   .arg(preset.port)),
                 preset.name);
}

AA_TEST(tst_OutputKinds, QCoreApplication)
#include "tst_OutputKinds.moc"
