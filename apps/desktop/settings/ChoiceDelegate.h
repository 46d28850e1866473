// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

/// Draws a radio button before each item: one of the items is chosen, whichever is selected.
class ChoiceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// pRole: bool, whether an item is the chosen one.
    explicit ChoiceDelegate(int pRole, QObject* pParent = nullptr);

    void paint(QPainter* pPainter,
               const QStyleOptionViewItem& pOption,
               const QModelIndex& pIndex) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& pIndex) const override;

private:
    int m_role;
};
