// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QString>

#include <vector>

class Configuration;

/// The one table of all settings that are a number or a switch.
///
/// Hosts and interfaces loop over it: a new setting is one entry here, and then an option, a key of
/// the configuration, a setting of the C interface and a parameter of the Vamp plugin.
///
/// Threads: the table never changes, any; what takes a configuration, that one's.
class AUDIOANALYZER_EXPORT SettingsTable
{
public:
    /// What a setting is for.
    enum eUse
    {
        eAnalysis,  ///< changes what an analysis finds
        eWindow,    ///< changes what a window shows
        eUnused     ///< kept in the file for other hosts; those of this project do not show it
    };
    enum eForm
    {
        eNumber,
        eWholeNumber,
        eSwitch  ///< 0 or 1
    };
    /// Where an analyzer finds the value.
    enum eReader
    {
        eConfiguration,  ///< in its configuration, whenever it needs it
        eTold,           ///< in its configuration, once it is told that it changed
        eHeld            ///< in itself alone, once it is told; nothing is stored
    };

    /// All texts are static, in English and without capital letter or full stop.
    struct Setting
    {
        const char* pIdentifier;  ///< small letters and hyphens, as people type it: "stop-duration"
        const char* pName;        ///< "stop duration"
        const char* pDescription;  ///< what the number says, or the switch does when it is on
        const char* pUnit;         ///< "s", "BPM"; empty = a magnitude, or a switch
        double minimum;            ///< in pUnit, as all the numbers
        double maximum;
        double initial;            ///< what hosts begin with
        double step;               ///< in which fields count
        const char* pMinimumWord;  ///< what people write instead of minimum; null = a number
        eForm form;
        eUse use;
        eReader reader;
        double (*get)(const Configuration& pConfiguration);  ///< null for eHeld
        /// Returns whether it changed; checks nothing. Null for eHeld.
        bool (*set)(Configuration& pConfiguration, double pValue);

        /// Within the limits, and whole unless it is a number; NaN is not.
        bool isAllowed(double pValue) const;
        /// The nearest value within the limits; for NaN the initial one.
        double Clamp(double pValue) const;
    };

    /// A value that Clamp() has changed.
    struct Change
    {
        QString profile;     ///< name of the user profile; empty for a setting
        QString identifier;  ///< of the setting, or "minimal-bpm", "maximal-bpm", "sensibility" or
                             ///< "high-frequency" of the profile
        double before;
        double after;
    };

    // ---- The table: SettingsTable.cpp -----------------------------------------------------------

    /// All of them: those of the analysis first, in the order of AudioAnalysisSetting. [valid for
    /// ever] [any thread]
    static const std::vector<Setting>& getSettings();
    /// The one of that identifier in any case of its letters, or null. [valid for ever]
    static const Setting* Find(const QString& pIdentifier);

    /// Whether beats of the engine alone depend on it, so that to change it chooses the tracker
    /// with a profile. The other settings of the analysis shape levels, pulses and silences, which
    /// the engine tells for both trackers. [any thread]
    static bool isOfEngine(const Setting& pSetting);

    // ---- A configuration: SettingsTableClamp.cpp ------------------------------------------------

    /// Brings everything that a file may hold, and an analysis cannot bear, to its limits: the
    /// settings, and tempos, sensibility and band of user profiles. Returns what was changed, and
    /// marks the configuration modified then. Nothing is saved. [event loop]
    static std::vector<Change> Clamp(Configuration& pConfiguration);
    /// Gives each setting of the table its initial value; profiles, device and language stay. A new
    /// Configuration has the same ones but for the stop duration. [event loop]
    static void Restore(Configuration& pConfiguration);
};
