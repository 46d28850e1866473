// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseBackEnd.h>
#include <shared/pulse/PulseLevels.h>
#include <shared/pulse/PulsePlayback.h>
#include <shared/pulse/PulsePlugin.h>

#include <QAudioDeviceInfo>
#include <QCoreApplication>
#include <QtPlugin>

#include <fcntl.h>
#include <unistd.h>

// What Q_PLUGIN_METADATA makes of a static plugin.
const QStaticPlugin qt_static_plugin_PulsePlugin();

namespace {

constexpr int kTimeoutMs = 1500;

PulseBackEnd* s_pInstalled = nullptr;

/// Has Qt look for its sound plugins where there are only static ones.
///
/// Intended: Qt numbers the plugins that it finds at its first look, those in files before static
/// ones, and keeps the numbers; but whenever the library paths change it looks for more files, and
/// the numbers are wrong. So the paths are not taken away and given back. They get names under
/// which Qt finds nothing now, and under which it has looked already once they lead somewhere.
void HideOtherPlugins()
{
    const int root = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    QStringList paths;
    for (const QString& path : QCoreApplication::libraryPaths())
        paths.append(QStringLiteral("/proc/self/fd/%1%2").arg(root).arg(path));
    QCoreApplication::setLibraryPaths(paths);
    QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    const int slash = ::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
    ::dup3(slash, root, O_CLOEXEC);
    ::close(slash);
}

}  // namespace

PulseBackEnd::PulseBackEnd() : m_connection(std::make_shared<PulseConnection>()) {}

PulseBackEnd::~PulseBackEnd()
{
    if (s_pInstalled == this)
        s_pInstalled = nullptr;
}

bool PulseBackEnd::Install()
{
    if (m_connection->Start(kTimeoutMs) == PulseConnection::eAbsent)
        return false;
    s_pInstalled = this;
    _Publish();
    qRegisterStaticPluginFunction(qt_static_plugin_PulsePlugin());
    HideOtherPlugins();
    return true;
}

PulseBackEnd* PulseBackEnd::get()
{
    return s_pInstalled;
}

std::vector<SoundSource> PulseBackEnd::getSources() const
{
    return m_connection->getSources();
}

int PulseBackEnd::getChannels(const QByteArray& pSource) const
{
    for (const SoundSource& source : getSources())
        if (source.name.toUtf8() == pSource)
            return source.channels;
    return 0;
}

bool PulseBackEnd::isAnswering() const
{
    return m_connection->isAnswering();
}

std::optional<SoundPosition> PulseBackEnd::getPosition() const
{
    return m_position;
}

std::unique_ptr<SoundPlayback> PulseBackEnd::Play(int pSampleRate)
{
    auto playback = std::make_unique<PulsePlayback>(m_connection, pSampleRate);
    if (!isAnswering() || !playback->Open())
        return nullptr;
    return playback;
}

std::unique_ptr<SoundLevels> PulseBackEnd::HearLevels()
{
    return std::make_unique<PulseLevels>(m_connection);
}
