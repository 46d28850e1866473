// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include "FileAnalysisTest.h"
#include <cli/analyze/FileAnalysis.h>

#include <QtTest>

#include <algorithm>
#include <apps/shared/files/TestAudio.h>
#include <cmath>
#include <support/SettingOf.h>
#include <support/TestClass.h>

class tst_FileAnalysis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void run_findsTempoAndBeats_data();
    void run_findsTempoAndBeats();
    void run_isRepeatable();
    void run_doesNotDependOnTheMachinesClock();
    void tenSecondWatch_runsOnTheSamples();
    void lastBeat_isFound_whenTheFileEndsRightBehindIt();
    void nothing_isLoggedBehindTheEnd();
    void run_refusesTooShortAudio_data();
    void run_refusesTooShortAudio();
    void run_reportsTheSourcesError();
    void observer_seesEveryFrameOnce();
    void observer_canEndTheAnalysis();
    void fixedTempo_isReported();
    void settings_areTheInitialOnes();
    void levels_coverTheFile();
    void clock_isTheThreadsOwnAgain_afterwards();
};

void tst_FileAnalysis::run_findsTempoAndBeats_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("bpm");
    QTest::newRow("44100 Hz, 120") << 44100 << 120.0;
    QTest::newRow("48000 Hz, 128") << 48000 << 128.0;
    QTest::newRow("8000 Hz, 110") << 8000 << 110.0;
    QTest::newRow("96000 Hz, 160") << 96000 << 160.0;
}

void tst_FileAnalysis::run_findsTempoAndBeats()
{
    QFETCH(int, rate);
    QFETCH(double, bpm);
    // The search begins in the middle of the profile's range.
    AnalysisOptions options;
    options.bpm = AnalysisOptions::TempoRange{bpm - 25.0, bpm + 25.0};
    const AnalysisResult result = Analyze(testaudio::Kicks(rate, bpm, 20.0), rate, options);
    QCOMPARE(result.sampleRate, rate);
    QCOMPARE(result.sampleCount, quint64(20 * rate));
    // Beats lie on blocks of at most a fortieth of a second, so that over ten seconds of them the
    // mean interval is wrong by a quarter per cent at most.
    const double tempo = result.getTempo();
    QVERIFY2(std::abs(tempo - bpm) <= bpm * 0.005, qPrintable(QString::number(tempo)));
    // Music is only known to play after 1.5 s; from the fourth second on every stroke has its beat,
    // within two blocks.
    for (double truth = std::ceil(4.0 * bpm / 60.0) * 60.0 / bpm; truth < 20.0;
         truth += 60.0 / bpm) {
        const auto hits =
            std::count_if(result.beats.begin(), result.beats.end(), [&](const auto& pBeat) {
                return !pBeat.isVirtual && std::abs(pBeat.time - truth) <= 0.05;
            });
        QVERIFY2(hits == 1, qPrintable(QString::number(truth)));
    }
    QVERIFY(!result.silences.empty());
    QCOMPARE(result.silences[0].start, 0.0);
    QVERIFY(result.silences[0].end > 1.4 && result.silences[0].end <= 1.5);
}

void tst_FileAnalysis::run_isRepeatable()
{
    const std::vector<float> music = testaudio::Kicks(44100, 128, 10.0, 13.0);
    const AnalysisResult first = Analyze(music, 44100);
    QVERIFY(first.beats.size() > 10);
    QVERIFY(isSame(Analyze(music, 44100), first));
}

// The same, though the machine takes its time in one of the runs.
void tst_FileAnalysis::run_doesNotDependOnTheMachinesClock()
{
    const std::vector<float> music = testaudio::Kicks(8000, 120, 6.0);
    const AnalysisResult fast = Analyze(music, 8000);
    MemorySource source(8000, music);
    AnalysisOptions options;
    options.tracker = eProfileTracker;
    FileAnalysis analysis(options, source);
    QVERIFY(analysis.Run([](const float*, std::size_t) {
        QTest::qSleep(1);
        return true;
    }));
    QVERIFY(fast.beats.size() > 5);
    QVERIFY(isSame(analysis.getLog().getResult(), fast));
}

// After 10 s of music come 20 s of silence. The accuracy falls below one half at the second missed
// beat, some 0.8 to 1.6 s into the silence at 120 BPM; ten seconds later the tracker starts anew
// and, without consistency, knows no tempo. The run itself takes no ten seconds.
void tst_FileAnalysis::tenSecondWatch_runsOnTheSamples()
{
    AnalysisOptions options;
    options.settings[SettingOf("consistency")] = 0.0;
    const AnalysisResult result = Analyze(testaudio::Kicks(8000, 120, 10.0, 20.0), 8000, options);
    const auto lost =
        std::find_if(result.tempos.begin(), result.tempos.end(), [](const TempoPoint& pPoint) {
            return pPoint.time > 10.0 && pPoint.bpm == 0.0;
        });
    QVERIFY(lost != result.tempos.end());
    QVERIFY2(lost->time > 20.5 && lost->time < 22.5, qPrintable(QString::number(lost->time)));
    QVERIFY((lost - 1)->bpm > 100.0);
}

// 120 BPM, a stroke at 11.5 s, and the file ends 0.1 s later: its beat window is still open then.
void tst_FileAnalysis::lastBeat_isFound_whenTheFileEndsRightBehindIt()
{
    const AnalysisResult result = Analyze(testaudio::Kicks(44100, 120, 11.6), 44100);
    QVERIFY(!result.beats.empty());
    QVERIFY(!result.beats.back().isVirtual);
    QVERIFY2(std::abs(result.beats.back().time - 11.5) < 0.05,
             qPrintable(QString::number(result.beats.back().time)));
}

