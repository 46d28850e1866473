// SPDX-License-Identifier: MIT
#include "VirtualTime.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <linux/futex.h>
#include <poll.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#define TEST_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

using Ns = std::int64_t;

constexpr Ns kSecond = 1000000000;
constexpr Ns kMillisecond = 1000000;
constexpr timespec kMoment = {0, kMillisecond};

std::atomic<bool> isVirtual{false};
std::atomic<Ns> passed{0};  // since the construction
timespec monotonicStart = {};
timespec realStart = {};
thread_local bool isDriver = false;

/// A thread that sleeps until an instant of the virtual clock.
struct Sleeper
{
    std::atomic<bool> isTaken{false};
    std::atomic<int> isWaiting{0};  // what the kernel wakes it by
    std::atomic<Ns> wakeTime{0};    // since the construction
};
std::array<Sleeper, 16> sleepers;

/// The system calls themselves, since the C library's functions are the ones replaced here.
int ReadClock(clockid_t pClock, timespec* pTime)
{
    return int(syscall(SYS_clock_gettime, pClock, pTime));
}

int Poll(pollfd* pFiles, nfds_t pCount, const timespec* pTimeout, const sigset_t* pMask = nullptr)
{
    timespec timeout = {};
    if (pTimeout != nullptr)
        timeout = *pTimeout;  // the kernel writes the rest into it
    return int(syscall(SYS_ppoll,
                       pFiles,
                       pCount,
                       pTimeout == nullptr ? nullptr : &timeout,
                       pMask,
                       std::size_t{8}));
}

void Add(timespec& pTime, Ns pDuration)
{
    const Ns nanoseconds = pTime.tv_nsec + pDuration;
    pTime.tv_sec += nanoseconds / kSecond;
    pTime.tv_nsec = nanoseconds % kSecond;
}

/// Whether a thread sleeps, by the letter that follows its name in parentheses.
bool IsAsleep(long pTask)
{
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/task/%ld/stat", pTask);
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return true;  // it has just ended
    char text[128] = {};
    const ssize_t size = read(file, text, sizeof text - 1);
    close(file);
    const char* pName = size > 0 ? std::strrchr(text, ')') : nullptr;
    return pName == nullptr || pName[2] == 'S' || pName[2] == 'Z' || pName[2] == 'X';
}

bool AreOthersAsleep()
{
    DIR* pTasks = opendir("/proc/self/task");
    if (pTasks == nullptr)
        std::abort();
    const long self = syscall(SYS_gettid);
    bool areAsleep = true;
    while (const dirent* pTask = readdir(pTasks)) {
        const long task = std::strtol(pTask->d_name, nullptr, 10);
        areAsleep = areAsleep && (task == 0 || task == self || IsAsleep(task));
    }
    closedir(pTasks);
    return areAsleep;
}

bool DrivesTime()
{
    return isDriver && isVirtual;
}

long Futex(Sleeper& pSleeper, int pOperation, int pValue)
{
    return syscall(SYS_futex, &pSleeper.isWaiting, pOperation, pValue, nullptr, nullptr, 0);
}

void Wake(Sleeper& pSleeper)
{
    pSleeper.isWaiting = 0;
    Futex(pSleeper, FUTEX_WAKE_PRIVATE, INT_MAX);
}

/// The one that is to wake first, at pEnd at the latest; null when none is.
Sleeper* FirstSleeper(Ns pEnd)
{
    Sleeper* pFirst = nullptr;
    for (Sleeper& sleeper : sleepers)
        if (sleeper.isWaiting == 1 && sleeper.wakeTime <= pEnd &&
            (pFirst == nullptr || sleeper.wakeTime < pFirst->wakeTime))
            pFirst = &sleeper;
    return pFirst;
}

/// Of a thread that does not drive the time; the driver passes the instant, and wakes it.
void SleepVirtually(Ns pWakeTime)
{
    for (Sleeper& sleeper : sleepers) {
        if (sleeper.isTaken.exchange(true))
            continue;
        sleeper.wakeTime = pWakeTime;
        sleeper.isWaiting = pWakeTime > passed && isVirtual ? 1 : 0;
        while (sleeper.isWaiting == 1)
            Futex(sleeper, FUTEX_WAIT_PRIVATE, 1);
        sleeper.isTaken = false;
        return;
    }
    std::abort();
}

