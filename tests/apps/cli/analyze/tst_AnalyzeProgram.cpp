// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <QJsonArray>
#include <QXmlStreamReader>
#include <QtTest>

#include <apps/cli/analyze/SongFolder.h>
#include <support/TestClass.h>

/// Runs the real program: what it prints and where it writes.
class tst_AnalyzeProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.Enter()); }
    void cleanup() { QVERIFY(m_folder.CleanUp()); }
    void beats_areTimesOneALine();
    void summary_isOneLineOnStandardError();
    void summary_countsTheBeats();
    void quiet_saysNothing();
    void formats_goToStandardOutputOrFile_data();
    void formats_goToStandardOutputOrFile();
    void formats_agreeOnTheBeats_data();
    void formats_agreeOnTheBeats();
    void realOnly_leavesOutVirtualBeats();
    void ndjson_tellsEveryEvent();
    void ndjson_tellsTheBar_withTheAutomaticTracker();
    void ndjson_isWrittenAsItHappens();
    void output_replacesAnOldFile();
    void output_mayBeADevice();
    void folder_getsDerivedNames();
    void several_followEachOtherWithHeadings();
    void several_nameTheFileInEveryEvent();
    void help_andVersion_endWell();

private:
    SongFolder m_folder;
};

void tst_AnalyzeProgram::beats_areTimesOneALine()
{
    const ProgramRun run = Analyze(QStringLiteral("song.wav"));
    QCOMPARE(run.exitCode, 0);
    double last = -1.0;
    const QStringList lines = Lines(run.output);
    QVERIFY(lines.size() >= 10);
    for (const QString& line : lines) {
        QVERIFY2(QRegularExpression(QStringLiteral("^[0-9]+\\.[0-9]{6}$")).match(line).hasMatch(),
                 qPrintable(line));
        QVERIFY(line.toDouble() > last);
        last = line.toDouble();
    }
    QVERIFY(last < 8.0);
    QCOMPARE(FilesHere(), m_folder.getFiles());
}

void tst_AnalyzeProgram::summary_isOneLineOnStandardError()
{
    const ProgramRun run = Analyze(QStringLiteral("song.wav --tracker profile"));
    const QStringList lines = Lines(run.errors);
    QCOMPARE(lines.size(), 1);
    const QRegularExpression summary(QStringLiteral(
        "^song\\.wav: 0:08 long, ([0-9]+\\.[0-9]) BPM, ([0-9]+) beats \\(([0-9]+) real, ([0-9]+) "
        "virtual\\), [0-9]+x real time$"));
    const QRegularExpressionMatch match = summary.match(lines[0]);
    QVERIFY2(match.hasMatch(), run.errors.constData());
    QCOMPARE(match.captured(2).toInt(), Lines(run.output).size());
    QCOMPARE(match.captured(3).toInt() + match.captured(4).toInt(), Lines(run.output).size());
}

// The automatic tracker tells no virtual beats.
void tst_AnalyzeProgram::summary_countsTheBeats()
{
    const ProgramRun run = Analyze(QStringLiteral("song.wav"));
    const QRegularExpression summary(QStringLiteral(
        "^song\\.wav: 0:08 long, ([0-9]+\\.[0-9]) BPM, ([0-9]+) beats, [0-9]+x real time\n$"));
    const QRegularExpressionMatch match = summary.match(QString::fromUtf8(run.errors));
    QVERIFY2(match.hasMatch(), run.errors.constData());
    QCOMPARE(match.captured(2).toInt(), Lines(run.output).size());
}

void tst_AnalyzeProgram::quiet_saysNothing()
{
    for (const char* pOption : {"-q", "--quiet"}) {
        const ProgramRun run = Analyze(QStringLiteral("song.wav ") + QLatin1String(pOption));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.errors, QByteArray());
        QVERIFY(!run.output.isEmpty());
    }
}

void tst_AnalyzeProgram::formats_goToStandardOutputOrFile_data()
{
    QTest::addColumn<QString>("format");
    for (const char* pFormat : {"beats", "labels", "csv", "svl", "tempo", "json", "ndjson"})
        QTest::newRow(pFormat) << pFormat;
}

