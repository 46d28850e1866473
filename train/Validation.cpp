// SPDX-License-Identifier: MIT
#include "Validation.h"

#include "Measures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <numeric>

namespace {

double medianOf(std::vector<double> pValues, double pShare)
{
    std::sort(pValues.begin(), pValues.end());
    return pValues[std::size_t(pShare * double(pValues.size() - 1))];
}

template <typename Value>
std::vector<double> collect(const std::vector<Measures>& pAll, Value pValue)
{
    std::vector<double> values;
    for (const Measures& one : pAll)
        values.push_back(pValue(one));
    return values;
}

double meanOf(const std::vector<double>& pValues)
{
    return std::accumulate(pValues.begin(), pValues.end(), 0.0) / double(pValues.size());
}

double errorOf(const std::vector<double>& pValues)
{
    const double mean = meanOf(pValues);
    double sum = 0.0;
    for (const double value : pValues)
        sum += (value - mean) * (value - mean);
    return std::sqrt(sum) / double(pValues.size());
}

void printRow(const char* pTitle, const std::vector<Measures>& pAll)
{
    const auto f = collect(
        pAll, [](const Measures& pOne) { return 100.0 * pOne.f; });
    const auto mean = [&](auto pValue) { return meanOf(collect(pAll, pValue)); };
    const auto locks = collect(
        pAll, [](const Measures& pOne) { return pOne.lock; });
    std::printf("%-22s %3zu %5.1f ±%4.1f %5.1f %5.1f %5.1f %5.1f %6.1f %5.2f %5.1f\n",
                pTitle,
                pAll.size(),
                meanOf(f),
                errorOf(f),
                100.0 * mean([](const Measures& pOne) { return pOne.cmlt; }),
                100.0 * mean([](const Measures& pOne) { return pOne.amlt; }),
                100.0 * mean([](const Measures& pOne) { return pOne.acc1; }),
                100.0 * mean([](const Measures& pOne) { return pOne.acc2; }),
                1000.0 * mean([](const Measures& pOne) { return pOne.error; }),
                medianOf(locks, 0.5),
                medianOf(locks, 0.9));
}

detail::MeterTable learnWithout(const QString& pPart,
                                std::size_t pTracks,
                                const std::vector<FeltCounts>& pCounts,
                                const PartOf& pPartOf)
{
    std::vector<FeltCounts> others;
    for (std::size_t i = 0; i < pCounts.size(); ++i)
        if (i >= pTracks || pPartOf(i) != pPart)
            others.push_back(pCounts[i]);
    return trainTable(others);
}

}  // namespace

void printHeads()
{
    std::printf("%-22s %3s %5s %5s %5s %5s %5s %5s %6s %5s %5s\n",
                "",
                "n",
                "F",
                "s.e.",
                "CMLt",
                "AMLt",
                "Acc1",
                "Acc2",
                "ms",
                "lock",
                "90 %");
}

std::vector<std::vector<JudgedBeat>> validate(const char* pTitle,
                                              const std::vector<Track>& pTracks,
                                              const std::vector<FeltCounts>& pCounts,
                                              const PartOf& pPartOf,
                                              bool pShowsTracks)
{
    std::map<QString, std::vector<std::size_t>> parts;
    for (std::size_t i = 0; i < pTracks.size(); ++i)
        parts[pPartOf(i)].push_back(i);
    std::vector<Measures> all;
    std::map<QString, std::vector<Measures>> genres;
    std::vector<std::vector<JudgedBeat>> judged;
    for (const auto& part : parts) {
        if (parts.size() < 2)
            break;
        const detail::MeterTable table = learnWithout(part.first, pTracks.size(), pCounts, pPartOf);
        judged.emplace_back();
        for (const std::size_t i : part.second) {
            const std::vector<FollowedBeat> beats = followTrack(pTracks[i], table);
            all.push_back(measure(pTracks[i], toldTimes(beats)));
            genres[pTracks[i].genre].push_back(all.back());
            const std::vector<JudgedBeat> judgements = judgeBeats(pTracks[i], beats);
            judged.back().insert(judged.back().end(), judgements.begin(), judgements.end());
            if (pShowsTracks)
                printRow(qPrintable(pTracks[i].name.left(22)), {all.back()});
        }
    }
    if (all.empty())
        return judged;
    printRow(pTitle, all);
    for (const auto& genre : genres)
        printRow(qPrintable(QStringLiteral("  ") + genre.first), genre.second);
    return judged;
}
