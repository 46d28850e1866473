// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/clock/LiveBeats.h>

#include <QAudioFormat>
#include <QtTest>

#include <apps/shared/clock/TickLog.h>
#include <cmath>
#include <functional>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <vector>

using shared::ClockThread;

namespace {

constexpr int kSourceRate = 48000;        // Hz
constexpr int kSourceBlock = 480;         // samples, 10 ms
constexpr double kBeatSeconds = 0.46875;  // seconds, a beat of 128 BPM
constexpr qint64 kSoundDelay = 40000;     // µs from the sound to the host
constexpr double kNearEnough = 30e3;      // µs; strokes of one tone are told 17 ms early

/// A source that is fed by hand, kSoundDelay late, in virtual time.
class HandSource : public LiveSource
{
public:
    explicit HandSource(Configuration& pConfiguration) : LiveSource(pConfiguration) {}

    SourceState getSource() const override { return {}; }

    void Begin()
    {
        QAudioFormat format;
        format.setCodec(QStringLiteral("audio/pcm"));
        format.setSampleRate(kSourceRate);
        format.setChannelCount(1);
        format.setSampleSize(16);
        format.setSampleType(QAudioFormat::SignedInt);
        _Prepare(format, 3.0);
        getAnalyzer()->Start();
        Q_EMIT OnAnchored();
        start = ClockThread::getTime() - kSoundDelay;
    }
    /// So many seconds; pVolume: of the strokes, a share of full scale.
    void Play(double pSeconds, double pVolume = 0.9)
    {
        for (int block = 0; block < int(std::lround(pSeconds * 100.0)); ++block) {
            QTest::qSleep(10);
            std::vector<qint16> samples;
            for (int i = 0; i < kSourceBlock; ++i)
                samples.push_back(_Stroke(m_played++, pVolume));
            Q_EMIT OnSamples(
                samples.data(), samples.size(), HighResolutionTimer::getTime() - kSoundDelay);
            getAnalyzer()->Analyze(samples.data(), samples.size());
        }
    }
    /// The music goes on, and nobody hears it.
    void Miss(double pSeconds)
    {
        QTest::qSleep(int(pSeconds * 1000.0));
        m_played += qint64(pSeconds * kSourceRate);
    }
    /// How far an instant is from the nearest stroke as it sounded, µs.
    double errorOf(qint64 pTime) const
    {
        const double beats = double(pTime - start) / 1e6 / kBeatSeconds;
        return (beats - std::round(beats)) * kBeatSeconds * 1e6;
    }

    qint64 start = 0;  ///< µs; when sample 0 sounded

private:
    static qint16 _Stroke(qint64 pIndex, double pVolume)
    {
        const double time = std::fmod(double(pIndex) / kSourceRate, kBeatSeconds);
        return qint16(32000.0 * pVolume * std::exp(-time / 0.1) *
                      std::sin(2.0 * M_PI * 55.0 * time));
    }

    qint64 m_played = 0;  ///< samples
};

struct LiveBench
{
    explicit LiveBench(bool pIsAutomatic = true) : source(configuration)
    {
        beats.setAutomatic(pIsAutomatic);
        beats.Follow(&source);
        QObject::connect(
            &beats,
            &LiveBeats::OnBeatHeard,
            [this](const LiveBeats::Heard& pBeat) { heard.push_back(pBeat); });
        QObject::connect(&beats, &LiveBeats::OnPlayingChanged, [this](qint64, bool pIsPlaying) {
            changes += pIsPlaying ? QLatin1String("plays ") : QLatin1String("stops ");
        });
        source.Begin();
    }
    BeatClockState state() const { return beats.getClock().getState(); }

    Configuration configuration;
    HandSource source;
    LiveBeats beats;
    std::vector<LiveBeats::Heard> heard;
    QString changes;
};

}  // namespace

