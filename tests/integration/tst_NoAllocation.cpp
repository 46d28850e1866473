// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <support/AllocationGuard.h>
#include <support/SingleShotTrap.h>
#include <support/TestClass.h>
#include <support/Waves.h>

namespace {

constexpr quint64 kCountedTime = 1700000000000000;
constexpr double tempo = 125;
constexpr double warmUpSeconds = 8;
constexpr double measuredSeconds = 5;

/// What the analysis may allocate for, counted from its signals without allocating.
struct Counts
{
    std::size_t pulses = 0;
    std::size_t candidates = 0;
    std::size_t virtualBeats = 0;
    std::size_t closedWindows = 0;
    std::size_t blocks = 0;

    /// One record for each pulse and virtual beat, one list node for each candidate.
    std::size_t getAllowed() const { return pulses + candidates + virtualBeats; }
};

class Receiver : public QObject
{
public:
    explicit Receiver(AudioAnalyzer* pAnalyzer) : m_pAnalyzer(pAnalyzer)
    {
        const auto nothing = [] {};
        connect(pAnalyzer, &AudioAnalyzer::OnAmplitudesComputed, this, &Receiver::rememberWindow);
        connect(pAnalyzer, &AudioAnalyzer::OnAnalysisStarted, this, nothing);
        connect(pAnalyzer, &AudioAnalyzer::OnAnalysisStopped, this, nothing);
        connect(
            pAnalyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, this, [this] { ++counts.blocks; });
        connect(pAnalyzer, &AudioAnalyzer::OnBeat, this, nothing);
        connect(pAnalyzer, &AudioAnalyzer::OnBPMChanged, this, [this] { ++counts.closedWindows; });
        connect(pAnalyzer, &AudioAnalyzer::OnPulseDetected, this, &Receiver::countPulse);
    }

    Counts counts;

private:
    /// A block's spectrum comes before its pulse is compared with the beat window.
    void rememberWindow()
    {
        const quint64 index = m_pAnalyzer->m_sampleIndex;
        m_isInWindow =
            m_pAnalyzer->m_beatWindowStart <= index && index <= m_pAnalyzer->m_beatWindowEnd;
    }

    void countPulse(const Pulse& pPulse)
    {
        if (pPulse.getType() == eVirtualBeat) {
            ++counts.virtualBeats;
            return;
        }
        ++counts.pulses;
        counts.candidates += m_isInWindow;
    }

    AudioAnalyzer* m_pAnalyzer;
    bool m_isInWindow = false;
};

class CountedRun
{
public:
    explicit CountedRun(int rate, std::size_t batchSize)
        : m_rate(rate), m_batchSize(batchSize), m_clock(kCountedTime)
    {
        QAudioFormat format;
        format.setSampleRate(rate);
        m_configuration.setStopDetectionDuration(0.5);
        m_configuration.setBPMCalculationDuration(4);
        m_pAnalyzer = std::make_unique<AudioAnalyzer>(&m_configuration, format, nullptr);
        m_pReceiver = std::make_unique<Receiver>(m_pAnalyzer.get());
        m_pAnalyzer->Start();
    }

    /// The result of each call of Analyze must be what its own pulses account for.
    QString feed(waves::Samples samples, bool isMeasured)
    {
        for (std::size_t at = 0; at < samples.size(); at += m_batchSize) {
            const std::size_t count = std::min(m_batchSize, samples.size() - at);
            m_fed += count;
            m_clock.setTime(kCountedTime + m_fed * 1000000 / static_cast<quint64>(m_rate));
            const Counts before = m_pReceiver->counts;
            const std::size_t allocated = countAllocations(samples.data() + at, count);
            const std::size_t allowed = m_pReceiver->counts.getAllowed() - before.getAllowed();
            if (isMeasured && allocated != allowed)
                return describe(allocated, allowed, before);
        }
        return QString();
    }

    void warmUp() { feed(waves::kickTrack(warmUpSeconds, m_rate, tempo), false); }

    const Counts& getCounts() const { return m_pReceiver->counts; }
    void clearCounts() { m_pReceiver->counts = Counts(); }
    Configuration& getConfiguration() { return m_configuration; }
    AudioAnalyzer& getAnalyzer() { return *m_pAnalyzer; }

private:
    std::size_t countAllocations(qint16* pSamples, std::size_t count)
    {
        const AllocationGuard guard;
        m_pAnalyzer->Analyze(pSamples, count);
        return AllocationGuard::getCount();
    }

    QString describe(std::size_t allocated, std::size_t allowed, const Counts& before) const
    {
        const Counts& now = m_pReceiver->counts;
        return QStringLiteral("%1 allocations (first sizes %2 %3 %4), %5 allowed; %6 blocks, %7 "
                              "pulses, %8 candidates, %9 virtual beats, %10 closed windows")
            .arg(allocated)
            .arg(AllocationGuard::getSize(0))
            .arg(AllocationGuard::getSize(1))
            .arg(AllocationGuard::getSize(2))
            .arg(allowed)
            .arg(now.blocks - before.blocks)
            .arg(now.pulses - before.pulses)
            .arg(now.candidates - before.candidates)
            .arg(now.virtualBeats - before.virtualBeats)
            .arg(now.closedWindows - before.closedWindows);
    }

