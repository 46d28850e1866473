// SPDX-License-Identifier: MIT
#pragma once

#include <cli/plot/LevelTrace.h>
#include <shared/beats/AnalysisResult.h>

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <vector>

/// Arithmetic of the plot: thinning, axis ticks and quoting. Values in, value out.
namespace cli {

/// Neighbouring columns merged, so that at most pMaximum (> 0) are left.
std::vector<LevelTrace::Column> thinLevels(const std::vector<LevelTrace::Column>& pColumns,
                                           std::size_t pMaximum);

/// The curve cut into pBins (> 0) bins of equal duration, of each of which its first, lowest,
/// highest and last point stay, in order of time. A curve of at most 4 * pBins points stays as it
/// is.
std::vector<TempoPoint>
thinTempos(const std::vector<TempoPoint>& pTempos, double pDuration, std::size_t pBins);

/// The tempo of each beat from it on, and none from where the next one is missing: a beat and a
/// half behind one.
std::vector<TempoPoint> getBeatTempos(const std::vector<LoggedBeat>& pBeats);

/// How many of the times fall into each of pBins (> 0) equal parts of [0, pDuration]. Times outside
/// count for the nearest part.
std::vector<int>
countPerBin(const std::vector<double>& pTimes, double pDuration, std::size_t pBins);

/// Distance of ticks, seconds: the smallest round one that gives at most pMaximum (> 0) ticks.
double getTickStep(double pDuration, int pMaximum);

/// A tick's label in the notation that fits the whole axis: "12.5", "3:05" or "1:02:30".
QString formatTick(double pTime, double pDuration);

/// Notation of formatTick() for the axis title: "s", "min:s" or "h:min:s".
QString getTimeUnit(double pDuration);

/// A duration for a line of text: "9.5 s" below two minutes, else "3:05" or "1:02:30".
QString formatLength(double pDuration);

/// A range of tempos that shows the known ones with some room, and never less than 10 BPM.
struct TempoRange
{
    double minimum;  ///< BPM
    double maximum;  ///< BPM
    bool isKnown;    ///< any tempo is known
};
TempoRange getTempoRange(const std::vector<TempoPoint>& pTempos);

/// The text with everything that does not print replaced and its middle left out beyond pMaximum (>
/// 4) characters.
QString makeTitle(const QString& pText, int pMaximum);

/// A gnuplot string expression in which nothing is expanded. pText must not hold line breaks.
QByteArray quote(const QString& pText);

}  // namespace cli
