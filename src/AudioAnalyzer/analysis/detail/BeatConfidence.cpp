// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatConfidence.h>
#include <AudioAnalyzer/dsp/Elementary.h>

#include <algorithm>

namespace detail {

namespace {

float logOdds(float pShare)
{
    const float share = std::max(0.01F, std::min(0.995F, pShare));
    return elementary::naturalLog(share / (1.0F - share));
}

}  // namespace

std::array<float, kConfidenceTerms> confidenceTerms(const BeatSigns& pSigns)
{
    constexpr float kUsualRatio = 0.03F;
    const float ratio = std::max(-1.0F, std::min(1.5F, pSigns.meanRatio / kUsualRatio));
    return {1.0F, logOdds(pSigns.phaseShare), logOdds(pSigns.tempoShare), ratio};
}

float beatConfidence(const BeatSigns& pSigns, const MeterTable& pTable)
{
    const std::array<float, kConfidenceTerms> terms = confidenceTerms(pSigns);
    float sum = 0.0F;
    for (std::size_t i = 0; i < terms.size(); ++i)
        sum += pTable.confidence[i] * terms[i];
    return 1.0F / (1.0F + elementary::exponential(-std::max(-40.0F, std::min(40.0F, sum))));
}

}  // namespace detail
