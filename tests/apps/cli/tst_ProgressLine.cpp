// SPDX-License-Identifier: MIT
#include <cli/analyze/TotalProgress.h>
#include <cli/detail/ProgressLine.h>

#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <support/TestClass.h>

class tst_ProgressLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clock_showsMinutesOrHours_data();
    void clock_showsMinutesOrHours();
    void line_isLabelBarPercentTimeLeft_data();
    void line_isLabelBarPercentTimeLeft();
    void line_fitsTheTerminal();
    void line_showsAudioDone_whenTheLengthIsUnknown();
    void totalProgress_weighsFilesBySize();
};

void tst_ProgressLine::clock_showsMinutesOrHours_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0.0 << "0:00";
    QTest::newRow("negative") << -3.0 << "0:00";
    QTest::newRow("rounds") << 59.5 << "1:00";
    QTest::newRow("minutes") << 605.0 << "10:05";
    QTest::newRow("just below an hour") << 3599.0 << "59:59";
    QTest::newRow("hours") << 7384.0 << "2:03:04";
}

void tst_ProgressLine::clock_showsMinutesOrHours()
{
    QFETCH(double, seconds);
    QFETCH(QString, text);
    QCOMPARE(cli::Clock(seconds), text);
}

void tst_ProgressLine::line_isLabelBarPercentTimeLeft_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<double>("elapsed");
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing yet") << 0.0 << 1.0 << "a.wav [........................]   0 %";
    QTest::newRow("a quarter after 10 s")
        << 0.25 << 10.0 << "a.wav [######..................]  25 %  0:30 left";
    QTest::newRow("half after a minute")
        << 0.5 << 60.0 << "a.wav [############............]  50 %  1:00 left";
    QTest::newRow("nearly done") << 0.999 << 100.0
                                 << "a.wav [#######################.]  99 %  0:00 left";
    QTest::newRow("done") << 1.0 << 5.0 << "a.wav [########################] 100 %  0:00 left";
    QTest::newRow("beyond") << 1.7 << 5.0 << "a.wav [########################] 100 %  0:00 left";
    QTest::newRow("before") << -0.5 << 5.0 << "a.wav [........................]   0 %";
}

void tst_ProgressLine::line_isLabelBarPercentTimeLeft()
{
    QFETCH(double, fraction);
    QFETCH(double, elapsed);
    QFETCH(QString, line);
    QCOMPARE(cli::ProgressLine(QStringLiteral("a.wav"), fraction, elapsed, 79), line);
}

void tst_ProgressLine::line_fitsTheTerminal()
{
    const QString label = QStringLiteral("a/very/long/path/to/the/song.flac");
    // " [" 24 "] 50 %" takes 33 characters, "  0:01 left" 11: 16 are left for the label.
    QCOMPARE(cli::ProgressLine(label, 0.5, 1.0, 60),
             QStringLiteral("...the/song.flac [############............]  50 %  0:01 left"));
    for (const int columns : {20, 21, 40, 45, 50, 79, 200})
        QVERIFY(cli::ProgressLine(label, 0.5, 1.0, columns).size() <= columns);
    QVERIFY(cli::ProgressLine(label, 0.5, 1.0, 0).size() <= 20);
}

void tst_ProgressLine::line_showsAudioDone_whenTheLengthIsUnknown()
{
    QCOMPARE(cli::ProgressLine(QStringLiteral("-"), 75.0, 79), QStringLiteral("- 1:15 analysed"));
}

void tst_ProgressLine::totalProgress_weighsFilesBySize()
{
    QTemporaryDir folder;
    const QString small = folder.filePath(QStringLiteral("small"));
    const QString big = folder.filePath(QStringLiteral("big"));
    QVERIFY(testaudio::WriteBytes(small, QByteArray(100, 'x')));
    QVERIFY(testaudio::WriteBytes(big, QByteArray(300, 'x')));
    TotalProgress progress({small, big});
    QCOMPARE(progress.getFraction(), 0.0);
    progress.Set(0, 1.0);
    QCOMPARE(progress.getFraction(), 0.25);
    progress.Set(1, 0.5);
    QCOMPARE(progress.getFraction(), 0.625);
    TotalProgress unknown({folder.filePath(QStringLiteral("none")), QStringLiteral("-")});
    unknown.Set(1, 1.0);
    QCOMPARE(unknown.getFraction(), 0.5);
    QCOMPARE(TotalProgress({}).getFraction(), 0.0);
}

AA_TEST(tst_ProgressLine, NoApplication)
#include "tst_ProgressLine.moc"
