// SPDX-License-Identifier: MIT
#include "MeterMusic.h"
#include "TrackedBeats.h"

#include <QtTest>

#include <support/TestClass.h>
#include <support/Waves.h>

namespace {

constexpr int kMeterRate = 44100;

std::vector<qint16> noise(double pSeconds, int pPeak)
{
    std::vector<qint16> samples(std::size_t(pSeconds * kMeterRate));
    quint32 state = 12345;
    for (qint16& sample : samples) {
        state = state * 1664525U + 1013904223U;
        sample = qint16(int(state >> 16) % (2 * pPeak + 1) - pPeak);
    }
    return samples;
}

}  // namespace

class tst_MeterTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_fallOnTheBassDrum_whateverTheTempo_data();
    void beats_fallOnTheBassDrum_whateverTheTempo();
    void beats_areTheSame_inPortionsOfAnySize_data();
    void beats_areTheSame_inPortionsOfAnySize();
    void beats_areAPrefix_whenTheEndIsCutOff();
    void beats_areToldAtMostOneFrameAhead();
    void beats_areTheSame_atHalfTheLevel();
    void beats_areFound_atMinus60DecibelsAndWhenClipped_data();
    void beats_areFound_atMinus60DecibelsAndWhenClipped();
    void beats_areTheSame_afterReset();
    void nothing_isTold_overWhatHasNoMeter_data();
    void nothing_isTold_overWhatHasNoMeter();
    void nothing_isTold_twoSecondsAfterTheEnd();
    void playing_isToldOnceForEachChange();
    void getters_sayNothing_whenNothingPlays();
    void getters_agreeWithTheNextBeat();
    void confidence_isHighOverDrums();
    void tempo_followsAStepWithinFourSeconds();
    void tempo_staysAtItsLevel_overASingleDrum();
    void rate_isTakenToTheNearerLimit();
};

void tst_MeterTracker::beats_fallOnTheBassDrum_whateverTheTempo_data()
{
    QTest::addColumn<double>("bpm");
    for (const double bpm : {82.0, 100.0, 120.0, 150.0})
        QTest::addRow("%g BPM", bpm) << bpm;
}

// 35 ms is half of what a listener forgives.
void tst_MeterTracker::beats_fallOnTheBassDrum_whateverTheTempo()
{
    QFETCH(double, bpm);
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(bpm, 12.0).samples());
    const double error = tracked.greatestError(bpm, 5.0);
    QVERIFY2(error < 0.035, qPrintable(QString::number(error)));
    const double expected = 7.0 * bpm / 60.0;
    QVERIFY(std::fabs(tracked.count(5.0, 12.0) - expected) <= 1.0);
    QVERIFY(std::fabs(tracked.beats.back().bpm / bpm - 1.0) < 0.02);
}

void tst_MeterTracker::beats_areTheSame_inPortionsOfAnySize_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {1, 440, 441, 1000, 500000})
        QTest::addRow("%d", portion) << portion;
}

void tst_MeterTracker::beats_areTheSame_inPortionsOfAnySize()
{
    QFETCH(int, portion);
    const std::vector<qint16> samples = MeterMusic(kMeterRate).rest(0.3).play(127.0, 8.0).samples();
    TrackedBeats whole(kMeterRate);
    whole.push(samples);
    TrackedBeats pieces(kMeterRate);
    pieces.push(samples, std::size_t(portion));
    QVERIFY(whole.beats.size() > 10);
    QVERIFY(whole.beats == pieces.beats);
    QVERIFY(whole.changes == pieces.changes);
}

void tst_MeterTracker::beats_areAPrefix_whenTheEndIsCutOff()
{
    std::vector<qint16> samples =
        MeterMusic(kMeterRate).play(127.0, 10.0).play(100.0, 5.0).samples();
    TrackedBeats whole(kMeterRate);
    whole.push(samples);
    for (const std::size_t length : {300001U, 437000U, 440000U, 441441U}) {
        TrackedBeats start(kMeterRate);
        start.push({samples.begin(), samples.begin() + std::ptrdiff_t(length)});
        QVERIFY(start.beats.size() > 8);
        QVERIFY(std::equal(start.beats.begin(), start.beats.end(), whole.beats.begin()));
        // What the start did not tell lies at most as far back as a beat may be told late.
        QVERIFY(whole.beats[start.beats.size()].index + kMeterRate / 20 >=
                length - kMeterRate / 100);
    }
}

