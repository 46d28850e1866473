// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>
#include <desktop/stage/detail/FlashPlan.h>

#include <QString>

#include <vector>

/// How a source or an output is.
struct StageLamp
{
    enum eState
    {
        eWorking,  ///< a disc
        eWaiting,  ///< a ring
        eTrouble   ///< a cross
    };

    QString name;
    eState state = eWaiting;

    bool operator==(const StageLamp& pOther) const
    {
        return name == pOther.name && state == pOther.state;
    }
};

/// The beat for a whole screen, to be read at three metres in the dark: the tempo, the bar, a flash
/// that fills the window, how sure it is, who is in charge, and how source and outputs are.
///
/// A double click leaves it.
class StageView final : public LivePanel
{
    Q_OBJECT

public:
    static constexpr qint64 kFullMs = 60;   ///< of a flash at its brightest
    static constexpr qint64 kFadeMs = 130;  ///< from its beginning to the end

    explicit StageView(QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    /// The source first, then the outputs.
    void setLamps(const std::vector<StageLamp>& pLamps);
    void setFlash(bool pIsSoft, bool pIsLimited);
    /// What fills the window now.
    QColor getGround() const;
    QSize sizeHint() const override { return {1280, 720}; }

Q_SIGNALS:
    void OnLeft();

protected:
    void Retranslate() override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

private:
    /// All that is painted; what stays the same is not painted anew.
    struct Picture
    {
        QString tempo;
        bool isDim = true;
        int beat = 0;  ///< in the bar, 1 = the one; 0 = none
        int beats = 4;
        int confidence = -1;  ///< percent; negative = unknown
        int charge = 0;       ///< a BeatClockCharge
        int light = 0;        ///< of the flash: 2 = full, 1, 0 = none
        desktop::eFlash flash = desktop::eNoFlash;

        bool operator==(const Picture& pOther) const;
    };

    Picture _Compose(const LiveValues& pValues, qint64 pNow);
    QString _DescribeCharge() const;
    void _DrawTempo(QPainter& pPainter, const QRectF& pPlace) const;
    void _DrawBar(QPainter& pPainter, const QRectF& pPlace) const;
    void _DrawConfidence(QPainter& pPainter, const QRectF& pPlace) const;
    void _DrawLamps(QPainter& pPainter, const QRectF& pPlace) const;

    desktop::FlashPlan m_plan;
    qint64 m_beatTime = LiveValues::kNever;  ///< ms; of the beat that flashes
    Picture m_picture;
    std::vector<StageLamp> m_lamps;
    const LookColors* m_pColors;  ///< not owned
};
