// SPDX-License-Identifier: MIT
#include <shared/clock/RealTimeThread.h>

#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>

namespace shared {

bool becomeRealTimeThread()
{
    // Without real-time priority the system wakes a thread up to 50 µs late to save power, unless
    // it is told not to.
    constexpr unsigned long kNanoSecond = 1;
    prctl(PR_SET_TIMERSLACK, kNanoSecond, 0UL, 0UL, 0UL);
    constexpr int kPriority = 15;
    sched_param parameter = {};
    parameter.sched_priority = kPriority;
    return pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameter) == 0;
}

}  // namespace shared
