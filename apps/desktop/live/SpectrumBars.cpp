// SPDX-License-Identifier: MIT
#include "SpectrumBars.h"

#include <QPainter>
#include <qwt_scale_map.h>

#include <algorithm>

namespace {

constexpr double kFall = 90.0;      ///< dB a second
constexpr double kPeakFall = 24.0;  ///< likewise
constexpr qint64 kPeakHoldMs = 800;
constexpr double kBarShare = 0.74;  ///< of a band's width

/// Lowers pLevel towards the floor. True when it has moved.
bool Lower(double& pLevel, double pBy)
{
    const double before = pLevel;
    pLevel = std::max(pLevel - pBy, SpectrumBars::kLeast);
    return pLevel < before;
}

}  // namespace

SpectrumBars::SpectrumBars()
    : m_edges(detail::BandEdges(kLow, kHigh, kBands)), m_levels(kBands, kLeast),
      m_peaks(kBands, kLeast), m_peakTimes(kBands, 0)
{
    setZ(10.0);
}

void SpectrumBars::setColors(const QColor& pBar, const QColor& pPeak)
{
    m_bar = pBar;
    m_peak = pPeak;
}

void SpectrumBars::_SetBins(std::size_t pCount, int pSampleRate)
{
    if (pCount == m_binCount && pSampleRate == m_sampleRate)
        return;
    m_binCount = pCount;
    m_sampleRate = pSampleRate;
    const double width = pSampleRate * 0.5 / double(pCount);
    m_bins.clear();
    for (std::size_t i = 0; i < kBands; ++i)
        m_bins.push_back(detail::BinsOfBand(m_edges[i], m_edges[i + 1], width, pCount));
}

void SpectrumBars::Add(const std::vector<double>& pAmplitudes, int pSampleRate, qint64 pNow)
{
    if (pAmplitudes.empty() || pSampleRate <= 0)
        return;
    _SetBins(pAmplitudes.size(), pSampleRate);
    for (std::size_t i = 0; i < kBands; ++i) {
        const auto [first, last] = m_bins[i];
        const double power = *std::max_element(pAmplitudes.begin() + std::ptrdiff_t(first),
                                               pAmplitudes.begin() + std::ptrdiff_t(last) + 1);
        m_levels[i] = std::max(m_levels[i], detail::PowerDecibels(power, kLeast));
        if (m_levels[i] >= m_peaks[i]) {
            m_peaks[i] = m_levels[i];
            m_peakTimes[i] = pNow;
        }
    }
}

bool SpectrumBars::Fall(qint64 pNow)
{
    const double seconds = double(std::clamp<qint64>(pNow - m_lastFall, 0, 1000)) / 1000.0;
    m_lastFall = pNow;
    bool hasMoved = false;
    for (std::size_t i = 0; i < kBands; ++i) {
        hasMoved |= Lower(m_levels[i], kFall * seconds);
        if (pNow - m_peakTimes[i] >= kPeakHoldMs)
            hasMoved |= Lower(m_peaks[i], kPeakFall * seconds);
    }
    return hasMoved;
}

void SpectrumBars::draw(QPainter* pPainter,
                        const QwtScaleMap& pX,
                        const QwtScaleMap& pY,
                        const QRectF& pCanvas) const
{
    const double bottom = pCanvas.bottom() + 1.0;
    const double line = std::max(1.5, pCanvas.height() / 90.0);
    for (std::size_t i = 0; i < kBands; ++i) {
        const double left = pX.transform(m_edges[i]);
        const double width = (pX.transform(m_edges[i + 1]) - left) * kBarShare;
        if (m_levels[i] > kLeast) {
            const double top = pY.transform(m_levels[i]);
            pPainter->fillRect(QRectF(left, top, width, bottom - top), m_bar);
        }
        if (m_peaks[i] > kLeast)
            pPainter->fillRect(QRectF(left, pY.transform(m_peaks[i]), width, line), m_peak);
    }
}
