// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationFiles.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <support/TestClass.h>

class tst_EvaluationFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void beats_areTheFirstColumn_data();
    void beats_areTheFirstColumn();
    void beats_areRefused_withFileAndLine_data();
    void beats_areRefused_withFileAndLine();
    void tempo_isTheStrongerOne_data();
    void tempo_isTheStrongerOne();
    void tempo_isRefused_withFileAndLine_data();
    void tempo_isRefused_withFileAndLine();
    void missingFile_isNamed();
    void reference_hasItsBeatsAlone_withoutJson();
    void reference_takesEverythingFromJson();
    void reference_isRefused_whenJsonIsWrong_data();
    void reference_isRefused_whenJsonIsWrong();
    void recordingName_hasNoSuffix_data();
    void recordingName_hasNoSuffix();

private:
    QString _Write(const char* pName, const QByteArray& pText);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_EvaluationFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_EvaluationFiles::cleanup()
{
    m_folder.reset();
}

QString tst_EvaluationFiles::_Write(const char* pName, const QByteArray& pText)
{
    const QString path = m_folder->filePath(QLatin1String(pName));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(pText) == pText.size() ? path : QString();
}

void tst_EvaluationFiles::beats_areTheFirstColumn_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<BeatTimes>("beats");
    const BeatTimes two = {0.5, 1.25};
    QTest::newRow("nothing") << QByteArray() << BeatTimes{};
    QTest::newRow("as analyze writes them") << QByteArray("0.500000\n1.250000\n") << two;
    QTest::newRow("heading and comments")
        << QByteArray("# song.flac\n\n0.5 # one\n  # two\n1.25") << two;
    QTest::newRow("beat in bar") << QByteArray("0.5 1\n1.25 2\n") << two;
    QTest::newRow("labels") << QByteArray("0.5\t0.5\t1 virtual\n1.25\t1.25\t2\n") << two;
    QTest::newRow("csv") << QByteArray("0.5,1\n1.25;2\n") << two;
    QTest::newRow("of other systems") << QByteArray("\t0.5\r\n1.25\r\n") << two;
    QTest::newRow("exponents and signs") << QByteArray("-5e-1\n+1.25\n") << BeatTimes{-0.5, 1.25};
    QTest::newRow("together") << QByteArray("0.5\n0.5\n") << BeatTimes{0.5, 0.5};
}

void tst_EvaluationFiles::beats_areTheFirstColumn()
{
    QFETCH(QByteArray, text);
    QFETCH(BeatTimes, beats);
    BeatTimes found;
    QCOMPARE(readBeatFile(_Write("song.beats", text), found), QString());
    QCOMPARE(found, beats);
}

void tst_EvaluationFiles::beats_areRefused_withFileAndLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place");
    QTest::newRow("word") << QByteArray("0.5\none\n") << "song.beats:2: \"one\"";
    QTest::newRow("behind a comment") << QByteArray("# 1\n\n\ntime\n") << "song.beats:4: \"time\"";
    QTest::newRow("not finite") << QByteArray("inf\n") << "song.beats:1: \"inf\"";
    QTest::newRow("not a number") << QByteArray("nan\n") << "song.beats:1: \"nan\"";
    QTest::newRow("decimal comma is a column") << QByteArray("x,5\n") << "song.beats:1: \"x\"";
    QTest::newRow("out of order") << QByteArray("1\n2\n1.5\n") << "song.beats:3: 1.5 s lies before";
    QTest::newRow("bytes") << QByteArray("\x01\xff\0fLaC\n", 7) << "song.beats:1: \"?";
    QTest::newRow("endless line") << QByteArray(100000, '7') << "song.beats:1: is no line of text";
}

void tst_EvaluationFiles::beats_areRefused_withFileAndLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    BeatTimes found;
    const QString refusal = readBeatFile(_Write("song.beats", text), found);
    QVERIFY2(refusal.contains(place), qPrintable(refusal));
    QVERIFY(!refusal.contains(QLatin1Char('\n')));
}

void tst_EvaluationFiles::tempo_isTheStrongerOne_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("tempo");
    QTest::newRow("unknown") << QByteArray("0.00\t0.00\t0.00\n") << 0.0;
    QTest::newRow("alone") << QByteArray("# song\n127.5\n") << 127.5;
    QTest::newRow("the lower one") << QByteArray("62.00\t124.00\t1.00\n") << 62.0;
    QTest::newRow("the higher one") << QByteArray("62.00\t124.00\t0.00\n") << 124.0;
    QTest::newRow("nothing") << QByteArray() << 0.0;
}

void tst_EvaluationFiles::tempo_isTheStrongerOne()
{
    QFETCH(QByteArray, text);
    QFETCH(double, tempo);
    double found = -1.0;
    QCOMPARE(readTempoFile(_Write("song.tempo.txt", text), found), QString());
    QCOMPARE(found, tempo);
}

void tst_EvaluationFiles::tempo_isRefused_withFileAndLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place");
    QTest::newRow("word") << QByteArray("fast\n") << "song.tempo.txt:1: give one line";
    QTest::newRow("negative") << QByteArray("-3\n") << "song.tempo.txt:1: give one line";
    QTest::newRow("two lines") << QByteArray("120\n121\n") << "song.tempo.txt:2: give one line";
    QTest::newRow("four") << QByteArray("1 2 3 4\n") << "song.tempo.txt:1: give one line";
}

