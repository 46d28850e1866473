// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include "Action.h"
#include "ModelAnalyzer.h"

#include <map>
#include <memory>
#include <support/SignalLog.h>
#include <support/SingleShotTrap.h>
#include <vector>

namespace model {

/// An action at an occurrence of a signal, or at every one.
struct Reaction
{
    static constexpr std::size_t every = 0;

    SignalKind kind = SignalKind::BPMChanged;
    std::size_t occurrence = 1;
    Action action;
};

/// The library's analyzer and the model, given the same settings, samples, actions and clock.
class Twins
{
public:
    Twins(const Settings& settings, int sampleRate);

    /// Moves the clock to now and feeds the batch; timers that fall due fire after it.
    void feed(const Samples& batch);
    void apply(const Action& action);
    /// From now on both answer a signal with an action, but not from inside such an action.
    void react(const Reaction& reaction);
    /// How often the library's receiver has acted.
    std::size_t getReactionsCount() const { return m_reactionsCount; }
    void advanceClock(quint64 microseconds) { m_clockOffset += microseconds; }

    /// What differs in the signals since the last call, in the state at each of them and now; empty
    /// when nothing does.
    QString compare();
    /// The same for everything that takes longer to compare.
    QString compareDeeply();

    Configuration configuration;
    std::unique_ptr<AudioAnalyzer> pLibrary;
    Analyzer plain;
    SignalRecords allRecords;  ///< of the library, samples and amplitudes left out

private:
    /// What one of the two has shown since the last comparison.
    struct Side
    {
        std::vector<AnalyzerState> states;  ///< at each record
        std::vector<bool> results;          ///< of the actions
        std::map<SignalKind, std::size_t> occurrences;
        bool isReacting = false;
    };

    void setUpConfiguration(const Settings& settings);
    void setClock();
    void fireTimers();
    template <typename Apply>
    void handle(Side& side, const SignalRecord& record, Apply apply);

    QString compareGetters() const;
    QString compareStates() const;
    QString comparePulses() const;
    QString compareVolumes() const;

    int m_sampleRate;
    quint64 m_samplesFed = 0;
    quint64 m_clockOffset;
    HighResolutionTimerOverride m_clock;
    SingleShotTrap m_trap;
    std::unique_ptr<SignalLog> m_pLog;
    std::vector<Reaction> m_reactions;
    std::vector<quint64> m_timers;  ///< µs
    std::size_t m_reactionsCount = 0;
    Side m_librarySide;
    Side m_plainSide;
};

/// Reads the private members.
AnalyzerState readState(const AudioAnalyzer& analyzer);

}  // namespace model
