// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include "ParsedLine.h"
#include <cli/CommandLine.h>
#include <cli/analyze/WorkerPool.h>
#include <cli/settings/AnalysisOptionTable.h>

#include <QtTest>

#include <support/SettingOf.h>
#include <support/TestClass.h>
#include <vector>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help_showsEveryOption();
    void help_ofTheProgramNamesItsCommands();
    void version_isTheProjects();
    void analyze_hasDefaults();
    void analyze_readsEveryOption();
    void analyze_takesFilesThatLookLikeOptions();
    void analyze_readsRaw_data();
    void analyze_readsRaw();
    void nonsense_isRefused_data();
    void nonsense_isRefused();
    void lookAhead_reachesTheWorkers();
    void worker_getsTheSameAnalysis();
};

void tst_CommandLine::help_showsEveryOption()
{
    const CommandLine command = Parse("analyze --help");
    QCOMPARE(command.action, CommandLine::eShowText);
    for (const char* pPart : {"--raw",
                              "--jobs",
                              "--format",
                              "--output",
                              "--real-only",
                              "--click",
                              "--plot",
                              "--quiet",
                              "--profile",
                              "--bpm",
                              "--band",
                              "--sensibility",
                              "Examples:",
                              "Exit status:",
                              "median"})
        QVERIFY2(command.text.contains(QLatin1String(pPart)), pPart);
    QVERIFY(!command.text.contains(QLatin1String("--worker")));
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable())
        QVERIFY2(command.text.contains(info.name + QLatin1Char(' ')), qPrintable(info.name));
    for (const QString& line : command.text.split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 100, qPrintable(line));
}

void tst_CommandLine::help_ofTheProgramNamesItsCommands()
{
    const CommandLine command = Parse("--help");
    QCOMPARE(command.action, CommandLine::eShowText);
    for (const char* pName : {"analyze", "listen", "devices", "profiles", "config", "evaluate"})
        QVERIFY2(command.text.contains(QLatin1String(pName)), pName);
    QVERIFY(command.text.contains(QLatin1String("Example")));
}

void tst_CommandLine::version_isTheProjects()
{
    const CommandLine command = Parse("--version");
    QCOMPARE(command.action, CommandLine::eShowText);
    QCOMPARE(command.text, QStringLiteral("audio-analyzer " AUDIOANALYZER_VERSION "\n"));
}

void tst_CommandLine::analyze_hasDefaults()
{
    const CommandLine command = Parse("analyze song.flac");
    QCOMPARE(command.action, CommandLine::eAnalyze);
    const AnalyzeOptions& options = command.analyze;
    QCOMPARE(options.inputs, QStringList{QStringLiteral("song.flac")});
    QCOMPARE(options.format, eBeatsFormat);
    QCOMPARE(options.output, QString());
    QCOMPARE(options.click, QString());
    QCOMPARE(options.plot, QString());
    QCOMPARE(options.rawRate, 0);
    QCOMPARE(options.jobs, 1);
    QVERIFY(!options.isRealOnly && !options.isQuiet && !options.isWorker);
    QVERIFY(options.analysis.settings.empty());
    QVERIFY(options.analysisArguments.isEmpty());
}

void tst_CommandLine::analyze_readsEveryOption()
{
    const CommandLine command = Parse(
        "analyze -f json -o out -q -j 3 --real-only --click c.wav --plot p.svg --profile slow "
        "--bpm 80:120 --band :99 --sensibility 1.5 --threshold 77 --fixed-bpm 101.5 "
        "--stop-duration 2 --stop-threshold 88 --average-duration 4 --bpm-duration 12 "
        "--no-consistency --virtual-when-stopped a.wav b.wav");
    QVERIFY2(command.action == CommandLine::eAnalyze, qPrintable(command.text));
    const AnalyzeOptions& options = command.analyze;
    QCOMPARE(options.inputs, (QStringList{QStringLiteral("a.wav"), QStringLiteral("b.wav")}));
    QCOMPARE(options.format, eJsonFormat);
    QCOMPARE(options.output, QStringLiteral("out"));
    QCOMPARE(options.click, QStringLiteral("c.wav"));
    QCOMPARE(options.plot, QStringLiteral("p.svg"));
    QCOMPARE(options.jobs, 3);
    QVERIFY(options.isRealOnly && options.isQuiet);
    QCOMPARE(options.analysis.profile, QStringLiteral("slow"));
    QCOMPARE(options.analysis.bpm->maximal, 120.0);
    QCOMPARE(options.analysis.band->high, 99);
    QCOMPARE(*options.analysis.sensibility, 1.5);
    const std::map<const SettingsTable::Setting*, double> settings = {
        {SettingOf("threshold"), 77.0},
        {SettingOf("fixed-bpm"), 101.5},
        {SettingOf("stop-duration"), 2.0},
        {SettingOf("stop-threshold"), 88.0},
        {SettingOf("average-duration"), 4.0},
        {SettingOf("bpm-duration"), 12.0},
        {SettingOf("consistency"), 0.0},
        {SettingOf("virtual-when-stopped"), 1.0}};
    QVERIFY(options.analysis.settings == settings);
}

