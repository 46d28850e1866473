// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscReceiver.h>

#include <QtTest>

#include <apps/shared/outputs/osc/OscListener.h>
#include <memory>
#include <support/TestClass.h>

using shared::OscReceiver;
using shared::OscTemplate;

namespace {

std::unique_ptr<OscReceiver>
MakeOsc(const OscListener& pListener, const char* pText, bool pIsTCP = false)
{
    QString reason;
    const auto text = OscTemplate::Parse(QString::fromLatin1(pText), reason);
    return std::make_unique<OscReceiver>(QStringLiteral("127.0.0.1"),
                                         pListener.getPort(),
                                         pIsTCP,
                                         *text,
                                         QString::fromLatin1(pText));
}

/// Beat 41, the second one of its bar of four, at 140 BPM, half a second behind 1700000000.
shared::OutputMoment MomentOf(qint64 pBeat = 41, int pPlace = 0, double pBPM = 140.0)
{
    shared::OutputMoment moment = {};
    moment.state.bpm = pBPM;
    moment.state.beatsPerBar = 4;
    moment.tick.beat = pBeat;
    moment.tick.place = pPlace;
    moment.tick.beatInBar = int(pBeat % 4);
    moment.tick.wallTime = 1700000000500000;
    moment.confidence = 0.75;
    return moment;
}

/// A beat that brings a tempo, as OutputDelivery tells it.
bool Bring(OscReceiver& pReceiver, const shared::OutputMoment& pMoment)
{
    return pReceiver.Tempo(pMoment.state.bpm) && pReceiver.Beat(pMoment);
}

}  // namespace

/// What real receivers get over loopback.
class tst_OscReceiver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void preset_sendsWhatItSays_data();
    void preset_sendsWhatItSays();
    void tempo_isSentWithTheBeatThatBringsIt_andWithEachBar();
    void ticks_areSentWithTheirPhase();
    void clockThatBeginsAndStands_isSent();
    void close_sendsTheEnd();
    void bundle_hasTheTimeOfTheBeat();
    void allTypes_areSent_withinTheirLimits();
    void tcp_isSpoken();
    void tcp_thatNobodyListensTo_isRefused_andFoundLater();
    void tcp_thatIsClosed_isNoticed();
    void tcp_thatTakesNothing_isGivenUp();
    void udp_thatNobodyListensTo_isSaid_andFoundLater();
    void unknownHost_isSaid();
};

void tst_OscReceiver::preset_sendsWhatItSays_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("said");
    // Beat 40 is a bar's first and brings 140 BPM; tick 1 of 2 or 6 of 12 and beat 41 follow.
    QTest::newRow("plain") << 4
                           << QStringLiteral("/tempo f 140\n/beat iff 40 140 0.75\n/bar i 10\n"
                                             "/beat iff 41 140 0.75");
    // (140 - 20) / 480
    QTest::newRow("resolume") << 2
                              << QStringLiteral("/composition/tempocontroller/tempo f 0.25\n"
                                                "/composition/tempocontroller/resync i 1");
    QTest::newRow("chromatik") << 3
                               << QStringLiteral(
                                      "/lx/tempo/bpm f 140\n/lx/tempo/beat-within-bar i 1\n"
                                      "/lx/tempo/beat-within-bar i 2");
    // 100 sqrt(140 / 240)
    QTest::newRow("grandma3") << 1 << QStringLiteral("/Page1/Fader201 f 76.3763");
    QTest::newRow("wled") << 2 << QStringLiteral("/wled/bpm f 140\n/wled/bpm f 140");
    QTest::newRow("touchdesigner")
        << 13
        << QStringLiteral("/bpm f 140\n/beat f 40\n/count f 1\n/bar f 10\n"
                          "/confidence f 0.75\n/phase f 0\n/phase f 0.5\n"
                          "/bpm f 140\n/beat f 41\n/count f 2\n"
                          "/confidence f 0.75\n/phase f 0\n/playing f 0");
    QTest::newRow("qlcplus") << 8
                             << QStringLiteral(
                                    "/beat f 1\n/one f 1\n/bpm f 0.25\n/beat f 0\n/one f 0\n"
                                    "/beat f 1\n/one f 0\n/bpm f 0.25");
}

