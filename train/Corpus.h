// SPDX-License-Identifier: MIT
#pragma once

#include "Track.h"

#include <QString>
#include <QStringList>

#include <vector>

/// Reads every NAME.flac (or .wav) of the folders that has a NAME.beats and a NAME.json, in order
/// of the names, and hears it. Throws std::runtime_error with a sentence on what is wrong.
std::vector<Track> readCorpus(const QStringList& pFolders);
/// Reads every .flac and .wav of a folder, in which there is no beat; the same holds.
std::vector<Track> readNoise(const QString& pFolder);
