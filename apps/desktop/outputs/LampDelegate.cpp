// SPDX-License-Identifier: MIT
#include <desktop/outputs/LampDelegate.h>
#include <desktop/outputs/OutputsModel.h>

#include <QApplication>
#include <QPainter>
#include <QStyle>

namespace {

const QStyle& LampStyle(const QStyleOptionViewItem& pOption)
{
    return pOption.widget ? *pOption.widget->style() : *QApplication::style();
}

void DrawLamp(QPainter& pPainter, const QRectF& pPlace, int pState)
{
    const QPointF middle = pPlace.center();
    const qreal radius = pPlace.height() / 4.0;
    const QPointF across(radius, 0.0);
    const QPointF slope(radius, radius);
    const QPointF fall(radius, -radius);
    switch (pState) {
    case MonitorOutputs::eReached:
        pPainter.setBrush(pPainter.pen().color());
        return pPainter.drawEllipse(middle, radius, radius);
    case MonitorOutputs::eAway:
        return pPainter.drawEllipse(middle, radius, radius);
    case MonitorOutputs::eUseless:
        pPainter.drawLine(middle - slope, middle + slope);
        return pPainter.drawLine(middle - fall, middle + fall);
    default:
        return pPainter.drawLine(middle - across, middle + across);
    }
}

}  // namespace

LampDelegate::LampDelegate(QObject* pParent) : QStyledItemDelegate(pParent) {}

void LampDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& pIndex) const
{
    QStyledItemDelegate::initStyleOption(pOption, pIndex);
    // The place of an icon is kept free.
    const int side = pOption->fontMetrics.height();
    pOption->features |= QStyleOptionViewItem::HasDecoration;
    pOption->decorationSize = {side, side};
    pOption->textElideMode = Qt::ElideMiddle;
}

void LampDelegate::paint(QPainter* pPainter,
                         const QStyleOptionViewItem& pOption,
                         const QModelIndex& pIndex) const
{
    QStyledItemDelegate::paint(pPainter, pOption, pIndex);
    QStyleOptionViewItem item(pOption);
    initStyleOption(&item, pIndex);
    const QRectF place =
        LampStyle(item).subElementRect(QStyle::SE_ItemViewItemDecoration, &item, item.widget);
    const bool isSelected = item.state & QStyle::State_Selected;
    pPainter->save();
    // Some styles draw a box that cannot be seen on a dark ground.
    const QRectF box =
        LampStyle(item).subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &item, item.widget);
    pPainter->setRenderHint(QPainter::Antialiasing, false);
    pPainter->setPen(item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    pPainter->drawRect(box.adjusted(0.0, 0.0, -1.0, -1.0));
    pPainter->setRenderHint(QPainter::Antialiasing);
    pPainter->setPen(QPen(pPainter->pen().color(), 2.0));
    DrawLamp(*pPainter, place, pIndex.data(OutputsModel::eStateRole).toInt());
    pPainter->restore();
}

#include "moc_LampDelegate.cpp"
