// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QString>

#include <utility>
#include <vector>

/// The keys and what they do, over the middle of a window until a click, Escape or the same key.
class KeysPage : public QLabel
{
    Q_OBJECT

public:
    /// pWindow: what it lies over, and its owner.
    explicit KeysPage(QWidget* pWindow);

    /// Shows keys with their texts, or goes away when it is there.
    void Toggle(const std::vector<std::pair<QString, QString>>& pKeys);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
};
