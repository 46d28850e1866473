// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/LiveFeed.h>

LiveFeed::LiveFeed(QObject* pParent) : QObject(pParent)
{
    m_clock.start();
}

LiveFeed::~LiveFeed() = default;

void LiveFeed::Follow(AudioAnalyzer* pAnalyzer, int pSampleRate)
{
    if (m_pAnalyzer)
        m_pAnalyzer->disconnect(this);
    m_follower.reset();
    m_values = {};
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
    connect(pAnalyzer, &A::OnBeat, this, &LiveFeed::_OnBeat);
    connect(pAnalyzer, &A::OnBPMChanged, this, &LiveFeed::_OnTempo);
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
    m_reportedBPM = 0.0;
}

const LiveValues& LiveFeed::Read()
{
    if (!m_pAnalyzer)
        return m_values;
    const AudioAnalyzer& analyzer = *m_pAnalyzer;
    const double fixed = analyzer.getFixedBPM();
    m_values.isAnalyzing = m_pAnalyzer->isAnalyzing();
    m_values.isPlaying = analyzer.isPlaying();
    m_values.bpm = fixed > 0.0 ? fixed : m_reportedBPM;
    m_values.isFixed = fixed > 0.0;
    m_values.isHeld = !m_values.isFixed && m_reportedBPM > 0.0 &&
                      (!m_values.isPlaying || !(analyzer.getComputedBPM() > 0.0));
    m_values.measuredBPM = m_values.isPlaying ? m_tempo.getBPM(m_values.sampleRate) : 0.0;
    m_values.accuracy = analyzer.getAccuracy();
    // The analyzer keeps the volumes of an analysis that has ended.
    const bool hasVolumes = m_values.isAnalyzing;
    m_values.current = hasVolumes ? analyzer.getCurrentVolume() : -1;
    m_values.average = hasVolumes ? analyzer.getAverageVolume() : -1;
    m_values.maximal = hasVolumes ? analyzer.getMaximalVolume() : -1;
    m_values.threshold = analyzer.getThreshold();
    return m_values;
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

/// In silence the analyzer goes on to measure the beats that it assumes: that is no tempo of music.
void LiveFeed::_OnTempo(double pBPM)
{
    if (m_pAnalyzer->isPlaying())
        m_reportedBPM = pBPM;
}

/// The beat that falls due now was predicted from the one that was chosen last.
void LiveFeed::_OnBeat()
{
    m_values.beatTime = getTime();
    m_values.isBeatVirtual = m_isLastBeatVirtual;
    ++m_beatCount;
    Q_EMIT OnFlashed();
}

void LiveFeed::_OnBeatFound(const BeatFollower::Beat& pBeat)
{
    const double seconds = m_pAnalyzer->getConfiguration()->getBPMCalculationDuration();
    m_isLastBeatVirtual = pBeat.isVirtual;
    m_tempo.Add(pBeat.index, quint64(qMax(0.0, seconds) * m_values.sampleRate));
}

#include "moc_LiveFeed.cpp"
