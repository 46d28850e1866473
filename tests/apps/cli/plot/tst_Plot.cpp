// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include "PlotTest.h"
#include <cli/plot/Plot.h>
#include <cli/plot/PlotScript.h>

#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

class tst_Plot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void svg_namesEverything();
    void svg_staysSmall_whenLong();
    void svg_isDrawn_fromAnyResult_data();
    void svg_isDrawn_fromAnyResult();
    void png_hasItsSize();
    void automatic_showsBeliefBarsAndConfidence();
    void marks_becomeDensity_whenDense();
    void curves_breakWhereUnknown();

private:
    QString _Path(const QString& pName) const { return m_folder->filePath(pName); }
    QStringList _Entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_Plot::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void tst_Plot::svg_namesEverything()
{
    Plot plot;
    const QString path = _Path(QStringLiteral("plot.svg"));
    QVERIFY2(plot.Write(path, makeResult(), makeTrace(60.0)), qPrintable(plot.getError()));
    const Svg svg = parse(path);
    QVERIFY2(svg.isValid, qPrintable(svg.error));
    QVERIFY(!svg.refersOutside);
    for (const char* text : {"my song.flac",
                             "level (% of full scale)",
                             "tempo (BPM)",
                             "time (s)",
                             "beats",
                             "virtual beats",
                             "pulses",
                             "level in the band",
                             "pulse threshold",
                             "stopped",
                             "tempo",
                             "0",
                             "60",
                             "100"})
        QVERIFY2(svg.texts.contains(QLatin1String(text)), text);
    const QString summary = svg.texts.filter(QStringLiteral("Hz")).join(QString());
    // Every beat reports 120 BPM; 10 of the 120 beats are virtual.
    for (const char* part :
         {"120.0 BPM", "110 beats", "10 virtual beats", "length 60.0 s", "44100 Hz"})
        QVERIFY2(summary.contains(QLatin1String(part)), qPrintable(summary));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("plot.svg")));
}

void tst_Plot::svg_staysSmall_whenLong()
{
    AnalysisResult result = makeResult();
    result.sampleCount = 4 * 3600 * quint64(44100);
    for (int i = 120; i < 4 * 7200; ++i) {
        result.beats.push_back({quint64(i) * 22050, 0.5 * i, i % 7 == 0, 9000, 0.9, 120.0});
        result.tempos.push_back({0.5 * i, 120.0 + i % 5});
        result.pulseTimes.push_back(0.5 * i);
    }
    Plot plot;
    const QString path = _Path(QStringLiteral("long.svg"));
    QVERIFY2(plot.Write(path, result, makeTrace(4 * 3600.0)), qPrintable(plot.getError()));
    const Svg svg = parse(path);
    QVERIFY2(svg.isValid, qPrintable(svg.error));
    QVERIFY(svg.texts.contains(QStringLiteral("time (h:min:s)")));
    QVERIFY(svg.texts.contains(QStringLiteral("4:00:00")));
    QVERIFY2(QFileInfo(path).size() < 500000, qPrintable(QString::number(QFileInfo(path).size())));
}

void tst_Plot::svg_isDrawn_fromAnyResult_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("nothing at all") << 0;
    QTest::newRow("silence only") << 1;
    QTest::newRow("one beat") << 2;
    QTest::newRow("no levels") << 3;
    QTest::newRow("0.1 s") << 4;
}

void tst_Plot::svg_isDrawn_fromAnyResult()
{
    QFETCH(int, kind);
    AnalysisResult result;
    LevelTrace trace;
    if (kind == 1) {
        result.sampleRate = 8000;
        result.sampleCount = 80000;
        result.silences.push_back({0.0, 10.0});
        for (int i = 0; i < 400; ++i)
            trace.Append(0.025 * i, 0, 0);
    } else if (kind == 2) {
        result.sampleRate = 8000;
        result.sampleCount = 8000;
        result.beats.push_back({0, 0.0, false, 1, 1.0, 0.0});
        trace.Append(0.0, 32767, 1);
    } else if (kind == 3) {
        result = makeResult();
    } else if (kind == 4) {
        result.sampleRate = 192000;
        result.sampleCount = 19200;
        trace = makeTrace(0.1);
    }
    Plot plot;
    const QString path = _Path(QStringLiteral("plot.svg"));
    QVERIFY2(plot.Write(path, result, trace), qPrintable(plot.getError()));
    const Svg svg = parse(path);
    QVERIFY2(svg.isValid, qPrintable(svg.error));
    QVERIFY(svg.texts.contains(QStringLiteral("tempo (BPM)")));
    QCOMPARE(svg.texts.contains(QStringLiteral("no tempo found")), kind != 3);
}