void tst_MeterTracker::beats_areToldAtMostOneFrameAhead()
{
    TrackedBeats tracked(kMeterRate);
    int told = 0;
    QObject::connect(
        &tracked.tracker, &MeterTracker::OnBeatForeseen, [&](const MeterTracker::Beat& pBeat) {
            const auto now = qint64(tracked.tracker.getSampleCount());
            QVERIFY(qint64(pBeat.index) - now <= kMeterRate / 100);
            QVERIFY(now - qint64(pBeat.index) <= kMeterRate / 20);
            ++told;
        });
    tracked.push(MeterMusic(kMeterRate).play(120.0, 10.0).samples());
    QVERIFY(told > 15);
}

// Twice every sample is twice every sum: the gain takes it out without a rounding.
void tst_MeterTracker::beats_areTheSame_atHalfTheLevel()
{
    std::vector<qint16> samples = MeterMusic(kMeterRate).play(127.0, 8.0).samples(8000.0);
    TrackedBeats soft(kMeterRate);
    soft.push(samples);
    for (qint16& sample : samples)
        sample = qint16(2 * sample);
    TrackedBeats loud(kMeterRate);
    loud.push(samples);
    QVERIFY(soft.beats.size() > 10);
    QVERIFY(soft.beats == loud.beats);
}

void tst_MeterTracker::beats_areFound_atMinus60DecibelsAndWhenClipped_data()
{
    QTest::addColumn<double>("peak");
    QTest::newRow("clipped by 12 dB") << 131072.0;
    QTest::newRow("full scale") << 32767.0;
    QTest::newRow("-30 dB") << 1036.0;
    QTest::newRow("-48 dB, which is -60 dBFS on average") << 130.0;
}

void tst_MeterTracker::beats_areFound_atMinus60DecibelsAndWhenClipped()
{
    QFETCH(double, peak);
    const std::vector<qint16> quiet = MeterMusic(kMeterRate).play(128.0, 12.0).samples(32767.0);
    std::vector<qint16> samples;
    for (const qint16 sample : quiet)
        samples.push_back(qint16(qBound(-32768.0, std::round(sample * peak / 32767.0), 32767.0)));
    TrackedBeats tracked(kMeterRate);
    tracked.push(samples);
    QVERIFY(tracked.greatestError(128.0, 5.0) < 0.035);
    QVERIFY(tracked.count(5.0, 12.0) >= 14);
}

void tst_MeterTracker::beats_areTheSame_afterReset()
{
    const std::vector<qint16> samples = MeterMusic(kMeterRate).play(127.0, 8.0).samples();
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(90.0, 7.777).samples());
    tracked.tracker.setDownbeat(1000);
    tracked.tracker.Reset();
    QCOMPARE(tracked.tracker.getSampleCount(), quint64(0));
    tracked.beats.clear();
    tracked.push(samples);
    TrackedBeats fresh(kMeterRate);
    fresh.push(samples);
    QVERIFY(fresh.beats.size() > 10);
    QVERIFY(tracked.beats == fresh.beats);
}

void tst_MeterTracker::nothing_isTold_overWhatHasNoMeter_data()
{
    QTest::addColumn<int>("peak");
    QTest::addColumn<int>("most");
    QTest::newRow("digital silence") << 0 << 0;
    QTest::newRow("the last bit, -90 dBFS") << 1 << 0;
    QTest::newRow("white noise at -75 dBFS") << 10 << 0;
    QTest::newRow("white noise at -20 dBFS") << 5600 << 4;
}

// The first seconds of a loud sound have the benefit of the doubt.
void tst_MeterTracker::nothing_isTold_overWhatHasNoMeter()
{
    QFETCH(int, peak);
    QFETCH(int, most);
    TrackedBeats tracked(kMeterRate);
    tracked.push(noise(30.0, peak));
    QVERIFY(int(tracked.beats.size()) <= most);
    QCOMPARE(tracked.count(4.0, 30.0), 0);
    QVERIFY(!tracked.tracker.isPlaying());
}

void tst_MeterTracker::nothing_isTold_twoSecondsAfterTheEnd()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(128.0, 15.0).rest(8.0).samples());
    QVERIFY(tracked.count(5.0, 15.0) >= 20);
    QCOMPARE(tracked.count(17.0, 23.0), 0);
    QVERIFY(!tracked.tracker.isPlaying());
}

