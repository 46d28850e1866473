// SPDX-License-Identifier: MIT
#include <shared/clock/ClockOutputs.h>

#include <algorithm>

namespace shared {

namespace {

/// A tick as a listener gets it. Rounded down also below 0.
ClockTick TickOf(const BeatCursor& pCursor, const BeatClockState& pState)
{
    const std::int64_t number = pCursor.getTick();
    const std::int64_t rest = number % pCursor.getDivision();
    const std::int64_t place = rest < 0 ? rest + pCursor.getDivision() : rest;
    const std::int64_t beat = (number - place) / pCursor.getDivision();
    return {number,
            beat,
            static_cast<std::int32_t>(place),
            pState.getBeatInBar(beat),
            pCursor.getTickTime(),
            0,
            0};
}

}  // namespace

void ClockOutputs::Add(ClockListener& pListener, std::int32_t pDivision, std::int64_t pOffset)
{
    m_outputs.push_back(std::make_unique<Output>(pListener, pDivision, pOffset));
}

bool ClockOutputs::Remove(const ClockListener& pListener)
{
    const auto last = std::remove_if(m_outputs.begin(), m_outputs.end(), [&](const auto& pOutput) {
        return &pOutput->listener == &pListener;
    });
    const bool isFound = last != m_outputs.end();
    m_outputs.erase(last, m_outputs.end());
    return isFound;
}

void ClockOutputs::setOffset(const ClockListener& pListener, std::int64_t pOffset)
{
    for (const auto& pOutput : m_outputs)
        if (&pOutput->listener == &pListener)
            pOutput->offset = pOffset;
}

void ClockOutputs::Leave()
{
    for (const auto& pOutput : m_outputs)
        pOutput->isJoined = false;
}

std::int64_t
ClockOutputs::Step(const BeatClockState& pState, std::int64_t pNow, std::int64_t pWallNow)
{
    std::int64_t next = pNow + kLongestRest;
    for (const auto& pOutput : m_outputs) {
        pOutput->cursor.setOffset(pOutput->offset);
        _Tell(*pOutput, pState, pNow, pWallNow);
        next = std::min(next, pOutput->cursor.getTime(pState));
    }
    return next;
}

void ClockOutputs::_Tell(Output& pOutput,
                         const BeatClockState& pState,
                         std::int64_t pNow,
                         std::int64_t pWallNow)
{
    if (!pOutput.isJoined)
        pOutput.cursor.Join(pState, pNow);
    pOutput.isJoined = true;
    _TellBeginning(pOutput, pState);
    _LoseOld(pOutput, pState, pNow);
    while (pOutput.cursor.Take(pState, pNow)) {
        ClockTick tick = TickOf(pOutput.cursor, pState);
        tick.lateness = pNow - tick.time;
        tick.wallTime = pWallNow - tick.lateness;
        pOutput.listener.OnTick(tick, pState);
    }
    // An output that is late still has ticks to come when the clock has stopped.
    if (pOutput.isRunning && pOutput.cursor.getTime(pState) == BEATCLOCK_NEVER) {
        pOutput.isRunning = false;
        pOutput.listener.OnRunningChanged(false, pState);
    }
}

/// Between two steps the clock may have stopped and begun anew.
void ClockOutputs::_TellBeginning(Output& pOutput, const BeatClockState& pState)
{
    const bool isRunning = pOutput.cursor.getTime(pState) != BEATCLOCK_NEVER;
    if (!isRunning || (pOutput.isRunning && pOutput.run == pState.run))
        return;
    if (pOutput.isRunning)
        pOutput.listener.OnRunningChanged(false, pState);
    pOutput.isRunning = true;
    pOutput.run = pState.run;
    pOutput.listener.OnRunningChanged(true, pState);
}

/// The machine slept, or the process was stopped: nobody wants these ticks any more.
void ClockOutputs::_LoseOld(Output& pOutput, const BeatClockState& pState, std::int64_t pNow)
{
    while (pOutput.cursor.getTime(pState) < pNow - kOldest && pOutput.cursor.Take(pState, pNow))
        ++m_lostCount;
}

}  // namespace shared