void tst_AnalyzeProgram::formats_goToStandardOutputOrFile()
{
    QFETCH(QString, format);
    const ProgramRun stream = Analyze(QStringLiteral("song.wav --format ") + format);
    QCOMPARE(stream.exitCode, 0);
    QVERIFY(stream.output.endsWith('\n'));
    const ProgramRun file = Analyze(QStringLiteral("song.wav -o out.txt -f ") + format);
    QCOMPARE(file.exitCode, 0);
    QCOMPARE(file.output, QByteArray());
    QCOMPARE(testaudio::ReadBytes(QStringLiteral("out.txt")), stream.output);
    QStringList expected = m_folder.getFiles();
    expected.append(QStringLiteral("out.txt"));
    expected.sort();
    QCOMPARE(FilesHere(), expected);
}

void tst_AnalyzeProgram::formats_agreeOnTheBeats_data()
{
    QTest::addColumn<QString>("tracker");
    for (const char* pTracker : {"automatic", "profile"})
        QTest::newRow(pTracker) << pTracker;
}

void tst_AnalyzeProgram::formats_agreeOnTheBeats()
{
    QFETCH(QString, tracker);
    const QString song = QStringLiteral("song.wav --tracker ") + tracker + QStringLiteral(" -f ");
    const bool isAutomatic = tracker == QLatin1String("automatic");
    const QStringList beats = Lines(Analyze(song + QStringLiteral("beats")).output);
    const QStringList labels = Lines(Analyze(song + QStringLiteral("labels")).output);
    const QStringList csv = Lines(Analyze(song + QStringLiteral("csv")).output);
    const QJsonObject json = Parse(Analyze(song + QStringLiteral("json")).output);
    const QJsonArray jsonBeats = json[QStringLiteral("beats")].toArray();
    QStringList frames;
    QXmlStreamReader svl(Analyze(song + QStringLiteral("svl")).output);
    while (!svl.atEnd())
        if (svl.readNext() == QXmlStreamReader::StartElement &&
            svl.name() == QLatin1String("point"))
            frames << svl.attributes().value(QStringLiteral("frame")).toString();
    QVERIFY2(!svl.hasError(), qPrintable(svl.errorString()));
    QVERIFY(beats.size() > 5);
    QCOMPARE(labels.size(), beats.size());
    QCOMPARE(csv.size(), beats.size());
    QCOMPARE(jsonBeats.size(), beats.size());
    QCOMPARE(frames.size(), beats.size());
    for (int i = 0; i < beats.size(); ++i) {
        const QJsonObject beat = jsonBeats[i].toObject();
        QCOMPARE(labels[i].section(QLatin1Char('\t'), 0, 0), beats[i]);
        QCOMPARE(labels[i].section(QLatin1Char('\t'), 1, 1), beats[i]);
        QCOMPARE(csv[i].section(QLatin1Char(','), 0, 0), beats[i]);
        QCOMPARE(QString::number(beat[QStringLiteral("time")].toDouble(), 'f', 6), beats[i]);
        QCOMPARE(frames[i].toDouble(), beat[QStringLiteral("index")].toDouble());
        QCOMPARE(QString::number(frames[i].toDouble() / 44100, 'f', 6), beats[i]);
        QCOMPARE(labels[i].endsWith(QLatin1String("virtual")),
                 beat[QStringLiteral("virtual")].toBool());
        const QString place = QString::number(beat[QStringLiteral("beatInBar")].toInt());
        if (isAutomatic)
            QCOMPARE(csv[i], beats[i] + QLatin1Char(',') + place);
    }
    QCOMPARE(json[QStringLiteral("file")].toString(), QStringLiteral("song.wav"));
    QCOMPARE(json[QStringLiteral("profile")].toString(),
             isAutomatic ? QString() : QStringLiteral("Electro"));
    QCOMPARE(json[QStringLiteral("tracker")].toString(), isAutomatic ? tracker : QString());
    QCOMPARE(json[QStringLiteral("duration")].toDouble(), 8.0);
}

