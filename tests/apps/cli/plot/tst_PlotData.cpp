// SPDX-License-Identifier: MIT
#include <cli/plot/detail/PlotData.h>

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>

class tst_PlotData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thinLevels_keepsFewColumns();
    void thinLevels_mergesNeighbours();
    void thinTempos_keepsAShortCurve();
    void thinTempos_keepsTheExtremesOfEachBin();
    void countPerBin_countsEachOnce();
    void countPerBin_countsOutsideAtTheEdges();
    void getTickStep_isRound_data();
    void getTickStep_isRound();
    void getTickStep_neverGivesTooManyTicks();
    void formatTick_fitsTheAxis_data();
    void formatTick_fitsTheAxis();
    void getTempoRange_leavesRoom_data();
    void getTempoRange_leavesRoom();
    void makeTitle_replacesAndShortens_data();
    void makeTitle_replacesAndShortens();
    void quote_isLiteral_data();
    void quote_isLiteral();
};

void tst_PlotData::thinLevels_keepsFewColumns()
{
    const std::vector<LevelTrace::Column> columns = {{0.0, 5, 1}, {1.0, 4, 2}};
    QCOMPARE(cli::thinLevels(columns, 2).size(), std::size_t(2));
    QCOMPARE(cli::thinLevels(columns, 2)[1].level, 4);
    QVERIFY(cli::thinLevels({}, 2).empty());
}

void tst_PlotData::thinLevels_mergesNeighbours()
{
    const std::vector<LevelTrace::Column> columns = {
        {0.0, 5, 1}, {1.0, 4, 2}, {2.0, 3, 0}, {3.0, 7, 0}, {4.0, 1, 9}};
    const auto thinned = cli::thinLevels(columns, 3);
    QCOMPARE(thinned.size(), std::size_t(3));
    QCOMPARE(thinned[0].time, 0.0);
    QCOMPARE(thinned[0].level, 5);
    QCOMPARE(thinned[0].threshold, 2);
    QCOMPARE(thinned[1].time, 2.0);
    QCOMPARE(thinned[1].level, 7);
    QCOMPARE(thinned[1].threshold, 0);
    QCOMPARE(thinned[2].time, 4.0);
    QCOMPARE(thinned[2].threshold, 9);
}

void tst_PlotData::thinTempos_keepsAShortCurve()
{
    const std::vector<TempoPoint> tempos = {{0.0, 100.0}, {0.1, 0.0}, {0.2, 120.0}, {0.3, 110.0}};
    QCOMPARE(cli::thinTempos(tempos, 10.0, 1).size(), std::size_t(4));
}

void tst_PlotData::thinTempos_keepsTheExtremesOfEachBin()
{
    // Two bins of 50 s: rises to 149 and falls to 51 within each.
    std::vector<TempoPoint> tempos;
    for (int i = 0; i < 100; ++i) {
        const int place = i % 50;
        const double bpm = place == 10 ? 149.0 : place == 40 ? 51.0 : 100.0 + place;
        tempos.push_back({double(i), bpm});
    }
    const auto thinned = cli::thinTempos(tempos, 100.0, 2);
    const std::vector<double> times = {0.0, 10.0, 40.0, 49.0, 50.0, 60.0, 90.0, 99.0};
    QCOMPARE(thinned.size(), times.size());
    for (std::size_t i = 0; i < times.size(); ++i) {
        QCOMPARE(thinned[i].time, times[i]);
        QCOMPARE(thinned[i].bpm, tempos[std::size_t(times[i])].bpm);
    }
}

void tst_PlotData::countPerBin_countsEachOnce()
{
    const std::vector<int> expected = {2, 0, 1, 1};
    QCOMPARE(cli::countPerBin({0.0, 0.9, 2.0, 3.999}, 4.0, 4), expected);
}

void tst_PlotData::countPerBin_countsOutsideAtTheEdges()
{
    const std::vector<int> edges = {1, 2};
    QCOMPARE(cli::countPerBin({-5.0, 4.0, 99.0}, 4.0, 2), edges);
    const std::vector<int> nothing = {1, 0};
    QCOMPARE(cli::countPerBin({1.0}, 0.0, 2), nothing);
}

void tst_PlotData::getTickStep_isRound_data()
{
    QTest::addColumn<double>("duration");
    QTest::addColumn<double>("step");
    QTest::newRow("a tenth of a second") << 0.1 << 0.01;
    QTest::newRow("1 s") << 1.0 << 0.1;
    QTest::newRow("10 s") << 10.0 << 1.0;
    QTest::newRow("1 min") << 60.0 << 10.0;
    QTest::newRow("just under 12 steps") << 11.9 << 1.0;
    QTest::newRow("just 12 steps") << 12.0 << 2.0;
    QTest::newRow("4 min") << 240.0 << 30.0;
    QTest::newRow("1 h") << 3600.0 << 600.0;
    QTest::newRow("1 day") << 86400.0 << 14400.0;
    QTest::newRow("30 days") << 30 * 86400.0 << 3 * 86400.0;
}

void tst_PlotData::getTickStep_isRound()
{
    QFETCH(double, duration);
    QFETCH(double, step);
    QCOMPARE(cli::getTickStep(duration, 12), step);
}

