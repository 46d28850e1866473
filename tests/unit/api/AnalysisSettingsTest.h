// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/api/Analysis.h>

#include <QMetaType>

/// None of the built-in ones.
inline AudioAnalysisProfile AnyProfile()
{
    return {60.0, 180.0, 1.25, 40, 200, 20000};
}

inline bool operator==(const AudioAnalysisProfile& pLeft, const AudioAnalysisProfile& pRight)
{
    return pLeft.minimalBPM == pRight.minimalBPM && pLeft.maximalBPM == pRight.maximalBPM &&
           pLeft.sensibility == pRight.sensibility && pLeft.lowFrequency == pRight.lowFrequency &&
           pLeft.highFrequency == pRight.highFrequency &&
           pLeft.maximalThreshold == pRight.maximalThreshold;
}

Q_DECLARE_METATYPE(AudioAnalysisProfile)
