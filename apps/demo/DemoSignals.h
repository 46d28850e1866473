// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// Building blocks of the demo track's instruments.
///
/// They hold no clock and use no random device, so the same calls give the same samples.
namespace demo {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kPeak = 0.891;  ///< -1 dBFS
constexpr double kDrive = 1.8;   ///< into the final soft clipper

/// Frequency of a MIDI note number, Hz.
inline double getNoteFrequency(int pNote)
{
    return 440.0 * std::exp2((pNote - 69) / 12.0);
}

/// Share of the distance to go per sample, for a one-pole smoother.
inline double getSmoothing(double pRate, double pSeconds)
{
    return 1.0 - std::exp(-1.0 / (pSeconds * pRate));
}

/// White noise in [-1, 1), the same sequence in every run.
class Noise
{
public:
    explicit Noise(std::uint32_t pSeed) : m_state(pSeed) {}
    double Next()
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return double(m_state) / 2147483648.0 - 1.0;
    }

private:
    std::uint32_t m_state;  ///< never 0
};

/// Falls exponentially from the value it is set to.
class Envelope
{
public:
    Envelope(double pRate, double pSeconds) { setDecay(pRate, pSeconds); }
    void setDecay(double pRate, double pSeconds) { m_factor = std::exp(-1.0 / (pSeconds * pRate)); }
    void Trigger(double pLevel) { m_level = pLevel; }
    double Next()
    {
        const double level = m_level;
        m_level = level > 1e-6 ? level * m_factor : 0.0;
        return level;
    }

private:
    double m_factor = 0.0;
    double m_level = 0.0;
};

/// State-variable filter of second order (trapezoidal integration).
class Filter
{
public:
    explicit Filter(double pRate) : m_rate(pRate) {}
    void setCutoff(double pFrequency, double pResonance)
    {
        const double g = std::tan(0.5 * kTwoPi * std::min(pFrequency / m_rate, 0.4));
        m_damping = 1.0 / pResonance;
        m_a1 = 1.0 / (1.0 + g * (g + m_damping));
        m_a2 = g * m_a1;
        m_a3 = g * m_a2;
    }
    void Process(double pInput)
    {
        const double v3 = pInput - m_ic2;
        m_band = m_a1 * m_ic1 + m_a2 * v3;
        m_low = m_ic2 + m_a2 * m_ic1 + m_a3 * v3;
        m_ic1 = 2.0 * m_band - m_ic1;
        m_ic2 = 2.0 * m_low - m_ic2;
        m_high = pInput - m_damping * m_band - m_low;
    }
    double getLow() const { return m_low; }
    double getBand() const { return m_damping * m_band; }
    double getHigh() const { return m_high; }

private:
    double m_rate;
    double m_damping = 1.0;
    double m_a1 = 0.0, m_a2 = 0.0, m_a3 = 0.0;
    double m_ic1 = 0.0, m_ic2 = 0.0;
    double m_low = 0.0, m_band = 0.0, m_high = 0.0;
};

/// Sawtooth whose step is rounded off, so that it hardly aliases.
class Saw
{
public:
    Saw(double pRate, double pPhase) : m_rate(pRate), m_phase(pPhase) {}
    void setFrequency(double pFrequency) { m_step = std::min(pFrequency / m_rate, 0.45); }
    double Next()
    {
        double value = 2.0 * m_phase - 1.0;
        if (m_phase < m_step) {
            const double t = m_phase / m_step;
            value -= t + t - t * t - 1.0;
        } else if (m_phase > 1.0 - m_step) {
            const double t = (m_phase - 1.0) / m_step;
            value -= t * t + t + t + 1.0;
        }
        m_phase += m_step;
        m_phase -= m_phase >= 1.0 ? 1.0 : 0.0;
        return value;
    }

private:
    double m_rate;
    double m_phase;
    double m_step = 0.0;
};

}  // namespace demo
