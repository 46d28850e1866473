// SPDX-License-Identifier: MIT
#include <QtTest>

#include <cmath>
#include <link/LinkSteering.h>
#include <support/TestClass.h>

namespace {

constexpr double kMusic = 128.0;  // BPM
constexpr double kBeatSeconds = 60.0 / kMusic;
constexpr int kSureBeats = 4;

LinkSteering::Options MakeOptions(int pQuantum = 4, bool pIsForced = false)
{
    return {pQuantum, 0.5, kSureBeats, pIsForced};
}

/// A steering, the music it hears and a session of one line, which does what it is told.
struct LinkRoom
{
    explicit LinkRoom(const LinkSteering::Options& pOptions = MakeOptions()) : steering(pOptions) {}

    LinkView View() const
    {
        const double quantum = steering.getOptions().quantum;
        return {peers, bpm, beat - quantum * std::floor(beat / quantum)};
    }
    /// The next beat of the music, at a tempo that it is said to have.
    LinkChange Beat(double pBPM = kMusic, double pConfidence = 0.9)
    {
        beat += kBeatSeconds * bpm / 60.0;
        time += kBeatSeconds;
        ++count;
        const LinkChange change = steering.Hear({time, pBPM, count % 4 + 1, pConfidence}, View());
        Apply(change);
        return change;
    }
    void Apply(const LinkChange& pChange)
    {
        commits += pChange.isNone() ? 0 : 1;
        if (pChange.bpm > 0.0)
            bpm = pChange.bpm;
        if (pChange.phase != LinkChange::eKeep)
            beat = pChange.beat;
    }
    /// All but the last of the beats that make it sure.
    void Approach()
    {
        for (int i = 1; i < kSureBeats; ++i)
            Beat();
    }

    LinkSteering steering;
    std::size_t peers = 1;
    double bpm = kMusic;
    double beat = 0.0;  ///< of the session
    double time = 100.0;
    int count = 0;
    int commits = 0;
};

}  // namespace

class tst_LinkSteering : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void session_keepsItsTempo_untilBeatsAreSure();
    void sureness_beginsAnew_data();
    void sureness_beginsAnew();
    void wobble_isNotTold();
    void changedTempo_isTold_whenHalfOfTheBeatsHaveIt();
    void tempoOfAnotherPeer_isLeft_untilBeatsAreSureAnew();
    void sessionThatRounds_isTheSame_data();
    void sessionThatRounds_isTheSame();
    void phase_isNudged_data();
    void phase_isNudged();
    void nudge_isTwoCommits_andEndsInStep();
    void nudge_endsExact();
    void nudge_ends_whenBeatsAreNotSure();
    void nudge_ends_whenNoBeatComes();
    void nudge_isDropped_whenAnotherPeerSetsTheTempo();
    void bar_isNotNudged();
    void beat_isRequested_whenAlone();
    void beat_isForced_onDemand();
    void smallError_isNudged_evenWhenForced();
    void quantum_isSharedAsFarAsItFits_data();
    void quantum_isSharedAsFarAsItFits();
};

void tst_LinkSteering::session_keepsItsTempo_untilBeatsAreSure()
{
    LinkRoom room;
    room.bpm = 120.0;
    for (int i = 1; i < kSureBeats; ++i) {
        QVERIFY(room.Beat().isNone());
        QVERIFY(!room.steering.isSure());
    }
    // So that nothing but the tempo is off.
    room.beat = room.count + 1 - kBeatSeconds * room.bpm / 60.0;
    const LinkChange change = room.Beat();
    QVERIFY(room.steering.isSure());
    QCOMPARE(change.bpm, kMusic);
    QCOMPARE(int(change.phase), int(LinkChange::eKeep));
    QVERIFY(room.Beat().isNone());
}

void tst_LinkSteering::sureness_beginsAnew_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("confidence");
    QTest::addColumn<double>("delay");  // beats by which it comes late
    QTest::addColumn<int>("missing");   // sure beats after it
    QTest::newRow("sure") << 128.0 << 0.5 << 0.0 << 0;
    QTest::newRow("not confident") << 128.0 << 0.49 << 0.0 << 4;
    QTest::newRow("no tempo") << 0.0 << 0.9 << 0.0 << 4;
    QTest::newRow("a tempo near") << 133.0 << 0.9 << 0.0 << 0;
    QTest::newRow("another tempo") << 140.0 << 0.9 << 0.0 << 4;
    QTest::newRow("half the tempo") << 64.0 << 0.9 << 0.0 << 4;
    QTest::newRow("a bit late") << 128.0 << 0.9 << 0.4 << 0;
    QTest::newRow("one left out") << 128.0 << 0.9 << 1.0 << 3;
    QTest::newRow("one too many") << 128.0 << 0.9 << -0.6 << 3;
}

