// SPDX-License-Identifier: MIT
#pragma once

#include "FrameCache.h"

#include <qwt_plot_canvas.h>

class SpectrumBars;

/// Draws the bars over a picture of all that does not move.
class SpectrumCanvas : public QwtPlotCanvas
{
    Q_OBJECT

public:
    /// pBars is not owned.
    SpectrumCanvas(QwtPlot* pPlot, const SpectrumBars& pBars);

    /// Grid, band or colours are others now.
    void Redraw();

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    const SpectrumBars& m_bars;  ///< not owned
    FrameCache m_ground;
};
