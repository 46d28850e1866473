// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>

#include "MeterMusic.h"
#include "TrackedBeats.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

namespace {

constexpr int kHandRate = 44100;

/// Ten seconds of 120 BPM and the beat half-way to the next.
void settle(TrackedBeats& pTracked)
{
    pTracked.push(MeterMusic(kHandRate).play(120.0, 10.25).samples());
    pTracked.beats.clear();
}

std::vector<qint16> moreMusic(double pSeconds)
{
    const std::vector<qint16> all = MeterMusic(kHandRate).play(120.0, 10.25 + pSeconds).samples();
    return {all.begin() + std::ptrdiff_t(10.25 * kHandRate), all.end()};
}

}  // namespace

class tst_MeterTracker_hand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void multiply_takesTheTempoThere_withinOneBeat_data();
    void multiply_takesTheTempoThere_withinOneBeat();
    void multiply_changesNothing_whenTheTempoWouldLeaveTheRange();
    void multiply_takesNoOtherFactor();
    void multiply_staysAtTheLevel();
    void setTempoRange_takesTheTempoInside_withinOneBeat();
    void setTempoRange_refusesWhatIsNoRange_data();
    void setTempoRange_refusesWhatIsNoRange();
    void setTempoRange_outlivesReset();
    void setTempoRange_leavesNoTrace_beforeTheFirstSample();
    void setDownbeat_numbersTheBeats_data();
    void setDownbeat_numbersTheBeats();
    void setDownbeat_staysThroughABreak();
    void setDownbeat_isTaken_howeverFarAhead();
    void taps_moveTheBeat_withinOneBeat();
    void taps_setTheTempo_afterThree();
    void music_isFollowedAgain_afterAWrongTap();
};

void tst_MeterTracker_hand::multiply_takesTheTempoThere_withinOneBeat_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("1/2") << 0.5;
    QTest::newRow("3/2") << 1.5;
    QTest::newRow("2/3") << 2.0 / 3.0;
}

void tst_MeterTracker_hand::multiply_takesTheTempoThere_withinOneBeat()
{
    QFETCH(double, factor);
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    const double before = tracked.tracker.getBPM();
    QVERIFY(tracked.tracker.Multiply(factor));
    QVERIFY(std::fabs(tracked.tracker.getBPM() / before / factor - 1.0) < 0.03);
    tracked.push(moreMusic(4.0));
    QVERIFY(!tracked.beats.empty());
    QVERIFY(std::fabs(tracked.beats[0].bpm / before / factor - 1.0) < 0.05);
    // The next beat is one of the new ones, or of the old ones that stay.
    const double place = double(tracked.beats[0].index) / kHandRate;
    QVERIFY2(place > 10.25 && place < 10.25 + 0.5 / factor + 0.03,
             qPrintable(QString::number(place)));
}

void tst_MeterTracker_hand::multiply_changesNothing_whenTheTempoWouldLeaveTheRange()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    const double before = tracked.tracker.getBPM();
    QVERIFY(!tracked.tracker.Multiply(2.0));
    QCOMPARE(tracked.tracker.getBPM(), before);
    QVERIFY(tracked.tracker.setTempoRange(100.0, 140.0));
    QVERIFY(!tracked.tracker.Multiply(0.5));
}

void tst_MeterTracker_hand::multiply_takesNoOtherFactor()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    for (const double factor : {1.0, 0.9, 0.75, 0.0, -2.0})
        QVERIFY(!tracked.tracker.Multiply(factor));
}

void tst_MeterTracker_hand::multiply_staysAtTheLevel()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    QVERIFY(tracked.tracker.Multiply(0.5));
    tracked.push(moreMusic(15.0));
    QVERIFY(std::fabs(tracked.tracker.getBPM() - 60.0) < 3.0);
    QVERIFY(tracked.beats.size() >= 13 && tracked.beats.size() <= 16);
}

void tst_MeterTracker_hand::setTempoRange_takesTheTempoInside_withinOneBeat()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    QVERIFY(tracked.tracker.setTempoRange(150.0, 190.0));
    QVERIFY(std::fabs(tracked.tracker.getBPM() - 180.0) < 6.0);
    tracked.push(moreMusic(8.0));
    QVERIFY(!tracked.beats.empty());
    for (const MeterTracker::Beat& beat : tracked.beats)
        QVERIFY(beat.bpm > 147.0 && beat.bpm < 193.0);
}

void tst_MeterTracker_hand::setTempoRange_refusesWhatIsNoRange_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::newRow("too slow") << 59.0 << 120.0;
    QTest::newRow("too fast") << 100.0 << 191.0;
    QTest::newRow("reversed") << 130.0 << 120.0;
    QTest::newRow("no number") << std::nan("") << 120.0;
}

void tst_MeterTracker_hand::setTempoRange_refusesWhatIsNoRange()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    MeterTracker tracker(kHandRate);
    QVERIFY(!tracker.setTempoRange(minimum, maximum));
    QCOMPARE(tracker.getMinimalBPM(), MeterTracker::kSlowestBPM);
    QCOMPARE(tracker.getMaximalBPM(), MeterTracker::kFastestBPM);
}

void tst_MeterTracker_hand::setTempoRange_outlivesReset()
{
    TrackedBeats tracked(kHandRate);
    QVERIFY(tracked.tracker.setTempoRange(65.0, 95.0));
    tracked.tracker.Reset();
    tracked.push(MeterMusic(kHandRate).play(120.0, 10.0).samples());
    QVERIFY(!tracked.beats.empty());
    for (const MeterTracker::Beat& beat : tracked.beats)
        QVERIFY(beat.bpm > 63.0 && beat.bpm < 97.0);
}

