// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterFollower.h>

#include "PushedAnalysis.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>
#include <unit/analysis/MeterMusic.h>

namespace {

constexpr int kTrackedRate = 22050;

/// Drums at 120 BPM, from the beginning.
waves::Samples meterMusic(double pSeconds = 12.0)
{
    return MeterMusic(kTrackedRate).play(120.0, pSeconds).samples();
}

}  // namespace

/// The automatic tracker through the C interface.
class tst_Analysis_tracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void automatic_isTheDefault_andAProfileChoosesTheEngine();
    void beats_areThoseOfTheTracker_inAnyPortions_data();
    void beats_areThoseOfTheTracker_inAnyPortions();
    void pulsesAndSpectra_areTheEngines_withBothTrackers();
    void profile_inAMiddle_leavesTheRestToTheEngine();
    void tracker_countsOn_whenItIsChosenInTheMiddle();
    void reset_beginsAnew_andTheIndexGoesOn();
    void restart_tellsTheSameAgain();
    void oppositeChannels_areHeard();
    void hand_setsDownbeatTempoAndRange();
    void hand_isRefused();
    void state_isTheTrackers();
    void tempoOfTimes_isThatOfRows();
};

void tst_Analysis_tracker::automatic_isTheDefault_andAProfileChoosesTheEngine()
{
    const AnalysisHandle handle(AudioAnalysis_Create(kTrackedRate));
    AudioAnalysis* pAnalysis = handle.get();
    QCOMPARE(AudioAnalysis_GetTracker(pAnalysis), int(AudioAnalysisTracker_Automatic));
    QCOMPARE(AudioAnalysis_SelectProfile(pAnalysis, "Polka"), AudioAnalysisError_Unknown);
    QCOMPARE(AudioAnalysis_GetTracker(pAnalysis), int(AudioAnalysisTracker_Automatic));
    QCOMPARE(AudioAnalysis_SelectProfile(pAnalysis, "slow"), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_GetTracker(pAnalysis), int(AudioAnalysisTracker_Profile));
    QCOMPARE(AudioAnalysis_SetTracker(pAnalysis, 0), AudioAnalysisError_None);
    AudioAnalysisProfile profile;
    AudioAnalysis_GetProfile(pAnalysis, &profile);
    QCOMPARE(AudioAnalysis_GetTracker(pAnalysis), int(AudioAnalysisTracker_Automatic));
    QCOMPARE(AudioAnalysis_SetProfile(pAnalysis, &profile), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_GetTracker(pAnalysis), int(AudioAnalysisTracker_Profile));
    for (const int tracker : {-1, 2}) {
        QCOMPARE(AudioAnalysis_SetTracker(pAnalysis, tracker), AudioAnalysisError_Range);
        QVERIFY(QByteArray(AudioAnalysis_GetErrorText(pAnalysis)).contains("automatic"));
    }
    QCOMPARE(AudioAnalysis_SetTracker(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_GetTracker(nullptr), -1);
}

void tst_Analysis_tracker::beats_areThoseOfTheTracker_inAnyPortions_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {100, 512, 100000000})
        QTest::addRow("%d", portion) << portion;
}

void tst_Analysis_tracker::beats_areThoseOfTheTracker_inAnyPortions()
{
    QFETCH(int, portion);
    const waves::Samples samples = meterMusic();
    MeterTracker tracker(kTrackedRate);
    MeterFollower follower;
    std::vector<MeterTracker::Beat> beats;
    connect(&follower, &MeterFollower::OnBeatFound, this, [&](const MeterTracker::Beat& pBeat) {
        beats.push_back(pBeat);
    });
    follower.Follow(&tracker);
    follower.Push(samples.data(), samples.size());

    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    analysis.pushInPortions(samples, std::size_t(portion));
    analysis.finish();
    QVERIFY(beats.size() > 15);
    QCOMPARE(analysis.beats.size(), beats.size());
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const AudioAnalysisBeat& beat = analysis.beats[i];
        QCOMPARE(quint64(beat.index), beats[i].index);
        QCOMPARE(beat.time, double(beats[i].index) / kTrackedRate);
        QCOMPARE(beat.bpm, beats[i].bpm);
        QCOMPARE(beat.beatInBar, beats[i].beatInBar);
        QCOMPARE(beat.confidence, beats[i].confidence);
        QCOMPARE(beat.barConfidence, beats[i].barConfidence);
        QCOMPARE(beat.accuracy, beat.confidence);
        QCOMPARE(beat.isVirtual, 0);
        QCOMPARE(beat.loudness, 0);
    }
    QVERIFY(analysis.getEvents("stop").first().startsWith(QLatin1String("stop 0 0 ")));
    QVERIFY(!analysis.getEvents("tempo").isEmpty());
}

