// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/RecordingTempo.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

class tst_RecordingTempo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isTheMedianOfTheRealBeats_data();
    void tempo_isTheMedianOfTheRealBeats();
    void firstTenSeconds_countOnlyForWantOfLaterOnes_data();
    void firstTenSeconds_countOnlyForWantOfLaterOnes();
    void rows_ofNineBeatsMakeTheTempo_data();
    void rows_ofNineBeatsMakeTheTempo();
    void rows_ofTheFirstTenSeconds_countOnlyForWantOfOthers();
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

void tst_RecordingTempo::rows_ofNineBeatsMakeTheTempo_data()
{
    QTest::addColumn<Tempos>("intervals");  // seconds
    QTest::addColumn<double>("tempo");
    // Every beat was reported with 100 BPM, whose interval is 0.6 s.
    const Tempos eight(8, 0.5);
    Tempos broken(16, 0.5);
    broken[8] = 0.901;
    Tempos late(16, 0.5);
    late[8] = 0.899;
    QTest::newRow("no beats") << Tempos{} << 0.0;
    QTest::newRow("no row") << Tempos(7, 0.5) << 100.0;
    QTest::newRow("one row") << eight << 120.0;
    QTest::newRow("unsteady, 4.8 s for eight") << Tempos{.5, .7, .5, .7, .6, .6, .5, .7} << 100.0;
    QTest::newRow("a break: one row before it, none that holds it") << broken << 120.0;
    // Of nine rows the first makes 4 s, the other eight 4.399 s; of those of the first ten seconds.
    QTest::newRow("no break") << late << 60.0 * 8 / 4.399;
}

void tst_RecordingTempo::rows_ofNineBeatsMakeTheTempo()
{
    QFETCH(Tempos, intervals);
    QFETCH(double, tempo);
    std::vector<RecordingTempo::Report> beats;
    double time = 3.0;
    for (const double interval : intervals) {
        beats.push_back({time, 100.0, false});
        time += interval;
    }
    if (!intervals.empty())
        beats.push_back({time, 100.0, false});
    const double computed = RecordingTempo::ComputeFromTimes(beats);
    QVERIFY2(std::fabs(computed - tempo) < 1e-9, qPrintable(QString::number(computed, 'g', 12)));
}

// Twenty beats of half a second, then ten of 0.4 s: the rows from the tenth second on are the
// latter's, 150 BPM, and for want of them it is the former's.
void tst_RecordingTempo::rows_ofTheFirstTenSeconds_countOnlyForWantOfOthers()
{
    std::vector<RecordingTempo::Report> beats;
    for (int i = 0; i < 20; ++i)
        beats.push_back({i * 0.5, 100.0, false});
    QVERIFY(std::fabs(RecordingTempo::ComputeFromTimes(beats) - 120.0) < 1e-9);
    for (int i = 0; i < 10; ++i)
        beats.push_back({10.0 + i * 0.4, 100.0, false});
    QVERIFY(std::fabs(RecordingTempo::ComputeFromTimes(beats) - 150.0) < 1e-9);
}

AA_TEST(tst_RecordingTempo, QCoreApplication)
#include "tst_RecordingTempo.moc"
