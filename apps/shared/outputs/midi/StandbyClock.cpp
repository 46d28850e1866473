// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/midi/StandbyClock.h>

#include <algorithm>
#include <chrono>

namespace shared {

void StandbyClock::Start(std::int64_t pInterval)
{
    Stop();
    m_hasFailed = false;
    m_isStopping = false;
    m_thread = std::thread([this, pInterval] { _Run(pInterval); });
}

bool StandbyClock::Stop()
{
    if (m_thread.joinable()) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isStopping = true;
        }
        m_change.notify_one();
        m_thread.join();
    }
    return !m_hasFailed.exchange(false);
}

void StandbyClock::_Run(std::int64_t pInterval)
{
    std::int64_t due = ClockThread::getTime() + pInterval;
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isStopping) {
        const std::chrono::microseconds rest(due - ClockThread::getTime());
        if (rest.count() > 0) {
            m_change.wait_for(lock, rest);
            continue;
        }
        // What the machine has slept through is not made up for.
        due = std::max(due, ClockThread::getTime() - pInterval / 2);
        m_hasFailed = !m_port.Send({due, MidiMessage::Clock()});
        if (m_hasFailed)
            return;
        due += pInterval;
    }
}

}  // namespace shared