void tst_AnalyzeProgram::realOnly_leavesOutVirtualBeats()
{
    const QString song = QStringLiteral("song.wav --tracker profile -f ");
    const QStringList all = Lines(Analyze(song + QStringLiteral("labels --real-only")).output);
    const QStringList events = Lines(Analyze(song + QStringLiteral("ndjson --real-only")).output);
    const QStringList mixed = Lines(Analyze(song + QStringLiteral("labels")).output);
    QVERIFY(!mixed.filter(QStringLiteral("virtual")).isEmpty());
    QVERIFY(all.filter(QStringLiteral("virtual")).isEmpty());
    QCOMPARE(all.size(), mixed.size() - mixed.filter(QStringLiteral("virtual")).size());
    QCOMPARE(events.filter(QStringLiteral("\"type\":\"beat\"")).size(), all.size());
    QVERIFY(events.last().contains(QStringLiteral("\"realBeats\":%1").arg(all.size())));
    QVERIFY(events.last().contains(QStringLiteral("\"virtualBeats\":0")));
}

void tst_AnalyzeProgram::ndjson_tellsEveryEvent()
{
    const QString song = QStringLiteral("song.wav --tracker profile -f ");
    const QStringList lines = Lines(Analyze(song + QStringLiteral("ndjson")).output);
    QMap<QString, int> counts;
    for (const QString& line : lines) {
        const QJsonObject event = Parse(line.toUtf8());
        QVERIFY2(event.contains(QStringLiteral("time")), qPrintable(line));
        QVERIFY(!event.contains(QStringLiteral("file")));
        ++counts[event[QStringLiteral("type")].toString()];
    }
    QCOMPARE(counts[QStringLiteral("stop")], 1);
    QCOMPARE(counts[QStringLiteral("play")], 1);
    QCOMPARE(counts[QStringLiteral("end")], 1);
    QCOMPARE(counts[QStringLiteral("beat")],
             Lines(Analyze(song + QStringLiteral("beats")).output).size());
    QVERIFY(counts[QStringLiteral("pulse")] > counts[QStringLiteral("beat")]);
    QVERIFY(counts[QStringLiteral("tempo")] > 1);
    QCOMPARE(counts.size(), 6);
}

void tst_AnalyzeProgram::ndjson_tellsTheBar_withTheAutomaticTracker()
{
    const QStringList lines = Lines(Analyze(QStringLiteral("song.wav -f ndjson")).output);
    double bpm = 0.0;
    int beats = 0;
    for (const QString& line : lines) {
        const QJsonObject event = Parse(line.toUtf8());
        const QString type = event[QStringLiteral("type")].toString();
        if (type == QLatin1String("tempo"))
            QCOMPARE(event[QStringLiteral("bpm")].toDouble(), bpm);
        if (type != QLatin1String("beat"))
            continue;
        ++beats;
        bpm = event[QStringLiteral("bpm")].toDouble();
        const int place = event[QStringLiteral("beatInBar")].toInt();
        const double confidence = event[QStringLiteral("confidence")].toDouble(-1.0);
        const double barConfidence = event[QStringLiteral("barConfidence")].toDouble(-1.0);
        QVERIFY2(place >= 1 && place <= 4, qPrintable(line));
        QVERIFY2(confidence > 0.0 && confidence <= 1.0, qPrintable(line));
        QVERIFY2(barConfidence > 0.0 && barConfidence <= 1.0, qPrintable(line));
        QVERIFY(!event.contains(QStringLiteral("accuracy")));
        QVERIFY(!event.contains(QStringLiteral("loudness")));
        QCOMPARE(event[QStringLiteral("virtual")].toBool(true), false);
    }
    QCOMPARE(beats, Lines(Analyze(QStringLiteral("song.wav")).output).size());
    QVERIFY(lines.filter(QStringLiteral("\"type\":\"pulse\"")).size() > beats);
    QVERIFY(lines.last().contains(QStringLiteral("\"realBeats\":%1,").arg(beats)));
}

