// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputDelivery.h>
#include <shared/outputs/os2l/Os2lReceiver.h>

#include <QDir>
#include <QtTest>

#include <apps/shared/outputs/os2l/LightProgram.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using shared::Os2lReceiver;

namespace {

/// A delivery in virtual time and a light program that does what the test wants, in one thread.
struct FaultBench
{
    /// Half a second passes, with a beat in it.
    QByteArray passBeat()
    {
        shared::OutputEvent event = {};
        event.isTick = true;
        event.isRunning = true;
        event.tick.beat = ++beat;
        event.tick.time = shared::ClockThread::getTime();
        event.state.bpm = 120.0;
        event.confidence = 1.0;
        delivery.Tell(event);
        for (int i = 0; i < 10; ++i) {
            delivery.Step();
            QTest::qSleep(50);
        }
        lights.Accept();
        return isReading ? lights.Read() : QByteArray();
    }
    bool isFollowed()
    {
        return passBeat().endsWith("\"pos\":" + QByteArray::number(beat) +
                                   R"(,"bpm":120.00,"strength":1.00})");
    }

    LightProgram lights;
    Os2lReceiver receiver{
        Os2lReceiver::AddressOf(QStringLiteral("127.0.0.1:%1").arg(lights.port()))};
    QStringList said;
    shared::OutputDelivery delivery{receiver, [this](const QString& pWords) { said += pWords; }};
    qint64 beat = 0;
    bool isReading = true;
};

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files).size());
}

}  // namespace

/// A light program that does everything wrong, two hundred times.
class tst_Os2lFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomFaults_areSurvived();

private:
    static void fault(FaultBench& pBench, QRandomGenerator& pRandom);
};

void tst_Os2lFaults::fault(FaultBench& pBench, QRandomGenerator& pRandom)
{
    LightProgram& lights = pBench.lights;
    const int length = 1 + pRandom.bounded(20);
    const int kind = pRandom.bounded(6);
    if (kind == 0)
        lights.Leave();
    if (kind == 1)
        lights.Reset();
    if (kind == 2 || kind == 3) {
        lights.Hush();
        lights.Leave();
    }
    if (kind == 4)
        pBench.isReading = false;
    for (int i = 0; i < length; ++i) {
        if (kind == 5) {
            QByteArray garbage(1 + pRandom.bounded(4096), '\0');
            pRandom.fillRange(reinterpret_cast<quint32*>(garbage.data()), garbage.size() / 4);
            lights.Send(garbage);
        }
        pBench.passBeat();
    }
    pBench.isReading = true;
    if (kind == 2 || kind == 3)
        QVERIFY(lights.Listen());
}

void tst_Os2lFaults::randomFaults_areSurvived()
{
    const quint32 seed = qEnvironmentVariableIsSet("SEED") ? qEnvironmentVariableIntValue("SEED")
                                                           : QRandomGenerator::global()->generate();
    qInfo("SEED=%u", seed);
    QRandomGenerator random(seed);
    FaultBench bench;
    QTRY_VERIFY_WITH_TIMEOUT(bench.isFollowed(), 60000);
    const int files = openFiles();
    for (int i = 0; i < 200; ++i) {
        fault(bench, random);
        // Between two attempts to reach it lie eight seconds at most.
        int beats = 0;
        while (!bench.isFollowed())
            QVERIFY2(++beats <= 20, qPrintable(QString::number(i)));
        QVERIFY(bench.said.last().startsWith(QLatin1String("light program")));
    }
    QCOMPARE(openFiles(), files);
}

AA_TEST(tst_Os2lFaults, InVirtualTime<QCoreApplication>)

#include "tst_Os2lFaults.moc"
