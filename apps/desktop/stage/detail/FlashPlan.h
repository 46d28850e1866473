// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>

namespace desktop {

/// How strongly a beat lights the whole window.
enum eFlash
{
    eNoFlash,
    eSoftFlash,  ///< a glow, weaker than what harms anybody
    eBeatFlash,
    eOneFlash  ///< the first beat of a bar
};

/// Which beats flash fully: every one up to 180 BPM, above it every second, fourth and so on, so
/// that there are three full flashes a second at most; the others glow.
class FlashPlan
{
public:
    static constexpr double kFastest = 180.0;  ///< BPM; three beats a second
    static constexpr qint64 kSpanMs = 950;  ///< of four flashes; a second, but for unsteady beats

    bool isSoft = false;    ///< no beat flashes fully
    bool isLimited = true;  ///< to three full flashes a second

    /// How many beats there are to a full flash.
    static int getStride(double pBPM)
    {
        int stride = 1;
        while (pBPM > kFastest * stride)
            stride *= 2;
        return stride;
    }

    /// For a beat at pTime, ms, growing; pBeatInBar: 1 = the one.
    eFlash Choose(qint64 pTime, int pBeatInBar, double pBPM)
    {
        const bool isFull =
            !isSoft && (!isLimited || ((pBeatInBar - 1) % getStride(pBPM) == 0 && _IsFree(pTime)));
        if (!isFull)
            return eSoftFlash;
        m_times[m_next] = pTime;
        m_next = (m_next + 1) % m_times.size();
        return pBeatInBar == 1 ? eOneFlash : eBeatFlash;
    }

private:
    /// The third flash before is long past.
    bool _IsFree(qint64 pTime) const { return pTime - m_times[m_next] >= kSpanMs; }

    std::array<qint64, 3> m_times = {-kSpanMs, -kSpanMs, -kSpanMs};  ///< ms; of full flashes
    std::size_t m_next = 0;                                          ///< the oldest
};

}  // namespace desktop
