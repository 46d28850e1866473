// SPDX-License-Identifier: MIT
#include <desktop/window/Placement.h>

#include <algorithm>

std::optional<QPoint>
placeWindow(eStartingPosition pPosition, const QSize& pSize, const QRect& pScreen)
{
    const int right = std::max(pScreen.width() - pSize.width(), 0);
    const int bottom = std::max(pScreen.height() - pSize.height(), 0);
    switch (pPosition) {
    case TopLeft:
        return pScreen.topLeft();
    case TopRight:
        return pScreen.topLeft() + QPoint(right, 0);
    case BottomLeft:
        return pScreen.topLeft() + QPoint(0, bottom);
    case BottomRight:
        return pScreen.topLeft() + QPoint(right, bottom);
    case Center:
        return pScreen.topLeft() + QPoint(right / 2, bottom / 2);
    case Default:
        break;
    }
    return std::nullopt;
}
