// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Puts the wall clock, gettimeofday, of the whole test executable under the test's control.
///
/// Linking aa_test_clock replaces gettimeofday, the shared libraries' calls included. While no
/// FakeClock lives, it answers with the system's time.
class FakeClock
{
public:
    /// From now on gettimeofday reads time, in microseconds since the epoch.
    explicit FakeClock(std::uint64_t time);
    ~FakeClock();
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    void setTime(std::uint64_t time);  ///< µs since the epoch
    void advance(std::uint64_t microseconds);
    /// Every reading moves the clock on by that much, after it has answered.
    void setStep(std::uint64_t microseconds);
    /// How often gettimeofday was called since the construction.
    std::uint64_t getReadings() const;
};
