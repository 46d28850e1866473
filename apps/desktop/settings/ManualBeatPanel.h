// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/BeatClockState.h>

#include <desktop/settings/SettingsPanel.h>

#include <QColor>

class DecimalField;
class HintLabel;
class QLabel;
class QPushButton;

/// The beat by hand: tapped, halved, doubled, rounded, marked as the one, held until it is
/// released; and by how much all beats come later.
///
/// It keeps nothing itself: what it shows is the clock's.
class ManualBeatPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit ManualBeatPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// What the clock knows now. pShownBPM: its tempo as the window shows it.
    void setClock(const BeatClockState& pState, double pShownBPM);
    /// ms; positive is later.
    void setOffset(double pMs);
    void Refresh() override {}

Q_SIGNALS:
    /// At the moment when the finger comes down.
    void OnTapped();
    /// The tempo is to be multiplied by pNumerator / pDenominator.
    void OnScaled(int pNumerator, int pDenominator);
    void OnRounded();
    /// The beat of now is the first of a bar.
    void OnOneMarked();
    /// The tempo is to be held, or no longer.
    void OnHoldChosen(bool pIsHeld);
    /// ms
    void OnOffsetChanged(double pMs);

protected:
    void _Retranslate() override;

private:
    void _SetFields();
    void _MakeLayout();
    void _Connect();
    void _ShowClock();
    void _ShowLock();
    QString _DescribeCharge() const;

    BeatClockState m_state;   ///< as it is shown
    double m_shownBPM = 0.0;  ///< likewise
    QLabel* m_pTempo;
    HintLabel* m_pCharge;
    QPushButton* m_pTap;
    QPushButton* m_pHalf;
    QPushButton* m_pDouble;
    QPushButton* m_pRound;
    QPushButton* m_pLock;
    QColor m_lockColor;  ///< of its own; invalid = that of any button
    QPushButton* m_pOne;
    QLabel* m_pOffsetLabel;
    DecimalField* m_pOffset;
};
