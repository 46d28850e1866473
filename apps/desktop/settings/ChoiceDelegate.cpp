// SPDX-License-Identifier: MIT
#include <desktop/settings/ChoiceDelegate.h>

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

QStyle& StyleOf(const QStyleOptionViewItem& pOption)
{
    return pOption.widget ? *pOption.widget->style() : *QApplication::style();
}

/// In the color of the text: some styles draw one that cannot be seen on a dark ground.
void DrawRadioButton(QPainter& pPainter, const QRectF& pPlace, const QColor& pColor, bool pIsOn)
{
    const qreal radius = std::min(pPlace.width(), pPlace.height()) / 2.0 - 1.0;
    pPainter.save();
    pPainter.setRenderHint(QPainter::Antialiasing);
    pPainter.setPen(pColor);
    pPainter.drawEllipse(pPlace.center(), radius, radius);
    if (pIsOn) {
        pPainter.setPen(Qt::NoPen);
        pPainter.setBrush(pColor);
        pPainter.drawEllipse(pPlace.center(), radius / 2.0, radius / 2.0);
    }
    pPainter.restore();
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
    const QRectF place =
        StyleOf(item).subElementRect(QStyle::SE_ItemViewItemDecoration, &item, item.widget);
    const bool isSelected = item.state & QStyle::State_Selected;
    const QColor color =
        item.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    DrawRadioButton(*pPainter, place, color, pIndex.data(m_role).toBool());
}

#include "moc_ChoiceDelegate.cpp"
