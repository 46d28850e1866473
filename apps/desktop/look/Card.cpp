// SPDX-License-Identifier: MIT
#include <desktop/look/Card.h>

#include <QLabel>
#include <QVBoxLayout>

Card::Card(QWidget* pContent, QWidget* pParent) : QFrame(pParent), m_pTitle(new QLabel(this))
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    m_pTitle->setFont(bold);
    m_pTitle->hide();
    const int margin = fontMetrics().height() * 2 / 3;
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(margin, margin, margin, margin);
    pLayout->addWidget(m_pTitle);
    pLayout->addWidget(pContent, 1);
}

void Card::setTitle(const QString& pTitle)
{
    m_pTitle->setText(pTitle);
    m_pTitle->setVisible(!pTitle.isEmpty());
    setAccessibleName(pTitle);
}

#include "moc_Card.cpp"
