// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/beats/BeatLog.h>

#include <QAudioFormat>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr int kRate = 1024;  ///< Hz: a block of 1024 samples is one second
constexpr unsigned kBlock = 1024;

QAudioFormat FormatOf(int pRate)
{
    QAudioFormat format;
    format.setSampleRate(pRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    return format;
}

Pulse MakePulse(unsigned long pIndex, short pLoudness = 500, ePulseType pType = ePulse)
{
    return Pulse(1, pIndex, pIndex + kBlock - 1, kRate, 10, 20, pLoudness, pType);
}

}  // namespace

/// The log is given the signals by hand, in the orders in which an analyzer emits them.
class tst_BeatLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void realBeat_isThePulseThatBecameABeat();
    void realBeat_isLoggedOnce_whenLaterWindowsClose();
    void realBeat_isLogged_whenItsPulseArrivesAfterTheTempo();
    void virtualBeat_isLoggedWithTheTempoOfItsWindow();
    void window_logsNoBeat_whenNoneWasSent();
    void pulses_areLoggedWhenHeard();
    void end_cutsOffBeatsPulsesAndTempos();
    void silences_areTheStretchesWithoutSpectrum();
    void silence_reachesTheEnd_whenItLasts();
    void meter_givesBeatsTemposAndSilences_theEngineThePulses();
    void toldBeats_takeThePlaceOfTheFollowers_whichKeepsThePulses();
    void toldTempo_isRelayed_whenItDiffersByAThousandth();
    void log_agreesWithTheSharedRecords_onRandomMusic();

private:
    void _Block(
        bool pIsPlaying, const std::function<void()>& pInside = [] {});

    Configuration m_configuration;
    std::unique_ptr<AudioAnalyzer> m_analyzer;
    std::unique_ptr<BeatFollower> m_follower;
    std::unique_ptr<BeatRelay> m_relay;
    std::unique_ptr<BeatLog> m_log;
    QStringList m_events;
    unsigned m_index = 0;
};

void tst_BeatLog::init()
{
    m_analyzer = std::make_unique<AudioAnalyzer>(&m_configuration, FormatOf(kRate), nullptr);
    m_log.reset();
    m_relay.reset();
    m_follower = std::make_unique<BeatFollower>();
    m_relay = std::make_unique<BeatRelay>(*m_follower);
    m_log = std::make_unique<BeatLog>(*m_relay);
    m_follower->Follow(m_analyzer.get());
    m_relay->Restart(kRate);
    m_events.clear();
    m_index = 0;
    connect(
        m_relay.get(),
        &BeatRelay::OnBeat,
        this,
        [this](const LoggedBeat& pBeat) {
            m_events << QStringLiteral("beat %1 %2").arg(pBeat.time).arg(pBeat.bpm);
        });
    connect(
        m_relay.get(),
        &BeatRelay::OnPulse,
        this,
        [this](double pTime, const Pulse&) { m_events << QStringLiteral("pulse %1").arg(pTime); });
    connect(
        m_relay.get(),
        &BeatRelay::OnTempo,
        this,
        [this](double pTime, double pBPM) {
            m_events << QStringLiteral("tempo %1 %2").arg(pTime).arg(pBPM);
        });
    connect(
        m_relay.get(), &BeatRelay::OnPlayingChanged, this, [this](double pTime, bool pIsPlaying) {
            m_events << QStringLiteral("%1 %2")
                            .arg(pIsPlaying ? QStringLiteral("play") : QStringLiteral("stop"))
                            .arg(pTime);
        });
}

/// One pulse block's signals; pInside emits those between the spectrum and the block's end.
void tst_BeatLog::_Block(bool pIsPlaying, const std::function<void()>& pInside)
{
    qint16 samples[kBlock] = {};
    if (pIsPlaying)
        Q_EMIT m_analyzer->OnAmplitudesComputed(nullptr, 0);
    pInside();
    Q_EMIT m_analyzer->OnAudioSamplesAnalyzed(m_index, samples, kBlock);
    m_index += kBlock;
}

