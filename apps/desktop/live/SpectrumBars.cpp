// SPDX-License-Identifier: MIT
#include "SpectrumBars.h"

#include <QPainter>
#include <qwt_scale_map.h>

#include <algorithm>

namespace {

constexpr double kFall = 90.0;      ///< dB a second
constexpr double kPeakFall = 24.0;  ///< likewise
constexpr qint64 kPeakHoldMs = 800;

/// Lowers pLevel towards the floor. True when it has moved.
bool Lower(double& pLevel, double pBy)
{
    const double before = pLevel;
    pLevel = std::max(pLevel - pBy, SpectrumBars::kLeast);
    return pLevel < before;
}

}  // namespace

void SpectrumBars::setColors(const QColor& pBar, const QColor& pPeak)
{
    m_bar = pBar;
    m_peak = pPeak;
}

void SpectrumBars::_SetBars(std::size_t pBinCount, int pSampleRate)
{
    if (pBinCount == m_binCount && pSampleRate == m_sampleRate)
        return;
    m_binCount = pBinCount;
    m_sampleRate = pSampleRate;
    m_bars = detail::MakeBars(
        detail::BandEdges(kLow, kHigh, kBands), pSampleRate * 0.5 / double(pBinCount), pBinCount);
    m_levels.assign(m_bars.size(), kLeast);
    m_peaks.assign(m_bars.size(), kLeast);
    m_peakTimes.assign(m_bars.size(), 0);
}

void SpectrumBars::Add(const std::vector<double>& pAmplitudes, int pSampleRate, qint64 pNow)
{
    if (pAmplitudes.empty() || pSampleRate <= 0)
        return;
    _SetBars(pAmplitudes.size(), pSampleRate);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const auto [first, last] = m_bars[i].bins;
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
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        hasMoved |= Lower(m_levels[i], kFall * seconds);
        if (pNow - m_peakTimes[i] >= kPeakHoldMs)
            hasMoved |= Lower(m_peaks[i], kPeakFall * seconds);
    }
    return hasMoved;
}

void SpectrumBars::Draw(QPainter& pPainter,
                        const QwtScaleMap& pX,
                        const QwtScaleMap& pY,
                        const QRectF& pCanvas) const
{
    const double bottom = pCanvas.bottom() + 1.0;
    const double gap = std::max(1.0, pCanvas.width() / 400.0);
    const double line = std::max(1.5, pCanvas.height() / 90.0);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const double left = pX.transform(m_bars[i].low);
        const double width = pX.transform(m_bars[i].high) - left - gap;
        if (m_levels[i] > kLeast) {
            const double top = pY.transform(m_levels[i]);
            pPainter.fillRect(QRectF(left, top, width, bottom - top), m_bar);
        }
        if (m_peaks[i] > kLeast)
            pPainter.fillRect(QRectF(left, pY.transform(m_peaks[i]), width, line), m_peak);
    }
}
