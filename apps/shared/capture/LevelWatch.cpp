// SPDX-License-Identifier: MIT
#include <shared/capture/LevelWatch.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace shared {

namespace {

constexpr int kLeastRow = 3;               ///< samples
constexpr quint64 kSamplesPerClip = 1000;  ///< one clipped sample in so many is too much
constexpr int kFullScale = std::numeric_limits<qint16>::max();

/// Whether something has begun that was not told yet; pIsTold follows it.
bool HasBegun(bool pIsThere, bool& pIsTold)
{
    const bool hasBegun = pIsThere && !pIsTold;
    pIsTold = pIsThere;
    return hasBegun;
}

}  // namespace

std::vector<eCaptureNotice>
LevelWatch::Add(const qint16* pSamples, std::size_t pCount, bool pIsMusic)
{
    std::vector<eCaptureNotice> notices;
    for (std::size_t i = 0; i < pCount; ++i) {
        _AddSample(pSamples[i]);
        m_present.isMusic |= pIsMusic;
        if (m_present.count != m_window)
            continue;
        const std::vector<eCaptureNotice> found = _Judge();
        notices.insert(notices.end(), found.begin(), found.end());
        m_present = Window();
    }
    return notices;
}

int LevelWatch::TakePeak()
{
    const int peak = m_peak;
    m_peak = 0;
    return peak;
}

void LevelWatch::_AddSample(qint16 pSample)
{
    const int magnitude = std::min(std::abs(int(pSample)), kFullScale);
    m_peak = std::max(m_peak, magnitude);
    m_row = magnitude == kFullScale ? m_row + 1 : 0;
    if (m_row == kLeastRow)
        m_present.clipped += kLeastRow;
    else if (m_row > kLeastRow)
        ++m_present.clipped;
    const bool isFirst = m_present.count++ == 0;
    m_present.minimum = isFirst ? pSample : std::min<int>(m_present.minimum, pSample);
    m_present.maximum = isFirst ? pSample : std::max<int>(m_present.maximum, pSample);
}

std::vector<eCaptureNotice> LevelWatch::_Judge()
{
    const Window& window = m_present;
    const int magnitude = std::max(std::abs(window.minimum), std::abs(window.maximum));
    const bool isSilent = window.minimum == window.maximum;
    m_silentWindows = isSilent ? m_silentWindows + 1 : 0;
    const bool isSilence = m_silentWindows >= (m_wasMusic ? kGap : 1);
    const bool isQuiet = !isSilent && !window.isMusic && magnitude >= kAudible;
    // Once noticed, only a window without any clipping ends it.
    const quint64 limit = m_isClippingTold ? 1 : std::max<quint64>(1, m_window / kSamplesPerClip);

    std::vector<eCaptureNotice> notices;
    if (HasBegun(isSilence, m_isSilenceTold))
        notices.push_back(eDigitalSilenceNotice);
    if (HasBegun(isQuiet && m_wasQuiet, m_isQuietTold))
        notices.push_back(eTooQuietNotice);
    if (HasBegun(window.clipped >= limit, m_isClippingTold))
        notices.push_back(eClippedNotice);
    m_wasQuiet = isQuiet;
    m_wasMusic |= window.isMusic;
    return notices;
}

}  // namespace shared
