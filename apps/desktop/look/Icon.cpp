// SPDX-License-Identifier: MIT
#include <desktop/look/Icon.h>

#include <QPainter>
#include <QPixmap>

namespace {

constexpr double kBars[] = {0.30, 0.62, 0.92, 0.50, 0.24};  ///< heights, shares of the disc

QPixmap DrawIcon(int pSide)
{
    QPixmap pixmap(pSide, pSide);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1e2228));
    painter.drawRoundedRect(QRectF(0, 0, pSide, pSide), pSide * 0.2, pSide * 0.2);
    painter.setBrush(QColor(0x3fd46b));
    const double step = pSide * 0.15;
    double left = pSide * 0.145;
    for (const double bar : kBars) {
        const double height = pSide * 0.72 * bar;
        painter.drawRoundedRect(
            QRectF(left, (pSide - height) / 2.0, step * 0.72, height), step * 0.3, step * 0.3);
        left += step;
    }
    return pixmap;
}

}  // namespace

QIcon makeIcon()
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(DrawIcon(side));
    return icon;
}
