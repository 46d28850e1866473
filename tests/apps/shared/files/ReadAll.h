// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioFileReader.h>

#include <sndfile.h>
#include <vector>

/// Everything that a reader gives, in pieces of pPiece frames.
inline std::vector<qint16> ReadAll(AudioFileReader& pReader, std::size_t pPiece)
{
    std::vector<qint16> all;
    std::vector<qint16> piece(pPiece);
    std::size_t count = pPiece;
    while (count == pPiece) {
        count = pReader.Read(piece.data(), pPiece);
        all.insert(all.end(), piece.begin(), piece.begin() + std::ptrdiff_t(count));
    }
    return all;
}

constexpr int kOpus = SF_FORMAT_OGG | SF_FORMAT_OPUS;
