// SPDX-License-Identifier: MIT
#include <cli/output/OutputFormat.h>
#include <cli/output/SvlWriter.h>
#include <cli/output/TextWriters.h>

#include <QLocale>
#include <QtTest>

#include <apps/cli/output/HandMadeResult.h>
#include <support/TestClass.h>

class tst_TextWriters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void beats_areSecondsOneALine();
    void labels_areTabSeparatedPoints();
    void csv_isTimeAndLabel();
    void label_isThePlaceInTheBar_whereItIsKnown();
    void svl_isASonicVisualiserLayer();
    void tempo_isTheMirexLine_data();
    void tempo_isTheMirexLine();
    void heading_isOneCommentLine();
    void texts_areEmpty_withoutBeats();
    void formats_haveNamesAndSuffixes();
    void findOutputFormat_ignoresCase();
};

// Numbers must not follow the locale.
void tst_TextWriters::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German));
}

// 8001 / 8000 = 1.000125; 12345 / 8000 = 1.543125.
void tst_TextWriters::beats_areSecondsOneALine()
{
    QCOMPARE(makeBeatsText(HandMadeResult()), QByteArray("0.500000\n1.000125\n1.543125\n"));
}

void tst_TextWriters::labels_areTabSeparatedPoints()
{
    QCOMPARE(makeLabelsText(HandMadeResult()),
             QByteArray("0.500000\t0.500000\t1\n"
                        "1.000125\t1.000125\t2 virtual\n"
                        "1.543125\t1.543125\t3\n"));
}

void tst_TextWriters::csv_isTimeAndLabel()
{
    QCOMPARE(makeCsvText(HandMadeResult()),
             QByteArray("0.500000,1\n1.000125,2 virtual\n1.543125,3\n"));
}

void tst_TextWriters::label_isThePlaceInTheBar_whereItIsKnown()
{
    AnalysisResult result = HandMadeResult();
    result.beats[0].beatInBar = 4;
    result.beats[1].beatInBar = 1;
    result.beats[1].isVirtual = false;
    result.beats[2].beatInBar = 2;
    QCOMPARE(makeCsvText(result), QByteArray("0.500000,4\n1.000125,1\n1.543125,2\n"));
    QCOMPARE(makeBeatsText(result), makeBeatsText(HandMadeResult()));
}

void tst_TextWriters::svl_isASonicVisualiserLayer()
{
    QCOMPARE(
        makeSvlDocument(HandMadeResult()),
        QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<!DOCTYPE sonic-visualiser>\n"
                   "<sv>\n"
                   "  <data>\n"
                   "    <model id=\"1\" name=\"\" sampleRate=\"8000\" start=\"0\" end=\"20000\" "
                   "type=\"sparse\" dimensions=\"1\" resolution=\"1\" notifyOnAdd=\"true\" "
                   "dataset=\"0\"/>\n"
                   "    <dataset id=\"0\" dimensions=\"1\">\n"
                   "      <point frame=\"4000\" label=\"1\"/>\n"
                   "      <point frame=\"8001\" label=\"2 virtual\"/>\n"
                   "      <point frame=\"12345\" label=\"3\"/>\n"
                   "    </dataset>\n"
                   "  </data>\n"
                   "  <display>\n"
                   "    <layer id=\"2\" type=\"timeinstants\" name=\"Beats\" model=\"1\" "
                   "plotStyle=\"0\" colourName=\"Orange\" colour=\"#ff9632\" "
                   "darkBackground=\"false\"/>\n"
                   "  </display>\n"
                   "</sv>\n"));
}

void tst_TextWriters::tempo_isTheMirexLine_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("fast: half of it is the lower one")
        << 128.3 << QByteArray("64.15\t128.30\t0.00\n");
    QTest::newRow("slow: twice it is the higher one")
        << 60.0 << QByteArray("60.00\t120.00\t1.00\n");
    QTest::newRow("just slow") << 67.99 << QByteArray("67.99\t135.98\t1.00\n");
    QTest::newRow("at the limit") << 68.0 << QByteArray("34.00\t68.00\t0.00\n");
    QTest::newRow("unknown") << 0.0 << QByteArray("0.00\t0.00\t0.00\n");
}

void tst_TextWriters::tempo_isTheMirexLine()
{
    QFETCH(double, bpm);
    QFETCH(QByteArray, line);
    AnalysisResult result;
    result.beats = {{0, 0.0, false, 0, 1.0, bpm}};
    QCOMPARE(makeTempoText(result), line);
}

void tst_TextWriters::heading_isOneCommentLine()
{
    QCOMPARE(makeHeading(QStringLiteral("a b.flac")), QByteArray("# a b.flac\n"));
    QCOMPARE(makeHeading(QStringLiteral("a\n1.0")), QByteArray("# a 1.0\n"));
    QCOMPARE(makeHeading(QString::fromUtf8("\xc3\xbc")), QByteArray("# \xc3\xbc\n"));
}

void tst_TextWriters::texts_areEmpty_withoutBeats()
{
    QCOMPARE(makeBeatsText({}), QByteArray());
    QCOMPARE(makeLabelsText({}), QByteArray());
    QCOMPARE(makeCsvText({}), QByteArray());
    QVERIFY(makeSvlDocument({}).contains("<dataset id=\"0\" dimensions=\"1\"/>"));
}

void tst_TextWriters::formats_haveNamesAndSuffixes()
{
    QStringList all;
    for (const OutputFormatInfo& info : getOutputFormats()) {
        QCOMPARE(&getOutputFormat(info.format), &info);
        all.append(info.name + info.suffix + (info.isSequence ? QStringLiteral("+") : QString()));
    }
    QCOMPARE(all,
             QStringLiteral("beats.beats.txt+ labels.labels.txt csv.csv svl.svl "
                            "tempo.tempo.txt+ json.json ndjson.ndjson+")
                 .split(QLatin1Char(' ')));
}

void tst_TextWriters::findOutputFormat_ignoresCase()
{
    QVERIFY(findOutputFormat(QStringLiteral("SVL")) == eSvlFormat);
    QVERIFY(!findOutputFormat(QStringLiteral("xml")));
    QVERIFY(!findOutputFormat(QString()));
}

AA_TEST(tst_TextWriters, NoApplication)
#include "tst_TextWriters.moc"
