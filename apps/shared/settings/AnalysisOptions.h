// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

class AudioAnalyzer;
class Configuration;

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

    /// What live hosts use.
    static constexpr double kStopDuration = 1.5;  ///< seconds

    QString profile;  ///< name in any case; empty = the selected one
    std::optional<TempoRange> bpm;
    std::optional<Band> band;
    std::optional<double> sensibility;
    std::optional<qint16> threshold;        ///< sample magnitude; -1 = automatic
    double fixedBPM = 0.0;                  ///< 0 = none
    double stopDuration = kStopDuration;    ///< seconds
    std::optional<qint16> stopThreshold;    ///< sample magnitude
    std::optional<double> averageDuration;  ///< seconds
    std::optional<double> bpmDuration;      ///< seconds
    bool isConsistencyAllowed = true;
    bool isVirtualWhenStopped = false;

    /// Puts the settings into a configuration. Edits to the profile go to a copy of it that becomes
    /// the selected one, so that the configuration's own profiles stay as they are. Returns why a
    /// value is refused, with the limits, or an empty text.
    QString Apply(Configuration& pConfiguration) const;
    /// Puts the rest into the analyzer that was made from that configuration.
    void Apply(AudioAnalyzer& pAnalyzer) const;

    /// Selects the profile alone, one of pConfiguration's or one that the user has saved. Returns
    /// why it cannot, or an empty text. [event loop]
    QString SelectProfile(Configuration& pConfiguration) const;

private:
    QString _EditProfile(Configuration& pConfiguration) const;
    QString _CheckFixedBPM(const Configuration& pConfiguration) const;
};
