// SPDX-License-Identifier: MIT
#include <cli/output/OverallTempo.h>

#include <QtTest>

class tst_OverallTempo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void overallTempo_isTheMedianOfTheRealBeats_data();
    void overallTempo_isTheMedianOfTheRealBeats();
    void firstTenSeconds_countOnlyForWantOfLaterOnes_data();
    void firstTenSeconds_countOnlyForWantOfLaterOnes();
};

using Tempos = std::vector<double>;

void tst_OverallTempo::overallTempo_isTheMedianOfTheRealBeats_data()
{
    QTest::addColumn<Tempos>("real");
    QTest::addColumn<Tempos>("virtuals");
    QTest::addColumn<double>("tempo");
    QTest::newRow("no beats") << Tempos{} << Tempos{} << 0.0;
    QTest::newRow("one") << Tempos{120.5} << Tempos{} << 120.5;
    QTest::newRow("odd number, any order") << Tempos{130, 90, 120} << Tempos{} << 120.0;
    QTest::newRow("even number: the lower middle")
        << Tempos{140, 90, 128, 120} << Tempos{} << 120.0;
    QTest::newRow("unknown ones do not count") << Tempos{0, 0, 0, 128} << Tempos{} << 128.0;
    QTest::newRow("outliers do not move it") << Tempos{128, 128, 90, 175, 128} << Tempos{} << 128.0;
    QTest::newRow("virtual beats do not count") << Tempos{128} << Tempos{90, 91, 92} << 128.0;
    QTest::newRow("but for want of real ones") << Tempos{} << Tempos{90, 91, 92} << 91.0;
    QTest::newRow("or of known ones") << Tempos{0} << Tempos{90} << 90.0;
    QTest::newRow("all unknown") << Tempos{0} << Tempos{0} << 0.0;
}

void tst_OverallTempo::overallTempo_isTheMedianOfTheRealBeats()
{
    QFETCH(Tempos, real);
    QFETCH(Tempos, virtuals);
    QFETCH(double, tempo);
    std::vector<LoggedBeat> beats;
    for (const double bpm : real)
        beats.push_back({beats.size(), 0.0, false, 0, 1.0, bpm});
    for (const double bpm : virtuals)
        beats.push_back({beats.size(), 0.0, true, 0, 1.0, bpm});
    QCOMPARE(cli::OverallTempo(beats), tempo);
}

void tst_OverallTempo::firstTenSeconds_countOnlyForWantOfLaterOnes_data()
{
    QTest::addColumn<Tempos>("times");
    QTest::addColumn<double>("tempo");
    // The tempos are 100, 101, 102, 103.
    QTest::newRow("all at once") << Tempos{0, 1, 2, 3} << 101.0;
    QTest::newRow("one later") << Tempos{0, 1, 2, 10} << 103.0;
    QTest::newRow("not quite later") << Tempos{0, 1, 2, 9.99} << 101.0;
    QTest::newRow("two later") << Tempos{5, 14, 15, 16} << 102.0;
    QTest::newRow("counted from the first beat") << Tempos{60, 61, 62, 63} << 101.0;
}

void tst_OverallTempo::firstTenSeconds_countOnlyForWantOfLaterOnes()
{
    QFETCH(Tempos, times);
    QFETCH(double, tempo);
    std::vector<LoggedBeat> beats;
    for (const double time : times)
        beats.push_back({beats.size(), time, false, 0, 1.0, 100.0 + double(beats.size())});
    QCOMPARE(cli::OverallTempo(beats), tempo);
    // A later virtual beat does not settle anything.
    beats.push_back({beats.size(), 100.0, true, 0, 1.0, 200.0});
    QCOMPARE(cli::OverallTempo(beats), tempo);
}

QTEST_APPLESS_MAIN(tst_OverallTempo)
#include "tst_OverallTempo.moc"
