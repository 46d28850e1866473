// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <QMap>
#include <QString>

/// Every plain member of an analyzer by name; lists by their length, flags as 0 or 1.
using AnalyzerState = QMap<QString, double>;

#define AA_STATE(member) state.insert(QStringLiteral(#member), double(analyzer.member))

inline AnalyzerState stateOf(const AudioAnalyzer& analyzer)
{
    AnalyzerState state;
    AA_STATE(m_samplesPerMinute);
    AA_STATE(m_sampleRate);
    AA_STATE(m_accuracy);
    AA_STATE(m_pAmplitudes != nullptr);
    AA_STATE(m_amplitudesCount);
    AA_STATE(m_analysisStartTime);
    AA_STATE(m_sampleIndex);
    AA_STATE(m_isAnalyzing);
    AA_STATE(m_isConsistencyAllowed);
    AA_STATE(m_isStopped);
    AA_STATE(m_beatIndexes.size());
    AA_STATE(m_computedBPM);
    AA_STATE(m_pConfiguration != nullptr);
    AA_STATE(m_missedBeatsCount);
    AA_STATE(m_beatLength);
    AA_STATE(m_volumeStats.m_writePosition);
    AA_STATE(m_volumeStats.m_isFull);
    AA_STATE(m_volumeStats.m_capacity);
    AA_STATE(m_fixedBPM);
    AA_STATE(m_lastBPM);
    AA_STATE(m_inaccuracyStartTime);
    AA_STATE(m_lastBeatIndex);
    AA_STATE(m_isLastBeatVirtual);
    AA_STATE(m_lastPulseIndex);
    AA_STATE(m_virtualBeatIndex);
    AA_STATE(m_currentVolume);
    AA_STATE(m_previousVolume);
    AA_STATE(m_beatWindowEnd);
    AA_STATE(m_beatWindowStart);
    AA_STATE(m_nextBeatIndex);
    AA_STATE(m_candidatePulses.size());
    AA_STATE(m_pPulseBlock != nullptr);
    AA_STATE(m_pulseBlockFill);
    AA_STATE(m_pulseBlockSize);
    AA_STATE(m_pStopBlock != nullptr);
    AA_STATE(m_stopBlockFill);
    AA_STATE(m_stopBlockSize);
    return state;
}

#undef AA_STATE

/// Gives every member that changes during a run a value of its own, different from the initial one.
inline void setSentinels(AudioAnalyzer& analyzer)
{
    static const double kAmplitude = 1.0;
    short sample = 7;
    analyzer.m_accuracy = 0.25;
    analyzer.m_pAmplitudes = &kAmplitude;
    analyzer.m_amplitudesCount = 101;
    analyzer.m_analysisStartTime = 102;
    analyzer.m_sampleIndex = 103;
    analyzer.m_isAnalyzing = true;
    analyzer.m_isConsistencyAllowed = false;
    analyzer.m_isStopped = false;
    analyzer.m_beatIndexes = {104, 105};
    analyzer.m_computedBPM = 106.0;
    analyzer.m_missedBeatsCount = 107;
    analyzer.m_beatLength = 108;
    analyzer.m_volumeStats.Update(&sample, 1);
    analyzer.m_fixedBPM = 109.0;
    analyzer.m_lastBPM = 110.0;
    analyzer.m_inaccuracyStartTime = 111;
    analyzer.m_lastBeatIndex = 112;
    analyzer.m_isLastBeatVirtual = false;
    analyzer.m_lastPulseIndex = 113;
    analyzer.m_virtualBeatIndex = 114;
    analyzer.m_currentVolume = 115;
    analyzer.m_previousVolume = 116;
    analyzer.m_beatWindowEnd = 117;
    analyzer.m_beatWindowStart = 118;
    analyzer.m_nextBeatIndex = 119;
    analyzer.m_candidatePulses.push_back(Pulse(0, 0, 1, 44100, 0, 0, 0, ePulse));
    analyzer.m_pulseBlockFill = 120;
    delete[] analyzer.m_pStopBlock;
    analyzer.m_pStopBlock = new qint16[122]();
    analyzer.m_stopBlockFill = 121;
    analyzer.m_stopBlockSize = 122;
}