void tst_Analysis_tracker::pulsesAndSpectra_areTheEngines_withBothTrackers()
{
    PushedAnalysis automatic(kTrackedRate, AudioAnalysisTracker_Automatic);
    PushedAnalysis engine(kTrackedRate, AudioAnalysisTracker_Profile);
    for (PushedAnalysis* pAnalysis : {&automatic, &engine}) {
        pAnalysis->push(meterMusic());
        pAnalysis->finish();
    }
    QVERIFY(!engine.getEvents("pulse").isEmpty());
    QCOMPARE(automatic.getEvents("pulse"), engine.getEvents("pulse"));
    QCOMPARE(automatic.getEvents("spectrum"), engine.getEvents("spectrum"));
    for (const AudioAnalysisBeat& beat : engine.beats) {
        QCOMPARE(beat.beatInBar, 0);
        QCOMPARE(beat.confidence, 0.0);
    }
}

// The engine has listened all along.
void tst_Analysis_tracker::profile_inAMiddle_leavesTheRestToTheEngine()
{
    PushedAnalysis engine(kTrackedRate);
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    for (PushedAnalysis* pAnalysis : {&engine, &analysis}) {
        pAnalysis->push(meterMusic(8.0));
        pAnalysis->clear();
        AudioAnalysis_SelectProfile(*pAnalysis, "Electro");
        pAnalysis->push(meterMusic(8.0));
    }
    QVERIFY(!engine.getEvents("beat").isEmpty());
    QCOMPARE(analysis.getEvents(), engine.getEvents());
}

// Eight seconds to the engine, then eight to the tracker, whose first sample is number 8 x 22050.
void tst_Analysis_tracker::tracker_countsOn_whenItIsChosenInTheMiddle()
{
    PushedAnalysis fresh(kTrackedRate, AudioAnalysisTracker_Automatic);
    fresh.push(meterMusic(8.0));
    PushedAnalysis analysis(kTrackedRate);
    analysis.push(meterMusic(8.0));
    analysis.beats.clear();
    AudioAnalysis_SetTracker(analysis, AudioAnalysisTracker_Automatic);
    analysis.push(meterMusic(8.0));
    QVERIFY(fresh.beats.size() > 5);
    QCOMPARE(analysis.beats.size(), fresh.beats.size());
    for (std::size_t i = 0; i < fresh.beats.size(); ++i)
        QCOMPARE(analysis.beats[i].index, fresh.beats[i].index + 8 * kTrackedRate);
}

void tst_Analysis_tracker::reset_beginsAnew_andTheIndexGoesOn()
{
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    analysis.push(meterMusic(8.0));
    const std::vector<AudioAnalysisBeat> first = std::move(analysis.beats);
    analysis.beats.clear();
    AudioAnalysis_Reset(analysis);
    analysis.push(meterMusic(8.0));
    QVERIFY(first.size() > 5);
    QCOMPARE(analysis.beats.size(), first.size());
    for (std::size_t i = 0; i < first.size(); ++i)
        QCOMPARE(analysis.beats[i].index, first[i].index + 8 * kTrackedRate);
}

void tst_Analysis_tracker::restart_tellsTheSameAgain()
{
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    analysis.push(meterMusic(8.0));
    analysis.finish();
    const QStringList events = analysis.getEvents();
    QVERIFY(!analysis.beats.empty());
    analysis.clear();
    AudioAnalysis_Restart(analysis);
    QCOMPARE(AudioAnalysis_GetTracker(analysis), int(AudioAnalysisTracker_Automatic));
    analysis.push(meterMusic(8.0));
    analysis.finish();
    QCOMPARE(analysis.getEvents(), events);
}

void tst_Analysis_tracker::oppositeChannels_areHeard()
{
    const waves::Samples mono = meterMusic(8.0);
    waves::Samples frames;
    for (const qint16 sample : mono) {
        frames.push_back(sample);
        frames.push_back(qint16(-sample));
    }
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    AudioAnalysis_PushInt16(analysis, frames.data(), mono.size(), 2);
    QVERIFY(analysis.beats.size() > 5);
    PushedAnalysis engine(kTrackedRate);
    AudioAnalysis_PushInt16(engine, frames.data(), mono.size(), 2);
    QVERIFY(engine.beats.empty());
}

