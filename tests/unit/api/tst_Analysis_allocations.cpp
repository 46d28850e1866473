// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>

#include <QtTest>

#include <algorithm>
#include <support/AllocationGuard.h>
#include <support/TestClass.h>
#include <support/Waves.h>
#include <vector>

namespace {

struct Counts
{
    std::size_t pulses = 0;
    std::size_t virtualBeats = 0;
};

}  // namespace

/// A steady stream allocates a record for each pulse and each virtual beat of the engine, and a
/// list node for a pulse that is a beat candidate. Nothing else, whoever tells the beats.
class tst_Analysis_allocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void push_allocatesForPulsesOnly_data();
    void push_allocatesForPulsesOnly();
};

void tst_Analysis_allocations::push_allocatesForPulsesOnly_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("portion");  // frames
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("tracker");
    for (const int tracker : {AudioAnalysisTracker_Automatic, AudioAnalysisTracker_Profile}) {
        QTest::addRow("8 kHz mono, %d", tracker) << 8000 << 80 << 1 << tracker;
        QTest::addRow("44.1 kHz stereo, %d", tracker) << 44100 << 441 << 2 << tracker;
        QTest::addRow("48 kHz, large portions, %d", tracker) << 48000 << 4800 << 1 << tracker;
        QTest::addRow("96 kHz, six channels, %d", tracker) << 96000 << 960 << 6 << tracker;
    }
}

void tst_Analysis_allocations::push_allocatesForPulsesOnly()
{
    QFETCH(int, rate);
    QFETCH(int, portion);
    QFETCH(int, channels);
    QFETCH(int, tracker);
    waves::Samples mono = waves::kickTrack(8.0, rate, 125.0);
    waves::append(mono, waves::silence(std::size_t(4 * rate)));
    std::vector<float> frames;
    for (const qint16 sample : mono)
        frames.insert(frames.end(), std::size_t(channels), float(sample) / 32768.0f);

    AudioAnalysis* pAnalysis = AudioAnalysis_Create(rate);
    AudioAnalysis_SetTracker(pAnalysis, tracker);
    // Tells what the engine has, which the automatic tracker's beats hide.
    AudioAnalysis* pEngine = AudioAnalysis_Create(rate);
    AudioAnalysis_SetTracker(pEngine, AudioAnalysisTracker_Profile);
    Counts counts;
    AudioAnalysis_SetPulseCallback(
        pEngine,
        [](void* pUser, const AudioAnalysisPulse*) { ++static_cast<Counts*>(pUser)->pulses; },
        &counts);
    AudioAnalysis_SetBeatCallback(
        pEngine,
        [](void* pUser, const AudioAnalysisBeat* pBeat) {
            static_cast<Counts*>(pUser)->virtualBeats += std::size_t(pBeat->isVirtual);
        },
        &counts);
    std::size_t pulses = 0;
    for (int pass = 0; pass < 2; ++pass) {
        for (std::size_t at = 0; at < mono.size(); at += std::size_t(portion)) {
            counts = Counts();
            const std::size_t count = std::min(std::size_t(portion), mono.size() - at);
            const float* pFrames = &frames[at * std::size_t(channels)];
            AudioAnalysis_PushFloat(pEngine, pFrames, count, channels);
            std::size_t allocated = 0;
            {
                const AllocationGuard guard;
                AudioAnalysis_PushFloat(pAnalysis, pFrames, count, channels);
                allocated = AllocationGuard::getCount();
            }
            if (pass == 0)
                continue;
            pulses += counts.pulses;
            QVERIFY(allocated >= counts.pulses + counts.virtualBeats);
            QVERIFY2(allocated <= 2 * counts.pulses + counts.virtualBeats,
                     qPrintable(QStringLiteral("%1 (%2 %3 %4) at %5: %6 pulses")
                                    .arg(allocated)
                                    .arg(AllocationGuard::getSize(0))
                                    .arg(AllocationGuard::getSize(1))
                                    .arg(AllocationGuard::getSize(2))
                                    .arg(at)
                                    .arg(counts.pulses)));
        }
    }
    QVERIFY(pulses > 10);
    AudioAnalysis_Destroy(pAnalysis);
    AudioAnalysis_Destroy(pEngine);
}

AA_TEST(tst_Analysis_allocations, NoApplication)
#include "tst_Analysis_allocations.moc"
