// SPDX-License-Identifier: MIT
#include <QJsonArray>
#include <QtTest>

#include <algorithm>
#include <apps/cli/analyze/SongFolder.h>
#include <cmath>
#include <support/TestClass.h>

/// Runs the real program: what it reads and what its options change.
class tst_AnalyzeProgram_inputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.Enter()); }
    void cleanup() { QVERIFY(m_folder.CleanUp()); }
    void raw_isReadFromStandardInput();
    void raw_isReadFromAFile();
    void wav_isReadFromStandardInput();
    void click_keepsTheMusicsShape();
    void plot_isDrawn_data();
    void plot_isDrawn();
    void everyOption_reachesTheAnalysis_data();
    void everyOption_reachesTheAnalysis();
    void tempo_agreesWithTheAnalyzer();
    void runs_areIdentical_data();
    void runs_areIdentical();
    void names_areUtf8_inAnyLocale();
    void tooQuiet_isSaidInWords_data();
    void tooQuiet_isSaidInWords();
    void noMeter_isSaidInWords_data();
    void noMeter_isSaidInWords();
    void quietMusic_hasBeats_withTheAutomaticTracker();
    void oppositeChannels_areHeard_andSaid();

private:
    SongFolder m_folder;
};

void tst_AnalyzeProgram_inputs::raw_isReadFromStandardInput()
{
    const std::vector<float> song = testaudio::Kicks(44100, 120, 8.0);
    const ProgramRun run = Analyze(QStringLiteral("--raw 44100 -"), testaudio::Raw(song));
    QCOMPARE(run.exitCode, 0);
    // Encoders round their own way, which only the engine's blocks do not show.
    const QString byProfile = QStringLiteral("--tracker profile ");
    QCOMPARE(Analyze(byProfile + QStringLiteral("--raw 44100 -"), testaudio::Raw(song)).output,
             Analyze(byProfile + QStringLiteral("song.wav")).output);
    QVERIFY(run.errors.startsWith("-: 0:08 long"));
    const std::vector<float> stereo = SongFolder::Doubled(song);
    QCOMPARE(Analyze(QStringLiteral("--raw 44100:2 -"), testaudio::Raw(stereo)).output, run.output);
    QCOMPARE(Analyze(QStringLiteral("--raw 44100 -o out/ -"), testaudio::Raw(song)).exitCode, 0);
    QCOMPARE(testaudio::ReadBytes(QStringLiteral("out/stdin.beats.txt")), run.output);
}

void tst_AnalyzeProgram_inputs::raw_isReadFromAFile()
{
    QVERIFY(testaudio::WriteBytes(QStringLiteral("song.raw"),
                                  testaudio::Raw(testaudio::Kicks(44100, 120, 8.0))));
    QCOMPARE(Analyze(QStringLiteral("--tracker profile --raw 44100 song.raw")).output,
             Analyze(QStringLiteral("--tracker profile song.wav")).output);
}

void tst_AnalyzeProgram_inputs::wav_isReadFromStandardInput()
{
    const ProgramRun run =
        Analyze(QStringLiteral("-"), testaudio::ReadBytes(QStringLiteral("song.wav")));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, Analyze(QStringLiteral("song.wav")).output);
}

void tst_AnalyzeProgram_inputs::click_keepsTheMusicsShape()
{
    QCOMPARE(Analyze(QStringLiteral("stereo.flac --click click.wav")).exitCode, 0);
    SF_INFO info = {};
    SNDFILE* pFile = sf_open("click.wav", SFM_READ, &info);
    QVERIFY(pFile != nullptr);
    QCOMPARE(info.channels, 2);
    QCOMPARE(info.samplerate, 44100);
    QCOMPARE(info.frames, sf_count_t(8 * 44100));
    std::vector<float> clicked(std::size_t(info.frames) * 2);
    QCOMPARE(sf_readf_float(pFile, clicked.data(), info.frames), info.frames);
    sf_close(pFile);
    // Only from the beats on does it differ from the music.
    const std::vector<float> music = testaudio::Kicks(44100, 120, 8.0);
    const auto differs = [&](double pFrom, double pTo) {
        int count = 0;
        for (auto i = std::size_t(pFrom * 44100); i < std::size_t(pTo * 44100); ++i)
            count += std::abs(clicked[2 * i] - music[i]) > 0.01f ? 1 : 0;
        return count;
    };
    const double first = Lines(Analyze(QStringLiteral("stereo.flac")).output).first().toDouble();
    QCOMPARE(differs(0.0, first - 0.001), 0);
    QVERIFY(differs(first, first + 0.02) > 100);
}