void tst_LinkSteering::sureness_beginsAnew()
{
    QFETCH(const double, bpm);
    QFETCH(const double, confidence);
    QFETCH(const double, delay);
    QFETCH(const int, missing);
    LinkRoom room;
    room.Approach();
    room.time += delay * kBeatSeconds;
    room.Beat(bpm, confidence);
    int count = 0;
    for (; count < 10 && !room.steering.isSure(); ++count)
        room.Beat();
    QCOMPARE(count, missing);
}

void tst_LinkSteering::wobble_isNotTold()
{
    LinkRoom room;
    room.Approach();
    // A thousandth of 128 is 0.128.
    for (int i = 0; i < 100; ++i)
        QVERIFY(room.Beat(kMusic + (i % 3 - 1) * 0.12).isNone());
}

void tst_LinkSteering::changedTempo_isTold_whenHalfOfTheBeatsHaveIt()
{
    LinkRoom room;
    room.Approach();
    room.Beat();
    QVERIFY(room.Beat(128.2).isNone());
    QCOMPARE(room.Beat(128.2).bpm, 128.2);
}

void tst_LinkSteering::tempoOfAnotherPeer_isLeft_untilBeatsAreSureAnew()
{
    LinkRoom room;
    room.Approach();
    room.Beat();
    room.bpm = 100.0;
    // The beat that finds it does not count.
    for (int i = 0; i < kSureBeats; ++i) {
        QVERIFY(room.Beat().isNone());
        QVERIFY(!room.steering.isSure());
    }
    QVERIFY(room.Beat().bpm > 100.0);
}

void tst_LinkSteering::sessionThatRounds_isTheSame_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::addColumn<bool>("isSame");
    QTest::newRow("equal") << 120.0 << 120.0 << true;
    // A step of 1 µs is 0.00006 BPM there.
    QTest::newRow("0.00029") << 60.0 << 60.00029 << true;
    QTest::newRow("0.00031") << 60.0 << 60.00031 << false;
    QTest::newRow("472441 µs") << 127.0 << 60e6 / 472441 << true;
    QTest::newRow("472443 µs") << 127.0 << 60e6 / 472443 << false;
    QTest::newRow("300300 µs") << 199.8 << 60e6 / 300300 << true;
}

void tst_LinkSteering::sessionThatRounds_isTheSame()
{
    QFETCH(const double, left);
    QFETCH(const double, right);
    QTEST(isSameTempo(left, right), "isSame");
    QTEST(isSameTempo(right, left), "isSame");
}

void tst_LinkSteering::phase_isNudged_data()
{
    QTest::addColumn<double>("ahead");  // beats
    QTest::addColumn<double>("bpm");    // 0: nothing is told
    QTest::newRow("in step") << 0.0 << 0.0;
    QTest::newRow("nearly") << 0.019 << 0.0;
    QTest::newRow("nearly, behind") << -0.019 << 0.0;
    // An eighth of it in each beat: 1 % slower.
    QTest::newRow("ahead") << 0.08 << 126.72;
    QTest::newRow("behind") << -0.08 << 129.28;
    // 2 % at most.
    QTest::newRow("much ahead") << 0.4 << 125.44;
    QTest::newRow("much behind") << -0.4 << 130.56;
}

void tst_LinkSteering::phase_isNudged()
{
    QFETCH(const double, ahead);
    QFETCH(const double, bpm);
    LinkRoom room;
    room.beat = ahead;
    room.Approach();
    QCOMPARE(room.commits, 0);
    const LinkChange change = room.Beat();
    QVERIFY2(std::fabs(change.bpm - bpm) < 1e-9, qPrintable(QString::number(change.bpm)));
    QCOMPARE(int(change.phase), int(LinkChange::eKeep));
    QCOMPARE(room.steering.isNudging(), bpm > 0.0);
    QVERIFY(std::fabs(room.steering.getError() - ahead) < 1e-9);
}

void tst_LinkSteering::nudge_isTwoCommits_andEndsInStep()
{
    LinkRoom room;
    room.beat = 0.08;
    room.Approach();
    room.Beat();
    QVERIFY(room.steering.isNudging());
    // A hundredth of a beat in each: none is left after eight.
    for (int i = 0; i < 7; ++i) {
        QVERIFY(room.Beat().isNone());
        QVERIFY(room.steering.isNudging());
    }
    QCOMPARE(room.Beat().bpm, kMusic);
    QVERIFY(!room.steering.isNudging());
    QVERIFY(std::fabs(room.beat - room.count) < 1e-9);
    for (int i = 0; i < 100; ++i)
        QVERIFY(room.Beat().isNone());
    QCOMPARE(room.commits, 2);
}

// A session that is a little slow, too little to be told, drifts away, and is right from then on.
void tst_LinkSteering::nudge_endsExact()
{
    LinkRoom room;
    room.bpm = 127.9;
    for (int i = 0; i < 100; ++i)
        room.Beat();
    QCOMPARE(room.commits, 2);
    QCOMPARE(room.bpm, kMusic);
    QVERIFY(std::fabs(room.beat - room.count) < 0.02);
}

