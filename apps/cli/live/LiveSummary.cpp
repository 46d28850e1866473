// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <cli/live/LiveSummary.h>
#include <shared/capture/CaptureSession.h>

namespace {

constexpr double kSettlingSeconds = 10.0;

}  // namespace

LiveSummary::LiveSummary(CaptureSession& pSession, bool pMeasures)
    : m_session(pSession), m_measures(pMeasures)
{
    using S = CaptureSession;
    connect(&pSession, &S::OnAnalyzerCreated, this, &LiveSummary::_OnAnalyzerCreated);
    connect(&pSession, &S::OnAnchored, this, &LiveSummary::_OnAnchored);
    connect(&m_relay, &BeatRelay::OnBeat, this, &LiveSummary::_OnBeatFound);
}

double LiveSummary::getSeconds() const
{
    return m_clock.isValid() ? double(m_clock.nsecsElapsed()) / 1e9 : 0.0;
}

double LiveSummary::getTempo() const
{
    const double settled = m_settledTempo.getMedian();
    return settled > 0.0 ? settled : m_earlyTempo.getMedian();
}

void LiveSummary::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer)
{
    m_follower.Follow(pAnalyzer);
    connect(pAnalyzer, &AudioAnalyzer::OnBeat, this, &LiveSummary::_OnAnnouncement);
}

void LiveSummary::_OnAnchored()
{
    if (!m_clock.isValid())
        m_clock.start();
    m_follower.Restart();
    m_relay.Restart(m_session.getSampleClock().getSampleRate(), getSeconds());
    m_errors.Interrupt();
}

void LiveSummary::_OnAnnouncement()
{
    if (m_measures)
        m_errors.AddAnnouncement(HighResolutionTimer::getTime());
    Q_EMIT OnBeat();
}

void LiveSummary::_OnBeatFound(const LoggedBeat& pBeat)
{
    ++(pBeat.isVirtual ? m_virtualBeats : m_realBeats);
    if (!pBeat.isVirtual && pBeat.bpm > 0.0)
        (pBeat.time < kSettlingSeconds ? m_earlyTempo : m_settledTempo).Add(pBeat.bpm);
    const quint64 arrival = m_session.getArrivals().getArrival(pBeat.index);
    if (m_measures && !pBeat.isVirtual && arrival != 0)
        m_errors.AddBeat(arrival);
}

#include "moc_LiveSummary.cpp"
