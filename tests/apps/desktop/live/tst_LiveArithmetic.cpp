// SPDX-License-Identifier: MIT
#include <desktop/live/detail/Decibels.h>
#include <desktop/live/detail/Flash.h>
#include <desktop/live/detail/SpectrumBands.h>
#include <desktop/live/detail/TempoHint.h>
#include <desktop/session/detail/ShownTempo.h>
#include <desktop/session/detail/TempoSpan.h>

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

/// The numbers behind what the live panels show.
class tst_LiveArithmetic : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shownTempo_doesNotTremble();
    void tempoHint_saysWhatFitsTheRange_data();
    void tempoHint_saysWhatFitsTheRange();
    void tempoSpan_isTheMeanInterval();
    void tempoSpan_isUnknown_withFewBeats();
    void tempoSpan_forgetsOldBeats();
    void tempoSpan_beginsAnew_whenIndexesDo();
    void decibels_areOfFullScale_data();
    void decibels_areOfFullScale();
    void magnitude_isTheNearest();
    void flash_fadesInSteps_data();
    void flash_fadesInSteps();
    void bandEdges_areLogarithmic();
    void power_isShownWithinLimits_data();
    void power_isShownWithinLimits();
    void bins_areThoseWithinTheBand_data();
    void bins_areThoseWithinTheBand();
    void bars_shareNoBins();
    void bars_endWithTheSpectrum();
};

void tst_LiveArithmetic::shownTempo_doesNotTremble()
{
    desktop::ShownTempo tempo;
    QCOMPARE(tempo.Show(0.0, false), 0.0);
    QCOMPARE(tempo.Show(128.04, false), 128.0);
    for (const double heard : {128.06, 128.09, 127.91, 128.0})
        QCOMPARE(tempo.Show(heard, false), 128.0);
    QCOMPARE(tempo.Show(128.11, false), 128.1);
    QCOMPARE(tempo.Show(64.06, false), 64.1);
    // What a hand sets is shown as it is.
    QCOMPARE(tempo.Show(64.12, true), 64.12);
    QCOMPARE(tempo.Show(0.0, false), 0.0);
}

void tst_LiveArithmetic::tempoHint_saysWhatFitsTheRange_data()
{
    QTest::addColumn<double>("measured");
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("bpm");
    QTest::newRow("unknown") << 0.0 << int(desktop::eNoHint) << 0.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN()
                                  << int(desktop::eNoHint) << 0.0;
    QTest::newRow("inside") << 128.0 << int(desktop::eNoHint) << 0.0;
    QTest::newRow("lower edge") << 90.0 << int(desktop::eNoHint) << 0.0;
    QTest::newRow("upper edge") << 175.0 << int(desktop::eNoHint) << 0.0;
    QTest::newRow("a little below") << 89.7 << int(desktop::eNoHint) << 0.0;
    QTest::newRow("below") << 84.2 << int(desktop::eDoubleHint) << 168.4;
    QTest::newRow("above") << 200.0 << int(desktop::eHalfHint) << 100.0;
    QTest::newRow("far above") << 400.0 << int(desktop::eOutsideHint) << 0.0;
    QTest::newRow("far below") << 40.0 << int(desktop::eOutsideHint) << 0.0;
}

void tst_LiveArithmetic::tempoHint_saysWhatFitsTheRange()
{
    QFETCH(double, measured);
    QFETCH(int, kind);
    QFETCH(double, bpm);
    const desktop::TempoHint hint = desktop::FindTempoHint(measured, 90.0, 175.0);
    QCOMPARE(int(hint.kind), kind);
    QCOMPARE(hint.bpm, bpm);
}

void tst_LiveArithmetic::tempoSpan_isTheMeanInterval()
{
    desktop::TempoSpan span;
    // 22050 samples at 44100 Hz are half a second: 120 BPM.
    for (quint64 beat = 1; beat <= 6; ++beat)
        span.Add(beat * 22050, 441000);
    QCOMPARE(span.getBPM(44100), 120.0);
}

void tst_LiveArithmetic::tempoSpan_isUnknown_withFewBeats()
{
    desktop::TempoSpan span;
    for (quint64 beat = 1; beat <= 4; ++beat) {
        span.Add(beat * 22050, 441000);
        QCOMPARE(span.getBPM(44100), 0.0);
    }
    span.Add(5 * 22050, 441000);
    QCOMPARE(span.getBPM(44100), 120.0);
    span.Clear();
    QCOMPARE(span.getBPM(44100), 0.0);
}

void tst_LiveArithmetic::tempoSpan_forgetsOldBeats()
{
    desktop::TempoSpan span;
    for (quint64 beat = 1; beat <= 5; ++beat)
        span.Add(beat * 44100, 441000);  // 60 BPM
    QCOMPARE(span.getBPM(44100), 60.0);
    for (quint64 beat = 1; beat <= 20; ++beat)
        span.Add(5 * 44100 + beat * 22050, 441000);  // ten seconds of 120 BPM
    QCOMPARE(span.getBPM(44100), 120.0);
}

void tst_LiveArithmetic::tempoSpan_beginsAnew_whenIndexesDo()
{
    desktop::TempoSpan span;
    for (quint64 beat = 1; beat <= 5; ++beat)
        span.Add(beat * 22050, 441000);
    span.Add(100, 441000);
    QCOMPARE(span.getBPM(44100), 0.0);
}

