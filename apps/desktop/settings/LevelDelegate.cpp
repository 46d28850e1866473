// SPDX-License-Identifier: MIT
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/settings/LevelDelegate.h>

#include <QApplication>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int kBarHeights = 5;  ///< width of a bar, in heights of a letter

/// A frame as long as the whole range, filled up to the level.
void DrawLevel(QPainter& pPainter, const QRectF& pPlace, const QColor& pColor, int pLevel)
{
    const double share = 1.0 - double(pLevel) / InputDevicesModel::kLeastLevel;
    QRectF bar = pPlace.adjusted(2.0, 2.0, -2.0, -2.0);
    bar.setWidth(bar.width() * share);
    pPainter.save();
    pPainter.setPen(pColor);
    pPainter.drawRect(pPlace);
    pPainter.fillRect(bar, pColor);
    pPainter.restore();
}

}  // namespace

LevelDelegate::LevelDelegate(QObject* pParent)
    : ChoiceDelegate(InputDevicesModel::eChosenRole, pParent)
{
}

void LevelDelegate::paint(QPainter* pPainter,
                          const QStyleOptionViewItem& pOption,
                          const QModelIndex& pIndex) const
{
    const QVariant level = pIndex.data(InputDevicesModel::eLevelRole);
    if (!level.isValid())
        return ChoiceDelegate::paint(pPainter, pOption, pIndex);
    const int height = pOption.fontMetrics.height();
    const int width = kBarHeights * height;
    QStyleOptionViewItem whole(pOption);
    initStyleOption(&whole, pIndex);
    const QStyle& style = whole.widget ? *whole.widget->style() : *QApplication::style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &whole, pPainter, whole.widget);
    // The words end where the level begins.
    QStyleOptionViewItem words(pOption);
    words.rect.adjust(0, 0, -width - height, 0);
    ChoiceDelegate::paint(pPainter, words, pIndex);
    const bool isSelected = whole.state & QStyle::State_Selected;
    const QRectF place(whole.rect.right() - width - height / 4.0,
                       whole.rect.center().y() - height / 4.0,
                       width,
                       height / 2.0);
    DrawLevel(*pPainter,
              place,
              whole.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text),
              level.toInt());
}

#include "moc_LevelDelegate.cpp"
