// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/config/Profile.h>

#include <QList>

class QDataStream;

/// A tempo profile that the user made, saved in the configuration file.
///
/// Threads: one thread; the ID counter is not guarded.
class AUDIOANALYZER_EXPORT UserProfile : public Profile
{
public:
    /// Takes the next user ID, 100 and up. Nothing is checked. [allocates one record]
    UserProfile(const QString& name,
                double sensibility,
                int filterLowFrequency,
                int filterHighFrequency,
                double minimalBPM,
                double maximalBPM);
    /// Takes the given ID; later profiles without one get greater IDs. [allocates one record]
    UserProfile(const QString& name,
                double sensibility,
                int filterLowFrequency,
                int filterHighFrequency,
                unsigned int id,
                double minimalBPM,
                double maximalBPM);
    /// Shares the record.
    UserProfile(const UserProfile& pOther);
    /// Shares the record of pOther; nothing happens when that is a built-in profile.
    UserProfile& operator=(const UserProfile& pOther);
    ~UserProfile() override;

    /// Numbers the user profiles 100, 101, ... in list order, for every handle on them at once, and
    /// lets the next new one follow. Built-in profiles keep their IDs.
    static void CompactIDs(QList<Profile>& profiles);

    /// Writes the file record of the profile in the stream's byte order, which must be
    /// little-endian for the configuration file. Returns the bytes written.
    unsigned long Serialize(QDataStream& stream) const;
    /// Reads one record of at most size bytes: a new profile owned by the caller, with size set to
    /// the bytes read; or null, with size set to 0, when the bytes are no such record.
    static UserProfile* Deserialize(QDataStream& stream, unsigned long& size);

private:
    static unsigned int _nextID;
};
