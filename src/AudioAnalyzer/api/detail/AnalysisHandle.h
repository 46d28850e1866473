// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace detail {

/// Guards the built-in profiles, whose reference counts every configuration touches.
std::mutex& ProfilesMutex();

/// A host's function and what it wants to be given.
template <typename Record>
struct Callback
{
    void (*function)(void*, const Record*) = nullptr;
    void* pUser = nullptr;  ///< the host's

    void operator()(const Record& pRecord) const
    {
        if (function)
            function(pUser, &pRecord);
    }
};

}  // namespace detail

/// What a host holds by pointer: an analyzer with all that it needs, driven by samples.
struct AudioAnalysis
{
    /// pProfiles shows that ProfilesMutex() is held. [allocates]
    AudioAnalysis(int pSampleRate, const std::lock_guard<std::mutex>& pProfiles);

    /// A new analyzer, with all positions at 0. Nothing changes if it throws.
    void Restart();
    template <typename Sample>
    void Push(const Sample* pSamples, std::size_t pFrameCount, int pChannelCount);
    void Finish();

    /// pValue must be allowed. Nothing changes if it throws.
    void Set(const SettingsTable::Setting& pSetting, double pValue);
    double Get(const SettingsTable::Setting& pSetting) const;

    double TimeOf(quint64 pIndex) const { return static_cast<double>(pIndex) / sampleRate; }

    const int sampleRate;  ///< Hz
    Configuration configuration;
    /// The selected profile, on a record of its own: those of built-in profiles are shared by all
    /// threads, and their reference counts are plain integers.
    Profile profile;
    /// A setting that no configuration keeps, as it was set.
    struct Held
    {
        const SettingsTable::Setting* pSetting;
        double value;
    };
    std::vector<Held> held;  ///< one of each such setting

    detail::Callback<AudioAnalysisPulse> onPulse;
    detail::Callback<AudioAnalysisBeat> onBeat;
    detail::Callback<AudioAnalysisTempo> onTempo;
    detail::Callback<AudioAnalysisStop> onStop;
    detail::Callback<AudioAnalysisSpectrum> onSpectrum;

    std::unique_ptr<AnalysisPump> pPump;
    AudioAnalyzer* pAnalyzer = nullptr;  ///< the pump's
    bool isBusy = false;                 ///< inside Push() or Finish()
    bool isFinished = false;
    mutable std::string errorText;

private:
    void _ApplyTo(AudioAnalyzer& pNew) const;
    void _ConnectEvents(BeatFollower& pNew);
    void _ConnectSpectrum(AnalysisPump& pNew);
};