void tst_BeatLog::realBeat_isThePulseThatBecameABeat()
{
    const Pulse first = MakePulse(0, 400);
    Pulse second = MakePulse(1024, 600);
    _Block(
        true, [&] { Q_EMIT m_analyzer->OnPulseDetected(first); });
    _Block(true, [&] { Q_EMIT m_analyzer->OnPulseDetected(second); });
    _Block(true, [&] {
        second.setType(eBeat);
        Q_EMIT m_analyzer->OnBPMChanged(120.0);
    });
    m_log->Finish(m_follower->getSampleCount());
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("play 0"),
                          QStringLiteral("pulse 0"),
                          QStringLiteral("pulse 1"),
                          QStringLiteral("beat 1 120"),
                          QStringLiteral("tempo 2 120")}));
    const AnalysisResult& result = m_log->getResult();
    QCOMPARE(result.sampleRate, kRate);
    QCOMPARE(result.sampleCount, quint64(3072));
    QCOMPARE(result.beats.size(), std::size_t(1));
    QCOMPARE(result.beats[0].index, quint64(1024));
    QCOMPARE(result.beats[0].time, 1.0);
    QCOMPARE(result.beats[0].isVirtual, false);
    QCOMPARE(result.beats[0].loudness, 600);
    QCOMPARE(result.beats[0].accuracy, 1.0);
    QCOMPARE(result.beats[0].bpm, 120.0);
    QCOMPARE(result.tempos.size(), std::size_t(1));
    QCOMPARE(result.tempos[0].time, 2.0);
    QCOMPARE(result.tempos[0].bpm, 120.0);
}

void tst_BeatLog::realBeat_isLoggedOnce_whenLaterWindowsClose()
{
    Pulse beat = MakePulse(0);
    _Block(true, [&] { Q_EMIT m_analyzer->OnPulseDetected(beat); });
    for (int window = 0; window < 3; ++window) {
        _Block(
            true,
            [&] {
                beat.setType(eBeat);
                Q_EMIT m_analyzer->OnBPMChanged(100.0);
            });
    }
    QCOMPARE(m_log->getResult().beats.size(), std::size_t(1));
    QCOMPARE(m_log->getResult().tempos.size(), std::size_t(3));
}

// The pulse in the very block that closes its window is chosen before it is announced.
void tst_BeatLog::realBeat_isLogged_whenItsPulseArrivesAfterTheTempo()
{
    const Pulse beat = MakePulse(0, 500, eBeat);
    _Block(
        true,
        [&] {
            Q_EMIT m_analyzer->OnBPMChanged(125.0);
            Q_EMIT m_analyzer->OnPulseDetected(beat);
        });
    _Block(true, [&] { Q_EMIT m_analyzer->OnBPMChanged(130.0); });
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("play 0"),
                          QStringLiteral("tempo 0 125"),
                          QStringLiteral("pulse 0"),
                          QStringLiteral("beat 0 125"),
                          QStringLiteral("tempo 1 130")}));
}

void tst_BeatLog::virtualBeat_isLoggedWithTheTempoOfItsWindow()
{
    const Pulse other = MakePulse(0);
    _Block(true, [&] { Q_EMIT m_analyzer->OnPulseDetected(other); });
    _Block(true, [&] {
        Q_EMIT m_analyzer->OnPulseDetected(MakePulse(512, 20, eVirtualBeat));
        Q_EMIT m_analyzer->OnBPMChanged(90.0);
    });
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("play 0"),
                          QStringLiteral("pulse 0"),
                          QStringLiteral("beat 0.5 90"),
                          QStringLiteral("tempo 1 90")}));
    QVERIFY(m_log->getResult().beats[0].isVirtual);
    QCOMPARE(m_log->getResult().beats[0].loudness, 20);
}

void tst_BeatLog::window_logsNoBeat_whenNoneWasSent()
{
    _Block(false, [&] { Q_EMIT m_analyzer->OnBPMChanged(0.0); });
    QVERIFY(m_log->getResult().beats.empty());
    QCOMPARE(m_log->getResult().tempos.size(), std::size_t(1));
    QCOMPARE(m_log->getResult().tempos[0].bpm, 0.0);
}

void tst_BeatLog::pulses_areLoggedWhenHeard()
{
    _Block(
        true, [&] { Q_EMIT m_analyzer->OnPulseDetected(MakePulse(0)); });
    _Block(true, [&] { Q_EMIT m_analyzer->OnPulseDetected(MakePulse(1024)); });
    QCOMPARE(m_log->getResult().pulseTimes, (std::vector<double>{0.0, 1.0}));
}

