// SPDX-License-Identifier: MIT
#include "TableTrainer.h"

#include <algorithm>
#include <cmath>

namespace {

using detail::kBeatsPerBar;
using detail::kBinsPerBeat;
using detail::kMeterRanges;

constexpr std::size_t kSteps = LevelCounts::kSteps;
constexpr std::size_t kLevels = OnsetLevels::kLevelCount;
constexpr double kFramesOfTrack = 3000.0;
constexpr double kPseudoCount = 20.0;
constexpr int kRounds = 6;
constexpr int kStraightRounds = 2;     ///< before anything may swing
constexpr double kSwungDoubt = 100.0;  ///< by which a swung reading must fit better

using Levels = LevelCounts::Levels;
using Scores = std::array<std::array<Levels, kMeterRanges>, kSteps>;

double sumOf(const Levels& pLevels)
{
    double sum = 0.0;
    for (const double level : pLevels)
        sum += level;
    return sum;
}

LevelCounts smoothed(const LevelCounts& pCounts)
{
    LevelCounts smooth;
    for (std::size_t step = 0; step < kSteps; ++step)
        for (std::size_t range = 0; range < kMeterRanges; ++range)
            for (std::size_t level = 0; level < kLevels; ++level)
                smooth.counts[step][range][level] =
                    pCounts.counts[step][range][level] +
                    0.5 * (pCounts.counts[(step + 1) % kSteps][range][level] +
                           pCounts.counts[(step + kSteps - 1) % kSteps][range][level]);
    return smooth;
}

std::array<Levels, kMeterRanges> marginals(const LevelCounts& pCounts)
{
    std::array<Levels, kMeterRanges> shares = {};
    for (std::size_t range = 0; range < kMeterRanges; ++range) {
        for (std::size_t step = 0; step < kSteps; ++step)
            for (std::size_t level = 0; level < kLevels; ++level)
                shares[range][level] += pCounts.counts[step][range][level];
        const double sum = sumOf(shares[range]);
        for (double& share : shares[range])
            share = (share + 1.0) / (sum + kLevels);
    }
    return shares;
}

Scores scoresOf(const LevelCounts& pSmooth)
{
    const std::array<Levels, kMeterRanges> shares = marginals(pSmooth);
    Scores scores = {};
    for (std::size_t step = 0; step < kSteps; ++step)
        for (std::size_t range = 0; range < kMeterRanges; ++range) {
            const Levels& counts = pSmooth.counts[step][range];
            const double total = sumOf(counts) + kPseudoCount;
            for (std::size_t level = 0; level < kLevels; ++level) {
                const double count = counts[level] + kPseudoCount * shares[range][level];
                scores[step][range][level] = std::log(count / total / shares[range][level]);
            }
        }
    return scores;
}

// Solves the normal equations of a weighted parabola by elimination.
std::array<double, 3> fitParabola(const Levels& pScores, const Levels& pWeights)
{
    std::array<std::array<double, 4>, 3> rows = {};
    for (std::size_t level = 0; level < kLevels; ++level) {
        const double x = double(level);
        const std::array<double, 3> powers = {1.0, x, x * x};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                rows[i][k] += pWeights[level] * powers[i] * powers[k];
            rows[i][3] += pWeights[level] * powers[i] * pScores[level];
        }
    }
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k) {
            const double factor = i == k ? 0.0 : rows[k][i] / rows[i][i];
            for (std::size_t column = i; column < 4; ++column)
                rows[k][column] -= factor * rows[i][column];
        }
    return {rows[0][3] / rows[0][0], rows[1][3] / rows[1][1], rows[2][3] / rows[2][2]};
}

detail::MeterTable fitTable(const LevelCounts& pSmooth)
{
    const Scores scores = scoresOf(pSmooth);
    detail::MeterTable table = {};
    for (std::size_t step = 0; step < kSteps; ++step)
        for (std::size_t range = 0; range < kMeterRanges; ++range) {
            Levels weights = pSmooth.counts[step][range];
            for (double& weight : weights)
                weight += 1e-3;
            const auto fit = fitParabola(scores[step][range], weights);
            for (std::size_t k = 0; k < 3; ++k)
                table.fit[step / kBinsPerBeat][step % kBinsPerBeat][range][k] = float(fit[k]);
        }
    return table;
}

double fitness(const LevelCounts& pTrack, std::size_t pBeats, const Scores& pScores)
{
    double sum = 0.0;
    for (std::size_t step = 0; step < kSteps; ++step)
        for (std::size_t range = 0; range < kMeterRanges; ++range)
            for (std::size_t level = 0; level < kLevels; ++level)
                sum += pTrack.counts[step][range][level] *
                       pScores[(step + pBeats * kBinsPerBeat) % kSteps][range][level];
    return sum;
}

