// SPDX-License-Identifier: MIT
#include <shared/hands/MidiInput.h>
#include <shared/hands/OscInput.h>

#include <QtTest>

#include <apps/shared/outputs/midi/JackServer.h>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <support/TestClass.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int kPatienceMs = 60000;  // only a hang takes that long

/// A console on the loopback.
class Console
{
public:
    explicit Console(std::uint16_t pPort)
        : m_socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(pPort);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof(address));
    }
    ~Console() { ::close(m_socket); }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    bool Send(const QByteArray& pBytes) const
    {
        return ::send(m_socket, pBytes.constData(), std::size_t(pBytes.size()), 0) == pBytes.size();
    }

private:
    int m_socket;
};

/// A pedal board at the JACK server: one that sends what it is told, once a cycle.
class PedalBoard
{
public:
    ~PedalBoard()
    {
        if (m_client)
            jack_client_close(m_client);
        if (m_ring)
            jack_ringbuffer_free(m_ring);
    }
    bool Open()
    {
        m_client = jack_client_open("pedals", JackNoStartServer, nullptr);
        if (!m_client)
            return false;
        m_ring = jack_ringbuffer_create(1024);
        m_port = jack_port_register(m_client, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
        jack_set_process_callback(m_client, &PedalBoard::_Process, this);
        return jack_activate(m_client) == 0;
    }
    bool isConnected() const { return jack_port_connected(m_port) > 0; }
    void Send(const QByteArray& pThreeBytes)
    {
        jack_ringbuffer_write(m_ring, pThreeBytes.constData(), 3);
    }

private:
    static int _Process(jack_nframes_t pCount, void* pSelf)
    {
        auto& self = *static_cast<PedalBoard*>(pSelf);
        void* buffer = jack_port_get_buffer(self.m_port, pCount);
        jack_midi_clear_buffer(buffer);
        jack_midi_data_t bytes[3];
        if (jack_ringbuffer_read_space(self.m_ring) >= 3) {
            jack_ringbuffer_read(self.m_ring, reinterpret_cast<char*>(bytes), 3);
            jack_midi_event_write(buffer, 0, bytes, 3);
        }
        return 0;
    }

    jack_client_t* m_client = nullptr;
    jack_port_t* m_port = nullptr;
    jack_ringbuffer_t* m_ring = nullptr;
};

}  // namespace

/// Where hands come in, for real: the loopback, and a JACK server of the test's own.
class tst_HandInputs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void osc_isHeard();
    void oscPort_thatIsTaken_isSaid();
    void midi_isHeard_whenItsServerComes();
};

void tst_HandInputs::osc_isHeard()
{
    OscInput input;
    QCOMPARE(int(input.getPort()), 0);
    QVERIFY2(input.Open(QString(), 0), qPrintable(input.getError()));
    QStringList heard;
    connect(&input, &OscInput::OnMessage, [&](const shared::HandMessage& pMessage) {
        heard += pMessage.control + QStringLiteral("=%1").arg(pMessage.value);
    });
    const Console console(input.getPort());
    // More than are read at a time, with nonsense between.
    QStringList expected;
    for (int i = 0; i < 40; ++i) {
        QVERIFY(console.Send(QByteArray("/tap\0\0\0\0,i\0\0\0\0\0", 15) + char(i % 2)));
        QVERIFY(console.Send("nonsense"));
        expected += QStringLiteral("osc:/tap=%1").arg(i % 2);
    }
    QTRY_COMPARE_WITH_TIMEOUT(heard, expected, kPatienceMs);
    input.Close();
    QCOMPARE(int(input.getPort()), 0);
}

void tst_HandInputs::oscPort_thatIsTaken_isSaid()
{
    OscInput one;
    QVERIFY(one.Open(QString(), 0));
    OscInput other;
    QVERIFY(!other.Open(QString(), one.getPort()));
    QCOMPARE(other.getError(), QStringLiteral("Address already in use"));
    QVERIFY(!other.Open(QStringLiteral("256.256.256.256"), 0));
    QVERIFY(!other.getError().isEmpty());
    const std::uint16_t port = one.getPort();
    one.Close();
    QVERIFY(other.Open(QString(), port));
}

void tst_HandInputs::midi_isHeard_whenItsServerComes()
{
    JackServer server(256);
    MidiInput input;
    QStringList heard;
    connect(&input, &MidiInput::OnMessage, [&](const shared::HandMessage& pMessage) {
        heard += pMessage.control + QStringLiteral("=%1").arg(pMessage.value);
    });
    input.Open(QStringLiteral("jack:pedals"));
    QVERIFY(!input.isOpen());
    server.Start();
    auto pedals = std::make_unique<PedalBoard>();
    while (!pedals->Open())
        QTest::qWait(5);
    QTRY_VERIFY_WITH_TIMEOUT(input.isOpen(), kPatienceMs);
    QCOMPARE(input.getState(), QStringLiteral("MIDI port pedals:out"));
    QTRY_VERIFY_WITH_TIMEOUT(pedals->isConnected(), kPatienceMs);
    pedals->Send(QByteArray::fromHex("99247f"));
    pedals->Send(QByteArray::fromHex("f80000"));
    pedals->Send(QByteArray::fromHex("b04000"));
    QTRY_COMPARE_WITH_TIMEOUT(heard.join(QLatin1Char(' ')),
                              QStringLiteral("midi:note/10/36=1 midi:cc/1/64=0"),
                              kPatienceMs);
    pedals.reset();
    QTRY_VERIFY_WITH_TIMEOUT(!input.isOpen(), kPatienceMs);
    QCOMPARE(input.getState(), QStringLiteral("no MIDI port is named pedals"));
    pedals = std::make_unique<PedalBoard>();
    QVERIFY(pedals->Open());
    QTRY_VERIFY_WITH_TIMEOUT(input.isOpen(), kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(pedals->isConnected(), kPatienceMs);
    heard.clear();
    pedals->Send(QByteArray::fromHex("b0407f"));
    QTRY_COMPARE_WITH_TIMEOUT(
        heard.join(QLatin1Char(' ')), QStringLiteral("midi:cc/1/64=1"), kPatienceMs);
    pedals.reset();
    server.End();
    QTRY_VERIFY_WITH_TIMEOUT(!input.isOpen(), kPatienceMs);
}

AA_TEST(tst_HandInputs, QCoreApplication)

#include "tst_HandInputs.moc"
