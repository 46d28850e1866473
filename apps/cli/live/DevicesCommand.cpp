// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/live/DevicesCommand.h>
#include <cli/live/ListenTexts.h>
#include <shared/capture/InputDevices.h>
#include <shared/capture/SoundBackEnd.h>

#include <QStringList>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int kWatchMs = 50;

}  // namespace

DevicesCommand::DevicesCommand(const DevicesOptions& pOptions) : m_options(pOptions) {}

int DevicesCommand::Run()
{
    if (!SoundBackEnd::get())
        console::PrintLine(listentexts::describeNoServer());
    m_output.Open(QStringLiteral("-"));
    // First, so that nothing that changes while the devices are listed is missed.
    QtAudioInputDevicesManager::GetInstance();
    _List();
    if (m_options.isWatching)
        _Watch();
    const int exitCode = m_output.Conclude();
    const SoundBackEnd* pBackEnd = SoundBackEnd::get();
    return exitCode == eExitDone && pBackEnd && !pBackEnd->isAnswering() ? eExitFailed : exitCode;
}

void DevicesCommand::_List()
{
    const std::vector<InputDevice> devices = listInputDevices();
    int width = 0;
    for (const InputDevice& device : devices)
        width = std::max(width, device.name.size());
    for (const InputDevice& device : devices)
        _Write(_Describe(device, width));
    if (devices.empty())
        console::PrintLine(listentexts::describeNoDevice());
}

void DevicesCommand::_Watch()
{
    using M = QtAudioInputDevicesManager;
    M* pWatcher = M::GetInstance();
    QObject::connect(
        pWatcher,
        &M::OnConnected,
        [this](const QtAudioInputDeviceInfo& pDevice) {
            _Write(QStringLiteral("+ ") + pDevice.getDeviceName());
        });
    QObject::connect(pWatcher, &M::OnDisconnected, [this](const QtAudioInputDeviceInfo& pDevice) {
        _Write(QStringLiteral("- ") + pDevice.getDeviceName());
    });
    pWatcher->Start();
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [this] {
        const bool isBroken = m_output.isReaderGone() || !m_output.getError().isEmpty();
        if (interrupt::getSignal() == 0 && !isBroken)
            return;
        interrupt::Accept();
        QCoreApplication::quit();
    });
    tick.start(kWatchMs);
    QCoreApplication::exec();
    pWatcher->Stop();
    pWatcher->disconnect();
}

void DevicesCommand::_Write(const QString& pLine)
{
    m_output.Write(pLine.toUtf8() + '\n');
}

QString DevicesCommand::_Describe(const InputDevice& pDevice, int pWidth) const
{
    QStringList notes = {listentexts::describeFormat(pDevice.format)};
    if (pDevice.isMonitor())
        notes.append(tr("monitor"));
    if (pDevice.isDefault)
        notes.append(tr("default"));
    if (!pDevice.isUsable())
        notes.append(tr("cannot be analysed: the analysis needs a mono format"));
    if (pDevice.source && !pDevice.source->description.isEmpty())
        notes.append(pDevice.source->description);
    return QStringLiteral("%1 %2  %3")
        .arg(QLatin1String(pDevice.isDefault ? "*" : " "),
             pDevice.name.leftJustified(pWidth),
             notes.join(QLatin1String("; ")));
}
