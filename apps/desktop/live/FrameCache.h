// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QSize>

#include <functional>
#include <map>

class QPainter;
class QWidget;

/// Pictures that a widget shows again and again, each drawn once for its size and resolution.
class FrameCache
{
public:
    using Draw = std::function<void(QPainter&)>;

    /// Forgets all pictures: what they show has changed.
    void Clear() { m_frames.clear(); }
    /// The picture of that key over the whole of pWidget, drawn by pDraw when it is not there yet.
    const QPixmap& Get(int pKey, const QWidget& pWidget, const Draw& pDraw);

private:
    std::map<int, QPixmap> m_frames;
    QSize m_size;
    double m_ratio = 0.0;  ///< device pixels per pixel
};
