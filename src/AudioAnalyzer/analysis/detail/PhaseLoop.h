// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatLine.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace detail {

constexpr double kSlowestBPM = 10.0;
constexpr double kFastestBPM = 999.0;
constexpr double kMinute = 60e6;            ///< µs
constexpr double kPhaseWindow = 0.2;        ///< beats by which a beat may be off and is followed
constexpr double kSameTempo = 0.04;         ///< share by which two names of one tempo may differ
constexpr double kSameStep = 0.1;           ///< share of a beat by which two doubts may be uneven
constexpr int kBestMemory = 16;             ///< beats that the line is fitted to
constexpr double kSurenessShare = 1.0 / 8;  ///< of one beat in the sureness

/// Whether a clock can run at it; not with NaN.
inline bool IsTempo(double pBPM)
{
    return pBPM >= kSlowestBPM && pBPM <= kFastestBPM;
}

/// What a beat changes: shares of its error that go into phase and period.
struct LoopGains
{
    double phase;
    double period;
};

/// Those of the straight line of least squares through pCount beats, 2 at least, when the line
/// through all but the last is known.
inline LoopGains GainsOf(int pCount)
{
    const double count = pCount;
    const double both = count * (count + 1.0);
    return {2.0 * (2.0 * count - 1.0) / both, 6.0 / both};
}

/// The line, corrected by a beat at pTime that should have been at position pIndex, pSteps beats
/// after the last one.
inline BeatLine FollowBeat(
    const BeatLine& pLine, std::int64_t pTime, double pIndex, double pSteps, LoopGains pGains)
{
    const double error = pLine.getPosition(pTime) - pIndex;  // beats; positive: the beat is late
    const double period = std::clamp(pLine.period * (1.0 + pGains.period * error / pSteps),
                                     kMinute / kFastestBPM,
                                     kMinute / kSlowestBPM);
    return {pTime, pIndex + (1.0 - pGains.phase) * error * pLine.period / period, period};
}

/// Whether an interval is, but for pShare of a period, one to pMost whole periods. All in µs.
inline bool IsWholePeriods(double pInterval, double pPeriod, double pShare, double pMost)
{
    const double count = std::clamp(std::round(pInterval / pPeriod), 1.0, pMost);
    return std::abs(pInterval - count * pPeriod) <= pShare * pPeriod;
}

/// The sureness after a beat that was off by pError beats; pTrust: that of the tracker, 0 to 1.
inline double SurenessAfter(double pSureness, double pError, double pTrust)
{
    const double hit = std::max(0.0, 1.0 - std::abs(pError) / kPhaseWindow) * pTrust;
    return pSureness + kSurenessShare * (hit - pSureness);
}

/// The sureness when pBeats beats have passed since the last one was heard: one is no news.
inline double FadedSureness(double pSureness, double pBeats)
{
    constexpr double kMost = 200.0;  // 2e-12 is left of it
    double left = pSureness;
    for (double missed = std::min(std::floor(pBeats), kMost); missed > 1.0; missed -= 1.0)
        left *= 1.0 - kSurenessShare;
    return left;
}

}  // namespace detail
