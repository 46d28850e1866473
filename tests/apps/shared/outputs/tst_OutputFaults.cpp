// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputDelivery.h>

#include <QtTest>

#include <algorithm>
#include <random>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using shared::ClockThread;
using shared::OutputDelivery;

namespace {

void SleepFor(qint64 pMs)
{
    if (pMs > 0)
        QTest::qSleep(int(pMs));
}

/// What is wrong with a receiver.
struct Fault
{
    bool isAway = false;  ///< it cannot be opened
    bool fails = false;   ///< the next call does
    int blockMs = 0;      ///< so does the next call, for so long
};

/// Whatever is wrong with it, it holds what it is told to what it may be told.
class FaultyReceiver : public shared::OutputReceiver
{
public:
    bool Open() override
    {
        breaches += isOpen ? 1 : 0;
        isOpen = !fault.isAway && _Suffer();
        return isOpen;
    }
    void Close() override
    {
        breaches += isOpen ? 0 : 1;
        isOpen = false;
    }
    QString getState() const override { return {}; }
    bool Beat(const shared::OutputMoment& pMoment) override
    {
        const qint64 age = ClockThread::getTime() - pMoment.tick.time;
        breaches += isOpen && age >= 0 && age <= OutputDelivery::kOldest ? 0 : 1;
        breaches += pMoment.tick.number > lastBeat ? 0 : 1;
        lastBeat = pMoment.tick.number;
        ++beats;
        return _Suffer();
    }
    bool Tempo(double) override { return _Suffer(); }
    bool Playing(bool, const BeatClockState&) override { return _Suffer(); }
    bool Rest() override { return _Suffer(); }

    Fault fault;
    bool isOpen = false;
    int breaches = 0;
    int beats = 0;
    qint64 lastBeat = -1;

private:
    bool _Suffer()
    {
        const bool isWell = !std::exchange(fault.fails, false);
        SleepFor(std::exchange(fault.blockMs, 0));
        return isWell;
    }
};

/// A receiver of beats at 120 BPM, and the runner's work, by hand.
struct FaultBench
{
    FaultBench() { clock.HoldAt(120.0, ClockThread::getTime()); }

    /// For so many ms.
    void pass(int pMs)
    {
        const qint64 end = ClockThread::getTime() + 1000 * pMs;
        while (ClockThread::getTime() < end) {
            const BeatClockState state = clock.getState();
            while (state.getTickTime(next) <= ClockThread::getTime())
                tell(state);
            const qint64 wake =
                std::min({qint64(delivery.Step()), qint64(state.getTickTime(next)), end});
            SleepFor((wake - ClockThread::getTime() + 999) / 1000);
        }
    }
    void tell(const BeatClockState& pState)
    {
        shared::OutputEvent event = {true, true, {}, pState, 1.0};
        event.tick.number = event.tick.beat = next;
        event.tick.time = pState.getTickTime(next);
        delivery.Tell(event);
        ++next;
    }

    BeatClock clock;
    FaultyReceiver receiver;
    OutputDelivery delivery{receiver, [](const QString&) {}};
    qint64 next = 0;  ///< beat
};

}  // namespace

/// Receivers that go, block and fail at random: OUTPUT_FAULTS_SEED repeats a run.
class tst_OutputFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void receiver_isFoundAgain_afterAnyFault();
};

void tst_OutputFaults::receiver_isFoundAgain_afterAnyFault()
{
    const unsigned seed = qEnvironmentVariableIsSet("OUTPUT_FAULTS_SEED")
                              ? unsigned(qEnvironmentVariableIntValue("OUTPUT_FAULTS_SEED"))
                              : std::random_device()();
    const QByteArray name = "OUTPUT_FAULTS_SEED=" + QByteArray::number(seed);
    std::mt19937 random(seed);
    const auto upTo = [&random](int pMost) {
        return std::uniform_int_distribution<int>(0, pMost)(random);
    };
    FaultBench bench;
    for (int i = 0; i < 200; ++i) {
        bench.receiver.fault = {upTo(2) == 0, upTo(1) == 0, upTo(1) * upTo(3000)};
        // One that is there and fails does it again.
        for (int again = upTo(3); again >= 0; --again) {
            bench.pass(upTo(1500));
            bench.receiver.fault.fails = upTo(1) == 0;
        }
        bench.receiver.fault = {};
        const int beats = bench.receiver.beats;
        // The longest pause, and three beats.
        bench.pass(3600);
        QVERIFY2(bench.receiver.beats >= beats + 3, name.constData());
        QVERIFY2(bench.receiver.breaches == 0, name.constData());
    }
    bench.delivery.End();
    QVERIFY2(!bench.receiver.isOpen && bench.receiver.breaches == 0, name.constData());
}

AA_TEST(tst_OutputFaults, InVirtualTime<QCoreApplication>)
#include "tst_OutputFaults.moc"
