// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AnalysisPump.h>
#include <AudioAnalyzer/analysis/MeterFollower.h>
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/audio/ChannelMix.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <algorithm>
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

    bool isAutomatic() const { return tracker == AudioAnalysisTracker_Automatic; }
    /// Not from inside Push() or Finish().
    void SetTracker(AudioAnalysisTracker pTracker);
    /// The automatic tracker begins anew, at the latest with the next portion of samples.
    void ResetMeter();
    /// An index of the meter's, from one of the analysis; 0 if it lies before the meter's first.
    quint64 ToMeter(quint64 pIndex) const { return pIndex - std::min(pIndex, meterStart); }

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
    AudioAnalysisTracker tracker = AudioAnalysisTracker_Automatic;
    MeterTracker meter{sampleRate};
    MeterFollower meterFollower;
    ChannelMix mix{sampleRate};
    std::vector<qint16> heard;     ///< by the meter, of one block; reused
    quint64 meterStart = 0;        ///< index of the meter's first sample
    bool isMeterResetDue = false;  ///< asked for from inside Push()
    bool isBusy = false;           ///< inside Push() or Finish()
    bool isFinished = false;
    mutable std::string errorText;

private:
    template <typename Sample>
    void _PushToMeter(const Sample* pSamples, std::size_t pFrameCount, int pChannelCount);
    void _ConnectMeter();
    void _TellMeterBeat(const MeterTracker::Beat& pBeat);
    void _ApplyTo(AudioAnalyzer& pNew) const;
    void _ConnectEvents(BeatFollower& pNew);
    void _ConnectSpectrum(AnalysisPump& pNew);
};
