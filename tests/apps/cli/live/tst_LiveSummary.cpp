// SPDX-License-Identifier: MIT
#include <cli/live/LiveSummary.h>

#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <cmath>
#include <support/FakeClock.h>
#include <support/TestClass.h>

namespace {

constexpr quint64 kStart = 1700000000000000;  // µs
constexpr std::size_t kLiveBlock = 960;       // samples, 20 ms
constexpr double kPeriod = 22500.0;           // samples, a beat of 128 BPM

/// A decaying 55 Hz stroke on each beat.
qint16 Stroke(quint64 pIndex)
{
    const double time = std::fmod(double(pIndex), kPeriod) / 48000.0;
    return qint16(29000.0 * std::exp(-time / 0.1) * std::sin(2.0 * M_PI * 55.0 * time));
}

/// Beats of the engine.
struct ProfileBeats : LiveBeats
{
    ProfileBeats() { setAutomatic(false); }
};

/// A running session with its summary, fed faster than real time.
class Live
{
public:
    Live() : clock(kStart), summary(log.session, beats, true)
    {
        beats.Follow(&log.session);
        FakeAudioState::Get().Clear();
        FakeAudioState::Get().Plug(SessionLog::Device());
        log.Run();
    }

    void Play(double pSeconds)
    {
        for (int block = 0; block < int(pSeconds * 50.0); ++block) {
            std::vector<qint16> samples;
            for (std::size_t i = 0; i < kLiveBlock; ++i)
                samples.push_back(Stroke(m_played++));
            clock.advance(20000);
            SessionLog::Push(samples);
        }
    }

    FakeClock clock;
    SessionLog log;
    ProfileBeats beats;
    LiveSummary summary;

private:
    quint64 m_played = 0;
};

}  // namespace

class tst_LiveSummary : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void summary_countsBeatsAndTempo();
    void tempo_comesFromTheTimesOfAutomaticBeats();
    void beats_areCounted_whenAProfileTakesOver();
    void beats_areToldOnce_whenTheAutomaticTrackerTakesOver();
    void seconds_beginWithTheFirstSample();
    void beats_goOnInTime_afterAnAnchor();
    void relay_countsFromTheTimeOfItsRestart();
};

void tst_LiveSummary::initTestCase()
{
    FakeAudioState::Install();
}

void tst_LiveSummary::summary_countsBeatsAndTempo()
{
    Live live;
    live.Play(30.0);
    // 64 beats in 30 s; the first few are searched for.
    QVERIFY(live.summary.getRealBeats() >= 50 && live.summary.getRealBeats() <= 64);
    QVERIFY(live.summary.getVirtualBeats() <= 8);
    QVERIFY(std::fabs(live.summary.getTempo() - 128.0) < 1.0);
}

// The tracker's own tempo is a bit off: the beats are half a second apart.
void tst_LiveSummary::tempo_comesFromTheTimesOfAutomaticBeats()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
    SessionLog log;
    LiveBeats beats;
    LiveSummary summary(log.session, beats, false);
    log.Open();
    SessionLog::Push({1, 2, 3});
    const std::int64_t start = shared::ClockThread::getTime();
    for (std::int64_t beat = 0; beat < 8; ++beat)
        Q_EMIT beats.OnBeatHeard({start + beat * 500000, 120.3, 0.9, 1, 0.5, false});
    QCOMPARE(summary.getRealBeats(), quint64(8));
    QCOMPARE(summary.getTempo(), 120.3);
    for (std::int64_t beat = 8; beat < 60; ++beat)
        Q_EMIT beats.OnBeatHeard({start + beat * 500000, 120.3, 0.9, 1, 0.5, false});
    QCOMPARE(summary.getRealBeats(), quint64(60));
    QVERIFY(std::fabs(summary.getTempo() - 120.0) < 0.01);
}

