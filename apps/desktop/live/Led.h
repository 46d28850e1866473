// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/FrameCache.h>

#include <QColor>
#include <QWidget>

/// A lamp: a disc that lights up, or only its ring, and fades.
class Led : public QWidget
{
    Q_OBJECT

public:
    explicit Led(QWidget* pParent = nullptr);

    void setColors(const QColor& pDisc, const QColor& pRing, const QColor& pUnlit);
    /// pStep: 0 = dark, desktop::kFlashSteps = full. pIsRing: only the ring.
    void setLight(int pStep, bool pIsRing);
    int getStep() const { return m_step; }
    bool isRing() const { return m_isRing; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QRectF _Circle() const;
    void _Draw(QPainter& pPainter) const;

    QColor m_disc;
    QColor m_ring;
    QColor m_unlit;
    FrameCache m_frames;
    int m_step = 0;
    bool m_isRing = false;
};
