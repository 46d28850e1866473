// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MusicEvidence.h>

#include <algorithm>

namespace detail {

namespace {

constexpr float kMeanStep = 1.0F / 300.0F;       ///< a frame
constexpr float kSilence = 1e-7F;                ///< mean square: -70 dBFS
constexpr float kRelativeSilence = 1e-5F;        ///< of the loudness: -50 dB
constexpr float kLoudnessFall = 1.0F / 1000.0F;  ///< a frame
constexpr std::size_t kSilentFrames = 120;       ///< make a silence
constexpr float kAgain = 1.0F;                   ///< evidence with which music begins again
constexpr float kForget = 1.0F / 1000.0F;        ///< a frame of silence
constexpr float kForgiven = 1.5F;                ///< evidence by which a silence ends doubt

}  // namespace

void MusicEvidence::Update(float pLogRatio, float pMeanSquare)
{
    _FollowSilence(pMeanSquare);
    if (m_isSilent) {
        m_sum = std::min(m_sum, kFirst);
        m_sum += kForget * (kFirst - m_sum);
        m_mean = 0.0F;
        m_isBelieved = m_sum > kForgiven;
        return;
    }
    m_sum = std::max(kLowest, std::min(kHighest, m_sum + pLogRatio));
    m_isBelieved = m_sum > (m_isBelieved ? 0.0F : kAgain);
    m_mean += kMeanStep * (pLogRatio - m_mean);
}

void MusicEvidence::_FollowSilence(float pMeanSquare)
{
    m_loudness -= kLoudnessFall * m_loudness;
    m_loudness = std::max(m_loudness, pMeanSquare);
    const bool isQuiet = pMeanSquare < std::max(kSilence, kRelativeSilence * m_loudness);
    m_quietFrames = isQuiet ? m_quietFrames + 1 : 0;
    m_isSilent = m_quietFrames >= kSilentFrames;
}

}  // namespace detail
