// SPDX-License-Identifier: MIT
#include <shared/outputs/wled/WledReceiver.h>

#include <QtTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <sys/socket.h>
#include <unistd.h>

using shared::WledReceiver;

namespace {

/// The other side, on a port of the loopback that the system chooses.
class Controller
{
public:
    Controller()
    {
        m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        auto* value = reinterpret_cast<sockaddr*>(&address);
        ::bind(m_socket, value, size);
        getsockname(m_socket, value, &size);
        m_port = ntohs(address.sin_port);
    }
    ~Controller() { Leave(); }
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    /// As hexadecimal digits; empty when none is there.
    QByteArray Take() const
    {
        QByteArray bytes(100, '\0');
        const auto count = ::recv(m_socket, bytes.data(), std::size_t(bytes.size()), 0);
        return bytes.left(int(count < 0 ? 0 : count)).toHex();
    }
    void Leave()
    {
        if (m_socket >= 0)
            ::close(m_socket);
        m_socket = -1;
    }
    std::uint16_t port() const { return m_port; }

private:
    int m_socket;
    std::uint16_t m_port;
};

struct WledBench
{
    WledBench() { isOpen = receiver.Open() && !controller.Take().isEmpty(); }

    Controller controller;
    WledReceiver receiver{"127.0.0.1", controller.port()};
    bool isOpen;
};

shared::OutputSound soundOf(double pLevel)
{
    shared::OutputSound sound = {};
    sound.level = pLevel;
    for (std::size_t i = 0; i < sound.bands.size(); ++i)
        sound.bands[i] = double(i) / 15.0;
    sound.magnitude = 0.5;
    sound.frequency = 440.0;
    return sound;
}

/// The fields of a packet in their order, separated by spaces.
QByteArray fieldsOf(const QByteArray& pPacket)
{
    QByteArray text;
    int begin = 0;
    for (const int size : {6, 2, 4, 4, 1, 1, 16, 2, 4, 4}) {
        text += pPacket.mid(2 * begin, 2 * size) + ' ';
        begin += size;
    }
    return text.trimmed() + (pPacket.size() == 2 * begin ? "" : " and more");
}

/// "00002" with its zero, and what is reserved.
const QByteArray kHead = "303030303200 0000 ";
const QByteArray kSilentHead = kHead + "00000000 00000000 ";
const QByteArray kSilentTail = " 00000000000000000000000000000000 0000 00000000 00000000";

}  // namespace

/// Every byte of what a controller gets, on the loopback, in virtual time.
class tst_WledReceiver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sound_isSent_byteByByte();
    void opening_sendsSilence();
    void beat_isSentAtOnce_andToldForAWhile();
    void soundThatEnds_isSentAsZeros();
    void loudness_isThatOfTheLastSeconds();
    void values_stayInTheirBytes();
    void controllerThatIsOff_isNoFault();
    void addressThatIsNone_isNamed();
};

void tst_WledReceiver::sound_isSent_byteByByte()
{
    WledBench bench;
    QVERIFY(bench.isOpen);
    QVERIFY(bench.receiver.hearsSound());
    QVERIFY(bench.receiver.Sound(soundOf(0.5)));
    // 255, a quarter of it, 0 to 255 in steps of 17, half of 2040, 440 Hz, in IEEE 754.
    QCOMPARE(fieldsOf(bench.controller.Take()),
             kHead + "00007f43 00007f42 00 01 00112233445566778899aabbccddeeff 0000 00007f44 "
                     "0000dc43");
    // Half as loud: 127.5; 63.75 and a quarter of the 63.75 to there are 79.6875.
    QVERIFY(bench.receiver.Sound(soundOf(0.25)));
    QCOMPARE(fieldsOf(bench.controller.Take()),
             kHead + "0000ff42 00609f42 00 02 00112233445566778899aabbccddeeff 0000 00007f44 "
                     "0000dc43");
    QCOMPARE(bench.controller.Take(), QByteArray());
}

void tst_WledReceiver::opening_sendsSilence()
{
    Controller controller;
    WledReceiver receiver("localhost", controller.port());
    QVERIFY(receiver.Open());
    QCOMPARE(receiver.getState(), QStringLiteral("WLED at localhost:%1").arg(controller.port()));
    QCOMPARE(fieldsOf(controller.Take()), kSilentHead + "00 00" + kSilentTail);
}

