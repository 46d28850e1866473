// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/SettingsTable.h>

#include <QCoreApplication>
#include <QString>

#include <map>
#include <optional>

class AudioAnalyzer;
class Configuration;
class MeterTracker;

/// Who tells the beats.
enum eTracker
{
    eAutomaticTracker,  ///< MeterTracker, which needs no profile
    eProfileTracker     ///< the engine with a tempo profile
};

/// Everything that changes what an analysis finds, as a person asked for it. What is not set stays
/// as the configuration has it.
struct AnalysisOptions
{
    Q_DECLARE_TR_FUNCTIONS(AnalysisOptions)

public:
    struct TempoRange
    {
        double minimal;  ///< BPM
        double maximal;  ///< BPM
    };
    struct Band
    {
        int low;   ///< Hz; -1 = no lower edge
        int high;  ///< Hz; -1 = no upper edge
    };

    std::optional<eTracker> tracker;  ///< that was named; getTracker() says which one it is
    QString profile;                  ///< name in any case; empty = the selected one
    std::optional<TempoRange> bpm;
    std::optional<Band> band;
    std::optional<double> sensibility;
    std::map<const SettingsTable::Setting*, double> settings;  ///< those of the analysis

    /// The value that was asked for, else the one that an analysis with pConfiguration has.
    double getValue(const SettingsTable::Setting& pSetting,
                    const Configuration& pConfiguration) const;

    /// The tracker that was named, else the engine if anything is set that it alone heeds, else the
    /// automatic one.
    eTracker getTracker() const;

    /// Puts the settings into a configuration. Edits to the profile go to a copy of it that becomes
    /// the selected one, so that the configuration's own profiles stay as they are. Returns why a
    /// value is refused, with the limits, or an empty text.
    QString Apply(Configuration& pConfiguration) const;
    /// Puts the rest into the analyzer that was made from that configuration.
    void Apply(AudioAnalyzer& pAnalyzer) const;
    /// Limits the tempo as far as the automatic tracker follows any, to be called after Apply() to
    /// a configuration has refused nothing.
    void Apply(MeterTracker& pTracker) const;

    /// Selects the profile alone, one of pConfiguration's or one that the user has saved. Returns
    /// why it cannot, or an empty text. [event loop]
    QString SelectProfile(Configuration& pConfiguration) const;

    /// 0 = none.
    double getFixedBPM() const;
    /// The tempos that the automatic tracker follows.
    TempoRange getAutomaticRange() const;

private:
    QString _NameEngineOption() const;
    QString _CheckTracker() const;
    QString _EditProfile(Configuration& pConfiguration) const;
    QString _CheckFixedBPM(const Configuration& pConfiguration) const;
};
