// SPDX-License-Identifier: MIT
#include <cli/analyze/AnalyzePlan.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <support/TestClass.h>

/// Runs in a folder of its own, with the files a.wav, b.flac and old.txt, the folder out and a
/// link.
class tst_AnalyzePlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void single_goesToStandardOutput();
    void single_goesToTheFile();
    void single_goesIntoTheFolder_data();
    void single_goesIntoTheFolder();
    void names_areDerivedFromTheInput_data();
    void names_areDerivedFromTheInput();
    void several_followEachOther_data();
    void several_followEachOther();
    void several_goIntoTheFolder();
    void refusals_sayWhy_data();
    void refusals_sayWhy();
    void streams_mayBeSharedByOutputs();
    void worker_tagsItsEvents();
    void plan_touchesNothing();

private:
    static AnalyzeOptions _Options(const QString& pInputs, const QString& pOutput = {});

    QTemporaryDir m_folder;
};

void tst_AnalyzePlan::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    for (const char* pName : {"a.wav", "b.flac", "old.txt"})
        QVERIFY(testaudio::WriteBytes(QLatin1String(pName), "x"));
    QVERIFY(QDir().mkdir(QStringLiteral("out")));
    QVERIFY(QFile::link(QStringLiteral("a.wav"), QStringLiteral("link.txt")));
}

/// Inputs are separated by blanks.
AnalyzeOptions tst_AnalyzePlan::_Options(const QString& pInputs, const QString& pOutput)
{
    AnalyzeOptions options;
    options.inputs = pInputs.split(QLatin1Char(' '));
    options.output = pOutput;
    return options;
}

void tst_AnalyzePlan::single_goesToStandardOutput()
{
    AnalyzePlan plan;
    QVERIFY(plan.Make(_Options(QStringLiteral("a.wav"))));
    QCOMPARE(plan.getTasks().size(), std::size_t(1));
    QCOMPARE(plan.getTasks()[0].input, QStringLiteral("a.wav"));
    QCOMPARE(plan.getTasks()[0].output, QStringLiteral("-"));
    QVERIFY(!plan.getTasks()[0].hasHeading);
    QVERIFY(!plan.getTasks()[0].isTagged);
    QCOMPARE(plan.getFolder(), QString());
}

void tst_AnalyzePlan::single_goesToTheFile()
{
    AnalyzePlan plan;
    QVERIFY(plan.Make(_Options(QStringLiteral("a.wav"), QStringLiteral("old.txt"))));
    QCOMPARE(plan.getTasks()[0].output, QStringLiteral("old.txt"));
}

void tst_AnalyzePlan::single_goesIntoTheFolder_data()
{
    QTest::addColumn<QString>("output");
    QTest::newRow("existing") << "out";
    QTest::newRow("existing, named as a folder") << "out/";
    QTest::newRow("new, named as a folder") << "new/";
}

void tst_AnalyzePlan::single_goesIntoTheFolder()
{
    QFETCH(QString, output);
    AnalyzePlan plan;
    QVERIFY(plan.Make(_Options(QStringLiteral("a.wav"), output)));
    QCOMPARE(plan.getFolder(), output);
    QCOMPARE(QFileInfo(plan.getTasks()[0].output).fileName(), QStringLiteral("a.beats.txt"));
}

void tst_AnalyzePlan::names_areDerivedFromTheInput_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("name");
    QTest::newRow("beats") << "dir/song.flac" << int(eBeatsFormat) << "song.beats.txt";
    QTest::newRow("labels") << "song.flac" << int(eLabelsFormat) << "song.labels.txt";
    QTest::newRow("csv") << "song.flac" << int(eCsvFormat) << "song.csv";
    QTest::newRow("svl") << "song.flac" << int(eSvlFormat) << "song.svl";
    QTest::newRow("tempo") << "song.flac" << int(eTempoFormat) << "song.tempo.txt";
    QTest::newRow("json") << "song.flac" << int(eJsonFormat) << "song.json";
    QTest::newRow("ndjson") << "song.flac" << int(eNdjsonFormat) << "song.ndjson";
    QTest::newRow("two dots") << "my.song.flac" << int(eCsvFormat) << "my.song.csv";
    QTest::newRow("no dot") << "song" << int(eCsvFormat) << "song.csv";
    QTest::newRow("dot first") << ".flac" << int(eCsvFormat) << ".flac.csv";
    QTest::newRow("standard input") << "-" << int(eCsvFormat) << "stdin.csv";
}

void tst_AnalyzePlan::names_areDerivedFromTheInput()
{
    QFETCH(QString, input);
    QFETCH(int, format);
    QFETCH(QString, name);
    AnalyzeOptions options = _Options(input, QStringLiteral("out"));
    options.format = eOutputFormat(format);
    AnalyzePlan plan;
    QVERIFY(plan.Make(options));
    QCOMPARE(plan.getTasks()[0].output, QStringLiteral("out/") + name);
}

void tst_AnalyzePlan::several_followEachOther_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("isAccepted");
    QTest::addColumn<bool>("hasHeading");
    QTest::newRow("beats") << int(eBeatsFormat) << true << true;
    QTest::newRow("labels") << int(eLabelsFormat) << false << false;
    QTest::newRow("csv") << int(eCsvFormat) << false << false;
    QTest::newRow("svl") << int(eSvlFormat) << false << false;
    QTest::newRow("tempo") << int(eTempoFormat) << true << true;
    QTest::newRow("json") << int(eJsonFormat) << false << false;
    QTest::newRow("ndjson") << int(eNdjsonFormat) << true << false;
}

