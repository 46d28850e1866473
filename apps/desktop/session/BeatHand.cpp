// SPDX-License-Identifier: MIT
#include <desktop/session/BeatHand.h>

#include <cstdint>

using shared::ClockThread;

BeatHand::BeatHand(LiveBeats& pBeats, QObject* pParent) : QObject(pParent), m_beats(pBeats) {}

void BeatHand::Tap()
{
    m_beats.Tap();
    if (m_isLocking && _Clock().getState().charge == BeatClockCharge_Hand)
        _Clock().Hold(ClockThread::getTime());
    _Acted();
}

void BeatHand::Scale(int pNumerator, int pDenominator)
{
    _Clock().Scale(pNumerator, pDenominator, ClockThread::getTime());
    _Acted();
}

void BeatHand::Round()
{
    _Clock().Round(ClockThread::getTime());
    _Acted();
}

void BeatHand::MarkOne()
{
    _Clock().MarkOne(ClockThread::getTime());
    _Acted();
}

void BeatHand::Nudge(int pMs)
{
    _Clock().Nudge(std::int64_t(pMs) * 1000, ClockThread::getTime());
    _Acted();
}

void BeatHand::Hold()
{
    _Clock().Hold(ClockThread::getTime());
    _Acted();
}

void BeatHand::HoldAt(double pBPM)
{
    _Clock().HoldAt(pBPM, ClockThread::getTime());
    _Acted();
}

void BeatHand::Release()
{
    _Clock().Release(ClockThread::getTime());
    _Acted();
}

void BeatHand::Reset()
{
    m_beats.Reset();
    _Acted();
}

void BeatHand::_Acted()
{
    const BeatClockState state = _Clock().getState();
    const double held = state.charge == BeatClockCharge_Held ? state.bpm : 0.0;
    if (held != m_heldTempo) {
        m_heldTempo = held;
        Q_EMIT OnHeldTempoChanged(held);
    }
    Q_EMIT OnActed();
}

#include "moc_BeatHand.cpp"
