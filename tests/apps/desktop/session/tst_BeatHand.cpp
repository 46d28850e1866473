// SPDX-License-Identifier: MIT
#include <desktop/session/BeatHand.h>
#include <desktop/session/MonitorSession.h>

#include <QSignalSpy>

#include <apps/desktop/DesktopTest.h>
#include <apps/desktop/session/MonitorSessionTest.h>
#include <cmath>
#include <fake/Machine.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

/// What the hand does to the clock that is shown and sent.
class tst_BeatHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
    }

    void taps_setTheTempo_andAreHeld_whenLocking();
    void hold_goesOnAsItWas_untilReleased();
    void hold_doesNothing_withoutATempo();
    void scaledTempo_isHeldAsItIsThen();
    void heldTempo_isTheEnginesToo();
    void nudge_movesTheBeats();
    void reset_letsGo();

private:
    static BeatClockState _State(LiveBeats& pBeats) { return pBeats.getClock().getState(); }
};

void tst_BeatHand::taps_setTheTempo_andAreHeld_whenLocking()
{
    LiveBeats beats;
    BeatHand hand(beats);
    QSignalSpy acts(&hand, &BeatHand::OnActed);
    for (int tap = 0; tap < 4; ++tap, QTest::qWait(500))
        hand.Tap();
    QVERIFY(std::abs(_State(beats).bpm - 120.0) < 0.1);
    QCOMPARE(_State(beats).charge, int(BeatClockCharge_Hand));
    QVERIFY(!hand.isHeld());
    QCOMPARE(acts.count(), 4);
    hand.setLocking(true);
    hand.Tap();
    QCOMPARE(_State(beats).charge, int(BeatClockCharge_Held));
    QVERIFY(std::abs(hand.getHeldTempo() - 120.0) < 0.1);
}

void tst_BeatHand::hold_goesOnAsItWas_untilReleased()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Listen({});
    QTRY_VERIFY_WITH_TIMEOUT(session.getFeed().Read().beatInBar > 0, 12000);
    QVERIFY(session.getFeed().Read().confidence > 0.0);
    LiveFeed& feed = session.getFeed();
    session.getHand().Hold();
    const double held = _State(session.getBeats()).bpm;
    const quint64 beats = feed.getBeatCount();
    QTest::qWait(4000);
    // The lamp goes on: 128 BPM are 8.5 beats in 4 s.
    QVERIFY(feed.getBeatCount() - beats >= 7 && feed.getBeatCount() - beats <= 10);
    QCOMPARE(feed.Read().bpm, held);
    QCOMPARE(feed.Read().charge, int(BeatClockCharge_Held));
    // What a hand leads says nothing of what is heard.
    QVERIFY(feed.Read().confidence < 0.0);
    session.getHand().Release();
    QCOMPARE(feed.Read().charge, int(BeatClockCharge_Music));
    QVERIFY(feed.Read().confidence > 0.0);
}

void tst_BeatHand::hold_doesNothing_withoutATempo()
{
    LiveBeats beats;
    BeatHand hand(beats);
    QSignalSpy held(&hand, &BeatHand::OnHeldTempoChanged);
    hand.Hold();
    hand.Scale(1, 2);
    hand.Round();
    hand.MarkOne();
    hand.Nudge(BeatHand::kNudgeMs);
    QVERIFY(!_State(beats).isRunning());
    QVERIFY(!hand.isHeld());
    QCOMPARE(held.count(), 0);
}

void tst_BeatHand::scaledTempo_isHeldAsItIsThen()
{
    LiveBeats beats;
    BeatHand hand(beats);
    QSignalSpy held(&hand, &BeatHand::OnHeldTempoChanged);
    hand.HoldAt(127.6);
    hand.Scale(1, 2);
    hand.Round();
    QCOMPARE(hand.getHeldTempo(), 64.0);
    hand.Release();
    QCOMPARE(held.count(), 4);
    QCOMPARE(held.last().first().toDouble(), 0.0);
}

void tst_BeatHand::heldTempo_isTheEnginesToo()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.getHand().HoldAt(111.0);
    session.Listen({});
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 111.0);
    session.getHand().Round();
    session.getHand().Scale(3, 2);
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 166.5);
    session.getHand().Release();
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 0.0);
}

void tst_BeatHand::nudge_movesTheBeats()
{
    LiveBeats beats;
    BeatHand hand(beats);
    hand.HoldAt(120.0);
    QTest::qWait(1000);
    const std::int64_t now = shared::ClockThread::getTime();
    const std::int64_t before = _State(beats).getTickTime(_State(beats).getBeat(now) + 8);
    hand.Nudge(BeatHand::kNudgeMs);
    QCOMPARE(_State(beats).getTickTime(_State(beats).getBeat(now) + 8), before + 10000);
    hand.Nudge(-2 * BeatHand::kNudgeMs);
    QTest::qWait(1000);
    const std::int64_t later = shared::ClockThread::getTime();
    const std::int64_t beat = _State(beats).getBeat(later) + 8;
    // A beat is half a second.
    const std::int64_t phase = (_State(beats).getTickTime(beat) - before) % 500000;
    QVERIFY(std::abs(phase + 10000) <= 1 || std::abs(phase - 490000) <= 1);
}

void tst_BeatHand::reset_letsGo()
{
    LiveBeats beats;
    BeatHand hand(beats);
    hand.HoldAt(120.0);
    hand.Reset();
    QVERIFY(!hand.isHeld());
    QVERIFY(!_State(beats).isRunning());
}

AA_TEST(tst_BeatHand, InVirtualTime<QApplication>)
#include "tst_BeatHand.moc"
