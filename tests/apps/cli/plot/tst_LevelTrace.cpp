// SPDX-License-Identifier: MIT
#include <cli/plot/LevelTrace.h>

#include <QtTest>

#include <algorithm>
#include <random>
#include <support/TestClass.h>

namespace {

struct Block
{
    int level;
    int threshold;
};

std::vector<Block> makeBlocks(std::size_t pCount)
{
    const unsigned seed = qEnvironmentVariableIsSet("AA_SEED")
                              ? qEnvironmentVariable("AA_SEED").toUInt()
                              : std::random_device{}();
    qInfo("AA_SEED=%u", seed);
    std::mt19937 random(seed);
    std::vector<Block> blocks(pCount);
    for (Block& block : blocks)
        block = {int(random() % 32768), int(random() % 32768)};
    return blocks;
}

}  // namespace

class tst_LevelTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmpty_whenNothingIsAppended();
    void keepsEveryBlock_whileColumnsAreFree();
    void mergesNeighbours_whenColumnsAreFull();
    void keepsTheGreaterValue_whenMerging();
    void equalsPlainGrouping_data();
    void equalsPlainGrouping();
};

void tst_LevelTrace::isEmpty_whenNothingIsAppended()
{
    QVERIFY(LevelTrace().getColumns().empty());
}

void tst_LevelTrace::keepsEveryBlock_whileColumnsAreFree()
{
    LevelTrace trace;
    for (int i = 0; i < 4096; ++i)
        trace.Append(0.5 * i, i, 2 * i);
    QCOMPARE(trace.getColumns().size(), std::size_t(4096));
    for (int i = 0; i < 4096; ++i) {
        const LevelTrace::Column& column = trace.getColumns()[std::size_t(i)];
        QCOMPARE(column.time, 0.5 * i);
        QCOMPARE(column.level, i);
        QCOMPARE(column.threshold, 2 * i);
    }
}

void tst_LevelTrace::mergesNeighbours_whenColumnsAreFull()
{
    LevelTrace trace;
    for (int i = 0; i < 4097; ++i)
        trace.Append(i, i, 0);
    QCOMPARE(trace.getColumns().size(), std::size_t(2049));
    QCOMPARE(trace.getColumns()[0].time, 0.0);
    QCOMPARE(trace.getColumns()[0].level, 1);
    QCOMPARE(trace.getColumns()[2047].time, 4094.0);
    QCOMPARE(trace.getColumns()[2047].level, 4095);
    QCOMPARE(trace.getColumns()[2048].time, 4096.0);

    // The next block joins the last column, the one after it begins a new one.
    trace.Append(4097.0, 7000, 0);
    QCOMPARE(trace.getColumns().size(), std::size_t(2049));
    QCOMPARE(trace.getColumns()[2048].level, 7000);
    trace.Append(4098.0, 1, 0);
    QCOMPARE(trace.getColumns().size(), std::size_t(2050));
    QCOMPARE(trace.getColumns()[2049].time, 4098.0);
}

void tst_LevelTrace::keepsTheGreaterValue_whenMerging()
{
    LevelTrace trace;
    for (int i = 0; i < 4097; ++i)
        trace.Append(i, i % 2 == 0 ? 900 : 100, i % 2 == 0 ? 10 : 30);
    for (std::size_t i = 0; i < 2048; ++i) {
        QCOMPARE(trace.getColumns()[i].level, 900);
        QCOMPARE(trace.getColumns()[i].threshold, 30);
    }
}

void tst_LevelTrace::equalsPlainGrouping_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("group");
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("full") << 4096 << 1;
    QTest::newRow("one too many") << 4097 << 2;
    QTest::newRow("full of pairs") << 8192 << 2;
    QTest::newRow("pairs and one") << 8193 << 4;
    QTest::newRow("odd") << 30001 << 8;
    QTest::newRow("an hour at 44100 Hz") << 155039 << 64;
}

/// A column holds a group of neighbours; groups are the smallest power of two that fits.
void tst_LevelTrace::equalsPlainGrouping()
{
    QFETCH(int, count);
    QFETCH(int, group);
    const std::vector<Block> blocks = makeBlocks(std::size_t(count));
    LevelTrace trace;
    for (int i = 0; i < count; ++i)
        trace.Append(i, blocks[std::size_t(i)].level, blocks[std::size_t(i)].threshold);

    const auto& columns = trace.getColumns();
    QCOMPARE(int(columns.size()), (count + group - 1) / group);
    QVERIFY(columns.size() <= LevelTrace::kMaximalColumns);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto first = blocks.begin() + int(i) * group;
        const auto last = blocks.begin() + std::min(int(i + 1) * group, count);
        const auto level = std::max_element(
            first, last, [](const Block& pA, const Block& pB) { return pA.level < pB.level; });
        const auto threshold = std::max_element(first, last, [](const Block& pA, const Block& pB) {
            return pA.threshold < pB.threshold;
        });
        QCOMPARE(columns[i].time, double(i) * group);
        QCOMPARE(columns[i].level, level->level);
        QCOMPARE(columns[i].threshold, threshold->threshold);
    }
}

AA_TEST(tst_LevelTrace, NoApplication)
#include "tst_LevelTrace.moc"
