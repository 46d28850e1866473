// SPDX-License-Identifier: MIT
#include <shared/clock/StallQueue.h>

#include <QString>
#include <QtTest>

#include <support/TestClass.h>
#include <thread>

using shared::StallQueue;

class tst_StallQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_comeOutInOrder();
    void oldest_isLost_andCounted();
    void twoThreads_loseNothing_thatIsNotCounted();
};

void tst_StallQueue::values_comeOutInOrder()
{
    StallQueue<QString> queue(3);
    QString value;
    QVERIFY(!queue.Take(value));
    queue.Push(QStringLiteral("a"));
    queue.Push(QStringLiteral("b"));
    QVERIFY(queue.Take(value));
    QCOMPARE(value, QStringLiteral("a"));
    queue.Push(QStringLiteral("c"));
    queue.Push(QStringLiteral("d"));
    QString rest;
    while (queue.Take(value))
        rest += value;
    QCOMPARE(rest, QStringLiteral("bcd"));
    QCOMPARE(queue.TakeLost(), std::uint64_t(0));
}

void tst_StallQueue::oldest_isLost_andCounted()
{
    StallQueue<int> queue(3);
    for (int i = 0; i < 10; ++i)
        queue.Push(i);
    QCOMPARE(queue.TakeLost(), std::uint64_t(7));
    QCOMPARE(queue.TakeLost(), std::uint64_t(0));
    int value = 0;
    for (const int expected : {7, 8, 9}) {
        QVERIFY(queue.Take(value));
        QCOMPARE(value, expected);
    }
    QVERIFY(!queue.Take(value));
}

void tst_StallQueue::twoThreads_loseNothing_thatIsNotCounted()
{
    constexpr int kValues = 100000;
    StallQueue<int> queue(64);
    std::thread writer([&queue] {
        for (int i = 1; i <= kValues; ++i)
            queue.Push(i);
    });
    int last = 0;
    int taken = 0;
    while (last < kValues) {
        int value = 0;
        if (!queue.Take(value))
            continue;
        QVERIFY(value > last);
        last = value;
        ++taken;
    }
    writer.join();
    QCOMPARE(std::uint64_t(taken) + queue.TakeLost(), std::uint64_t(kValues));
}

AA_TEST(tst_StallQueue, NoApplication)
#include "tst_StallQueue.moc"
