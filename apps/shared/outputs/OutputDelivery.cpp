// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputDelivery.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace shared {

OutputDelivery::OutputDelivery(OutputReceiver& pReceiver, Report pReport)
    : m_receiver(pReceiver), m_report(std::move(pReport))
{
}

// ---- What is told -------------------------------------------------------------------------------

void OutputDelivery::Tell(const OutputEvent& pEvent)
{
    m_isRunning = pEvent.isRunning;
    m_state = pEvent.state;
    if (!m_isOpen)
        return;
    if (!_TellPlaying())
        return _Fail();
    if (pEvent.isTick && !_IsOld(pEvent.tick.time) && !_TellTick(pEvent))
        _Fail();
}

void OutputDelivery::Hear(const OutputSound& pSound)
{
    if (m_isOpen && !_IsOld(pSound.time) && !m_receiver.Sound(pSound))
        _Fail();
}

/// What happened while the receiver kept this waiting may be over: it stands as the clock does now.
bool OutputDelivery::_TellPlaying()
{
    const bool isAnew = m_isRunning && m_toldRunning == true && m_toldRun != m_state.run;
    if (isAnew && !m_receiver.Playing(false, m_state))
        return false;
    const bool isTold = m_toldRunning == m_isRunning && !isAnew;
    m_toldRunning = m_isRunning;
    m_toldRun = m_state.run;
    return isTold || m_receiver.Playing(m_isRunning, m_state);
}

bool OutputDelivery::_TellTick(const OutputEvent& pEvent)
{
    OutputMoment moment = {pEvent.tick, pEvent.state, pEvent.confidence, false};
    if (pEvent.tick.place != 0)
        return m_receiver.Tick(moment);
    const double bpm = pEvent.state.bpm;
    moment.isTempoNew = std::abs(bpm - m_toldBPM) >= kLeastTempoChange;
    if (moment.isTempoNew) {
        m_toldBPM = bpm;
        if (!m_receiver.Tempo(bpm))
            return false;
    }
    return m_receiver.Beat(moment);
}

bool OutputDelivery::_IsOld(std::int64_t pTime)
{
    const bool isOld = ClockThread::getTime() - pTime > kOldest;
    if (isOld)
        ++m_lost;
    return isOld;
}

// ---- Whether it is there ------------------------------------------------------------------------

std::int64_t OutputDelivery::Step()
{
    if (!m_isOpen && ClockThread::getTime() >= m_attemptTime)
        _Open();
    if (m_isOpen && ClockThread::getTime() >= m_restTime) {
        m_restTime = ClockThread::getTime() + kRestInterval;
        if (m_receiver.Rest())
            _Say(m_receiver.getState());
        else
            _Fail();
    }
    return m_isOpen ? m_restTime : m_attemptTime;
}

void OutputDelivery::End()
{
    if (m_isOpen.exchange(false))
        m_receiver.Close();
}

void OutputDelivery::_Open()
{
    m_isOpen = m_receiver.Open();
    _Say(m_receiver.getState());
    if (!m_isOpen)
        return _Pause();
    m_openTime = ClockThread::getTime();
    m_restTime = m_openTime + kRestInterval;
    m_toldRunning.reset();
    m_toldBPM = 0.0;
    if (!_TellPlaying())
        _Fail();
}

void OutputDelivery::_Fail()
{
    const QString words = m_receiver.getState();
    End();
    _Say(words);
    // One that lets itself be opened, and fails at once, is not worth more attempts than another.
    if (ClockThread::getTime() - m_openTime >= kLongestPause)
        m_pause = kShortestPause;
    _Pause();
}

void OutputDelivery::_Pause()
{
    m_attemptTime = ClockThread::getTime() + m_pause;
    m_pause = std::min(2 * m_pause, kLongestPause);
}

void OutputDelivery::_Say(const QString& pWords)
{
    if (pWords == m_said)
        return;
    m_said = pWords;
    m_report(pWords);
}

}  // namespace shared
