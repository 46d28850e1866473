// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <cli/live/ListenHands.h>
#include <shared/clock/ClockThread.h>

#include <QtTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <support/TestClass.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int kHandMs = 60000;  // only a hang takes that long

/// Hands at a port of the loopback, on a clock that is held at 120 BPM.
struct ListenHandsBench
{
    explicit ListenHandsBench(const char* pLearned = nullptr)
    {
        options.osc.push_back({QString(), 0});
        if (pLearned)
            options.learned = shared::HandAction::Parse(QString::fromLatin1(pLearned));
        hands = std::make_unique<ListenHands>(
            options, beats, configuration, [this](const QString& pWords) { said += pWords; });
        problems = hands->Begin();
        beats.getClock().HoldAt(120.0, shared::ClockThread::getTime());
    }
    /// A message without arguments; pAddress fills four bytes less one.
    void touch(const QByteArray& pAddress)
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(hands->m_osc[0]->getPort());
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
        const QByteArray packet = pAddress + '\0';
        ::sendto(socket,
                 packet.constData(),
                 std::size_t(packet.size()),
                 0,
                 reinterpret_cast<sockaddr*>(&address),
                 sizeof(address));
        ::close(socket);
    }

    Configuration configuration;
    LiveBeats beats;
    HandOptions options;
    QStringList said;
    QStringList problems;
    std::unique_ptr<ListenHands> hands;
};

}  // namespace

/// What comes over the wire reaches the clock, and what is learned stays.
class tst_ListenHands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void control_isLearned_andDoesItFromThenOn();
    void offsetAndProfile_areMoved();
    void nothingIsOpened_thatWasNotAskedFor();
    void portThatIsTaken_isSaid();
};

void tst_ListenHands::cleanup()
{
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_ListenHands::control_isLearned_andDoesItFromThenOn()
{
    {
        ListenHandsBench bench("half");
        QVERIFY(bench.problems.isEmpty());
        QCOMPARE(bench.said.last(), QStringLiteral("touch the control that is to do \"half\""));
        bench.touch("/go");
        QTRY_COMPARE_WITH_TIMEOUT(
            bench.said.last(), QStringLiteral("osc:/go does \"half\" from now on"), kHandMs);
        QCOMPARE(bench.beats.getClock().getState().bpm, 120.0);
        bench.touch("/go");
        QTRY_COMPARE_WITH_TIMEOUT(bench.beats.getClock().getState().bpm, 60.0, kHandMs);
    }
    // Another time it need not be learned.
    ListenHandsBench later;
    QCOMPARE(later.said.size(), 1);
    later.touch("/go");
    QTRY_COMPARE_WITH_TIMEOUT(later.beats.getClock().getState().bpm, 60.0, kHandMs);
}

void tst_ListenHands::offsetAndProfile_areMoved()
{
    ListenHandsBench bench;
    shared::HandMap& map = bench.hands->m_hands.getMap();
    map.Learn(QStringLiteral("osc:/up"), *shared::HandAction::Parse(QStringLiteral("offset 300")));
    map.Learn(QStringLiteral("osc:/pf"),
              *shared::HandAction::Parse(QStringLiteral("profile hardcore")));
    map.Learn(QStringLiteral("osc:/no"),
              *shared::HandAction::Parse(QStringLiteral("profile Polka")));
    bench.touch("/up");
    QTRY_COMPARE_WITH_TIMEOUT(bench.said.last(), QStringLiteral("offset 300 ms"), kHandMs);
    QCOMPARE(bench.beats.getClock().getState().offset, std::int64_t(300000));
    // Not beyond 500 ms.
    bench.touch("/up");
    bench.touch("/pf");
    QTRY_COMPARE_WITH_TIMEOUT(bench.said.last(), QStringLiteral("profile Hardcore"), kHandMs);
    QCOMPARE(bench.beats.getClock().getState().offset, std::int64_t(300000));
    QCOMPARE(bench.configuration.getSelectedProfile().getName(), QStringLiteral("Hardcore"));
    QVERIFY(!bench.beats.isAutomatic());
    bench.touch("/no");
    QTRY_COMPARE_WITH_TIMEOUT(
        bench.said.last(), QStringLiteral("there is no profile Polka"), kHandMs);
}

void tst_ListenHands::nothingIsOpened_thatWasNotAskedFor()
{
    Configuration configuration;
    LiveBeats beats;
    const HandOptions none;
    ListenHands hands(
        none, beats, configuration, [](const QString& pWords) { QFAIL(qPrintable(pWords)); });
    QCOMPARE(hands.Begin(), QStringList());
    QVERIFY(hands.m_midi.empty());
    QVERIFY(hands.m_osc.empty());
}

void tst_ListenHands::portThatIsTaken_isSaid()
{
    OscInput other;
    QVERIFY(other.Open(QString(), 0));
    Configuration configuration;
    LiveBeats beats;
    HandOptions options;
    options.osc.push_back({QString(), other.getPort()});
    QStringList said;
    ListenHands hands(
        options, beats, configuration, [&](const QString& pWords) { said += pWords; });
    QCOMPARE(hands.Begin().join(QLatin1Char('|')),
             QStringLiteral("hands: OSC at port %1: Address already in use").arg(other.getPort()));
}

AA_TEST(tst_ListenHands, QCoreApplication)

#include "tst_ListenHands.moc"
