// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <shared/settings/ConfigurationValues.h>

#include <QChar>
#include <QList>

#include <algorithm>
#include <tuple>

namespace {

using Values = ConfigurationValues;

bool IsStored(const SettingsTable::Setting& pSetting)
{
    return pSetting.get != nullptr;
}

// ---- Profiles -----------------------------------------------------------------------------------

Values::ProfileValues ValuesOf(const Profile& pProfile)
{
    return {pProfile.getName(),
            int(pProfile.getMinimalBPM()),
            int(pProfile.getMaximalBPM()),
            pProfile.getFilterLowFrequency(),
            pProfile.getFilterHighFrequency(),
            pProfile.getSensibility()};
}

bool operator==(const Values::ProfileValues& pLeft, const Values::ProfileValues& pRight)
{
    const auto tie = [](const Values::ProfileValues& p) {
        return std::tie(p.name, p.minimalBPM, p.maximalBPM, p.low, p.high, p.sensibility);
    };
    return tie(pLeft) == tie(pRight);
}

struct KeyedProfile
{
    QString key;
    Profile profile;
};

/// A key tells built-in profiles from the user's, and the first of a name from the second.
std::vector<KeyedProfile> KeyedProfilesOf(const Configuration& pConfiguration)
{
    std::vector<KeyedProfile> result;
    std::map<QString, int> counts;
    for (const Profile& profile : pConfiguration.getProfiles()) {
        const QChar kind = QLatin1Char(profile.isSerializable() ? 'u' : 'b');
        const QString name = kind + profile.getName();
        result.push_back({name + QChar(QChar::Null) + QString::number(counts[name]++), profile});
    }
    return result;
}

/// True when the profile is as it is to be; a value that a setter refuses is not taken.
bool Adapt(Profile pProfile, const Values::ProfileValues& pValues)
{
    if (ValuesOf(pProfile) == pValues)
        return true;
    pProfile.setBPM(pValues.minimalBPM, pValues.maximalBPM);
    pProfile.setFilterFrequencies(pValues.low, pValues.high);
    pProfile.setSensibility(pValues.sensibility);
    return ValuesOf(pProfile) == pValues;
}

void Remove(Configuration& pConfiguration, const Profile& pProfile)
{
    // A handle of the kind that the configuration takes; only its ID is looked at.
    pConfiguration.Remove(UserProfile(pProfile.getName(),
                                      pProfile.getSensibility(),
                                      pProfile.getFilterLowFrequency(),
                                      pProfile.getFilterHighFrequency(),
                                      pProfile.getID(),
                                      pProfile.getMinimalBPM(),
                                      pProfile.getMaximalBPM()));
}

void StoreProfiles(std::map<QString, Values::ProfileValues> pProfiles,
                   Configuration& pConfiguration)
{
    // Those of a file need not differ, and it is by them that profiles are removed.
    QList<Profile> handles = pConfiguration.getProfiles();
    UserProfile::CompactIDs(handles);
    for (const KeyedProfile& present : KeyedProfilesOf(pConfiguration)) {
        if (!present.profile.isSerializable())
            continue;
        const auto found = pProfiles.find(present.key);
        if (found != pProfiles.end() && Adapt(present.profile, found->second))
            pProfiles.erase(found);
        else
            Remove(pConfiguration, present.profile);
    }
    for (const auto& [key, values] : pProfiles) {
        pConfiguration.Add(values.name,
                           values.minimalBPM,
                           values.maximalBPM,
                           values.sensibility,
                           values.low,
                           values.high);
    }
}

void Select(const QString& pKey, Configuration& pConfiguration)
{
    for (const KeyedProfile& present : KeyedProfilesOf(pConfiguration))
        if (present.key == pKey)
            pConfiguration.setSelectedProfile(present.profile);
}

// ---- Merging ------------------------------------------------------------------------------------

template <typename Value>
const Value& Merge(const Value& pBase, const Value& pMine, const Value& pTheirs)
{
    return pMine == pBase ? pTheirs : pMine;
}

using Profiles = std::map<QString, Values::ProfileValues>;

const Values::ProfileValues* Find(const Profiles& pProfiles, const QString& pKey)
{
    const auto found = pProfiles.find(pKey);
    return found == pProfiles.end() ? nullptr : &found->second;
}

bool IsSame(const Values::ProfileValues* pLeft, const Values::ProfileValues* pRight)
{
    return pLeft && pRight ? *pLeft == *pRight : pLeft == pRight;
}

Profiles MergeProfiles(const Profiles& pBase, const Profiles& pMine, const Profiles& pTheirs)
{
    Profiles all = pMine;
    all.insert(pTheirs.begin(), pTheirs.end());
    Profiles merged;
    for (const auto& entry : all) {
        const QString& key = entry.first;
        const Values::ProfileValues* pOld = Find(pBase, key);
        const Values::ProfileValues* pOwn = Find(pMine, key);
        const Values::ProfileValues* pOther = Find(pTheirs, key);
        const bool isMine = !IsSame(pOwn, pOld);
        // Removed here, changed there: what somebody worked on stays.
        const bool isTheirs = !isMine || (!pOwn && !IsSame(pOther, pOld));
        const Values::ProfileValues* pResult = isTheirs ? pOther : pOwn;
        if (pResult)
            merged.emplace(key, *pResult);
    }
    return merged;
}

}  // namespace

