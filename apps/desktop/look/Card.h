// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QLabel;

/// A titled area of the window.
class Card : public QFrame
{
    Q_OBJECT

public:
    /// pContent becomes the card's.
    explicit Card(QWidget* pContent, QWidget* pParent = nullptr);

    /// An empty title takes no room.
    void setTitle(const QString& pTitle);

private:
    QLabel* m_pTitle;
};
