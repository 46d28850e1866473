// SPDX-License-Identifier: MIT
#pragma once

#include <demo/DemoSignals.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

/// Instruments of the demo track. Each is triggered and then asked for one sample after another.
namespace demo {

/// Bass drum: a sine that falls from 180 to 50 Hz, driven, with a click.
class Kick
{
public:
    explicit Kick(double pRate)
        : m_rate(pRate), m_amp(pRate, 0.11), m_pitch(pRate, 0.012), m_click(pRate, 0.003)
    {
    }
    void Trigger()
    {
        m_phase = 0.0;
        m_amp.Trigger(1.0);
        m_pitch.Trigger(1.0);
        m_click.Trigger(0.35);
    }
    double Next()
    {
        m_phase += (50.0 + 130.0 * m_pitch.Next()) / m_rate;
        const double body = std::tanh(2.0 * std::sin(kTwoPi * m_phase) * m_amp.Next());
        return body + m_noise.Next() * m_click.Next();
    }

private:
    double m_rate;
    double m_phase = 0.0;
    Envelope m_amp, m_pitch, m_click;
    Noise m_noise{0x1234567};
};

/// Hi-hat: high-passed noise, short (closed) or longer (open).
class HiHat
{
public:
    explicit HiHat(double pRate) : m_rate(pRate), m_amp(pRate, 0.03), m_filter(pRate)
    {
        m_filter.setCutoff(7500.0, 1.1);
    }
    void Trigger(double pLevel, bool pIsOpen)
    {
        m_amp.setDecay(m_rate, pIsOpen ? 0.09 : 0.022);
        m_amp.Trigger(pLevel);
    }
    double Next()
    {
        m_filter.Process(m_noise.Next());
        return m_filter.getHigh() * m_amp.Next();
    }

private:
    double m_rate;
    Envelope m_amp;
    Filter m_filter;
    Noise m_noise{0x2468ace1};
};

/// Clap: band-passed noise in three quick bursts and a tail.
class Clap
{
public:
    explicit Clap(double pRate)
        : m_burstFrames(int(0.011 * pRate)), m_amp(pRate, 0.07), m_filter(pRate)
    {
        m_filter.setCutoff(1400.0, 1.3);
    }
    void Trigger() { m_frame = 0; }
    double Next()
    {
        if (m_frame <= 2 * m_burstFrames && m_frame++ % m_burstFrames == 0)
            m_amp.Trigger(1.0);
        m_filter.Process(m_noise.Next());
        return m_filter.getBand() * m_amp.Next();
    }

private:
    int m_burstFrames;
    int m_frame = 1 << 30;
    Envelope m_amp;
    Filter m_filter;
    Noise m_noise{0x13579bd};
};

/// Bass: a sawtooth behind a resonant low-pass that closes with the note.
class Bass
{
public:
    explicit Bass(double pRate)
        : m_smoothing(getSmoothing(pRate, 0.001)), m_saw(pRate, 0.0), m_amp(pRate, 0.14),
          m_sweep(pRate, 0.08), m_filter(pRate)
    {
    }
    void Trigger(int pNote)
    {
        m_saw.setFrequency(getNoteFrequency(pNote));
        m_amp.Trigger(1.0);
        m_sweep.Trigger(1.0);
    }
    double Next()
    {
        const double sweep = m_sweep.Next();
        if (m_frame++ % 16 == 0)
            m_filter.setCutoff(180.0 + 1500.0 * sweep, 1.6);
        m_attack += (m_amp.Next() - m_attack) * m_smoothing;
        m_filter.Process(m_saw.Next() * m_attack);
        return m_filter.getLow();
    }

private:
    double m_smoothing;
    Saw m_saw;
    Envelope m_amp, m_sweep;
    Filter m_filter;
    double m_attack = 0.0;
    unsigned m_frame = 0;
};

/// Four-part chords of detuned sawtooths, one set for each side, behind a low-pass.
class Chords
{
public:
    using Notes = std::array<int, 4>;

