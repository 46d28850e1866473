// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/StrongestBands.h>

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>
#include <support/Waves.h>
#include <vector>

Q_DECLARE_METATYPE(std::vector<double>)
Q_DECLARE_METATYPE(std::vector<int>)

class tst_StrongestBands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records_areKeptInOrder_untilFull();
    void weakest_isReplaced_data();
    void weakest_isReplaced();
    void records_areCopiedWhole();
    void strongestAreKept_ofManyOffers();
};

namespace {

std::vector<int> keptOf(const std::vector<double>& amplitudes, size_t capacity)
{
    std::vector<FrequencyBandAmplitude> records(capacity);
    detail::StrongestBands strongest(records.data(), capacity);
    for (size_t i = 0; i < amplitudes.size(); ++i)
        strongest.offer({amplitudes[i], i, 0.0, 0.0});
    std::vector<int> indexes;
    for (size_t i = 0; i < strongest.count(); ++i)
        indexes.push_back(int(records[i].index));
    return indexes;
}

}  // namespace

void tst_StrongestBands::records_areKeptInOrder_untilFull()
{
    QCOMPARE(keptOf({}, 3), std::vector<int>());
    QCOMPARE(keptOf({0.1}, 3), std::vector<int>({0}));
    QCOMPARE(keptOf({0.1, 0.3, 0.2}, 3), std::vector<int>({0, 1, 2}));
}

void tst_StrongestBands::weakest_isReplaced_data()
{
    QTest::addColumn<std::vector<double>>("amplitudes");
    QTest::addColumn<int>("capacity");
    QTest::addColumn<std::vector<int>>("kept");
    using Amplitudes = std::vector<double>;
    using Indexes = std::vector<int>;
    QTest::newRow("in place") << Amplitudes{0.2, 0.9, 0.1, 0.5, 0.7} << 3 << Indexes{4, 1, 3};
    QTest::newRow("one place") << Amplitudes{0.2, 0.1, 0.2, 0.3} << 1 << Indexes{3};
    QTest::newRow("equal is refused") << Amplitudes{0.5, 0.5, 0.5} << 2 << Indexes{0, 1};
    QTest::newRow("first of equals") << Amplitudes{0.5, 0.5, 0.7} << 2 << Indexes{2, 1};
    QTest::newRow("replaced among equals") << Amplitudes{0.5, 0.3, 0.5, 0.6} << 2 << Indexes{0, 3};
    QTest::newRow("negative") << Amplitudes{-0.5, -0.3, -0.4} << 2 << Indexes{2, 1};
}

void tst_StrongestBands::weakest_isReplaced()
{
    QFETCH(std::vector<double>, amplitudes);
    QFETCH(int, capacity);
    QFETCH(std::vector<int>, kept);
    QCOMPARE(keptOf(amplitudes, size_t(capacity)), kept);
}

void tst_StrongestBands::records_areCopiedWhole()
{
    FrequencyBandAmplitude record = {};
    detail::StrongestBands strongest(&record, 1);
    strongest.offer({0.5, 7, 100.0, 90.0});
    strongest.offer({0.75, 9, 120.0, 110.0});
    QVERIFY(record.amplitude == 0.75);
    QCOMPARE(record.index, size_t(9));
    QVERIFY(record.upperFrequency == 120.0);
    QVERIFY(record.lowerFrequency == 110.0);
}

void tst_StrongestBands::strongestAreKept_ofManyOffers()
{
    waves::Random random(7);
    for (size_t capacity : {1U, 2U, 10U, 99U}) {
        std::vector<double> amplitudes(100);
        for (double& amplitude : amplitudes)
            amplitude = random.uniform();
        std::vector<double> kept;
        for (int index : keptOf(amplitudes, capacity))
            kept.push_back(amplitudes[size_t(index)]);
        std::sort(kept.rbegin(), kept.rend());
        std::sort(amplitudes.rbegin(), amplitudes.rend());
        amplitudes.resize(capacity);
        QCOMPARE(kept, amplitudes);
    }
}

AA_TEST(tst_StrongestBands, NoApplication)

#include "tst_StrongestBands.moc"
