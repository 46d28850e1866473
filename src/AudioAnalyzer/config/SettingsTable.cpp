// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

using C = Configuration;
using T = SettingsTable;
using Getter = double (*)(const C&);
using Setter = bool (*)(C&, double);

constexpr double kFullScale = 32767.0;
constexpr double kShortest = 0.05;  ///< seconds

template <auto kGetter>
double Get(const C& pConfiguration)
{
    return static_cast<double>((pConfiguration.*kGetter)());
}

template <typename Value, bool (C::*kSetter)(Value)>
bool Set(C& pConfiguration, double pValue)
{
    return (pConfiguration.*kSetter)(static_cast<Value>(pValue));
}

/// A file may hold any negative number; each of them means automatic.
double GetThreshold(const C& pConfiguration)
{
    return std::max<double>(-1.0, pConfiguration.getThreshold());
}

/// There is a setter, and no getter: on a copy, it tells what the value was.
double GetDisplayStopped(const C& pConfiguration)
{
    C copy(pConfiguration);
    return copy.setDisplayStopped(true) ? 0.0 : 1.0;
}

// ---- Entries of a kind --------------------------------------------------------------------------

struct Words
{
    const char* pIdentifier;
    const char* pName;
    const char* pDescription;
};

struct Access
{
    T::eReader reader;
    Getter get;
    Setter set;
};

constexpr Access kHeld = {T::eHeld, nullptr, nullptr};

template <double (C::*kGetter)() const, bool (C::*kSetter)(double)>
constexpr Access SecondsOf(T::eReader pReader)
{
    return {pReader, &Get<kGetter>, &Set<double, kSetter>};
}

template <short (C::*kGetter)() const, bool (C::*kSetter)(short)>
constexpr Access MagnitudeOf()
{
    return {T::eConfiguration, &Get<kGetter>, &Set<short, kSetter>};
}

template <bool (C::*kGetter)() const, bool (C::*kSetter)(bool)>
constexpr Access SwitchOf()
{
    return {T::eConfiguration, &Get<kGetter>, &Set<bool, kSetter>};
}

constexpr T::Setting
Seconds(Words pWords, double pMaximum, double pInitial, double pStep, T::eUse pUse, Access pAccess)
{
    return {pWords.pIdentifier,
            pWords.pName,
            pWords.pDescription,
            "s",
            kShortest,
            pMaximum,
            pInitial,
            pStep,
            nullptr,
            T::eNumber,
            pUse,
            pAccess.reader,
            pAccess.get,
            pAccess.set};
}

constexpr T::Setting Magnitude(Words pWords, double pInitial, T::eUse pUse, Access pAccess)
{
    return {pWords.pIdentifier,
            pWords.pName,
            pWords.pDescription,
            "",
            0.0,
            kFullScale,
            pInitial,
            100.0,
            nullptr,
            T::eWholeNumber,
            pUse,
            pAccess.reader,
            pAccess.get,
            pAccess.set};
}

constexpr T::Setting Switch(Words pWords, bool pIsOn, T::eUse pUse, Access pAccess)
{
    return {pWords.pIdentifier,
            pWords.pName,
            pWords.pDescription,
            "",
            0.0,
            1.0,
            pIsOn ? 1.0 : 0.0,
            1.0,
            nullptr,
            T::eSwitch,
            pUse,
            pAccess.reader,
            pAccess.get,
            pAccess.set};
}

/// What Magnitude() or Seconds() gives, with a minimum that people call by a word and begin with.
constexpr T::Setting WithWord(T::Setting pSetting, double pMinimum, const char* pWord)
{
    pSetting.minimum = pMinimum;
    pSetting.initial = pMinimum;
    pSetting.pMinimumWord = pWord;
    return pSetting;
}

constexpr T::Setting Tempo(Words pWords, double pMaximum, Access pAccess)
{
    T::Setting setting = Seconds(pWords, pMaximum, 0.0, 1.0, T::eAnalysis, pAccess);
    setting.pUnit = "BPM";
    return setting;
}

// ---- The table ----------------------------------------------------------------------------------

