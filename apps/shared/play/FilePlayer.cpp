// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/play/FilePlayer.h>

#include <QFileInfo>

#include <algorithm>

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
    : LiveSource(pConfiguration, pParent)
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

SourceState FilePlayer::getSource() const
{
    SourceState state;
    state.kind = SourceState::eFile;
    state.name = QFileInfo(m_path).fileName();
    state.isPlaying = isPlaying();
    state.position = _Seconds(m_frameCount > 0 ? m_position % m_frameCount : m_position);
    state.length = _Seconds(m_frameCount);
    return state;
}

double FilePlayer::_Seconds(quint64 pFrames) const
{
    return getSampleRate() > 0 ? double(pFrames) / getSampleRate() : 0.0;
}

void FilePlayer::_Tick()
{
    const bool isChunkThere = m_chunkFill < m_chunk.samples.size() || _TakeChunk();
    if (!m_tick.isActive() || !isChunkThere)
        return;
    if (!getAnalyzer()->isAnalyzing())
        return _Anchor();
    const quint64 due = _CountDue();
    if (due > quint64(kLateSeconds * getSampleRate()))
        getAnalyzer()->Stop();
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
    if (m_chunk.sampleRate > 0 && !getAnalyzer()) {
        m_frameCount = m_chunk.frameCount;
        _Prepare(FormatOf(m_chunk.sampleRate), kLevelSeconds);
    }
    return !m_chunk.samples.empty();
}

void FilePlayer::_Anchor()
{
    m_anchor = HighResolutionTimer::getTime();
    m_sinceAnchor = 0;
    getAnalyzer()->Start();
    Q_EMIT OnAnchored();
}

/// Samples that sounded since the last were analysed. A clock that was set back makes very many.
quint64 FilePlayer::_CountDue() const
{
    const quint64 elapsed = HighResolutionTimer::getTime() - m_anchor;
    const auto rate = quint64(getSampleRate());
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
    const auto sounded = quint64(_Seconds(m_sinceAnchor) * 1e6);
    Q_EMIT OnSamples(pSamples, pCount, m_anchor + sounded);
    getAnalyzer()->Analyze(pSamples, pCount);
    _WatchLevel(pSamples, pCount);
}

void FilePlayer::_End()
{
    m_tick.stop();
    if (getAnalyzer())
        getAnalyzer()->Stop();
    Q_EMIT OnEnded(m_chunk.error);
}

#include "moc_FilePlayer.cpp"