void tst_FileAnalysis::nothing_isLoggedBehindTheEnd()
{
    AnalysisOptions options;
    // Every block is a pulse, those of the silence behind the end too.
    options.settings[SettingOf("threshold")] = 0.0;
    options.settings[SettingOf("virtual-when-stopped")] = 1.0;
    for (const double seconds : {5.0, 5.01, 5.37}) {
        const AnalysisResult result = Analyze(testaudio::Kicks(8000, 120, seconds), 8000, options);
        QCOMPARE(result.sampleCount, quint64(seconds * 8000));
        QVERIFY(result.beats.back().index < result.sampleCount);
        QVERIFY(result.pulseTimes.back() < seconds);
        QVERIFY(result.tempos.back().time < seconds);
        QVERIFY(result.silences.back().end <= seconds);
        // Every block of 128 samples from the first stop decision on, the last one included, is a
        // pulse.
        QVERIFY(result.pulseTimes.back() >= seconds - 128.0 / 8000);
    }
}

void tst_FileAnalysis::run_refusesTooShortAudio_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("samples");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("44100 Hz, nothing") << 44100 << 0 << false;
    QTest::newRow("44100 Hz, a block less one") << 44100 << 1023 << false;
    QTest::newRow("44100 Hz, a block") << 44100 << 1024 << true;
    QTest::newRow("8000 Hz, a block less one") << 8000 << 127 << false;
    QTest::newRow("8000 Hz, a block") << 8000 << 128 << true;
    QTest::newRow("8000 Hz, a block and one") << 8000 << 129 << true;
}

void tst_FileAnalysis::run_refusesTooShortAudio()
{
    QFETCH(int, rate);
    QFETCH(int, samples);
    QFETCH(bool, isAccepted);
    MemorySource source(rate, std::vector<float>(std::size_t(samples), 0.25f));
    FileAnalysis analysis({}, source);
    QCOMPARE(analysis.Run([](const float*, std::size_t) { return true; }), isAccepted);
    QCOMPARE(analysis.getError().contains(QStringLiteral("too short: %1 samples").arg(samples)),
             !isAccepted);
    QCOMPARE(analysis.getSampleCount(), quint64(samples));
}

void tst_FileAnalysis::run_reportsTheSourcesError()
{
    MemorySource source(44100, std::vector<float>(100000, 0.0f));
    source.m_error = QStringLiteral("the disk fell out");
    FileAnalysis analysis({}, source);
    QVERIFY(!analysis.Run([](const float*, std::size_t) { return true; }));
    QCOMPARE(analysis.getError(), QStringLiteral("the disk fell out"));
}

void tst_FileAnalysis::observer_seesEveryFrameOnce()
{
    const std::vector<float> music = testaudio::Kicks(8000, 120, 1.01);
    MemorySource source(8000, music);
    FileAnalysis analysis({}, source);
    std::vector<float> seen;
    QVERIFY(analysis.Run([&](const float* pFrames, std::size_t pCount) {
        seen.insert(seen.end(), pFrames, pFrames + pCount);
        return true;
    }));
    QVERIFY(seen == music);
}

void tst_FileAnalysis::observer_canEndTheAnalysis()
{
    MemorySource source(44100, testaudio::Kicks(44100, 120, 5.0));
    FileAnalysis analysis({}, source);
    int calls = 0;
    QVERIFY(!analysis.Run([&](const float*, std::size_t) { return ++calls < 3; }));
    QCOMPARE(calls, 3);
    QCOMPARE(analysis.getError(), QString());
    QCOMPARE(analysis.getSampleCount(), quint64(3 * 1024));
}

void tst_FileAnalysis::fixedTempo_isReported()
{
    AnalysisOptions options;
    options.settings[SettingOf("fixed-bpm")] = 110.0;
    const AnalysisResult result = Analyze(testaudio::Kicks(8000, 120, 6.0), 8000, options);
    QVERIFY(!result.beats.empty());
    for (const LoggedBeat& beat : result.beats)
        QCOMPARE(beat.bpm, 110.0);
}

// Whatever is stored beside the program.
void tst_FileAnalysis::settings_areTheInitialOnes()
{
    MemorySource source(8000, std::vector<float>(1000, 0.0f));
    const FileAnalysis analysis({}, source);
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.get)
            QCOMPARE(setting.get(analysis.getConfiguration()), setting.initial);
    QCOMPARE(analysis.getConfiguration().getStopDetectionDuration(), 1.5);
}

void tst_FileAnalysis::levels_coverTheFile()
{
    // 4 s at 8000 Hz are 250 blocks of 128 samples, which fit into as many columns.
    MemorySource source(8000, testaudio::Kicks(8000, 120, 4.0));
    FileAnalysis analysis({}, source);
    QVERIFY(analysis.Run([](const float*, std::size_t) { return true; }));
    const auto& columns = analysis.getLevels().getColumns();
    QCOMPARE(columns.size(), std::size_t(250));
    QCOMPARE(columns.front().time, 0.0);
    QCOMPARE(columns.front().threshold, 0);  // stopped until the first decision
    QVERIFY(columns.front().level > 10000);
    QCOMPARE(columns.back().time, 249 * 128 / 8000.0);
    QVERIFY(columns.back().threshold > 0);
}

void tst_FileAnalysis::clock_isTheThreadsOwnAgain_afterwards()
{
    QVERIFY(HighResolutionTimerOverride::getCurrent() == nullptr);
    Analyze(testaudio::Kicks(8000, 120, 1.0), 8000);
    QVERIFY(HighResolutionTimerOverride::getCurrent() == nullptr);
}

AA_TEST(tst_FileAnalysis, QCoreApplication)
#include "tst_FileAnalysis.moc"
