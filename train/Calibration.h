// SPDX-License-Identifier: MIT
#pragma once

#include "Following.h"

#include <array>
#include <vector>

/// A beat that was told, and whether a listener has one within 70 ms of it.
struct JudgedBeat
{
    std::array<float, detail::kConfidenceTerms> terms;
    bool isRight;
};

/// Judges the beats that were told, as far as the annotations reach.
std::vector<JudgedBeat> judgeBeats(const Track& pTrack, const std::vector<FollowedBeat>& pBeats);

/// The weights of the terms under which the judgements are most likely (logistic regression).
std::array<double, detail::kConfidenceTerms> fitConfidence(const std::vector<JudgedBeat>& pBeats);

/// How often beats are right that the tracker is so sure of: ten classes of confidence.
class Reliability
{
public:
    void Add(const JudgedBeat& pBeat, const std::array<double, detail::kConfidenceTerms>& pWeights);
    /// Mean distance between confidence and truth, over all beats.
    double getError() const;
    void Print() const;

private:
    struct Class
    {
        double count = 0.0;
        double confidence = 0.0;  ///< sum
        double right = 0.0;
    };
    std::array<Class, 10> m_classes;
};
