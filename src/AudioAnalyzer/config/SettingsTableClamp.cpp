// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/ProfileLimits.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <algorithm>
#include <cmath>

namespace {

/// The nearest value within limits; pOther for NaN.
double Within(double pMinimum, double pMaximum, double pOther, double pValue)
{
    return std::isnan(pValue) ? pOther : std::clamp(pValue, pMinimum, pMaximum);
}

class Changes
{
public:
    void Note(const QString& pProfile, const char* pIdentifier, double pBefore, double pAfter)
    {
        // Written so that NaN is noted.
        if (!(pBefore == pAfter))
            m_list.push_back({pProfile, QLatin1String(pIdentifier), pBefore, pAfter});
    }
    const std::vector<SettingsTable::Change>& getList() const { return m_list; }

private:
    std::vector<SettingsTable::Change> m_list;
};

/// What is not a number becomes as "Electro" has it; an upper end below its lower one rises to it.
void ClampProfile(Profile pProfile, Changes& pChanges)
{
    using L = ProfileLimits;
    const double minimal = pProfile.getMinimalBPM();
    const double maximal = pProfile.getMaximalBPM();
    const double sensibility = pProfile.getSensibility();
    const int low = pProfile.getFilterLowFrequency();
    const int high = pProfile.getFilterHighFrequency();
    if (!L::isTempoRange(minimal, maximal)) {
        const double first = Within(L::kMinimalBPM, L::kMaximalBPM, 90.0, minimal);
        pProfile.setBPM(first, std::max(first, Within(first, L::kMaximalBPM, 175.0, maximal)));
    }
    pProfile.setSensibility(
        Within(L::kMinimalSensibility, L::kMaximalSensibility, 2.0, sensibility));
    if (!L::isBand(low, high))
        pProfile.setFilterFrequencies(low, low);
    const QString& name = pProfile.getName();
    pChanges.Note(name, "minimal-bpm", minimal, pProfile.getMinimalBPM());
    pChanges.Note(name, "maximal-bpm", maximal, pProfile.getMaximalBPM());
    pChanges.Note(name, "sensibility", sensibility, pProfile.getSensibility());
    pChanges.Note(name, "high-frequency", high, pProfile.getFilterHighFrequency());
}

}  // namespace

std::vector<SettingsTable::Change> SettingsTable::Clamp(Configuration& pConfiguration)
{
    Changes changes;
    for (const Setting& setting : getSettings()) {
        if (!setting.get)
            continue;
        const double before = setting.get(pConfiguration);
        const double after = setting.Clamp(before);
        changes.Note({}, setting.pIdentifier, before, after);
        setting.set(pConfiguration, after);
    }
    for (const Profile& profile : pConfiguration.getProfiles())
        if (profile.isSerializable())
            ClampProfile(profile, changes);
    if (!changes.getList().empty())
        pConfiguration.setIsModified(true);
    return changes.getList();
}

void SettingsTable::Restore(Configuration& pConfiguration)
{
    for (const Setting& setting : getSettings())
        if (setting.set)
            setting.set(pConfiguration, setting.initial);
}
