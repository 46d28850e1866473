// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <algorithm>
#include <cstddef>

namespace {

using Reports = std::vector<RecordingTempo::Report>;

constexpr double kSecondsPerMinute = 60.0;
constexpr double kSettlingSeconds = 10.0;
constexpr std::size_t kIntervalsInRow = 8;
constexpr double kLongestInterval = 1.5;  ///< reported intervals

/// The lower one of the two middle ones; 0 without any.
double MedianOf(std::vector<double> pTempos)
{
    if (pTempos.empty())
        return 0.0;
    const auto middle = pTempos.begin() + static_cast<std::ptrdiff_t>((pTempos.size() - 1) / 2);
    std::nth_element(pTempos.begin(), middle, pTempos.end());
    return *middle;
}

/// The known tempos of the reports that pTakes takes.
template <typename Takes>
std::vector<double> TemposOf(const Reports& pReports, Takes pTakes)
{
    std::vector<double> tempos;
    for (const RecordingTempo::Report& report : pReports)
        if (report.bpm > 0.0 && pTakes(report))
            tempos.push_back(report.bpm);
    return tempos;
}

bool isRow(const RecordingTempo::Report* pFirst)
{
    return std::all_of(
        pFirst,
        pFirst + kIntervalsInRow,
        [](const RecordingTempo::Report& pReport) {
            const double interval = (&pReport)[1].time - pReport.time;
            return interval > 0.0 && interval * pReport.bpm <= kLongestInterval * kSecondsPerMinute;
        });
}

}  // namespace

double RecordingTempo::Compute(const Reports& pReports)
{
    const auto isReal = [](const Report& pReport) { return !pReport.isVirtual; };
    const auto first = std::find_if(pReports.begin(), pReports.end(), isReal);
    const double settled = first == pReports.end() ? 0.0 : first->time + kSettlingSeconds;
    const auto isSettled = [settled](const Report& pReport) {
        return !pReport.isVirtual && pReport.time >= settled;
    };
    for (const auto& tempos : {TemposOf(pReports, isSettled), TemposOf(pReports, isReal)})
        if (!tempos.empty())
            return MedianOf(tempos);
    return MedianOf(TemposOf(pReports, [](const Report&) { return true; }));
}

double RecordingTempo::ComputeFromTimes(const Reports& pReports)
{
    std::vector<double> early;
    std::vector<double> settled;
    for (std::size_t i = 0; i + kIntervalsInRow < pReports.size(); ++i) {
        if (!isRow(&pReports[i]))
            continue;
        const double seconds = pReports[i + kIntervalsInRow].time - pReports[i].time;
        const bool isSettled = pReports[i].time >= pReports.front().time + kSettlingSeconds;
        (isSettled ? settled : early).push_back(kIntervalsInRow * kSecondsPerMinute / seconds);
    }
    for (const auto& tempos : {settled, early})
        if (!tempos.empty())
            return MedianOf(tempos);
    return Compute(pReports);
}
