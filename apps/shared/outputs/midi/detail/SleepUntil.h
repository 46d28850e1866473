// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <cstdint>
#include <ctime>

namespace shared::detail {

/// Returns when the instant, µs of ClockThread::getTime(), has come.
inline void SleepUntil(std::int64_t pTime)
{
    timespec instant = {};
    instant.tv_sec = pTime / 1000000;
    instant.tv_nsec = pTime % 1000000 * 1000;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &instant, nullptr) == EINTR) {
    }
}

}  // namespace shared::detail