// Events of the first seconds are there while the input is still open.
void tst_AnalyzeProgram::ndjson_isWrittenAsItHappens()
{
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment());
    process.start(ProgramPath(),
                  QStringLiteral("analyze -q --raw 44100 -f ndjson -").split(QLatin1Char(' ')));
    process.write(testaudio::Raw(testaudio::Kicks(44100, 120, 6.0)));
    QByteArray output;
    while (!output.contains("\"type\":\"beat\"") && process.waitForReadyRead(kProgramTimeoutMs))
        output += process.readAllStandardOutput();
    QVERIFY(output.contains("\"type\":\"beat\""));
    QVERIFY(!output.contains("\"type\":\"end\""));
    process.closeWriteChannel();
    const ProgramRun run = Finish(process);
    QCOMPARE(run.exitCode, 0);
    QVERIFY((output + run.output).contains("\"type\":\"end\""));
}

void tst_AnalyzeProgram::output_replacesAnOldFile()
{
    QVERIFY(testaudio::WriteBytes(QStringLiteral("old.txt"), QByteArray(100000, 'x')));
    QCOMPARE(Analyze(QStringLiteral("song.wav -o old.txt")).exitCode, 0);
    QCOMPARE(testaudio::ReadBytes(QStringLiteral("old.txt")),
             Analyze(QStringLiteral("song.wav")).output);
}

void tst_AnalyzeProgram::output_mayBeADevice()
{
    const QByteArray beats = Analyze(QStringLiteral("song.wav")).output;
    QCOMPARE(Analyze(QStringLiteral("song.wav -o -")).output, beats);
    QCOMPARE(Analyze(QStringLiteral("song.wav -o /dev/stdout")).output, beats);
    QCOMPARE(Analyze(QStringLiteral("song.wav -o /dev/null")).exitCode, 0);
    QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile());
    QCOMPARE(FilesHere(), m_folder.getFiles());
}

void tst_AnalyzeProgram::folder_getsDerivedNames()
{
    const ProgramRun run = Analyze(QStringLiteral("song.wav other.flac -o new -f csv"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(Lines(run.errors).size(), 2);
    QCOMPARE(QDir(QStringLiteral("new")).entryList(QDir::Files | QDir::Hidden, QDir::Name),
             (QStringList{QStringLiteral("other.csv"), QStringLiteral("song.csv")}));
    QCOMPARE(testaudio::ReadBytes(QStringLiteral("new/song.csv")),
             Analyze(QStringLiteral("song.wav -f csv")).output);
    QCOMPARE(Analyze(QStringLiteral("song.wav -o single/")).exitCode, 0);
    QVERIFY(QFile::exists(QStringLiteral("single/song.beats.txt")));
}

void tst_AnalyzeProgram::several_followEachOtherWithHeadings()
{
    for (const char* pFormat : {"beats", "tempo"}) {
        const QString format = QStringLiteral(" -f ") + QLatin1String(pFormat);
        const QByteArray expected =
            "# song.wav\n" + Analyze(QStringLiteral("song.wav") + format).output +
            "# other.flac\n" + Analyze(QStringLiteral("other.flac") + format).output;
        QCOMPARE(Analyze(QStringLiteral("song.wav other.flac") + format).output, expected);
    }
}

void tst_AnalyzeProgram::several_nameTheFileInEveryEvent()
{
    const QStringList lines =
        Lines(Analyze(QStringLiteral("song.wav other.flac -f ndjson")).output);
    QStringList files;
    for (const QString& line : lines) {
        const QString file = Parse(line.toUtf8())[QStringLiteral("file")].toString();
        if (files.isEmpty() || files.last() != file)
            files << file;
    }
    QCOMPARE(files, (QStringList{QStringLiteral("song.wav"), QStringLiteral("other.flac")}));
}

void tst_AnalyzeProgram::help_andVersion_endWell()
{
    for (const char* pArguments : {"--help", "-h", "analyze --help", "analyze -h", "--version"}) {
        const ProgramRun run = RunProgram(QString::fromLatin1(pArguments).split(QLatin1Char(' ')));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.errors, QByteArray());
        QVERIFY(run.output.contains("audio-analyzer"));
    }
    QCOMPARE(RunProgram({QStringLiteral("--version")}).output,
             QByteArray("audio-analyzer " AUDIOANALYZER_VERSION "\n"));
}

AA_TEST(tst_AnalyzeProgram, QCoreApplication)
#include "tst_AnalyzeProgram.moc"