void tst_OscReceiver::preset_sendsWhatItSays()
{
    QFETCH(int, count);
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, QTest::currentDataTag());
    QVERIFY(pReceiver->Open());
    QVERIFY(Bring(*pReceiver, MomentOf(40)));
    for (int i = 1; i < pReceiver->getDivision(); ++i)
        if (2 * i == pReceiver->getDivision())
            QVERIFY(pReceiver->Tick(MomentOf(40, i)));
    QVERIFY(pReceiver->Beat(MomentOf(41)));
    QVERIFY(pReceiver->Playing(false, {}));
    QString got = listener.take(count);
    got.remove(QRegularExpression(QStringLiteral(" @[0-9+]+")));
    QTEST(got, "said");
}

void tst_OscReceiver::tempo_isSentWithTheBeatThatBringsIt_andWithEachBar()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "tempo /t f bpm; beat /b i beat");
    QVERIFY(pReceiver->Open());
    QVERIFY(Bring(*pReceiver, MomentOf(1, 0, 120.0)));
    QVERIFY(pReceiver->Beat(MomentOf(2, 0, 120.0)));
    QVERIFY(Bring(*pReceiver, MomentOf(3, 0, 121.5)));
    QVERIFY(pReceiver->Beat(MomentOf(4, 0, 121.5)));
    QVERIFY(pReceiver->Beat(MomentOf(5, 0, 121.5)));
    QCOMPARE(
        listener.take(8),
        QStringLiteral("/t f 120\n/b i 1\n/b i 2\n/t f 121.5\n/b i 3\n/t f 121.5\n/b i 4\n/b i 5"));
}

void tst_OscReceiver::ticks_areSentWithTheirPhase()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "tick4 /q f phase; tick2 /h f beat + phase");
    QCOMPARE(pReceiver->getDivision(), 4);
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Beat(MomentOf(7)));
    for (int i = 1; i < 4; ++i)
        QVERIFY(pReceiver->Tick(MomentOf(7, i)));
    QCOMPARE(listener.take(6),
             QStringLiteral("/q f 0\n/h f 7\n/q f 0.25\n/q f 0.5\n/h f 7.5\n/q f 0.75"));
}

void tst_OscReceiver::clockThatBeginsAndStands_isSent()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "playing /p i playing");
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Playing(true, {}));
    QVERIFY(pReceiver->Beat(MomentOf()));
    QVERIFY(pReceiver->Playing(false, {}));
    QCOMPARE(listener.take(2), QStringLiteral("/p i 1\n/p i 0"));
}

void tst_OscReceiver::close_sendsTheEnd()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "playing /p i playing");
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Playing(true, {}));
    pReceiver->Close();
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Playing(false, {}));
    // It stands already.
    pReceiver->Close();
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Playing(true, {}));
    QCOMPARE(listener.take(4), QStringLiteral("/p i 1\n/p i 0\n/p i 0\n/p i 1"));
}

// 1700000000.5 s since 1970 are 1700000000 + 2208988800 s since 1900, and half of 2^32.
void tst_OscReceiver::bundle_hasTheTimeOfTheBeat()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "bundle; beat /b i beat; beat /c f 0.5");
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Beat(MomentOf(9)));
    QCOMPARE(listener.take(2),
             QStringLiteral("/b i 9 @3908988800+2147483648\n/c f 0.5 @3908988800+2147483648"));
}

void tst_OscReceiver::allTypes_areSent_withinTheirLimits()
{
    OscListener listener;
    const auto pReceiver = MakeOsc(listener, "beat /b ifdhii 2.6, 0.5, 0.125, -2.6, 1e12, -1e12");
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Beat(MomentOf()));
    QCOMPARE(listener.take(1), QStringLiteral("/b ifdhii 3 0.5 0.125 -3 2.14748e+09 -2.14748e+09"));
}

