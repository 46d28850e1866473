// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/session/MonitorOutputs.h>
#include <shared/settings/FileLock.h>

#include <QFile>
#include <QSignalSpy>
#include <QUdpSocket>
#include <QtTest>

#include <support/TestClass.h>

namespace {

constexpr int kChangeMs = 60000;

/// A receiver on loopback, at a port that the system chooses.
class Lamp
{
public:
    Lamp()
    {
        if (!m_socket.bind(QHostAddress(QHostAddress::LocalHost)))
            qFatal("no port for a receiver: %s", qPrintable(m_socket.errorString()));
    }

    StoredOutput asOutput(const char* pName) const
    {
        StoredOutput output;
        output.name = QLatin1String(pName);
        output.kind = QStringLiteral("osc");
        output.address = QStringLiteral("127.0.0.1:%1").arg(m_socket.localPort());
        return output;
    }
    /// What has arrived.
    QList<QByteArray> take()
    {
        QList<QByteArray> messages;
        while (m_socket.hasPendingDatagrams()) {
            messages.append(QByteArray(int(m_socket.pendingDatagramSize()), '\0'));
            m_socket.readDatagram(messages.last().data(), messages.last().size());
        }
        return messages;
    }
    /// Whether something arrives from now on.
    bool isLit()
    {
        take();
        return QTest::qWaitFor([this] { return m_socket.hasPendingDatagrams(); }, kChangeMs);
    }
    /// Whether nothing arrives while another one gets beats.
    bool isDark(Lamp& pOther)
    {
        take();
        for (int i = 0; i < 4; ++i)
            if (!pOther.isLit())
                return false;
        return !m_socket.hasPendingDatagrams();
    }

private:
    QUdpSocket m_socket;
};

/// What is sent at 300 BPM.
struct OutputsStand
{
    OutputsStand() { beats.getClock().HoldAt(300.0, shared::ClockThread::getTime()); }

    MonitorOutputs::Entry entry(const char* pName) const
    {
        for (const MonitorOutputs::Entry& entry : outputs.getEntries())
            if (entry.output.name == QLatin1String(pName))
                return entry;
        return {};
    }

    LiveBeats beats;
    MonitorOutputs outputs{beats};
};

/// As the command line program does.
void AddElsewhere(const StoredOutput& pOutput)
{
    OutputSettings settings = OutputSettings::Load();
    if (!settings.Add(pOutput).isEmpty() || !settings.Save())
        qFatal("cannot store an output");
}

}  // namespace

/// Changes of the stored outputs while beats are sent. With real sockets, in real time.
class tst_MonitorOutputs_changes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QFile::remove(UISettings::_getDefaultPath()); }
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void changes_actAtOnce_andAreStored();
    void changes_actWithTheNextBeat_whenAllAreOff();
    void state_isToldOfEach();
    void refusal_changesNothing();
    void changesOfOthers_areKept_andTakenOver();
    void offset_isStoredSoon();
    void offset_isStored_atTheEnd();
    void turnThatAnotherKeeps_isSaid();
    void test_sendsTwoBars_andNothingElse();
    void test_ofAUselessOutput_isRefused();
    void test_endsWithItsOutput();
};

void tst_MonitorOutputs_changes::changes_actAtOnce_andAreStored()
{
    Lamp first;
    Lamp second;
    OutputsStand stand;
    stand.outputs.setOn(true);
    QVERIFY(!stand.beats.getThread().isStarted());
    QCOMPARE(stand.outputs.Add(first.asOutput("a")), QString());
    QCOMPARE(stand.outputs.Add(second.asOutput("b")), QString());
    QVERIFY(first.isLit());
    QVERIFY(second.isLit());
    QCOMPARE(stand.outputs.setEnabled(QStringLiteral("a"), false), QString());
    QVERIFY(first.isDark(second));
    QVERIFY(!OutputSettings::Load().Find(QStringLiteral("a"))->isEnabled);
    QCOMPARE(stand.outputs.setEnabled(QStringLiteral("A"), true), QString());
    QVERIFY(first.isLit());
    Lamp third;
    QCOMPARE(stand.outputs.Replace(QStringLiteral("a"), third.asOutput("c")), QString());
    QVERIFY(third.isLit());
    QVERIFY(first.isDark(third));
    QCOMPARE(stand.outputs.Remove(QStringLiteral("b")), QString());
    QVERIFY(second.isDark(third));
    const OutputSettings stored = OutputSettings::Load();
    QCOMPARE(stored.getOutputs().size(), std::size_t(1));
    QVERIFY(stored.getOutputs().front() == third.asOutput("c"));
    QCOMPARE(stand.outputs.Remove(QStringLiteral("c")), QString());
    QVERIFY(!stand.beats.getThread().isStarted());
}

