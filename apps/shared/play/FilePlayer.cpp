// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/play/FilePlayer.h>

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kTickMs = 50;  ///< about as often as live sound arrives
constexpr double kLevelSeconds = 3.0;
constexpr double kLateSeconds = 0.5;  ///< behind the clock, or before it: the pace begins anew
constexpr qint64 kDrift = 50000;      ///< µs; of the samples against their sound: anchored anew

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
    state.sound = m_sound.getState();
    return state;
}

double FilePlayer::_Seconds(quint64 pFrames) const
{
    return getSampleRate() > 0 ? double(pFrames) / getSampleRate() : 0.0;
}

quint64 FilePlayer::_MicroSeconds(quint64 pFrames) const
{
    const auto rate = quint64(getSampleRate());
    return pFrames / rate * 1000000 + pFrames % rate * 1000000 / rate;
}

void FilePlayer::_Tick()
{
    if (!_Read())
        return;
    const quint64 now = HighResolutionTimer::getTime();
    _ChoosePace(now);
    _WriteSound();
    if (const std::optional<quint64> due = _CountDue(now))
        _AnalyzeDue(*due, now);
}

/// False when there is nothing to be analysed yet, or no more.
bool FilePlayer::_Read()
{
    const auto ahead = std::size_t(getSampleRate());
    while (!m_isWholeRead && _getWaiting() <= ahead && m_source->isReady())
        _TakeChunk();
    if (m_isWholeRead && _getWaiting() == 0)
        _End();
    return getAnalyzer() && m_tick.isActive();
}

void FilePlayer::_TakeChunk()
{
    const ReadAhead::Chunk chunk = m_source->Take();
    m_samples.erase(m_samples.begin(), m_samples.begin() + std::ptrdiff_t(m_analyzed));
    m_analyzed = 0;
    m_samples.insert(m_samples.end(), chunk.samples.begin(), chunk.samples.end());
    m_isWholeRead = chunk.isLast;
    m_error = chunk.error;
    if (chunk.sampleRate > 0 && !getAnalyzer()) {
        m_frameCount = chunk.frameCount;
        _Prepare(FormatOf(chunk.sampleRate), kLevelSeconds);
    }
}

// ---- The pace -----------------------------------------------------------------------------------

void FilePlayer::_ChoosePace(quint64 pNow)
{
    m_sound.Look(getSampleRate());
    const bool isBySound = m_sound.get() != nullptr;
    if (isBySound != m_isBySound || m_paceTime == 0)
        _PaceAnew(pNow);
    m_isBySound = isBySound;
    if (m_toldSound == m_sound.getState())
        return;
    m_toldSound = m_sound.getState();
    Q_EMIT OnSourceChanged();
}

/// The first sample that is not analysed yet is the next to sound.
void FilePlayer::_PaceAnew(quint64 pNow)
{
    m_paceTime = pNow;
    m_paced = 0;
    m_written = 0;
}

void FilePlayer::_WriteSound()
{
    if (!m_isBySound)
        return;
    const std::size_t count = std::min(m_sound.get()->getRoom(), _getWaiting() - m_written);
    m_sound.get()->Write(m_samples.data() + m_analyzed + m_written, count);
    m_written += count;
}

/// Samples that sounded since the last were analysed; nothing while none has, as far as is known.
std::optional<quint64> FilePlayer::_CountDue(quint64 pNow) const
{
    if (!m_isBySound)
        return _CountElapsed(pNow) - m_paced;
    const std::optional<quint64> heard = m_sound.get()->getHeard(pNow);
    if (!heard || *heard <= m_paced)
        return {};
    return *heard - m_paced;
}

quint64 FilePlayer::_CountElapsed(quint64 pNow) const
{
    const quint64 elapsed = pNow - m_paceTime;
    const auto rate = quint64(getSampleRate());
    return elapsed / 1000000 * rate + elapsed % 1000000 * rate / 1000000;
}

// ---- The analysis -------------------------------------------------------------------------------

/// By the clock, it may have been set back, which makes very many due samples.
void FilePlayer::_AnalyzeDue(quint64 pDue, quint64 pNow)
{
    if (!m_isBySound && pDue > quint64(kLateSeconds * getSampleRate())) {
        _PaceAnew(pNow);
        pDue = 0;
    }
    const quint64 instant =
        m_isBySound ? m_sound.get()->getInstant(m_paced) : m_paceTime + _MicroSeconds(m_paced);
    const auto drift = qint64(instant - m_anchor - _MicroSeconds(m_sinceAnchor));
    if (!getAnalyzer()->isAnalyzing() || std::abs(drift) > kDrift)
        _Anchor(instant);
    const auto due = std::size_t(std::min<quint64>(pDue, _getWaiting()));
    if (due > 0)
        _Analyze(due, instant + _MicroSeconds(due));
}

/// The next sample sounds at that instant, µs since the epoch.
void FilePlayer::_Anchor(quint64 pInstant)
{
    m_anchor = pInstant;
    m_sinceAnchor = 0;
    getAnalyzer()->Stop();
    {
        const HighResolutionTimerOverride clock(pInstant);
        getAnalyzer()->Start();
    }
    Q_EMIT OnAnchored();
}

void FilePlayer::_Analyze(std::size_t pCount, quint64 pEnd)
{
    qint16* pSamples = m_samples.data() + m_analyzed;
    m_analyzed += pCount;
    m_written -= std::min(m_written, pCount);
    m_sinceAnchor += pCount;
    m_paced += pCount;
    m_position += pCount;
    Q_EMIT OnSamples(pSamples, pCount, pEnd);
    getAnalyzer()->Analyze(pSamples, pCount);
    _WatchLevel(pSamples, pCount);
}

void FilePlayer::_End()
{
    m_tick.stop();
    if (getAnalyzer())
        getAnalyzer()->Stop();
    Q_EMIT OnEnded(m_error);
}

#include "moc_FilePlayer.cpp"
