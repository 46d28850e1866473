// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/OutputKinds.h>

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
    void nonsense_isRefused_withTheReason();
    void place_isDivided_andPutTogether();
    void tests_sayWhatToSee();
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
}

AA_TEST(tst_OutputKinds, QCoreApplication)
#include "tst_OutputKinds.moc"
