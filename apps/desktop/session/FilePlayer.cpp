// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/FilePlayer.h>

#include <algorithm>
#include <utility>

namespace {

constexpr int kTickMs = 50;  ///< about as often as live sound arrives
constexpr double kLevelSeconds = 3.0;
constexpr double kLateSeconds = 0.5;  ///< behind the clock, or before it: to be anchored anew

QAudioFormat FormatOf(int pSampleRate)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(pSampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    return format;
}

}  // namespace

FilePlayer::FilePlayer(Configuration& pConfiguration, QObject* pParent)
    : QObject(pParent), m_configuration(pConfiguration)
{
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, &FilePlayer::_Tick);
}

FilePlayer::~FilePlayer() = default;

void FilePlayer::Open(const QString& pPath, bool pIsLooped)
{
    m_path = pPath;
    m_source = std::make_unique<ReadAhead>(pPath, pIsLooped);
    m_tick.start(kTickMs);
}

double FilePlayer::getLength() const
{
    return m_sampleRate > 0 ? double(m_frameCount) / m_sampleRate : 0.0;
}

double FilePlayer::getPosition() const
{
    const quint64 position = m_frameCount > 0 ? m_position % m_frameCount : m_position;
    return m_sampleRate > 0 ? double(position) / m_sampleRate : 0.0;
}

void FilePlayer::_Tick()
{
    const bool isChunkThere = m_chunkFill < m_chunk.samples.size() || _TakeChunk();
    if (!m_tick.isActive() || !isChunkThere)
        return;
    if (!m_analyzer->isAnalyzing())
        return _Anchor();
    const quint64 due = _CountDue();
    if (due > quint64(kLateSeconds * m_sampleRate))
        m_analyzer->Stop();
    else
        _Feed(due);
}

/// False when there is nothing to be analysed yet, or no more.
bool FilePlayer::_TakeChunk()
{
    if (m_chunk.isLast) {
        _End();
        return false;
    }
    if (!m_source->isReady())
        return false;
    m_chunk = m_source->Take();
    m_chunkFill = 0;
    if (m_chunk.sampleRate > 0 && !m_analyzer)
        _MakeAnalyzer(m_chunk);
    return !m_chunk.samples.empty();
}

void FilePlayer::_MakeAnalyzer(const ReadAhead::Chunk& pChunk)
{
    m_sampleRate = pChunk.sampleRate;
    m_frameCount = pChunk.frameCount;
    m_levels = shared::LevelWatch(quint64(kLevelSeconds * m_sampleRate));
    m_analyzer = std::make_unique<AudioAnalyzer>(&m_configuration, FormatOf(m_sampleRate), nullptr);
    connect(
        m_analyzer.get(),
        &AudioAnalyzer::OnAmplitudesComputed,
        this,
        [this] { m_isBlockHeard = true; });
    connect(m_analyzer.get(), &AudioAnalyzer::OnAudioSamplesAnalyzed, this, [this] {
        m_isPlaying = std::exchange(m_isBlockHeard, false);
    });
    Q_EMIT OnAnalyzerCreated(m_analyzer.get());
}

void FilePlayer::_Anchor()
{
    m_anchor = HighResolutionTimer::getTime();
    m_sinceAnchor = 0;
    m_analyzer->Start();
    Q_EMIT OnAnchored();
}

/// Samples that sounded since the last were analysed. A clock that was set back makes very many.
quint64 FilePlayer::_CountDue() const
{
    const quint64 elapsed = HighResolutionTimer::getTime() - m_anchor;
    const auto rate = quint64(m_sampleRate);
    return elapsed / 1000000 * rate + elapsed % 1000000 * rate / 1000000 - m_sinceAnchor;
}

void FilePlayer::_Feed(quint64 pCount)
{
    while (pCount > 0 && (m_chunkFill < m_chunk.samples.size() || _TakeChunk())) {
        const auto count =
            std::size_t(std::min<quint64>(pCount, quint64(m_chunk.samples.size() - m_chunkFill)));
        _Analyze(count);
        pCount -= count;
    }
}

void FilePlayer::_Analyze(std::size_t pCount)
{
    qint16* pSamples = m_chunk.samples.data() + m_chunkFill;
    m_chunkFill += pCount;
    m_sinceAnchor += pCount;
    m_position += pCount;
    m_analyzer->Analyze(pSamples, pCount);
    _WatchLevel(pSamples, pCount);
}

void FilePlayer::_WatchLevel(const qint16* pSamples, std::size_t pCount)
{
    const auto notices = m_levels.Add(pSamples, pCount, m_isPlaying);
    for (const eCaptureNotice notice : notices)
        Q_EMIT OnNotice(notice);
}

void FilePlayer::_End()
{
    m_tick.stop();
    if (m_analyzer)
        m_analyzer->Stop();
    Q_EMIT OnEnded(m_chunk.error);
}

#include "moc_FilePlayer.cpp"
