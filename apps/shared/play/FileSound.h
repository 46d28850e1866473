// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundPlayback.h>
#include <shared/capture/SourceState.h>

#include <QElapsedTimer>

#include <memory>

/// The sound of a file on the default output, for as long as there is one; what is gone is looked
/// for again and again.
///
/// Threads: one event-loop thread.
class FileSound
{
public:
    static constexpr int kRetryMs = 1000;

    /// Without it nothing is ever heard.
    void Want() { m_isWanted = true; }
    void setMuted(bool pIsMuted);
    /// Opens what is there by now, and drops what takes no sound any more. Hz.
    void Look(int pSampleRate);
    /// What takes the samples, and says which of them have sounded; null = nothing does. It is
    /// another one only after it was null. [valid until the next Look()]
    SoundPlayback* get() const { return m_isTaken ? m_playback.get() : nullptr; }
    eFileSound getState() const;

private:
    void _Open(int pSampleRate);
    void _Drop(eFileSound pReason);

    bool m_isWanted = false;
    bool m_isMuted = false;
    bool m_isTaken = false;
    bool m_isFirst = true;  ///< the beginning of a file waits for its sound
    eFileSound m_reason = eFileNoServer;
    std::unique_ptr<SoundPlayback> m_playback;
    QElapsedTimer m_sinceTry;
};
