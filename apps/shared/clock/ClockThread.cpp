// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/clock/ClockThread.h>

#include <cerrno>
#include <ctime>
#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>

namespace shared {

namespace {

constexpr std::int64_t kMicroSecondsPerSecond = 1000000;

void SleepUntil(std::int64_t pTime)
{
    timespec instant = {};
    instant.tv_sec = pTime / kMicroSecondsPerSecond;
    instant.tv_nsec = pTime % kMicroSecondsPerSecond * 1000;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &instant, nullptr) == EINTR) {
    }
}

/// Above what plays and records at the usual priorities of a desktop, below the kernel's own.
bool TakeRealTimePriority()
{
    constexpr int kPriority = 15;
    sched_param parameter = {};
    parameter.sched_priority = kPriority;
    return pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameter) == 0;
}

/// Without real-time priority the system wakes a thread up to 50 µs late to save power, unless it
/// is told not to.
void WakeInTime()
{
    constexpr unsigned long kNanoSecond = 1;
    prctl(PR_SET_TIMERSLACK, kNanoSecond, 0UL, 0UL, 0UL);
}

}  // namespace

std::int64_t ClockThread::getTime()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t(now.tv_sec) * kMicroSecondsPerSecond + now.tv_nsec / 1000;
}

void ClockThread::Add(ClockListener& pListener, std::int32_t pDivision, std::int64_t pOffset)
{
    const bool wasStarted = isStarted();
    Stop();
    m_outputs.Add(pListener, pDivision, pOffset);
    if (wasStarted)
        _Begin();
}

void ClockThread::Remove(const ClockListener& pListener)
{
    const bool wasStarted = isStarted();
    Stop();
    m_outputs.Remove(pListener);
    if (wasStarted)
        _Begin();
}

void ClockThread::setOffset(const ClockListener& pListener, std::int64_t pOffset)
{
    m_outputs.setOffset(pListener, pOffset);
}

void ClockThread::Start()
{
    if (isStarted())
        return;
    m_outputs.Leave();
    _Begin();
}

void ClockThread::Stop()
{
    if (!isStarted())
        return;
    m_isStopping = true;
    m_thread.join();
    m_isRealTime = false;
}

void ClockThread::_Begin()
{
    m_isStopping = false;
    m_thread = std::thread([this] { _Run(); });
}

void ClockThread::_Run()
{
    m_isRealTime = TakeRealTimePriority();
    WakeInTime();
    while (!m_isStopping) {
        const BeatClockState state = m_clock.getState();
        const std::int64_t now = getTime();
        const auto wallNow = static_cast<std::int64_t>(HighResolutionTimer::getTime());
        SleepUntil(m_outputs.Step(state, now, wallNow));
    }
}

}  // namespace shared
