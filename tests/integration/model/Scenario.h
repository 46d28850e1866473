// SPDX-License-Identifier: MIT
#pragma once

#include "Action.h"
#include "Twins.h"

#include <cstddef>
#include <support/Waves.h>
#include <vector>

namespace model {

/// A random run of an analyzer, all of it drawn from one seed.
struct Scenario
{
    explicit Scenario(std::uint64_t seed);

    /// A batch of samples and the actions before it.
    struct Step
    {
        std::vector<Action> actions;
        quint64 clockJump = 0;  ///< µs
        std::size_t batchSize = 0;
    };

    int sampleRate = 44100;
    Settings settings;
    Samples samples;
    std::vector<Step> steps;  ///< the batches together are the samples
    std::vector<Reaction> reactions;

    QString toString() const;

private:
    void drawSettings();
    void drawSamples();
    void drawSteps();
    void drawReactions();
    Samples drawSegment();
    Samples drawBursts(std::size_t count);
    Samples drawExtremes(std::size_t count);
    Profile drawProfile();
    Action drawAction();
    double drawValue(Action::Kind kind);
    std::size_t drawBatchSize(int mode);

    waves::Random m_random;
};

}  // namespace model