void tst_AnalyzePlan::several_followEachOther()
{
    QFETCH(int, format);
    QFETCH(bool, isAccepted);
    QFETCH(bool, hasHeading);
    AnalyzeOptions options = _Options(QStringLiteral("a.wav b.flac"));
    options.format = eOutputFormat(format);
    AnalyzePlan plan;
    QCOMPARE(plan.Make(options), isAccepted);
    QCOMPARE(plan.getError().contains(QLatin1String("use -o DIR")), !isAccepted);
    QCOMPARE(plan.getTasks().size(), std::size_t(isAccepted ? 2 : 0));
    for (const AnalyzeTask& task : plan.getTasks()) {
        QCOMPARE(task.output, QStringLiteral("-"));
        QCOMPARE(task.hasHeading, hasHeading);
        QVERIFY(task.isTagged);
    }
}

void tst_AnalyzePlan::several_goIntoTheFolder()
{
    AnalyzeOptions options = _Options(QStringLiteral("a.wav b.flac"), QStringLiteral("new"));
    options.format = eJsonFormat;
    AnalyzePlan plan;
    QVERIFY(plan.Make(options));
    QCOMPARE(plan.getFolder(), QStringLiteral("new"));
    QCOMPARE(plan.getTasks()[0].output, QStringLiteral("new/a.json"));
    QCOMPARE(plan.getTasks()[1].output, QStringLiteral("new/b.json"));
    QVERIFY(!plan.getTasks()[1].hasHeading);
}

void tst_AnalyzePlan::refusals_sayWhy_data()
{
    QTest::addColumn<QString>("inputs");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("click");
    QTest::addColumn<QString>("plot");
    QTest::addColumn<QString>("words");
    QTest::newRow("standard input twice") << "- -"
                                          << ""
                                          << ""
                                          << ""
                                          << "only once";
    QTest::newRow("empty name") << ""
                                << ""
                                << ""
                                << ""
                                << "empty name";
    QTest::newRow("click of two") << "a.wav b.flac"
                                  << ""
                                  << "c.wav"
                                  << ""
                                  << "one input only";
    QTest::newRow("plot of two") << "a.wav b.flac"
                                 << ""
                                 << ""
                                 << "p.svg"
                                 << "one input only";
    QTest::newRow("plot of another kind") << "a.wav"
                                          << ""
                                          << ""
                                          << "p.gif"
                                          << ".svg or .png";
    QTest::newRow("two into a file") << "a.wav b.flac"
                                     << "old.txt"
                                     << ""
                                     << ""
                                     << "-o DIR";
    QTest::newRow("same name twice") << "a.wav dir/a.flac"
                                     << "out"
                                     << ""
                                     << ""
                                     << "a.wav is written there";
    QTest::newRow("same file twice") << "a.wav ./a.wav"
                                     << "out"
                                     << ""
                                     << ""
                                     << "is written there";
    QTest::newRow("output is the input") << "a.wav"
                                         << "a.wav"
                                         << ""
                                         << ""
                                         << "it is an input";
    QTest::newRow("other spelling of it") << "a.wav"
                                          << "out/../a.wav"
                                          << ""
                                          << ""
                                          << "it is an input";
    QTest::newRow("link to it") << "a.wav"
                                << "link.txt"
                                << ""
                                << ""
                                << "it is an input";
    QTest::newRow("click is the input") << "a.wav"
                                        << ""
                                        << "a.wav"
                                        << ""
                                        << "it is an input";
    QTest::newRow("output is the click") << "a.wav"
                                         << "x.wav"
                                         << "./x.wav"
                                         << ""
                                         << "a.wav is written there";
    QTest::newRow("output is the plot") << "a.wav"
                                        << "p.png"
                                        << ""
                                        << "p.png"
                                        << "a.wav is written there";
}

void tst_AnalyzePlan::refusals_sayWhy()
{
    QFETCH(QString, inputs);
    QFETCH(QString, output);
    QFETCH(QString, click);
    QFETCH(QString, plot);
    QFETCH(QString, words);
    AnalyzeOptions options = _Options(inputs, output);
    options.click = click;
    options.plot = plot;
    AnalyzePlan plan;
    QVERIFY(!plan.Make(options));
    QVERIFY2(plan.getError().contains(words), qPrintable(plan.getError()));
}

void tst_AnalyzePlan::streams_mayBeSharedByOutputs()
{
    AnalyzePlan plan;
    QVERIFY2(plan.Make(_Options(QStringLiteral("a.wav b.flac"), QStringLiteral("/dev/null"))),
             qPrintable(plan.getError()));
    QCOMPARE(plan.getTasks()[1].output, QStringLiteral("/dev/null"));
    QVERIFY(plan.getTasks()[1].hasHeading);
}

void tst_AnalyzePlan::worker_tagsItsEvents()
{
    AnalyzeOptions options = _Options(QStringLiteral("a.wav"));
    options.isWorker = true;
    AnalyzePlan plan;
    QVERIFY(plan.Make(options));
    QVERIFY(plan.getTasks()[0].isTagged);
    QVERIFY(!plan.getTasks()[0].hasHeading);
}

void tst_AnalyzePlan::plan_touchesNothing()
{
    const QStringList before = QDir().entryList(QDir::AllEntries | QDir::Hidden);
    AnalyzePlan plan;
    QVERIFY(plan.Make(_Options(QStringLiteral("a.wav b.flac"), QStringLiteral("new"))));
    QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden), before);
}

AA_TEST(tst_AnalyzePlan, NoApplication)
#include "tst_AnalyzePlan.moc"