    int m_rate;
    std::size_t m_batchSize;
    quint64 m_fed = 0;
    HighResolutionTimerOverride m_clock;
    Configuration m_configuration;
    std::unique_ptr<AudioAnalyzer> m_pAnalyzer;
    std::unique_ptr<Receiver> m_pReceiver;
};

}  // namespace

/// Arming a beat timer allocates inside Qt. The timers are caught where the analysis itself is
/// counted; one test lets them through and compares with what plain timers cost.
class tst_NoAllocation : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void ignoreTimer() {}

private Q_SLOTS:
    void analysis_allocatesOnlyPulsesAndCandidates_inTheSteadyState_data();
    void analysis_allocatesOnlyPulsesAndCandidates_inTheSteadyState();
    void virtualBeat_allocatesOneRecord();
    void silence_allocatesNothing_whileVirtualBeatsAreNotSent();
    void closedWindow_addsAtMostThePlainTimer();
    void gettersAndReset_allocateNothing();
};

void tst_NoAllocation::analysis_allocatesOnlyPulsesAndCandidates_inTheSteadyState_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("batchSize");
    for (const int rate : {8000, 11025, 16000, 22050, 32000, 44100, 48000, 88200, 96000})
        for (const int batchSize : {1, 2, 64, 512, 1000, 1024, 4096, 16384})
            QTest::addRow("%d Hz, batches of %d", rate, batchSize) << rate << batchSize;
}

void tst_NoAllocation::analysis_allocatesOnlyPulsesAndCandidates_inTheSteadyState()
{
    QFETCH(int, rate);
    QFETCH(int, batchSize);
    const SingleShotTrap trap;
    CountedRun run(rate, static_cast<std::size_t>(batchSize));
    run.warmUp();
    run.clearCounts();
    const QString difference = run.feed(waves::kickTrack(measuredSeconds, rate, tempo), true);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));

    // Ten kicks, one window each; most windows open and close within the measured time.
    QVERIFY(run.getCounts().blocks > 100);
    QVERIFY(run.getCounts().closedWindows >= 8);
    QVERIFY(run.getCounts().candidates >= 8);
    QVERIFY(trap.getCount() >= run.getCounts().closedWindows);
}

void tst_NoAllocation::virtualBeat_allocatesOneRecord()
{
    const SingleShotTrap trap;
    CountedRun run(44100, 441);
    run.getConfiguration().setDisplayVirtualBeatsWhenStopped(true);
    run.getAnalyzer().setFixedBPM(tempo);  // windows go on at this tempo without pulses
    run.warmUp();
    run.feed(waves::silence(8 * 44100), false);
    run.clearCounts();
    const QString difference = run.feed(waves::silence(5 * 44100), true);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QVERIFY(run.getCounts().virtualBeats >= 8);
    QCOMPARE(run.getCounts().pulses, std::size_t(0));
}

void tst_NoAllocation::silence_allocatesNothing_whileVirtualBeatsAreNotSent()
{
    const SingleShotTrap trap;
    CountedRun run(44100, 441);
    run.getAnalyzer().setFixedBPM(tempo);
    run.warmUp();
    run.feed(waves::silence(8 * 44100), false);
    run.clearCounts();
    const QString difference = run.feed(waves::silence(5 * 44100), true);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QVERIFY(run.getCounts().closedWindows >= 8);
    QCOMPARE(run.getCounts().getAllowed(), std::size_t(0));
}

void tst_NoAllocation::closedWindow_addsAtMostThePlainTimer()
{
    constexpr int rate = 44100;
    CountedRun run(rate, 441);
    run.warmUp();

    std::size_t dearest = 0;
    for (int i = 0; i < 50; ++i) {
        const AllocationGuard guard;
        QTimer::singleShot(400, this, SLOT(ignoreTimer()));
        dearest = std::max(dearest, AllocationGuard::getCount());
    }
    QVERIFY(dearest > 0);

    run.clearCounts();
    waves::Samples track = waves::kickTrack(measuredSeconds, rate, tempo);
    std::size_t allocated = 0;
    {
        const AllocationGuard guard;
        for (std::size_t at = 0; at < track.size(); at += 441)
            run.getAnalyzer().Analyze(track.data() + at, 441);
        allocated = AllocationGuard::getCount();
    }
    const Counts& counts = run.getCounts();
    QVERIFY(counts.closedWindows >= 8);
    QVERIFY2(
        allocated <= counts.getAllowed() + counts.closedWindows * dearest,
        qPrintable(QStringLiteral("%1 allocations for %2 records and nodes and %3 timers of %4")
                       .arg(allocated)
                       .arg(counts.getAllowed())
                       .arg(counts.closedWindows)
                       .arg(dearest)));
}

void tst_NoAllocation::gettersAndReset_allocateNothing()
{
    const SingleShotTrap trap;
    CountedRun run(44100, 441);
    run.warmUp();
    AudioAnalyzer& analyzer = run.getAnalyzer();
    std::size_t count = 0;
    {
        const AllocationGuard guard;
        analyzer.getAverageVolume();
        analyzer.getMaximalVolume();
        analyzer.getCurrentBPM();
        analyzer.getThreshold();
        analyzer.getAccuracy();
        analyzer.getInaccuracyElapsedSeconds();
        analyzer.isSendingBeats();
        analyzer.getCurrentPulseBlock();
        analyzer.Reset();
        count = AllocationGuard::getCount();
    }
    QCOMPARE(count, std::size_t(0));
}

AA_TEST(tst_NoAllocation, QCoreApplication)
#include "tst_NoAllocation.moc"
