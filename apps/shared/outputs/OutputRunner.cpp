// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/clock/RealTimeThread.h>
#include <shared/outputs/OutputRunner.h>

#include <algorithm>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace shared {

OutputRunner::OutputRunner(std::unique_ptr<OutputReceiver> pReceiver,
                           Confidence pConfidence,
                           OutputDelivery::Report pReport)
    : m_pReceiver(std::move(pReceiver)), m_confidence(std::move(pConfidence)),
      m_delivery(*m_pReceiver, std::move(pReport)), m_bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

OutputRunner::~OutputRunner()
{
    Stop();
    ::close(m_bell);
}

void OutputRunner::Start()
{
    m_thread = std::thread([this] { _Run(); });
}

void OutputRunner::Leave()
{
    m_isEnding = true;
    _Ring();
}

void OutputRunner::Stop()
{
    if (!m_thread.joinable())
        return;
    Leave();
    m_thread.join();
}

// ---- The clock's thread -------------------------------------------------------------------------

void OutputRunner::OnTick(const ClockTick& pTick, const BeatClockState& pState)
{
    m_events.Push({true, m_isRunning, pTick, pState, m_confidence(pState)});
    _Ring();
}

void OutputRunner::OnRunningChanged(bool pIsRunning, const BeatClockState& pState)
{
    m_isRunning = pIsRunning;
    m_events.Push({false, pIsRunning, {}, pState, 0.0});
    _Ring();
}

void OutputRunner::Hear(const OutputSound& pSound)
{
    m_sounds.Push(pSound);
    _Ring();
}

void OutputRunner::_Ring() const
{
    eventfd_write(m_bell, 1);
}

// ---- The runner's thread ------------------------------------------------------------------------

void OutputRunner::_Run()
{
    m_isRealTime = becomeRealTimeThread();
    while (!m_isEnding) {
        _DeliverAll();
        _WaitUntil(m_delivery.Step());
    }
    _DeliverAll();
    m_delivery.End();
}

void OutputRunner::_DeliverAll()
{
    OutputEvent event = {};
    while (m_events.Take(event))
        m_delivery.Tell(event);
    OutputSound sound = {};
    while (m_sounds.Take(sound))
        m_delivery.Hear(sound);
    m_crowdedOut += m_events.TakeLost() + m_sounds.TakeLost();
}

void OutputRunner::_WaitUntil(std::int64_t pTime) const
{
    const std::int64_t wait = pTime - ClockThread::getTime();
    pollfd bell = {m_bell, POLLIN, 0};
    ::poll(&bell, 1, int((std::max<std::int64_t>(wait, 0) + 999) / 1000));
    eventfd_t count = 0;
    eventfd_read(m_bell, &count);
}

}  // namespace shared
