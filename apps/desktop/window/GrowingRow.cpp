// SPDX-License-Identifier: MIT
#include <desktop/window/GrowingRow.h>

#include <QEvent>
#include <QHBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kScaleStep = 0.125;   ///< of the scale
constexpr double kScaleMargin = 0.97;  ///< letters do not grow quite evenly

}  // namespace

GrowingRow::GrowingRow(QWidget* pParent)
    : QWidget(pParent), m_pLayout(new QHBoxLayout(this)), m_pointSize(font().pointSizeF())
{
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(fontMetrics().height());
}

void GrowingRow::Add(QWidget* pWidget, int pStretch)
{
    m_pLayout->addWidget(pWidget, pStretch);
    _Measure();
}

void GrowingRow::_Measure()
{
    _SetScale(1.0);
    m_needed = m_pLayout->totalMinimumSize();
    if (m_needed != m_usual) {
        m_usual = m_needed;
        updateGeometry();
    }
    _Fit();
}

void GrowingRow::_Fit()
{
    if (m_usual.isEmpty())
        return;
    const double room =
        std::min(double(width()) / m_usual.width(), double(height()) / m_usual.height());
    const double scale = std::floor(room * kScaleMargin / kScaleStep) * kScaleStep;
    _SetScale(std::clamp(scale, 1.0, kLargest));
    m_needed = m_pLayout->totalMinimumSize();
}

void GrowingRow::_SetScale(double pScale)
{
    if (qFuzzyCompare(pScale, m_scale))
        return;
    m_scale = pScale;
    m_isChanging = true;
    QFont scaled = font();
    scaled.setPointSizeF(m_pointSize * pScale);
    setFont(scaled);
    m_pLayout->setSpacing(fontMetrics().height());
    for (int i = 0; i < m_pLayout->count(); ++i)
        if (QLayout* pInner = m_pLayout->itemAt(i)->widget()->layout())
            pInner->invalidate();
    m_pLayout->invalidate();
    m_isChanging = false;
}

/// Something in it needs more or less room than before: another language, another panel.
bool GrowingRow::event(QEvent* pEvent)
{
    const bool isDone = QWidget::event(pEvent);
    if (pEvent->type() == QEvent::LayoutRequest && m_pLayout->totalMinimumSize() != m_needed)
        _Measure();
    return isDone;
}

void GrowingRow::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange && !m_isChanging) {
        m_pointSize = font().pointSizeF() / m_scale;
        _Measure();
    }
}

void GrowingRow::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    _Fit();
}

#include "moc_GrowingRow.cpp"
