// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>

#include <QtTest>

#include <apps/shared/outputs/ReceiverLog.h>
#include <memory>
#include <support/TestClass.h>

using shared::ClockThread;

namespace {

const QString kLights = QStringLiteral("lights");
const QString kDrums = QStringLiteral("drums");

/// Outputs of a clock at 600 BPM.
struct OutputsBench
{
    OutputsBench()
    {
        clock.HoldAt(600.0, ClockThread::getTime());
        thread.Start();
        QObject::connect(&outputs,
                         &Outputs::OnStateChanged,
                         [this](const QString& pName, const QString& pWords) {
                             said += pName + QLatin1String(": ") + pWords;
                         });
    }

    BeatClock clock;
    ClockThread thread{clock};
    ReceiverLog lights;
    ReceiverLog drums;
    QStringList said;
    Outputs outputs{thread, [](const BeatClockState&) { return 1.0; }};
};

}  // namespace

class tst_Outputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outputs_areDriven_untilTheyAreRemoved();
    void oneThatBlocks_holdsUpNoOther();
    void states_areSignalledInTheOwnersThread();
    void sameName_replaces();
    void offset_isOfOutputsThatAreThere();
    void sound_goesToThoseThatHearIt();
};

void tst_Outputs::outputs_areDriven_untilTheyAreRemoved()
{
    OutputsBench bench;
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights));
    bench.outputs.Add(kDrums, std::make_unique<LoggedReceiver>(bench.drums));
    QCOMPARE(bench.outputs.getNames(), QStringList({kDrums, kLights}));
    bench.lights.beats.acquire(2);
    bench.drums.beats.acquire(2);
    QVERIFY(bench.outputs.isOpen(kLights));
    QVERIFY(bench.outputs.Remove(kLights));
    QVERIFY(!bench.outputs.Remove(kLights));
    QVERIFY(!bench.outputs.isOpen(kLights));
    QCOMPARE(bench.lights.lines.last(), QStringLiteral("close"));
    bench.drums.beats.acquire(bench.drums.beats.available() + 1);
    bench.outputs.RemoveAll();
    QCOMPARE(bench.drums.lines.last(), QStringLiteral("close"));
    QVERIFY(bench.outputs.getNames().isEmpty());
}

void tst_Outputs::oneThatBlocks_holdsUpNoOther()
{
    OutputsBench bench;
    QSemaphore entered;
    QSemaphore mayGo;
    bench.lights.onBeat = [&] {
        entered.release();
        mayGo.acquire();
    };
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights));
    bench.outputs.Add(kDrums, std::make_unique<LoggedReceiver>(bench.drums));
    entered.acquire();
    bench.drums.beats.acquire(bench.drums.beats.available() + 3);
    mayGo.release(1000);
    bench.outputs.RemoveAll();
}

void tst_Outputs::states_areSignalledInTheOwnersThread()
{
    OutputsBench bench;
    bench.lights.state = QStringLiteral("nobody answers");
    bench.lights.opens = false;
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights));
    QVERIFY(bench.outputs.getState(kLights).isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(bench.said.size(), 1, 60000);
    QCOMPARE(bench.said.first(), QStringLiteral("lights: nobody answers"));
    QCOMPARE(bench.outputs.getState(kLights), bench.lights.state);
    QVERIFY(!bench.outputs.isOpen(kLights));
}

void tst_Outputs::sameName_replaces()
{
    OutputsBench bench;
    bench.lights.state = QStringLiteral("first");
    bench.drums.state = QStringLiteral("second");
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights));
    // Its words are on their way, and nobody's any more.
    bench.lights.opened.acquire();
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.drums));
    QCOMPARE(bench.lights.lines.last(), QStringLiteral("close"));
    QTRY_COMPARE_WITH_TIMEOUT(bench.said.size(), 1, 60000);
    QCOMPARE(bench.said.first(), QStringLiteral("lights: second"));
}

void tst_Outputs::offset_isOfOutputsThatAreThere()
{
    OutputsBench bench;
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights), 20.0);
    QVERIFY(bench.outputs.setOffset(kLights, -20.0));
    QVERIFY(!bench.outputs.setOffset(kDrums, -20.0));
}

void tst_Outputs::sound_goesToThoseThatHearIt()
{
    OutputsBench bench;
    bench.clock.Restart(ClockThread::getTime());
    bench.outputs.Add(kDrums, std::make_unique<LoggedReceiver>(bench.drums));
    QVERIFY(!bench.outputs.hearsSound());
    bench.lights.hearsSound = true;
    bench.outputs.Add(kLights, std::make_unique<LoggedReceiver>(bench.lights));
    QVERIFY(bench.outputs.hearsSound());
    bench.lights.opened.acquire();
    shared::OutputSound sound = {};
    while (bench.lights.beats.available() == 0) {
        sound.time = ClockThread::getTime();
        bench.outputs.Hear(sound);
        std::this_thread::yield();
    }
    bench.outputs.RemoveAll();
    QVERIFY(bench.lights.lines.contains(QStringLiteral("sound0")));
    QVERIFY(!bench.drums.lines.contains(QStringLiteral("sound0")));
}

AA_TEST(tst_Outputs, QCoreApplication)
#include "tst_Outputs.moc"
