// SPDX-License-Identifier: MIT
#pragma once

#include <support/Waves.h>

/// The samples every benchmark works on.
namespace bench {

inline waves::Samples noise(std::size_t pCount)
{
    waves::Random random(1);
    return waves::noise(pCount, 32767, random);
}

/// A minute and more of four on the floor with noise over it, 128 BPM.
inline const waves::Samples& track()
{
    static const waves::Samples samples = [] {
        waves::Samples result = waves::kickTrack(60.0, 44100, 128.0);
        waves::Random random(2);
        waves::mix(result, 0, waves::noise(result.size(), 1500, random));
        return result;
    }();
    return samples;
}

}  // namespace bench
