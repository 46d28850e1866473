// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <QString>
#include <QtGlobal>

#include <vector>

/// A beat as hosts log it. The engine knows loudness and accuracy, the automatic tracker the bar
/// and the confidences; what a tracker does not know is 0.
struct LoggedBeat
{
    quint64 index;   ///< absolute index of its first sample
    double time;     ///< seconds from the first sample
    bool isVirtual;  ///< stands in for a beat window that held no pulse
    int loudness;    ///< 16-bit sample magnitude of the chosen pulse (threshold for a virtual beat)
    double accuracy;             ///< tracker's accuracy when the beat was chosen, (0, 1]
    double bpm;                  ///< tempo reported with the beat; 0 = unknown
    int beatInBar = 0;           ///< 1 to 4
    double confidence = 0.0;     ///< probability that it lies within 70 ms of the music's beat
    double barConfidence = 0.0;  ///< share of the belief that beatInBar has, 0 to 1
};

/// The tempo in force from a moment on.
struct TempoPoint
{
    double time;  ///< seconds
    double bpm;   ///< 0 = unknown
};

/// A stretch of time.
struct TimeSpan
{
    double start;  ///< seconds
    double end;    ///< seconds
};

/// What the analysis of one file or recording gave.
struct AnalysisResult
{
    QString source;                  ///< file path as given, or "-" for standard input
    int sampleRate = 0;              ///< Hz
    quint64 sampleCount = 0;         ///< mono samples analysed
    std::vector<LoggedBeat> beats;   ///< in order of time, each once
    std::vector<TempoPoint> tempos;  ///< one for each closed beat window
    std::vector<TimeSpan> silences;  ///< stretches in which the music counted as stopped
    std::vector<double> pulseTimes;  ///< seconds, every detected pulse

    /// One tempo for all of it, BPM; 0 = unknown.
    double getTempo() const
    {
        std::vector<RecordingTempo::Report> reports;
        for (const LoggedBeat& beat : beats)
            reports.push_back({beat.time, beat.bpm, beat.isVirtual});
        const bool isAutomatic = !beats.empty() && beats.front().beatInBar > 0;
        return isAutomatic ? RecordingTempo::ComputeFromTimes(reports)
                           : RecordingTempo::Compute(reports);
    }
    double duration() const { return sampleRate > 0 ? double(sampleCount) / sampleRate : 0.0; }
};
