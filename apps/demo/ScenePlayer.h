// SPDX-License-Identifier: MIT
#pragma once

#include <demo/DemoInstruments.h>
#include <demo/Scene.h>

/// Plays a scene on the demo track's instruments, in mono, as loud as today's records are. The same
/// scene gives the same samples in every run.
class ScenePlayer
{
public:
    /// pScene is not owned and must outlive the player.
    explicit ScenePlayer(const Scene& pScene);

    /// Makes at most pCount samples in [-1, 1] and returns how many; 0 at the end. [no allocation]
    std::size_t Read(float* pSamples, std::size_t pCount);

private:
    void _Trigger(const SceneNote& pNote);
    float _Mix();

    const Scene& m_scene;    ///< not owned
    std::size_t m_note = 0;  ///< next note to be played
    quint64 m_frame = 0;     ///< next sample to be made
    demo::Kick m_kick;
    demo::Clap m_clap;
    demo::HiHat m_hats;
    demo::Bass m_bass;
    demo::Chords m_chords;
    demo::Lead m_lead;
    double m_clapLevel = 0.0;  ///< of the last hit
    double m_kickLevel = 0.0;  ///< of the last hit
};
