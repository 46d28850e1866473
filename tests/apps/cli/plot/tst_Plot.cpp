// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <cli/plot/Plot.h>
#include <cli/plot/PlotScript.h>

#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

namespace {

/// 60 s with a beat every half second, silence from 40 s to 45 s, and a tempo from 3 s on.
AnalysisResult makeResult()
{
    AnalysisResult result;
    result.source = QStringLiteral("/music/my song.flac");
    result.sampleRate = 44100;
    result.sampleCount = 60 * 44100;
    for (int i = 0; i < 120; ++i) {
        const double time = 0.5 * i;
        const bool isVirtual = time >= 40.0 && time < 45.0;
        result.beats.push_back({quint64(time * 44100), time, isVirtual, 9000, 0.9, 120.0});
        result.tempos.push_back({time, time < 3.0 ? 0.0 : 119.5 + 0.01 * i});
        if (!isVirtual)
            result.pulseTimes.push_back(time);
    }
    result.silences.push_back({40.0, 45.0});
    return result;
}

LevelTrace makeTrace(double pDuration)
{
    LevelTrace trace;
    for (double time = 0.0; time < pDuration; time += 0.0232)
        trace.Append(time, int(20000.0 * std::fabs(std::cos(2.0 * M_PI * time))), 8000);
    return trace;
}

struct Svg
{
    bool isValid = false;
    QString error;
    QStringList texts;
    bool refersOutside = false;
};

Svg parse(const QString& pPath)
{
    Svg svg;
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly))
        return svg;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        reader.readNext();
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            svg.refersOutside |= attribute.name() == QLatin1String("href") &&
                                 !attribute.value().startsWith(QLatin1Char('#')) &&
                                 !attribute.value().startsWith(QLatin1String("data:"));
        if (reader.isStartElement() && reader.name() == QLatin1String("text"))
            svg.texts << reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
    }
    svg.isValid = !reader.hasError();
    svg.error = reader.errorString();
    return svg;
}

}  // namespace

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
    void title_isHarmless_data();
    void title_isHarmless();
    void path_isHarmless();
    void write_refusesOtherSuffixes();
    void write_asksForThePackage_whenGnuplotIsMissing();
    void write_reportsGnuplotsFailure();
    void write_noticesAnUnfinishedPicture();
    void write_leavesNothing_whenTargetIsUnwritable();
    void write_keepsTheOlderFile_whenItFails();

private:
    QString _Path(const QString& pName) const { return m_folder->filePath(pName); }
    QStringList _Entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// Puts a program that runs pScript in gnuplot's place; returns the PATH that was.
    QByteArray _ReplaceGnuplot(const QByteArray& pScript);

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_Plot::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

QByteArray tst_Plot::_ReplaceGnuplot(const QByteArray& pScript)
{
    const QString folder = _Path(QStringLiteral("bin"));
    QDir().mkpath(folder);
    QFile program(folder + QStringLiteral("/gnuplot"));
    if (program.open(QIODevice::WriteOnly)) {
        program.write("#!/bin/sh\n" + pScript + '\n');
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder) + ':' + path);
    return path;
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

void tst_Plot::title_isHarmless_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    const auto add = [](const char* pRow, const QString& pName, const QString& pTitle = QString()) {
        QTest::newRow(pRow) << pName << (pTitle.isNull() ? pName : pTitle);
    };
    add("quotes", QStringLiteral("it's \"so\" 'quoted'"));
    add("only a quote", QStringLiteral("'"));
    add("percent", QStringLiteral("100%s %d %%"));
    add("underscore and caret", QStringLiteral("a_b^c{d}@e~f&g"));
    add("shell", QStringLiteral("$(touch hacked) `touch hacked` ${HOME}; !touch hacked"));
    add("macro", QStringLiteral("@x $level |cat"));
    add("mark-up", QStringLiteral("<b>&amp;<i> &#65;"));
    add("end of CDATA", QStringLiteral("a]]>b"), QStringLiteral("a]] >b"));
    add("leading quote", QStringLiteral("'a' and ''b''"));
    add("backslash", QStringLiteral("a\\nb\\"));
    add("comment", QStringLiteral("# no comment"));
    add("breakout", QStringLiteral("x' ; system('touch hacked') #"));
    add("line break",
        QStringLiteral("a\nsystem 'touch hacked'\n"),
        QStringLiteral("a\ufffdsystem 'touch hacked'\ufffd"));
    add("end of data", QStringLiteral("\nEOD\n"), QStringLiteral("\ufffdEOD\ufffd"));
    add("control", QStringLiteral("a\u0001b"), QStringLiteral("a\ufffdb"));
    add("many scripts", QStringLiteral("\u00e9\u65e5\u672c\u05d0 \U0001F3B5.ogg"));
    add("standard input", QStringLiteral("-"), QStringLiteral("standard input"));
    add("long",
        QString(300, QLatin1Char('x')),
        QString(50, QLatin1Char('x')) + QChar(0x2026) + QString(49, QLatin1Char('x')));
}

