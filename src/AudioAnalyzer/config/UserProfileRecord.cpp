// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>
#include <AudioAnalyzer/config/detail/BoundedReader.h>
#include <AudioAnalyzer/config/detail/FileFormat.h>
#include <AudioAnalyzer/config/detail/UserProfileRecord.h>

#include <QDataStream>

#include <utility>

unsigned long detail::writeUserProfile(QDataStream& stream, const Profile& profile)
{
    stream << static_cast<qint32>(profile.getID());
    const quint16 nameSize = writeText(stream, profile.getName());
    stream << kRecordVersion << kRecordMarker << lowWord(profile.getMinimalBPM())
           << lowWord(profile.getMaximalBPM()) << kReserved << profile.getSensibility()
           << qint32(profile.getFilterLowFrequency()) << qint32(profile.getFilterHighFrequency());
    return kRecordSize + nameSize;
}

unsigned long UserProfile::Serialize(QDataStream& stream) const
{
    return detail::writeUserProfile(stream, *this);
}

UserProfile* UserProfile::Deserialize(QDataStream& stream, unsigned long& size)
{
    detail::BoundedReader reader(stream, std::exchange(size, 0));
    const auto id = reader.read<quint32>();
    const auto nameSize = reader.read<quint16>();
    const QString name = reader.readText(nameSize);
    const auto version = reader.read<qint16>();
    const auto marker = reader.read<qint8>();
    const auto minimalBPM = reader.read<qint16>();
    const auto maximalBPM = reader.read<qint16>();
    reader.read<double>();  // reserved
    const auto sensibility = reader.read<double>();
    const auto filterLow = reader.read<qint32>();
    const auto filterHigh = reader.read<qint32>();

    const bool isRecord = version == detail::kRecordVersion && marker == detail::kRecordMarker;
    // Intended: a record without a name is good, one whose bytes decode to nothing is not.
    const bool isNamed = nameSize == 0 || !name.isEmpty();
    if (!reader.isValid() || !isRecord || !isNamed)
        return nullptr;
    size = detail::kRecordSize + nameSize;
    return new UserProfile(name, sensibility, filterLow, filterHigh, id, minimalBPM, maximalBPM);
}
