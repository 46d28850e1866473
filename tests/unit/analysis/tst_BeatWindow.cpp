// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatWindow.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_BeatWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowAfterBeat_runsFromFourBlocksBeforeToSixAfter_data();
    void windowAfterBeat_runsFromFourBlocksBeforeToSixAfter();
    void firstWindow_isOneSlowestBeatFromThePosition();
};

void tst_BeatWindow::windowAfterBeat_runsFromFourBlocksBeforeToSixAfter_data()
{
    QTest::addColumn<quint64>("lastBeat");
    QTest::addColumn<quint64>("beatLength");
    QTest::addColumn<quint64>("blockSize");
    QTest::addColumn<quint64>("nextBeat");
    QTest::addColumn<quint64>("start");
    QTest::addColumn<quint64>("end");

    QTest::newRow("44100 Hz") << quint64(100000) << quint64(20000) << quint64(1024)
                              << quint64(120000) << quint64(115904) << quint64(126144);
    QTest::newRow("8000 Hz") << quint64(4000) << quint64(4000) << quint64(128) << quint64(8000)
                             << quint64(7488) << quint64(8768);
    QTest::newRow("beat shorter than four blocks")
        << quint64(10000) << quint64(3000) << quint64(1024) << quint64(13000) << quint64(8904)
        << quint64(19144);
    QTest::newRow("beyond 32 bits")
        << Q_UINT64_C(4294967296) << quint64(22050) << quint64(1024) << Q_UINT64_C(4294989346)
        << Q_UINT64_C(4294985250) << Q_UINT64_C(4294995490);
    // 300 - 4096 is unsigned: 2^64 - 3796.
    QTest::newRow("start before zero wraps")
        << quint64(100) << quint64(200) << quint64(1024) << quint64(300)
        << Q_UINT64_C(18446744073709547820) << quint64(6444);
}

void tst_BeatWindow::windowAfterBeat_runsFromFourBlocksBeforeToSixAfter()
{
    QFETCH(quint64, lastBeat);
    QFETCH(quint64, beatLength);
    QFETCH(quint64, blockSize);
    const detail::BeatWindow window = detail::WindowAfterBeat(lastBeat, beatLength, blockSize);
    QTEST(window.nextBeat, "nextBeat");
    QTEST(window.start, "start");
    QTEST(window.end, "end");
}

void tst_BeatWindow::firstWindow_isOneSlowestBeatFromThePosition()
{
    const detail::BeatWindow window = detail::FirstWindow(5000, 19970, 29400);
    QCOMPARE(window.start, quint64(5000));
    QCOMPARE(window.nextBeat, quint64(24970));
    QCOMPARE(window.end, quint64(34400));
}

AA_TEST(tst_BeatWindow, NoApplication)
#include "tst_BeatWindow.moc"
