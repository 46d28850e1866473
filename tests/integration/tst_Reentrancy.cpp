// SPDX-License-Identifier: MIT
#include "model/Action.h"
#include "model/Twins.h"

#include <QtTest>

#include <functional>
#include <optional>
#include <support/TestClass.h>
#include <support/Waves.h>

Q_DECLARE_METATYPE(std::function<void(AudioAnalyzer&)>)

using waves::Samples;

namespace {

constexpr int kHostRate = 8000;
constexpr std::size_t kHostBlock = 128;  // 8000 / 40 = 200, and the power of two below

/// A running analyzer that hears kicks, for statements about one reaction.
class Host
{
public:
    Host() : m_clock(firstTime)
    {
        QAudioFormat format;
        format.setSampleRate(kHostRate);
        configuration.setStopDetectionDuration(0.5);
        configuration.setBPMCalculationDuration(4);
        pAnalyzer = std::make_unique<AudioAnalyzer>(&configuration, format, nullptr);
        pAnalyzer->Start();
        feed(waves::kickTrack(5, kHostRate, 125));
    }

    void feed(Samples samples)
    {
        for (std::size_t at = 0; at + kHostBlock <= samples.size() && !isDone; at += kHostBlock) {
            m_fed += kHostBlock;
            m_clock.setTime(firstTime + m_fed * 1000000 / kHostRate);
            pAnalyzer->Analyze(samples.data() + at, kHostBlock);
        }
    }

    /// Feeds kicks until the reaction has been run once, and ends with that block.
    void feedUntilDone()
    {
        feed(waves::kickTrack(5, kHostRate, 125));
        QVERIFY(isDone);
    }

    static constexpr quint64 firstTime = 1700000000000000;

    Configuration configuration;
    std::unique_ptr<AudioAnalyzer> pAnalyzer;
    SingleShotTrap trap;
    bool isDone = false;

private:
    HighResolutionTimerOverride m_clock;
    quint64 m_fed = 0;
};

}  // namespace

class tst_Reentrancy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beatTimer_isNotArmed_whenTheReceiverOfTheTempoEndsTracking_data();
    void beatTimer_isNotArmed_whenTheReceiverOfTheTempoEndsTracking();
    void beatTimer_isArmed_whenTheReceiverOfTheTempoDoesNothing();
    void tracker_searchesAFirstBeat_afterResetInsideOnBPMChanged();
    void tracker_restartsFromIndexZero_afterResetInsideAVirtualBeat();
    void position_isOneBlock_afterStopInsideOnAudioSamplesAnalyzed();
    void pulse_carriesNoStartTime_afterStopInsideOnAmplitudesComputed();
    void filter_isTheOldProfiles_whenAnotherIsSelectedInsideOnAmplitudesComputed();
    void filter_followsAnEditOfTheProfile_insideOnAmplitudesComputed();
    void keptPulses_stayReadable_afterResetInsideOnPulseDetected();
    void start_restarts_insideOnAnalysisStopped();
    void stop_stops_insideOnAnalysisStarted();
    void pauseAnalysis_isRefused_insideEverySignalOfARunningAnalysis();
    void start_isHarmless_insideTheSignalOfTheDestructor();
    void receiver_mayDeleteItself_insideASignal();
};

void tst_Reentrancy::beatTimer_isNotArmed_whenTheReceiverOfTheTempoEndsTracking_data()
{
    QTest::addColumn<std::function<void(AudioAnalyzer&)>>("action");
    const auto add = [](const char* pName, std::function<void(AudioAnalyzer&)> action) {
        QTest::newRow(pName) << std::move(action);
    };
    add(
        "Reset", [](AudioAnalyzer& analyzer) { analyzer.Reset(); });
    add(
        "Stop", [](AudioAnalyzer& analyzer) { analyzer.Stop(); });
    add("setFixedBPM", [](AudioAnalyzer& analyzer) { analyzer.setFixedBPM(120); });
}

void tst_Reentrancy::beatTimer_isNotArmed_whenTheReceiverOfTheTempoEndsTracking()
{
    QFETCH(std::function<void(AudioAnalyzer&)>, action);
    Host host;
    const std::size_t before = host.trap.getCount();
    connect(host.pAnalyzer.get(), &AudioAnalyzer::OnBPMChanged, this, [&] {
        action(*host.pAnalyzer);
        host.isDone = true;
    });
    host.feedUntilDone();
    QCOMPARE(host.trap.getCount(), before);
}

void tst_Reentrancy::beatTimer_isArmed_whenTheReceiverOfTheTempoDoesNothing()
{
    Host host;
    const std::size_t before = host.trap.getCount();
    connect(host.pAnalyzer.get(), &AudioAnalyzer::OnBPMChanged, this, [&] { host.isDone = true; });
    host.feedUntilDone();
    QCOMPARE(host.trap.getCount(), before + 1);
}