// By hand: what the engine goes on finding is not told beside the tracker's.
void tst_LiveSummary::beats_areToldOnce_whenTheAutomaticTrackerTakesOver()
{
    Live live;
    live.Play(15.0);
    const quint64 before = live.summary.getRealBeats();
    QVERIFY(before > 0);
    live.beats.setAutomatic(true);
    quint64 told = 0;
    QObject::connect(&live.summary.getRelay(), &BeatRelay::OnBeat, [&] { ++told; });
    quint64 heard = 0;
    QObject::connect(&live.beats, &LiveBeats::OnBeatHeard, [&] { ++heard; });
    live.Play(15.0);
    QVERIFY2(heard >= 20, QByteArray::number(heard).constData());
    QCOMPARE(told, heard);
    QCOMPARE(live.summary.getRealBeats(), before + heard);
}

// By hand, in the middle of a session: the engine's beats come the way of the tracker's.
void tst_LiveSummary::beats_areCounted_whenAProfileTakesOver()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
    SessionLog log;
    LiveBeats beats;
    LiveSummary summary(log.session, beats, false);
    log.Open();
    SessionLog::Push({1, 2, 3});
    const std::int64_t start = shared::ClockThread::getTime();
    Q_EMIT beats.OnBeatHeard({start, 120.0, 0.9, 1, 0.5, false});
    beats.setAutomatic(false);
    Q_EMIT beats.OnBeatHeard({start + 500000, 120.0, 0.9, 0, 0.0, false});
    Q_EMIT beats.OnBeatHeard({start + 1000000, 120.0, 0.9, 0, 0.0, true});
    QCOMPARE(summary.getRealBeats(), quint64(2));
    QCOMPARE(summary.getVirtualBeats(), quint64(1));
}

void tst_LiveSummary::seconds_beginWithTheFirstSample()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
    SessionLog log;
    LiveBeats beats;
    beats.Follow(&log.session);
    LiveSummary summary(log.session, beats, false);
    log.Open();
    QTest::qSleep(5);
    QCOMPARE(summary.getSeconds(), 0.0);
    SessionLog::Push({1, 2, 3});
    QTest::qSleep(2);
    const double seconds = summary.getSeconds();
    QVERIFY(seconds > 0.0 && seconds < 1.0);
}

void tst_LiveSummary::beats_goOnInTime_afterAnAnchor()
{
    Live live;
    live.Play(8.0);
    const quint64 before = live.summary.getRealBeats();
    QVERIFY(before > 0);
    QTest::qSleep(20);
    const double anchor = live.summary.getSeconds();
    live.log.session.getAnalyzer()->Stop();
    std::vector<double> times;
    connect(&live.summary.getRelay(), &BeatRelay::OnBeat, this, [&](const LoggedBeat& pBeat) {
        times.push_back(pBeat.time);
    });
    live.Play(8.0);
    QVERIFY(live.summary.getRealBeats() > before);
    QVERIFY(!times.empty());
    // By the samples alone they would lie between 0 and 8 s.
    QVERIFY(times.front() >= anchor);
    QVERIFY(times.back() <= anchor + 9.0);
}

void tst_LiveSummary::relay_countsFromTheTimeOfItsRestart()
{
    Configuration configuration;
    QAudioFormat format;
    format.setSampleRate(48000);
    AudioAnalyzer analyzer(&configuration, format, nullptr);
    BeatFollower follower;
    BeatRelay relay(follower);
    follower.Follow(&analyzer);
    relay.Restart(48000);
    std::vector<double> times;
    connect(&relay, &BeatRelay::OnPlayingChanged, this, [&](double pTime, bool) {
        times.push_back(pTime);
    });
    std::vector<qint16> silence(1024, 0);
    analyzer.Analyze(silence.data(), silence.size());
    QCOMPARE(times, std::vector<double>{0.0});
    analyzer.Start();
    analyzer.Stop();
    follower.Restart();
    relay.Restart(48000, 100.0);
    std::vector<qint16> music;
    for (quint64 i = 0; i < 48000; ++i)
        music.push_back(Stroke(i));
    // Stop detection hears the whole batch before its first block is logged.
    analyzer.Analyze(music.data(), music.size());
    QCOMPARE(times, (std::vector<double>{0.0, 100.0}));
}

AA_TEST(tst_LiveSummary, QCoreApplication)
#include "tst_LiveSummary.moc"
