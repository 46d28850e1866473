// SPDX-License-Identifier: MIT
#pragma once

#include "../detail/SpectrumBands.h"

#include <QColor>
#include <QRectF>

#include <cstddef>
#include <vector>

class QPainter;
class QwtScaleMap;

/// The bars of a spectrum on logarithmic bands, with held peaks.
class SpectrumBars
{
public:
    static constexpr std::size_t kBands = 60;  ///< neighbours may share a bar
    static constexpr double kLow = 30.0;       ///< Hz
    static constexpr double kHigh = 16000.0;   ///< Hz
    static constexpr double kLeast = -60.0;    ///< dB

    void setColors(const QColor& pBar, const QColor& pPeak);
    /// A new spectrum of normalised powers; pNow: ms.
    void Add(const std::vector<double>& pAmplitudes, int pSampleRate, qint64 pNow);
    /// Lets the bars fall as time goes by. True when anything has moved.
    bool Fall(qint64 pNow);
    const std::vector<double>& getLevels() const { return m_levels; }  ///< dB
    const std::vector<double>& getPeaks() const { return m_peaks; }

    void Draw(QPainter& pPainter,
              const QwtScaleMap& pX,
              const QwtScaleMap& pY,
              const QRectF& pCanvas) const;

private:
    void _SetBars(std::size_t pBinCount, int pSampleRate);

    std::vector<detail::SpectrumBar> m_bars;  ///< none before the first spectrum
    std::vector<double> m_levels;             ///< dB, of each bar
    std::vector<double> m_peaks;              ///< dB
    std::vector<qint64> m_peakTimes;          ///< ms
    std::size_t m_binCount = 0;
    int m_sampleRate = 0;   ///< Hz
    qint64 m_lastFall = 0;  ///< ms
    QColor m_bar;
    QColor m_peak;
};
