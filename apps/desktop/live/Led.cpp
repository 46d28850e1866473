// SPDX-License-Identifier: MIT
#include <desktop/live/Led.h>
#include <desktop/live/detail/Flash.h>

#include <QEvent>
#include <QPainter>

namespace {

QColor Mix(const QColor& pDark, const QColor& pLit, double pShare)
{
    const auto mix = [pShare](double pFrom, double pTo) { return pFrom + (pTo - pFrom) * pShare; };
    return QColor::fromRgbF(mix(pDark.redF(), pLit.redF()),
                            mix(pDark.greenF(), pLit.greenF()),
                            mix(pDark.blueF(), pLit.blueF()));
}

}  // namespace

Led::Led(QWidget* pParent) : QWidget(pParent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Led::setColors(const QColor& pDisc, const QColor& pRing, const QColor& pUnlit)
{
    m_disc = pDisc;
    m_ring = pRing;
    m_unlit = pUnlit;
    m_frames.Clear();
    update();
}

void Led::setLight(int pStep, bool pIsRing)
{
    if (pStep == m_step && (pStep == 0 || pIsRing == m_isRing))
        return;
    m_step = pStep;
    m_isRing = pIsRing;
    update(_Circle().toAlignedRect());
}

QSize Led::sizeHint() const
{
    return minimumSizeHint();
}

QSize Led::minimumSizeHint() const
{
    const int side = 7 * fontMetrics().height() / 2;
    return {side, side};
}

QRectF Led::_Circle() const
{
    const double side = std::min(width(), height());
    return {(width() - side) / 2.0, (height() - side) / 2.0, side, side};
}

void Led::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::PaletteChange)
        m_frames.Clear();
    QWidget::changeEvent(pEvent);
}

void Led::paintEvent(QPaintEvent*)
{
    const int key = m_isRing ? -m_step : m_step;
    const auto draw = [this](QPainter& pPainter) { _Draw(pPainter); };
    QPainter(this).drawPixmap(0, 0, m_frames.Get(key, *this, draw));
}

void Led::_Draw(QPainter& pPainter) const
{
    const double share = double(m_step) / desktop::kFlashSteps;
    const QRectF circle = _Circle();
    const double pen = circle.width() / 12.0;
    const QColor lit = m_isRing ? m_ring : m_disc;
    pPainter.setPen(QPen(Mix(m_unlit.lighter(135), lit, share), pen));
    pPainter.setBrush(m_isRing ? m_unlit : Mix(m_unlit, lit, share));
    const double margin = pen / 2.0 + 1.0;
    pPainter.drawEllipse(circle.adjusted(margin, margin, -margin, -margin));
}

#include "moc_Led.cpp"
