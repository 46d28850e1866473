// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/web/WebPage.h>
#include <shared/web/detail/WebMessages.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

using shared::detail::WebWish;

WebPage::WebPage(LiveBeats& pBeats, Hands& pHands, const Outputs& pOutputs, QObject* pParent)
    : QObject(pParent), m_beats(pBeats), m_hands(pHands), m_outputs(pOutputs)
{
    WebClients& clients = m_server.getClients();
    connect(&clients, &WebClients::OnJoined, this, &WebPage::_TellAnew);
    connect(&clients, &WebClients::OnWish, this, &WebPage::_Take);
    connect(&m_timer, &QTimer::timeout, this, &WebPage::_Tick);
    m_timer.start(kIntervalMs);
}

void WebPage::setLevel(double pLevel)
{
    m_level = std::max(pLevel, std::exchange(m_levelBefore, pLevel));
}

void WebPage::setChoices(const shared::WebChoices& pChoices)
{
    m_choices = pChoices;
    _TellChoices();
}

void WebPage::_Take(const WebWish& pWish)
{
    if (pWish.kind == WebWish::eAction) {
        m_hands.Do({pWish.action, true});
        return _Tell();
    }
    if (_IsOffered(pWish) && pWish.kind == WebWish::eProfile)
        Q_EMIT OnProfileWanted(pWish.name);
    else if (_IsOffered(pWish))
        Q_EMIT OnInputWanted(pWish.name);
    // Also where that changed nothing, since the browser shows what it wanted.
    m_toldChoices.clear();
    _TellChoices();
}

bool WebPage::_IsOffered(const WebWish& pWish) const
{
    if (pWish.kind == WebWish::eProfile)
        return pWish.name.isEmpty() || m_choices.profiles.contains(pWish.name);
    return std::any_of(m_choices.inputs.begin(), m_choices.inputs.end(), [&](const auto& pInput) {
        return pInput.name == pWish.name;
    });
}

void WebPage::_Tell()
{
    if (m_server.getClients().getCount() == 0)
        return;
    _TellState();
    _TellBeat();
}

void WebPage::_Tick()
{
    if (m_server.getClients().getCount() == 0)
        return;
    m_isStateDue = !m_isStateDue;
    if (m_isStateDue)
        _TellState();
    _TellBeat();
}

/// Each beat once, and again when it has moved.
void WebPage::_TellBeat()
{
    const BeatClockState state = m_beats.getClock().getState();
    if (!state.isRunning())
        return;
    constexpr std::int64_t kLeastMove = 3000;  // µs
    constexpr double kLeastChange = 0.005;     // BPM
    const std::int64_t now = shared::ClockThread::getTime();
    const std::int64_t time = state.getTickTime(state.getNextTick(now));
    if (std::abs(time - m_toldTime) < kLeastMove && std::abs(state.bpm - m_toldBPM) < kLeastChange)
        return;
    m_toldTime = time;
    m_toldBPM = state.bpm;
    m_server.getClients().Say(
        shared::detail::describeWebBeat(state, m_beats.getConfidence(state), now));
}

void WebPage::_TellState()
{
    const BeatClockState state = m_beats.getClock().getState();
    QVector<shared::detail::WebOutput> outputs;
    const QStringList names = m_outputs.getNames();
    for (const QString& name : names)
        outputs.append({name, m_outputs.getState(name), m_outputs.isOpen(name)});
    const QByteArray told =
        shared::detail::describeWebState(state, m_beats.isPlaying(), m_level, outputs);
    if (told == m_toldState)
        return;
    m_toldState = told;
    m_server.getClients().Say(told);
}

void WebPage::_TellChoices()
{
    const QByteArray told = shared::detail::describeWebChoices(m_choices);
    if (m_server.getClients().getCount() == 0 || told == m_toldChoices)
        return;
    m_toldChoices = told;
    m_server.getClients().Say(told);
}

void WebPage::_TellAnew()
{
    m_toldTime = 0;
    m_toldState.clear();
    m_toldChoices.clear();
    _TellChoices();
    _Tell();
}

#include "moc_WebPage.cpp"
