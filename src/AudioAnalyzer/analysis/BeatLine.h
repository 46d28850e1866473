/* SPDX-License-Identifier: MIT */
#pragma once

#include <stdint.h>

#ifdef __cplusplus
#include <cmath>
#endif

/* NOLINTBEGIN(modernize-use-using): C has no other way. */

/** A steady tempo: at an instant the beats stand at a position, and advance by one a period.
 *
 * A position counts beats: beat n lies at position n, and 17.25 is a quarter of a beat behind beat
 * 17. Instants are microseconds on the host's clock, at most 2^52 from 0. Also valid C. */
typedef struct BeatLine
{
    int64_t time;    /**< µs */
    double position; /**< beats, at that instant */
    double period;   /**< µs a beat; 0 = no tempo */

#ifdef __cplusplus
    /// Beats at an instant, before or behind that of the line. period > 0. [any thread]
    double getPosition(int64_t pTime) const
    {
        return position + static_cast<double>(pTime - time) / period;
    }
    /// The instant nearest to a position, µs; at most 2^60 from that of the line. period > 0. [any
    /// thread]
    int64_t getTime(double pPosition) const
    {
        const double distance = (pPosition - position) * period;
        return time + std::llround(std::fmin(std::fmax(distance, -0x1p60), 0x1p60));
    }
#endif
} BeatLine;

/* NOLINTEND(modernize-use-using) */