// All tempi are what a tracker begins with, however narrow the range was in between.
void tst_MeterTracker_hand::setTempoRange_leavesNoTrace_beforeTheFirstSample()
{
    const std::vector<qint16> samples = MeterMusic(kHandRate).play(100.0, 8.0).samples();
    TrackedBeats untouched(kHandRate);
    untouched.push(samples);
    TrackedBeats tracked(kHandRate);
    QVERIFY(tracked.tracker.setTempoRange(150.0, 160.0));
    QVERIFY(tracked.tracker.setTempoRange(60.0, 190.0));
    tracked.push(samples);
    QVERIFY(!untouched.beats.empty());
    QVERIFY(tracked.beats == untouched.beats);
}

void tst_MeterTracker_hand::setDownbeat_numbersTheBeats_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("the beat at 9 s") << 9.0;
    QTest::newRow("the beat at 9.5 s") << 9.5;
    QTest::newRow("the beat at 10 s") << 10.02;
    QTest::newRow("the next beat") << 10.49;
}

// Beats are half a second apart.
void tst_MeterTracker_hand::setDownbeat_numbersTheBeats()
{
    QFETCH(double, seconds);
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    tracked.tracker.setDownbeat(quint64(seconds * kHandRate));
    tracked.push(moreMusic(6.0));
    QVERIFY(tracked.beats.size() >= 10);
    for (const MeterTracker::Beat& beat : tracked.beats) {
        const int beats = qRound((double(beat.index) / kHandRate - seconds) / 0.5);
        QCOMPARE(beat.beatInBar, beats % 4 + 1);
        QCOMPARE(beat.barConfidence, 1.0);
    }
    tracked.tracker.ReleaseDownbeat();
    tracked.push(MeterMusic(kHandRate).play(120.0, 2.0).samples());
    QVERIFY(tracked.beats.back().barConfidence < 1.0);
}

// The gap of 4 s is two bars long.
void tst_MeterTracker_hand::setDownbeat_staysThroughABreak()
{
    const std::vector<qint16> samples =
        MeterMusic(kHandRate).play(120.0, 16.0).rest(4.0).play(120.0, 12.0).samples();
    TrackedBeats tracked(kHandRate);
    tracked.push({samples.begin(), samples.begin() + std::ptrdiff_t(10.2 * kHandRate)});
    tracked.tracker.setDownbeat(10 * kHandRate + kHandRate / 2);
    tracked.push({samples.begin() + std::ptrdiff_t(10.2 * kHandRate), samples.end()});
    for (const MeterTracker::Beat& beat : tracked.beats) {
        const double seconds = double(beat.index) / kHandRate;
        if (seconds > 24.0)
            QCOMPARE(beat.beatInBar, qRound((seconds - 10.5) / 0.5) % 4 + 1);
    }
    QVERIFY(tracked.count(24.0, 32.0) >= 14);
}

// Whatever place in a bar that gives, the beats are counted on from it.
void tst_MeterTracker_hand::setDownbeat_isTaken_howeverFarAhead()
{
    TrackedBeats tracked(kHandRate);
    tracked.push(MeterMusic(kHandRate).play(120.0, 12.0).samples());
    tracked.tracker.setDownbeat(std::numeric_limits<quint64>::max());
    tracked.push(MeterMusic(kHandRate).play(120.0, 4.0).samples());
    QVERIFY(tracked.count(12.5, 15.5) >= 5);
    for (std::size_t i = 1; i < tracked.beats.size(); ++i)
        if (tracked.beats[i - 1].index > 13 * quint64(kHandRate))
            QCOMPARE(tracked.beats[i].beatInBar, tracked.beats[i - 1].beatInBar % 4 + 1);
}

// On the off-beat, a quarter of a second away.
void tst_MeterTracker_hand::taps_moveTheBeat_withinOneBeat()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    tracked.tracker.Tap(quint64(10.25 * kHandRate));
    const double next = double(tracked.tracker.getNextBeat()) / kHandRate;
    QVERIFY2(std::fabs(next - 10.75) < 0.04, qPrintable(QString::number(next)));
}

// Taps at 90 BPM before anything else is heard.
void tst_MeterTracker_hand::taps_setTheTempo_afterThree()
{
    const std::vector<qint16> samples = MeterMusic(kHandRate).play(120.0, 10.25).samples();
    TrackedBeats tracked(kHandRate);
    tracked.push(samples);
    const std::vector<qint16> pad(std::size_t(2.0 / 3.0 * kHandRate), qint16(0));
    for (int tap = 0; tap < 3; ++tap) {
        tracked.tracker.Tap(tracked.tracker.getSampleCount());
        if (tap < 2)
            tracked.push(pad);
    }
    QVERIFY(std::fabs(6000.0 / double(tracked.tracker.m_pDecision->getPeriod()) - 90.0) < 3.0);
}

void tst_MeterTracker_hand::music_isFollowedAgain_afterAWrongTap()
{
    TrackedBeats tracked(kHandRate);
    settle(tracked);
    tracked.tracker.Tap(quint64(10.2 * kHandRate));
    tracked.push(moreMusic(10.0));
    QVERIFY(tracked.greatestError(120.0, 16.0) < 0.035);
    QVERIFY(tracked.count(16.0, 20.0) >= 7);
}

AA_TEST(tst_MeterTracker_hand, QCoreApplication)
#include "tst_MeterTracker_hand.moc"
