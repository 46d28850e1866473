// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

/// A place for one test function of the configuration: an empty folder, ID counters as in a new
/// process, and a device watcher without devices. Needs a QCoreApplication.
class ConfigSandbox
{
public:
    ConfigSandbox()
    {
        // No plugin, hence no sound server and no device of this machine.
        QCoreApplication::setLibraryPaths({});
        QtAudioInputDevicesManager::GetInstance()->m_devices.clear();
        UserProfile::_nextID = 100;
        PredefinedProfile::_nextID = 1;
        PredefinedProfile::_builtInProfiles.clear();
    }

    static void plug(const QString& name)
    {
        QtAudioInputDevicesManager::GetInstance()->m_devices << QtAudioInputDeviceInfo(name, false);
    }

    QString path(const QString& name = QStringLiteral("test.cfg")) const
    {
        return m_folder.filePath(name);
    }

    void write(const QByteArray& bytes) const
    {
        // Not truncated first: file systems flush such a file when it is closed, 2 ms each time.
        QFile file(path());
        if (!file.open(QIODevice::ReadWrite) || file.write(bytes) != bytes.size() ||
            !file.resize(bytes.size()))
            qFatal("cannot write %s", qPrintable(path()));
    }

    /// Content of the file, empty when there is none.
    QByteArray read() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<Configuration> load() const
    {
        return std::unique_ptr<Configuration>(Configuration::_Load(path()));
    }

    std::unique_ptr<Configuration> load(const QByteArray& bytes) const
    {
        write(bytes);
        return load();
    }

    /// Everything in the folder, hidden files included.
    QStringList entries() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};
