// SPDX-License-Identifier: MIT
#include <demo/Scene.h>
#include <demo/SceneScore.h>

#include <algorithm>

namespace {

constexpr double kDuration = 30.0;  ///< seconds
constexpr double kStart = 0.25;     ///< of the first beat, seconds
constexpr double kChange = 12.0;    ///< about where gaps and steps lie, seconds
constexpr double kGap = 2.5;        ///< seconds
constexpr double kStep = 1.3;       ///< between two tempos
constexpr double kDrift = 0.03;     ///< share of the tempo
constexpr double kFastest = 125.0;  ///< from which a step leads down, BPM

constexpr int kTempos[] = {60, 75, 90, 110, 128, 140, 160, 180};

using Pattern = ScenePattern (*)();

Scene Begin(const char* pGenre, double pBPM)
{
    Scene scene;
    scene.genre = QString::fromLatin1(pGenre);
    scene.name = QStringLiteral("%1-%2").arg(scene.genre).arg(pBPM);
    scene.name.replace(QLatin1Char(' '), QLatin1Char('-'));
    scene.duration = kDuration;
    scene.bpm = pBPM;
    return scene;
}

Scene MakeSteady(const char* pGenre, Pattern pPattern, double pBPM)
{
    Scene scene = Begin(pGenre, pBPM);
    appendSceneBars(scene, pPattern(), makeSceneGrid(kStart, kDuration, pBPM));
    return scene;
}

Scene MakeDrift(double pBPM)
{
    Scene scene = Begin("drift of 3 %", pBPM);
    scene.name = QStringLiteral("drift-%1").arg(pBPM);
    scene.deviation = kDrift;
    appendSceneBars(
        scene, scenepatterns::Backbeat(), makeSceneGrid(kStart, kDuration, pBPM, kDrift));
    return scene;
}

/// The music pauses and begins anew, off its old grid.
Scene MakeGap(double pBPM)
{
    Scene scene = Begin("gap of 2.5 s", pBPM);
    scene.name = QStringLiteral("gap-%1").arg(pBPM);
    const std::vector<double> first = makeSceneGrid(kStart, kChange, pBPM);
    const double end = first.back();
    appendSceneBars(scene, scenepatterns::Backbeat(), first);
    appendSceneBars(scene, scenepatterns::Backbeat(), makeSceneGrid(end + kGap, kDuration, pBPM));
    const double margin = 15.0 / pBPM;
    scene.gaps = {{end - margin, end + kGap - margin}};
    scene.changes = {end + kGap};
    return scene;
}

/// The named tempo steps up, a fast one down, and the beats go on without a pause.
Scene MakeStep(double pBPM)
{
    Scene scene = Begin("step of 30 %", pBPM);
    scene.name = QStringLiteral("step-%1").arg(pBPM);
    scene.bpm = pBPM < kFastest ? pBPM * kStep : pBPM / kStep;
    const std::vector<double> first = makeSceneGrid(kStart, kChange, pBPM);
    appendSceneBars(scene, scenepatterns::Backbeat(), first);
    appendSceneBars(
        scene, scenepatterns::Backbeat(), makeSceneGrid(first.back(), kDuration, scene.bpm));
    scene.changes = {first.back()};
    return scene;
}

/// Drums, a build-up without any, drums again, all on one grid.
Scene MakeBuildUp(double pBPM)
{
    constexpr int kDrumBeats = 16;
    constexpr int kBuildUpBeats = 32;
    Scene scene = Begin("build-up", pBPM);
    const std::vector<double> grid = makeSceneGrid(kStart, kDuration, pBPM);
    const auto cut = [&](int pFirst, int pLast) {
        return std::vector<double>(grid.begin() + pFirst, grid.begin() + pLast + 1);
    };
    const int end = kDrumBeats + kBuildUpBeats;
    appendSceneBars(scene, scenepatterns::EighthHats(), cut(0, kDrumBeats));
    appendSceneBars(scene, scenepatterns::BuildUp(), cut(kDrumBeats, end));
    appendSceneBars(scene, scenepatterns::EighthHats(), cut(end, int(grid.size()) - 1));
    return scene;
}

/// As much digital silence follows as there was music.
Scene MakeEnd(double pBPM)
{
    Scene scene = MakeSteady("end", scenepatterns::Backbeat, pBPM);
    scene.duration = 2.0 * kDuration;
    return scene;
}

Scene MakeRate(int pRate)
{
    constexpr double kBPM = 120.0;
    Scene scene = MakeSteady("sample rate", scenepatterns::Backbeat, kBPM);
    scene.name = QStringLiteral("rate-%1").arg(pRate);
    scene.sampleRate = pRate;
    return scene;
}

void AppendKinds(std::vector<Scene>& pScenes, double pBPM)
{
    pScenes.push_back(MakeSteady("four on the floor", scenepatterns::FourOnTheFloor, pBPM));
    pScenes.push_back(MakeSteady("eighth hats", scenepatterns::EighthHats, pBPM));
    pScenes.push_back(MakeSteady("backbeat", scenepatterns::Backbeat, pBPM));
    pScenes.push_back(MakeSteady("eighth bass", scenepatterns::EighthBass, pBPM));
    pScenes.push_back(MakeSteady("swung hats", scenepatterns::SwungHats, pBPM));
    pScenes.push_back(MakeDrift(pBPM));
    pScenes.push_back(MakeGap(pBPM));
    pScenes.push_back(MakeStep(pBPM));
}

}  // namespace

std::vector<Scene> makeScenes()
{
    std::vector<Scene> scenes;
    for (const int bpm : kTempos)
        AppendKinds(scenes, bpm);
    for (const int bpm : {90, 120, 150, 180}) {
        scenes.push_back(MakeSteady("three four", scenepatterns::ThreeFour, bpm));
        scenes.push_back(MakeSteady("five four", scenepatterns::FiveFour, bpm));
    }
    for (const int bpm : {110, 125, 140, 160})
        scenes.push_back(MakeBuildUp(bpm));
    for (const int bpm : {90, 110, 128, 160})
        scenes.push_back(MakeEnd(bpm));
    for (const int rate :
         {8000, 11025, 16000, 22050, 32000, 44100, 48000, 88200, 96000, 176400, 192000})
        scenes.push_back(MakeRate(rate));
    for (Scene& scene : scenes)
        std::stable_sort(scene.notes.begin(),
                         scene.notes.end(),
                         [](const SceneNote& pLeft, const SceneNote& pRight) {
                             return pLeft.time < pRight.time;
                         });
    return scenes;
}
