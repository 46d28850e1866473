// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace detail {

/// Where the next beat is expected: absolute sample indexes, the bounds inclusive.
struct BeatWindow
{
    quint64 start;
    quint64 end;
    quint64 nextBeat;
};

constexpr quint64 kWindowBlocksBefore = 4;
constexpr quint64 kWindowBlocksAfter = 6;

/// One beat length after the last beat, four blocks early to six blocks late.
inline BeatWindow WindowAfterBeat(quint64 pLastBeat, quint64 pBeatLength, quint64 pBlockSize)
{
    const quint64 next = pLastBeat + pBeatLength;
    return {next - kWindowBlocksBefore * pBlockSize, next + kWindowBlocksAfter * pBlockSize, next};
}

/// No beat yet: from the present position, one beat of the slowest tempo long.
inline BeatWindow FirstWindow(quint64 pPosition, quint64 pBeatLength, quint64 pSlowestBeatLength)
{
    return {pPosition, pPosition + pSlowestBeatLength, pPosition + pBeatLength};
}

}  // namespace detail