void tst_PlotData::getTickStep_neverGivesTooManyTicks()
{
    for (double duration = 0.02; duration < 1e8; duration *= 1.07) {
        const int ticks = int(duration / cli::getTickStep(duration, 12)) + 1;
        QVERIFY2(ticks >= 2 && ticks <= 13, qPrintable(QString::number(duration)));
    }
}

void tst_PlotData::formatTick_fitsTheAxis_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<double>("duration");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("length");
    const auto add = [](double pTime, double pDuration, const char* pLabel, const char* pLength) {
        QTest::addRow("%g of %g", pTime, pDuration)
            << pTime << pDuration << QString::fromLatin1(pLabel) << QString::fromLatin1(pLength);
    };
    add(0.3, 1.0, "0.3", "1.0 s");
    add(100.0, 119.0, "100", "119.0 s");
    add(90.0, 120.0, "1:30", "2:00");
    add(3599.0, 3599.4, "59:59", "59:59");
    add(600.0, 3600.0, "0:10:00", "1:00:00");
    add(36061.0, 40000.0, "10:01:01", "11:06:40");
}

void tst_PlotData::formatTick_fitsTheAxis()
{
    QFETCH(double, time);
    QFETCH(double, duration);
    QFETCH(QString, label);
    QFETCH(QString, length);
    QCOMPARE(cli::formatTick(time, duration), label);
    QCOMPARE(cli::formatLength(duration), length);
    const QString unit = cli::getTimeUnit(duration);
    QCOMPARE(unit.count(QLatin1Char(':')), label.count(QLatin1Char(':')));
}

void tst_PlotData::getTempoRange_leavesRoom_data()
{
    QTest::addColumn<QVector<double>>("tempos");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<bool>("isKnown");
    QTest::newRow("none") << QVector<double>() << 60.0 << 180.0 << false;
    QTest::newRow("unknown") << QVector<double>{0.0, 0.0} << 60.0 << 180.0 << false;
    QTest::newRow("one") << QVector<double>{0.0, 128.0} << 123.0 << 133.0 << true;
    QTest::newRow("narrow") << QVector<double>{127.0, 0.0, 129.0} << 123.0 << 133.0 << true;
    QTest::newRow("wide") << QVector<double>{80.0, 160.0} << 72.0 << 168.0 << true;
}

void tst_PlotData::getTempoRange_leavesRoom()
{
    QFETCH(QVector<double>, tempos);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(bool, isKnown);
    std::vector<TempoPoint> points;
    for (const double tempo : tempos)
        points.push_back({0.0, tempo});
    const cli::TempoRange range = cli::getTempoRange(points);
    QCOMPARE(range.minimum, minimum);
    QCOMPARE(range.maximum, maximum);
    QCOMPARE(range.isKnown, isKnown);
}

void tst_PlotData::makeTitle_replacesAndShortens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << QStringLiteral("a_b%c") << QStringLiteral("a_b%c");
    QTest::newRow("accents") << QStringLiteral("\u00e9\u65e5") << QStringLiteral("\u00e9\u65e5");
    QTest::newRow("line breaks") << QStringLiteral("a\nb\rc\t")
                                 << QStringLiteral("a\ufffdb\ufffdc\ufffd");
    QTest::newRow("controls") << QStringLiteral("a\u0001\u0085b")
                              << QStringLiteral("a\ufffd\ufffdb");
    QTest::newRow("end of CDATA") << QStringLiteral("a]]>b") << QStringLiteral("a]] >b");
    QTest::newRow("half a pair") << QString(QChar(0xd800)) << QStringLiteral("\ufffd");
    QTest::newRow("no character") << QString(QChar(0xffff)) << QStringLiteral("\ufffd");
    QTest::newRow("a pair") << QStringLiteral("\U0001F3B5") << QStringLiteral("\U0001F3B5");
    QTest::newRow("just fits") << QStringLiteral("0123456789") << QStringLiteral("0123456789");
    QTest::newRow("too long") << QStringLiteral("0123456789A") << QStringLiteral("01234\u2026789A");
}

void tst_PlotData::makeTitle_replacesAndShortens()
{
    QFETCH(QString, text);
    QFETCH(QString, title);
    QCOMPARE(cli::makeTitle(text, 10), title);
}

void tst_PlotData::quote_isLiteral_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("quoted");
    QTest::newRow("empty") << QString() << QByteArray("''");
    QTest::newRow("plain") << QStringLiteral("a b") << QByteArray("'a b'");
    QTest::newRow("quotes") << QStringLiteral("it's") << QByteArray("'it'.\"'\".'s'");
    QTest::newRow("only quotes") << QStringLiteral("''") << QByteArray("''.\"'\".''.\"'\".''");
    QTest::newRow("backslash") << QStringLiteral("a\\n") << QByteArray("'a\\n'");
    QTest::newRow("UTF-8") << QStringLiteral("\u00e9") << QByteArray("'\xc3\xa9'");
}

void tst_PlotData::quote_isLiteral()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, quoted);
    QCOMPARE(cli::quote(text), quoted);
}

AA_TEST(tst_PlotData, NoApplication)
#include "tst_PlotData.moc"