void tst_MonitorOutputs_changes::changes_actWithTheNextBeat_whenAllAreOff()
{
    Lamp lamp;
    OutputsStand stand;
    QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
    QVERIFY(!stand.beats.getThread().isStarted());
    stand.outputs.setOn(true);
    QVERIFY(lamp.isLit());
}

void tst_MonitorOutputs_changes::state_isToldOfEach()
{
    StoredOutput useless;
    useless.name = QStringLiteral("smoke");
    useless.kind = QStringLiteral("smoke");
    AddElsewhere(useless);
    StoredOutput away;
    away.name = QStringLiteral("away");
    away.kind = QStringLiteral("osc");
    away.address = QStringLiteral("tcp:127.0.0.1:1");
    AddElsewhere(away);
    const Lamp lamp;
    AddElsewhere(lamp.asOutput("there"));
    StoredOutput off = lamp.asOutput("off");
    off.isEnabled = false;
    AddElsewhere(off);
    OutputsStand stand;
    QCOMPARE(stand.outputs.setOn(true).size(), 1);
    QCOMPARE(stand.outputs.getEntries().size(), std::size_t(4));
    QCOMPARE(stand.entry("smoke").state, MonitorOutputs::eUseless);
    QVERIFY(stand.entry("smoke").words.startsWith(QLatin1String("there is no kind of output")));
    QCOMPARE(stand.entry("off").state, MonitorOutputs::eOff);
    QTRY_COMPARE_WITH_TIMEOUT(stand.entry("there").state, MonitorOutputs::eReached, kChangeMs);
    QTRY_VERIFY_WITH_TIMEOUT(
        stand.entry("there").words.startsWith(QLatin1String("sending OSC to 127.0.0.1")),
        kChangeMs);
    QTRY_VERIFY_WITH_TIMEOUT(
        stand.entry("away").words.contains(QLatin1String("nothing listens there")), kChangeMs);
    QCOMPARE(stand.entry("away").state, MonitorOutputs::eAway);
    stand.outputs.setOn(false);
    QCOMPARE(stand.entry("there").state, MonitorOutputs::eOff);
    QCOMPARE(stand.entry("smoke").state, MonitorOutputs::eUseless);
}

void tst_MonitorOutputs_changes::refusal_changesNothing()
{
    const Lamp lamp;
    OutputsStand stand;
    QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
    QVERIFY(stand.outputs.Add(lamp.asOutput("A")).contains(QLatin1String("already")));
    StoredOutput wrong = lamp.asOutput("b");
    wrong.address = QStringLiteral("nowhere:0");
    QVERIFY(stand.outputs.Add(wrong).contains(QLatin1String("give HOST:PORT")));
    QVERIFY(stand.outputs.Replace(QStringLiteral("a"), wrong).contains(QLatin1String("give")));
    QCOMPARE(stand.outputs.getEntries().size(), std::size_t(1));
    QCOMPARE(OutputSettings::Load().getOutputs().size(), std::size_t(1));
}

void tst_MonitorOutputs_changes::changesOfOthers_areKept_andTakenOver()
{
    Lamp ours;
    Lamp theirs;
    OutputsStand stand;
    stand.outputs.setOn(true);
    QCOMPARE(stand.outputs.Add(ours.asOutput("ours")), QString());
    AddElsewhere(theirs.asOutput("theirs"));
    // Before it was looked at again.
    QCOMPARE(stand.outputs.setEnabled(QStringLiteral("ours"), false), QString());
    QCOMPARE(OutputSettings::Load().getOutputs().size(), std::size_t(2));
    QVERIFY(theirs.isLit());
    Lamp later;
    AddElsewhere(later.asOutput("later"));
    QVERIFY(later.isLit());
}

void tst_MonitorOutputs_changes::offset_isStoredSoon()
{
    const Lamp lamp;
    OutputsStand stand;
    QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
    stand.outputs.setOffset(QStringLiteral("a"), -120.0);
    QCOMPARE(stand.entry("a").output.offset, -120.0);
    QTRY_COMPARE_WITH_TIMEOUT(
        OutputSettings::Load().Find(QStringLiteral("a"))->offset, -120.0, kChangeMs);
    // What is not stored yet goes with whatever is stored.
    stand.outputs.setOffset(QStringLiteral("a"), 45.0);
    QCOMPARE(stand.outputs.setEnabled(QStringLiteral("a"), false), QString());
    QCOMPARE(OutputSettings::Load().Find(QStringLiteral("a"))->offset, 45.0);
}

