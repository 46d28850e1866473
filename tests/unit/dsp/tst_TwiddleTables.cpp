// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/Butterflies.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>

#include <QtTest>

#include <support/TestClass.h>
#include <thread>
#include <vector>

class tst_TwiddleTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void length_isComplete_whenSeveralThreadsAskAtOnce();
    void head_hasTheFirstThreeStages();
    void stages_haveTheRecurrence();
    void columns_haveTheRecurrence_inTheOrderOfTheirUse();
    void tables_stayTheSame_whenAskedAgain();
    void tables_beginAtCacheLines();
};

namespace {

using detail::TwiddleTables;

struct Factor
{
    double real;
    double imaginary;
};

std::vector<Factor> factorsOf(bool isInverse, std::size_t bits)
{
    const double circle = isInverse ? 6.283185307179586 : -6.283185307179586;
    detail::TwiddleRecurrence recurrence(circle / double(std::size_t(1) << bits));
    std::vector<Factor> factors(std::size_t(1) << (bits - 1));
    for (Factor& factor : factors) {
        recurrence.advance();
        factor = {recurrence.real(), recurrence.imaginary()};
    }
    return factors;
}

/// Factor pLane of an eight.
bool isAt(const double* pEight, std::size_t lane, const Factor& factor)
{
    return pEight[lane] == factor.real && pEight[8 + lane] == factor.imaginary;
}

bool isAligned(const double* pTable)
{
    return reinterpret_cast<quintptr>(pTable) % 64 == 0;
}

}  // namespace

void tst_TwiddleTables::length_isComplete_whenSeveralThreadsAskAtOnce()
{
    std::vector<std::thread> threads;
    std::vector<int> isComplete(8, 0);
    for (std::size_t i = 0; i < isComplete.size(); ++i)
        threads.emplace_back([i, &isComplete] {
            const std::size_t bits = 6 + i % 4 * 3;
            const TwiddleTables& tables = detail::twiddleTables(i % 2 == 1, bits);
            isComplete[i] = bits < 14 ? tables.stage[bits] && tables.stage[4]
                                      : tables.stage[bits - 6] && tables.columns[bits];
        });
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(isComplete, std::vector<int>(8, 1));
}

void tst_TwiddleTables::head_hasTheFirstThreeStages()
{
    for (const bool isInverse : {false, true}) {
        const double* pHead = detail::twiddleTables(isInverse, 6).head;
        for (std::size_t bits = 1; bits <= 3; ++bits)
            for (const Factor& factor : factorsOf(isInverse, bits)) {
                QCOMPARE(*pHead++, factor.real);
                QCOMPARE(*pHead++, factor.imaginary);
            }
    }
}

void tst_TwiddleTables::stages_haveTheRecurrence()
{
    for (const bool isInverse : {false, true}) {
        const TwiddleTables& tables = detail::twiddleTables(isInverse, 13);
        for (std::size_t bits = 4; bits <= 13; ++bits) {
            const std::vector<Factor> factors = factorsOf(isInverse, bits);
            for (std::size_t j = 0; j < factors.size(); ++j)
                QVERIFY(isAt(tables.stage[bits] + 16 * (j / 8), j % 8, factors[j]));
        }
    }
}

void tst_TwiddleTables::columns_haveTheRecurrence_inTheOrderOfTheirUse()
{
    for (const std::size_t bits : {14u, 17u}) {
        const double* pEight = detail::twiddleTables(true, bits).columns[bits];
        const std::size_t width = std::size_t(1) << (bits - 6);
        std::vector<std::vector<Factor>> stages;
        for (std::size_t stage = 0; stage < 6; ++stage)
            stages.push_back(factorsOf(true, bits - 5 + stage));
        for (std::size_t column = 0; column < width; column += 8)
            for (const std::vector<Factor>& factors : stages)
                for (std::size_t first = column; first < factors.size(); first += width) {
                    for (std::size_t lane = 0; lane < 8; ++lane)
                        QVERIFY(isAt(pEight, lane, factors[first + lane]));
                    pEight += 16;
                }
    }
}

void tst_TwiddleTables::tables_stayTheSame_whenAskedAgain()
{
    const TwiddleTables& first = detail::twiddleTables(false, 14);
    const TwiddleTables copy = first;
    const TwiddleTables& again = detail::twiddleTables(false, 15);
    QVERIFY(&first == &again);
    for (std::size_t bits = 0; bits <= TwiddleTables::kMaxBits; ++bits) {
        QVERIFY(!copy.stage[bits] || copy.stage[bits] == again.stage[bits]);
        QVERIFY(!copy.columns[bits] || copy.columns[bits] == again.columns[bits]);
    }
    QVERIFY(&first != &detail::twiddleTables(true, 14));
}

void tst_TwiddleTables::tables_beginAtCacheLines()
{
    const TwiddleTables& tables = detail::twiddleTables(false, 15);
    for (std::size_t bits = 4; bits <= 9; ++bits)
        QVERIFY(isAligned(tables.stage[bits]));
    QVERIFY(isAligned(tables.columns[15]));
}

AA_TEST(tst_TwiddleTables, NoApplication)

#include "tst_TwiddleTables.moc"
