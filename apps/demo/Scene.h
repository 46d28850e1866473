// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <QString>

#include <vector>

/// What a scene is played on.
enum eSceneInstrument
{
    eSceneKick,
    eSceneClap,
    eSceneHat,
    eSceneBass,   ///< pitch counts
    eSceneChord,  ///< a held chord without drums
    eSceneLead    ///< pitch counts
};

struct SceneNote
{
    double time;  ///< seconds
    eSceneInstrument instrument;
    double level;  ///< 1 = full
    int pitch;     ///< MIDI note number
};

/// Music of known beats, made to try a beat tracker in one respect.
struct Scene
{
    static constexpr int kUsualRate = 44100;  ///< Hz

    QString name;
    QString genre;  ///< the respect in which it tries
    int sampleRate = kUsualRate;
    double duration = 0.0;   ///< seconds
    double bpm = 0.0;        ///< the tempo that is right; where it changes, that after the change
    double deviation = 0.0;  ///< share by which the tempo wanders around bpm
    std::vector<double> beats;     ///< seconds
    std::vector<TimeSpan> gaps;    ///< stretches without beats inside the music
    std::vector<double> changes;   ///< where the music becomes another, seconds
    std::vector<SceneNote> notes;  ///< by time
};

/// All scenes, the same in every run: eight kinds at eight tempos, other metres, build-ups, endings
/// and sample rates.
std::vector<Scene> makeScenes();
