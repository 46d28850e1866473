// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/SpectrumBars.h>
#include <desktop/look/Look.h>

#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

/// Draws the bars on the grid of the plot's scales and the band of a profile.
///
/// All of it is plain rectangles: it is painted thirty times a second.
class SpectrumCanvas : public QwtPlotCanvas
{
    Q_OBJECT

public:
    /// pBars is not owned.
    SpectrumCanvas(QwtPlot* pPlot, const SpectrumBars& pBars);

    void setColors(const LookColors& pColors);
    /// Hz; below 1 = no such edge.
    void setBand(int pLow, int pHigh);
    int getLow() const { return m_low; }
    int getHigh() const { return m_high; }
    void Repaint(const SpectrumBars::Moved& pArea);

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    /// Hz and dB to pixels. Making them costs more than a bar.
    struct Maps
    {
        QwtScaleMap x;
        QwtScaleMap y;
    };

    Maps _MakeMaps() const;
    QRect _ToPixels(const SpectrumBars::Moved& pArea, const Maps& pMaps) const;
    void _DrawBand(QPainter& pPainter, const Maps& pMaps, const QColor& pGround) const;
    void _DrawGrid(QPainter& pPainter, const Maps& pMaps) const;

    const SpectrumBars& m_bars;   ///< not owned
    const LookColors* m_pColors;  ///< not owned
    int m_low = 0;                ///< Hz
    int m_high = 0;               ///< Hz
};
