// SPDX-License-Identifier: MIT
#include <desktop/live/LevelMeter.h>
#include <desktop/live/detail/Decibels.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

LevelMeter::LevelMeter(QWidget* pParent)
    : QWidget(pParent), m_levels{desktop::kLeastDecibels,
                                 desktop::kLeastDecibels,
                                 desktop::kLeastDecibels,
                                 desktop::kLeastDecibels,
                                 false},
      m_pColors(&getColors(eLightLook))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void LevelMeter::setColors(const LookColors& pColors)
{
    m_pColors = &pColors;
    update();
}

void LevelMeter::setInset(int pInset)
{
    m_inset = pInset;
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
    return pLevels.isClipped != m_levels.isClipped || differs(pLevels.current, m_levels.current) ||
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
    return m_inset + (width() - 2 * m_inset) * (1.0 - pDecibels / desktop::kLeastDecibels);
}

void LevelMeter::paintEvent(QPaintEvent*)
{
    const LookColors& colors = *m_pColors;
    const double left = _ToX(desktop::kLeastDecibels);
    const double high = height();
    const double mark = std::max(2.0, high / 9.0);
    const auto bar = [&](double pDecibels, double pTop) {
        return QRectF(left, pTop, _ToX(pDecibels) - left, high - pTop);
    };
    QPainter painter(this);
    painter.fillRect(rect(), palette().brush(backgroundRole()));
    painter.fillRect(bar(0.0, 0.0), colors.trough);
    painter.fillRect(bar(m_levels.current, 0.0), colors.spectrum);
    painter.fillRect(bar(m_levels.average, high * 0.62), colors.average);
    if (m_levels.maximal > desktop::kLeastDecibels)
        painter.fillRect(QRectF(_ToX(m_levels.maximal) - mark, 0.0, mark, high), colors.peak);
    if (m_levels.threshold > desktop::kLeastDecibels)
        painter.fillRect(QRectF(_ToX(m_levels.threshold) - mark / 2.0, 0.0, mark, high),
                         colors.threshold);
    if (m_levels.isClipped)
        painter.fillRect(QRectF(_ToX(0.0) - 2.0 * high, 0.0, 2.0 * high, high), colors.threshold);
}

#include "moc_LevelMeter.cpp"
