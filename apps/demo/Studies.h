// SPDX-License-Identifier: MIT
#pragma once

#include <demo/Scene.h>

/// Pieces of 30 s to learn from, the first pCount of an endless row that is the same in every run.
///
/// Each draws tempo, feel (straight, swung, in triplets), drums, hats, bass, chords and lead from
/// lists of patterns, and plays them more or less loosely, with fills, rests and drum-less bars.
std::vector<Scene> makeStudies(int pCount);
