// SPDX-License-Identifier: MIT
#include <desktop/window/StatusLine.h>

#include <QLabel>
#include <QVBoxLayout>

StatusLine::StatusLine(QWidget* pParent)
    : QWidget(pParent), m_pSource(new QLabel(this)), m_pProblem(new QLabel(this))
{
    auto* pLayout = new QVBoxLayout(this);
    const int margin = fontMetrics().height() / 3;
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(margin / 2);
    for (QLabel* pLabel : {m_pSource, m_pProblem}) {
        // Long names must not widen the window.
        pLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
        pLayout->addWidget(pLabel);
    }
    m_pProblem->setWordWrap(true);
    m_pProblem->hide();
}

void StatusLine::setWarningColor(const QColor& pColor)
{
    m_warning = pColor;
    _Color(*m_pSource, m_isWarning);
    _Color(*m_pProblem, true);
}

void StatusLine::setSource(const QString& pText, bool pIsWarning)
{
    if (pText != m_pSource->text()) {
        m_pSource->setText(pText);
        m_pSource->setToolTip(pText);
    }
    if (pIsWarning == m_isWarning)
        return;
    m_isWarning = pIsWarning;
    _Color(*m_pSource, pIsWarning);
}

void StatusLine::setProblem(const QString& pText)
{
    m_pProblem->setText(pText);
    m_pProblem->setVisible(!pText.isEmpty());
}

QString StatusLine::getSource() const
{
    return m_pSource->text();
}

QString StatusLine::getProblem() const
{
    return m_pProblem->text();
}

void StatusLine::_Color(QLabel& pLabel, bool pIsWarning) const
{
    QPalette colors;
    if (pIsWarning && m_warning.isValid())
        colors.setColor(QPalette::WindowText, m_warning);
    pLabel.setPalette(colors);
}

#include "moc_StatusLine.cpp"
