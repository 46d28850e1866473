// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/live/ListenCommand.h>
#include <cli/live/ListenHands.h>
#include <cli/live/ListenOutputs.h>
#include <cli/live/ListenWeb.h>
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <shared/capture/InputDevices.h>

// The page.

void ListenCommand::_SetUpWeb()
{
    if (!m_options.web)
        return;
    ListenWeb::Host host = {
        [this](const QString& pWords) { _Say(pWords); },
        [this] { return m_followsDefault ? kDefaultInput : m_source->getSource().name; },
        nullptr};
    if (m_pCapture)
        host.changeInput = [this](const QString& pName) { _ChangeInput(pName); };
    m_web = std::make_unique<ListenWeb>(
        m_beats, m_hands->getHands(), m_outputs->getOutputs(), m_store.getConfiguration(), host);
    WebServer& server = m_web->getPage().getServer();
    // Without the link there is no way in, however quiet it is to be.
    if (server.Open(m_options.web->address, m_options.web->port))
        _Tell(tr("the page: %1").arg(server.getLink()));
    else
        console::PrintError(
            tr("the page at port %1: %2").arg(m_options.web->port).arg(server.getError()));
}
