// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace detail {

/// Whether what sounds has a meter at all.
///
/// The filter says how much better the meter foretold a frame than the mere frequency of the onset
/// levels would have: a logarithm that is above zero in the long run when there is a meter, and
/// below when there is none. Its sum, kept between two bounds, is the evidence: the upper bound
/// carries the beat over a break, the lower one lets music in again. Music is given the benefit of
/// the doubt when sound begins, and ends at once in silence. It plays again with more evidence than
/// it ended with, so that it does not come and go.
class MusicEvidence
{
public:
    void Reset() { *this = MusicEvidence(); }
    /// One frame: the logarithm, and the mean square of its samples, 1 = full scale.
    void Update(float pLogRatio, float pMeanSquare);

    /// Somebody says that there is a beat.
    void Believe()
    {
        m_sum = m_sum < kFirst ? kFirst : m_sum;
        m_isBelieved = true;
    }

    bool isSilent() const { return m_isSilent; }
    bool isPlaying() const { return !m_isSilent && m_isBelieved; }
    /// Logarithm of odds, from the lower to the upper bound.
    float getSum() const { return m_sum; }
    /// Mean logarithm of the last three seconds, or so.
    float getMean() const { return m_mean; }

private:
    static constexpr float kFirst = 2.0F;  ///< when sound begins
    static constexpr float kLowest = -6.0F;
    static constexpr float kHighest = 20.0F;

    void _FollowSilence(float pMeanSquare);

    float m_sum = kFirst;
    bool m_isBelieved = true;  ///< that there is a meter
    float m_mean = 0.0F;
    float m_loudness = 0.0F;           ///< mean square that music has; falls slowly
    std::size_t m_quietFrames = 1000;  ///< since the last frame that was no silence
    bool m_isSilent = true;
};

}  // namespace detail