void tst_Plot::title_isHarmless()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    AnalysisResult result = makeResult();
    result.source = name;
    const QString path = _Path(QStringLiteral("plot.svg"));
    Plot plot;
    const bool isWritten = plot.Write(path, result, makeTrace(60.0));
    QVERIFY(QDir::setCurrent(oldFolder));
    QVERIFY2(isWritten, qPrintable(plot.getError()));
    const Svg svg = parse(path);
    QVERIFY2(svg.isValid, qPrintable(svg.error));
    QVERIFY2(svg.texts.contains(title), qPrintable(svg.texts.join(QLatin1Char('|'))));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("plot.svg")));
}

void tst_Plot::path_isHarmless()
{
    const QString folder = _Path(QStringLiteral("a 'b'\n$(touch hacked)%s"));
    QVERIFY(QDir().mkpath(folder));
    const QString path = folder + QStringLiteral("/p'l\"o\nt.svg");
    Plot plot;
    QVERIFY2(plot.Write(path, makeResult(), makeTrace(60.0)), qPrintable(plot.getError()));
    QVERIFY(parse(path).isValid);
    QCOMPARE(_Entries().size(), 1);
}

void tst_Plot::write_refusesOtherSuffixes()
{
    Plot plot;
    for (const char* name : {"plot.pdf", "plot", "svg", "plot.svg.gz", ""}) {
        const QString path = _Path(QLatin1String(name));
        QVERIFY(!Plot::isSupported(path));
        QVERIFY(!plot.Write(path, makeResult(), LevelTrace()));
        QVERIFY2(plot.getError().contains(QLatin1String(".svg or .png")),
                 qPrintable(plot.getError()));
    }
    QVERIFY(Plot::isSupported(QStringLiteral("a.SVG")));
    QCOMPARE(_Entries(), QStringList());
}

void tst_Plot::write_asksForThePackage_whenGnuplotIsMissing()
{
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    Plot plot;
    const bool isWritten =
        plot.Write(_Path(QStringLiteral("plot.svg")), makeResult(), LevelTrace());
    qputenv("PATH", path);
    QVERIFY(!isWritten);
    QVERIFY2(plot.getError().contains(QLatin1String("install the package gnuplot-nox")),
             qPrintable(plot.getError()));
    QCOMPARE(_Entries(), QStringList());
}

void tst_Plot::write_reportsGnuplotsFailure()
{
    const QByteArray path = _ReplaceGnuplot("cat >/dev/null; echo '<svg>half'; "
                                            "echo 'unknown terminal type' >&2; exit 3");
    Plot plot;
    const bool isWritten =
        plot.Write(_Path(QStringLiteral("plot.svg")), makeResult(), LevelTrace());
    qputenv("PATH", path);
    QVERIFY(!isWritten);
    QVERIFY2(plot.getError().contains(QLatin1String("unknown terminal type")),
             qPrintable(plot.getError()));
    QVERIFY(plot.getError().contains(_Path(QStringLiteral("plot.svg"))));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("bin")));
}

void tst_Plot::write_noticesAnUnfinishedPicture()
{
    const QByteArray path = _ReplaceGnuplot("echo '<svg>half'");
    Plot plot;
    const bool isWritten =
        plot.Write(_Path(QStringLiteral("plot.svg")), makeResult(), makeTrace(60.0));
    qputenv("PATH", path);
    QVERIFY(!isWritten);
    QVERIFY2(plot.getError().contains(QLatin1String("unfinished")), qPrintable(plot.getError()));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("bin")));
}

void tst_Plot::write_leavesNothing_whenTargetIsUnwritable()
{
    Plot plot;
    const QString path = _Path(QStringLiteral("missing/plot.svg"));
    QVERIFY(!plot.Write(path, makeResult(), LevelTrace()));
    QVERIFY2(plot.getError().contains(path), qPrintable(plot.getError()));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.png")));
    QVERIFY(!plot.Write(_Path(QStringLiteral("folder.png")), makeResult(), LevelTrace()));
    QVERIFY(plot.getError().contains(QLatin1String("not a regular file")));
    QCOMPARE(_Entries(), QStringList(QStringLiteral("folder.png")));
}

void tst_Plot::write_keepsTheOlderFile_whenItFails()
{
    Plot plot;
    const QString file = _Path(QStringLiteral("plot.svg"));
    QVERIFY(plot.Write(file, makeResult(), LevelTrace()));
    const QByteArray path = _ReplaceGnuplot("exit 1");
    const bool isWritten = plot.Write(file, makeResult(), LevelTrace());
    qputenv("PATH", path);
    QVERIFY(!isWritten);
    QVERIFY(parse(file).isValid);
}

AA_TEST(tst_Plot, QCoreApplication)
#include "tst_Plot.moc"
