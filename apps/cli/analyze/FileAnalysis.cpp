// SPDX-License-Identifier: MIT
#include <cli/analyze/FileAnalysis.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

/// The settings must be in the configuration before the analyzer is made from it.
Configuration* ApplyTo(Configuration& pConfiguration, const AnalysisOptions& pOptions)
{
    SettingsTable::Restore(pConfiguration);
    const QString refusal = pOptions.Apply(pConfiguration);
    Q_ASSERT_X(refusal.isEmpty(), "FileAnalysis", qPrintable(refusal));
    return &pConfiguration;
}

BeatRelay MakeRelay(const AnalysisOptions& pOptions,
                    const BeatFollower& pFollower,
                    const MeterFollower& pMeter)
{
    return pOptions.getTracker() == eAutomaticTracker ? BeatRelay(pFollower, pMeter)
                                                      : BeatRelay(pFollower);
}

}  // namespace

FileAnalysis::FileAnalysis(const AnalysisOptions& pOptions,
                           AudioSource& pSource,
                           bool pIsLookingAhead)
    : m_options(pOptions), m_source(pSource),
      m_pump(ApplyTo(m_configuration, m_options), pSource.getSampleRate()),
      m_mix(pSource.getSampleRate()), m_tracker(pSource.getSampleRate()),
      m_relay(MakeRelay(m_options, m_pump.getFollower(), m_meter))
{
    m_options.Apply(m_pump.getAnalyzer());
    m_options.Apply(m_tracker);
    if (pIsLookingAhead) {
        m_decoder.emplace(pSource.getSampleRate());
        m_options.Apply(m_decoder->getTracker());
    } else {
        m_meter.Follow(&m_tracker);
    }
    m_relay.Restart(pSource.getSampleRate());
    QObject::connect(&m_pump.getAnalyzer(),
                     &AudioAnalyzer::OnAudioSamplesAnalyzed,
                     &m_log,
                     [this](unsigned int, const qint16* pSamples, unsigned int pCount) {
                         _TraceLevel(pSamples, pCount);
                     });
}

bool FileAnalysis::Run(const BatchObserver& pObserver)
{
    if (!_AnalyzeSource(pObserver) || !_CheckSource())
        return false;
    m_pump.Finish();
    if (m_decoder)
        _TellDecoding();
    m_log.Finish(m_pump.getSampleCount());
    return true;
}

bool FileAnalysis::_AnalyzeSource(const BatchObserver& pObserver)
{
    for (;;) {
        const qint16* pSamples = m_pump.getSpace();
        const std::size_t wanted = m_pump.getSpaceCount();
        const std::size_t count = m_source.Read(m_pump.getSpace(), wanted);
        _WatchPeak(pSamples, count);
        if (m_options.getTracker() == eAutomaticTracker)
            _Track(count);
        m_pump.Commit(count);
        if (!pObserver(m_source.getFrames(), count))
            return false;
        if (count < wanted)
            return true;
    }
}

void FileAnalysis::_Track(std::size_t pCount)
{
    m_heard.resize(pCount);
    m_mix.Mix(m_source.getFrames(), m_source.getChannelCount(), pCount, m_heard.data());
    _WatchPeak(m_heard.data(), pCount);
    m_beliefs.Append(double(getSampleCount()) / m_source.getSampleRate(),
                     m_decoder ? m_decoder->getTracker() : m_tracker);
    if (m_decoder)
        m_decoder->Push(m_heard.data(), pCount);
    else
        m_meter.Push(m_heard.data(), pCount);
}

/// In the follower's place, which has heard nothing.
void FileAnalysis::_TellDecoding()
{
    const MeterDecoder::Decoding decoding = m_decoder->Decode();
    auto beat = decoding.beats.begin();
    double bpm = 0.0;
    if (decoding.stretches.empty() || decoding.stretches.front().start > 0)
        Q_EMIT m_meter.OnPlayingChanged(0, false);
    for (const MeterDecoder::Stretch& stretch : decoding.stretches) {
        Q_EMIT m_meter.OnPlayingChanged(stretch.start, true);
        for (; beat != decoding.beats.end() && beat->index < stretch.end; ++beat) {
            Q_EMIT m_meter.OnBeatFound(*beat);
            if (std::exchange(bpm, beat->bpm) != beat->bpm)
                Q_EMIT m_meter.OnTempoFound(beat->index, beat->bpm);
        }
        if (stretch.end < getSampleCount())
            Q_EMIT m_meter.OnPlayingChanged(stretch.end, false);
    }
}

void FileAnalysis::_WatchPeak(const qint16* pSamples, std::size_t pCount)
{
    for (std::size_t i = 0; i < pCount; ++i)
        m_peak = std::max(m_peak, std::abs(int(pSamples[i])));
}

bool FileAnalysis::_CheckSource()
{
    m_error = m_source.getError();
    if (m_error.isEmpty() && getSampleCount() < m_pump.getBlockSize()) {
        m_error = tr("too short: %1 samples, and the analysis needs %2 at least; give longer audio")
                      .arg(getSampleCount())
                      .arg(m_pump.getBlockSize());
    }
    return m_error.isEmpty();
}

void FileAnalysis::_TraceLevel(const qint16* pSamples, unsigned int pCount)
{
    if (m_pump.getBlockIndex() >= getSampleCount())
        return;
    int level = 0;
    for (unsigned int i = 0; i < pCount; ++i)
        level = std::max(level, std::abs(int(pSamples[i])));
    AudioAnalyzer& analyzer = m_pump.getAnalyzer();
    const int threshold = analyzer.isPlaying() ? std::max<int>(0, analyzer.getThreshold()) : 0;
    m_levels.Append(double(m_pump.getBlockIndex()) / m_source.getSampleRate(), level, threshold);
}
