// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/detail/SpectrumBands.h>
#include <desktop/look/Look.h>

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

    /// A new spectrum of normalised powers; pNow: ms.
    void Add(const std::vector<double>& pAmplitudes, int pSampleRate, qint64 pNow);
    /// Forgets what was: another input is heard.
    void Clear();
    /// Lets the bars fall as time goes by.
    void Fall(qint64 pNow);
    /// The area in which bars or peaks have moved; empty when left is not below right.
    struct Moved
    {
        double left = kHigh;   ///< Hz
        double right = kLow;   ///< Hz
        double low = 0.0;      ///< dB
        double high = kLeast;  ///< dB
    };
    /// The area since the last call. One, since painting in several pieces costs more than it
    /// saves.
    Moved TakeMoved();
    const std::vector<double>& getLevels() const { return m_levels; }  ///< dB
    const std::vector<double>& getPeaks() const { return m_peaks; }

    /// How thick a peak is drawn on a canvas of that height, pixels.
    static double getPeakLine(double pHeight) { return pHeight < 180.0 ? 1.5 : pHeight / 120.0; }
    void Draw(QPainter& pPainter,
              const QwtScaleMap& pX,
              const QwtScaleMap& pY,
              const LookColors& pColors,
              const QRectF& pCanvas) const;

private:
    void _Move(std::size_t pBar, double& pLevel, double pTo);
    void _SetBars(std::size_t pBinCount, int pSampleRate);

    std::vector<desktop::SpectrumBar> m_bars;  ///< none before the first spectrum
    std::vector<double> m_levels;              ///< dB, of each bar
    std::vector<double> m_peaks;               ///< dB
    std::vector<qint64> m_peakTimes;           ///< ms
    std::size_t m_binCount = 0;
    int m_sampleRate = 0;   ///< Hz
    qint64 m_lastFall = 0;  ///< ms
    Moved m_moved;          ///< since TakeMoved()
};
