// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Test signals that are the same on every machine and with every standard library.
namespace waves {

using Samples = std::vector<qint16>;

constexpr double pi = 3.14159265358979323846;

/// A small generator of our own (splitmix64), since the standard distributions differ.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t next()
    {
        m_state += 0x9e3779b97f4a7c15u;
        std::uint64_t value = m_state;
        value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
        value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
        return value ^ (value >> 31);
    }

    /// 0 to limit - 1.
    std::uint64_t below(std::uint64_t limit) { return next() % limit; }
    /// first to last, both included.
    int between(int first, int last)
    {
        return first + static_cast<int>(below(static_cast<std::uint64_t>(last - first) + 1));
    }
    double uniform() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }  ///< [0, 1)
    double uniform(double low, double high) { return low + (high - low) * uniform(); }
    bool chance(double probability) { return uniform() < probability; }

private:
    std::uint64_t m_state;
};

/// Rounded and kept inside 16 bits.
inline qint16 toSample(double value)
{
    return static_cast<qint16>(std::lround(std::fmin(std::fmax(value, -32768.0), 32767.0)));
}

inline std::size_t toCount(double seconds, int rate)
{
    return static_cast<std::size_t>(std::lround(seconds * rate));
}

inline Samples constant(std::size_t count, qint16 value)
{
    return Samples(count, value);
}

inline Samples silence(std::size_t count)
{
    return constant(count, 0);
}

/// amplitude: sample units. It starts at zero, rising.
inline Samples sine(std::size_t count, int rate, double frequency, double amplitude)
{
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        samples[i] =
            toSample(amplitude * std::sin(2 * pi * frequency * static_cast<double>(i) / rate));
    }
    return samples;
}

/// White, between -amplitude and amplitude.
inline Samples noise(std::size_t count, int amplitude, Random& random)
{
    Samples samples(count);
    for (qint16& sample : samples)
        sample = static_cast<qint16>(random.between(-amplitude, amplitude));
    return samples;
}

/// A drum: a sine that decays.
struct Kick
{
    double frequency = 55.0;     ///< Hz
    double decay = 0.15;         ///< seconds until it has fallen to 1/e
    double amplitude = 26213.0;  ///< sample units, 0.8 of full scale
    double duration = 0.35;      ///< seconds
};

/// Mixes signal into samples at index, as far as it fits.
inline void mix(Samples& samples, std::size_t index, const Samples& signal)
{
    for (std::size_t i = 0; i < signal.size() && index + i < samples.size(); ++i)
        samples[index + i] = toSample(samples[index + i] + static_cast<double>(signal[i]));
}

inline Samples kick(int rate, const Kick& shape = Kick())
{
    Samples samples = sine(toCount(shape.duration, rate), rate, shape.frequency, shape.amplitude);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        samples[i] = toSample(samples[i] * std::exp(-time / shape.decay));
    }
    return samples;
}

/// Index of the kick of that number in a four-on-the-floor track; the first one, 0, is at 0.
inline std::size_t kickIndex(std::size_t number, int rate, double bpm)
{
    return static_cast<std::size_t>(std::llround(static_cast<double>(number) * 60.0 * rate / bpm));
}

/// Four on the floor: a kick on every beat, the first at 0.
inline Samples kickTrack(double seconds, int rate, double bpm, const Kick& shape = Kick())
{
    Samples samples = silence(toCount(seconds, rate));
    const Samples drum = kick(rate, shape);
    std::size_t number = 0;
    for (std::size_t at = 0; at < samples.size(); at = kickIndex(++number, rate, bpm))
        mix(samples, at, drum);
    return samples;
}

inline void append(Samples& samples, const Samples& more)
{
    samples.insert(samples.end(), more.begin(), more.end());
}

}  // namespace waves