void tst_Plot::png_hasItsSize()
{
    Plot plot;
    const QString path = _Path(QStringLiteral("plot.PNG"));
    QVERIFY2(plot.Write(path, makeResult(), makeTrace(60.0)), qPrintable(plot.getError()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.read(24);
    QCOMPARE(header.left(16), QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    QCOMPARE(header.mid(16, 8), QByteArray("\0\0\x05\0\0\0\x02\xa8", 8));  // 1280 x 680
}

// The beats of half a second go in bars of four from the first one on: 30 of them in 60 s.
void tst_Plot::automatic_showsBeliefBarsAndConfidence()
{
    AnalysisResult result = makeResult();
    int number = 0;
    for (LoggedBeat& beat : result.beats) {
        beat.isVirtual = false;
        beat.beatInBar = 1 + number++ % 4;
    }
    BeliefTrace beliefs;
    MeterTracker tracker(8000);
    for (int i = 0; i < 10; ++i)
        beliefs.Append(6.0 * i, tracker);
    const QString path = _Path(QStringLiteral("plot.svg"));
    Plot plot;
    QVERIFY2(plot.Write(path, result, makeTrace(60.0), beliefs), qPrintable(plot.getError()));
    const Svg svg = parse(path);
    QVERIFY2(svg.isValid, qPrintable(svg.error));
    for (const char* pText : {"bars", "belief in a tempo", "confidence", "tempo", "60", "190"})
        QVERIFY2(svg.texts.contains(QLatin1String(pText)), pText);
    QVERIFY(svg.texts.filter(QStringLiteral("virtual")).isEmpty());
    QVERIFY(!svg.texts.filter(QStringLiteral("30 bars")).isEmpty());
    const QByteArray script = PlotScript(result, makeTrace(60.0), &beliefs).Make(ePlotFormat::eSvg);
    QVERIFY(script.contains("$belief with image"));
    QVERIFY(script.contains("$confidence << EOD\n0 0\n6 0\n"));
}

void tst_Plot::marks_becomeDensity_whenDense()
{
    AnalysisResult result = makeResult();
    result.beats.clear();
    result.pulseTimes.assign(400, 1.0);
    const LevelTrace trace;
    QVERIFY(!PlotScript(result, trace).Make(ePlotFormat::eSvg).contains("/min'"));
    // 401 pulses in one of 240 bins of a quarter of a second: 96240 a minute.
    result.pulseTimes.assign(401, 1.0);
    const QByteArray script = PlotScript(result, trace).Make(ePlotFormat::eSvg);
    QVERIFY(script.contains("title 'pulses, up to 96240/min'"));
}

void tst_Plot::curves_breakWhereUnknown()
{
    AnalysisResult result = makeResult();
    result.tempos = {{1.0, 100.0}, {2.0, 0.0}, {3.0, 110.0}};
    LevelTrace trace;
    trace.Append(0.0, 32767, 32767);
    trace.Append(10.0, 0, 0);
    trace.Append(20.0, 0, 32767);
    const QByteArray script = PlotScript(result, trace).Make(ePlotFormat::ePng);
    QVERIFY(script.contains("$tempo << EOD\n1 100\n2 100\n\n3 110\n60 110\nEOD\n"));
    QVERIFY(script.contains("$threshold << EOD\n0 100\n10 100\n\n20 100\n60 100\nEOD\n"));
    QVERIFY(script.contains("$level << EOD\n0 100\n10 100\n10 0\n20 0\n20 0\n60 0\nEOD\n"));
}

AA_TEST(tst_Plot, QCoreApplication)
#include "tst_Plot.moc"
