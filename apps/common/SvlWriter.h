// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <common/AnalysisResult.h>

/// A Sonic Visualiser layer file: the beats as time instants, positions in sample frames, labelled
/// with their numbers; " virtual" follows the number of a virtual beat.
QByteArray makeSvlDocument(const AnalysisResult& pResult);
