// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/ProfileLimits.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace desktop {

/// Why values of a profile are refused, in words; an empty text when they are not.
///
/// What passes here, the profile's setters take and the configuration file keeps.
struct ProfileCheck
{
    Q_DECLARE_TR_FUNCTIONS(ProfileCheck)

public:
    static constexpr int kLongestName = 100;
    static constexpr int kMaximalTempo = int(ProfileLimits::kMaximalBPM);

    /// pTaken: the names of the other profiles.
    static QString Name(const QString& pName, const QStringList& pTaken);
    static QString Tempos(double pMinimum, double pMaximum);  ///< BPM
    static QString Band(int pLow, int pHigh);                 ///< Hz; negative = no edge
    static QString Sensibility(double pSensibility);
};

}  // namespace desktop
