// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>

namespace {

struct Listener
{
    const char* pIdentifier;
    void (*tell)(AudioAnalyzer& pAnalyzer, double pValue);
};

/// Of every setting that is not read in the configuration alone.
constexpr Listener kListeners[] = {
    {"stop-duration",
     [](AudioAnalyzer& pAnalyzer, double pValue) { pAnalyzer.setStopDetectionDuration(pValue); }},
    {"average-duration",
     [](AudioAnalyzer& pAnalyzer, double pValue) {
         pAnalyzer.setAverageVolumeCalculationDuration(pValue);
     }},
    {"fixed-bpm", [](AudioAnalyzer& pAnalyzer, double pValue) { pAnalyzer.setFixedBPM(pValue); }},
    {"consistency",
     [](AudioAnalyzer& pAnalyzer, double pValue) {
         pAnalyzer.setConsistencyAllowed(pValue != 0.0);
     }},
};

}  // namespace

bool AnalyzerSettings::Store(const SettingsTable::Setting& pSetting,
                             double pValue,
                             Configuration& pConfiguration,
                             AudioAnalyzer* pAnalyzer)
{
    // An analyzer that is told of a stop duration begins its block anew, also of the same one.
    if (pSetting.get && pSetting.get(pConfiguration) == pValue)
        return false;
    // The analyzer first: it may find that memory has run out.
    if (pAnalyzer)
        Tell(pSetting, pValue, *pAnalyzer);
    return !pSetting.set || pSetting.set(pConfiguration, pValue);
}

void AnalyzerSettings::Tell(const SettingsTable::Setting& pSetting,
                            double pValue,
                            AudioAnalyzer& pAnalyzer)
{
    const QLatin1String identifier(pSetting.pIdentifier);
    for (const Listener& listener : kListeners)
        if (identifier == QLatin1String(listener.pIdentifier))
            listener.tell(pAnalyzer, pValue);
}
