// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatMatching.h>

#include <algorithm>

std::vector<BeatPair>
matchBeats(const BeatTimes& pReference, const BeatTimes& pEstimate, double pWindow)
{
    std::vector<BeatPair> pairs;
    std::size_t next = 0;  // first annotated beat that is free and not too early
    for (std::size_t i = 0; i < pEstimate.size(); ++i) {
        while (next < pReference.size() && pReference[next] < pEstimate[i] - pWindow)
            ++next;
        // All windows are equally wide, so taking the earliest beat never costs a later pair.
        if (next < pReference.size() && pReference[next] <= pEstimate[i] + pWindow)
            pairs.push_back({next++, i});
    }
    return pairs;
}

double getMedianInterval(const BeatTimes& pBeats)
{
    std::vector<double> intervals;
    for (std::size_t i = 1; i < pBeats.size(); ++i)
        intervals.push_back(pBeats[i] - pBeats[i - 1]);
    return getMedian(std::move(intervals));
}

double getMedian(std::vector<double> pValues)
{
    if (pValues.empty())
        return 0.0;
    const std::size_t middle = pValues.size() / 2;
    std::sort(pValues.begin(), pValues.end());
    return pValues.size() % 2 != 0 ? pValues[middle]
                                   : 0.5 * (pValues[middle - 1] + pValues[middle]);
}
