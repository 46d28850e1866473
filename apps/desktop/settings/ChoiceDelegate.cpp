// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QStyle>

#include <desktop/settings/ChoiceDelegate.h>

namespace {

QStyle& StyleOf(const QStyleOptionViewItem& pOption)
{
    return pOption.widget ? *pOption.widget->style() : *QApplication::style();
}

}  // namespace

ChoiceDelegate::ChoiceDelegate(int pRole, QObject* pParent)
    : QStyledItemDelegate(pParent), m_role(pRole)
{
}

void ChoiceDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& pIndex) const
{
    QStyledItemDelegate::initStyleOption(pOption, pIndex);
    const QStyle& style = StyleOf(*pOption);
    // The place of an icon is kept free.
    pOption->features |= QStyleOptionViewItem::HasDecoration;
    pOption->decorationSize = {style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth),
                               style.pixelMetric(QStyle::PM_ExclusiveIndicatorHeight)};
    pOption->textElideMode = Qt::ElideMiddle;
}

void ChoiceDelegate::paint(QPainter* pPainter,
                           const QStyleOptionViewItem& pOption,
                           const QModelIndex& pIndex) const
{
    QStyledItemDelegate::paint(pPainter, pOption, pIndex);
    QStyleOptionViewItem item(pOption);
    initStyleOption(&item, pIndex);
    QStyleOptionButton radio;
    radio.rect =
        StyleOf(item).subElementRect(QStyle::SE_ItemViewItemDecoration, &item, item.widget);
    radio.palette = item.palette;
    radio.state = (item.state & QStyle::State_Enabled) |
                  (pIndex.data(m_role).toBool() ? QStyle::State_On : QStyle::State_Off);
    StyleOf(item).drawPrimitive(QStyle::PE_IndicatorRadioButton, &radio, pPainter, item.widget);
}

#include "moc_ChoiceDelegate.cpp"
