// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>

#include <QByteArray>

/// A Sonic Visualiser layer file: the beats as time instants, positions in sample frames, labelled
/// with their numbers; " virtual" follows the number of a virtual beat.
QByteArray makeSvlDocument(const AnalysisResult& pResult);
