// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <cli/live/ListenWeb.h>
#include <shared/capture/InputDevices.h>

#include <algorithm>
#include <utility>

using shared::WebInput;

namespace {

WebInput OfferOf(const InputDevice& pDevice)
{
    return {pDevice.name,
            pDevice.source ? pDevice.source->description : QString(),
            pDevice.isMonitor()};
}

/// Two that are described alike are told apart by their names.
void TellApart(std::vector<WebInput>& pInputs)
{
    const std::vector<WebInput> all = pInputs;
    for (WebInput& input : pInputs) {
        const auto isAlike = [&](const WebInput& p) { return p.description == input.description; };
        if (!input.description.isEmpty() && std::count_if(all.begin(), all.end(), isAlike) > 1)
            input.description += QStringLiteral(", ") + input.name;
    }
}

}  // namespace

ListenWeb::ListenWeb(LiveBeats& pBeats,
                     Hands& pHands,
                     const Outputs& pOutputs,
                     Configuration& pConfiguration,
                     Host pHost)
    : m_host(std::move(pHost)), m_profiles(pConfiguration, pBeats), m_page(pBeats, pHands, pOutputs)
{
    using P = WebPage;
    QObject::connect(
        &m_page, &P::OnProfileWanted, [this](const QString& pName) { _ChooseProfile(pName); });
    QObject::connect(
        &m_page, &P::OnInputWanted, [this](const QString& pName) { _ChooseInput(pName); });
    QObject::connect(
        &m_page.getServer().getClients(), &WebClients::OnJoined, &m_look, [this] { _Look(); });
    QObject::connect(
        QtAudioInputDevicesManager::GetInstance(),
        &QtAudioInputDevicesManager::OnModified,
        &m_look,
        [this] { m_isListOld = true; });
    QObject::connect(&m_look, &QTimer::timeout, [this] { _Look(); });
    m_look.start(kLookMs);
}

/// Nobody else needs to know.
void ListenWeb::_Look()
{
    if (m_page.getServer().getClients().getCount() == 0)
        return;
    if (m_host.changeInput)
        _FindInputs();
    m_page.setChoices({m_profiles.FindNames(), m_profiles.getName(), m_inputs, m_host.getInput()});
}

/// Qt's own plugins take their time for a list, and what they know changes with the watcher's
/// alone.
void ListenWeb::_FindInputs()
{
    if (!SoundBackEnd::get() && !std::exchange(m_isListOld, false))
        return;
    m_inputs.clear();
    WebInput byDefault = {kDefaultInput};
    for (const InputDevice& device : listInputNames()) {
        m_inputs.push_back(OfferOf(device));
        if (device.isDefault)
            byDefault.description = m_inputs.back().description;
    }
    TellApart(m_inputs);
    m_inputs.insert(m_inputs.begin(), byDefault);
}

void ListenWeb::_ChooseProfile(const QString& pName)
{
    if (m_profiles.Choose(pName))
        m_host.say(pName.isEmpty() ? tr("the automatic tracker") : tr("profile %1").arg(pName));
    _Look();
}

void ListenWeb::_ChooseInput(const QString& pName)
{
    m_host.changeInput(pName);
    _Look();
}
