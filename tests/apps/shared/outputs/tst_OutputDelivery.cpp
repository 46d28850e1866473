// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputDelivery.h>

#include <QtTest>

#include <apps/shared/outputs/ReceiverLog.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using shared::ClockThread;

namespace {

/// A delivery that is told by hand, in virtual time.
struct DeliveryBench
{
    /// Of a beat or tick that was due so many ms ago, of the clock's present tempo.
    void tell(qint64 pBeat, qint64 pAgeMs = 0, int pPlace = 0)
    {
        shared::OutputEvent event = {true, true, {}, clock.getState(), 0.5};
        event.tick.beat = pBeat;
        event.tick.place = pPlace;
        event.tick.time = ClockThread::getTime() - pAgeMs * 1000;
        delivery.Tell(event);
    }
    void tellRunning(bool pIsRunning)
    {
        delivery.Tell({false, pIsRunning, {}, clock.getState(), 0.0});
    }
    void hold(double pBPM) { clock.HoldAt(pBPM, ClockThread::getTime()); }
    /// ms from now until the next step is wanted.
    qint64 step() { return (delivery.Step() - ClockThread::getTime()) / 1000; }
    /// What is said while a runner would do its steps for so many ms.
    QString pass(qint64 pMs)
    {
        for (qint64 passed = 0; passed < pMs;) {
            const qint64 wait = std::min(std::max<qint64>(step(), 0), pMs - passed);
            QTest::qSleep(int(wait));
            passed += wait;
        }
        return log.take();
    }

    BeatClock clock;
    ReceiverLog log;
    LoggedReceiver receiver{log};
    QStringList said;
    shared::OutputDelivery delivery{receiver, [this](const QString& pWords) {
                                        said += pWords + (delivery.isOpen() ? QStringLiteral("!")
                                                                            : QString());
                                    }};
};

}  // namespace

/// What a receiver is told, whatever it does, and when it is opened.
class tst_OutputDelivery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void receiver_isOpenedFirst_andToldHowTheClockStands();
    void beats_areTold_withTheTempoBeforeThem();
    void tinyChangeOfTempo_isNone_untilItAddsUp();
    void ticks_bringNoTempo();
    void rest_comesTenTimesASecond();
    void oldBeats_areNotTold();
    void oldSound_isNotTold();
    void slowReceiver_hearsOfThePresent();
    void clockThatBeganAnew_standsFirst();
    void unchangedRunning_isNotToldAgain();
    void receiverThatIsAway_isSoughtAtGrowingIntervals();
    void receiverThatFails_isClosed_andFoundAgain();
    void receiverThatFailsAtOnce_isSoughtLessAndLess();
    void goodConnection_isSoughtSoon();
    void states_areSaidOnce();
    void end_closesOnce();
    void nothing_isTold_whileItIsAway();
};

void tst_OutputDelivery::receiver_isOpenedFirst_andToldHowTheClockStands()
{
    DeliveryBench bench;
    bench.step();
    QCOMPARE(bench.log.take(), QStringLiteral("open stands"));
    QVERIFY(bench.delivery.isOpen());
    DeliveryBench running;
    running.tellRunning(true);
    running.step();
    QCOMPARE(running.log.take(), QStringLiteral("open plays"));
}

void tst_OutputDelivery::beats_areTold_withTheTempoBeforeThem()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tellRunning(true);
    bench.tell(7);
    bench.tell(8);
    bench.hold(125.0);
    bench.tell(9);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 120BPM 7! 8 125BPM 9!"));
}

void tst_OutputDelivery::tinyChangeOfTempo_isNone_untilItAddsUp()
{
    DeliveryBench bench;
    bench.step();
    for (const double bpm : {100.0, 100.003, 100.006}) {
        bench.hold(bpm);
        bench.tell(1);
    }
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 100BPM 1! 1 100.006BPM 1!"));
}

void tst_OutputDelivery::ticks_bringNoTempo()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tell(3, 0, 1);
    bench.tell(4);
    bench.tell(4, 0, 1);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 3.1 120BPM 4! 4.1"));
}

void tst_OutputDelivery::rest_comesTenTimesASecond()
{
    DeliveryBench bench;
    QCOMPARE(bench.step(), 100);
    bench.log.take();
    QTest::qSleep(99);
    QCOMPARE(bench.step(), 1);
    QCOMPARE(bench.log.take(), QString());
    QTest::qSleep(1);
    QCOMPARE(bench.step(), 100);
    QCOMPARE(bench.log.take(), QStringLiteral("rest"));
}

void tst_OutputDelivery::oldBeats_areNotTold()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tell(1, 101);
    bench.tell(2, 100);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 120BPM 2!"));
    QCOMPARE(bench.delivery.getLostCount(), quint64(1));
}

void tst_OutputDelivery::oldSound_isNotTold()
{
    DeliveryBench bench;
    bench.step();
    shared::OutputSound sound = {};
    sound.time = ClockThread::getTime() - 100001;
    sound.level = 0.25;
    bench.delivery.Hear(sound);
    sound.time = ClockThread::getTime();
    sound.level = 0.75;
    bench.delivery.Hear(sound);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands sound0.75"));
}