void tst_AnalyzeProgram_inputs::plot_isDrawn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("SVG") << "plot.svg" << QByteArray("<?xml");
    QTest::newRow("PNG") << "plot.png" << QByteArray("\x89PNG");
}

void tst_AnalyzeProgram_inputs::plot_isDrawn()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, start);
    const ProgramRun run = Analyze(QStringLiteral("song.wav --plot ") + name);
    QVERIFY2(run.exitCode == 0, run.errors.constData());
    QVERIFY(testaudio::ReadBytes(name).startsWith(start));
    QVERIFY(testaudio::ReadBytes(name).size() > 3000);
}

void tst_AnalyzeProgram_inputs::everyOption_reachesTheAnalysis_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("key");  // of the settings
    QTest::addColumn<QVariant>("value");
    QTest::newRow("profile") << "--profile slow"
                             << "bpmMaximal" << QVariant(135.0);
    QTest::newRow("bpm") << "--bpm 100:150.5"
                         << "bpmMaximal" << QVariant(150.5);
    QTest::newRow("band") << "--band 40:120"
                          << "bandLow" << QVariant(40.0);
    QTest::newRow("band without an edge") << "--band 40:"
                                          << "bandHigh" << QVariant();
    QTest::newRow("sensibility") << "--sensibility 1.25"
                                 << "sensibility" << QVariant(1.25);
    QTest::newRow("threshold") << "--threshold 9000"
                               << "threshold" << QVariant(9000.0);
    QTest::newRow("automatic threshold") << "--threshold auto"
                                         << "threshold" << QVariant(QStringLiteral("auto"));
    QTest::newRow("fixed tempo") << "--fixed-bpm 125"
                                 << "fixedBpm" << QVariant(125.0);
    QTest::newRow("stop duration") << "--stop-duration 0.5"
                                   << "stopDuration" << QVariant(0.5);
    QTest::newRow("stop threshold") << "--stop-threshold 500"
                                    << "stopThreshold" << QVariant(500.0);
    QTest::newRow("average duration") << "--average-duration 1"
                                      << "averageDuration" << QVariant(1.0);
    QTest::newRow("tempo duration") << "--bpm-duration 5"
                                    << "bpmDuration" << QVariant(5.0);
    QTest::newRow("consistency") << "--no-consistency"
                                 << "consistency" << QVariant(false);
    QTest::newRow("virtual beats") << "--virtual-when-stopped"
                                   << "virtualWhenStopped" << QVariant(true);
}

void tst_AnalyzeProgram_inputs::everyOption_reachesTheAnalysis()
{
    QFETCH(QString, option);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    const ProgramRun run = Analyze(QStringLiteral("song.wav --tracker profile -f json ") + option);
    QVERIFY2(run.exitCode == 0, run.errors.constData());
    const QJsonObject settings = Parse(run.output)[QStringLiteral("settings")].toObject();
    QVERIFY(settings.contains(key));
    QCOMPARE(settings[key].toVariant().toString(), value.toString());
    // And changes what is found, where it must.
    const QJsonArray beats = Parse(run.output)[QStringLiteral("beats")].toArray();
    if (key == QLatin1String("fixedBpm"))
        QCOMPARE(beats.first().toObject()[QStringLiteral("bpm")].toDouble(), 125.0);
    if (key == QLatin1String("virtualWhenStopped"))
        QVERIFY(beats.first().toObject()[QStringLiteral("time")].toDouble() < 1.0);
    if (key == QLatin1String("stopDuration")) {
        const QJsonArray silences = Parse(run.output)[QStringLiteral("silences")].toArray();
        QVERIFY(silences.first().toObject()[QStringLiteral("end")].toDouble() <= 0.5);
    }
}

