// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/capture/SoundBackEnd.h>
#include <shared/play/FileSound.h>

namespace {

bool IsServerThere()
{
    return SoundBackEnd::get() && SoundBackEnd::get()->isAnswering();
}

}  // namespace

void FileSound::setMuted(bool pIsMuted)
{
    m_isMuted = pIsMuted;
    if (m_playback)
        m_playback->setMuted(pIsMuted);
}

void FileSound::Look(int pSampleRate)
{
    if (!m_isWanted)
        return;
    if (!m_playback && (!m_sinceTry.isValid() || m_sinceTry.hasExpired(kRetryMs)))
        _Open(pSampleRate);
    if (!m_playback)
        return;
    const SoundPlayback::eState state = m_playback->getState();
    if (state == SoundPlayback::eRefused)
        return _Drop(IsServerThere() ? eFileNoOutput : eFileNoServer);
    if (state == SoundPlayback::eStuck || !IsServerThere())
        return _Drop(eFileStuck);
    // One that takes samples and plays none would hold the file up.
    const bool isPlaying = m_playback->getHeard(HighResolutionTimer::getTime()).has_value();
    m_isTaken = m_isTaken || m_isFirst || (state == SoundPlayback::eRunning && isPlaying);
}

eFileSound FileSound::getState() const
{
    if (!m_isWanted)
        return eFileSilent;
    if (m_isMuted)
        return eFileMuted;
    return m_isTaken ? eFileHeard : m_reason;
}

void FileSound::_Open(int pSampleRate)
{
    m_sinceTry.start();
    m_playback = SoundBackEnd::get() ? SoundBackEnd::get()->Play(pSampleRate) : nullptr;
    if (m_playback)
        return m_playback->setMuted(m_isMuted);
    m_isFirst = false;
    if (m_reason != eFileStuck)
        m_reason = eFileNoServer;
}

void FileSound::_Drop(eFileSound pReason)
{
    m_reason = pReason;
    m_isTaken = false;
    m_isFirst = false;
    m_playback.reset();
    m_sinceTry.start();
}
