// SPDX-License-Identifier: MIT
#include <cli/live/ListenOutputs.h>

#include <QUdpSocket>
#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <cstring>
#include <support/TestClass.h>
#include <vector>

/// What "listen" sends beats and sound to. With real sockets, in real time.
class tst_ListenOutputs_sound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sound_isSent_toOutputsThatHearIt();
};

// 44 bytes, in which the level stands as the float from the ninth on; before any sound it is 0.
void tst_ListenOutputs_sound::sound_isSent_toOutputsThatHearIt()
{
    FakeAudioState::Install();
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress(QHostAddress::LocalHost)));
    ListenOptions options;
    options.isWithoutStored = true;
    StoredOutput output;
    output.kind = QStringLiteral("wled");
    output.address = QStringLiteral("127.0.0.1:%1").arg(receiver.localPort());
    options.outputs = {output};

    SessionLog log;
    LiveBeats beats;
    beats.Follow(&log.session);
    ListenOutputs outputs(options, beats);
    QCOMPARE(outputs.Begin(log.session), QStringList());
    log.Open();
    std::vector<qint16> loud;
    for (int i = 0; i < 1024; ++i)
        loud.push_back(i % 64 < 32 ? 20000 : -20000);
    bool isHeard = false;
    const auto isLevelHeard = [&] {
        SessionLog::Push(loud);
        while (receiver.hasPendingDatagrams()) {
            QByteArray packet(int(receiver.pendingDatagramSize()), '\0');
            receiver.readDatagram(packet.data(), packet.size());
            float level = 0.0F;
            if (packet.size() == 44)
                std::memcpy(&level, packet.constData() + 8, sizeof level);
            isHeard = isHeard || level > 0.0F;
        }
        return isHeard;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isLevelHeard(), 60000);
    outputs.End();
}

AA_TEST(tst_ListenOutputs_sound, QCoreApplication)
#include "tst_ListenOutputs_sound.moc"
