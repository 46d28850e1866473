// SPDX-License-Identifier: MIT
#include <desktop/live/SpectrumBars.h>

#include <QPainter>
#include <qwt_scale_map.h>

#include <algorithm>
#include <utility>

namespace {

constexpr double kFall = 90.0;      ///< dB a second
constexpr double kPeakFall = 24.0;  ///< likewise
constexpr qint64 kPeakHoldMs = 800;

}  // namespace

void SpectrumBars::_SetBars(std::size_t pBinCount, int pSampleRate)
{
    if (pBinCount == m_binCount && pSampleRate == m_sampleRate)
        return;
    m_binCount = pBinCount;
    m_sampleRate = pSampleRate;
    m_bars = desktop::MakeBars(
        desktop::BandEdges(kLow, kHigh, kBands), pSampleRate * 0.5 / double(pBinCount), pBinCount);
    m_levels.assign(m_bars.size(), kLeast);
    m_peaks.assign(m_bars.size(), kLeast);
    m_peakTimes.assign(m_bars.size(), 0);
    m_moved = {kLow, kHigh, kLeast, 0.0};
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
        _Move(i, m_levels[i], std::max(m_levels[i], desktop::PowerDecibels(power, kLeast)));
        if (m_levels[i] >= m_peaks[i]) {
            _Move(i, m_peaks[i], m_levels[i]);
            m_peakTimes[i] = pNow;
        }
    }
}

void SpectrumBars::Clear()
{
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        _Move(i, m_levels[i], kLeast);
        _Move(i, m_peaks[i], kLeast);
    }
}

void SpectrumBars::Fall(qint64 pNow)
{
    const double seconds = double(std::clamp<qint64>(pNow - m_lastFall, 0, 1000)) / 1000.0;
    m_lastFall = pNow;
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        _Move(i, m_levels[i], std::max(m_levels[i] - kFall * seconds, kLeast));
        if (pNow - m_peakTimes[i] >= kPeakHoldMs)
            _Move(i, m_peaks[i], std::max(m_peaks[i] - kPeakFall * seconds, kLeast));
    }
}

SpectrumBars::Moved SpectrumBars::TakeMoved()
{
    return std::exchange(m_moved, Moved());
}

void SpectrumBars::_Move(std::size_t pBar, double& pLevel, double pTo)
{
    if (pTo >= pLevel && pTo <= pLevel)
        return;
    m_moved.left = std::min(m_moved.left, m_bars[pBar].low);
    m_moved.right = std::max(m_moved.right, m_bars[pBar].high);
    m_moved.low = std::min({m_moved.low, pLevel, pTo});
    m_moved.high = std::max({m_moved.high, pLevel, pTo});
    pLevel = pTo;
}

void SpectrumBars::Draw(QPainter& pPainter,
                        const QwtScaleMap& pX,
                        const QwtScaleMap& pY,
                        const LookColors& pColors,
                        const QRectF& pCanvas) const
{
    const double bottom = pCanvas.bottom() + 1.0;
    const double gap = std::max(1.0, pCanvas.width() / 400.0);
    const double line = getPeakLine(pCanvas.height());
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const double left = pX.transform(m_bars[i].low);
        const double width = pX.transform(m_bars[i].high) - left - gap;
        if (m_levels[i] > kLeast) {
            const double top = pY.transform(m_levels[i]);
            pPainter.fillRect(QRectF(left, top, width, bottom - top), pColors.spectrum);
        }
        if (m_peaks[i] > kLeast)
            pPainter.fillRect(QRectF(left, pY.transform(m_peaks[i]), width, line), pColors.peak);
    }
}
