// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

/// Drums made of decaying sines: the same music at every sample rate, as far as it reaches.
class MeterMusic
{
public:
    explicit MeterMusic(int pSampleRate)
        : m_sampleRate(pSampleRate), m_hat(_Strike({7000.0, 8300.0, 9900.0}, 0.02, 0.1)),
          m_kick(_Strike({55.0, 110.0, 2100.0}, 0.08, 0.5)),
          m_snare(_Strike({190.0, 330.0, 870.0, 1900.0, 2900.0, 3700.0}, 0.06, 0.25))
    {
    }

    /// Silence.
    MeterMusic& rest(double pSeconds)
    {
        m_values.resize(m_values.size() + std::size_t(pSeconds * m_sampleRate));
        return *this;
    }

    /// Bass drum on every beat, snare on the second and fourth, hi-hats on eighths.
    MeterMusic& play(double pBPM, double pSeconds)
    {
        const double start = double(m_values.size()) / m_sampleRate;
        rest(pSeconds);
        const double eighth = 30.0 / pBPM;
        for (int i = 0; i * eighth < pSeconds - 1e-9; ++i) {
            const double time = start + i * eighth;
            _Add(time, m_hat, 1.0);
            if (i % 2 == 0)
                _Add(time, m_kick, i % 8 == 0 ? 1.3 : 1.0);
            if (i % 4 == 2)
                _Add(time, m_snare, 1.0);
        }
        return *this;
    }

    /// As 16-bit samples with the highest peak at pPeak.
    std::vector<qint16> samples(double pPeak = 16000.0) const
    {
        double highest = 1e-9;
        for (const double value : m_values)
            highest = std::max(highest, std::fabs(value));
        std::vector<qint16> samples(m_values.size());
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = qint16(std::lround(m_values[i] / highest * pPeak));
        return samples;
    }

private:
    std::vector<double>
    _Strike(const std::vector<double>& pPartials, double pDecay, double pLevel) const
    {
        std::vector<double> values(std::size_t(8.0 * pDecay * m_sampleRate));
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double t = double(i) / m_sampleRate;
            for (const double partial : pPartials)
                if (partial < 0.45 * m_sampleRate)
                    values[i] += std::sin(6.283185307179586 * partial * t);
            values[i] *= pLevel * std::exp(-t / pDecay);
        }
        return values;
    }

    void _Add(double pTime, const std::vector<double>& pStrike, double pLevel)
    {
        const auto first = std::size_t(std::lround(pTime * m_sampleRate));
        const std::size_t count = first < m_values.size() ? m_values.size() - first : 0;
        for (std::size_t i = 0; i < std::min(count, pStrike.size()); ++i)
            m_values[first + i] += pLevel * pStrike[i];
    }

    int m_sampleRate;  ///< Hz
    std::vector<double> m_hat, m_kick, m_snare;
    std::vector<double> m_values;
};
