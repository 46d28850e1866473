// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/PredefinedProfile.h>

unsigned int PredefinedProfile::_nextID = 1;
QList<Profile> PredefinedProfile::_builtInProfiles;

PredefinedProfile::PredefinedProfile(const QString& name,
                                     double sensibility,
                                     int filterLowFrequency,
                                     int filterHighFrequency,
                                     double minimalBPM,
                                     double maximalBPM)
    : Profile(name,
              sensibility,
              filterLowFrequency,
              filterHighFrequency,
              false,
              false,
              _nextID++,
              minimalBPM,
              maximalBPM)
{
}

PredefinedProfile::PredefinedProfile(const PredefinedProfile& pOther) = default;

PredefinedProfile& PredefinedProfile::operator=(const PredefinedProfile& pOther)
{
    if (!pOther.isSerializable())
        Profile::operator=(pOther);
    return *this;
}

PredefinedProfile::~PredefinedProfile() = default;

QList<Profile>& PredefinedProfile::getList()
{
    if (_builtInProfiles.isEmpty()) {
        _builtInProfiles << PredefinedProfile(QStringLiteral("Electro"), 2.0, 0, 75, 90.0, 175.0)
                         << PredefinedProfile(QStringLiteral("Hardcore"), 2.0, 0, 75, 130.0, 250.0)
                         << PredefinedProfile(QStringLiteral("Slow"), 1.5, 0, 150, 70.0, 135.0);
    }
    return _builtInProfiles;
}
