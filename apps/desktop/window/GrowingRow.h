// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QHBoxLayout;

/// Widgets side by side, which grow with the room that they get: by their font, which all their
/// sizes follow from.
class GrowingRow : public QWidget
{
    Q_OBJECT

public:
    static constexpr double kLargest = 12.0;  ///< times the usual font

    explicit GrowingRow(QWidget* pParent = nullptr);

    /// The widget becomes the row's.
    void Add(QWidget* pWidget, int pStretch = 0);
    /// Times the usual font, 1 at least.
    double getScale() const { return m_scale; }

    /// That of the usual font.
    QSize sizeHint() const override { return m_usual; }
    QSize minimumSizeHint() const override { return m_usual; }

protected:
    void changeEvent(QEvent* pEvent) override;
    bool event(QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void _Measure();
    void _Fit();
    void _SetScale(double pScale);

    QHBoxLayout* m_pLayout;
    double m_pointSize;  ///< of the usual font
    double m_scale = 1.0;
    QSize m_usual;              ///< what it needs with the usual font
    QSize m_needed;             ///< and with the present one
    bool m_isChanging = false;  ///< the font, here
};
