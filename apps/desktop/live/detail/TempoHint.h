// SPDX-License-Identifier: MIT
#pragma once

namespace desktop {

enum eTempoHint
{
    eNoHint,
    eHalfHint,    ///< too fast for the profile, and half of it fits
    eDoubleHint,  ///< too slow for the profile, and the double of it fits
    eOutsideHint  ///< nor does that fit
};

struct TempoHint
{
    eTempoHint kind;
    double bpm;  ///< that fits; 0 without one
};

/// A measured tempo this share beyond the range is still the edge itself.
constexpr double kTempoTolerance = 0.005;

/// What a measured tempo, 0 = unknown, means to a profile of that range. All in BPM.
inline TempoHint FindTempoHint(double pMeasured, double pMinimal, double pMaximal)
{
    const double least = pMinimal * (1.0 - kTempoTolerance);
    const double most = pMaximal * (1.0 + kTempoTolerance);
    const auto fits = [=](double pBPM) { return pBPM >= least && pBPM <= most; };
    if (!(pMeasured > 0.0) || fits(pMeasured))
        return {eNoHint, 0.0};
    const bool isFast = pMeasured > most;
    const double other = isFast ? pMeasured / 2.0 : pMeasured * 2.0;
    if (!fits(other))
        return {eOutsideHint, 0.0};
    return {isFast ? eHalfHint : eDoubleHint, other};
}

}  // namespace desktop