void tst_MeterTracker::playing_isToldOnceForEachChange()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(
        MeterMusic(kMeterRate).rest(1.0).play(128.0, 10.0).rest(5.0).play(128.0, 5.0).samples());
    QCOMPARE(tracked.changes.size(), std::size_t(3));
    QVERIFY(tracked.changes[0].second);
    QVERIFY(tracked.changes[0].first >= kMeterRate &&
            tracked.changes[0].first <= kMeterRate + 2 * 441);
    QVERIFY(!tracked.changes[1].second);
    QVERIFY(tracked.changes[1].first > 11 * kMeterRate &&
            tracked.changes[1].first < 13 * kMeterRate);
    QVERIFY(tracked.changes[2].second);
}

void tst_MeterTracker::getters_sayNothing_whenNothingPlays()
{
    MeterTracker tracker(kMeterRate);
    QCOMPARE(tracker.getBPM(), 0.0);
    QCOMPARE(tracker.getConfidence(), 0.0);
    QCOMPARE(tracker.getNextBeat(), quint64(0));
    QCOMPARE(tracker.getPhase(12345), 0.0);
    QVERIFY(!tracker.isPlaying());
}

void tst_MeterTracker::getters_agreeWithTheNextBeat()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(120.0, 10.1).samples());
    const MeterTracker& tracker = tracked.tracker;
    QVERIFY(std::fabs(tracker.getBPM() - 120.0) < 2.0);
    const double next = double(tracker.getNextBeat()) / kMeterRate;
    QVERIFY2(std::fabs(next - 10.5) < 0.03, qPrintable(QString::number(next)));
    const auto half = quint64(0.5 * 60.0 / tracker.getBPM() * kMeterRate);
    QVERIFY(std::fabs(tracker.getPhase(tracker.getNextBeat() - half) - 0.5) < 0.001);
    const double phase = tracker.getPhase(tracker.getNextBeat());
    QVERIFY(std::min(phase, 1.0 - phase) < 0.001);
}

void tst_MeterTracker::confidence_isHighOverDrums()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(128.0, 12.0).samples());
    QVERIFY(tracked.tracker.getConfidence() > 0.85);
    for (const MeterTracker::Beat& beat : tracked.beats) {
        QVERIFY(beat.confidence > 0.0 && beat.confidence < 1.0);
        QVERIFY(beat.beatInBar >= 1 && beat.beatInBar <= 4);
        QVERIFY(beat.barConfidence >= 0.25 && beat.barConfidence <= 1.0);
    }
}

void tst_MeterTracker::tempo_followsAStepWithinFourSeconds()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(MeterMusic(kMeterRate).play(100.0, 12.0).play(130.0, 10.0).samples());
    const double period = 60.0 / 130.0;
    for (const double time : tracked.seconds()) {
        const double beats = (time - 12.0) / period;
        if (time > 16.0)
            QVERIFY2(std::fabs(beats - std::round(beats)) * period < 0.035,
                     qPrintable(QString::number(time)));
    }
    QVERIFY(std::fabs(tracked.tracker.getBPM() - 130.0) < 2.6);
}

// Strokes that are all alike could be the beat, or half of it: what has been told stays.
void tst_MeterTracker::tempo_staysAtItsLevel_overASingleDrum()
{
    TrackedBeats tracked(kMeterRate);
    tracked.push(waves::kickTrack(30.0, kMeterRate, 125.0));
    // A beat each 0.48 s from 2 s on: 58 of them, or 59.
    const int count = tracked.count(2.0, 30.0);
    QVERIFY2(count >= 57 && count <= 59, qPrintable(QString::number(count)));
    for (const MeterTracker::Beat& beat : tracked.beats)
        if (beat.index >= 3 * quint64(kMeterRate))
            QVERIFY2(std::fabs(beat.bpm - 125.0) < 2.0, qPrintable(QString::number(beat.bpm)));
}

void tst_MeterTracker::rate_isTakenToTheNearerLimit()
{
    QCOMPARE(MeterTracker(1).getSampleRate(), MeterTracker::kLowestRate);
    QCOMPARE(MeterTracker(1000000).getSampleRate(), MeterTracker::kHighestRate);
    QCOMPARE(MeterTracker(48000).getSampleRate(), 48000);
}

AA_TEST(tst_MeterTracker, QCoreApplication)
#include "tst_MeterTracker.moc"