ConfigurationValues ConfigurationValues::Of(const Configuration& pConfiguration,
                                            const QString& pDevice)
{
    ConfigurationValues values;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        values.numbers.push_back(IsStored(setting) ? setting.get(pConfiguration) : 0.0);
    values.device = pDevice;
    values.language = pConfiguration.getLanguage();
    for (const KeyedProfile& keyed : KeyedProfilesOf(pConfiguration)) {
        if (keyed.profile.isSerializable())
            values.profiles.emplace(keyed.key, ValuesOf(keyed.profile));
        if (pConfiguration.isSelected(keyed.profile))
            values.selected = keyed.key;
    }
    return values;
}

void ConfigurationValues::StoreIn(Configuration& pConfiguration) const
{
    const std::vector<SettingsTable::Setting>& settings = SettingsTable::getSettings();
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (IsStored(settings[i]))
            settings[i].set(pConfiguration, numbers[i]);
    pConfiguration.setLanguage(language);
    StoreProfiles(profiles, pConfiguration);
    Select(selected, pConfiguration);
}

bool operator==(const ConfigurationValues& pLeft, const ConfigurationValues& pRight)
{
    return pLeft.numbers == pRight.numbers && pLeft.device == pRight.device &&
           pLeft.language == pRight.language && pLeft.selected == pRight.selected &&
           pLeft.profiles.size() == pRight.profiles.size() &&
           std::equal(
               pLeft.profiles.begin(),
               pLeft.profiles.end(),
               pRight.profiles.begin(),
               [](const auto& p, const auto& q) {
                   return p.first == q.first && p.second == q.second;
               });
}

ConfigurationValues MergeValues(const ConfigurationValues& pBase,
                                const ConfigurationValues& pMine,
                                const ConfigurationValues& pTheirs)
{
    ConfigurationValues merged;
    for (std::size_t i = 0; i < pBase.numbers.size(); ++i)
        merged.numbers.push_back(Merge(pBase.numbers[i], pMine.numbers[i], pTheirs.numbers[i]));
    merged.device = Merge(pBase.device, pMine.device, pTheirs.device);
    merged.language = Merge(pBase.language, pMine.language, pTheirs.language);
    merged.selected = Merge(pBase.selected, pMine.selected, pTheirs.selected);
    merged.profiles = MergeProfiles(pBase.profiles, pMine.profiles, pTheirs.profiles);
    return merged;
}
