// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/hands/Hands.h>

#include <cmath>
#include <utility>

using shared::HandAction;

Hands::Hands(LiveBeats& pBeats, shared::HandMap pMap, QObject* pParent)
    : QObject(pParent), m_beats(pBeats), m_map(std::move(pMap))
{
}

void Hands::Take(const shared::HandMessage& pMessage)
{
    if (m_isLearning) {
        if (pMessage.value > 0.0)
            Q_EMIT OnTouched(pMessage.control);
        return;
    }
    const std::optional<shared::HandCommand> command = m_map.Feel(pMessage);
    if (command)
        Do(*command);
}

void Hands::Do(const shared::HandCommand& pCommand)
{
    _Carry(pCommand);
    if (pCommand.isPressed)
        Q_EMIT OnDone(pCommand.action.getText());
}

void Hands::_Carry(const shared::HandCommand& pCommand)
{
    constexpr double kMicroSeconds = 1000.0;  // a millisecond
    constexpr double kPercent = 100.0;
    BeatClock& clock = m_beats.getClock();
    const std::int64_t now = shared::ClockThread::getTime();
    const double amount = pCommand.action.amount;
    switch (pCommand.action.kind) {
    case HandAction::eTap:
        return m_beats.Tap();
    case HandAction::eOne:
        return clock.MarkOne(now);
    case HandAction::eHalf:
        return void(clock.Scale(1, 2, now));
    case HandAction::eDouble:
        return void(clock.Scale(2, 1, now));
    case HandAction::eHold:
        if (clock.getState().charge == BeatClockCharge_Held)
            return clock.Release(now);
        return void(clock.Hold(now));
    case HandAction::eReset:
        return m_beats.Reset();
    case HandAction::eNudge:
        return clock.Nudge(std::llround(amount * kMicroSeconds), now);
    case HandAction::eBend:
        return void(clock.Bend(pCommand.isPressed ? amount / kPercent : 0.0, now));
    case HandAction::eOffset:
        Q_EMIT OnOffsetWanted(amount);
        return;
    case HandAction::eProfile:
        Q_EMIT OnProfileWanted(pCommand.action.name);
        return;
    }
}

#include "moc_Hands.cpp"
