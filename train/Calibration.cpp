// SPDX-License-Identifier: MIT
#include "Calibration.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr double kTolerance = 0.07;  ///< seconds
constexpr int kRounds = 3000;
/// The weight of how well the meter foretells: what is no music, and teaches nothing, lacks it.
constexpr double kLeastOfMeter = 0.3;

using Weights = std::array<double, detail::kConfidenceTerms>;

double confidenceOf(const JudgedBeat& pBeat, const Weights& pWeights)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < pWeights.size(); ++i)
        sum += pWeights[i] * double(pBeat.terms[i]);
    return 1.0 / (1.0 + std::exp(-sum));
}

}  // namespace

std::vector<JudgedBeat> judgeBeats(const Track& pTrack, const std::vector<FollowedBeat>& pBeats)
{
    std::vector<JudgedBeat> judged;
    for (const FollowedBeat& beat : pBeats) {
        if (!beat.isPlaying || pTrack.isIgnored(beat.time) ||
            beat.time < pTrack.beats.front() - kTolerance ||
            beat.time > pTrack.beats.back() + kTolerance)
            continue;
        const bool isRight =
            std::any_of(pTrack.beats.begin(), pTrack.beats.end(), [&](double pTime) {
                return std::fabs(pTime - beat.time) <= kTolerance;
            });
        judged.push_back({detail::confidenceTerms(beat.signs), isRight});
    }
    return judged;
}

// Each weight goes uphill by a share of the most that its curvature can be.
Weights fitConfidence(const std::vector<JudgedBeat>& pBeats)
{
    Weights weights = {};
    for (int round = 0; round < kRounds; ++round) {
        Weights slopes = {};
        Weights curvatures;
        curvatures.fill(1e-9);
        for (const JudgedBeat& beat : pBeats) {
            const double error = (beat.isRight ? 1.0 : 0.0) - confidenceOf(beat, weights);
            for (std::size_t i = 0; i < weights.size(); ++i) {
                const double term = double(beat.terms[i]);
                slopes[i] += error * term;
                curvatures[i] += 0.25 * term * term;
            }
        }
        for (std::size_t i = 0; i < weights.size(); ++i)
            weights[i] += 0.4 * slopes[i] / curvatures[i];
        weights.back() = std::max(weights.back(), kLeastOfMeter);
    }
    return weights;
}

void Reliability::Add(const JudgedBeat& pBeat, const Weights& pWeights)
{
    const double confidence = confidenceOf(pBeat, pWeights);
    const auto last = m_classes.size() - 1;
    Class& all = m_classes[std::min(last, std::size_t(confidence * double(m_classes.size())))];
    all.count += 1.0;
    all.confidence += confidence;
    all.right += pBeat.isRight ? 1.0 : 0.0;
}

double Reliability::getError() const
{
    double error = 0.0;
    double count = 0.0;
    for (const Class& one : m_classes) {
        error += std::fabs(one.confidence - one.right);
        count += one.count;
    }
    return count > 0.0 ? error / count : 0.0;
}

void Reliability::Print() const
{
    std::printf("confidence  right  beats\n");
    for (const Class& one : m_classes)
        if (one.count > 0.0)
            std::printf("%10.2f %6.2f %6.0f\n",
                        one.confidence / one.count,
                        one.right / one.count,
                        one.count);
    std::printf("expected calibration error %.3f\n", getError());
}
