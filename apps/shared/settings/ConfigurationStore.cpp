// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsFolder.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <shared/settings/ConfigurationStore.h>
#include <shared/settings/detail/LinkTarget.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <QtEndian>

#include <sys/stat.h>
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

/// What hosts begin with.
std::unique_ptr<Configuration> MakeConfiguration()
{
    auto configuration = std::make_unique<Configuration>();
    SettingsTable::Restore(*configuration);
    configuration->setIsModified(false);
    return configuration;
}

/// Where the file itself is. The library writes a new file in the old one's place, which would
/// leave a link's target as it was.
QString FilePath()
{
    return shared::LinkTarget(ConfigurationStore::getPath());
}

}  // namespace

ConfigurationStore::ConfigurationStore()
    : m_configuration(MakeConfiguration()), m_stored(_Values())
{
}

ConfigurationStore::~ConfigurationStore() = default;

void ConfigurationStore::UseUserFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    SettingsFolder::setUserFolder(folder + QStringLiteral("/audio-analyzer"));
}

QString ConfigurationStore::getPath()
{
    return Configuration::_getConfigFilePath();
}

ConfigurationStore::FileState ConfigurationStore::_Look()
{
    struct stat status = {};
    if (::stat(QFile::encodeName(getPath()).constData(), &status) != 0)
        return {};
    constexpr qint64 kSecond = 1000000000;
    return {
        status.st_ino, status.st_size, status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
}

// ---- Reading ------------------------------------------------------------------------------------

bool ConfigurationStore::Load()
{
    m_seen = _Look();
    if (m_seen.file == 0)
        return true;
    QString device;
    std::unique_ptr<Configuration> loaded = _Read(device);
    if (!loaded)
        return false;
    m_configuration = std::move(loaded);
    setDeviceName(device);
    m_configuration->setIsModified(false);
    m_stored = _Values();
    return true;
}

bool ConfigurationStore::LoadToChange(int pPatienceMs)
{
    return _TakeTurn(pPatienceMs) && Load();
}

/// Null, and said in words, when there is no configuration in the file.
std::unique_ptr<Configuration> ConfigurationStore::_Read(QString& pDevice)
{
    const QString path = FilePath();
    // Opening a pipe would wait for its other end, and reading a device might never end.
    if (!QFileInfo(path).isFile()) {
        m_error = tr("%1 is not a file; move it away").arg(getPath());
        return nullptr;
    }
    // The store knows the device by its name alone.
    std::unique_ptr<Configuration> loaded(Configuration::LoadWithoutDevice(path));
    if (!loaded) {
        m_error = tr("%1 cannot be read or is damaged; to begin anew: audio-analyzer config reset")
                      .arg(getPath());
        return nullptr;
    }
    pDevice = ReadDeviceName(path);
    _Notice(SettingsTable::Clamp(*loaded));
    return loaded;
}

void ConfigurationStore::_Notice(const std::vector<SettingsTable::Change>& pChanges)
{
    QStringList changes;
    for (const SettingsTable::Change& change : pChanges) {
        const QString text = tr("%1 %2 instead of %3", "setting, value taken, value in the file")
                                 .arg(change.identifier,
                                      QString::number(change.after),
                                      QString::number(change.before));
        changes << (change.profile.isEmpty()
                        ? text
                        : tr("%1 of the profile \"%2\"").arg(text, change.profile));
    }
    m_notice.clear();
    if (!changes.isEmpty())
        m_notice = tr("%1 holds values beyond their limits; taken: %2")
                       .arg(getPath(), changes.join(QLatin1String(", ")));
}

bool ConfigurationStore::TakeOver()
{
    const FileState present = _Look();
    if (present.file == m_seen.file && present.size == m_seen.size && present.time == m_seen.time)
        return false;
    m_seen = present;
    return _Merge();
}

/// Brings what the file holds by now and what was changed here together. True when that changed
/// something here. A file that is gone or damaged says nothing.
bool ConfigurationStore::_Merge()
{
    QString device;
    const std::unique_ptr<Configuration> loaded = _Look().file != 0 ? _Read(device) : nullptr;
    if (!loaded)
        return false;
    const ConfigurationValues mine = _Values();
    const ConfigurationValues theirs = ConfigurationValues::Of(*loaded, device);
    const ConfigurationValues merged = MergeValues(m_stored, mine, theirs);
    m_stored = theirs;
    if (merged == mine)
        return false;
    const bool wasModified = m_configuration->isModified();
    merged.StoreIn(*m_configuration);
    setDeviceName(merged.device);
    m_configuration->setIsModified(wasModified);
    return true;
}

// ---- Saving -------------------------------------------------------------------------------------

bool ConfigurationStore::_TakeTurn(int pPatienceMs)
{
    const QString path = FilePath();
    // The user's folder need not exist yet.
    QDir().mkpath(QFileInfo(path).path());
    const FileLock::eResult result = m_lock.Take(path, pPatienceMs);
    m_isBusy = result == FileLock::eBusy;
    if (m_isBusy)
        m_error = tr("%1 is being changed by another program, which does not finish; end that "
                     "program and try again")
                      .arg(getPath());
    else if (result == FileLock::eImpossible)
        _RefuseWriting(path);
    return result == FileLock::eTaken;
}

bool ConfigurationStore::Save(int pPatienceMs)
{
    m_hasTakenOver = false;
    if (!m_lock.isTaken() && !_TakeTurn(pPatienceMs))
        return false;
    m_hasTakenOver = _Merge();
    const bool isSaved = _Write();
    m_seen = _Look();
    m_lock.LetGo();
    return isSaved;
}

bool ConfigurationStore::_Write()
{
    const QString path = FilePath();
    const QFileInfo target(path);
    if ((!target.exists() || target.isFile()) && m_configuration->_Save(path)) {
        m_configuration->setIsModified(false);
        m_stored = _Values();
        return true;
    }
    _RefuseWriting(path);
    return false;
}

void ConfigurationStore::_RefuseWriting(const QString& pPath)
{
    const QFileInfo lock(FileLock::getLockPath(pPath));
    if (!m_lock.isTaken() && (lock.exists() || lock.isSymLink()))
        m_error = tr("%1 cannot be written; remove %2").arg(getPath(), lock.filePath());
    else
        m_error =
            tr("%1 cannot be written; the folder %2 must be writable, and the name free for a file")
                .arg(getPath(), lock.path());
}

void ConfigurationStore::Reset(bool pKeepsProfiles)
{
    auto fresh = MakeConfiguration();
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

ConfigurationValues ConfigurationStore::_Values() const
{
    return ConfigurationValues::Of(*m_configuration, m_deviceName);
}
