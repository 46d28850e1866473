// SPDX-License-Identifier: MIT
#include <shared/capture/SoundServer.h>

#include <QAudioDeviceInfo>
#include <QAudioSystemPlugin>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>

namespace {

const QString kFolder = QStringLiteral("audio");
const QString kPlugin = QStringLiteral("audio/libqtmedia_pulse.so");

/// The sound server's plugin; empty when it is not installed.
QString FindPlugin()
{
    const QStringList folders = QCoreApplication::libraryPaths();
    for (const QString& folder : folders)
        if (QFile::exists(QDir(folder).filePath(kPlugin)))
            return QDir(folder).filePath(kPlugin);
    return {};
}

bool HasInputs(const QString& pPlugin)
{
    auto* pSystem = qobject_cast<QAudioSystemFactoryInterface*>(QPluginLoader(pPlugin).instance());
    return pSystem && !pSystem->availableDevices(QAudio::AudioInput).isEmpty();
}

/// Qt looks for its sound plugins once, at the first query. Meanwhile it sees only this folder.
void QueryWithin(const QString& pFolder)
{
    const QStringList paths = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({pFolder});
    QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    QCoreApplication::setLibraryPaths(paths);
}

}  // namespace

bool preferSoundServer()
{
    const QString plugin = FindPlugin();
    if (plugin.isEmpty() || !HasInputs(plugin))
        return false;
    const QTemporaryDir folder;
    if (!QDir(folder.path()).mkdir(kFolder) || !QFile::link(plugin, folder.filePath(kPlugin)))
        return false;
    QueryWithin(folder.path());
    return true;
}
