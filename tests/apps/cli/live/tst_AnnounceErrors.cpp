// SPDX-License-Identifier: MIT
#include <cli/live/detail/AnnounceErrors.h>
#include <cli/live/detail/TempoMedian.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>
#include <vector>

using cli::AnnounceErrors;
using cli::AnnounceStatistics;

namespace {

constexpr quint64 kBeat = 500000;  // µs

/// Beats every half second from 1 s on, each announced with an error in ms; nan = not at all.
AnnounceStatistics Measure(const std::vector<double>& pErrors)
{
    AnnounceErrors errors;
    quint64 arrival = 1000000;
    for (const double error : pErrors) {
        if (!std::isnan(error))
            errors.AddAnnouncement(quint64(double(arrival) + error * 1000.0));
        errors.AddBeat(arrival);
        arrival += kBeat;
    }
    errors.AddBeat(arrival);
    return errors.getStatistics();
}

const double kNone = std::nan("");

}  // namespace

class tst_AnnounceErrors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statistics_areThoseOfTheErrors_data();
    void statistics_areThoseOfTheErrors();
    void announcement_mayComeAfterTheBeatIsKnown();
    void announcement_servesOneBeatOnly();
    void announcement_isNotPaired_moreThanHalfABeatAway();
    void interruption_endsThePairing();
    void announcementsWithoutBeats_areForgotten();
    void tempoMedian_isTheMiddleOne_data();
    void tempoMedian_isTheMiddleOne();
};

void tst_AnnounceErrors::statistics_areThoseOfTheErrors_data()
{
    QTest::addColumn<std::vector<double>>("errors");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("missing");
    QTest::addColumn<double>("median");
    QTest::addColumn<double>("deviation");
    QTest::addColumn<double>("most");
    using E = std::vector<double>;
    QTest::newRow("none") << E{} << 0 << 0 << 0.0 << 0.0 << 0.0;
    QTest::newRow("on time") << E{0, 0, 0} << 3 << 0 << 0.0 << 0.0 << 0.0;
    QTest::newRow("early") << E{-10, -20, -60} << 3 << 0 << -20.0 << std::sqrt(1400.0 / 3) << 60.0;
    QTest::newRow("even") << E{-10, 10, 20, 40} << 4 << 0 << 15.0 << std::sqrt(325.0) << 40.0;
    QTest::newRow("missing") << E{5, kNone, 5, kNone, kNone, 5} << 3 << 3 << 5.0 << 0.0 << 5.0;
    // Of twenty errors one may be greater.
    E twenty(19, -3);
    twenty.insert(twenty.begin() + 7, 70);
    QTest::newRow("95 %") << twenty << 20 << 0 << -3.0 << 73.0 * std::sqrt(19.0) / 20.0 << 3.0;
    // Before the first announcement the tempo is still searched for.
    QTest::newRow("searching") << E{kNone, kNone, 5, 7} << 2 << 0 << 6.0 << 1.0 << 7.0;
}

void tst_AnnounceErrors::statistics_areThoseOfTheErrors()
{
    QFETCH(std::vector<double>, errors);
    const AnnounceStatistics statistics = Measure(errors);
    QTEST(int(statistics.count), "count");
    QTEST(int(statistics.missing), "missing");
    QFETCH(double, median);
    QFETCH(double, deviation);
    QFETCH(double, most);
    QVERIFY(std::fabs(statistics.median - median) < 1e-9);
    QVERIFY(std::fabs(statistics.deviation - deviation) < 1e-9);
    QVERIFY(std::fabs(statistics.most - most) < 1e-9);
}

void tst_AnnounceErrors::announcement_mayComeAfterTheBeatIsKnown()
{
    AnnounceErrors errors;
    errors.AddBeat(1000000);
    errors.AddAnnouncement(1200000);
    QCOMPARE(errors.getStatistics().count, std::size_t(0));
    errors.AddBeat(1500000);
    QCOMPARE(errors.getStatistics().count, std::size_t(1));
    QCOMPARE(errors.getStatistics().median, 200.0);
}

void tst_AnnounceErrors::announcement_servesOneBeatOnly()
{
    AnnounceErrors errors;
    errors.AddAnnouncement(1000000);
    errors.AddBeat(1000000);
    errors.AddBeat(1001000);
    errors.AddBeat(1002000);
    QCOMPARE(errors.getStatistics().count, std::size_t(1));
    QCOMPARE(errors.getStatistics().missing, std::size_t(1));
}

void tst_AnnounceErrors::announcement_isNotPaired_moreThanHalfABeatAway()
{
    AnnounceErrors errors;
    errors.AddAnnouncement(700000);
    errors.AddBeat(1000000);
    errors.AddBeat(1500000);
    QCOMPARE(errors.getStatistics().count, std::size_t(0));
}

void tst_AnnounceErrors::interruption_endsThePairing()
{
    AnnounceErrors errors;
    errors.AddAnnouncement(1000000);
    errors.AddBeat(1000000);
    errors.Interrupt();
    errors.AddBeat(9000000);
    errors.AddBeat(9500000);
    QCOMPARE(errors.getStatistics().count, std::size_t(0));
    QCOMPARE(errors.getStatistics().missing, std::size_t(0));
}

void tst_AnnounceErrors::announcementsWithoutBeats_areForgotten()
{
    AnnounceErrors errors;
    for (quint64 i = 0; i < 100000; ++i)
        errors.AddAnnouncement(i * kBeat);
    QVERIFY(errors.m_announcements.size() <= 64);
}

void tst_AnnounceErrors::tempoMedian_isTheMiddleOne_data()
{
    QTest::addColumn<std::vector<double>>("tempos");
    QTest::addColumn<double>("median");
    using T = std::vector<double>;
    QTest::newRow("none") << T{} << 0.0;
    QTest::newRow("one") << T{127.96} << 128.0;
    QTest::newRow("odd") << T{90, 128, 200} << 128.0;
    QTest::newRow("even: the lower") << T{90, 128.1, 130, 200} << 128.1;
    QTest::newRow("outliers") << T{128, 128, 128, 64, 256} << 128.0;
}

void tst_AnnounceErrors::tempoMedian_isTheMiddleOne()
{
    QFETCH(std::vector<double>, tempos);
    cli::TempoMedian median;
    for (const double tempo : tempos)
        median.Add(tempo);
    QTEST(median.getMedian(), "median");
}

AA_TEST(tst_AnnounceErrors, NoApplication)
#include "tst_AnnounceErrors.moc"
