// SPDX-License-Identifier: MIT
#pragma once

#include <demo/Scene.h>

#include <QString>
#include <QStringList>

#include <functional>

/// Makes at most pCount mono samples in [-1, 1] and returns how many; 0 at the end.
using SampleMaker = std::function<std::size_t(float* pSamples, std::size_t pCount)>;

/// Writes pPath as FLAC of 16 bits in mono, whole or not at all. The functions here return a
/// sentence on what failed, or an empty text. [allocates]
QString writeMonoFlac(const QString& pPath, int pSampleRate, const SampleMaker& pMaker);

/// Writes NAME.flac, NAME.beats (a beat a line, seconds) and NAME.json into pFolder, which exists.
QString writeScene(const QString& pFolder, const Scene& pScene);

/// The same for each kind of sound without music, pSeconds long, in which no beat is to be found.
QString writeSceneNoises(const QString& pFolder, double pSeconds);

/// Writes the recordings of pInputs one behind the other, mixed to mono; their rates must be equal.
/// pStarts receives where each begins, and the end, in seconds.
QString
joinRecordings(const QString& pPath, const QStringList& pInputs, std::vector<double>& pStarts);
