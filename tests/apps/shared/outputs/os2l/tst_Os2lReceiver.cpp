// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/Os2lReceiver.h>

#include <QtTest>

#include <apps/shared/outputs/os2l/LightProgram.h>
#include <support/TestClass.h>

using shared::Os2lAddress;
using shared::Os2lReceiver;

namespace {

constexpr int kHangMs = 60000;  // only a hang takes that long

std::optional<Os2lAddress> addressOf(const LightProgram& pLights)
{
    return Os2lReceiver::AddressOf(QStringLiteral("127.0.0.1:%1").arg(pLights.port()));
}

shared::OutputMoment beatNumber(qint64 pBeat)
{
    shared::OutputMoment moment = {};
    moment.tick.beat = pBeat;
    moment.state.bpm = 128.0;
    moment.confidence = 1.0;
    return moment;
}

QByteArray textOfBeat(qint64 pBeat)
{
    return R"({"evt":"beat","change":false,"pos":)" + QByteArray::number(pBeat) +
           R"(,"bpm":128.00,"strength":1.00})";
}

}  // namespace

/// One light program at an address, on the loopback.
class tst_Os2lReceiver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void address_isUnderstood_data();
    void address_isUnderstood();
    void lights_getTheBeats();
    void lights_thatAreAway_areNamed();
    void name_isResolved();
    void lights_thatLeave_areMissed_data();
    void lights_thatLeave_areMissed();
    void lights_thatDoNotRead_areLeft();
    void answers_areTold();
};

void tst_Os2lReceiver::address_isUnderstood_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("host") << QStringLiteral("stage.local") << QByteArray("stage.local") << 9996;
    QTest::newRow("both") << QStringLiteral("10.0.0.7:8010") << QByteArray("10.0.0.7") << 8010;
    QTest::newRow("IPv6") << QStringLiteral("[::1]") << QByteArray("::1") << 9996;
    QTest::newRow("IPv6 and port")
        << QStringLiteral("[fe80::1%lo]:65535") << QByteArray("fe80::1%lo") << 65535;
    for (const char* text : {"",
                             ":80",
                             "host:",
                             "host:0",
                             "host:65536",
                             "host:-1",
                             "::1",
                             "a b",
                             "[::1",
                             "h:99999999"})
        QTest::newRow(text) << QString::fromLatin1(text) << QByteArray() << 0;
}

void tst_Os2lReceiver::address_isUnderstood()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, host);
    QFETCH(const int, port);
    const auto address = Os2lReceiver::AddressOf(text);
    QCOMPARE(address.has_value(), port != 0);
    if (!address)
        return;
    QCOMPARE(address->name, text);
    QCOMPARE(address->host, host);
    QCOMPARE(int(address->port), port);
}

void tst_Os2lReceiver::lights_getTheBeats()
{
    LightProgram lights;
    Os2lReceiver receiver(addressOf(lights));
    QVERIFY(receiver.Open());
    QVERIFY(lights.Accept());
    QCOMPARE(receiver.getState(), QStringLiteral("light program 127.0.0.1:%1").arg(lights.port()));
    for (qint64 beat = 40; beat < 45; ++beat) {
        QVERIFY(receiver.Beat(beatNumber(beat)));
        QVERIFY(receiver.Rest());
        QCOMPARE(lights.Read(), textOfBeat(beat));
    }
    receiver.Close();
    QCOMPARE(lights.Read(), QByteArray());
}

void tst_Os2lReceiver::lights_thatAreAway_areNamed()
{
    LightProgram lights;
    lights.Hush();
    Os2lReceiver receiver(addressOf(lights));
    QVERIFY(!receiver.Open());
    QCOMPARE(
        receiver.getState(),
        QStringLiteral("no light program at 127.0.0.1:%1: is OS2L on there, and the port right?")
            .arg(lights.port()));
    receiver.Close();
    QVERIFY(lights.Listen());
    QVERIFY(receiver.Open());
}

void tst_Os2lReceiver::name_isResolved()
{
    LightProgram lights;
    // Its IPv6 address comes first where there is one, and nobody listens there.
    Os2lReceiver receiver(
        Os2lReceiver::AddressOf(QStringLiteral("localhost:%1").arg(lights.port())));
    QVERIFY(receiver.Open());
    QVERIFY(lights.Accept());
    Os2lReceiver lost(Os2lReceiver::AddressOf(QStringLiteral("256.256.256.256:1")));
    QVERIFY(!lost.Open());
}

void tst_Os2lReceiver::lights_thatLeave_areMissed_data()
{
    QTest::addColumn<bool>("isReset");
    QTest::newRow("end") << false;
    QTest::newRow("reset") << true;
}

void tst_Os2lReceiver::lights_thatLeave_areMissed()
{
    QFETCH(const bool, isReset);
    LightProgram lights;
    Os2lReceiver receiver(addressOf(lights));
    QVERIFY(receiver.Open());
    QVERIFY(lights.Accept());
    isReset ? lights.Reset() : lights.Leave();
    QTRY_VERIFY_WITH_TIMEOUT(!receiver.Rest(), kHangMs);
    QVERIFY(!receiver.Beat(beatNumber(1)));
    receiver.Close();
    QVERIFY(receiver.Open());
    QVERIFY(lights.Accept());
    QVERIFY(receiver.Beat(beatNumber(2)));
    QCOMPARE(lights.Read(), textOfBeat(2));
}

/// Whatever the system keeps for it, in the end it does not fit.
void tst_Os2lReceiver::lights_thatDoNotRead_areLeft()
{
    LightProgram lights;
    Os2lReceiver receiver(addressOf(lights));
    QVERIFY(receiver.Open());
    qint64 beat = 0;
    while (receiver.Beat(beatNumber(beat)))
        ++beat;
    QVERIFY(beat > 0);
    receiver.Close();
    QVERIFY(receiver.Open());
}

void tst_Os2lReceiver::answers_areTold()
{
    LightProgram lights;
    QStringList told;
    Os2lReceiver receiver(addressOf(lights), [&](const shared::Os2lAnswer& pAnswer) {
        told += pAnswer.name + (pAnswer.isOn ? QStringLiteral(" on") : QStringLiteral(" off"));
    });
    QVERIFY(receiver.Open());
    QVERIFY(lights.Accept());
    QVERIFY(lights.Send(R"(nonsense {"evt":"feedback","name":"fog","state":"on"}{"evt":"fe)"));
    QTRY_COMPARE_WITH_TIMEOUT(
        (receiver.Rest(), told.join(QLatin1Char(' '))), QStringLiteral("fog on"), kHangMs);
    QVERIFY(lights.Send(R"(edback","name":"fog","state":"off"})"));
    QTRY_COMPARE_WITH_TIMEOUT(
        (receiver.Rest(), told.join(QLatin1Char(' '))), QStringLiteral("fog on fog off"), kHangMs);
    QVERIFY(receiver.Beat(beatNumber(7)));
}

AA_TEST(tst_Os2lReceiver, QCoreApplication)

#include "tst_Os2lReceiver.moc"
