// SPDX-License-Identifier: MIT
#include "VirtualTime.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
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

/// Waits for files in virtual time, as ppoll does.
int WaitVirtually(pollfd* pFiles, nfds_t pCount, const timespec& pTimeout)
{
    constexpr timespec noTime = {};
    int ready = Poll(pFiles, pCount, &noTime);
    while (ready == 0 && !AreOthersAsleep())
        ready = Poll(pFiles, pCount, &kMoment);
    if (ready == 0)
        passed += pTimeout.tv_sec * kSecond + pTimeout.tv_nsec;
    return ready;
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
