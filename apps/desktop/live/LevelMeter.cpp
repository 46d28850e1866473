// SPDX-License-Identifier: MIT
#include "LevelMeter.h"

#include <QPainter>
#include <qwt_scale_draw.h>
#include <qwt_slider.h>

#include <algorithm>
#include <cmath>

LevelMeter::LevelMeter(const QwtSlider& pSlider, QWidget* pParent)
    : QWidget(pParent), m_slider(pSlider), m_pColors(&getColors(eLightLook))
{
}

void LevelMeter::setColors(const LookColors& pColors)
{
    m_pColors = &pColors;
    update();
}

void LevelMeter::setLevels(const Levels& pLevels)
{
    const bool isSeen = _IsSeen(pLevels);
    m_levels = pLevels;
    if (isSeen)
        update();
}

bool LevelMeter::_IsSeen(const Levels& pLevels) const
{
    const auto differs = [this](double pLeft, double pRight) {
        return std::lround(_ToX(pLeft)) != std::lround(_ToX(pRight));
    };
    return differs(pLevels.current, m_levels.current) ||
           differs(pLevels.average, m_levels.average) ||
           differs(pLevels.maximal, m_levels.maximal) ||
           differs(pLevels.threshold, m_levels.threshold);
}

QSize LevelMeter::sizeHint() const
{
    const int height = fontMetrics().height();
    return {20 * height, height * 3 / 2};
}

double LevelMeter::_ToX(double pDecibels) const
{
    const QwtScaleDraw& scale = *m_slider.scaleDraw();
    const double share =
        (pDecibels - m_slider.lowerBound()) / (m_slider.upperBound() - m_slider.lowerBound());
    return scale.pos().x() + share * scale.length();
}

void LevelMeter::paintEvent(QPaintEvent*)
{
    const LookColors& colors = *m_pColors;
    const double left = _ToX(m_slider.lowerBound());
    const double right = _ToX(m_slider.upperBound());
    const double high = height();
    const double mark = std::max(2.0, high / 9.0);
    const auto to = [&](double pDecibels) { return _ToX(pDecibels) - left; };
    QPainter painter(this);
    painter.fillRect(QRectF(left, 0.0, right - left, high), colors.trough);
    painter.fillRect(QRectF(left, 0.0, to(m_levels.current), high), colors.spectrum);
    painter.fillRect(QRectF(left, high * 0.62, to(m_levels.average), high * 0.38), colors.beat);
    painter.fillRect(QRectF(_ToX(m_levels.maximal) - mark, 0.0, mark, high), colors.peak);
    painter.fillRect(QRectF(_ToX(m_levels.threshold) - mark / 2.0, 0.0, mark, high),
                     colors.threshold);
}

#include "moc_LevelMeter.cpp"
