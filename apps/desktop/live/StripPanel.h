// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>

#include <memory>

class QToolButton;
class StripCanvas;
class StripData;
class StripLog;

/// The last two minutes, as they pass or held still.
class StripPanel final : public LivePanel
{
    Q_OBJECT

public:
    /// pLog is not owned.
    explicit StripPanel(StripLog& pLog, QWidget* pParent = nullptr);
    ~StripPanel() override;

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    /// What is seen stands still; what happens meanwhile is kept all the same.
    void setPaused(bool pIsPaused);
    bool isPaused() const { return m_frozen != nullptr; }
    /// Positive steps show less time.
    void Zoom(int pSteps);
    /// How much is seen.
    int getSeconds() const;
    const StripCanvas& getCanvas() const { return *m_pCanvas; }
    /// What is seen: of now, or of when it was paused. [valid until control returns to the event
    /// loop]
    const StripData& getData() const;

Q_SIGNALS:
    void OnPaused(bool pIsPaused);

protected:
    void Retranslate() override;

private:
    QToolButton* _MakeButton();
    void _TellSayings();

    StripLog& m_log;  ///< not owned
    StripCanvas* m_pCanvas;
    QToolButton* m_pPause;
    QToolButton* m_pNearer;
    QToolButton* m_pFarther;
    std::unique_ptr<StripData> m_frozen;  ///< null unless paused
    int m_zoom = 0;
    quint64 m_said = 0;  ///< what the description has by now
};