/// Waits for files in virtual time, as ppoll does.
int WaitVirtually(pollfd* pFiles, nfds_t pCount, const timespec& pTimeout)
{
    constexpr timespec noTime = {};
    const Ns end = passed + pTimeout.tv_sec * kSecond + pTimeout.tv_nsec;
    for (;;) {
        int ready = Poll(pFiles, pCount, &noTime);
        while (ready == 0 && !AreOthersAsleep())
            ready = Poll(pFiles, pCount, &kMoment);
        if (ready != 0)
            return ready;
        Sleeper* pSleeper = FirstSleeper(end);
        passed = pSleeper == nullptr ? end : std::max<Ns>(passed, pSleeper->wakeTime);
        if (pSleeper == nullptr)
            return 0;
        Wake(*pSleeper);
    }
}

/// Passes the instant of the thread that is to wake first, if all sleep.
void PassNextInstant()
{
    Sleeper* pSleeper = AreOthersAsleep() ? FirstSleeper(std::numeric_limits<Ns>::max()) : nullptr;
    if (pSleeper == nullptr)
        return;
    passed = std::max<Ns>(passed, pSleeper->wakeTime);
    Wake(*pSleeper);
}

Ns SinceStart(const timespec& pTime, const timespec& pStart)
{
    return (pTime.tv_sec - pStart.tv_sec) * kSecond + pTime.tv_nsec - pStart.tv_nsec;
}

}  // namespace

VirtualTime::VirtualTime()
{
    ReadClock(CLOCK_MONOTONIC, &monotonicStart);
    ReadClock(CLOCK_REALTIME, &realStart);
    passed = 0;
    isDriver = true;
    isVirtual = true;
}

VirtualTime::~VirtualTime()
{
    isVirtual = false;
    isDriver = false;
    for (Sleeper& sleeper : sleepers)
        Wake(sleeper);
}

TEST_EXPORT int clock_gettime(clockid_t pClock, timespec* pTime) noexcept
{
    const bool isReal = pClock == CLOCK_REALTIME || pClock == CLOCK_REALTIME_COARSE;
    const bool isMonotonic = pClock == CLOCK_MONOTONIC || pClock == CLOCK_MONOTONIC_COARSE ||
                             pClock == CLOCK_MONOTONIC_RAW || pClock == CLOCK_BOOTTIME;
    if (!isVirtual || !(isReal || isMonotonic))
        return ReadClock(pClock, pTime);
    *pTime = isReal ? realStart : monotonicStart;
    Add(*pTime, passed);
    return 0;
}

TEST_EXPORT int
ppoll(pollfd* pFiles, nfds_t pCount, const timespec* pTimeout, const sigset_t* pMask)
{
    if (!DrivesTime() || pTimeout == nullptr)
        return Poll(pFiles, pCount, pTimeout, pMask);
    return WaitVirtually(pFiles, pCount, *pTimeout);
}

TEST_EXPORT int poll(pollfd* pFiles, nfds_t pCount, int pTimeoutMs)
{
    if (pTimeoutMs < 0)
        return Poll(pFiles, pCount, nullptr);
    const timespec timeout = {pTimeoutMs / 1000, pTimeoutMs % 1000 * kMillisecond};
    return ppoll(pFiles, pCount, &timeout, nullptr);
}

TEST_EXPORT int nanosleep(const timespec* pDuration, timespec* pRest)
{
    if (!DrivesTime())
        return int(syscall(SYS_nanosleep, pDuration, pRest));
    WaitVirtually(nullptr, 0, *pDuration);
    return 0;
}

TEST_EXPORT int
clock_nanosleep(clockid_t pClock, int pFlags, const timespec* pTime, timespec* pRest)
{
    if (!isVirtual || pFlags != TIMER_ABSTIME || pClock != CLOCK_MONOTONIC) {
        const long result = syscall(SYS_clock_nanosleep, pClock, pFlags, pTime, pRest);
        return result == 0 ? 0 : errno;
    }
    const Ns wakeTime = SinceStart(*pTime, monotonicStart);
    if (!isDriver)
        SleepVirtually(wakeTime);
    else if (wakeTime > passed)
        WaitVirtually(nullptr, 0, {0, wakeTime - passed});
    return 0;
}

/// What is waited for may sleep: then the time passes.
TEST_EXPORT int pthread_join(pthread_t pThread, void** pResult)
{
    if (!DrivesTime())
        return pthread_clockjoin_np(pThread, pResult, CLOCK_REALTIME, nullptr);
    for (;;) {
        const int result = pthread_tryjoin_np(pThread, pResult);
        if (result != EBUSY)
            return result;
        PassNextInstant();
        Poll(nullptr, 0, &kMoment);
    }
}
