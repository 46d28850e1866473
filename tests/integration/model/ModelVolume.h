// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace model {

struct VolumeFigures
{
    int average = -1;
    int maximum = -1;
    int minimum = -1;
};

/// The newest samples that fit, oldest first; every figure is computed anew from them.
class VolumeWindow
{
public:
    VolumeWindow(double seconds, int sampleRate)
        : m_capacity(static_cast<std::size_t>(qRound64(seconds * sampleRate)))
    {
    }

    bool update(const std::vector<qint16>& samples)
    {
        if (samples.empty())
            return false;
        m_isSummary = false;
        m_samples.insert(m_samples.end(), samples.begin(), samples.end());
        if (m_samples.size() > m_capacity) {
            m_samples.erase(m_samples.begin(),
                            m_samples.end() - static_cast<std::ptrdiff_t>(m_capacity));
        }
        return true;
    }

    void reset()
    {
        m_samples.clear();
        m_isSummary = false;
    }

    /// A window with samples becomes a summary of two of them, and keeps its figures until the
    /// update.
    bool resize(double seconds, int sampleRate)
    {
        if (!(seconds > 0) || !(sampleRate > 0))
            return false;
        const auto capacity = static_cast<std::size_t>(qRound64(seconds * sampleRate));
        if (capacity < 2 || capacity == m_capacity)
            return false;
        m_capacity = capacity;
        if (!m_samples.empty()) {
            m_summary = getFigures();
            m_isSummary = true;
            m_samples = {static_cast<qint16>(m_summary.maximum),
                         static_cast<qint16>(m_summary.minimum)};
        }
        return true;
    }

    VolumeFigures getFigures() const
    {
        if (m_isSummary)
            return m_summary;
        if (m_samples.empty())
            return {};
        VolumeFigures figures = {0, std::abs(m_samples[0]), std::abs(m_samples[0])};
        qint64 sum = 0;
        for (const int sample : m_samples) {
            const int magnitude = std::abs(sample);
            sum += magnitude;
            figures.maximum = std::max(figures.maximum, magnitude);
            figures.minimum = std::min(figures.minimum, magnitude);
        }
        figures.average = static_cast<int>(sum / static_cast<qint64>(m_samples.size()));
        return figures;
    }

    std::size_t getCapacity() const { return m_capacity; }
    const std::vector<qint16>& getSamples() const { return m_samples; }

private:
    std::size_t m_capacity;
    std::vector<qint16> m_samples;
    bool m_isSummary = false;
    VolumeFigures m_summary;
};

}  // namespace model
