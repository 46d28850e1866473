// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>
#include <desktop/stage/detail/FlashPlan.h>

#include <QPainterPath>
#include <QString>

#include <map>
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
    static constexpr qint64 kFadeMs = 100;  ///< how long a flash lasts

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
    void resizeEvent(QResizeEvent* pEvent) override;

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
        desktop::eFlash flash = desktop::eNoFlash;

        bool operator==(const Picture& pOther) const;
    };

    Picture _Compose(const LiveValues& pValues, qint64 pNow);
    /// Where things are.
    struct Places
    {
        QRectF confidence;
        QRectF lamps;
        QRectF tempo;
        QRectF bar;
    };

    Places _Place() const;
    QString _DescribeCharge() const;
    void _Repaint(const Picture& pBefore);
    const QPainterPath& _Letters(const QString& pText,
                                 const QString& pSample,
                                 const QRectF& pPlace,
                                 Qt::Alignment pAlignment,
                                 QFont::Weight pWeight = QFont::Normal);
    void _DrawTempo(QPainter& pPainter, const QRectF& pPlace);
    void _DrawBar(QPainter& pPainter, const QRectF& pPlace);
    void _DrawConfidence(QPainter& pPainter, const QRectF& pPlace);
    void _DrawLamps(QPainter& pPainter, const QRectF& pPlace);
    void _DrawLamp(QPainter& pPainter, StageLamp::eState pState, const QRectF& pPlace) const;

    desktop::FlashPlan m_plan;
    qint64 m_beatTime = LiveValues::kNever;  ///< ms; of the beat that flashes
    Picture m_picture;
    std::vector<StageLamp> m_lamps;
    std::map<QString, QPainterPath> m_letters;  ///< as large as they are drawn, by text and place
    const LookColors* m_pColors;                ///< not owned
};
