// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/CaptureNotice.h>

#include <QtGlobal>

#include <cstddef>
#include <vector>

namespace shared {

/// Judges the level of live sound, one window of samples after the other.
///
/// A window is digital silence when all its samples are equal; once there was music, a gap between
/// two tracks is that too, and only kGap windows of it are worth a notice. A window is clipped when
/// one sample in a thousand lies in a row of at least three at full scale. Sound is too quiet when
/// two windows in a row hold more than the noise of an open input and still nothing that counts as
/// music; one alone may only show that music has just begun.
class LevelWatch
{
public:
    static constexpr int kAudible = 33;  ///< sample magnitude, -60 dBFS
    static constexpr int kGap = 10;      ///< windows of silence that music may leave

    /// pWindow: samples; 0 = nothing is ever noticed. It should be longer than the analyzer needs
    /// to tell music from silence.
    explicit LevelWatch(quint64 pWindow) : m_window(pWindow) {}

    /// Takes samples that did or did not count as music. Returns what is noticed anew: each thing
    /// once, until a window has been without it.
    std::vector<eCaptureNotice> Add(const qint16* pSamples, std::size_t pCount, bool pIsMusic);
    /// The greatest magnitude since the last call, at most 32767.
    int TakePeak();

private:
    struct Window
    {
        quint64 count = 0;    ///< samples
        quint64 clipped = 0;  ///< samples in rows at full scale
        int minimum = 0;
        int maximum = 0;
        bool isMusic = false;  ///< some of it counts as music
    };

    void _AddSample(qint16 pSample);
    std::vector<eCaptureNotice> _Judge();

    quint64 m_window;  ///< samples
    Window m_present;
    int m_row = 0;  ///< samples at full scale in a row
    int m_peak = 0;
    int m_silentWindows = 0;  ///< in a row
    bool m_wasMusic = false;  ///< in some window before
    bool m_wasQuiet = false;  ///< so was the window before
    bool m_isQuietTold = false;
    bool m_isSilenceTold = false;
    bool m_isClippingTold = false;
};

}  // namespace shared