void tst_MonitorOutputs_changes::offset_isStored_atTheEnd()
{
    const Lamp lamp;
    {
        OutputsStand stand;
        QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
        stand.outputs.setOffset(QStringLiteral("a"), 17.0);
    }
    QCOMPARE(OutputSettings::Load().Find(QStringLiteral("a"))->offset, 17.0);
}

void tst_MonitorOutputs_changes::turnThatAnotherKeeps_isSaid()
{
    const Lamp lamp;
    OutputsStand stand;
    QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
    FileLock other;
    QCOMPARE(other.Take(UISettings::_getDefaultPath() + QStringLiteral(".turn"), 0),
             FileLock::eTaken);
    QVERIFY(stand.outputs.Remove(QStringLiteral("a"))
                .contains(QLatin1String("is being changed by another program")));
    QCOMPARE(stand.outputs.getEntries().size(), std::size_t(1));
    QSignalSpy failures(&stand.outputs, &MonitorOutputs::OnFailed);
    stand.outputs.setOffset(QStringLiteral("a"), 3.0);
    QTRY_COMPARE_WITH_TIMEOUT(failures.count(), 1, kChangeMs);
    other.LetGo();
    QCOMPARE(stand.outputs.setEnabled(QStringLiteral("a"), false), QString());
    QCOMPARE(OutputSettings::Load().Find(QStringLiteral("a"))->offset, 3.0);
}

void tst_MonitorOutputs_changes::test_sendsTwoBars_andNothingElse()
{
    Lamp lamp;
    OutputsStand stand;
    stand.outputs.setOn(true);
    StoredOutput output = lamp.asOutput("a");
    output.preset = QStringLiteral("beat /b f bpm");
    QCOMPARE(stand.outputs.Add(output), QString());
    QVERIFY(lamp.isLit());
    stand.outputs.Try(QStringLiteral("a"));
    lamp.take();
    QVERIFY(stand.outputs.getTest().isRunning);
    QCOMPARE(stand.outputs.getTest().name, QStringLiteral("a"));
    QCOMPARE(stand.outputs.getTest().seen,
             QStringLiteral("the receiver gets your messages for eight beats and two bars"));
    QTRY_COMPARE_WITH_TIMEOUT(stand.entry("a").state, MonitorOutputs::eReached, kChangeMs);
    QTRY_VERIFY_WITH_TIMEOUT(!stand.outputs.getTest().isRunning, kChangeMs);
    const QList<QByteArray> messages = lamp.take();
    QVERIFY(messages.size() > 1);
    // 120; behind them the music's beats may have come again.
    for (const QByteArray& message : messages.mid(0, 2))
        QVERIFY2(message.endsWith(QByteArray::fromHex("42f00000")), message.toHex().constData());
    QVERIFY(!stand.outputs.getTest().hasFailed);
    QCOMPARE(stand.outputs.getTest().words, QStringLiteral("8 beats were sent"));
    // Afterwards the music's beats are sent again.
    QVERIFY(lamp.isLit());
}

void tst_MonitorOutputs_changes::test_ofAUselessOutput_isRefused()
{
    StoredOutput useless;
    useless.name = QStringLiteral("a");
    useless.kind = QStringLiteral("smoke");
    AddElsewhere(useless);
    OutputsStand stand;
    stand.outputs.setOn(true);
    stand.outputs.Try(QStringLiteral("a"));
    QVERIFY(!stand.outputs.getTest().isRunning);
    QVERIFY(stand.outputs.getTest().hasFailed);
    QVERIFY(stand.outputs.getTest().words.startsWith(QLatin1String("there is no kind")));
}

void tst_MonitorOutputs_changes::test_endsWithItsOutput()
{
    const Lamp lamp;
    OutputsStand stand;
    QCOMPARE(stand.outputs.Add(lamp.asOutput("a")), QString());
    stand.outputs.Try(QStringLiteral("a"));
    QVERIFY(stand.outputs.getTest().isRunning);
    QCOMPARE(stand.outputs.Remove(QStringLiteral("a")), QString());
    QVERIFY(!stand.outputs.getTest().isRunning);
    QCOMPARE(stand.outputs.getTest().name, QString());
}

AA_TEST(tst_MonitorOutputs_changes, QCoreApplication)
#include "tst_MonitorOutputs_changes.moc"
