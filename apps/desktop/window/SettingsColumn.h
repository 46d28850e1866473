// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/window/WindowSettings.h>

#include <QScrollArea>

#include <map>
#include <vector>

class AdvancedSettingsPanel;
class AudioAnalyzer;
class Card;
class Configuration;
class InputDevicesPanel;
class ManualBeatPanel;
class MonitorOutputs;
class ProfilesPanel;
class QListView;
class SettingsPanel;

/// The panels of settings, one above the other; it scrolls when they are higher than the window.
class SettingsColumn : public QScrollArea
{
    Q_OBJECT

public:
    /// Neither is owned.
    SettingsColumn(Configuration& pConfiguration,
                   MonitorOutputs& pOutputs,
                   QWidget* pParent = nullptr);

    void setAnalyzer(AudioAnalyzer* pAnalyzer);
    /// Shows what the configuration holds by now.
    void Refresh();
    /// Null for a panel that is elsewhere.
    QWidget* getPanel(ePanel pPanel) const;
    InputDevicesPanel& getDevices() { return *m_pDevices; }
    ProfilesPanel& getProfiles() { return *m_pProfiles; }
    ManualBeatPanel& getManualBeat() { return *m_pManualBeat; }
    AdvancedSettingsPanel& getAdvanced() { return *m_pAdvanced; }
    /// Takes no room when all its panels are hidden.
    void HideWhenEmpty();

    QSize sizeHint() const override;

Q_SIGNALS:
    void OnConfigurationChanged();

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void _FitLists();
    void _SetLists(int pHeight);
    void _Add(ePanel pPanel, SettingsPanel* pContent);
    int _NeededWidth() const;
    int _NeededHeight() const;
    int _LinesHigh(int pLines) const;

    std::vector<QListView*> m_lists;
    std::map<ePanel, Card*> m_cards;
    std::map<ePanel, SettingsPanel*> m_panels;
    InputDevicesPanel* m_pDevices;
    ProfilesPanel* m_pProfiles;
    ManualBeatPanel* m_pManualBeat;
    AdvancedSettingsPanel* m_pAdvanced;
};
