// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>

class Led;
class QLabel;

/// A lamp that flashes with beats, or with pulses, and tells real ones from virtual ones: those are
/// rings, and named.
class LedPanel final : public LivePanel
{
    Q_OBJECT

public:
    enum eKind
    {
        eBeats,
        ePulses
    };

    static constexpr qint64 kFadeMs = 80;

    explicit LedPanel(eKind pKind, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    const Led& getLed() const { return *m_pLed; }

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;

private:
    void _Describe();
    void _SetWidth();

    eKind m_kind;
    Led* m_pLed;
    QLabel* m_pTitle;
    QLabel* m_pType;  ///< of the last flash
    bool m_hasFlashed = false;
    bool m_isVirtual = false;
};
