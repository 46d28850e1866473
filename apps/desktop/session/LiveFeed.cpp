// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/LiveFeed.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr int kFullInput = 32767;  ///< sample magnitude

}  // namespace

LiveFeed::LiveFeed(LiveBeats& pBeats, QObject* pParent) : QObject(pParent), m_beats(pBeats)
{
    m_clock.start();
    m_beat.setSingleShot(true);
    m_beat.setTimerType(Qt::PreciseTimer);
    connect(&m_beat, &QTimer::timeout, this, &LiveFeed::_OnBeatDue);
    connect(&m_beats, &LiveBeats::OnBeatHeard, this, &LiveFeed::_AwaitBeat);
    m_cursor.Join(m_beats.getClock().getState(), shared::ClockThread::getTime());
}

LiveFeed::~LiveFeed() = default;

void LiveFeed::Follow(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    if (m_pAnalyzer)
        m_pAnalyzer->disconnect(this);
    m_follower.reset();
    const quint64 inputs = m_values.inputCount;
    m_values = {};
    m_values.inputCount = inputs + 1;
    m_values.sampleRate = pSampleRate;
    m_pAnalyzer = pAnalyzer;
    Forget();
    if (pAnalyzer)
        _Connect(pAnalyzer);
}

void LiveFeed::_Connect(AudioAnalyzer* pAnalyzer)
{
    using A = AudioAnalyzer;
    m_follower = std::make_unique<BeatFollower>();
    m_follower->Follow(pAnalyzer);
    connect(m_follower.get(), &BeatFollower::OnBeatFound, this, &LiveFeed::_OnBeatFound);
    connect(pAnalyzer, &A::OnAmplitudesComputed, this, &LiveFeed::_OnSpectrum);
    connect(pAnalyzer, &A::OnPulseDetected, this, &LiveFeed::_OnPulse);
}

void LiveFeed::Restart()
{
    if (m_follower)
        m_follower->Restart();
    m_tempo.Clear();
}

void LiveFeed::Forget()
{
    m_tempo.Clear();
    m_lastBPM = 0.0;
}

const LiveValues& LiveFeed::Read()
{
    _ReadClock();
    m_values.input = std::exchange(m_input, 0);
    if (!m_pAnalyzer)
        return m_values;
    const AudioAnalyzer& analyzer = *m_pAnalyzer;
    m_values.isAnalyzing = m_pAnalyzer->isAnalyzing();
    m_values.isPlaying = m_beats.isPlaying();
    m_values.measuredBPM = m_values.isPlaying ? m_tempo.getBPM(m_values.sampleRate) : 0.0;
    // The analyzer keeps the volumes of an analysis that has ended.
    const bool hasVolumes = m_values.isAnalyzing;
    m_values.current = hasVolumes ? analyzer.getCurrentVolume() : -1;
    m_values.average = hasVolumes ? analyzer.getAverageVolume() : -1;
    m_values.maximal = hasVolumes ? analyzer.getMaximalVolume() : -1;
    m_values.threshold = analyzer.getThreshold();
    return m_values;
}

void LiveFeed::HearInput(const qint16* pSamples, std::size_t pCount)
{
    for (std::size_t i = 0; i < pCount; ++i)
        m_input = std::max(m_input, std::abs(int(pSamples[i])));
    m_input = std::min(m_input, kFullInput);
    if (m_input == kFullInput)
        m_values.clipTime = getTime();
}

void LiveFeed::_OnSpectrum(const double* pAmplitudes, unsigned int pCount)
{
    m_values.amplitudes.assign(pAmplitudes, pAmplitudes + pCount);
    ++m_values.spectrumCount;
}

void LiveFeed::_OnPulse(const Pulse& pPulse)
{
    m_values.pulseTime = getTime();
    m_values.isPulseVirtual = pPulse.getType() == eVirtualBeat;
    Q_EMIT OnFlashed();
}

void LiveFeed::_OnBeatFound(const BeatFollower::Beat& pBeat)
{
    const double seconds = m_pAnalyzer->getConfiguration()->getBPMCalculationDuration();
    m_tempo.Add(pBeat.index, quint64(qMax(0.0, seconds) * m_values.sampleRate));
}

// ---- The clock ----------------------------------------------------------------------------------

void LiveFeed::_ReadClock()
{
    const BeatClockState state = m_beats.getClock().getState();
    const bool isRunning = state.isRunning();
    const std::int64_t now = shared::ClockThread::getTime();
    if (isRunning)
        m_lastBPM = state.bpm;
    m_values.bpm = m_lastBPM;
    m_values.shownBPM = m_shown.Show(m_lastBPM, state.charge != BeatClockCharge_Music);
    m_values.charge = state.charge;
    m_values.isHeld = !isRunning && m_lastBPM > 0.0;
    m_values.isAutomatic = m_beats.isAutomatic();
    // What a hand leads says nothing about what is heard.
    const bool isFollowing = isRunning && state.charge == BeatClockCharge_Music;
    m_values.confidence = isFollowing ? m_beats.getConfidence(state) : -1.0;
    m_values.beatInBar = isRunning ? state.getBeatInBar(state.getBeat(now)) + 1 : 0;
    m_values.beatsPerBar = state.beatsPerBar;
    _AwaitBeat();
}

void LiveFeed::_AwaitBeat()
{
    const std::int64_t time = m_cursor.getTime(m_beats.getClock().getState());
    const std::int64_t rest = time - shared::ClockThread::getTime();
    if (time == BEATCLOCK_NEVER)
        m_beat.stop();
    else
        m_beat.start(int(std::max<std::int64_t>(rest, 0) / 1000 + 1));
}

/// A beat counts as heard when the one before it was: it falls due before anybody can hear it.
void LiveFeed::_OnBeatDue()
{
    constexpr double kHeardBeats = 1.75;
    const BeatClockState state = m_beats.getClock().getState();
    const std::int64_t now = shared::ClockThread::getTime();
    while (m_cursor.Take(state, now)) {
        const std::int64_t time = m_cursor.getTickTime();
        const double beats = double(time - state.offset - state.heardTime) / state.period();
        m_values.beatTime = getTime() - (now - time) / 1000;
        const eBeatKind kind = state.charge != BeatClockCharge_Music ? eHandBeat
                               : beats > kHeardBeats                 ? eForeseenBeat
                                                                     : eHeardBeat;
        m_values.isBeatVirtual = kind != eHeardBeat;
        ++m_beatCount;
        Q_EMIT OnFlashed();
        Q_EMIT OnBeatDue(time, kind, state.getBeatInBar(m_cursor.getTick()) == 0);
    }
    _AwaitBeat();
}

#include "moc_LiveFeed.cpp"
