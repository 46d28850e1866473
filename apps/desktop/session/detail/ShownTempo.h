// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace desktop {

/// The tempo as a figure with one decimal that does not tremble: while the music leads, it stays
/// until the clock's is a tenth away from it.
class ShownTempo
{
public:
    static constexpr double kStep = 0.1;  ///< BPM

    /// pBPM: 0 = unknown. pIsExact: it was set by hand.
    double Show(double pBPM, bool pIsExact)
    {
        if (pIsExact || pBPM <= 0.0)
            m_shown = pBPM;
        else if (std::abs(pBPM - m_shown) >= kStep)
            m_shown = std::round(pBPM / kStep) * kStep;
        return m_shown;
    }

private:
    double m_shown = 0.0;  ///< BPM
};

}  // namespace desktop
