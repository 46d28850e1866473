// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsFolder.h>
#include <AudioAnalyzer/config/detail/AtomicFile.h>
#include <AudioAnalyzer/config/detail/BoundedReader.h>
#include <AudioAnalyzer/config/detail/FileFormat.h>
#include <AudioAnalyzer/config/detail/UserProfileRecord.h>

#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <memory>

const unsigned char Configuration::_SIGNATURE[8] = {'Z', 'E', 'P', 0x07, 0x44, 0xAC, 0x10, 0x02};

namespace {

const char* asChars(const unsigned char* pBytes)
{
    return reinterpret_cast<const char*>(pBytes);
}

quint16 checksumOf(const QByteArray& pContent)
{
    return qChecksum(pContent.constData(), static_cast<uint>(pContent.size()));
}

/// The last two bytes of the file are the checksum of all the others.
bool isSealed(detail::BoundedReader& pReader, QIODevice& pFile)
{
    if (!pReader.isValid() || pReader.remaining() != detail::kChecksumSize)
        return false;
    const auto stored = pReader.read<quint16>();
    const qint64 size = pFile.size() - detail::kChecksumSize;
    if (!pFile.seek(0))
        return false;
    const QByteArray content = pFile.read(size);
    return content.size() == size && checksumOf(content) == stored;
}

}  // namespace

QString Configuration::_getConfigFilePath()
{
    return SettingsFolder::getPath(QStringLiteral("AudioAnalyzer.cfg"));
}

Configuration* Configuration::LoadOrCreate()
{
    Configuration* const loaded = _Load(_getConfigFilePath());
    return loaded ? loaded : new Configuration;
}

bool Configuration::Save()
{
    return _Save(_getConfigFilePath());
}

// ---- Loading ------------------------------------------------------------------------------------

Configuration* Configuration::_Load(const QString& path)
{
    return _LoadPart(path, eEverything);
}

Configuration* Configuration::LoadWithoutDevice(const QString& path)
{
    return _LoadPart(path, eNoDevice);
}

Configuration* Configuration::_LoadPart(const QString& path, eFilePart pPart)
{
    QFile file(path.trimmed());
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        return nullptr;
    auto configuration = std::make_unique<Configuration>();
    // Intended: a file that cannot even hold the head counts as an unused one, not as a damaged
    // one.
    const bool isUnused = file.size() < detail::kHeadSize;
    return isUnused || configuration->_Read(file, pPart) ? configuration.release() : nullptr;
}

bool Configuration::_Read(QIODevice& pFile, eFilePart pPart)
{
    QDataStream stream(&pFile);
    stream.setByteOrder(QDataStream::LittleEndian);
    detail::BoundedReader reader(stream, static_cast<quint64>(pFile.size()));

    const int version = _ReadVersion(reader);
    if (version < detail::kFileVersion1_0)
        return false;
    _ReadDevice(reader, pPart);
    const auto selectedID = reader.read<quint32>();
    _ReadThresholdAndFlags(reader);
    _ReadUserProfiles(reader);
    if (version >= detail::kFileVersion1_1)
        _ReadDurations(reader);
    if (version >= detail::kFileVersion1_2)
        _ReadLanguage(reader);
    if (!isSealed(reader, pFile))
        return false;
    _SelectProfile(selectedID);
    return true;
}

int Configuration::_ReadVersion(detail::BoundedReader& pReader)
{
    bool isOurs = true;
    for (const unsigned char expected : _SIGNATURE)
        isOurs &= pReader.read<quint8>() == expected;
    const int major = pReader.read<quint8>();
    const int minor = pReader.read<quint8>();
    return isOurs ? major * 256 + minor : 0;
}

void Configuration::_ReadDevice(detail::BoundedReader& pReader, eFilePart pPart)
{
    const QString name = pReader.readText();
    // Intended: a device that is not present now is forgotten.
    const QtAudioInputDeviceInfo* const device = pPart == eEverything ? _FindDevice(name) : nullptr;
    if (device)
        m_selectedAudioInputDevice = device->getDeviceName();
}

void Configuration::_ReadThresholdAndFlags(detail::BoundedReader& pReader)
{
    m_threshold = pReader.read<qint16>();
    m_displaySpeakers = pReader.read<bool>();
    m_displayVirtualBeatsWhenStopped = pReader.read<bool>();
    m_grayMode = pReader.read<bool>();
    m_topMost = pReader.read<bool>();
}

void Configuration::_ReadUserProfiles(detail::BoundedReader& pReader)
{
    for (auto count = pReader.read<quint16>(); count > 0 && pReader.isValid(); --count) {
        auto size = static_cast<unsigned long>(pReader.remaining());
        const std::unique_ptr<UserProfile> profile(
            UserProfile::Deserialize(pReader.stream(), size));
        if (!profile)
            return pReader.fail();
        m_profiles << *profile;
        pReader.take(size);
    }
}

void Configuration::_ReadDurations(detail::BoundedReader& pReader)
{
    m_averageVolumeCalculationDuration = pReader.read<double>();
    m_bpmCalculationDuration = pReader.read<double>();
    m_normalizationDuration = pReader.read<double>();
    m_normalizationThreshold = pReader.read<qint16>();
    m_stopDetectionDuration = pReader.read<double>();
    m_stopDetectionThreshold = pReader.read<qint16>();
}

void Configuration::_ReadLanguage(detail::BoundedReader& pReader)
{
    m_language = pReader.readText();
    m_displayStopped = pReader.read<bool>();
}

void Configuration::_SelectProfile(unsigned int pID)
{
    const auto found = std::find_if(m_profiles.cbegin(),
                                    m_profiles.cend(),
                                    [pID](const Profile& p) { return p.getID() == pID; });
    if (found != m_profiles.cend())
        m_selectedProfile = *found;
}

// ---- Saving -------------------------------------------------------------------------------------

bool Configuration::_Save(const QString& path)
{
    const QString trimmed = path.trimmed();
    if (trimmed.isEmpty())
        return false;
    UserProfile::CompactIDs(m_profiles);
    QByteArray content = _Write();
    const quint16 checksum = checksumOf(content);
    content += static_cast<char>(checksum & 0xFF);
    content += static_cast<char>(checksum >> 8);
    return detail::writeFileAtomically(trimmed, content);
}

QByteArray Configuration::_Write() const
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData(asChars(_SIGNATURE), detail::kSignatureSize);
    stream << quint8(detail::kFileVersion1_2 >> 8) << quint8(detail::kFileVersion1_2 & 0xFF);
    detail::writeText(stream, m_selectedAudioInputDevice);
    stream << m_selectedProfile.getID() << m_threshold << m_displaySpeakers
           << m_displayVirtualBeatsWhenStopped << m_grayMode << m_topMost;
    _WriteUserProfiles(stream);
    stream << m_averageVolumeCalculationDuration << m_bpmCalculationDuration
           << m_normalizationDuration << m_normalizationThreshold << m_stopDetectionDuration
           << m_stopDetectionThreshold;
    detail::writeText(stream, m_language);
    stream << m_displayStopped;
    return content;
}

void Configuration::_WriteUserProfiles(QDataStream& pStream) const
{
    const auto isUser = [](const Profile& profile) { return profile.isSerializable(); };
    pStream << static_cast<quint16>(std::count_if(m_profiles.cbegin(), m_profiles.cend(), isUser));
    for (const Profile& profile : m_profiles)
        if (isUser(profile))
            detail::writeUserProfile(pStream, profile);
}
