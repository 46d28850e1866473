// SPDX-License-Identifier: MIT
#include <cli/detail/ProgressLine.h>
#include <cli/live/detail/LiveLine.h>

#include <algorithm>
#include <cmath>

namespace cli {

namespace {

constexpr int kBarLength = 20;
constexpr double kRange = 60.0;  ///< dB
constexpr double kFullScale = 32767.0;

/// Place on the bar, 0 to kBarLength.
int PlaceOf(int pMagnitude)
{
    if (pMagnitude <= 0)
        return 0;
    const double decibels = 20.0 * std::log10(pMagnitude / kFullScale);
    const double share = std::clamp(1.0 + decibels / kRange, 0.0, 1.0);
    return int(std::lround(share * kBarLength));
}

}  // namespace

QString LevelBar(int pPeak, int pThreshold)
{
    const int length = PlaceOf(pPeak);
    QString bar =
        QString(length, QLatin1Char('#')) + QString(kBarLength - length, QLatin1Char('.'));
    if (pThreshold > 0)
        bar[std::max(0, PlaceOf(pThreshold) - 1)] = QLatin1Char('|');
    return bar;
}

QString LiveLine(const LiveValues& pValues, int pColumns)
{
    const QString bpm =
        pValues.bpm > 0.0 ? QString::number(pValues.bpm, 'f', 1) : QStringLiteral("---");
    const QString confidence = pValues.bpm > 0.0
                                   ? QString::number(std::lround(pValues.confidence * 100.0))
                                   : QStringLiteral("-");
    const QString line =
        QStringLiteral("%1 %2 BPM  %3  %4 %  [%5] %6 / %7  %8  %9")
            .arg(QLatin1Char(pValues.isBeat ? '*' : ' '))
            .arg(bpm, 5)
            .arg(pValues.beatInBar > 0 ? QString::number(pValues.beatInBar) : QStringLiteral("-"))
            .arg(confidence, 3)
            .arg(LevelBar(pValues.peak, pValues.threshold))
            .arg(pValues.peak, 5)
            .arg(std::max(0, pValues.threshold), 5)
            .arg(pValues.status, -8)
            .arg(Clock(pValues.seconds) + QLatin1String("  ") + pValues.device);
    return line.left(pColumns);
}

}  // namespace cli
