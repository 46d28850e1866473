// SPDX-License-Identifier: MIT
#include <cli/plot/detail/PlotData.h>

#include <QVector>

#include <algorithm>
#include <cmath>

namespace cli {

namespace {

std::size_t getBin(double pTime, double pDuration, std::size_t pBins)
{
    const double share = pDuration > 0.0 ? pTime / pDuration : 0.0;
    return std::size_t(qBound(0.0, share * double(pBins), double(pBins - 1)));
}

/// Appends the first, lowest, highest and last of [pFirst, pLast), each once.
void appendExtremes(const TempoPoint* pFirst,
                    const TempoPoint* pLast,
                    std::vector<TempoPoint>& pTarget)
{
    const auto isLower = [](const TempoPoint& pA, const TempoPoint& pB) { return pA.bpm < pB.bpm; };
    std::vector<const TempoPoint*> kept = {pFirst,
                                           std::min_element(pFirst, pLast, isLower),
                                           std::max_element(pFirst, pLast, isLower),
                                           pLast - 1};
    std::sort(kept.begin(), kept.end());
    kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
    for (const TempoPoint* point : kept)
        pTarget.push_back(*point);
}

}  // namespace

std::vector<LevelTrace::Column> thinLevels(const std::vector<LevelTrace::Column>& pColumns,
                                           std::size_t pMaximum)
{
    const std::size_t group = std::max<std::size_t>(1, (pColumns.size() + pMaximum - 1) / pMaximum);
    std::vector<LevelTrace::Column> thinned;
    for (std::size_t i = 0; i < pColumns.size(); ++i) {
        if (i % group == 0) {
            thinned.push_back(pColumns[i]);
            continue;
        }
        thinned.back().level = std::max(thinned.back().level, pColumns[i].level);
        thinned.back().threshold = std::max(thinned.back().threshold, pColumns[i].threshold);
    }
    return thinned;
}

std::vector<TempoPoint>
thinTempos(const std::vector<TempoPoint>& pTempos, double pDuration, std::size_t pBins)
{
    if (pTempos.size() <= 4 * pBins)
        return pTempos;
    std::vector<TempoPoint> thinned;
    for (auto first = pTempos.begin(); first != pTempos.end();) {
        const std::size_t bin = getBin(first->time, pDuration, pBins);
        const auto last = std::find_if(first, pTempos.end(), [&](const TempoPoint& pPoint) {
            return getBin(pPoint.time, pDuration, pBins) != bin;
        });
        appendExtremes(&*first, &*first + (last - first), thinned);
        first = last;
    }
    return thinned;
}

std::vector<TempoPoint> getBeatTempos(const std::vector<LoggedBeat>& pBeats)
{
    std::vector<TempoPoint> tempos;
    for (const LoggedBeat& beat : pBeats) {
        const double due =
            tempos.empty() ? beat.time : tempos.back().time + 90.0 / tempos.back().bpm;
        if (beat.time > due)
            tempos.push_back({due, 0.0});
        tempos.push_back({beat.time, beat.bpm});
    }
    if (!tempos.empty())
        tempos.push_back({tempos.back().time + 90.0 / tempos.back().bpm, 0.0});
    return tempos;
}

std::vector<int> countPerBin(const std::vector<double>& pTimes, double pDuration, std::size_t pBins)
{
    std::vector<int> counts(pBins, 0);
    for (const double time : pTimes)
        ++counts[getBin(time, pDuration, pBins)];
    return counts;
}

double getTickStep(double pDuration, int pMaximum)
{
    static const double steps[] = {0.01, 0.02, 0.05, 0.1,  0.2,   0.5,   1,    2,
                                   5,    10,   15,   30,   60,    120,   300,  600,
                                   900,  1800, 3600, 7200, 14400, 21600, 43200};
    for (const double step : steps)
        if (pDuration / step < pMaximum)
            return step;
    const double day = 86400.0;
    return day * std::ceil(pDuration / day / pMaximum);
}

QString formatTick(double pTime, double pDuration)
{
    if (pDuration < 120.0)
        return QString::number(pTime, 'g', 6);
    const auto seconds = qint64(std::llround(pTime));
    const QChar zero = QLatin1Char('0');
    const QString tail = QStringLiteral("%1").arg(seconds % 60, 2, 10, zero);
    if (pDuration < 3600.0)
        return QStringLiteral("%1:%2").arg(seconds / 60).arg(tail);
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(tail);
}

QString getTimeUnit(double pDuration)
{
    if (pDuration < 120.0)
        return QStringLiteral("s");
    return pDuration < 3600.0 ? QStringLiteral("min:s") : QStringLiteral("h:min:s");
}

QString formatLength(double pDuration)
{
    return pDuration < 120.0 ? QStringLiteral("%1 s").arg(pDuration, 0, 'f', 1)
                             : formatTick(pDuration, pDuration);
}

TempoRange getTempoRange(const std::vector<TempoPoint>& pTempos)
{
    double low = 0.0;
    double high = 0.0;
    for (const TempoPoint& point : pTempos) {
        if (point.bpm > 0.0) {
            low = low > 0.0 ? std::min(low, point.bpm) : point.bpm;
            high = std::max(high, point.bpm);
        }
    }
    if (high <= 0.0)
        return {60.0, 180.0, false};
    const double room = std::max(0.1 * (high - low), 0.5 * (10.0 - (high - low)));
    return {std::floor(low - room), std::ceil(high + room), true};
}

QString makeTitle(const QString& pText, int pMaximum)
{
    QVector<uint> characters = pText.toUcs4();
    for (uint& character : characters)
        character = QChar::isPrint(character) ? character : uint(QChar::ReplacementCharacter);
    if (characters.size() > pMaximum) {
        const int tail = (pMaximum - 1) / 2;
        const int head = pMaximum - 1 - tail;
        characters.remove(head, characters.size() - head - tail);
        characters.insert(head, 0x2026);
    }
    // gnuplot writes > as it is, which XML forbids after ]].
    return QString::fromUcs4(characters.constData(), characters.size())
        .replace(QLatin1String("]]>"), QLatin1String("]] >"));
}

QByteArray quote(const QString& pText)
{
    // gnuplot's own way of doubling the quotes fails for a text that begins with one.
    return '\'' + QString(pText).replace(QLatin1Char('\''), QLatin1String("'.\"'\".'")).toUtf8() +
           '\'';
}

}  // namespace cli
