// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/Os2lReceiver.h>

#include <QtTest>

#include <apps/shared/outputs/os2l/AvahiNet.h>
#include <apps/shared/outputs/os2l/LightProgram.h>
#include <memory>
#include <support/TestClass.h>

using shared::Os2lReceiver;

namespace {

constexpr int kFoundMs = 60000;  // only a hang takes that long

shared::OutputMoment firstBeat()
{
    shared::OutputMoment moment = {};
    moment.tick.beat = 1;
    return moment;
}

/// Asks until it is true, and not again: QTRY_VERIFY would.
template <typename Condition>
bool comesTrue(Condition pCondition)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kFoundMs) {
        if (pCondition())
            return true;
        QTest::qWait(10);
    }
    return false;
}

}  // namespace

/// Light programs that are found by name, through an Avahi of the test's own.
class tst_Os2lBrowser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lights_areFound_whenTheyComeAndGo();
};

/// One story, since each of its daemons takes a second to begin.
void tst_Os2lBrowser::lights_areFound_whenTheyComeAndGo()
{
    AvahiNet net;
    Os2lReceiver receiver(std::nullopt);
    // Without a bus there is nobody to ask, which is said, and no reason to give up.
    QVERIFY(!receiver.Open());
    QCOMPARE(
        receiver.getState(),
        QStringLiteral("cannot look for light programs: start avahi-daemon, or give HOST:PORT"));
    QVERIFY(net.Start());
    QTRY_COMPARE_WITH_TIMEOUT(
        (receiver.Open(), receiver.getState()),
        QStringLiteral("no light program makes itself known in the net, as _os2l._tcp"),
        kFoundMs);

    LightProgram left;
    auto leftSign = std::make_unique<LightSign>("Left", left.port());
    QVERIFY(comesTrue([&] { return receiver.Open(); }));
    QCOMPARE(receiver.getState(), QStringLiteral("light program Left"));
    QVERIFY(left.Accept());

    // A second one is found while the first one is served, and both get the beat.
    LightProgram right;
    const auto rightSign = std::make_unique<LightSign>("Right", right.port());
    QTRY_COMPARE_WITH_TIMEOUT((receiver.Rest(), receiver.getState()),
                              QStringLiteral("light program Left, Right"),
                              kFoundMs);
    QVERIFY(right.Accept());
    QVERIFY(receiver.Beat(firstBeat()));
    QVERIFY(left.Read().startsWith(R"({"evt":"beat")"));
    QVERIFY(right.Read().startsWith(R"({"evt":"beat")"));

    // One goes, with its sign: the other one goes on.
    leftSign.reset();
    left.Hush();
    left.Leave();
    QTRY_COMPARE_WITH_TIMEOUT(
        (receiver.Rest(), receiver.getState()), QStringLiteral("light program Right"), kFoundMs);
    QVERIFY(receiver.Beat(firstBeat()));
    QVERIFY(!right.Read().isEmpty());

    // One that breaks off without taking down its sign is called again.
    right.Leave();
    QVERIFY(comesTrue([&] { return receiver.Rest() && right.Accept(); }));
    QVERIFY(comesTrue(
        [&] { return receiver.Rest() && receiver.Beat(firstBeat()) && !right.Read().isEmpty(); }));

    // Avahi goes: who is connected stays so.
    net.End();
    QVERIFY(receiver.Rest());
    QVERIFY(receiver.Beat(firstBeat()));
    QVERIFY(!right.Read().isEmpty());
}

AA_TEST(tst_Os2lBrowser, QCoreApplication)

#include "tst_Os2lBrowser.moc"