// Backbeat: the middle ranges on the second and fourth beat, the lowest on the first and third.
Scores backbeatScores()
{
    Scores scores = {};
    for (std::size_t beat = 0; beat < kBeatsPerBar; ++beat)
        for (std::size_t bin = 0; bin < 3; ++bin)
            for (std::size_t level = 0; level < kLevels; ++level) {
                auto& ranges = scores[beat * kBinsPerBeat + bin];
                ranges[beat % 2 == 0 ? 0 : 2][level] = double(level);
                if (beat % 2 == 1)
                    ranges[3][level] = double(level);
            }
    return scores;
}

std::size_t bestShift(const LevelCounts& pTrack, const Scores& pScores)
{
    std::size_t best = 0;
    for (std::size_t beats = 1; beats < kBeatsPerBar; ++beats)
        if (fitness(pTrack, beats, pScores) > fitness(pTrack, best, pScores))
            best = beats;
    return best;
}

/// How a track is read: which of its beats is the first, and how they are divided.
struct Reading
{
    detail::eMeterFeel feel;
    std::size_t beats;
};

Reading read(const FeltCounts& pTrack, const Scores& pScores, bool pMaySwing)
{
    const LevelCounts& straight = pTrack.feels[detail::eMeterStraight];
    const LevelCounts& swung = pTrack.feels[detail::eMeterSwung];
    const Reading plain = {detail::eMeterStraight, bestShift(straight, pScores)};
    const Reading swinging = {detail::eMeterSwung, bestShift(swung, pScores)};
    const double gain =
        fitness(swung, swinging.beats, pScores) - fitness(straight, plain.beats, pScores);
    return pMaySwing && gain > kSwungDoubt ? swinging : plain;
}

LevelCounts countFelt(const Track& pTrack, detail::eMeterFeel pFeel)
{
    LevelCounts counts;
    double frames = 0.0;
    std::size_t beat = 0;
    for (std::size_t i = 0; i < pTrack.levels.size(); ++i) {
        const double now = double(i + 1) / OnsetLevels::kFramesPerSecond;
        while (beat + 1 < pTrack.beats.size() && pTrack.beats[beat + 1] <= now)
            ++beat;
        if (now < pTrack.beats[beat] || beat + 1 >= pTrack.beats.size() || pTrack.isIgnored(now))
            continue;
        const double period = pTrack.beats[beat + 1] - pTrack.beats[beat];
        const double place = detail::meterStep(
            (now - pTrack.beats[beat]) / period, OnsetLevels::kFramesPerSecond * period, pFeel);
        const std::size_t step = (beat * kBinsPerBeat + std::size_t(place + 0.5)) % kSteps;
        for (std::size_t range = 0; range < kMeterRanges; ++range)
            counts.counts[step][range][pTrack.levels[i][range]] += 1.0;
        frames += 1.0;
    }
    LevelCounts scaled;
    scaled.Add(counts, 0, kFramesOfTrack / std::max(frames, 1.0));
    return scaled;
}

}  // namespace

void LevelCounts::Add(const LevelCounts& pOther, std::size_t pBeats, double pWeight)
{
    for (std::size_t step = 0; step < kSteps; ++step)
        for (std::size_t range = 0; range < kMeterRanges; ++range)
            for (std::size_t level = 0; level < kLevels; ++level)
                counts[(step + pBeats * kBinsPerBeat) % kSteps][range][level] +=
                    pWeight * pOther.counts[step][range][level];
}

FeltCounts countLevels(const Track& pTrack)
{
    FeltCounts counts;
    counts.feels[detail::eMeterStraight] = countFelt(pTrack, detail::eMeterStraight);
    counts.feels[detail::eMeterSwung] = countFelt(pTrack, detail::eMeterSwung);
    return counts;
}

detail::MeterTable trainTable(const std::vector<FeltCounts>& pTracks)
{
    LevelCounts smooth;
    Scores scores = backbeatScores();
    for (int round = 0; round <= kRounds; ++round) {
        LevelCounts sum;
        for (const FeltCounts& track : pTracks) {
            const Reading reading = read(track, scores, round >= kStraightRounds);
            sum.Add(track.feels[reading.feel], reading.beats, track.weight);
        }
        smooth = smoothed(sum);
        scores = scoresOf(smooth);
    }
    return fitTable(smooth);
}