void tst_LiveArithmetic::decibels_areOfFullScale_data()
{
    QTest::addColumn<int>("magnitude");
    QTest::addColumn<double>("decibels");
    QTest::newRow("full scale") << 32767 << 0.0;
    QTest::newRow("beyond") << 32768 << 0.0;
    QTest::newRow("half") << 16384 << -6.02;
    QTest::newRow("a tenth") << 3277 << -20.0;
    QTest::newRow("least") << 33 << -59.94;
    QTest::newRow("less") << 20 << -60.0;
    QTest::newRow("silence") << 0 << -60.0;
    QTest::newRow("none") << -1 << -60.0;
}

void tst_LiveArithmetic::decibels_areOfFullScale()
{
    QFETCH(int, magnitude);
    QFETCH(double, decibels);
    QVERIFY(std::abs(desktop::ToDecibels(magnitude) - decibels) < 0.01);
}

void tst_LiveArithmetic::magnitude_isTheNearest()
{
    QCOMPARE(desktop::ToMagnitude(0.0), qint16(32767));
    QCOMPARE(desktop::ToMagnitude(6.0), qint16(32767));
    QCOMPARE(desktop::ToMagnitude(-20.0), qint16(3277));
    QCOMPARE(desktop::ToMagnitude(-60.0), qint16(33));
    QCOMPARE(desktop::ToMagnitude(-99.0), qint16(33));
}

void tst_LiveArithmetic::flash_fadesInSteps_data()
{
    QTest::addColumn<qint64>("elapsed");
    QTest::addColumn<int>("step");
    QTest::newRow("at once") << qint64(0) << 16;
    QTest::newRow("half way") << qint64(40) << 8;
    QTest::newRow("last") << qint64(75) << 1;
    QTest::newRow("over") << qint64(80) << 0;
    QTest::newRow("long over") << qint64(1000000) << 0;
    QTest::newRow("to come") << qint64(-1) << 0;
}

void tst_LiveArithmetic::flash_fadesInSteps()
{
    QFETCH(qint64, elapsed);
    QFETCH(int, step);
    QCOMPARE(desktop::FlashStep(elapsed, 80), step);
}

void tst_LiveArithmetic::bandEdges_areLogarithmic()
{
    const std::vector<double> edges = desktop::BandEdges(10.0, 10000.0, 3);
    QCOMPARE(edges.size(), std::size_t(4));
    QCOMPARE(edges[0], 10.0);
    QVERIFY(std::abs(edges[1] - 100.0) < 1e-9);
    QVERIFY(std::abs(edges[2] - 1000.0) < 1e-9);
    QVERIFY(std::abs(edges[3] - 10000.0) < 1e-6);
}

void tst_LiveArithmetic::power_isShownWithinLimits_data()
{
    QTest::addColumn<double>("power");
    QTest::addColumn<double>("decibels");
    QTest::newRow("loudest") << 1.0 << 0.0;
    QTest::newRow("a hundredth") << 0.01 << -20.0;
    QTest::newRow("floor") << 1e-9 << -60.0;
    QTest::newRow("nothing") << 0.0 << -60.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << -60.0;
}

void tst_LiveArithmetic::power_isShownWithinLimits()
{
    QFETCH(double, power);
    QFETCH(double, decibels);
    QCOMPARE(desktop::PowerDecibels(power, -60.0), decibels);
}

void tst_LiveArithmetic::bins_areThoseWithinTheBand_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    // Bins of 50 Hz, ten of them.
    QTest::newRow("three bins") << 100.0 << 250.0 << 2 << 4;
    QTest::newRow("begun ones") << 120.0 << 270.0 << 3 << 5;
    QTest::newRow("within one bin") << 60.0 << 70.0 << 1 << 1;
    QTest::newRow("first bin") << 10.0 << 20.0 << 0 << 0;
    QTest::newRow("across an edge") << 90.0 << 110.0 << 2 << 2;
    QTest::newRow("beyond the end") << 450.0 << 900.0 << 9 << 9;
}

void tst_LiveArithmetic::bins_areThoseWithinTheBand()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(int, first);
    QFETCH(int, last);
    const desktop::BinRange range = desktop::BinsOfBand(low, high, 50.0, 10);
    QCOMPARE(int(range.first), first);
    QCOMPARE(int(range.last), last);
}

void tst_LiveArithmetic::bars_shareNoBins()
{
    const std::vector<double> edges = desktop::BandEdges(30.0, 16000.0, 60);
    const std::vector<desktop::SpectrumBar> bars = desktop::MakeBars(edges, 43.06640625, 512);
    QVERIFY(bars.size() > 30);
    QCOMPARE(bars.front().low, 30.0);
    QCOMPARE(bars.back().high, edges.back());
    for (std::size_t i = 1; i < bars.size(); ++i) {
        QCOMPARE(bars[i].low, bars[i - 1].high);
        const bool isSame = bars[i].bins.first == bars[i - 1].bins.first &&
                            bars[i].bins.last == bars[i - 1].bins.last;
        QVERIFY(!isSame);
    }
}

void tst_LiveArithmetic::bars_endWithTheSpectrum()
{
    // 8000 Hz: nothing lies above 4000 Hz.
    const std::vector<double> edges = desktop::BandEdges(30.0, 16000.0, 60);
    const std::vector<desktop::SpectrumBar> bars = desktop::MakeBars(edges, 62.5, 64);
    QVERIFY(bars.back().low < 4000.0);
    QVERIFY(bars.back().high >= 4000.0);
    QCOMPARE(bars.back().bins.last, std::size_t(63));
}

AA_TEST(tst_LiveArithmetic, NoApplication)
#include "tst_LiveArithmetic.moc"
