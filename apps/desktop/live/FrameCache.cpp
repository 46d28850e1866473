// SPDX-License-Identifier: MIT
#include <desktop/live/FrameCache.h>

#include <QPainter>
#include <QWidget>

const QPixmap& FrameCache::Get(int pKey, const QWidget& pWidget, const Draw& pDraw)
{
    const double ratio = pWidget.devicePixelRatioF();
    if (m_size != pWidget.size() || !qFuzzyCompare(m_ratio, ratio))
        Clear();
    m_size = pWidget.size();
    m_ratio = ratio;
    const auto known = m_frames.find(pKey);
    if (known != m_frames.end())
        return known->second;
    QPixmap& frame = m_frames[pKey] = QPixmap(m_size * ratio);
    frame.setDevicePixelRatio(ratio);
    frame.fill(pWidget.palette().color(pWidget.backgroundRole()));
    QPainter painter(&frame);
    painter.setRenderHint(QPainter::Antialiasing);
    pDraw(painter);
    return frame;
}