void tst_LinkSteering::nudge_ends_whenBeatsAreNotSure()
{
    LinkRoom room;
    room.beat = 0.4;
    room.Approach();
    room.Beat();
    QCOMPARE(room.Beat(kMusic, 0.1).bpm, kMusic);
    QVERIFY(!room.steering.isNudging());
    QVERIFY(room.Beat(kMusic, 0.1).isNone());
}

void tst_LinkSteering::nudge_ends_whenNoBeatComes()
{
    LinkRoom room;
    room.beat = 0.4;
    room.Approach();
    room.Beat();
    QVERIFY(room.steering.Wait(room.time + 1.9, room.View()).isNone());
    QVERIFY(room.steering.isNudging());
    QCOMPARE(room.steering.Wait(room.time + 2.1, room.View()).bpm, kMusic);
    room.bpm = kMusic;
    QVERIFY(room.steering.Wait(room.time + 9.0, room.View()).isNone());
    QVERIFY(room.steering.Finish(room.View()).isNone());
}

void tst_LinkSteering::nudge_isDropped_whenAnotherPeerSetsTheTempo()
{
    LinkRoom room;
    room.beat = 0.4;
    room.Approach();
    room.Beat();
    room.bpm = 90.0;
    QVERIFY(room.steering.Finish(room.View()).isNone());
    QVERIFY(!room.steering.isNudging());
    QVERIFY(!room.steering.isSure());
}

void tst_LinkSteering::bar_isNotNudged()
{
    LinkRoom room;
    room.beat = 1.0;
    room.Approach();
    QVERIFY(room.Beat().isNone());
    QCOMPARE(room.steering.getError(), 1.0);
}

void tst_LinkSteering::beat_isRequested_whenAlone()
{
    LinkRoom room;
    room.peers = 0;
    room.beat = 2.4;
    room.bpm = 120.0;
    room.Approach();
    QCOMPARE(room.commits, 0);
    const LinkChange change = room.Beat();
    QCOMPARE(change.bpm, kMusic);
    QCOMPARE(int(change.phase), int(LinkChange::eRequest));
    // The fourth beat of the music after the one that the count began with.
    QCOMPARE(change.beat, 0.0);
    QVERIFY(room.Beat().isNone());
    QCOMPARE(room.steering.getError(), 0.0);
}

void tst_LinkSteering::beat_isForced_onDemand()
{
    LinkRoom room(MakeOptions(4, true));
    room.beat = 1.25;
    room.Approach();
    const LinkChange change = room.Beat();
    QCOMPARE(int(change.phase), int(LinkChange::eForce));
    QCOMPARE(change.beat, 0.0);
    QCOMPARE(change.bpm, 0.0);
    QVERIFY(room.Beat().isNone());
}

void tst_LinkSteering::smallError_isNudged_evenWhenForced()
{
    LinkRoom room(MakeOptions(4, true));
    room.beat = 0.08;
    room.Approach();
    const LinkChange change = room.Beat();
    QCOMPARE(int(change.phase), int(LinkChange::eKeep));
    QVERIFY(std::fabs(change.bpm - 126.72) < 1e-9);
}

void tst_LinkSteering::quantum_isSharedAsFarAsItFits_data()
{
    QTest::addColumn<int>("quantum");
    QTest::addColumn<double>("phase");  // of the session, at the first beat of a bar
    QTest::addColumn<double>("error");
    QTest::addColumn<double>("beat");  // what a session of one's own is told
    QTest::newRow("1") << 1 << 0.3 << 0.3 << 0.0;
    QTest::newRow("2") << 2 << 1.7 << -0.3 << 0.0;
    QTest::newRow("3: beats") << 3 << 1.3 << 0.3 << 1.0;
    QTest::newRow("4") << 4 << 1.3 << 1.3 << 0.0;
    QTest::newRow("4, round the end") << 4 << 3.8 << -0.2 << 0.0;
    QTest::newRow("6: pairs") << 6 << 2.3 << 0.3 << 2.0;
    QTest::newRow("8: bars") << 8 << 4.3 << 0.3 << 4.0;
    QTest::newRow("8, round the end") << 8 << 7.7 << -0.3 << 0.0;
}

void tst_LinkSteering::quantum_isSharedAsFarAsItFits()
{
    QFETCH(const int, quantum);
    QFETCH(const double, phase);
    QFETCH(const double, error);
    for (const std::size_t peers : {1U, 0U}) {
        LinkRoom room(MakeOptions(quantum));
        room.Approach();
        room.peers = peers;
        room.beat = phase - 1.0 + quantum;
        const LinkChange change = room.Beat();
        if (peers > 0)
            QVERIFY(std::fabs(room.steering.getError() - error) < 1e-9);
        else
            QTEST(change.beat, "beat");
    }
}

AA_TEST(tst_LinkSteering, NoApplication)
#include "tst_LinkSteering.moc"
