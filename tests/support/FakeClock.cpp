// SPDX-License-Identifier: MIT
#include "FakeClock.h"

#include <ctime>
#include <sys/time.h>

namespace {

constexpr std::uint64_t microsecondsPerSecond = 1000000;

bool isFake = false;
std::uint64_t now = 0;
std::uint64_t step = 0;
std::uint64_t readings = 0;

std::uint64_t readSystemClock()
{
    timespec time = {};
    clock_gettime(CLOCK_REALTIME, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * microsecondsPerSecond +
           static_cast<std::uint64_t>(time.tv_nsec) / 1000;
}

std::uint64_t readFakeClock()
{
    const std::uint64_t reading = now;
    now += step;
    ++readings;
    return reading;
}

}  // namespace

FakeClock::FakeClock(std::uint64_t time)
{
    now = time;
    step = 0;
    readings = 0;
    isFake = true;
}

FakeClock::~FakeClock()
{
    isFake = false;
}

void FakeClock::setTime(std::uint64_t time)
{
    now = time;
}

void FakeClock::advance(std::uint64_t microseconds)
{
    now += microseconds;
}

void FakeClock::setStep(std::uint64_t microseconds)
{
    step = microseconds;
}

std::uint64_t FakeClock::getReadings() const
{
    return readings;
}

extern "C" __attribute__((visibility("default"))) int gettimeofday(timeval* pTime, void*) noexcept
{
    const std::uint64_t time = isFake ? readFakeClock() : readSystemClock();
    pTime->tv_sec = static_cast<time_t>(time / microsecondsPerSecond);
    pTime->tv_usec = static_cast<suseconds_t>(time % microsecondsPerSecond);
    return 0;
}
