// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/hands/Hands.h>

#include <QSignalSpy>
#include <QtTest>

#include <support/TestClass.h>
#include <support/VirtualTime.h>

using shared::HandAction;

namespace {

/// Hands on the beats of nothing, whose clock a test holds at 120 BPM from now on.
struct HandsBench
{
    HandsBench() { clock.HoldAt(120.0, now()); }

    static std::int64_t now() { return shared::ClockThread::getTime(); }
    void press(const char* pAction, double pValue = 1.0)
    {
        const QString control = QStringLiteral("osc:/") + QString::fromLatin1(pAction).left(3);
        hands.getMap().Learn(control, *HandAction::Parse(QString::fromLatin1(pAction)));
        hands.Take({control, pValue});
    }

    LiveBeats beats;
    BeatClock& clock = beats.getClock();
    Hands hands{beats, {}};
    QSignalSpy done{&hands, &Hands::OnDone};
};

}  // namespace

/// Each action on a clock that stands still where it is not moved.
class tst_Hands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isHalvedAndDoubled();
    void tap_makesATempo();
    void one_beginsABar();
    void hold_keepsTheTempo_andLetsItGo();
    void nudge_movesTheBeats();
    void bend_lastsAsLongAsItIsPressed();
    void reset_forgets();
    void hostsOwn_areAskedFor();
    void learning_doesNothing();
};

void tst_Hands::tempo_isHalvedAndDoubled()
{
    HandsBench bench;
    bench.press("half");
    QCOMPARE(bench.clock.getState().bpm, 60.0);
    bench.press("double");
    QCOMPARE(bench.clock.getState().bpm, 120.0);
    QCOMPARE(bench.done.size(), 2);
    QCOMPARE(bench.done[0][0].toString(), QStringLiteral("half"));
    QCOMPARE(bench.done[1][0].toString(), QStringLiteral("double"));
}

void tst_Hands::tap_makesATempo()
{
    HandsBench bench;
    for (int i = 0; i < 4; ++i) {
        bench.press("tap");
        QTest::qSleep(600);
    }
    QCOMPARE(bench.clock.getState().bpm, 100.0);
    QCOMPARE(bench.done.size(), 4);
}

void tst_Hands::one_beginsABar()
{
    HandsBench bench;
    QTest::qSleep(1000);
    const std::int64_t beat = bench.clock.getState().getBeat(HandsBench::now());
    QCOMPARE(bench.clock.getState().getBeatInBar(beat), 2);
    bench.press("one");
    QCOMPARE(bench.clock.getState().getBeatInBar(beat), 0);
}

void tst_Hands::hold_keepsTheTempo_andLetsItGo()
{
    HandsBench bench;
    QCOMPARE(bench.clock.getState().charge, int(BeatClockCharge_Held));
    bench.press("hold");
    QCOMPARE(bench.clock.getState().charge, int(BeatClockCharge_Music));
    bench.press("hold");
    QCOMPARE(bench.clock.getState().charge, int(BeatClockCharge_Held));
}

void tst_Hands::nudge_movesTheBeats()
{
    HandsBench bench;
    const BeatClockState before = bench.clock.getState();
    bench.press("nudge 20");
    // Not by a jump, but in the end.
    QTest::qSleep(10000);
    const BeatClockState after = bench.clock.getState();
    QCOMPARE(after.getTickTime(40, 1), before.getTickTime(40, 1) + 20000);
}

void tst_Hands::bend_lastsAsLongAsItIsPressed()
{
    HandsBench bench;
    const BeatClockState before = bench.clock.getState();
    bench.press("bend 10");
    QTest::qSleep(1000);
    bench.press("bend 10", 0.0);
    // A second at a tempo that is a tenth faster: 0.2 of a beat of half a second.
    QTest::qSleep(1000);
    const double gained = bench.clock.getState().getPosition(HandsBench::now()) -
                          before.getPosition(HandsBench::now());
    QVERIFY2(std::abs(gained - 0.2) < 1e-6, qPrintable(QString::number(gained)));
    QCOMPARE(bench.done.size(), 1);
}

void tst_Hands::reset_forgets()
{
    HandsBench bench;
    bench.press("reset");
    QVERIFY(!bench.clock.getState().isRunning());
}

void tst_Hands::hostsOwn_areAskedFor()
{
    HandsBench bench;
    QSignalSpy offsets(&bench.hands, &Hands::OnOffsetWanted);
    QSignalSpy profiles(&bench.hands, &Hands::OnProfileWanted);
    bench.press("offset -10");
    bench.press("profile Techno");
    QCOMPARE(offsets.size(), 1);
    QCOMPARE(offsets[0][0].toDouble(), -10.0);
    QCOMPARE(profiles.size(), 1);
    QCOMPARE(profiles[0][0].toString(), QStringLiteral("Techno"));
}

void tst_Hands::learning_doesNothing()
{
    HandsBench bench;
    QSignalSpy touched(&bench.hands, &Hands::OnTouched);
    bench.hands.setLearning(true);
    bench.press("half");
    bench.press("half", 0.0);
    QCOMPARE(bench.clock.getState().bpm, 120.0);
    QCOMPARE(touched.size(), 1);
    QCOMPARE(touched[0][0].toString(), QStringLiteral("osc:/hal"));
    bench.hands.setLearning(false);
    bench.press("half");
    QCOMPARE(bench.clock.getState().bpm, 60.0);
    QCOMPARE(touched.size(), 1);
}

AA_TEST(tst_Hands, InVirtualTime<QCoreApplication>)

#include "tst_Hands.moc"