void tst_Analysis_tracker::hand_setsDownbeatTempoAndRange()
{
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    const waves::Samples all = meterMusic(12.25);
    const auto middle = all.begin() + 41 * kTrackedRate / 4;
    analysis.push({all.begin(), middle});
    analysis.beats.clear();
    // The beat at 10 s is the first of a bar, so that at 10.5 s the second comes.
    QCOMPARE(AudioAnalysis_SetDownbeat(analysis, 10 * kTrackedRate), AudioAnalysisError_None);
    analysis.push({middle, all.end()});
    QVERIFY(!analysis.beats.empty());
    QCOMPARE(analysis.beats[0].beatInBar, 2);
    QCOMPARE(analysis.beats[0].barConfidence, 1.0);
    QCOMPARE(AudioAnalysis_ReleaseDownbeat(analysis), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_Tap(analysis, 12 * kTrackedRate), AudioAnalysisError_None);
    // Of 240, 60, 180 and 80 BPM only the last lies inside.
    QCOMPARE(AudioAnalysis_SetTempoRange(analysis, 70.0, 100.0), AudioAnalysisError_None);
    QVERIFY(std::fabs(AudioAnalysis_GetBPM(analysis) - 80.0) < 3.0);
    QCOMPARE(AudioAnalysis_SetTempoRange(analysis, 60.0, 190.0), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_Multiply(analysis, 1.5), AudioAnalysisError_None);
    QVERIFY(std::fabs(AudioAnalysis_GetBPM(analysis) - 120.0) < 6.0);
}

void tst_Analysis_tracker::hand_isRefused()
{
    const AnalysisHandle handle(AudioAnalysis_Create(kTrackedRate));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double factor : {0.0, 1.0, 3.0, -2.0, nan})
        QCOMPARE(AudioAnalysis_Multiply(handle.get(), factor), AudioAnalysisError_Range);
    for (const double minimum : {59.9, 120.1, nan})
        QCOMPARE(AudioAnalysis_SetTempoRange(handle.get(), minimum, 120.0),
                 AudioAnalysisError_Range);
    QCOMPARE(AudioAnalysis_SetTempoRange(handle.get(), 100.0, 190.1), AudioAnalysisError_Range);
    QVERIFY(QByteArray(AudioAnalysis_GetErrorText(handle.get())).contains("60 <= minimum"));
    QCOMPARE(AudioAnalysis_Tap(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_Multiply(nullptr, 2.0), AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_SetDownbeat(nullptr, 0), AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_ReleaseDownbeat(nullptr), AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_SetTempoRange(nullptr, 60.0, 190.0), AudioAnalysisError_Null);
}

void tst_Analysis_tracker::state_isTheTrackers()
{
    PushedAnalysis analysis(kTrackedRate, AudioAnalysisTracker_Automatic);
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 0.0);
    QCOMPARE(AudioAnalysis_GetAccuracy(analysis), 0.0);
    analysis.push(meterMusic());
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 0);
    const double bpm = AudioAnalysis_GetBPM(analysis);
    QVERIFY2(std::fabs(bpm - 120.0) < 2.4, qPrintable(QString::number(bpm)));
    QVERIFY(AudioAnalysis_GetAccuracy(analysis) > 0.5);
    analysis.push(waves::silence(3 * kTrackedRate));
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 0.0);
}

// Ten beats of half a second, reported as 110 BPM.
void tst_Analysis_tracker::tempoOfTimes_isThatOfRows()
{
    std::vector<double> times;
    for (int i = 0; i < 10; ++i)
        times.push_back(0.5 * i);
    const std::vector<double> reported(10, 110.0);
    double bpm = -1.0;
    QCOMPARE(AudioAnalysis_ComputeTempoOfTimes(times.data(), reported.data(), 10, &bpm),
             AudioAnalysisError_None);
    QCOMPARE(bpm, 120.0);
    QCOMPARE(AudioAnalysis_ComputeTempoOfTimes(nullptr, nullptr, 0, &bpm), AudioAnalysisError_None);
    QCOMPARE(bpm, 0.0);
    QCOMPARE(AudioAnalysis_ComputeTempoOfTimes(nullptr, reported.data(), 1, &bpm),
             AudioAnalysisError_Null);
    QCOMPARE(AudioAnalysis_ComputeTempoOfTimes(times.data(), reported.data(), 1, nullptr),
             AudioAnalysisError_Null);
}

AA_TEST(tst_Analysis_tracker, NoApplication)
#include "tst_Analysis_tracker.moc"
