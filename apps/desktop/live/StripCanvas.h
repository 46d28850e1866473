// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/StripImage.h>

#include <QWidget>

/// Shows a StripImage between its scales, and says what was where the mouse is.
class StripCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit StripCanvas(QWidget* pParent = nullptr);

    void setColors(const LookColors& pColors);
    /// How many seconds are seen.
    void setSpan(int pSeconds);
    /// Draws what has come since. pData: [valid until the next call]
    void Show(const StripData& pData);
    /// Draws all of it anew.
    void Redraw();
    void Retranslate();
    /// What is to be said of a place; empty = nothing.
    QString Describe(const QPoint& pPlace) const;
    QRect getPicture() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The wheel: positive = nearer.
    void OnTurned(int pSteps);

protected:
    bool event(QEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;

private:
    void _Reset();
    void _PaintScales(QPainter& pPainter) const;

    StripImage m_image;
    const StripData* m_pData = nullptr;  ///< not owned
    LookColors m_colors = ::getColors(eLightLook);
    int m_span = 120;  ///< seconds
    int m_wheel = 0;   ///< eighths of a degree that were not taken yet
};