/// From samples to the clock, in virtual time.
class tst_LiveBeats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_areInstantsOfTheSound_data();
    void beats_areInstantsOfTheSound();
    void clock_keepsTheMusicsTime();
    void clock_stops_whenTheMusicDoes();
    void clock_stops_whenNothingComes();
    void shortGap_isBridged();
    void longGap_beginsAnew();
    void quietMusic_isHeardAutomatically();
    void taps_setTheClock();
    void tempoRange_isKept();
    void tracker_canBeChanged();
    void confidence_isOfWhoIsInCharge();
    void source_mayGo();
};

void tst_LiveBeats::beats_areInstantsOfTheSound_data()
{
    QTest::addColumn<bool>("isAutomatic");
    QTest::newRow("automatic") << true;
    QTest::newRow("profile") << false;
}

void tst_LiveBeats::beats_areInstantsOfTheSound()
{
    QFETCH(bool, isAutomatic);
    LiveBench bench(isAutomatic);
    bench.source.Play(12.0);
    QVERIFY(bench.heard.size() >= 10);
    for (const LiveBeats::Heard& beat : bench.heard) {
        QVERIFY(beat.time <= ClockThread::getTime());
        const bool isSettled = beat.time > bench.source.start + 6000000;
        if (isSettled && !beat.isVirtual)
            QVERIFY2(std::fabs(bench.source.errorOf(beat.time)) < kNearEnough,
                     QByteArray::number(bench.source.errorOf(beat.time)).constData());
    }
    QVERIFY(std::fabs(bench.heard.back().bpm - 128.0) < 2.0);
    QVERIFY((bench.heard.back().beatInBar > 0) == isAutomatic);
}

void tst_LiveBeats::clock_keepsTheMusicsTime()
{
    LiveBench bench;
    TickLog log;
    bench.beats.getThread().Add(log, 1);
    bench.beats.getThread().Start();
    bench.source.Play(20.0);
    bench.beats.getThread().Stop();
    QVERIFY(log.ticks.size() >= 30);
    for (const shared::ClockTick& tick : log.ticks)
        if (tick.time > bench.source.start + 6000000)
            QVERIFY(std::fabs(bench.source.errorOf(tick.time)) < kNearEnough);
    for (std::size_t i = 1; i < log.ticks.size(); ++i)
        QCOMPARE(log.ticks[i].number, log.ticks[i - 1].number + 1);
    // In virtual time a thread wakes at its instant; it sees a correction when it wakes; a jump, at
    // the beginning, may make a tick late.
    for (const shared::ClockTick& tick : log.ticks)
        if (tick.time > bench.source.start + 6000000)
            QVERIFY(tick.lateness <= shared::ClockOutputs::kLongestRest);
    QVERIFY(std::fabs(bench.state().bpm - 128.0) < 0.5);
}

void tst_LiveBeats::clock_stops_whenTheMusicDoes()
{
    LiveBench bench;
    bench.source.Play(8.0);
    QVERIFY(bench.state().isRunning());
    bench.source.Play(4.0, 0.0);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.changes, QStringLiteral("plays stops "));
    QCOMPARE(bench.beats.getConfidence(bench.state()), 0.0);
    bench.source.Play(6.0);
    QVERIFY(bench.state().isRunning());
    QCOMPARE(bench.changes, QStringLiteral("plays stops plays "));
}

void tst_LiveBeats::clock_stops_whenNothingComes()
{
    LiveBench bench;
    bench.source.Play(8.0);
    QTest::qWait(1500);
    QVERIFY(bench.state().isRunning());
    QTest::qWait(1500);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.changes, QStringLiteral("plays stops "));
}

void tst_LiveBeats::shortGap_isBridged()
{
    LiveBench bench;
    bench.source.Play(8.0);
    bench.source.Miss(0.8);
    const std::size_t before = bench.heard.size();
    bench.source.Play(6.0);
    QCOMPARE(bench.changes, QStringLiteral("plays "));
    QVERIFY(bench.heard.size() >= before + 10);
    // The music sets in within a stroke, which is none of its beats.
    for (std::size_t i = before + 1; i < bench.heard.size(); ++i)
        QVERIFY2(std::fabs(bench.source.errorOf(bench.heard[i].time)) < kNearEnough,
                 QByteArray::number(bench.source.errorOf(bench.heard[i].time)));
}

