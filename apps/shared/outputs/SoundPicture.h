// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace shared {

/// What lights are shown of the sound: its level, sixteen bands, and the strongest frequency.
///
/// A band is half an octave, from 40 Hz on. Its strength is that of its strongest frequency, in
/// decibels over a range of 48, and a little is added to high bands, in which music is weaker.
///
/// Threads: one.
class SoundPicture
{
public:
    static constexpr double kLowest = 40.0;           ///< Hz
    static constexpr double kRange = 48.0;            ///< dB
    static constexpr double kTilt = 1.5;              ///< dB a band
    static constexpr std::int64_t kInterval = 20000;  ///< µs between two pictures, at least

    /// Amplitudes, not powers, from 0 Hz to half of the rate: 0 to 1 of the strongest ones of late.
    /// [audio path: no allocation]
    void TakeSpectrum(const double* pAmplitudes, std::size_t pCount, int pSampleRate);
    /// Mono samples; pEnd: µs of ClockThread::getTime(), when the sample behind the last one
    /// sounds. A picture when one is due. [audio path: no allocation]
    std::optional<OutputSound>
    TakeSamples(const std::int16_t* pSamples, std::size_t pCount, std::int64_t pEnd);

private:
    void _FindBins(std::size_t pCount, int pSampleRate);

    static constexpr std::size_t kBands = 16;

    OutputSound m_sound = {};
    std::size_t m_count = 0;  ///< of the spectrum that m_firstBins is of
    int m_sampleRate = 0;     ///< Hz, likewise
    std::array<std::size_t, kBands + 1> m_firstBins = {};  ///< of each band, and behind the last
    double m_power = 0.0;      ///< sum of squares since the last picture
    std::size_t m_summed = 0;  ///< samples in it
    std::int64_t m_due = 0;    ///< µs; the next picture
};

}  // namespace shared