void tst_CommandLine::analyze_takesFilesThatLookLikeOptions()
{
    const CommandLine command = Parse("analyze -- --help -x.wav -");
    QCOMPARE(command.action, CommandLine::eAnalyze);
    QCOMPARE(
        command.analyze.inputs,
        (QStringList{QStringLiteral("--help"), QStringLiteral("-x.wav"), QStringLiteral("-")}));
    QCOMPARE(Parse("analyze --raw 8000 -").analyze.inputs, QStringList{QStringLiteral("-")});
    QCOMPARE(Parse({QStringLiteral("analyze"), QString::fromUtf8("F\xc3\xbc\xc3\x9f e.wav")})
                 .analyze.inputs,
             QStringList{QString::fromUtf8("F\xc3\xbc\xc3\x9f e.wav")});
}

void tst_CommandLine::analyze_readsRaw_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("rate");  // 0 = refused
    QTest::addColumn<int>("channels");
    QTest::newRow("rate") << "44100" << 44100 << 1;
    QTest::newRow("rate and channels") << "48000:2" << 48000 << 2;
    QTest::newRow("lowest") << "8000:1" << 8000 << 1;
    QTest::newRow("highest") << "192000:64" << 192000 << 64;
    QTest::newRow("too low") << "7999" << 0 << 0;
    QTest::newRow("too high") << "192001" << 0 << 0;
    QTest::newRow("no channels") << "44100:0" << 0 << 0;
    QTest::newRow("too many channels") << "44100:65" << 0 << 0;
    QTest::newRow("three parts") << "44100:2:2" << 0 << 0;
    QTest::newRow("words") << "cd" << 0 << 0;
    QTest::newRow("empty channels") << "44100:" << 0 << 0;
}

void tst_CommandLine::analyze_readsRaw()
{
    QFETCH(QString, value);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const CommandLine command =
        Parse({QStringLiteral("analyze"), QStringLiteral("--raw"), value, QStringLiteral("-")});
    QCOMPARE(command.action, rate > 0 ? CommandLine::eAnalyze : CommandLine::eRefuse);
    QCOMPARE(command.analyze.rawRate, rate);
    if (rate > 0)
        QCOMPARE(command.analyze.rawChannels, channels);
    else
        QVERIFY(command.text.contains(QLatin1String("8000 <= RATE <= 192000")));
}

