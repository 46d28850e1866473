// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/outputs/midi/JackMidiPort.h>
#include <shared/outputs/midi/MidiClock.h>
#include <shared/outputs/midi/MidiPorts.h>

#include <QtTest>

#include <apps/shared/outputs/midi/JackServer.h>
#include <apps/shared/outputs/midi/MidiBench.h>
#include <support/TestClass.h>

using shared::JackMidiPort;
using shared::MidiMessage;

namespace {

constexpr int kLongestMs = 60000;  // only a hang takes that long

/// What the monitor got, as hexadecimal bytes, until there are so many messages.
QStringList received(JackMonitor& pMonitor, int pCount)
{
    QStringList texts;
    JackMonitor::Event event = {};
    QElapsedTimer clock;
    clock.start();
    while (texts.size() < pCount && clock.elapsed() < kLongestMs)
        if (pMonitor.Take(event))
            texts += QString::fromLatin1(
                QByteArray(reinterpret_cast<const char*>(event.bytes), event.size).toHex());
        else
            QTest::qWait(1);
    return texts;
}

}  // namespace

/// On a server of the test's own; what matters is what arrives and in which order, not when.
class tst_JackMidiPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void messages_arriveInOrder_asManyAsWereSent();
    void portThatIsNotThere_isNamed();
    void portThatGoes_isMissed();
    void outputs_areToldApart_byTheirNames();
    void clock_startsBeforeItsFirstTick();
    void server_mayGoAndComeBack();

private:
    static void port_cannotBeHad();

    JackServer m_server{256};
};

void tst_JackMidiPort::initTestCase()
{
    // Without one, before it is started.
    port_cannotBeHad();
    m_server.Start();
    JackMonitor monitor;
    QTRY_VERIFY_WITH_TIMEOUT(monitor.Open(), kLongestMs);
}

void tst_JackMidiPort::port_cannotBeHad()
{
    JackMidiPort port{QString()};
    QVERIFY(!port.Open());
    QCOMPARE(port.getState(), QStringLiteral("no JACK server runs"));
    QVERIFY(!port.Send({0, MidiMessage::Clock()}));
    port.Close();
    QCOMPARE(JackMidiPort::ListPorts(), QStringList());
}

void tst_JackMidiPort::messages_arriveInOrder_asManyAsWereSent()
{
    JackMonitor monitor;
    QVERIFY(monitor.Open());
    QVERIFY(JackMidiPort::ListPorts().contains(QStringLiteral("monitor:in")));
    const auto port = shared::MakeMidiPort(QStringLiteral("jack:MONITOR"));
    QVERIFY2(port->Open(), qPrintable(port->getState()));
    QCOMPARE(port->getState(), QStringLiteral("JACK port monitor:in"));
    QStringList expected;
    for (int note = 0; note < 100; ++note) {
        QVERIFY(port->Send({shared::ClockThread::getTime(), MidiMessage::NoteOn(1, note, 64)}));
        expected += QStringLiteral("90") + QStringLiteral("%1").arg(note, 2, 16, QLatin1Char('0')) +
                    QStringLiteral("40");
    }
    // What is about to leave does leave.
    port->Close();
    QCOMPARE(received(monitor, 100), expected);
}

void tst_JackMidiPort::portThatIsNotThere_isNamed()
{
    JackMonitor monitor;
    QVERIFY(monitor.Open());
    JackMidiPort port(QStringLiteral("Drums"));
    QVERIFY(!port.Open());
    QCOMPARE(port.getState(), QStringLiteral("no JACK port is named Drums"));
}

void tst_JackMidiPort::portThatGoes_isMissed()
{
    auto monitor = std::make_unique<JackMonitor>();
    QVERIFY(monitor->Open());
    JackMidiPort port(QStringLiteral("monitor"));
    QVERIFY(port.Open());
    QVERIFY(port.isThere());
    monitor.reset();
    QTRY_VERIFY_WITH_TIMEOUT(!port.isThere(), kLongestMs);
    QVERIFY(!port.Send({shared::ClockThread::getTime(), MidiMessage::Clock()}));
    QCOMPARE(port.getState(), QStringLiteral("the JACK port monitor has gone"));
    QVERIFY(!port.Open());
    monitor = std::make_unique<JackMonitor>();
    QVERIFY(monitor->Open());
    QVERIFY(port.Open());
    QVERIFY(port.Send({shared::ClockThread::getTime(), MidiMessage::Clock()}));
    QCOMPARE(received(*monitor, 1), QStringList(QStringLiteral("f8")));
}

