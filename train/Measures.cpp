// SPDX-License-Identifier: MIT
#include "Measures.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTolerance = 0.07;    ///< seconds
constexpr double kLeftOut = 5.0;       ///< seconds
constexpr double kContinuity = 0.175;  ///< of a beat: the tolerance of phase and of period
constexpr double kTempoTolerance = 0.04;
constexpr std::size_t kLockBeats = 4;

using Beats = std::vector<double>;

Beats select(const Track& pTrack, const Beats& pBeats)
{
    Beats kept;
    for (const double beat : pBeats)
        if (beat >= kLeftOut && beat < pTrack.duration && !pTrack.isIgnored(beat))
            kept.push_back(beat);
    return kept;
}

// One to one, in order: the best there is for equal tolerances.
void measureHits(const Beats& pTrue, const Beats& pFound, Measures& pMeasures)
{
    std::size_t hits = 0;
    double errors = 0.0;
    for (std::size_t i = 0, k = 0; i < pTrue.size() && k < pFound.size();) {
        const double error = pFound[k] - pTrue[i];
        if (std::fabs(error) <= kTolerance) {
            ++hits;
            errors += error;
            ++i;
            ++k;
        } else if (error < 0.0) {
            ++k;
        } else {
            ++i;
        }
    }
    const std::size_t all = pTrue.size() + pFound.size();
    pMeasures.f = all > 0 ? 2.0 * double(hits) / double(all) : 1.0;
    pMeasures.error = hits > 0 ? errors / double(hits) : 0.0;
}

double continuity(const Beats& pTrue, const Beats& pFound)
{
    if (pTrue.size() < 2 || pFound.size() < 2)
        return 0.0;
    std::size_t right = 0;
    std::vector<bool> used(pTrue.size(), false);
    for (std::size_t k = 0; k < pFound.size(); ++k) {
        std::size_t near = 0;
        for (std::size_t i = 1; i < pTrue.size(); ++i)
            if (std::fabs(pTrue[i] - pFound[k]) < std::fabs(pTrue[near] - pFound[k]))
                near = i;
        if (used[near])
            continue;
        // The gap before a beat, or behind it where there is none before.
        const bool isFirst = near == 0 || k == 0;
        const std::size_t i = isFirst ? std::min(near + 1, pTrue.size() - 1) : near;
        const std::size_t j = isFirst ? std::min(k + 1, pFound.size() - 1) : k;
        const double trueGap = pTrue[i] - pTrue[i - 1];
        const double gap = pFound[j] - pFound[j - 1];
        if (std::fabs(pFound[k] - pTrue[near]) < kContinuity * trueGap &&
            std::fabs(1.0 - gap / trueGap) < kContinuity) {
            ++right;
            used[near] = true;
        }
    }
    return double(right) / double(std::max(pTrue.size(), pFound.size()));
}

Beats doubled(const Beats& pBeats)
{
    Beats beats;
    for (std::size_t i = 0; i + 1 < pBeats.size(); ++i) {
        beats.push_back(pBeats[i]);
        beats.push_back(0.5 * (pBeats[i] + pBeats[i + 1]));
    }
    beats.push_back(pBeats.back());
    return beats;
}

Beats everySecond(const Beats& pBeats, std::size_t pFirst)
{
    Beats beats;
    for (std::size_t i = pFirst; i < pBeats.size(); i += 2)
        beats.push_back(pBeats[i]);
    return beats;
}

void measureContinuity(const Beats& pTrue, const Beats& pFound, Measures& pMeasures)
{
    pMeasures.cmlt = continuity(pTrue, pFound);
    pMeasures.amlt = pMeasures.cmlt;
    if (pTrue.size() < 2)
        return;
    const Beats twice = doubled(pTrue);
    for (const Beats& level :
         {everySecond(twice, 1), twice, everySecond(pTrue, 0), everySecond(pTrue, 1)})
        pMeasures.amlt = std::max(pMeasures.amlt, continuity(level, pFound));
}

double tempoOf(const Beats& pBeats)
{
    Beats gaps;
    for (std::size_t i = 1; i < pBeats.size(); ++i)
        gaps.push_back(pBeats[i] - pBeats[i - 1]);
    if (gaps.empty())
        return 0.0;
    std::sort(gaps.begin(), gaps.end());
    return 60.0 / gaps[gaps.size() / 2];
}

void measureTempo(const Track& pTrack, const Beats& pFound, Measures& pMeasures)
{
    const double bpm = tempoOf(pFound);
    const auto fits = [&](double pFactor) {
        return bpm >= pTrack.lowestBPM * pFactor * (1.0 - kTempoTolerance) &&
               bpm <= pTrack.highestBPM * pFactor * (1.0 + kTempoTolerance);
    };
    pMeasures.acc1 = fits(1.0) ? 1.0 : 0.0;
    for (const double factor : {1.0, 2.0, 0.5, 3.0, 1.0 / 3.0})
        pMeasures.acc2 = std::max(pMeasures.acc2, fits(factor) ? 1.0 : 0.0);
}

double firstLock(const Track& pTrack, const Beats& pFound)
{
    std::size_t inRow = 0;
    for (const double beat : pFound) {
        const auto above = std::lower_bound(pTrack.beats.begin(), pTrack.beats.end(), beat);
        const bool hits = (above != pTrack.beats.end() && *above - beat <= kTolerance) ||
                          (above != pTrack.beats.begin() && beat - *std::prev(above) <= kTolerance);
        inRow = hits ? inRow + 1 : 0;
        if (inRow == kLockBeats)
            return beat;
    }
    return pTrack.duration;
}

}  // namespace

Measures measure(const Track& pTrack, const std::vector<double>& pBeats)
{
    const Beats wanted = select(pTrack, pTrack.beats);
    const Beats found = select(pTrack, pBeats);
    Measures measures;
    measureHits(wanted, found, measures);
    measureContinuity(wanted, found, measures);
    measureTempo(pTrack, found, measures);
    measures.lock = firstLock(pTrack, pBeats);
    return measures;
}
