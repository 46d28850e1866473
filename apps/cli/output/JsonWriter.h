// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>
#include <shared/settings/AnalysisOptions.h>

#include <QByteArray>

class Configuration;

/// One indented JSON document with everything about a file: file, duration, sampleRate, profile,
/// settings, tempo, silences and beats.
///
/// With the automatic tracker it has tracker instead of profile, and only what that tracker knows.
///
/// pOptions and pConfiguration are those of the analysis. Times are in seconds with six decimals at
/// most, index is the absolute sample index, bpm is null when the tempo is unknown.
QByteArray makeJsonDocument(const AnalysisResult& pResult,
                            const AnalysisOptions& pOptions,
                            const Configuration& pConfiguration);