void tst_CommandLine::nonsense_isRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("words");
    QTest::newRow("nothing") << ""
                             << "audio-analyzer --help";
    QTest::newRow("a file without a command") << "song.flac"
                                              << "audio-analyzer analyze song.flac";
    QTest::newRow("no file") << "analyze"
                             << "name the audio files";
    QTest::newRow("unknown option") << "analyze --bogus a.wav"
                                    << "--bogus";
    QTest::newRow("unknown option of the program") << "--bogus"
                                                   << "--bogus";
    QTest::newRow("unknown format") << "analyze -f xml a.wav"
                                    << "beats, labels, csv, svl, tempo, json, ndjson";
    QTest::newRow("no value") << "analyze a.wav --bpm"
                              << "--bpm";
    QTest::newRow("option twice") << "analyze --bpm 90:100 --bpm 90:110 a.wav"
                                  << "--bpm";
    QTest::newRow("jobs 0") << "analyze -j 0 a.wav"
                            << "1 to 256";
    QTest::newRow("jobs 257") << "analyze -j 257 a.wav"
                              << "1 to 256";
    QTest::newRow("bad range") << "analyze --bpm 200:100 a.wav"
                               << "--bpm 200:100: give MIN:MAX";
    QTest::newRow("unknown profile") << "analyze --profile Polka a.wav"
                                     << "Electro, Hardcore, Slow";
    QTest::newRow("unknown tracker") << "analyze --tracker magic a.wav"
                                     << "--tracker magic: give automatic or profile";
    QTest::newRow("automatic with a profile") << "analyze --tracker automatic --profile Slow a.wav"
                                              << "--profile means nothing to --tracker automatic";
    QTest::newRow("looking ahead with a profile") << "analyze --look-ahead --profile Slow a.wav"
                                                  << "--look-ahead belongs to --tracker automatic";
    QTest::newRow("automatic outside its tempos") << "analyze --bpm 200:220 a.wav"
                                                  << "60 to 190 BPM, and --bpm 200:220";
    QTest::newRow("fixed tempo outside") << "analyze --fixed-bpm 60 a.wav"
                                         << "90 to 175";
}

void tst_CommandLine::nonsense_isRefused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, words);
    const CommandLine command = Parse(qPrintable(arguments));
    QCOMPARE(command.action, CommandLine::eRefuse);
    QVERIFY2(command.text.contains(words), qPrintable(command.text));
    QVERIFY(!command.text.contains(QLatin1Char('\n')));
}

void tst_CommandLine::lookAhead_reachesTheWorkers()
{
    const CommandLine command = Parse("analyze --look-ahead -j 2 a.wav b.wav");
    QVERIFY2(command.action == CommandLine::eAnalyze, qPrintable(command.text));
    QVERIFY(command.analyze.isLookingAhead);
    AnalyzeTask task;
    task.input = QStringLiteral("b.wav");
    QVERIFY(Parse(WorkerPool::makeArguments(command.analyze, task)).analyze.isLookingAhead);
    QVERIFY(!Parse("analyze a.wav").analyze.isLookingAhead);
}

// What a worker is started with must read back as what the first process was asked for.
void tst_CommandLine::worker_getsTheSameAnalysis()
{
    const CommandLine command = Parse(
        "analyze --real-only -f ndjson --raw 48000:2 --bpm 80:120.5 --band :99 --sensibility 1.5 "
        "--tracker profile --threshold auto --no-consistency --virtual-when-stopped "
        "--stop-duration 0.7 -j 2 -- "
        "a.raw -b.raw");
    QVERIFY2(command.action == CommandLine::eAnalyze, qPrintable(command.text));
    AnalyzeTask task;
    task.input = QStringLiteral("-b.raw");
    CommandLine worker = Parse(WorkerPool::makeArguments(command.analyze, task));
    QVERIFY2(worker.action == CommandLine::eAnalyze, qPrintable(worker.text));
    QVERIFY(worker.analyze.isWorker);
    QVERIFY(worker.analyze.isRealOnly);
    QCOMPARE(worker.analyze.inputs, QStringList{QStringLiteral("-b.raw")});
    QCOMPARE(worker.analyze.format, eNdjsonFormat);
    QCOMPARE(worker.analyze.jobs, 1);
    QCOMPARE(worker.analyze.rawRate, 48000);
    QCOMPARE(worker.analyze.rawChannels, 2);
    QCOMPARE(worker.analyze.analysisArguments, command.analyze.analysisArguments);
    QCOMPARE(worker.analyze.analysis.bpm->maximal, 120.5);
    QVERIFY(worker.analyze.analysis.tracker == eProfileTracker);
    QVERIFY(worker.analyze.analysis.settings == command.analyze.analysis.settings);
    QCOMPARE(worker.analyze.analysis.settings[SettingOf("stop-duration")], 0.7);
    QCOMPARE(worker.analyze.analysis.settings[SettingOf("threshold")], -1.0);
}

AA_TEST(tst_CommandLine, QCoreApplication)
#include "tst_CommandLine.moc"