    explicit Chords(double pRate)
        : m_rate(pRate), m_smoothing(getSmoothing(pRate, 0.004)),
          m_amp(pRate, 0.2), m_filters{Filter(pRate), Filter(pRate)}
    {
        for (std::size_t i = 0; i < 2 * std::tuple_size<Notes>::value; ++i)
            m_saws.emplace_back(pRate, 0.37 * double(i) - std::floor(0.37 * double(i)));
        setCutoff(1000.0);
    }
    void setCutoff(double pFrequency)
    {
        m_filters[0].setCutoff(pFrequency, 0.9);
        m_filters[1].setCutoff(pFrequency, 0.9);
    }
    void Trigger(const Notes& pNotes, double pLevel, double pDecay)
    {
        for (std::size_t i = 0; i < m_saws.size(); ++i) {
            const double detune = i % 2 == 0 ? 0.9975 : 1.0025;
            m_saws[i].setFrequency(getNoteFrequency(pNotes[i / 2]) * detune);
        }
        m_amp.setDecay(m_rate, pDecay);
        m_amp.Trigger(pLevel);
    }
    /// Adds the next frame to pLeft and pRight.
    void Mix(double pGain, double& pLeft, double& pRight)
    {
        std::array<double, 2> sums = {0.0, 0.0};
        for (std::size_t i = 0; i < m_saws.size(); ++i)
            sums[i % 2] += m_saws[i].Next();
        m_level += (m_amp.Next() - m_level) * m_smoothing;
        m_filters[0].Process(sums[0] * m_level);
        m_filters[1].Process(sums[1] * m_level);
        pLeft += pGain * (m_filters[0].getLow() + 0.3 * m_filters[1].getLow());
        pRight += pGain * (m_filters[1].getLow() + 0.3 * m_filters[0].getLow());
    }

private:
    double m_rate;
    double m_smoothing;
    double m_level = 0.0;
    Envelope m_amp;
    std::array<Filter, 2> m_filters;
    std::vector<Saw> m_saws;
};

/// A held low note, faded in and out.
class Drone
{
public:
    explicit Drone(double pRate) : m_step(55.0 / pRate), m_smoothing(getSmoothing(pRate, 0.05)) {}
    double Next(bool pIsOn)
    {
        m_level += ((pIsOn ? 1.0 : 0.0) - m_level) * m_smoothing;
        m_phase += m_step;
        m_phase -= std::floor(m_phase);
        return m_level * std::sin(kTwoPi * m_phase);
    }

private:
    double m_step;
    double m_smoothing;
    double m_phase = 0.0;
    double m_level = 0.0;
};

/// Plucked lead with an echo that swings from side to side.
class Lead
{
public:
    Lead(double pRate, double pEchoSeconds)
        : m_smoothing(getSmoothing(pRate, 0.001)), m_saw(pRate, 0.0), m_amp(pRate, 0.1),
          m_filter(pRate), m_left(std::max<std::size_t>(1, std::size_t(pEchoSeconds * pRate)), 0.0),
          m_right(m_left.size(), 0.0)
    {
        m_filter.setCutoff(3200.0, 1.4);
    }
    void Trigger(int pNote)
    {
        m_saw.setFrequency(getNoteFrequency(pNote));
        m_amp.Trigger(1.0);
    }
    /// Adds the next frame to pLeft and pRight.
    void Mix(double pGain, double& pLeft, double& pRight)
    {
        m_attack += (m_amp.Next() - m_attack) * m_smoothing;
        m_filter.Process(m_saw.Next() * m_attack);
        const double dry = m_filter.getLow();
        double& left = m_left[m_position];
        double& right = m_right[m_position];
        m_position = (m_position + 1) % m_left.size();
        pLeft += pGain * (dry + left);
        pRight += pGain * (0.7 * dry + right);
        const double echo = left;
        left = 0.5 * right + 0.4 * dry;
        right = 0.7 * echo;
    }

private:
    double m_smoothing;
    Saw m_saw;
    Envelope m_amp;
    Filter m_filter;
    std::vector<double> m_left, m_right;
    std::size_t m_position = 0;
    double m_attack = 0.0;
};

}  // namespace demo
