// SPDX-License-Identifier: MIT
#include <cli/evaluate/BeatMatching.h>
#include <demo/Scene.h>
#include <demo/SceneNoise.h>
#include <demo/ScenePlayer.h>
#include <demo/SceneScore.h>

#include <QMap>
#include <QSet>
#include <QtTest>

#include <support/TestClass.h>

#include <algorithm>
#include <cmath>

/// The scenes are what their names say, and their beats are where they sound.
class tst_Scenes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void grid_isEven_orWanders();
    void bars_repeatThePattern();
    void scenes_areEightKindsAtEightTempos();
    void scenes_haveNamesOfTheirOwn();
    void scenes_keepTheirTempo();
    void gaps_areSilent_andMoveTheGrid();
    void steps_changeTheTempo();
    void ends_areFollowedBySilence();
    void player_soundsOnTheBeats();
    void player_givesTheSame_howeverItIsRead();
    void player_isNeitherSilentNorClipped();
    void noises_areAsLoudAsTheySay_data();
    void noises_areAsLoudAsTheySay();
    void noises_areTheSameInEveryRun();
    void applause_swellsAndFallsSilent();

private:
    std::vector<Scene> m_scenes;
};

namespace {

constexpr double kDuration = 30.0;

std::vector<float> Play(const Scene& pScene, std::size_t pPortion = 4096)
{
    ScenePlayer player(pScene);
    std::vector<float> samples;
    std::vector<float> portion(pPortion);
    while (const std::size_t count = player.Read(portion.data(), pPortion))
        samples.insert(samples.end(), portion.begin(), portion.begin() + std::ptrdiff_t(count));
    return samples;
}

/// Root of the mean square from pStart to pEnd seconds.
double Level(const std::vector<float>& pSamples, int pRate, double pStart, double pEnd)
{
    double sum = 0.0;
    const auto first = std::size_t(pStart * pRate);
    const auto last = std::min(pSamples.size(), std::size_t(pEnd * pRate));
    for (std::size_t i = first; i < last; ++i)
        sum += double(pSamples[i]) * double(pSamples[i]);
    return std::sqrt(sum / double(last - first));
}

std::vector<float> Make(eSceneNoise pNoise, double pSeconds)
{
    std::vector<float> samples(std::size_t(pSeconds * SceneNoise::kRate));
    SceneNoise(pNoise).Read(samples.data(), samples.size());
    return samples;
}

const Scene& Find(const std::vector<Scene>& pScenes, const char* pName)
{
    for (const Scene& scene : pScenes)
        if (scene.name == QLatin1String(pName))
            return scene;
    qFatal("no scene %s", pName);
}

}  // namespace