// The second and third beat were due while the first one kept the receiver.
void tst_OutputDelivery::slowReceiver_hearsOfThePresent()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    const qint64 start = ClockThread::getTime();
    bench.log.onBeat = [] { QTest::qSleep(1050); };
    bench.tell(1);
    bench.log.onBeat = [] {};
    for (int i = 1; i <= 2; ++i)
        bench.tell(1 + i, (ClockThread::getTime() - start) / 1000 - 500 * i);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 120BPM 1! 3"));
}

void tst_OutputDelivery::clockThatBeganAnew_standsFirst()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tell(1);
    bench.clock.Restart(ClockThread::getTime());
    bench.hold(120.0);
    // That it stood was crowded out of the queue.
    bench.tell(2);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays 120BPM 1! stands plays 2"));
}

void tst_OutputDelivery::unchangedRunning_isNotToldAgain()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tellRunning(true);
    bench.tellRunning(true);
    bench.tellRunning(false);
    bench.tellRunning(false);
    QCOMPARE(bench.log.take(), QStringLiteral("open stands plays stands"));
}

void tst_OutputDelivery::receiverThatIsAway_isSoughtAtGrowingIntervals()
{
    DeliveryBench bench;
    bench.log.opens = false;
    for (const qint64 pause : {250, 500, 1000, 2000, 2000}) {
        QCOMPARE(bench.step(), pause);
        QCOMPARE(bench.log.take(), QStringLiteral("refuse"));
        QTest::qSleep(int(pause) - 1);
        QCOMPARE(bench.step(), 1);
        QCOMPARE(bench.log.take(), QString());
        QTest::qSleep(1);
    }
    bench.log.opens = true;
    bench.step();
    QCOMPARE(bench.log.take(), QStringLiteral("open stands"));
}

void tst_OutputDelivery::receiverThatFails_isClosed_andFoundAgain()
{
    DeliveryBench bench;
    bench.step();
    bench.hold(120.0);
    bench.tell(1);
    bench.log.take();
    bench.log.works = false;
    bench.tell(2);
    QCOMPARE(bench.log.take(), QStringLiteral("2 close"));
    QVERIFY(!bench.delivery.isOpen());
    bench.log.works = true;
    QCOMPARE(bench.step(), 250);
    QTest::qSleep(250);
    bench.step();
    bench.tell(3);
    QCOMPARE(bench.log.take(), QStringLiteral("open plays 120BPM 3!"));
}

void tst_OutputDelivery::receiverThatFailsAtOnce_isSoughtLessAndLess()
{
    DeliveryBench bench;
    bench.log.works = false;
    for (const qint64 pause : {250, 500, 1000, 2000, 2000}) {
        QCOMPARE(bench.step(), pause);
        QCOMPARE(bench.log.take(), QStringLiteral("open stands close"));
        QTest::qSleep(int(pause));
    }
}

void tst_OutputDelivery::goodConnection_isSoughtSoon()
{
    DeliveryBench bench;
    bench.log.opens = false;
    bench.pass(4000);
    bench.log.opens = true;
    bench.pass(4000);
    QVERIFY(bench.delivery.isOpen());
    bench.log.works = false;
    bench.pass(100);
    QVERIFY(!bench.delivery.isOpen());
    QVERIFY(bench.step() <= 250);
}

void tst_OutputDelivery::states_areSaidOnce()
{
    DeliveryBench bench;
    bench.log.opens = false;
    bench.log.state = QStringLiteral("away");
    bench.pass(10000);
    QCOMPARE(bench.said, QStringList({QStringLiteral("away")}));
    bench.log.opens = true;
    bench.log.state = QStringLiteral("there");
    bench.pass(5000);
    bench.log.state = QStringLiteral("busy");
    bench.pass(500);
    bench.log.works = false;
    bench.log.state = QStringLiteral("gone");
    bench.tell(1);
    QCOMPARE(bench.said.join(QLatin1Char(' ')), QStringLiteral("away there! busy! gone"));
}

void tst_OutputDelivery::end_closesOnce()
{
    DeliveryBench bench;
    bench.delivery.End();
    bench.step();
    bench.delivery.End();
    bench.delivery.End();
    QCOMPARE(bench.log.take(), QStringLiteral("open stands close"));
}

void tst_OutputDelivery::nothing_isTold_whileItIsAway()
{
    DeliveryBench bench;
    bench.log.opens = false;
    bench.step();
    bench.hold(120.0);
    bench.tell(1);
    bench.delivery.Hear({});
    QCOMPARE(bench.log.take(), QStringLiteral("refuse"));
    bench.log.opens = true;
    QCOMPARE(bench.pass(360), QStringLiteral("open plays rest"));
}

AA_TEST(tst_OutputDelivery, InVirtualTime<QCoreApplication>)
#include "tst_OutputDelivery.moc"
