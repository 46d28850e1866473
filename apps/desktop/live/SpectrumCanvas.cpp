// SPDX-License-Identifier: MIT
#include "SpectrumCanvas.h"

#include "SpectrumBars.h"

#include <QPainter>
#include <qwt_plot.h>

SpectrumCanvas::SpectrumCanvas(QwtPlot* pPlot, const SpectrumBars& pBars)
    : QwtPlotCanvas(pPlot), m_bars(pBars)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFrameStyle(QFrame::NoFrame);
}

void SpectrumCanvas::Redraw()
{
    m_ground.Clear();
    update();
}

void SpectrumCanvas::paintEvent(QPaintEvent*)
{
    const auto drawGround = [this](QPainter& pPainter) {
        pPainter.setRenderHint(QPainter::Antialiasing, false);
        plot()->drawCanvas(&pPainter);
    };
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground.Get(0, *this, drawGround));
    m_bars.Draw(painter,
                plot()->canvasMap(QwtPlot::xBottom),
                plot()->canvasMap(QwtPlot::yLeft),
                contentsRect());
}

#include "moc_SpectrumCanvas.cpp"