void tst_Reentrancy::tracker_searchesAFirstBeat_afterResetInsideOnBPMChanged()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    quint64 index = 0;
    connect(&analyzer, &AudioAnalyzer::OnBPMChanged, this, [&] {
        analyzer.Reset();
        index = analyzer.m_sampleIndex;
        host.isDone = true;
    });
    host.feedUntilDone();

    // The window is set anew from the cleared state: the default tempo of "Electro", 132.5 BPM, is
    // 480000 / 132.5 = 3622.64 samples, the slowest beat, 90 BPM, 480000 / 90 = 5333.3.
    QVERIFY(index > 0);
    QCOMPARE(quint64(analyzer.m_lastBeatIndex), quint64(0));
    QCOMPARE(quint64(analyzer.m_beatLength), quint64(3623));
    QCOMPARE(quint64(analyzer.m_beatWindowStart), index);
    QCOMPARE(quint64(analyzer.m_nextBeatIndex), index + 3623);
    QCOMPARE(quint64(analyzer.m_beatWindowEnd), index + 5333);
    QCOMPARE(analyzer.m_beatIndexes.size(), std::size_t(0));
    QCOMPARE(analyzer.m_candidatePulses.size(), std::size_t(0));
    QCOMPARE(analyzer.getCurrentBPM(), 0.0);
    QCOMPARE(analyzer.m_isStopped, true);
    QCOMPARE(analyzer.isAnalyzing(), true);
}

void tst_Reentrancy::tracker_restartsFromIndexZero_afterResetInsideAVirtualBeat()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    host.configuration.setDisplayVirtualBeatsWhenStopped(true);
    std::size_t timersBefore = 0;
    double reported = -1;
    connect(
        &analyzer,
        &AudioAnalyzer::OnPulseDetected,
        this,
        [&](const Pulse& pulse) {
            if (pulse.getType() == eVirtualBeat) {
                timersBefore = host.trap.getCount();
                analyzer.Reset();
                host.isDone = true;
            }
        });
    connect(&analyzer, &AudioAnalyzer::OnBPMChanged, this, [&](double pBPM) { reported = pBPM; });
    host.feed(waves::silence(3 * kHostRate));
    QVERIFY(host.isDone);

    QCOMPARE(analyzer.m_beatIndexes, std::list<quint64>({0}));
    QCOMPARE(analyzer.getAccuracy(), 1.0);
    QCOMPARE(reported, 0.0);
    QCOMPARE(host.trap.getCount(), timersBefore);
}

void tst_Reentrancy::position_isOneBlock_afterStopInsideOnAudioSamplesAnalyzed()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    connect(&analyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, this, [&] {
        analyzer.Stop();
        host.isDone = true;
    });
    host.feedUntilDone();

    // The block whose processing was stopped still counts.
    QCOMPARE(quint64(analyzer.m_sampleIndex), quint64(kHostBlock));
    QCOMPARE(analyzer.isAnalyzing(), false);
    QCOMPARE(analyzer.getAnalysisStartTime(), quint64(0));
    QCOMPARE(analyzer.getAverageVolume(), qint16(-1));
    QVERIFY(analyzer.getAmplitudes() == nullptr);
}

void tst_Reentrancy::pulse_carriesNoStartTime_afterStopInsideOnAmplitudesComputed()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    host.configuration.setThreshold(0);  // every block is a pulse
    std::optional<Pulse> pulse;
    connect(&analyzer, &AudioAnalyzer::OnAmplitudesComputed, this, [&] { analyzer.Stop(); });
    connect(&analyzer, &AudioAnalyzer::OnPulseDetected, this, [&](const Pulse& pPulse) {
        pulse.emplace(pPulse);
        host.isDone = true;
    });
    const quint64 index = analyzer.m_sampleIndex;
    host.feedUntilDone();

    QVERIFY(pulse.has_value());
    QCOMPARE(pulse->getStartIndex(), index);
    QCOMPARE(pulse->getStartTime(), index * 1000000 / kHostRate);
    QVERIFY(analyzer.getAmplitudes() == nullptr);
    QCOMPARE(analyzer.getAmplitudesCount(), quint64(0));
}

namespace {

/// The loudest filtered sample of one block of a 3000 Hz tone, after an action on its spectrum.
int filterTone(Host& host, const std::function<void()>& action)
{
    int loudest = 0;
    QObject receiver;
    QObject::connect(host.pAnalyzer.get(), &AudioAnalyzer::OnAmplitudesComputed, &receiver, action);
    QObject::connect(host.pAnalyzer.get(),
                     &AudioAnalyzer::OnAudioSamplesAnalyzed,
                     &receiver,
                     [&loudest](unsigned int, const qint16* pSamples, unsigned int pCount) {
                         loudest = *std::max_element(pSamples, pSamples + pCount);
                     });
    host.feed(waves::sine(kHostBlock, kHostRate, 3000, 20000));
    return loudest;
}

}  // namespace

