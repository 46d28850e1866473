// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/clock/ClockThread.h>
#include <shared/clock/RealTimeThread.h>

#include <cerrno>
#include <ctime>

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
    m_isRealTime = becomeRealTimeThread();
    while (!m_isStopping) {
        const BeatClockState state = m_clock.getState();
        const std::int64_t now = getTime();
        const auto wallNow = static_cast<std::int64_t>(HighResolutionTimer::getTime());
        SleepUntil(m_outputs.Step(state, now, wallNow));
    }
}

}  // namespace shared
