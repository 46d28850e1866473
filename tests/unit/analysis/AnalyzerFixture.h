// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QStringList>

#include <support/SignalLog.h>
#include <support/SingleShotTrap.h>
#include <support/Waves.h>
#include <vector>

inline QAudioFormat makeFormat(int sampleRate)
{
    QAudioFormat format;
    format.setSampleRate(sampleRate);
    format.setSampleSize(16);
    format.setChannelCount(1);
    return format;
}

/// Records of timers and signals in one line: what happened, in order.
inline QString kindsOf(const SignalRecords& records)
{
    static const char* const kNames[] = {
        "Amplitudes", "Started", "Stopped", "Samples", "Beat", "BPM", "Pulse", "Timer"};
    QStringList names;
    for (const SignalRecord& record : records)
        names << QLatin1String(kNames[static_cast<int>(record.kind)]);
    return names.join(QLatin1Char(' '));
}

/// An analyzer with a profile of its own, 90 to 175 BPM without a filter, whose signals and beat
/// timers are recorded. The timers never fire.
struct AnalyzerFixture
{
    explicit AnalyzerFixture(int sampleRate = 44100)
        : analyzer(&configuration, makeFormat(sampleRate), nullptr), log(&analyzer)
    {
        selectProfile(90.0, 175.0);
        timers.setHandler(&AnalyzerFixture::recordTimer, this);
    }

    Profile selectProfile(double minimalBPM, double maximalBPM, int low = -1, int high = -1)
    {
        const Profile profile =
            configuration.Add(QStringLiteral("Test"), minimalBPM, maximalBPM, 2.0, low, high);
        configuration.setSelectedProfile(profile);
        return profile;
    }

    Pulse makePulse(quint64 startIndex, qint16 maximalValue = 1000) const
    {
        return Pulse(analyzer.m_analysisStartTime,
                     startIndex,
                     startIndex + analyzer.m_pulseBlockSize - 1,
                     quint64(analyzer.m_sampleRate),
                     100,
                     200,
                     maximalValue,
                     ePulse);
    }

    /// Lets a window pass that holds one pulse at that index, or none.
    void closeWindowWithPulse(quint64 startIndex)
    {
        analyzer.m_candidatePulses.push_back(makePulse(startIndex));
        closeWindow();
    }
    void closeWindow() { analyzer.DetectBeats(1024, analyzer.m_beatWindowEnd, 0, 0); }

    std::vector<quint64> beatIndexes() const
    {
        return {analyzer.m_beatIndexes.begin(), analyzer.m_beatIndexes.end()};
    }

    static void recordTimer(void* pFixture, int delay, const QObject*, const char*)
    {
        SignalRecord record;
        record.kind = SignalKind::TimerArmed;
        record.delay = delay;
        static_cast<AnalyzerFixture*>(pFixture)->log.add(record);
    }

    Configuration configuration;
    AudioAnalyzer analyzer;
    SignalLog log;
    SingleShotTrap timers;
};