void tst_JackMidiPort::outputs_areToldApart_byTheirNames()
{
    JackMonitor monitor;
    QVERIFY(monitor.Open());
    const auto open = [](const char* pKind, const char* pAddress = "") {
        QString reason;
        auto receiver = shared::makeReceiver(
            QString::fromLatin1(pKind), QString::fromLatin1(pAddress), {}, reason);
        return receiver->Open() ? std::move(receiver) : nullptr;
    };
    // Notes first: whoever comes first does not get another one's name.
    const auto notes = open("midi-notes");
    const auto clock = open("midi-clock");
    const auto second = open("midi-clock", "jack:monitor");
    QVERIFY(notes && clock && second);
    QCOMPARE(notes->getState(), QStringLiteral("JACK port audio-analyzer-notes:notes"));
    QCOMPARE(clock->getState(), QStringLiteral("JACK port audio-analyzer:clock"));
    QCOMPARE(second->getState(), QStringLiteral("JACK port monitor:in"));
    // A second clock is another client, since the name is taken.
    const char** connected =
        jack_port_get_connections(jack_port_by_name(monitor.getClient(), "monitor:in"));
    QVERIFY(connected);
    QCOMPARE(QByteArray(connected[0]), QByteArray("audio-analyzer-01:clock"));
    jack_free(connected);
    // What one sends arrives while the others are there.
    QVERIFY(second->Playing(true, midi_bench::state()));
    const std::int64_t now = shared::ClockThread::getTime();
    QVERIFY(second->Beat({midi_bench::tick(0, 0, now), midi_bench::state(), 1.0, false}));
    QCOMPARE(received(monitor, 2), QStringList({QStringLiteral("fa"), QStringLiteral("f8")}));
}

void tst_JackMidiPort::clock_startsBeforeItsFirstTick()
{
    JackMonitor monitor;
    QVERIFY(monitor.Open());
    BeatClock clock;
    shared::ClockThread thread(clock);
    thread.Start();
    Outputs outputs(thread, [](const BeatClockState&) { return 1.0; });
    outputs.Add(QStringLiteral("drums"),
                std::make_unique<shared::MidiClock>(
                    shared::MakeMidiPort(QStringLiteral("jack:monitor")), false));
    QTRY_VERIFY_WITH_TIMEOUT(outputs.isOpen(QStringLiteral("drums")), kLongestMs);
    clock.HoldAt(200.0, shared::ClockThread::getTime());
    QCOMPARE(received(monitor, 2), QStringList({QStringLiteral("fa"), QStringLiteral("f8")}));
    clock.Restart(shared::ClockThread::getTime());
    QStringList rest;
    while (rest.isEmpty() || rest.last() != QLatin1String("fc")) {
        const QStringList next = received(monitor, 1);
        QVERIFY(!next.isEmpty());
        rest += next;
    }
}

void tst_JackMidiPort::server_mayGoAndComeBack()
{
    JackMidiPort port{QString()};
    QVERIFY(port.Open());
    JackMidiPort other{QString()};
    QVERIFY(other.Open());
    QVERIFY(other.isThere());
    m_server.End();
    QTRY_VERIFY_WITH_TIMEOUT(!other.isThere(), kLongestMs);
    QTRY_VERIFY_WITH_TIMEOUT(!port.Send({shared::ClockThread::getTime(), MidiMessage::Clock()}),
                             kLongestMs);
    port.Close();
    m_server.Start();
    // No new client while an old one is there: the server's library would free it.
    QVERIFY(!port.Open());
    other.Close();
    QTRY_VERIFY_WITH_TIMEOUT(port.Open(), kLongestMs);
    QVERIFY(port.Send({shared::ClockThread::getTime(), MidiMessage::Clock()}));
    QVERIFY(port.getState().startsWith(QLatin1String("JACK port audio-analyzer")));
}

AA_TEST(tst_JackMidiPort, QCoreApplication)

#include "tst_JackMidiPort.moc"