void tst_LiveBeats::longGap_beginsAnew()
{
    LiveBench bench;
    bench.source.Play(8.0);
    bench.source.Miss(30.0);
    bench.source.Play(8.0);
    QCOMPARE(bench.changes, QStringLiteral("plays stops plays "));
    QVERIFY(std::fabs(bench.source.errorOf(bench.heard.back().time)) < kNearEnough);
    QVERIFY(bench.state().isRunning());
}

// The engine's stop threshold is a tenth of full scale.
void tst_LiveBeats::quietMusic_isHeardAutomatically()
{
    LiveBench bench;
    bench.source.Play(8.0, 0.01);
    QVERIFY(!bench.source.getAnalyzer()->isPlaying());
    QVERIFY(bench.beats.isPlaying());
    QVERIFY(bench.state().isRunning());
}

void tst_LiveBeats::taps_setTheClock()
{
    LiveBench bench;
    bench.source.Play(8.0);
    // Every other beat.
    for (int i = 0; i < 4; ++i) {
        bench.beats.Tap();
        bench.source.Play(2.0 * kBeatSeconds);
    }
    QVERIFY(std::fabs(bench.state().bpm - 64.0) < 0.5);
    QCOMPARE(bench.state().charge, qint32(BeatClockCharge_Hand));
    QCOMPARE(bench.beats.getConfidence(bench.state()), 1.0);
    // The taps were evidence, too.
    QVERIFY(std::fabs(bench.heard.back().bpm - 64.0) < 2.0);
}

void tst_LiveBeats::tempoRange_isKept()
{
    LiveBench bench;
    QVERIFY(!bench.beats.setTempoRange(50.0, 100.0));
    QVERIFY(bench.beats.setTempoRange(60.0, 100.0));
    bench.source.Play(10.0);
    QVERIFY(!bench.heard.empty());
    for (const LiveBeats::Heard& beat : bench.heard)
        QVERIFY(beat.bpm > 59.0 && beat.bpm < 101.0);
}

void tst_LiveBeats::tracker_canBeChanged()
{
    LiveBench bench;
    bench.source.Play(8.0);
    QVERIFY(bench.heard.back().beatInBar > 0);
    bench.beats.setAutomatic(false);
    bench.source.Play(8.0);
    QCOMPARE(bench.heard.back().beatInBar, 0);
    bench.beats.setAutomatic(true);
    bench.source.Play(8.0);
    QVERIFY(bench.heard.back().beatInBar > 0);
    QVERIFY(bench.state().isRunning());
}

void tst_LiveBeats::confidence_isOfWhoIsInCharge()
{
    LiveBench bench;
    QCOMPARE(bench.beats.getConfidence(bench.state()), 0.0);
    bench.source.Play(12.0);
    const double confidence = bench.beats.getConfidence(bench.state());
    QVERIFY(confidence > 0.5 && confidence < 1.0);
    bench.beats.getClock().Hold(ClockThread::getTime());
    QCOMPARE(bench.beats.getConfidence(bench.state()), 1.0);
    bench.beats.Reset();
    QCOMPARE(bench.beats.getConfidence(bench.state()), 0.0);
    QVERIFY(!bench.state().isRunning());
}

void tst_LiveBeats::source_mayGo()
{
    LiveBench bench;
    bench.source.Play(8.0);
    bench.beats.Follow(nullptr);
    QVERIFY(!bench.state().isRunning());
    QCOMPARE(bench.changes, QStringLiteral("plays stops "));
    bench.source.Play(1.0);
    bench.beats.Follow(&bench.source);
    QCOMPARE(bench.beats.getSoundTime(), 0);
}

AA_TEST(tst_LiveBeats, InVirtualTime<QCoreApplication>)
#include "tst_LiveBeats.moc"
