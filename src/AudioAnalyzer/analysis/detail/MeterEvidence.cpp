// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterEvidence.h>
#include <AudioAnalyzer/dsp/Elementary.h>

#include <algorithm>

namespace detail {

namespace {

// Frames share most of their samples and bands move together, so that their evidence counts less
// than that of as many independent ones.
// The three ranges in the middle move together more than the outer ones do.
constexpr float kWeights[kMeterRanges] = {0.12F, 0.09F, 0.09F, 0.09F, 0.12F};

constexpr float kPriorStrength = 0.35F * 0.25F;
constexpr float kPriorWidth = 0.04F;  ///< beats
constexpr float kPriorDelay = 0.02F;  ///< beats; onsets are heard a little late
constexpr float kPriorOffset = 0.15F;

// A bump around pCentre, circular.
float bump(float pPhase, float pCentre)
{
    float distance = pPhase - pCentre - kPriorDelay;
    distance -= distance > 0.5F ? 1.0F : 0.0F;
    distance += distance < -0.5F ? 1.0F : 0.0F;
    const float deviation = distance / kPriorWidth;
    return elementary::exponential(-0.5F * std::min(deviation * deviation, 100.0F));
}

// What was drawn by hand: onsets fall on the beat, less often half a beat later, less on quarters.
float expectedShape(std::size_t pRange, std::size_t pBin)
{
    const float phase = static_cast<float>(pBin) / static_cast<float>(kBinsPerBeat);
    if (pRange == 0)
        return bump(phase, 0.0F) + 0.15F * bump(phase, 0.5F);
    return bump(phase, 0.0F) + 0.5F * bump(phase, 0.5F) +
           0.25F * (bump(phase, 0.25F) + bump(phase, 0.75F));
}

}  // namespace

MeterEvidence::MeterEvidence(const MeterTable& pTable) : m_rows()
{
    for (std::size_t range = 0; range < kMeterRanges; ++range)
        for (std::size_t level = 0; level < OnsetLevels::kLevelCount; ++level)
            for (std::size_t step = 0; step < kStepsPerBar; ++step) {
                const std::size_t bin = step % kBinsPerBeat;
                const float* fit = pTable.fit[step / kBinsPerBeat][bin][range];
                const auto x = static_cast<float>(level);
                const float learned = fit[0] + x * (fit[1] + x * fit[2]);
                const float drawn =
                    kPriorStrength * (x - 3.0F) * (expectedShape(range, bin) - kPriorOffset);
                m_rows[range][level][step] = kWeights[range] * (learned + drawn);
            }
}

const MeterLikelihoods& MeterEvidence::Weigh(const OnsetLevels::Levels& pLevels)
{
    Row sums = {};
    for (std::size_t range = 0; range < kMeterRanges; ++range) {
        const Row& row = m_rows[range][pLevels[range]];
        for (std::size_t step = 0; step < kStepsPerBar; ++step)
            sums[step] += row[step];
    }
    for (std::size_t step = 0; step < kStepsPerBar; ++step)
        m_likelihoods[step] = elementary::exponential(sums[step]);
    // A swung bar takes the same steps, at other times.
    std::copy_n(m_likelihoods.begin(), kStepsPerBar, m_likelihoods.begin() + kStepsPerBar);
    m_likelihoods[kMeterFeels * kStepsPerBar] = m_likelihoods[0];
    return m_likelihoods;
}

}  // namespace detail
