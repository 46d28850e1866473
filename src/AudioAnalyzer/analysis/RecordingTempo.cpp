// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <algorithm>
#include <cstddef>

namespace {

using Reports = std::vector<RecordingTempo::Report>;

constexpr double kSettlingSeconds = 10.0;

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