void tst_BeatLog::end_cutsOffBeatsPulsesAndTempos()
{
    Pulse last = MakePulse(1023);
    _Block(true, [&] { Q_EMIT m_analyzer->OnPulseDetected(last); });
    m_follower->setEnd(1024);
    _Block(true, [&] {
        last.setType(eBeat);
        Q_EMIT m_analyzer->OnBPMChanged(120.0);
        Q_EMIT m_analyzer->OnPulseDetected(MakePulse(1024, 500, eBeat));
    });
    _Block(false);
    m_log->Finish(m_follower->getSampleCount());
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("play 0"),
                          QStringLiteral("pulse 0.999023"),
                          QStringLiteral("beat 0.999023 120")}));
    QCOMPARE(m_log->getResult().sampleCount, quint64(1024));
    QVERIFY(m_log->getResult().silences.empty());
}

void tst_BeatLog::silences_areTheStretchesWithoutSpectrum()
{
    for (const bool isPlaying : {false, false, true, true, false, true})
        _Block(isPlaying);
    m_log->Finish(m_follower->getSampleCount());
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("stop 0"),
                          QStringLiteral("play 2"),
                          QStringLiteral("stop 4"),
                          QStringLiteral("play 5")}));
    const auto& silences = m_log->getResult().silences;
    QCOMPARE(silences.size(), std::size_t(2));
    QCOMPARE(silences[0].start, 0.0);
    QCOMPARE(silences[0].end, 2.0);
    QCOMPARE(silences[1].start, 4.0);
    QCOMPARE(silences[1].end, 5.0);
}

void tst_BeatLog::silence_reachesTheEnd_whenItLasts()
{
    for (const bool isPlaying : {true, false, false})
        _Block(isPlaying);
    m_log->Finish(2560);
    QCOMPARE(m_log->getResult().silences.size(), std::size_t(1));
    QCOMPARE(m_log->getResult().silences[0].start, 1.0);
    QCOMPARE(m_log->getResult().silences[0].end, 2.5);
}

// What the engine says of beats, tempos and silences is not heard then.
void tst_BeatLog::meter_givesBeatsTemposAndSilences_theEngineThePulses()
{
    MeterFollower meter;
    m_log.reset();
    m_relay = std::make_unique<BeatRelay>(*m_follower, meter);
    m_log = std::make_unique<BeatLog>(*m_relay);
    m_relay->Restart(kRate, 10.0);
    Q_EMIT meter.OnPlayingChanged(512, true);
    Pulse pulse = MakePulse(0, 400, eBeat);
    _Block(true, [&] {
        Q_EMIT m_analyzer->OnPulseDetected(pulse);
        Q_EMIT m_analyzer->OnBPMChanged(120.0);
    });
    Q_EMIT meter.OnBeatFound({768, 99.5, 3, 0.75, 0.5});
    Q_EMIT meter.OnTempoFound(768, 99.5);
    m_log->Finish(m_follower->getSampleCount());
    const AnalysisResult& result = m_log->getResult();
    QCOMPARE(result.pulseTimes, std::vector<double>{10.0});
    QCOMPARE(result.beats.size(), std::size_t(1));
    const LoggedBeat& beat = result.beats[0];
    QCOMPARE(beat.index, quint64(768));
    QCOMPARE(beat.time, 10.75);
    QCOMPARE(beat.bpm, 99.5);
    QCOMPARE(beat.beatInBar, 3);
    QCOMPARE(beat.confidence, 0.75);
    QCOMPARE(beat.barConfidence, 0.5);
    QVERIFY(!beat.isVirtual);
    QCOMPARE(result.tempos.size(), std::size_t(1));
    QCOMPARE(result.tempos[0].time, 10.75);
    QCOMPARE(result.tempos[0].bpm, 99.5);
    QCOMPARE(result.silences.size(), std::size_t(1));
    QCOMPARE(result.silences[0].end, 10.5);
}