// A steady track of 30 s, begun in the middle of its range: the overall tempo is the one that the
// analyzer reports from the tenth second on.
void tst_AnalyzeProgram_inputs::tempo_agreesWithTheAnalyzer()
{
    QVERIFY(testaudio::Write(QStringLiteral("steady.wav"),
                             SF_FORMAT_WAV | SF_FORMAT_PCM_16,
                             44100,
                             1,
                             testaudio::Kicks(44100, 125, 30.0)));
    const QJsonObject json =
        Parse(Analyze(QStringLiteral("steady.wav --tracker profile -f json --bpm 100:150")).output);
    const double overall =
        json[QStringLiteral("tempo")].toObject()[QStringLiteral("bpm")].toDouble();
    QVERIFY2(std::abs(overall - 125.0) < 0.4, qPrintable(QString::number(overall)));
    std::vector<double> reported;
    for (const QJsonValue& beat : json[QStringLiteral("beats")].toArray())
        if (beat.toObject()[QStringLiteral("time")].toDouble() > 12.0)
            reported.push_back(beat.toObject()[QStringLiteral("bpm")].toDouble());
    std::sort(reported.begin(), reported.end());
    QVERIFY(std::abs(overall - reported[reported.size() / 2]) <= 0.1);
    const QStringList tempos =
        QString::fromUtf8(
            Analyze(QStringLiteral("steady.wav --tracker profile -f tempo --bpm 100:150")).output)
            .trimmed()
            .split(QLatin1Char('\t'));
    QCOMPARE(tempos[1], QString::number(overall, 'f', 2));
    QCOMPARE(tempos[2], QStringLiteral("0.00"));
}

void tst_AnalyzeProgram_inputs::runs_areIdentical_data()
{
    QTest::addColumn<QString>("tracker");
    for (const char* pTracker : {"automatic", "profile"})
        QTest::newRow(pTracker) << pTracker;
}

