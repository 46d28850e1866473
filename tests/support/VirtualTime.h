// SPDX-License-Identifier: MIT
#pragma once

/// Time that passes only where the thread that made it waits, and then at once.
///
/// While it lives, the clocks of the whole process stand still and are moved by that thread's waits
/// alone, those of its event loop included: instead of waiting it goes on, once every other thread
/// sleeps. A thread that sleeps until an instant of the monotonic clock (clock_nanosleep) is woken
/// when that instant is passed. So a test of timers takes no time, and gives the same on a busy
/// machine. Other processes do not live in that time: whoever waits for one waits in vain.
///
/// Linking aa_test_clock replaces the functions of the C library, the shared libraries' calls
/// included. While no VirtualTime lives, they do what they always do.
class VirtualTime
{
public:
    VirtualTime();
    ~VirtualTime();
    VirtualTime(const VirtualTime&) = delete;
    VirtualTime& operator=(const VirtualTime&) = delete;
};

/// For AA_TEST: an application that lives in virtual time.
template <typename Application>
struct InVirtualTime
{
    InVirtualTime(int& pCount, char** pArguments) : application(pCount, pArguments) {}

    VirtualTime time;
    Application application;
};