void tst_BeatLog::toldBeats_takeThePlaceOfTheFollowers_whichKeepsThePulses()
{
    m_log.reset();
    m_relay = std::make_unique<BeatRelay>(*m_follower, BeatRelay::eTold);
    m_log = std::make_unique<BeatLog>(*m_relay);
    m_relay->Restart(kRate);
    Pulse pulse = MakePulse(0, 400, eBeat);
    _Block(true, [&] {
        Q_EMIT m_analyzer->OnPulseDetected(pulse);
        Q_EMIT m_analyzer->OnBPMChanged(120.0);
    });
    m_relay->TellPlaying(0.25, true);
    m_relay->Tell({512, 0.5, false, 0, 0.0, 99.5, 3, 0.75, 0.5});
    m_relay->TellPlaying(0.75, false);
    m_log->Finish(m_follower->getSampleCount());
    const AnalysisResult& result = m_log->getResult();
    QCOMPARE(result.pulseTimes, std::vector<double>{0.0});
    QCOMPARE(result.beats.size(), std::size_t(1));
    QCOMPARE(result.beats[0].time, 0.5);
    QCOMPARE(result.beats[0].beatInBar, 3);
    QCOMPARE(result.tempos.size(), std::size_t(1));
    QCOMPARE(result.tempos[0].time, 0.5);
    QCOMPARE(result.tempos[0].bpm, 99.5);
    // Nothing played before it was told.
    QCOMPARE(result.silences.size(), std::size_t(2));
    QCOMPARE(result.silences[0].end, 0.25);
    QCOMPARE(result.silences[1].start, 0.75);
    QCOMPARE(result.silences[1].end, 1.0);
}

void tst_BeatLog::toldTempo_isRelayed_whenItDiffersByAThousandth()
{
    BeatRelay relay(*m_follower, BeatRelay::eTold);
    std::vector<double> tempos;
    connect(
        &relay, &BeatRelay::OnTempo, this, [&](double, double pBPM) { tempos.push_back(pBPM); });
    relay.Restart(kRate);
    for (const double bpm : {100.0, 100.09, 99.91, 100.2, 100.2, 50.0})
        relay.Tell({0, 0.0, false, 0, 0.0, bpm});
    QCOMPARE(tempos, (std::vector<double>{100.0, 100.2, 50.0}));
}

// Whoever keeps all pulses sees in the end which of them became beats: the log must have found just
// those, and the virtual ones, in order.
void tst_BeatLog::log_agreesWithTheSharedRecords_onRandomMusic()
{
    const bool isGiven = qEnvironmentVariableIsSet("AA_TEST_SEED");
    const quint32 seed = isGiven ? quint32(qEnvironmentVariableIntValue("AA_TEST_SEED"))
                                 : QRandomGenerator::system()->generate();
    qInfo("AA_TEST_SEED=%u", seed);
    QRandomGenerator random(seed);
    for (int run = 0; run < 12; ++run) {
        Configuration configuration;
        // Any block may be a pulse, the one that closes a window as well.
        configuration.setThreshold(run % 3 == 0 ? short(0) : short(random.bounded(8000)));
        configuration.setStopDetectionDuration(0.2);
        configuration.setDisplayVirtualBeatsWhenStopped(run % 2 == 0);
        UserProfile profile(
            QStringLiteral("random"), 1.0, -1, -1, 60.0, run % 4 == 0 ? 900.0 : 180.0);
        configuration.setSelectedProfile(profile);
        AudioAnalyzer analyzer(&configuration, FormatOf(8000), nullptr);
        BeatFollower follower;
        BeatRelay relay(follower);
        BeatLog log(relay);
        follower.Follow(&analyzer);
        relay.Restart(8000);
        std::vector<Pulse> kept;
        connect(&analyzer, &AudioAnalyzer::OnPulseDetected, this, [&](const Pulse& pPulse) {
            kept.push_back(pPulse);
        });
        analyzer.Start();
        for (int batch = 0; batch < 400; ++batch) {
            std::vector<qint16> samples(1 + random.bounded(500u));
            const int level = random.bounded(4) == 0 ? random.bounded(1, 32767) : 1;
            for (qint16& sample : samples)
                sample = qint16(random.bounded(-level, level + 1));
            analyzer.Analyze(samples.data(), samples.size());
        }
        // A last window may still be open: its pulses are not decided.
        std::vector<quint64> expected;
        for (const Pulse& pulse : kept)
            if (pulse.getType() != ePulse)
                expected.push_back(pulse.getStartIndex());
        std::sort(expected.begin(), expected.end());
        std::vector<quint64> logged;
        for (const LoggedBeat& beat : log.getResult().beats)
            logged.push_back(beat.index);
        QCOMPARE(logged, expected);
        QVERIFY(std::adjacent_find(logged.begin(), logged.end(), std::greater_equal<>()) ==
                logged.end());
        QVERIFY(logged.size() > 5);
    }
}

AA_TEST(tst_BeatLog, QCoreApplication)
#include "tst_BeatLog.moc"
