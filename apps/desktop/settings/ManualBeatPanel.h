// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/TapTempo.h>

#include <desktop/settings/SettingsPanel.h>

#include <QTimer>

class HintLabel;
class QLabel;
class QPushButton;

/// The beat by hand: tapped with the button or the key T, halved, doubled, rounded, marked as the
/// one with the button or the key 1, and held until it is released.
///
/// Without a tempo of its own, half, double, round and lock begin with the one that is followed. A
/// tempo that is not locked is forgotten here after a while.
class ManualBeatPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit ManualBeatPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// With locking, every tempo that is made here is imposed at once.
    void setLocking(bool pIsLocking) { m_isLocking = pIsLocking; }
    bool isLocked() const { return m_isLocked; }
    /// The tempo that is followed now, BPM; 0 = none. Without it, that of the analysis counts.
    void setFollowedTempo(double pBPM);
    /// Whether the profile's range means nothing.
    void setAutomatic(bool pIsAutomatic);
    /// BPM; 0 = none.
    double getTempo() const { return m_tempo; }
    void Refresh() override;

Q_SIGNALS:
    /// A tap that counts, at the moment of the tap.
    void OnTapped();
    /// The tempo is to be multiplied by pNumerator / pDenominator, or rounded, at once.
    void OnScaled(int pNumerator, int pDenominator);
    void OnRounded();
    /// The beat of now is the first of a bar.
    void OnOneMarked();
    /// The tempo that is imposed now, BPM; 0 = released. The analysis holds it within the profile's
    /// range.
    void OnFixedTempoChanged(double pBPM);

protected:
    void _Retranslate() override;
    void _OnAnalyzerChanged() override;

private:
    void _MakeLayout();
    void _Tap();
    void _Scale(int pNumerator, int pDenominator);
    void _Round();
    void _OnLockClicked(bool pIsLocked);
    void _SetTempo(double pBPM);
    void _Impose(double pBPM);
    void _Release();
    void _Forget();
    double _BaseTempo() const;
    void _ShowState();
    void _ShowButtons();
    QString _RangeRefusal() const;

    TapTempo m_taps;
    double m_tempo = 0.0;  ///< BPM made by hand; 0 = none
    bool m_isLocked = false;
    bool m_isLocking = false;
    bool m_isAutomatic = false;
    double m_followed = 0.0;  ///< BPM; 0 = none
    QTimer m_forget;
    QLabel* m_pTempo;
    HintLabel* m_pState;
    QPushButton* m_pTap;
    QPushButton* m_pHalf;
    QPushButton* m_pDouble;
    QPushButton* m_pRound;
    QPushButton* m_pLock;
    QPushButton* m_pOne;
};
