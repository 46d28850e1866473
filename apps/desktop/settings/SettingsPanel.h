// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include <QPointer>
#include <QWidget>

class Configuration;

/// A panel of settings: it shows the configuration, and what a person changes goes there at once,
/// and to the running analysis where that must know.
///
/// Its window title names it, in the language in force.
///
/// Threads: the event-loop thread.
class SettingsPanel : public QWidget
{
    Q_OBJECT

public:
    /// pConfiguration is not owned and must outlive the panel.
    explicit SettingsPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// The analysis that runs; null while there is none. Not owned; it may end before the panel.
    void setAnalyzer(AudioAnalyzer* pAnalyzer);
    /// Shows what the configuration holds by now; changes nothing.
    virtual void Refresh() = 0;

Q_SIGNALS:
    /// A setting was changed here and is to be saved.
    void OnConfigurationChanged();

protected:
    /// Sets every text, in the language in force.
    virtual void _Retranslate() = 0;
    /// m_pAnalyzer is another one now.
    virtual void _OnAnalyzerChanged() {}
    void changeEvent(QEvent* pEvent) override;

    Configuration& m_configuration;       ///< not owned
    QPointer<AudioAnalyzer> m_pAnalyzer;  ///< not owned; null while there is none
};
