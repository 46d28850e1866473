// SPDX-License-Identifier: MIT
#include <desktop/settings/SettingsPanel.h>

#include <QEvent>
#include <QLocale>

SettingsPanel::SettingsPanel(Configuration& pConfiguration, QWidget* pParent)
    : QWidget(pParent), m_configuration(pConfiguration)
{
}

void SettingsPanel::setAnalyzer(AudioAnalyzer* pAnalyzer)
{
    if (m_pAnalyzer == pAnalyzer)
        return;
    if (m_pAnalyzer)
        m_pAnalyzer->disconnect(this);
    m_pAnalyzer = pAnalyzer;
    _OnAnalyzerChanged();
}

void SettingsPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::LanguageChange) {
        // Numbers follow the language; widgets keep the locale that they were made with.
        setLocale(QLocale());
        _Retranslate();
    }
    QWidget::changeEvent(pEvent);
}

#include "moc_SettingsPanel.cpp"
