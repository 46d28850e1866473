// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <limits>

namespace detail {

/// First instant, one or more whole periods after pStart, that is not before pNow. All in µs.
inline quint64 NextBeatInstant(quint64 pStart, quint64 pPeriod, quint64 pNow)
{
    const quint64 first = pStart + pPeriod;
    if (first >= pNow || pPeriod == 0)
        return first;
    const quint64 periods = (pNow - pStart + pPeriod - 1) / pPeriod;
    return pStart + periods * pPeriod;
}

/// Whole milliseconds from pNow to pInstant, which is not before it, as a timer takes them.
inline int DelayInMilliSeconds(quint64 pInstant, quint64 pNow)
{
    const quint64 delay = pInstant > pNow ? (pInstant - pNow) / 1000 : 0;
    constexpr quint64 kLongest = std::numeric_limits<int>::max();
    return static_cast<int>(delay < kLongest ? delay : kLongest);
}

}  // namespace detail
