// SPDX-License-Identifier: MIT
#include <desktop/live/Readout.h>

#include <QHBoxLayout>
#include <QLabel>

Readout::Readout(QWidget* pParent)
    : QWidget(pParent), m_pSwatch(new QLabel(this)), m_pName(new QLabel(this)),
      m_pValue(new QLabel(this))
{
    const int side = fontMetrics().height() / 2;
    m_pSwatch->setFixedSize(side, side);
    m_pSwatch->setAutoFillBackground(true);
    m_pValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // As wide as any value, so that nothing moves when it changes.
    m_pValue->setFixedSize(fontMetrics().horizontalAdvance(QStringLiteral("−60")),
                           fontMetrics().height());
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(side * 2 / 3);
    pLayout->addWidget(m_pSwatch);
    pLayout->addWidget(m_pName);
    pLayout->addWidget(m_pValue);
}

void Readout::setColor(const QColor& pColor)
{
    QPalette colors;
    colors.setColor(QPalette::Window, pColor);
    m_pSwatch->setPalette(colors);
    m_pSwatch->setBackgroundRole(QPalette::Window);
}

void Readout::setName(const QString& pName)
{
    m_pName->setText(pName);
    m_pValue->setAccessibleName(pName);
}

void Readout::setValue(const QString& pValue)
{
    if (pValue != m_pValue->text())
        m_pValue->setText(pValue);
}

QString Readout::getValue() const
{
    return m_pValue->text();
}

#include "moc_Readout.cpp"
