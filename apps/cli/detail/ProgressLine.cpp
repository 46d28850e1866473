// SPDX-License-Identifier: MIT
#include <cli/detail/ProgressLine.h>
#include <shared/text/Text.h>

#include <algorithm>
#include <cmath>

namespace cli {

namespace {

constexpr int kBarLength = 24;
constexpr int kLeastColumns = 20;

QString TwoDigits(qint64 pNumber)
{
    return QString::number(pNumber).rightJustified(2, QLatin1Char('0'));
}

/// Keeps the end of a text, which tells files apart better than its front.
QString CutFront(const QString& pText, int pLength)
{
    if (pText.size() <= pLength)
        return pText;
    return pLength < 4 ? QString() : QStringLiteral("...") + pText.right(pLength - 3);
}

QString Fit(const QString& pLabel, const QString& pRest, int pColumns)
{
    const int room = std::max(pColumns, kLeastColumns) - pRest.size();
    return (CutFront(pLabel, room) + pRest).left(std::max(pColumns, kLeastColumns));
}

}  // namespace

QString Clock(double pSeconds)
{
    const auto seconds = qint64(std::llround(std::max(0.0, pSeconds)));
    const qint64 minutes = seconds / 60;
    const QString end = QLatin1Char(':') + TwoDigits(seconds % 60);
    if (minutes < 60)
        return QString::number(minutes) + end;
    return QString::number(minutes / 60) + QLatin1Char(':') + TwoDigits(minutes % 60) + end;
}

QString ProgressLine(const QString& pLabel, double pFraction, double pElapsed, int pColumns)
{
    const double fraction = std::clamp(pFraction, 0.0, 1.0);
    const int filled = int(std::floor(fraction * kBarLength));
    const QString bar =
        QString(filled, QLatin1Char('#')) + QString(kBarLength - filled, QLatin1Char('.'));
    const QString percent = QString::number(int(std::floor(fraction * 100.0))).rightJustified(3);
    QString rest = QStringLiteral(" [%1] %2 %").arg(bar, percent);
    if (fraction > 0.0)
        rest += tr("  %1 left").arg(Clock(pElapsed * (1.0 - fraction) / fraction));
    return Fit(pLabel, rest, pColumns);
}

QString ProgressLine(const QString& pLabel, double pSecondsDone, int pColumns)
{
    return Fit(pLabel, tr(" %1 analysed").arg(Clock(pSecondsDone)), pColumns);
}

}  // namespace cli
