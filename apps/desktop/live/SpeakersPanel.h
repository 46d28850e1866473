// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/FrameCache.h>
#include <desktop/live/LivePanel.h>

/// Two drawn speakers whose membranes pump with the beat.
class SpeakersPanel final : public LivePanel
{
    Q_OBJECT

public:
    static constexpr qint64 kFadeMs = 200;

    explicit SpeakersPanel(QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    int getStep() const { return m_step; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QRectF _Box(int pIndex) const;
    void _DrawSpeaker(QPainter& pPainter, const QRectF& pBox) const;
    void
    _DrawMembrane(QPainter& pPainter, const QPointF& pCenter, double pRadius, double pPush) const;

    QColor m_body;
    QColor m_lit;
    FrameCache m_frames;
    qint64 m_lastFrame = 0;  ///< ms
    int m_step = 0;
};
