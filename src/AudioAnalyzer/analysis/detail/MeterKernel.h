// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterStates.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace detail {

/// How likely each step of the bar makes what was heard, up to a common factor: the bar once for
/// each feel, behind that its first step once more, and then zeros, for the empty cells.
using MeterLikelihoods = std::array<float, kMeterFeels * kStepsPerBar + 32>;

/// One compiled variant of the filter's inner loop. Every variant gives the same bits.
struct MeterKernel
{
    const char* name;

    /// Moves pBlocks blocks of cells on by one: pTo[i] = (pFrom[i - 1] + pLeak) times the
    /// likelihood of step pSteps[i]. Returns the sum of what was written. No overlap.
    float (*move)(const float* pFrom,
                  const std::uint8_t* pSteps,
                  const MeterLikelihoods& pLikelihoods,
                  float pLeak,
                  std::size_t pBlocks,
                  float* pTo);
};

/// The order in which the sums of the places of a block are added up.
inline float sumOfBlock(const float* pLanes)
{
    std::array<float, MeterStates::kBlock> lanes = {};
    for (std::size_t i = 0; i < lanes.size(); ++i)
        lanes[i] = pLanes[i];
    for (std::size_t half = lanes.size() / 2; half > 0; half /= 2)
        for (std::size_t i = 0; i < half; ++i)
            lanes[i] += lanes[i + half];
    return lanes[0];
}

/// The kernels of this build, slowest first, ended by a null pointer. The first runs everywhere.
extern const MeterKernel* const kMeterKernels[];

/// Whether this processor and its operating system can run the kernel.
bool isSupported(const MeterKernel& pKernel);

/// The fastest kernel that can run here; the same one for the whole life of the process.
const MeterKernel& fastestMeterKernel();

}  // namespace detail
