// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

/// Rows with a lamp, which tells an output's state by its form and not by a colour: a disc when it
/// is reached, a ring while it is away, a dash when it is off, a cross when it cannot be used.
class LampDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LampDelegate(QObject* pParent = nullptr);

    void paint(QPainter* pPainter,
               const QStyleOptionViewItem& pOption,
               const QModelIndex& pIndex) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& pIndex) const override;
};
