// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <QtGlobal>

#include <vector>

/// What plays in a section of the demo track; values are combined.
enum eDemoLayer : unsigned
{
    eDemoKick = 1,     ///< bass drum on every beat
    eDemoHats = 2,     ///< hi-hats on sixteenths, open between the beats
    eDemoClap = 4,     ///< clap on every second beat
    eDemoBass = 8,     ///< bass notes between the beats
    eDemoStabs = 16,   ///< short chords
    eDemoPad = 32,     ///< held chords that open up
    eDemoLead = 64,    ///< arpeggio with echo
    eDemoRiser = 128,  ///< rising noise
    eDemoHit = 256,    ///< one bass drum and chord on the section's first beat, then its echo
    eDemoStop = 512    ///< digital silence
};

struct DemoSection
{
    int beats;        ///< length
    unsigned layers;  ///< combined eDemoLayer values
};

/// The score of the demo track and its ground truth.
///
/// One pass is an intro, a main part, a breakdown without bass drum, the main part again, a stop
/// and a short restart that ends with a hit; then it begins anew. Every section is a whole number
/// of 4/4 bars, so all beats of all passes lie on one grid that begins at 0 seconds.
class DemoArrangement
{
public:
    static constexpr int kStepsPerBeat = 4;
    static constexpr double kMinimalStopDuration = 5.0;  ///< seconds

    /// Where a step falls in the score.
    struct Position
    {
        const DemoSection* section;  ///< [valid until the arrangement is deleted]
        int sectionStep;             ///< steps from the section's start
        quint64 firstStep;           ///< absolute step at which the section starts
    };

    /// pBPM must be positive.
    explicit DemoArrangement(double pBPM);

    double getBPM() const { return m_bpm; }
    const std::vector<DemoSection>& getSections() const { return m_sections; }
    /// Length of one pass, seconds.
    double getPassDuration() const;
    /// Time of a step (a quarter of a beat), seconds.
    double getStepTime(quint64 pStep) const;
    Position getPosition(quint64 pStep) const;

    /// Every beat of the grid before pDuration seconds that is meant to be felt: those of the
    /// breakdown are among them, those of a stop and under the echo of the last hit are not.
    /// Seconds, ascending.
    std::vector<double> getBeatTimes(double pDuration) const;
    /// Every bass drum before pDuration seconds. Seconds, ascending.
    std::vector<double> getKickTimes(double pDuration) const;
    /// Stretches without bass drum in which music plays on, cut at pDuration seconds.
    std::vector<TimeSpan> getBreakdowns(double pDuration) const;
    /// Stretches of digital silence, cut at pDuration seconds.
    std::vector<TimeSpan> getSilences(double pDuration) const;

private:
    template <typename Condition>
    std::vector<double> _CollectBeats(double pDuration, Condition pCondition) const;
    std::vector<TimeSpan> _CollectSpans(double pDuration, unsigned pLayer) const;

    double m_bpm;
    int m_passSteps = 0;
    std::vector<DemoSection> m_sections;
};
