// SPDX-License-Identifier: MIT
#pragma once

#include "PushedAnalysis.h"

/// Music that is pushed, and what is told of it.
namespace pushed {

constexpr int kRate = 44100;
constexpr std::size_t kBlock = 1024;

inline waves::Samples Music(double pSeconds = 12.0)
{
    return waves::kickTrack(pSeconds, kRate, 125.0);
}

inline QStringList EventsOf(const waves::Samples& pSamples)
{
    PushedAnalysis analysis;
    analysis.push(pSamples);
    analysis.finish();
    return analysis.getEvents();
}

/// Of Music(), in one portion.
inline const QStringList& EventsOfMusic()
{
    static const QStringList events = EventsOf(Music());
    return events;
}

}  // namespace pushed
