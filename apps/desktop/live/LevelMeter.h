// SPDX-License-Identifier: MIT
#pragma once

#include "../Look.h"

#include <QWidget>

class QwtSlider;

/// One bar with the current, the average and the maximal volume, and the threshold across it. It
/// shares the scale of the slider below it.
class LevelMeter : public QWidget
{
    Q_OBJECT

public:
    struct Levels
    {
        double current = 0.0;  ///< dBFS, as all
        double average = 0.0;
        double maximal = 0.0;
        double threshold = 0.0;
    };

    /// pSlider: with a horizontal scale, as wide as the meter; not owned.
    explicit LevelMeter(const QwtSlider& pSlider, QWidget* pParent = nullptr);

    void setColors(const LookColors& pColors);
    /// Repaints only when a bar moves by a pixel.
    void setLevels(const Levels& pLevels);
    const Levels& getLevels() const { return m_levels; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    double _ToX(double pDecibels) const;
    bool _IsSeen(const Levels& pLevels) const;

    const QwtSlider& m_slider;
    Levels m_levels;
    const LookColors* m_pColors;  ///< not owned
};
