// SPDX-License-Identifier: MIT
#include <demo/DemoSignals.h>
#include <demo/SceneScore.h>
#include <demo/Studies.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace {

constexpr double kStudyDuration = 30.0;  ///< seconds
constexpr int kStepsPerBeat = 4;
constexpr int kStudyBar = 4;

// Sixteen steps of a bar.
struct Drums
{
    const char* kick;
    const char* clap;
};

constexpr Drums kDrums[] = {
    {"x...x...x...x...", ""},                  // four on the floor
    {"x...x...x...x...", "....x.......x..."},  // with claps
    {"x.......x.......", "....x.......x..."},  // backbeat
    {"x.......x.......", "....x.......x..."},
    {"x.....x.x.......", "....x.......x..."},  // rock
    {"x.......x.x.....", "....x.......x..."},
    {"x.x.......x.....", "....x..x.x..x..."},  // breakbeat
    {"x.........x.....", "....x.......x..."},  // two-step
    {"x..x......x.....", "....x.......x..."},
    {"x.........x.....", "........x......."},  // half-time
    {"", ""},                                  // without drums
};
constexpr std::array<const char*, 6> kHats = {"",
                                              "x.x.x.x.x.x.x.x.",
                                              "x.x.x.x.x.x.x.x.",
                                              "..x...x...x...x.",
                                              "x...x...x...x...",
                                              "xxxxxxxxxxxxxxxx"};
constexpr std::array<const char*, 7> kBasses = {"",
                                                "",
                                                "x.x.x.x.x.x.x.x.",
                                                "..x...x...x...x.",
                                                "x...x...x...x...",
                                                "x..x..x...x..x..",
                                                "x.......x......."};
constexpr std::array<const char*, 5> kChordRhythms = {
    "", "", "x...............", "x.......x.......", "..x...x...x...x."};
constexpr std::array<const char*, 5> kLeads = {
    "", "", "x.x.x.x.x.x.x.x.", "x..x..x.x..x..x.", "x...x.x...x.x..."};

/// Numbers that are the same in every run.
class Dice
{
public:
    explicit Dice(int pSeed) : m_noise(std::uint32_t(pSeed) * 2654435761U + 1U)
    {
        for (int i = 0; i < 8; ++i)
            m_noise.Next();
    }
    double Between(double pLow, double pHigh)
    {
        return pLow + (pHigh - pLow) * 0.5 * (m_noise.Next() + 1.0);
    }
    bool isLucky(double pShare) { return Between(0.0, 1.0) < pShare; }
    template <typename List>
    auto Pick(const List& pList)
    {
        const auto count = std::size(pList);
        return pList[std::min(count - 1, std::size_t(Between(0.0, double(count))))];
    }

private:
    demo::Noise m_noise;
};

/// What is drawn once for a piece.
struct Manner
{
    std::array<double, kStepsPerBeat> places;  ///< of a beat's steps, beats
    double looseness;                          ///< of the players, seconds
    double presence;                           ///< share of the hits that are played
    double accent;                             ///< share by which off-beats are softer
};

class Composer
{
public:
    explicit Composer(int pNumber) : m_dice(pNumber + 1)
    {
        m_scene.genre = QStringLiteral("study");
        m_scene.name = QStringLiteral("study-%1").arg(pNumber, 3, 10, QLatin1Char('0'));
        m_scene.duration = kStudyDuration;
        m_scene.bpm = 60.0 * std::exp2(m_dice.Between(0.0, std::log2(190.0 / 60.0)));
        m_scene.deviation = m_dice.isLucky(0.25) ? m_dice.Between(0.005, 0.03) : 0.0;
    }
    Scene Compose();

private:
    void _DrawManner();
    ScenePattern _DrawPattern(bool pHasDrums);
    void _AddPart(ScenePattern& pPattern,
                  const std::string& pSteps,
                  eSceneInstrument pInstrument,
                  double pLevel);

    Dice m_dice;
    Scene m_scene;
    Manner m_manner = {};
};