void tst_Scenes::grid_isEven_orWanders()
{
    QCOMPARE(makeSceneGrid(1.0, 3.0, 60.0), (std::vector<double>{1.0, 2.0, 3.0}));
    QCOMPARE(makeSceneGrid(1.0, 3.1, 60.0), (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
    const std::vector<double> grid = makeSceneGrid(0.0, 60.0, 120.0, 0.03);
    double fastest = 0.0;
    double slowest = 1000.0;
    for (std::size_t i = 1; i < grid.size(); ++i) {
        const double tempo = 60.0 / (grid[i] - grid[i - 1]);
        fastest = std::max(fastest, tempo);
        slowest = std::min(slowest, tempo);
    }
    QVERIFY(fastest > 123.3 && fastest < 123.61);
    QVERIFY(slowest < 116.7 && slowest > 116.39);
}

void tst_Scenes::bars_repeatThePattern()
{
    Scene scene;
    const ScenePattern pattern = {2, {{0.0, eSceneKick, 1.0}, {1.5, eSceneHat, 0.5}}};
    appendSceneBars(scene, pattern, {1.0, 2.0, 3.0, 4.0});
    QCOMPARE(scene.beats, (std::vector<double>{1.0, 2.0, 3.0}));
    QCOMPARE(scene.notes.size(), std::size_t(3));
    QCOMPARE(scene.notes[0].time, 1.0);
    QCOMPARE(scene.notes[1].time, 2.5);
    QCOMPARE(scene.notes[1].instrument, eSceneHat);
    QCOMPARE(scene.notes[2].time, 3.0);
}

void tst_Scenes::scenes_areEightKindsAtEightTempos()
{
    m_scenes = makeScenes();
    QMap<QString, int> kinds;
    for (const Scene& scene : m_scenes)
        ++kinds[scene.genre];
    for (const char* pKind : {"four on the floor",
                              "eighth hats",
                              "backbeat",
                              "eighth bass",
                              "swung hats",
                              "drift of 3 %",
                              "gap of 2.5 s",
                              "step of 30 %"})
        QCOMPARE(kinds.take(QLatin1String(pKind)), 8);
    QCOMPARE(kinds.take(QStringLiteral("sample rate")), 11);
    for (const char* pKind : {"three four", "five four", "build-up", "end"})
        QCOMPARE(kinds.take(QLatin1String(pKind)), 4);
    QVERIFY(kinds.isEmpty());
}

void tst_Scenes::scenes_haveNamesOfTheirOwn()
{
    QSet<QString> names;
    for (const Scene& scene : m_scenes) {
        QVERIFY2(!scene.name.contains(QLatin1Char(' ')), qPrintable(scene.name));
        names.insert(scene.name);
    }
    QCOMPARE(names.size(), int(m_scenes.size()));
}

void tst_Scenes::scenes_keepTheirTempo()
{
    for (const Scene& scene : m_scenes) {
        QVERIFY(std::is_sorted(scene.beats.begin(), scene.beats.end()));
        QVERIFY(scene.beats.back() < kDuration);
        const double tempo = 60.0 / getMedianInterval(scene.beats);
        const double allowed = scene.deviation > 0.0 ? scene.deviation : 1e-9;
        QVERIFY2(std::abs(tempo / scene.bpm - 1.0) <= allowed, qPrintable(scene.name));
    }
}

void tst_Scenes::gaps_areSilent_andMoveTheGrid()
{
    const Scene& scene = Find(m_scenes, "gap-128");
    QCOMPARE(scene.gaps.size(), std::size_t(1));
    QCOMPARE(scene.changes.size(), std::size_t(1));
    const double restart = scene.changes.front();
    const auto next = std::lower_bound(scene.beats.begin(), scene.beats.end(), restart - 1e-9);
    QCOMPARE(*next, restart);
    QVERIFY(std::abs(*next - *(next - 1) - (2.5 + 60.0 / 128.0)) < 1e-9);
    for (const double beat : scene.beats)
        QVERIFY(beat < scene.gaps[0].start || beat > scene.gaps[0].end);
    const std::vector<float> samples = Play(scene);
    QVERIFY(Level(samples, scene.sampleRate, restart - 1.0, restart - 0.01) < 1e-4);
    QVERIFY(Level(samples, scene.sampleRate, restart, restart + 0.1) > 0.1);
}

void tst_Scenes::steps_changeTheTempo()
{
    for (const auto& [pName, before] : {std::pair("step-60", 60.0), std::pair("step-180", 180.0)}) {
        const Scene& scene = Find(m_scenes, pName);
        const auto change =
            std::lower_bound(scene.beats.begin(), scene.beats.end(), scene.changes.at(0) - 1e-9);
        QVERIFY(std::abs(60.0 / (*change - *(change - 1)) - before) < 1e-6);
        QVERIFY(std::abs(60.0 / (*(change + 1) - *change) - scene.bpm) < 1e-6);
        const double ratio = scene.bpm / before;
        QVERIFY(std::abs(std::max(ratio, 1.0 / ratio) - 1.3) < 1e-9);
    }
}

void tst_Scenes::ends_areFollowedBySilence()
{
    const Scene& scene = Find(m_scenes, "end-128");
    const std::vector<float> samples = Play(scene);
    QCOMPARE(samples.size(), std::size_t(60 * scene.sampleRate));
    QVERIFY(Level(samples, scene.sampleRate, 28.0, 30.0) > 0.05);
    QVERIFY(Level(samples, scene.sampleRate, 32.0, 60.0) < 1e-4);
}

// Drums alone on every beat: it is quiet right before them, and loud right after.
void tst_Scenes::player_soundsOnTheBeats()
{
    for (const char* pName : {"four-on-the-floor-60", "four-on-the-floor-180"}) {
        const Scene& scene = Find(m_scenes, pName);
        const std::vector<float> samples = Play(scene);
        for (std::size_t i = 1; i < scene.beats.size(); ++i) {
            const double beat = scene.beats[i];
            const double before = Level(samples, scene.sampleRate, beat - 0.005, beat);
            const double after = Level(samples, scene.sampleRate, beat, beat + 0.005);
            QVERIFY2(after > 4.0 * before, qPrintable(QString::number(beat)));
        }
    }
}

void tst_Scenes::player_givesTheSame_howeverItIsRead()
{
    const Scene& scene = Find(m_scenes, "rate-8000");
    QCOMPARE(Play(scene, 997), Play(scene, 4096));
    QCOMPARE(Play(scene).size(), std::size_t(30 * 8000));
}

void tst_Scenes::player_isNeitherSilentNorClipped()
{
    for (const char* pName : {"eighth-bass-128", "build-up-125", "five-four-120", "rate-8000"}) {
        const Scene& scene = Find(m_scenes, pName);
        const std::vector<float> samples = Play(scene);
        const double level = Level(samples, scene.sampleRate, 0.0, kDuration);
        QVERIFY2(level > 0.03 && level < 0.5, qPrintable(QString::number(level)));
        const auto [least, most] = std::minmax_element(samples.begin(), samples.end());
        QVERIFY(*least >= -0.891f && *most <= 0.891f);
    }
}

void tst_Scenes::noises_areAsLoudAsTheySay_data()
{
    QTest::addColumn<int>("noise");
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("most");
    QTest::newRow("silence") << int(eSceneSilence) << -1000.0 << -1000.0;
    QTest::newRow("hiss") << int(eSceneHiss) << -75.1 << -74.9;
    QTest::newRow("white") << int(eSceneWhite) << -20.1 << -19.9;
    QTest::newRow("pink") << int(eScenePink) << -21.0 << -15.0;
    QTest::newRow("hum") << int(eSceneHum) << -23.0 << -20.0;
    QTest::newRow("applause") << int(eSceneApplause) << -30.0 << -12.0;
}

void tst_Scenes::noises_areAsLoudAsTheySay()
{
    QFETCH(int, noise);
    QFETCH(double, least);
    QFETCH(double, most);
    // Applause swells through 40 s, the others stay as they are.
    const double seconds = noise == eSceneApplause ? 40.0 : 5.0;
    const double level = Level(Make(eSceneNoise(noise), seconds), SceneNoise::kRate, 0.0, seconds);
    const double decibels = level > 0.0 ? 20.0 * std::log10(level) : -1000.0;
    QVERIFY2(decibels >= least && decibels <= most, qPrintable(QString::number(decibels)));
}

void tst_Scenes::noises_areTheSameInEveryRun()
{
    for (const eSceneNoise noise : getSceneNoises())
        QCOMPARE(Make(noise, 1.0), Make(noise, 1.0));
}

// It is loudest in the middle of a swell of 40 s, and nobody claps as one begins.
void tst_Scenes::applause_swellsAndFallsSilent()
{
    const std::vector<float> samples = Make(eSceneApplause, 40.0);
    QVERIFY(Level(samples, SceneNoise::kRate, 0.0, 5.0) < 1e-9);
    const double loudest = Level(samples, SceneNoise::kRate, 18.0, 22.0);
    QVERIFY2(loudest > 0.05 && loudest < 0.5, qPrintable(QString::number(loudest)));
}

AA_TEST(tst_Scenes, QCoreApplication)
#include "tst_Scenes.moc"
