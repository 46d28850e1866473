// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/HintLabel.h>
#include <desktop/settings/ManualBeatPanel.h>

#include <QPushButton>

#include <apps/desktop/PanelTest.h>
#include <support/Text.h>
#include <utility>

constexpr quint64 kStart = 1700000000000000;  // µs

/// A panel on a clock of the test, with its signals in one log.
struct Panel
{
    Panel()
    {
        QObject::connect(
            &panel, &ManualBeatPanel::OnTapped, [this] { log.append(Text("tap")); });
        QObject::connect(
            &panel,
            &ManualBeatPanel::OnFixedTempoChanged,
            [this](double pBPM) { log.append(QString::number(pBPM, 'f', 1)); });
        QObject::connect(&panel, &SettingsPanel::OnConfigurationChanged, [this] {
            log.append(Text("changed"));
        });
    }

    QPushButton& Button(const char* pName) { return PanelTest::Get<QPushButton>(panel, pName); }
    void Tap()
    {
        QTest::mousePress(&Button("tap"), Qt::LeftButton);
        Release();
    }
    void Release() { QTest::mouseRelease(&Button("tap"), Qt::LeftButton); }
    /// Taps now and after each of the pauses.
    void Tap(const QList<int>& pPausesMs)
    {
        Tap();
        for (const int pause : pPausesMs) {
            Wait(pause);
            Tap();
        }
    }
    void Wait(int pMs) { clock.setTime(clock.getTime() + quint64(pMs) * 1000); }
    void Click(const char* pName) { QTest::mouseClick(&Button(pName), Qt::LeftButton); }
    QString Tempo() { return PanelTest::Get<QLabel>(panel, "tempo").text(); }
    HintLabel& State() { return *static_cast<HintLabel*>(&PanelTest::Get<QLabel>(panel, "state")); }
    QString Enabled()
    {
        QString names;
        for (const char* pName : {"half", "double", "round", "lock"})
            if (Button(pName).isEnabled())
                names += Text(pName) + QLatin1Char(' ');
        return names.trimmed();
    }
    QStringList TakeLog() { return std::exchange(log, {}); }

    Configuration configuration;
    HighResolutionTimerOverride clock{kStart};
    ManualBeatPanel panel{configuration};
    QStringList log;
};

/// What the analysis would measure.
inline void Measure(AudioAnalyzer& pAnalyzer, double pBPM)
{
    pAnalyzer.m_computedBPM = pBPM;
    Q_EMIT pAnalyzer.OnBPMChanged(pBPM);
}
