// SPDX-License-Identifier: MIT
#pragma once

#include <demo/DemoSignals.h>

#include <QString>

#include <cstddef>
#include <vector>

/// Sound that is no music, in which no beat is to be found.
enum eSceneNoise
{
    eSceneSilence,  ///< digital
    eSceneHiss,     ///< white noise of -75 dBFS
    eSceneWhite,    ///< white noise of -20 dBFS
    eScenePink,     ///< pink noise of about -20 dBFS
    eSceneHum,      ///< 50 Hz and its harmonics
    eSceneApplause  ///< a hall that claps, swells and dies away
};

/// All of them, in the order above.
const std::vector<eSceneNoise>& getSceneNoises();
QString getSceneNoiseName(eSceneNoise pNoise);

/// Makes such sound at 44100 Hz, the same in every run.
class SceneNoise
{
public:
    static constexpr int kRate = 44100;  ///< Hz

    explicit SceneNoise(eSceneNoise pNoise);

    /// Makes pCount samples in [-1, 1]. [no allocation]
    void Read(float* pSamples, std::size_t pCount);

private:
    void _MakeClaps();
    double _Next();
    double _NextPink();
    double _NextHum();
    double _NextApplause();

    eSceneNoise m_kind;
    demo::Noise m_noise{0x51a9e7u};
    double m_pink[3] = {};
    double m_time = 0.0;                      ///< seconds
    std::vector<std::vector<float>> m_claps;  ///< of several pairs of hands
    std::vector<float> m_ahead;               ///< what has been clapped and not read, a ring
    std::size_t m_position = 0;               ///< in it
};
