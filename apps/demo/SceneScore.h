// SPDX-License-Identifier: MIT
#pragma once

#include <demo/Scene.h>

/// A hit of a pattern.
struct SceneHit
{
    double beat;  ///< position in the bar, beats from 0 on
    eSceneInstrument instrument;
    double level;
    int pitch = 0;
};

/// What is repeated bar by bar.
struct ScenePattern
{
    int beatsPerBar;
    std::vector<SceneHit> hits;
};

/// The beats that follow each other from pStart up to pEnd, and one more that ends the last one.
/// The tempo wanders around pBPM by the share pDeviation. Times in seconds.
std::vector<double> makeSceneGrid(double pStart, double pEnd, double pBPM, double pDeviation = 0.0);

/// Plays pPattern on the beats of pGrid, its first bar at the first of them, and appends beats and
/// notes to pScene. The last time of pGrid only ends the beat ahead of it.
void appendSceneBars(Scene& pScene, const ScenePattern& pPattern, const std::vector<double>& pGrid);

namespace scenepatterns {

ScenePattern FourOnTheFloor();
ScenePattern EighthHats();
ScenePattern Backbeat();
ScenePattern EighthBass();
ScenePattern SwungHats();
ScenePattern ThreeFour();
ScenePattern FiveFour();
/// Chords and an arpeggio, no drums.
ScenePattern BuildUp();

}  // namespace scenepatterns
