// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/TapTempo.h>

#include <desktop/settings/SettingsPanel.h>

#include <QTimer>

class HintLabel;
class QLabel;
class QPushButton;

/// The tempo by hand: tapped with the button or the key T, halved, doubled, rounded, and imposed on
/// the analysis until it is released.
///
/// Without a tempo of its own, half, double, round and lock begin with the measured one. A tempo
/// that is not locked is forgotten after a while.
class ManualBeatPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit ManualBeatPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// With locking, every tempo that is made here is imposed at once.
    void setLocking(bool pIsLocking) { m_isLocking = pIsLocking; }
    bool isLocked() const { return m_isLocked; }
    /// BPM; 0 = none.
    double getTempo() const { return m_tempo; }
    void Refresh() override;

Q_SIGNALS:
    /// A tap that counts, at the moment of the tap.
    void OnTapped();
    /// The tempo that is imposed now, BPM; 0 = released. The analysis holds it within the profile's
    /// range, and sends no OnBeat() meanwhile.
    void OnFixedTempoChanged(double pBPM);

protected:
    void _Retranslate() override;
    void _OnAnalyzerChanged() override;

private:
    void _MakeLayout();
    void _Tap();
    void _Scale(double pFactor);
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
    QTimer m_forget;
    QLabel* m_pTempo;
    HintLabel* m_pState;
    QPushButton* m_pTap;
    QPushButton* m_pHalf;
    QPushButton* m_pDouble;
    QPushButton* m_pRound;
    QPushButton* m_pLock;
};
