// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/session/MonitorOutputs.h>
#include <shared/outputs/OutputSettings.h>

#include <QFile>
#include <QSignalSpy>
#include <QUdpSocket>
#include <QtTest>

#include <support/TestClass.h>

/// What the window sends its beats to. With real sockets, in real time.
class tst_MonitorOutputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QFile::remove(UISettings::_getDefaultPath()); }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void storedOutput_isSentTo_untilItIsOff();
    void disabledOutput_staysAway();
    void uselessOutput_isSaid();

private:
    static void _Store(const StoredOutput& pOutput);
};

void tst_MonitorOutputs::_Store(const StoredOutput& pOutput)
{
    OutputSettings settings;
    const QString refusal = settings.Add(pOutput);
    if (!refusal.isEmpty() || !settings.Save())
        qFatal("%s", qPrintable(refusal));
}

void tst_MonitorOutputs::storedOutput_isSentTo_untilItIsOff()
{
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress(QHostAddress::LocalHost)));
    StoredOutput output;
    output.name = QStringLiteral("Lights");
    output.kind = QStringLiteral("osc");
    output.address = QStringLiteral("127.0.0.1:%1").arg(receiver.localPort());
    _Store(output);
    LiveBeats beats;
    beats.getClock().HoldAt(300.0, shared::ClockThread::getTime());
    MonitorOutputs outputs(beats);
    QSignalSpy changes(&outputs, &MonitorOutputs::OnChanged);
    QVERIFY(!outputs.isOn());
    QVERIFY(outputs.getStates().empty());
    QCOMPARE(outputs.setOn(true), QStringList());
    QVERIFY(changes.count() > 0);
    QTRY_VERIFY_WITH_TIMEOUT(receiver.hasPendingDatagrams(), 60000);
    QCOMPARE(outputs.getStates().size(), std::size_t(1));
    QCOMPARE(outputs.getStates().front().name, output.name);
    QTRY_VERIFY_WITH_TIMEOUT(outputs.getStates().front().isReached, 60000);
    outputs.setOn(false);
    QVERIFY(!outputs.isOn());
    QVERIFY(!beats.getThread().isStarted());
    // It is still told, as one that is not reached.
    QCOMPARE(outputs.getStates().size(), std::size_t(1));
    QVERIFY(!outputs.getStates().front().isReached);
}

void tst_MonitorOutputs::disabledOutput_staysAway()
{
    StoredOutput output;
    output.name = QStringLiteral("Lights");
    output.kind = QStringLiteral("osc");
    output.address = QStringLiteral("127.0.0.1:9");
    output.isEnabled = false;
    _Store(output);
    LiveBeats beats;
    MonitorOutputs outputs(beats);
    QCOMPARE(outputs.setOn(true), QStringList());
    QVERIFY(outputs.isOn());
    QVERIFY(outputs.getStates().empty());
    QVERIFY(!beats.getThread().isStarted());
}

void tst_MonitorOutputs::uselessOutput_isSaid()
{
    StoredOutput output;
    output.name = QStringLiteral("Lights");
    output.kind = QStringLiteral("osc");
    output.address = QStringLiteral("127.0.0.1:notaport");
    _Store(output);
    LiveBeats beats;
    MonitorOutputs outputs(beats);
    const QStringList problems = outputs.setOn(true);
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().startsWith(QStringLiteral("Lights: ")));
    QVERIFY(outputs.getStates().empty());
}

AA_TEST(tst_MonitorOutputs, QCoreApplication)
#include "tst_MonitorOutputs.moc"
