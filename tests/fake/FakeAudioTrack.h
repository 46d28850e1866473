// SPDX-License-Identifier: MIT
#pragma once

#include "FakeAudioDevice.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// What a fake device plays.
namespace FakeAudioTrack {

/// Sample pIndex of a mono track, 16 bits.
using Generator = std::function<qint16(qint64 pIndex)>;

/// A mono signed 16-bit device of pSampleRate Hz that plays pGenerator without end.
FakeAudioDevice FromGenerator(const QString& pName, int pSampleRate, const Generator& pGenerator);

/// A device of the one format of a WAV file (integer PCM), which plays the file, once or for ever.
/// Without a name when the file cannot be read.
FakeAudioDevice FromWavFile(const QString& pName, const QString& pPath, bool pIsLooped);

}  // namespace FakeAudioTrack
