// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace pulse {

/// Takes sound away and gives it back over some samples, so that nothing clicks.
class Fader
{
public:
    /// pLength: samples from all of the sound to none.
    explicit Fader(int pLength) : m_step(1.0F / float(pLength)) {}

    void setOpen(bool pIsOpen) { m_target = pIsOpen ? 1.0F : 0.0F; }
    /// It is where it is going to.
    void Leap() { m_gain = m_target; }

    /// [audio path: no allocation]
    void Apply(qint16* pSamples, std::size_t pCount)
    {
        for (std::size_t i = 0; i < pCount && (m_gain < 1.0F || m_target < 1.0F); ++i) {
            m_gain = m_target > m_gain ? std::min(m_gain + m_step, m_target)
                                       : std::max(m_gain - m_step, m_target);
            pSamples[i] = qint16(std::lround(float(pSamples[i]) * m_gain));
        }
    }

private:
    float m_step;  ///< a sample
    float m_gain = 1.0F;
    float m_target = 1.0F;
};

}  // namespace pulse