// The ten-second watch included: music, 13 s of silence, music again.
void tst_AnalyzeProgram_inputs::runs_areIdentical()
{
    std::vector<float> music = testaudio::Kicks(22050, 128, 6.0, 13.0);
    const std::vector<float> again = testaudio::Kicks(22050, 128, 6.0);
    music.insert(music.end(), again.begin(), again.end());
    QVERIFY(testaudio::Write(
        QStringLiteral("gap.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 22050, 1, music));
    QFETCH(QString, tracker);
    const QString arguments = QStringLiteral("gap.wav -f json --tracker ") + tracker;
    const QByteArray first = Analyze(arguments).output;
    QVERIFY(Parse(first)[QStringLiteral("beats")].toArray().size() > 10);
    const QJsonArray silences = Parse(first)[QStringLiteral("silences")].toArray();
    QVERIFY(!silences.isEmpty());
    if (tracker == QLatin1String("profile"))
        QCOMPARE(silences.size(), 2);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(Analyze(arguments).output, first);
}

void tst_AnalyzeProgram_inputs::names_areUtf8_inAnyLocale()
{
    const QString name = QString::fromUtf8("F\xc3\xbc\xc3\x9f e.wav");
    QVERIFY(QFile::copy(QStringLiteral("song.wav"), name));
    for (const char* pLocale : {"C.UTF-8", "C", "no_SUCH.locale"}) {
        const ProgramRun run = RunProgram(
            {QStringLiteral("analyze"), name, QStringLiteral("-f"), QStringLiteral("json")},
            {},
            QLatin1String(pLocale));
        QVERIFY2(run.exitCode == 0, run.errors.constData());
        QCOMPARE(Parse(run.output)[QStringLiteral("file")].toString(), name);
        QVERIFY(run.errors.startsWith(name.toUtf8()));
    }
}

void tst_AnalyzeProgram_inputs::tooQuiet_isSaidInWords_data()
{
    QTest::addColumn<float>("volume");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("silence") << 0.0f << 4.0 << QByteArray("digital silence");
    QTest::newRow("quiet") << 0.05f << 4.0 << QByteArray("lower --stop-threshold");
    QTest::newRow("shorter than the stop detection")
        << 1.0f << 1.0 << QByteArray("--stop-duration");
}

void tst_AnalyzeProgram_inputs::tooQuiet_isSaidInWords()
{
    QFETCH(float, volume);
    QFETCH(double, seconds);
    QFETCH(QByteArray, words);
    std::vector<float> music = testaudio::Kicks(44100, 120, seconds);
    for (float& sample : music)
        sample *= volume;
    QVERIFY(testaudio::Write(
        QStringLiteral("q.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, music));
    const ProgramRun run = Analyze(QStringLiteral("q.wav --tracker profile"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
    QVERIFY2(run.errors.contains("tempo unknown, 0 beats"), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 2);
    QCOMPARE(Analyze(QStringLiteral("q.wav --tracker profile -f tempo")).output,
             QByteArray("0.00\t0.00\t0.00\n"));
}

void tst_AnalyzeProgram_inputs::noMeter_isSaidInWords_data()
{
    QTest::addColumn<int>("peak");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("silence") << 0 << QByteArray("digital silence");
    QTest::newRow("below -70 dBFS") << 10 << QByteArray("too quiet to count as music");
    QTest::newRow("noise") << 8000 << QByteArray("nothing in it has a beat");
}

// White noise; what the stop threshold says of it does not matter.
void tst_AnalyzeProgram_inputs::noMeter_isSaidInWords()
{
    QFETCH(int, peak);
    QFETCH(QByteArray, words);
    std::vector<float> noise(10 * 44100);
    quint32 state = 12345;
    for (std::size_t i = 0; i < noise.size(); ++i) {
        state = state * 1664525U + 1013904223U;
        noise[i] = float(int(state >> 16) % (2 * peak + 1) - peak) / 32768.0f;
    }
    QVERIFY(testaudio::Write(
        QStringLiteral("n.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, noise));
    const ProgramRun run = Analyze(QStringLiteral("n.wav"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(words), run.errors.constData());
}

// The stop threshold is the engine's.
void tst_AnalyzeProgram_inputs::quietMusic_hasBeats_withTheAutomaticTracker()
{
    std::vector<float> music = testaudio::Kicks(44100, 120, 8.0);
    const auto write = [&] {
        return testaudio::Write(
            QStringLiteral("q.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, music);
    };
    QVERIFY(write());
    const ProgramRun loud = Analyze(QStringLiteral("q.wav"));
    QVERIFY(loud.output.count('\n') >= 6);
    for (float& sample : music)
        sample *= 0.05f;
    QVERIFY(write());
    const ProgramRun quiet = Analyze(QStringLiteral("q.wav --stop-threshold 32767"));
    QVERIFY(quiet.output.count('\n') >= 6);
    QCOMPARE(quiet.errors.count('\n'), 1);
}

void tst_AnalyzeProgram_inputs::oppositeChannels_areHeard_andSaid()
{
    std::vector<float> music = testaudio::Kicks(44100, 120, 8.0);
    std::vector<float> stereo;
    for (const float sample : music) {
        stereo.push_back(sample);
        stereo.push_back(-sample);
    }
    QVERIFY(testaudio::Write(
        QStringLiteral("o.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, stereo));
    const ProgramRun run = Analyze(QStringLiteral("o.wav"));
    QVERIFY(run.output.count('\n') >= 6);
    QVERIFY2(run.errors.startsWith("o.wav: its channels cancel each other out from "),
             run.errors.constData());
    // The engine's average is what it is.
    QVERIFY(Analyze(QStringLiteral("o.wav --tracker profile")).errors.contains("digital silence"));
}

AA_TEST(tst_AnalyzeProgram_inputs, QCoreApplication)
#include "tst_AnalyzeProgram_inputs.moc"
