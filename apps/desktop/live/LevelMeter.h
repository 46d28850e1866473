// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/look/Look.h>

#include <QWidget>

/// One bar with the current, the average and the maximal volume, the threshold across it, and a
/// mark at its end when it was cut off.
class LevelMeter : public QWidget
{
    Q_OBJECT

public:
    struct Levels
    {
        double current;  ///< dBFS, as all
        double average;
        double maximal;
        double threshold;
        bool isClipped = false;  ///< a sample was at full scale
    };

    explicit LevelMeter(QWidget* pParent = nullptr);

    void setColors(const LookColors& pColors);
    /// Room to the left and to the right of the bar, pixels.
    void setInset(int pInset);
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

    Levels m_levels;
    int m_inset = 0;              ///< pixels
    const LookColors* m_pColors;  ///< not owned
};
