// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/config/SettingsTable.h>

class AudioAnalyzer;
class Configuration;

/// The settings of an analyzer that runs: the one place that knows which of its functions takes the
/// value of a setting that it must be told.
///
/// Threads: the analyzer's.
class AUDIOANALYZER_EXPORT AnalyzerSettings
{
public:
    /// Gives a setting a value, unchecked: stores it in pConfiguration, unless the analyzer holds
    /// it, and tells pAnalyzer, which may be null. Returns whether it changed; what the analyzer
    /// holds always counts as changed. When memory runs out nothing has changed. [event loop]
    /// [allocates on size change]
    static bool Store(const SettingsTable::Setting& pSetting,
                      double pValue,
                      Configuration& pConfiguration,
                      AudioAnalyzer* pAnalyzer);
    /// Tells an analyzer alone; nothing happens for a setting that it reads in its configuration.
    /// [event loop] [allocates on size change]
    static void
    Tell(const SettingsTable::Setting& pSetting, double pValue, AudioAnalyzer& pAnalyzer);
};
