// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/Console.h>
#include <cli/live/ListenCommand.h>
#include <cli/live/ListenHands.h>
#include <cli/live/ListenOutputs.h>
#include <cli/live/ListenTexts.h>
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <shared/capture/InputDevices.h>
#include <shared/capture/SoundBackEnd.h>
#include <shared/play/FilePlayer.h>

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

// What is listened to: a device, or a file.

namespace {

QStringList NamesOf(const std::vector<InputDevice>& pDevices)
{
    QStringList names;
    for (const InputDevice& device : pDevices)
        names.append(device.name);
    return names;
}

QString DefaultOf(const std::vector<InputDevice>& pDevices)
{
    const auto found = std::find_if(
        pDevices.begin(), pDevices.end(), [](const auto& pDevice) { return pDevice.isDefault; });
    return found != pDevices.end() ? found->name : pDevices.front().name;
}

}  // namespace

/// The name of a device that is present; empty, and said in words, when there is none to listen to.
QString ListenCommand::_ChooseDevice()
{
    const std::vector<InputDevice> devices = listInputDevices();
    const QStringList names = NamesOf(devices);
    m_followsDefault =
        m_options.device == kDefaultInput && !names.isEmpty() && !names.contains(kDefaultInput);
    if (m_followsDefault)
        return DefaultOf(devices);
    if (!m_options.device.isEmpty()) {
        if (names.contains(m_options.device))
            return m_options.device;
        console::PrintError(listentexts::describeUnknownDevice(m_options.device, names));
        return {};
    }
    if (names.isEmpty()) {
        console::PrintError(listentexts::describeNoDevice());
        return {};
    }
    const QString stored = m_store.getDeviceName();
    if (names.contains(stored))
        return stored;
    const QString other = DefaultOf(devices);
    if (!stored.isEmpty())
        _Say(tr("the stored device \"%1\" is not there; taking \"%2\"").arg(stored, other));
    return other;
}

/// Makes the source, and returns what opens it.
std::function<void()> ListenCommand::_MakeSource(const QString& pInput)
{
    if (m_options.file.isEmpty()) {
        _MakeCapture();
        return [this, pInput] { m_pCapture->Open(pInput); };
    }
    auto player = std::make_unique<FilePlayer>(m_store.getConfiguration());
    FilePlayer* pPlayer = player.get();
    if (m_options.isHeard)
        _MakeHeard(*pPlayer);
    m_source = std::move(player);
    return [pPlayer, pInput] { pPlayer->Open(pInput, false); };
}

void ListenCommand::_MakeHeard(FilePlayer& pPlayer)
{
    pPlayer.WantSound();
    QObject::connect(&pPlayer, &LiveSource::OnSourceChanged, [this] {
        _Say(listentexts::describeSound(m_source->getSource()));
    });
}

void ListenCommand::_MakeCapture()
{
    if (!SoundBackEnd::get())
        _Say(listentexts::describeNoServer());
    auto capture = std::make_unique<CaptureSession>(m_store.getConfiguration());
    m_pCapture = capture.get();
    if (m_followsDefault)
        m_pCapture->FollowDefault();
    QObject::connect(m_pCapture, &CaptureSession::OnStateChanged, [this](eCaptureState pState) {
        _OnStateChanged(pState);
    });
    m_source = std::move(capture);
}

/// What was asked for at the start is not the user's wish any more.
void ListenCommand::_ChangeInput(const QString& pName)
{
    const std::vector<InputDevice> devices = listInputNames();
    if (devices.empty())
        return;
    m_isChanged = true;
    m_followsDefault = pName == kDefaultInput && !NamesOf(devices).contains(kDefaultInput);
    m_pCapture->FollowDefault(m_followsDefault);
    m_pCapture->Switch(m_followsDefault ? DefaultOf(devices) : pName);
}

void ListenCommand::_ConnectSource()
{
    LiveSource* pSource = m_source.get();
    using S = LiveSource;
    QObject::connect(
        pSource,
        &S::OnAnalyzerCreated,
        [this](AudioAnalyzer* pAnalyzer) { _OnAnalyzerCreated(pAnalyzer); });
    QObject::connect(
        pSource,
        &S::OnNotice,
        [this](eCaptureNotice pNotice) {
            _Say(listentexts::describeNotice(
                m_source->getSource(),
                pNotice,
                m_beats.isAutomatic(),
                m_store.getConfiguration().getStopDetectionThreshold()));
        });
    QObject::connect(pSource, &S::OnEnded, [this](const QString& pError) { _OnEnded(pError); });
}
