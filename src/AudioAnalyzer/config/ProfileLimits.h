// SPDX-License-Identifier: MIT
#pragma once

/// What hosts let people put into a tempo profile. The profile's own setters refuse other tempos as
/// well, but take any sensibility from 0 on.
struct ProfileLimits
{
    static constexpr double kMinimalBPM = 1.0;
    static constexpr double kMaximalBPM = 999.0;     ///< greatest one that a file keeps
    static constexpr double kUnreachedBPM = 1000.0;  ///< every tempo is below
    static constexpr double kMinimalSensibility = 0.0;
    static constexpr double kMaximalSensibility = 1000.0;

    /// Tests of doubles are written so that NaN fails them.
    static bool isTempoRange(double pMinimal, double pMaximal)
    {
        return pMinimal >= kMinimalBPM && pMaximal >= pMinimal && pMaximal < kUnreachedBPM;
    }
    static bool isSensibility(double pSensibility)
    {
        return pSensibility >= kMinimalSensibility && pSensibility <= kMaximalSensibility;
    }
    /// Edges in Hz; less than 1 = none.
    static bool isBand(int pLow, int pHigh) { return pLow < 1 || pHigh < 1 || pLow <= pHigh; }
};