void tst_Reentrancy::filter_isTheOldProfiles_whenAnotherIsSelectedInsideOnAmplitudesComputed()
{
    Host host;
    model::Profile open;
    open.filterLow = 0;
    open.filterHigh = 0;
    const Profile other = model::makeLibraryProfile(open);
    const auto select = [&] { host.configuration.setSelectedProfile(other); };
    QVERIFY(filterTone(host, select) < 1000);  // "Electro" keeps what is below 75 Hz
    QVERIFY(filterTone(host, [] {}) > 19000);  // the other profile filters nothing
}

void tst_Reentrancy::filter_followsAnEditOfTheProfile_insideOnAmplitudesComputed()
{
    Host host;
    host.configuration.setSelectedProfile(model::makeLibraryProfile(model::Profile()));
    QVERIFY(filterTone(
                host, [] {}) < 1000);
    const auto edit = [&] { host.configuration.getSelectedProfile().setFilterFrequencies(-1, -1); };
    QVERIFY(filterTone(host, edit) > 19000);
}

void tst_Reentrancy::keptPulses_stayReadable_afterResetInsideOnPulseDetected()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    std::vector<Pulse> kept;
    std::vector<quint64> indexes;
    connect(&analyzer, &AudioAnalyzer::OnPulseDetected, this, [&](const Pulse& pPulse) {
        kept.push_back(pPulse);
        analyzer.Reset();
        kept.push_back(pPulse);
        indexes.push_back(pPulse.getStartIndex());
    });
    host.feed(waves::kickTrack(5, kHostRate, 125));
    host.pAnalyzer.reset();

    QVERIFY(indexes.size() > 2);
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        QCOMPARE(kept[2 * i].getStartIndex(), indexes[i]);
        QCOMPARE(kept[2 * i + 1].CompareTo(kept[2 * i]), 0);
    }
}

void tst_Reentrancy::start_restarts_insideOnAnalysisStopped()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    bool isStarted = false;
    connect(
        &analyzer, &AudioAnalyzer::OnAnalysisStopped, this, [&] { isStarted = analyzer.Start(); });
    QVERIFY(analyzer.Stop());
    QVERIFY(isStarted);
    QVERIFY(analyzer.isAnalyzing());
    QVERIFY(analyzer.getAnalysisStartTime() > 0);
    QCOMPARE(quint64(analyzer.m_sampleIndex), quint64(0));
}

void tst_Reentrancy::stop_stops_insideOnAnalysisStarted()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    analyzer.Stop();
    connect(&analyzer, &AudioAnalyzer::OnAnalysisStarted, this, [&] { analyzer.Stop(); });
    QVERIFY(analyzer.Start());
    QCOMPARE(analyzer.isAnalyzing(), false);
    QCOMPARE(analyzer.getAnalysisStartTime(), quint64(0));
}

void tst_Reentrancy::pauseAnalysis_isRefused_insideEverySignalOfARunningAnalysis()
{
    Host host;
    AudioAnalyzer& analyzer = *host.pAnalyzer;
    int calls = 0;
    int paused = 0;
    const auto pause = [&] {
        ++calls;
        paused += analyzer.PauseAnalysis();
    };
    connect(&analyzer, &AudioAnalyzer::OnAmplitudesComputed, this, pause);
    connect(&analyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, this, pause);
    connect(&analyzer, &AudioAnalyzer::OnBPMChanged, this, pause);
    connect(&analyzer, &AudioAnalyzer::OnPulseDetected, this, pause);
    host.feed(waves::kickTrack(2, kHostRate, 125));
    QVERIFY(calls > 200);
    QCOMPARE(paused, 0);
    QVERIFY(analyzer.isAnalyzing());
}

void tst_Reentrancy::start_isHarmless_insideTheSignalOfTheDestructor()
{
    Host host;
    AudioAnalyzer* pAnalyzer = host.pAnalyzer.get();
    int stops = 0;
    connect(pAnalyzer, &AudioAnalyzer::OnAnalysisStopped, this, [&stops, pAnalyzer] {
        ++stops;
        pAnalyzer->Start();
    });
    host.pAnalyzer.reset();
    QCOMPARE(stops, 1);
}

void tst_Reentrancy::receiver_mayDeleteItself_insideASignal()
{
    Host host;
    auto* pReceiver = new QObject;
    int calls = 0;
    connect(host.pAnalyzer.get(), &AudioAnalyzer::OnPulseDetected, pReceiver, [&calls, pReceiver] {
        ++calls;
        delete pReceiver;
    });
    host.feed(waves::kickTrack(5, kHostRate, 125));
    QCOMPARE(calls, 1);
}

AA_TEST(tst_Reentrancy, QCoreApplication)
#include "tst_Reentrancy.moc"
