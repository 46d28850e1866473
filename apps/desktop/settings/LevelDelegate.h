// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/ChoiceDelegate.h>

/// Draws the inputs as a list to choose one from, with the level of each at the right, where it is
/// known.
class LevelDelegate : public ChoiceDelegate
{
    Q_OBJECT

public:
    explicit LevelDelegate(QObject* pParent = nullptr);

    void paint(QPainter* pPainter,
               const QStyleOptionViewItem& pOption,
               const QModelIndex& pIndex) const override;
};