/// Of the analysis first, where the place is the number of AudioAnalysisSetting.
constexpr T::Setting kSettings[] = {
    WithWord(Magnitude({"threshold", "threshold", "level that makes a pulse"},
                       0.0,
                       T::eAnalysis,
                       {T::eConfiguration, &GetThreshold, &Set<short, &C::setThreshold>}),
             -1.0,
             "auto"),
    Magnitude({"stop-threshold", "stop threshold", "level up to which it is quiet"},
              3276.0,
              T::eAnalysis,
              MagnitudeOf<&C::getStopDetectionThreshold, &C::setStopDetectionThreshold>()),
    // The memory of the stop decision's transform grows with the duration.
    Seconds({"stop-duration", "stop duration", "seconds of quiet that count as a stop"},
            10.0,
            1.5,
            0.1,
            T::eAnalysis,
            SecondsOf<&C::getStopDetectionDuration, &C::setStopDetectionDuration>(T::eTold)),
    Seconds(
        {"average-duration", "average duration", "seconds over which the volume is averaged"},
        60.0,
        2.0,
        0.5,
        T::eAnalysis,
        SecondsOf<&C::getAverageVolumeCalculationDuration, &C::setAverageVolumeCalculationDuration>(
            T::eTold)),
    Seconds(
        {"bpm-duration", "tempo duration", "seconds of beats that make the tempo"},
        600.0,
        10.0,
        1.0,
        T::eAnalysis,
        SecondsOf<&C::getBPMCalculationDuration, &C::setBPMCalculationDuration>(T::eConfiguration)),
    WithWord(Tempo({"fixed-bpm", "fixed tempo", "tempo to impose instead of measuring it"},
                   999.0,
                   kHeld),
             0.0,
             "none"),
    Switch({"consistency", "consistency", "keep the last tempo across gaps"},
           true,
           T::eAnalysis,
           kHeld),
    Switch(
        {"virtual-when-stopped",
         "virtual beats when stopped",
         "go on with virtual beats while the music is stopped"},
        false,
        T::eAnalysis,
        SwitchOf<&C::getDisplayVirtualBeatsWhenStopped, &C::setDisplayVirtualBeatsWhenStopped>()),

    Switch({"display-speakers", "speakers", "show the speakers"},
           true,
           T::eWindow,
           SwitchOf<&C::getDisplaySpeakers, &C::setDisplaySpeakers>()),
    Switch({"display-stopped", "display of stops", "show when the music is stopped"},
           false,
           T::eWindow,
           {T::eConfiguration, &GetDisplayStopped, &Set<bool, &C::setDisplayStopped>}),
    Switch({"gray-mode", "gray mode", "show the window in gray"},
           true,
           T::eWindow,
           SwitchOf<&C::getGrayMode, &C::setGrayMode>()),
    Switch({"top-most", "top-most window", "keep the window above all others"},
           true,
           T::eWindow,
           SwitchOf<&C::isTopMost, &C::setTopMost>()),

    Seconds(
        {"normalization-duration",
         "normalization duration",
         "seconds over which the volume is normalized"},
        60.0,
        5.0,
        0.5,
        T::eUnused,
        SecondsOf<&C::getNormalizationDuration, &C::setNormalizationDuration>(T::eConfiguration)),
    Magnitude({"normalization-threshold", "normalization threshold", "level for the normalization"},
              16383.0,
              T::eUnused,
              MagnitudeOf<&C::getNormalizationThreshold, &C::setNormalizationThreshold>()),
};

constexpr const char* kOfEngine[] = {
    "threshold", "bpm-duration", "fixed-bpm", "consistency", "virtual-when-stopped"};

}  // namespace

bool SettingsTable::Setting::isAllowed(double pValue) const
{
    const bool isWithin = pValue >= minimum && pValue <= maximum;
    return isWithin && (form == eNumber || std::floor(pValue) == pValue);
}

double SettingsTable::Setting::Clamp(double pValue) const
{
    return std::isnan(pValue) ? initial : std::clamp(pValue, minimum, maximum);
}

const std::vector<SettingsTable::Setting>& SettingsTable::getSettings()
{
    static const std::vector<Setting> settings(std::begin(kSettings), std::end(kSettings));
    return settings;
}

const SettingsTable::Setting* SettingsTable::Find(const QString& pIdentifier)
{
    for (const Setting& setting : getSettings())
        if (pIdentifier.compare(QLatin1String(setting.pIdentifier), Qt::CaseInsensitive) == 0)
            return &setting;
    return nullptr;
}

bool SettingsTable::isOfEngine(const Setting& pSetting)
{
    const QLatin1String identifier(pSetting.pIdentifier);
    return std::any_of(std::begin(kOfEngine), std::end(kOfEngine), [&](const char* pName) {
        return identifier == QLatin1String(pName);
    });
}