void Composer::_DrawManner()
{
    const double feel = m_dice.Between(0.0, 1.0);
    const double swing = m_dice.Between(0.58, 0.68);
    if (feel < 0.6)
        m_manner.places = {0.0, 0.25, 0.5, 0.75};
    else if (feel < 0.85)
        m_manner.places = {0.0, 0.5 * swing, swing, 0.5 + 0.5 * swing};
    else
        m_manner.places = {0.0, 1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0};
    m_manner.looseness = m_dice.isLucky(0.5) ? m_dice.Between(0.0, 0.012) : 0.0;
    m_manner.presence = m_dice.isLucky(0.5) ? m_dice.Between(0.85, 1.0) : 1.0;
    m_manner.accent = m_dice.Between(-0.3, 0.6);
}

void Composer::_AddPart(ScenePattern& pPattern,
                        const std::string& pSteps,
                        eSceneInstrument pInstrument,
                        double pLevel)
{
    constexpr std::array<int, 6> kNotes = {0, 0, 3, 5, 7, 10};
    constexpr int kBassRoot = 33;
    constexpr int kLeadRoot = 69;
    const int root = pInstrument == eSceneBass ? kBassRoot : kLeadRoot;
    for (std::size_t step = 0; step < pSteps.size(); ++step) {
        if (pSteps[step] != 'x')
            continue;
        const auto sub = step % kStepsPerBeat;
        const double level = sub == 0 ? pLevel : pLevel * (1.0 - m_manner.accent);
        pPattern.hits.push_back({double(step / kStepsPerBeat) + m_manner.places[sub],
                                 pInstrument,
                                 level,
                                 root + m_dice.Pick(kNotes)});
    }
}

// Each draw has a statement of its own, since arguments are evaluated in any order.
ScenePattern Composer::_DrawPattern(bool pHasDrums)
{
    ScenePattern pattern = {kStudyBar, {}};
    const Drums drums = pHasDrums ? m_dice.Pick(kDrums) : Drums{"", ""};
    _AddPart(pattern, drums.kick, eSceneKick, m_dice.Between(0.6, 1.0));
    _AddPart(pattern, drums.clap, eSceneClap, m_dice.Between(0.5, 1.2));
    const double hatLevel = m_dice.Between(0.2, 0.7);
    const char* const pHats = m_dice.Pick(kHats);
    _AddPart(pattern, pHats, eSceneHat, hatLevel);
    _AddPart(pattern, m_dice.Pick(kBasses), eSceneBass, 1.0);
    const double chordLevel = m_dice.Between(0.4, 1.0);
    const char* const pChords = m_dice.Pick(kChordRhythms);
    _AddPart(pattern, pChords, eSceneChord, chordLevel);
    const bool needsLead = *drums.kick == '\0';
    _AddPart(pattern, needsLead ? kLeads.back() : m_dice.Pick(kLeads), eSceneLead, 1.0);
    return pattern;
}

Scene Composer::Compose()
{
    _DrawManner();
    const ScenePattern full = _DrawPattern(true);
    const bool hasBreak = m_dice.isLucky(0.2);
    const ScenePattern bare = _DrawPattern(false);
    const std::vector<double> grid =
        makeSceneGrid(m_dice.Between(0.1, 0.6), kStudyDuration, m_scene.bpm, m_scene.deviation);
    const std::size_t bar = kStudyBar;
    for (std::size_t first = 0; first + 1 < grid.size(); first += bar) {
        const auto end = std::min(grid.size() - 1, first + bar);
        const bool isBare = hasBreak && (first / bar) % 8 == 5;
        appendSceneBars(
            m_scene,
            isBare ? bare : full,
            {grid.begin() + std::ptrdiff_t(first), grid.begin() + std::ptrdiff_t(end) + 1});
    }
    std::vector<SceneNote> played;
    for (SceneNote note : m_scene.notes) {
        note.time += m_manner.looseness * (m_dice.Between(-1.0, 1.0) + m_dice.Between(-1.0, 1.0));
        note.level *= m_dice.Between(0.85, 1.15);
        if (m_dice.isLucky(m_manner.presence))
            played.push_back(note);
    }
    m_scene.notes = std::move(played);
    std::stable_sort(
        m_scene.notes.begin(),
        m_scene.notes.end(),
        [](const SceneNote& pLeft, const SceneNote& pRight) { return pLeft.time < pRight.time; });
    return m_scene;
}

}  // namespace

std::vector<Scene> makeStudies(int pCount)
{
    std::vector<Scene> studies;
    for (int i = 0; i < pCount; ++i)
        studies.push_back(Composer(i).Compose());
    return studies;
}