void tst_OscReceiver::tcp_isSpoken()
{
    OscListener listener(LO_TCP);
    const auto pReceiver = MakeOsc(listener, "beat /b i beat; beat /c f bpm", true);
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Rest());
    QVERIFY(pReceiver->Beat(MomentOf(5)));
    QVERIFY(pReceiver->Beat(MomentOf(6)));
    QCOMPARE(listener.take(4), QStringLiteral("/b i 5\n/c f 140\n/b i 6\n/c f 140"));
    QCOMPARE(pReceiver->getState(),
             QStringLiteral("sending OSC to 127.0.0.1:%1 (TCP), beat /b i beat; beat /c f bpm")
                 .arg(listener.getPort()));
}

void tst_OscReceiver::tcp_thatNobodyListensTo_isRefused_andFoundLater()
{
    auto pListener = std::make_unique<OscListener>(LO_TCP);
    const int port = pListener->getPort();
    const auto pReceiver = MakeOsc(*pListener, "beat /b i beat", true);
    pListener.reset();
    QVERIFY(!pReceiver->Open());
    QCOMPARE(
        pReceiver->getState(),
        QStringLiteral("OSC to 127.0.0.1:%1 (TCP): nothing listens there; trying again").arg(port));
    const OscListener again(LO_TCP, QByteArray::number(port).constData());
    QVERIFY(pReceiver->Open());
}

void tst_OscReceiver::tcp_thatIsClosed_isNoticed()
{
    auto pListener = std::make_unique<OscListener>(LO_TCP);
    const auto pReceiver = MakeOsc(*pListener, "beat /b i beat", true);
    QVERIFY(pReceiver->Open());
    QVERIFY(pReceiver->Beat(MomentOf(5)));
    pListener->take(1);
    QVERIFY(pReceiver->Rest());
    pListener.reset();
    QTRY_VERIFY_WITH_TIMEOUT(!pReceiver->Rest(), 60000);
    QVERIFY(
        pReceiver->getState().endsWith(QStringLiteral("the connection is closed; trying again")));
}

// The receiver never reads, so that the way to it fills up.
void tst_OscReceiver::tcp_thatTakesNothing_isGivenUp()
{
    const OscListener listener(LO_TCP);
    const auto pReceiver = MakeOsc(listener, "beat /b dddddddd 1,2,3,4,5,6,7,8", true);
    QVERIFY(pReceiver->Open());
    while (pReceiver->Beat(MomentOf())) {
    }
    QVERIFY(pReceiver->getState().endsWith(QStringLiteral("it takes nothing; trying again")));
}

void tst_OscReceiver::udp_thatNobodyListensTo_isSaid_andFoundLater()
{
    auto pListener = std::make_unique<OscListener>();
    const int port = pListener->getPort();
    const auto pReceiver = MakeOsc(*pListener, "beat /b i beat", false);
    pListener.reset();
    QVERIFY(pReceiver->Open());
    const auto beatAndLook = [&pReceiver] {
        return pReceiver->Beat(MomentOf()) && pReceiver->Rest();
    };
    QTRY_VERIFY_WITH_TIMEOUT(beatAndLook() && pReceiver->getState().contains(QStringLiteral(
                                                  "nothing listens there; going on")),
                             60000);
    OscListener again(LO_UDP, QByteArray::number(port).constData());
    for (int i = 0; i < 3; ++i)
        QVERIFY(beatAndLook());
    QVERIFY(pReceiver->getState().startsWith(QStringLiteral("sending OSC")));
    QCOMPARE(again.take(1), QStringLiteral("/b i 41"));
}

void tst_OscReceiver::unknownHost_isSaid()
{
    QString reason;
    OscReceiver receiver(QStringLiteral("not a host"),
                         7000,
                         false,
                         *OscTemplate::Parse(QStringLiteral("plain"), reason),
                         QStringLiteral("plain"));
    QVERIFY(!receiver.Open());
    QCOMPARE(receiver.getState(),
             QStringLiteral(
                 "OSC to not a host:7000 (UDP): there is no host \"not a host\"; trying again"));
    receiver.Close();
}

AA_TEST(tst_OscReceiver, QCoreApplication)
#include "tst_OscReceiver.moc"