void tst_EvaluationFiles::tempo_isRefused_withFileAndLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    double found = 0.0;
    const QString refusal = readTempoFile(_Write("song.tempo.txt", text), found);
    QVERIFY2(refusal.contains(place), qPrintable(refusal));
}

void tst_EvaluationFiles::missingFile_isNamed()
{
    BeatTimes beats;
    const QString path = m_folder->filePath(QStringLiteral("none.beats"));
    QVERIFY(readBeatFile(path, beats).startsWith(path + QStringLiteral(": ")));
    QVERIFY(readBeatFile(m_folder->path(), beats).endsWith(QStringLiteral("is a folder")));
}

void tst_EvaluationFiles::reference_hasItsBeatsAlone_withoutJson()
{
    BeatReference reference;
    QString genre;
    QCOMPARE(readReference(_Write("song.beats", "1\n2\n"), reference, genre), QString());
    QCOMPARE(reference.beats, (BeatTimes{1.0, 2.0}));
    QCOMPARE(reference.minimalTempo, 0.0);
    QVERIFY(genre.isEmpty() && reference.ignored.empty() && reference.changes.empty());
}

void tst_EvaluationFiles::reference_takesEverythingFromJson()
{
    BeatReference reference;
    QString genre;
    QVERIFY(!_Write("song.json",
                    R"({"genre": "house", "bpm": 124, "tempo_range": [120, 128.5], "duration": 61,
                        "ignore": [[3, 4.5], [7, 8]], "changes": [20, 40], "licence": [{}]})")
                 .isEmpty());
    QCOMPARE(readReference(_Write("song.beats.txt", "1\n"), reference, genre), QString());
    QCOMPARE(genre, QStringLiteral("house"));
    QCOMPARE(reference.minimalTempo, 120.0);
    QCOMPARE(reference.maximalTempo, 128.5);
    QCOMPARE(reference.duration, 61.0);
    QCOMPARE(reference.ignored.size(), std::size_t(2));
    QCOMPARE(reference.ignored[0].start, 3.0);
    QCOMPARE(reference.ignored[0].end, 4.5);
    QCOMPARE(reference.changes, (std::vector<double>{20.0, 40.0}));
    QVERIFY(!_Write("song.json", R"({"bpm": 124})").isEmpty());
    BeatReference other;
    QCOMPARE(readReference(_Write("song.beats.txt", "1\n"), other, genre), QString());
    QCOMPARE(other.minimalTempo, 124.0);
    QCOMPARE(other.maximalTempo, 124.0);
}

void tst_EvaluationFiles::reference_isRefused_whenJsonIsWrong_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("words");
    QTest::newRow("cut") << QByteArray(R"({"bpm": 12)") << "is no JSON object";
    QTest::newRow("list") << QByteArray("[]") << "is no JSON object";
    QTest::newRow("tempo") << QByteArray(R"({"bpm": "fast"})") << "\"bpm\"";
    QTest::newRow("negative") << QByteArray(R"({"bpm": -1})") << "\"bpm\"";
    QTest::newRow("duration") << QByteArray(R"({"duration": 0})") << "\"duration\"";
    QTest::newRow("range") << QByteArray(R"({"tempo_range": [130, 120]})") << "\"tempo_range\"";
    QTest::newRow("half a range") << QByteArray(R"({"tempo_range": [130]})") << "\"tempo_range\"";
    QTest::newRow("span") << QByteArray(R"({"ignore": [1, 2]})") << "\"ignore\"";
    QTest::newRow("span backwards") << QByteArray(R"({"ignore": [[2, 1]]})") << "\"ignore\"";
    QTest::newRow("no list") << QByteArray(R"({"ignore": 3})") << "\"ignore\"";
    QTest::newRow("changes") << QByteArray(R"({"changes": [4, "x"]})") << "\"changes\"";
}

void tst_EvaluationFiles::reference_isRefused_whenJsonIsWrong()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, words);
    BeatReference reference;
    QString genre;
    const QString path = _Write("song.json", json);
    const QString refusal = readReference(_Write("song.beats", "1\n2\n"), reference, genre);
    QVERIFY2(refusal.startsWith(path + QStringLiteral(": ")), qPrintable(refusal));
    QVERIFY2(refusal.contains(words), qPrintable(refusal));
}

void tst_EvaluationFiles::recordingName_hasNoSuffix_data()
{
    QTest::addColumn<QString>("name");
    for (const char* pPath : {"song.beats",
                              "song.beats.txt",
                              "song.labels.txt",
                              "song.csv",
                              "song.tempo.txt",
                              "folder/song.BEATS",
                              "song"})
        QTest::newRow(pPath) << QStringLiteral("song");
    QTest::newRow("song.v2.beats") << QStringLiteral("song.v2");
    QTest::newRow(".beats") << QStringLiteral(".beats");
}

void tst_EvaluationFiles::recordingName_hasNoSuffix()
{
    QFETCH(QString, name);
    QCOMPARE(getRecordingName(QLatin1String(QTest::currentDataTag())), name);
}

AA_TEST(tst_EvaluationFiles, QCoreApplication)
#include "tst_EvaluationFiles.moc"
