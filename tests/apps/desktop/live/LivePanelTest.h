// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/LiveValues.h>

#include <QEvent>
#include <QImage>

#include <apps/desktop/DesktopTest.h>

/// What tests of live panels show, and how they look at it.
namespace livetest {

/// Music of 128 BPM that is measured.
inline LiveValues Playing()
{
    LiveValues values;
    values.isAnalyzing = true;
    values.isPlaying = true;
    values.bpm = 128.04;
    values.shownBPM = 128.0;
    values.measuredBPM = 128.0;
    values.sampleRate = 48000;
    return values;
}

/// How many points of a picture have about that colour.
inline int Count(const QImage& pImage, const QColor& pColor)
{
    int count = 0;
    for (int y = 0; y < pImage.height(); ++y)
        for (int x = 0; x < pImage.width(); ++x) {
            const QColor point = pImage.pixelColor(x, y);
            count += std::abs(point.red() - pColor.red()) < 12 &&
                     std::abs(point.green() - pColor.green()) < 12 &&
                     std::abs(point.blue() - pColor.blue()) < 12;
        }
    return count;
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& pWidget) { pWidget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* pEvent) override
    {
        count += pEvent->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};

}  // namespace livetest
