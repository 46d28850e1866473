// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/window/WindowSettings.h>

#include <QMainWindow>
#include <QPalette>
#include <QTimer>

#include <array>
#include <vector>

class BoothActions;
class BpmPanel;
class Card;
class GrowingRow;
class KeysPage;
class LedPanel;
class LevelPanel;
class LivePanel;
struct LiveValues;
class MonitorSession;
class QAction;
class QMenu;
class QPushButton;
class SettingsColumn;
class SpeakersPanel;
class SpectrumPanel;
class StageView;
class StatusLine;
class StripPanel;

/// The window: live panels on the left, settings on the right, what is heard at the bottom.
///
/// It paints at its own pace: one timer asks the live panels to look at the values of the moment.
/// The timer rests while the window cannot be seen.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    static constexpr int kFlashMs = 20;  ///< between two looks while a lamp fades
    static constexpr int kCalmMs = 33;   ///< and otherwise

    /// pSession is not owned. pDesktop: the palette before the program set its own.
    MainWindow(MonitorSession& pSession,
               const WindowSettings& pSettings,
               const QPalette& pDesktop,
               QWidget* pParent = nullptr);
    ~MainWindow() override;

    /// Moves the window to where the settings want it, and again once its frame is known, or to
    /// where it was left. To be called before it is shown.
    void Place(eStartingPosition pPosition);
    /// The settings as they are by now.
    WindowSettings CollectSettings() const;
    void setPanelVisible(ePanel pPanel, bool pIsVisible);
    bool isPanelVisible(ePanel pPanel) const;
    /// Follows the configuration: gray or colourful, on top or not, speakers or none.
    void ApplyFlags();
    /// Says in the status bar what could not be done; an empty text takes it back.
    void ShowProblem(const QString& pText);
    QString getProblem() const;

    QAction& getResetAction();
    BoothActions& getActions() { return *m_pBooth; }
    /// Hidden at first.
    StageView& getStage() { return *m_pStage; }
    /// Fills the screen of the window with the stage view, then the next screen, and at last none.
    void TurnStage();
    void LeaveStage();
    /// Writes the last two minutes into a zip file; what fails is said.
    bool SaveMoment(const QString& pPath);
    /// Beats are sent to the stored outputs from now on; what cannot be used is said.
    void BeginOutputs();
    QAction& getQuitAction() { return *m_pQuit; }
    const BpmPanel& getBpm() const { return *m_pBpm; }
    const LedPanel& getBeatLed() const { return *m_pBeatLed; }
    const LedPanel& getPulseLed() const { return *m_pPulseLed; }
    const SpectrumPanel& getSpectrum() const { return *m_pSpectrum; }
    const LevelPanel& getLevels() const { return *m_pLevels; }
    StripPanel& getStrip() { return *m_pStrip; }
    const StatusLine& getStatus() const { return *m_pStatus; }
    SettingsColumn& getSettings() { return *m_pSettings; }
    bool isRefreshing() const { return m_refresh.isActive(); }

Q_SIGNALS:
    /// pCode: as stored; empty = that of the system.
    void OnLanguageChosen(const QString& pCode);

protected:
    void changeEvent(QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void dragEnterEvent(QDragEnterEvent* pEvent) override;
    void dropEvent(QDropEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;
    void moveEvent(QMoveEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;
    /// A double click on the tempo.
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void _MakePanels();
    void _MakeActions();
    void _MakeLayout();
    void _SetSize();
    QWidget* _MakeLiveRow();
    void _Connect();
    void _ConnectSettings();
    void _ConnectHand();
    void _Retranslate();
    void _Refresh();
    void _WatchRefresh();
    void _OnFlashed();
    void _OnTakenOver();
    void _ChoosePace(const LiveValues& pValues, qint64 pNow);
    void _ShowSource();
    void _ShowClock();
    void _HideEmptyCards();
    void _ApplyLook();
    void _ApplyTopMost();
    void _MakeStage();
    void _ConnectStage();
    void _ConnectStrip();
    void _ShowLamps();
    void _ShowProblems(const QStringList& pProblems);
    void _ShowKeys();
    void _ShowProfiles();
    void _OpenFile();
    void _AskToSave();
    void _About();

    MonitorSession& m_session;  ///< not owned
    WindowSettings m_windowSettings;
    QPalette m_desktop;
    std::array<QWidget*, ePanelCount> m_panels{};   ///< what each key shows; null = not there
    std::array<QAction*, ePanelCount> m_actions{};  ///< of the View menu
    std::vector<LivePanel*> m_livePanels;
    BpmPanel* m_pBpm;
    LedPanel* m_pBeatLed;
    LedPanel* m_pPulseLed;
    SpeakersPanel* m_pSpeakers;
    SpectrumPanel* m_pSpectrum;
    LevelPanel* m_pLevels;
    StripPanel* m_pStrip;
    QPushButton* m_pResetButton;
    GrowingRow* m_pGrowing;
    Card* m_pLiveCard;
    Card* m_pSpectrumCard;
    Card* m_pLevelCard;
    Card* m_pStripCard;
    SettingsColumn* m_pSettings;
    StatusLine* m_pStatus;
    QMenu* m_pFileMenu;
    QMenu* m_pViewMenu;
    QMenu* m_pBeatMenu;
    QMenu* m_pHelpMenu;
    BoothActions* m_pBooth;
    StageView* m_pStage;
    KeysPage* m_pKeys;
    KeysPage* m_pStageKeys;
    QAction* m_pOpen;
    QAction* m_pStop;
    QAction* m_pSave;
    QAction* m_pQuit;
    QAction* m_pContrast;
    QAction* m_pSoftFlash;
    QAction* m_pLimitFlash;
    QAction* m_pAbout;
    QTimer m_refresh;
    qint64 m_lastStatus = 0;              ///< ms
    eStartingPosition m_place = Default;  ///< to be taken once the frame is known
};
