// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_RecordingTempo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isTheMedianOfTheRealBeats_data();
    void tempo_isTheMedianOfTheRealBeats();
    void firstTenSeconds_countOnlyForWantOfLaterOnes_data();
    void firstTenSeconds_countOnlyForWantOfLaterOnes();
};

using Tempos = std::vector<double>;

void tst_RecordingTempo::tempo_isTheMedianOfTheRealBeats_data()
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

void tst_RecordingTempo::tempo_isTheMedianOfTheRealBeats()
{
    QFETCH(Tempos, real);
    QFETCH(Tempos, virtuals);
    QFETCH(double, tempo);
    std::vector<RecordingTempo::Report> beats;
    for (const double bpm : real)
        beats.push_back({0.0, bpm, false});
    for (const double bpm : virtuals)
        beats.push_back({0.0, bpm, true});
    QCOMPARE(RecordingTempo::Compute(beats), tempo);
}

void tst_RecordingTempo::firstTenSeconds_countOnlyForWantOfLaterOnes_data()
{
    QTest::addColumn<Tempos>("times");
    QTest::addColumn<double>("tempo");
    // The tempos are 100, 101, 102, 103.
    QTest::newRow("all at once") << Tempos{0, 1, 2, 3} << 101.0;
    QTest::newRow("one later") << Tempos{0, 1, 2, 10} << 103.0;
    QTest::newRow("not quite later") << Tempos{0, 1, 2, 9.99} << 101.0;
    QTest::newRow("two later") << Tempos{5, 14, 15, 16} << 102.0;
    QTest::newRow("counted from the first real beat") << Tempos{60, 61, 62, 63} << 101.0;
}

void tst_RecordingTempo::firstTenSeconds_countOnlyForWantOfLaterOnes()
{
    QFETCH(Tempos, times);
    QFETCH(double, tempo);
    std::vector<RecordingTempo::Report> beats;
    for (const double time : times)
        beats.push_back({time, 100.0 + double(beats.size()), false});
    QCOMPARE(RecordingTempo::Compute(beats), tempo);
    // Neither an earlier nor a later virtual beat changes anything.
    beats.insert(beats.begin(), {-20.0, 200.0, true});
    beats.push_back({100.0, 200.0, true});
    QCOMPARE(RecordingTempo::Compute(beats), tempo);
}

AA_TEST(tst_RecordingTempo, QCoreApplication)
#include "tst_RecordingTempo.moc"
