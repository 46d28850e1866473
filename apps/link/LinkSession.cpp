// SPDX-License-Identifier: MIT
#include <link/LinkSession.h>

// The only file that includes this large header. With it the program is under the GPL as a whole.
#include <ableton/Link.hpp>
#include <chrono>
#include <cmath>

namespace {

std::chrono::microseconds InstantOf(const ableton::Link& pLink, double pAge)
{
    return pLink.clock().micros() - std::chrono::microseconds(std::llround(pAge * 1e6));
}

}  // namespace

LinkSession::LinkSession(double pBPM) : m_pLink(std::make_unique<ableton::Link>(pBPM))
{
    m_pLink->enable(true);
}

LinkSession::~LinkSession() = default;

LinkView LinkSession::Look(double pAge, int pQuantum) const
{
    const auto state = m_pLink->captureAppSessionState();
    return {
        m_pLink->numPeers(), state.tempo(), state.phaseAtTime(InstantOf(*m_pLink, pAge), pQuantum)};
}

void LinkSession::Commit(const LinkChange& pChange, double pAge, int pQuantum)
{
    if (pChange.isNone())
        return;
    auto state = m_pLink->captureAppSessionState();
    if (pChange.bpm > 0.0)
        state.setTempo(pChange.bpm, InstantOf(*m_pLink, 0.0));
    const auto instant = InstantOf(*m_pLink, pAge);
    if (pChange.phase == LinkChange::eRequest)
        state.requestBeatAtTime(pChange.beat, instant, pQuantum);
    else if (pChange.phase == LinkChange::eForce)
        state.forceBeatAtTime(pChange.beat, instant, pQuantum);
    m_pLink->commitAppSessionState(state);
}
