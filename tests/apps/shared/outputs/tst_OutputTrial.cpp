// SPDX-License-Identifier: MIT
#include <shared/outputs/OutputTrial.h>

#include <QtTest>

#include <apps/shared/outputs/ReceiverLog.h>
#include <memory>
#include <support/TestClass.h>

namespace {

constexpr int kTrialMs = 60000;

/// A trial of a receiver that writes down what it is told.
struct TrialBench
{
    explicit TrialBench(double pOffset = 0.0)
    {
        trial = std::make_unique<OutputTrial>(std::make_unique<LoggedReceiver>(log), pOffset);
        QObject::connect(
            trial.get(),
            &OutputTrial::OnEnded,
            [this](bool pIsDone, const QString& pWords) {
                end += pIsDone ? QStringLiteral("done: ") : QStringLiteral("failed: ");
                end += pWords;
                told = log.lines;
            });
        QObject::connect(trial.get(), &OutputTrial::OnStateChanged, [this](const QString& pWords) {
            states += pWords;
        });
    }
    bool awaitBeat()
    {
        return QTest::qWaitFor([this] { return log.beats.tryAcquire(); }, kTrialMs);
    }
    bool awaitEnd()
    {
        return QTest::qWaitFor([this] { return !end.isEmpty(); }, kTrialMs);
    }

    ReceiverLog log;
    std::unique_ptr<OutputTrial> trial;
    QString end;
    QStringList told;  ///< when it ended
    QStringList states;
};

}  // namespace

/// In real time; that each beat comes is seen of the program that tries outputs.
class tst_OutputTrial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoBars_areSent_andTheReceiverIsClosed();
    void receiverThatGoes_isSaid();
    void offset_mayChangeMeanwhile();
    void end_closesTheReceiver();
};

void tst_OutputTrial::twoBars_areSent_andTheReceiverIsClosed()
{
    TrialBench bench;
    QVERIFY(bench.awaitBeat());
    QVERIFY(bench.trial->isOpen());
    QVERIFY(bench.awaitEnd());
    QCOMPARE(bench.end, QStringLiteral("done: 8 beats were sent"));
    QCOMPARE(bench.states, QStringList(QStringLiteral("there")));
    QVERIFY(bench.told.contains(QStringLiteral("120BPM")));
    QCOMPARE(bench.told.last(), QStringLiteral("close"));
    QVERIFY(!bench.told.contains(QStringLiteral("8")));
    QVERIFY(!bench.trial->isOpen());
}

void tst_OutputTrial::receiverThatGoes_isSaid()
{
    TrialBench bench;
    QVERIFY(bench.awaitBeat());
    bench.log.opens = false;
    bench.log.works = false;
    QVERIFY(bench.awaitEnd());
    QCOMPARE(bench.end, QStringLiteral("failed: it was lost"));
}

void tst_OutputTrial::offset_mayChangeMeanwhile()
{
    TrialBench bench(-500.0);
    QVERIFY(bench.awaitBeat());
    bench.trial->setOffset(500.0);
    QVERIFY(bench.awaitEnd());
    QCOMPARE(bench.end, QStringLiteral("done: 8 beats were sent"));
    // The last one came although it was a second later than foreseen.
    QVERIFY(bench.told.contains(QStringLiteral("7")));
}

void tst_OutputTrial::end_closesTheReceiver()
{
    TrialBench bench;
    bench.log.opened.acquire();
    bench.trial.reset();
    QCOMPARE(bench.log.lines.last(), QStringLiteral("close"));
    QCOMPARE(bench.end, QString());
}

AA_TEST(tst_OutputTrial, QCoreApplication)
#include "tst_OutputTrial.moc"