void tst_WledReceiver::beat_isSentAtOnce_andToldForAWhile()
{
    WledBench bench;
    QVERIFY(bench.receiver.Sound(soundOf(0.5)));
    QCOMPARE(bench.controller.Take().mid(32, 2), QByteArray("00"));
    QVERIFY(bench.receiver.Beat({}));
    QCOMPARE(fieldsOf(bench.controller.Take()),
             kHead + "00007f43 00007f42 01 02 00112233445566778899aabbccddeeff 0000 00007f44 "
                     "0000dc43");
    // For 40 ms, in whatever is sent.
    for (const char* peak : {"01", "00", "00"}) {
        QTest::qSleep(20);
        QVERIFY(bench.receiver.Sound(soundOf(0.5)));
        QCOMPARE(bench.controller.Take().mid(32, 2), QByteArray(peak));
    }
}

void tst_WledReceiver::soundThatEnds_isSentAsZeros()
{
    WledBench bench;
    bench.receiver.Sound(soundOf(0.5));
    bench.controller.Take();
    QTest::qSleep(99);
    QVERIFY(bench.receiver.Rest());
    QCOMPARE(bench.controller.Take(), QByteArray());
    QTest::qSleep(1);
    QVERIFY(bench.receiver.Rest());
    QCOMPARE(fieldsOf(bench.controller.Take()), kSilentHead + "00 02" + kSilentTail);
    // A beat of the hand, without any sound.
    QVERIFY(bench.receiver.Beat({}));
    QCOMPARE(fieldsOf(bench.controller.Take()), kSilentHead + "01 03" + kSilentTail);
    // What is heard below the threshold is silence, too.
    QVERIFY(bench.receiver.Sound(soundOf(0.0029)));
    QCOMPARE(fieldsOf(bench.controller.Take()), kSilentHead + "01 04" + kSilentTail);
}

void tst_WledReceiver::loudness_isThatOfTheLastSeconds()
{
    WledBench bench;
    bench.receiver.Sound(soundOf(0.5));
    bench.controller.Take();
    // Eight seconds halve it, also when they are spent with resting.
    for (int i = 0; i < 160; ++i) {
        QTest::qSleep(50);
        bench.receiver.Rest();
        bench.controller.Take();
    }
    bench.receiver.Sound(soundOf(0.25));
    const QByteArray packet = QByteArray::fromHex(bench.controller.Take());
    QCOMPARE(qFromLittleEndian<float>(packet.constData() + 8), 255.0F);
    bench.receiver.Sound(soundOf(0.125));
    const QByteArray half = QByteArray::fromHex(bench.controller.Take());
    QCOMPARE(qFromLittleEndian<float>(half.constData() + 8), 127.5F);
}

void tst_WledReceiver::values_stayInTheirBytes()
{
    WledBench bench;
    shared::OutputSound sound = soundOf(1.0);
    sound.bands.fill(1.5);
    sound.bands[0] = -0.5;
    bench.receiver.Sound(sound);
    QCOMPARE(bench.controller.Take().mid(36, 32), QByteArray("00") + QByteArray(30, 'f'));
    // 256 packets later the number is the same: of the first, 0, and this one.
    for (int i = 2; i < 256; ++i) {
        bench.receiver.Sound(sound);
        bench.controller.Take();
    }
    bench.receiver.Sound(sound);
    QCOMPARE(bench.controller.Take().mid(34, 2), QByteArray("00"));
}

void tst_WledReceiver::controllerThatIsOff_isNoFault()
{
    WledBench bench;
    bench.controller.Leave();
    for (int i = 0; i < 10; ++i)
        QVERIFY(bench.receiver.Sound(soundOf(0.5)));
    QVERIFY(bench.receiver.getState().startsWith(QLatin1String("WLED at 127.0.0.1")));
}

void tst_WledReceiver::addressThatIsNone_isNamed()
{
    WledReceiver receiver("256.256.256.256", 1);
    QVERIFY(!receiver.Open());
    QCOMPARE(receiver.getState(),
             QStringLiteral("256.256.256.256:1 is no address that this machine can reach"));
    QVERIFY(!receiver.Sound(soundOf(0.5)));
}

AA_TEST(tst_WledReceiver, InVirtualTime<QCoreApplication>)

#include "tst_WledReceiver.moc"
