// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/config/Profile.h>

#include <QList>

/// A built-in tempo profile. A host may edit it in memory; it is never written to the file.
///
/// Threads: one thread; the list and the ID counter are not guarded.
class AUDIOANALYZER_EXPORT PredefinedProfile : public Profile
{
public:
    /// Takes the next predefined ID. Nothing is checked. [allocates one record]
    PredefinedProfile(const QString& name,
                      double sensibility,
                      int filterLowFrequency,
                      int filterHighFrequency,
                      double minimalBPM,
                      double maximalBPM);
    /// Shares the record.
    PredefinedProfile(const PredefinedProfile& pOther);
    /// Shares the record of pOther; nothing happens when that is a user profile.
    PredefinedProfile& operator=(const PredefinedProfile& pOther);
    ~PredefinedProfile() override;

    /// "Electro", "Hardcore" and "Slow", built by the first call; the list lives for the whole
    /// process.
    static QList<Profile>& getList();

private:
    static unsigned int _nextID;
    static QList<Profile> _builtInProfiles;
};
