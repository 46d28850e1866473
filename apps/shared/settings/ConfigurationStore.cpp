// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/settings/ConfigurationStore.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <utility>

namespace {

constexpr int kNameLengthOffset = 10;  ///< behind the signature and the version

/// The device name in a file that was found to be whole.
QString ReadDeviceName(const QString& pPath)
{
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(kNameLengthOffset))
        return {};
    const QByteArray length = file.read(sizeof(quint16));
    if (length.size() != sizeof(quint16))
        return {};
    return QString::fromUtf8(file.read(qFromLittleEndian<quint16>(length.constData())));
}

}  // namespace

ConfigurationStore::ConfigurationStore() : m_configuration(std::make_unique<Configuration>()) {}

ConfigurationStore::~ConfigurationStore() = default;

QString ConfigurationStore::getPath()
{
    return Configuration::_getConfigFilePath();
}

bool ConfigurationStore::Load()
{
    if (!QFileInfo::exists(getPath()))
        return true;
    std::unique_ptr<Configuration> loaded(Configuration::_Load(getPath()));
    if (!loaded) {
        m_error = tr("%1 cannot be read or is damaged; to begin anew: audio-analyzer config reset")
                      .arg(getPath());
        return false;
    }
    m_configuration = std::move(loaded);
    setDeviceName(ReadDeviceName(getPath()));
    m_configuration->setIsModified(false);
    return true;
}

bool ConfigurationStore::Save()
{
    if (m_configuration->Save()) {
        m_configuration->setIsModified(false);
        return true;
    }
    m_error =
        tr("%1 cannot be written; the folder %2 must be writable, and the name free for a file")
            .arg(getPath(), QFileInfo(getPath()).path());
    return false;
}

void ConfigurationStore::Reset(bool pKeepsProfiles)
{
    auto fresh = std::make_unique<Configuration>();
    const QList<Profile> profiles = m_configuration->getProfiles();
    for (const Profile& profile : profiles) {
        if (pKeepsProfiles && profile.isSerializable()) {
            fresh->Add(profile.getName(),
                       profile.getMinimalBPM(),
                       profile.getMaximalBPM(),
                       profile.getSensibility(),
                       profile.getFilterLowFrequency(),
                       profile.getFilterHighFrequency());
        }
    }
    m_configuration = std::move(fresh);
    m_deviceName.clear();
}

void ConfigurationStore::setDeviceName(const QString& pName)
{
    m_deviceName = pName;
    m_configuration->setSelectedAudioInputDevice(QtAudioInputDeviceInfo(pName, false));
}
