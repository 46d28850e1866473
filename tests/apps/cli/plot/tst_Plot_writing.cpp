// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include "PlotTest.h"
#include <cli/plot/Plot.h>
#include <cli/plot/PlotScript.h>

#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

/// What is refused, what fails, and what is left then.
class tst_Plot_writing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
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

void tst_Plot_writing::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

QByteArray tst_Plot_writing::_ReplaceGnuplot(const QByteArray& pScript)
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

void tst_Plot_writing::title_isHarmless_data()
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

void tst_Plot_writing::title_isHarmless()
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

void tst_Plot_writing::path_isHarmless()
{
    const QString folder = _Path(QStringLiteral("a 'b'\n$(touch hacked)%s"));
    QVERIFY(QDir().mkpath(folder));
    const QString path = folder + QStringLiteral("/p'l\"o\nt.svg");
    Plot plot;
    QVERIFY2(plot.Write(path, makeResult(), makeTrace(60.0)), qPrintable(plot.getError()));
    QVERIFY(parse(path).isValid);
    QCOMPARE(_Entries().size(), 1);
}

void tst_Plot_writing::write_refusesOtherSuffixes()
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

void tst_Plot_writing::write_asksForThePackage_whenGnuplotIsMissing()
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

void tst_Plot_writing::write_reportsGnuplotsFailure()
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

void tst_Plot_writing::write_noticesAnUnfinishedPicture()
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

void tst_Plot_writing::write_leavesNothing_whenTargetIsUnwritable()
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

void tst_Plot_writing::write_keepsTheOlderFile_whenItFails()
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

AA_TEST(tst_Plot_writing, QCoreApplication)
#include "tst_Plot_writing.moc"
