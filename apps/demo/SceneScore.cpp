// SPDX-License-Identifier: MIT
#include <demo/SceneScore.h>

#include <cmath>

namespace {

constexpr double kOnBeatHat = 0.35;
constexpr double kOffBeatHat = 0.5;
constexpr int kLowA = 33;
constexpr int kMiddleA = 69;

void AddHats(ScenePattern& pPattern, double pOffBeat)
{
    for (int i = 0; i < pPattern.beatsPerBar; ++i) {
        pPattern.hits.push_back({double(i), eSceneHat, kOnBeatHat});
        pPattern.hits.push_back({i + pOffBeat, eSceneHat, kOffBeatHat});
    }
}

ScenePattern KicksAndClaps()
{
    return {4,
            {{0.0, eSceneKick, 1.0},
             {1.0, eSceneClap, 1.0},
             {2.0, eSceneKick, 1.0},
             {3.0, eSceneClap, 1.0}}};
}

}  // namespace

std::vector<double> makeSceneGrid(double pStart, double pEnd, double pBPM, double pDeviation)
{
    constexpr double kTwoPi = 6.283185307179586;
    constexpr double kWanderSeconds = 12.5;
    std::vector<double> grid;
    double time = pStart;
    while (time < pEnd) {
        grid.push_back(time);
        const double wander = std::sin(kTwoPi * (time - pStart) / kWanderSeconds);
        time += 60.0 / (pBPM * (1.0 + pDeviation * wander));
    }
    grid.push_back(time);
    return grid;
}

void appendSceneBars(Scene& pScene, const ScenePattern& pPattern, const std::vector<double>& pGrid)
{
    const std::size_t count = pGrid.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const double inBar = double(i % std::size_t(pPattern.beatsPerBar));
        pScene.beats.push_back(pGrid[i]);
        for (const SceneHit& hit : pPattern.hits) {
            const double offset = hit.beat - inBar;
            if (offset < 0.0 || offset >= 1.0)
                continue;
            const double time = pGrid[i] + offset * (pGrid[i + 1] - pGrid[i]);
            pScene.notes.push_back({time, hit.instrument, hit.level, hit.pitch});
        }
    }
}

namespace scenepatterns {

ScenePattern FourOnTheFloor()
{
    ScenePattern pattern = {4, {}};
    for (int i = 0; i < pattern.beatsPerBar; ++i)
        pattern.hits.push_back({double(i), eSceneKick, 1.0});
    return pattern;
}

ScenePattern EighthHats()
{
    ScenePattern pattern = FourOnTheFloor();
    AddHats(pattern, 0.5);
    return pattern;
}

ScenePattern Backbeat()
{
    ScenePattern pattern = KicksAndClaps();
    AddHats(pattern, 0.5);
    return pattern;
}

ScenePattern EighthBass()
{
    constexpr int kSteps[] = {0, 0, 3, 0, 7, 0, 5, 3};
    ScenePattern pattern = FourOnTheFloor();
    for (int i = 0; i < 8; ++i)
        pattern.hits.push_back({0.5 * i, eSceneBass, 1.0, kLowA + kSteps[i]});
    return pattern;
}

ScenePattern SwungHats()
{
    ScenePattern pattern = KicksAndClaps();
    AddHats(pattern, 2.0 / 3.0);
    return pattern;
}

ScenePattern ThreeFour()
{
    ScenePattern pattern = {
        3, {{0.0, eSceneKick, 1.0}, {1.0, eSceneClap, 0.6}, {2.0, eSceneClap, 0.6}}};
    AddHats(pattern, 0.5);
    return pattern;
}

ScenePattern FiveFour()
{
    ScenePattern pattern = {5,
                            {{0.0, eSceneKick, 1.0},
                             {2.0, eSceneClap, 1.0},
                             {3.0, eSceneKick, 1.0},
                             {4.0, eSceneClap, 1.0}}};
    AddHats(pattern, 0.5);
    return pattern;
}

ScenePattern BuildUp()
{
    constexpr int kArpeggio[] = {0, 3, 7, 12, 7, 3, 0, 7};
    ScenePattern pattern = {4, {{0.0, eSceneChord, 1.0}}};
    for (int i = 0; i < 8; ++i)
        pattern.hits.push_back({0.5 * i, eSceneLead, 1.0, kMiddleA + kArpeggio[i]});
    return pattern;
}

}  // namespace scenepatterns
