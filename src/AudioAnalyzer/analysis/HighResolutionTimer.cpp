// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/analysis/detail/Durations.h>

#include <sys/time.h>

namespace {

using detail::kMicroSecondsPerSecond;

quint64 ReadWallClock()
{
    timeval now;
    gettimeofday(&now, nullptr);
    return static_cast<quint64>(now.tv_sec) * kMicroSecondsPerSecond +
           static_cast<quint64>(now.tv_usec);
}

}  // namespace

quint64 HighResolutionTimer::getTime()
{
    const HighResolutionTimerOverride* pOverride = HighResolutionTimerOverride::getCurrent();
    return pOverride ? pOverride->getTime() : ReadWallClock();
}

HighResolutionTimer::HighResolutionTimer() : m_startTime(getTime()) {}

HighResolutionTimer::HighResolutionTimer(const HighResolutionTimer& pOther) = default;

HighResolutionTimer& HighResolutionTimer::operator=(const HighResolutionTimer& pOther) = default;

void HighResolutionTimer::Reset()
{
    m_startTime = getTime();
}

quint64 HighResolutionTimer::getElapsedMicroSeconds() const
{
    return getTime() - m_startTime;
}

double HighResolutionTimer::getElapsedMilliSeconds() const
{
    return static_cast<double>(getElapsedMicroSeconds()) / 1000.0;
}

double HighResolutionTimer::getElapsedSeconds() const
{
    return static_cast<double>(getElapsedMicroSeconds()) / 1000000.0;
}
