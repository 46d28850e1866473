// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace detail {

/// Samples in a pulse block: the largest power of two not above one fortieth of a second.
/// 0 for a sample rate, in Hz, below 20.
inline quint64 PulseBlockSize(int pSampleRate)
{
    const int longest = qRound(pSampleRate / 40.0);
    if (longest < 1)
        return 0;
    quint64 size = 1;
    while (size * 2 <= static_cast<quint64>(longest))
        size *= 2;
    return size;
}

}  // namespace detail
