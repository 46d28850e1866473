// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>

#include <algorithm>

namespace {

constexpr unsigned int kFirstUserID = 100;

}  // namespace

unsigned int UserProfile::_nextID = kFirstUserID;

UserProfile::UserProfile(const QString& name,
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
              true,
              _nextID++,
              minimalBPM,
              maximalBPM)
{
}

UserProfile::UserProfile(const QString& name,
                         double sensibility,
                         int filterLowFrequency,
                         int filterHighFrequency,
                         unsigned int id,
                         double minimalBPM,
                         double maximalBPM)
    : Profile(name,
              sensibility,
              filterLowFrequency,
              filterHighFrequency,
              false,
              true,
              id,
              minimalBPM,
              maximalBPM)
{
    // The greatest ID wraps to 0 here and so leaves the counter alone.
    _nextID = std::max(_nextID, id + 1U);
}

UserProfile::UserProfile(const UserProfile& pOther) = default;

UserProfile& UserProfile::operator=(const UserProfile& pOther)
{
    if (pOther.isSerializable())
        Profile::operator=(pOther);
    return *this;
}

UserProfile::~UserProfile() = default;

void UserProfile::CompactIDs(QList<Profile>& profiles)
{
    _nextID = kFirstUserID;
    for (Profile& profile : profiles)
        if (profile.isSerializable())
            profile._setID(_nextID++);
}
