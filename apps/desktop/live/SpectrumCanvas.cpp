// SPDX-License-Identifier: MIT
#include <desktop/live/SpectrumCanvas.h>

#include <QPaintEvent>
#include <QPainter>
#include <qwt_plot.h>
#include <qwt_scale_div.h>

namespace {

/// A translucent colour on a ground: to fill with the mixture is far cheaper.
QColor Blend(const QColor& pGround, const QColor& pColor)
{
    const double share = pColor.alphaF();
    const auto mix = [share](double pBelow, double pAbove) {
        return pBelow + (pAbove - pBelow) * share;
    };
    return QColor::fromRgbF(mix(pGround.redF(), pColor.redF()),
                            mix(pGround.greenF(), pColor.greenF()),
                            mix(pGround.blueF(), pColor.blueF()));
}

}  // namespace

SpectrumCanvas::SpectrumCanvas(QwtPlot* pPlot, const SpectrumBars& pBars)
    : QwtPlotCanvas(pPlot), m_bars(pBars), m_pColors(&::getColors(eLightLook))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setPaintAttribute(BackingStore, false);
    setFrameStyle(QFrame::NoFrame);
}

void SpectrumCanvas::setColors(const LookColors& pColors)
{
    m_pColors = &pColors;
    update();
}

void SpectrumCanvas::setBand(int pLow, int pHigh)
{
    if (pLow == m_low && pHigh == m_high)
        return;
    m_low = pLow;
    m_high = pHigh;
    update();
}

void SpectrumCanvas::Repaint(const SpectrumBars::Moved& pArea)
{
    if (pArea.left < pArea.right)
        update(_ToPixels(pArea, _MakeMaps()));
}

SpectrumCanvas::Maps SpectrumCanvas::_MakeMaps() const
{
    return {plot()->canvasMap(QwtPlot::xBottom), plot()->canvasMap(QwtPlot::yLeft)};
}

QRect SpectrumCanvas::_ToPixels(const SpectrumBars::Moved& pArea, const Maps& pMaps) const
{
    const auto& [x, y] = pMaps;
    const QPoint corner(int(x.transform(pArea.left)) - 1, int(y.transform(pArea.high)) - 1);
    const double line = SpectrumBars::getPeakLine(height());
    const QPoint end(int(x.transform(pArea.right)) + 1, int(y.transform(pArea.low) + line) + 2);
    return {corner, end};
}

void SpectrumCanvas::paintEvent(QPaintEvent* pEvent)
{
    QPainter painter(this);
    const Maps maps = _MakeMaps();
    const QColor ground = palette().color(backgroundRole());
    painter.fillRect(pEvent->rect(), ground);
    _DrawBand(painter, maps, ground);
    _DrawGrid(painter, maps);
    m_bars.Draw(painter, maps.x, maps.y, *m_pColors, contentsRect());
}

void SpectrumCanvas::_DrawBand(QPainter& pPainter, const Maps& pMaps, const QColor& pGround) const
{
    const double left = m_low < 1 ? 0.0 : pMaps.x.transform(m_low);
    const double right = m_high < 1 ? width() : pMaps.x.transform(m_high);
    if (right > left)
        pPainter.fillRect(QRectF(left, 0.0, right - left, height()),
                          Blend(pGround, m_pColors->band));
}

void SpectrumCanvas::_DrawGrid(QPainter& pPainter, const Maps& pMaps) const
{
    const auto ticks = [this](int pAxis) {
        return plot()->axisScaleDiv(pAxis).ticks(QwtScaleDiv::MajorTick);
    };
    const auto frequencies = ticks(QwtPlot::xBottom);
    for (const double hertz : frequencies)
        pPainter.fillRect(QRectF(pMaps.x.transform(hertz), 0.0, 1.0, height()), m_pColors->trough);
    const auto levels = ticks(QwtPlot::yLeft);
    for (const double level : levels)
        pPainter.fillRect(QRectF(0.0, pMaps.y.transform(level), width(), 1.0), m_pColors->trough);
}

#include "moc_SpectrumCanvas.cpp"
