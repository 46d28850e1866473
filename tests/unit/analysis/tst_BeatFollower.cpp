// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>
#include <support/Waves.h>
#include <thread>
#include <vector>

namespace {

constexpr int kFollowerRate = 44100;
constexpr unsigned kFollowerBlock = 1024;

QAudioFormat MakeFormat(int pRate = kFollowerRate)
{
    QAudioFormat format;
    format.setSampleRate(pRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    return format;
}

Pulse MakePulse(unsigned long pIndex, ePulseType pType = ePulse)
{
    return Pulse(1, pIndex, pIndex + kFollowerBlock - 1, kFollowerRate, 10, 20, 500, pType);
}

/// An analyzer whose follower's beats are kept.
struct FollowerFixture
{
    FollowerFixture() : analyzer(&configuration, MakeFormat(), nullptr)
    {
        analyzer.setBeatTimerAllowed(false);
        follower.Follow(&analyzer);
        QObject::connect(
            &follower,
            &BeatFollower::OnBeatFound,
            &follower,
            [this](const BeatFollower::Beat& pBeat) { beats.push_back(pBeat); },
            Qt::DirectConnection);
    }

    void analyze(waves::Samples pSamples)
    {
        const HighResolutionTimerOverride clock(1000000);
        analyzer.Start();
        for (std::size_t at = 0; at < pSamples.size(); at += kFollowerBlock)
            analyzer.Analyze(&pSamples[at],
                             std::min<std::size_t>(kFollowerBlock, pSamples.size() - at));
    }

    std::vector<quint64> indexes() const
    {
        std::vector<quint64> indexes;
        for (const BeatFollower::Beat& beat : beats)
            indexes.push_back(beat.index);
        return indexes;
    }

    Configuration configuration;
    AudioAnalyzer analyzer;
    BeatFollower follower;
    std::vector<BeatFollower::Beat> beats;
};

}  // namespace

/// What the follower adds to the log of the hosts, whose own tests give it every order of signals.
class tst_BeatFollower : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_areThoseOfTheTrack();
    void beats_areFollowed_inAnyThread();
    void settling_isTheSlowestBeatAndTwelveBlocks_data();
    void settling_isTheSlowestBeatAndTwelveBlocks();
    void settling_closesTheLastWindow();
    void playing_isUnknownAndFalse_beforeTheFirstBlock();
    void sampleCount_countsBlocks_upToTheEnd();
    void receiver_mayRestartTheFollower();
};

// Kicks of 120 BPM, heard from the first stop decision on: each real beat begins within the two
// blocks that may hold its kick.
void tst_BeatFollower::beats_areThoseOfTheTrack()
{
    FollowerFixture fixture;
    fixture.analyze(waves::kickTrack(20.0, kFollowerRate, 120.0));
    QVERIFY(fixture.beats.size() > 30);
    for (std::size_t i = 0; i < fixture.beats.size(); ++i) {
        const BeatFollower::Beat& beat = fixture.beats[i];
        QVERIFY(i == 0 || beat.index > fixture.beats[i - 1].index);
        QVERIFY(beat.accuracy > 0.0 && beat.accuracy <= 1.0);
        if (beat.isVirtual)
            continue;
        const quint64 distance = (beat.index + kFollowerBlock) % 22050;
        QVERIFY2(distance <= 2 * kFollowerBlock, qPrintable(QString::number(beat.index)));
    }
    QVERIFY(std::abs(fixture.beats.back().bpm - 120.0) < 1.0);
}

void tst_BeatFollower::beats_areFollowed_inAnyThread()
{
    FollowerFixture here;
    here.analyze(waves::kickTrack(10.0, kFollowerRate, 128.0));
    FollowerFixture there;
    std::thread([&there] { there.analyze(waves::kickTrack(10.0, kFollowerRate, 128.0)); }).join();
    QVERIFY(!here.beats.empty());
    QCOMPARE(there.indexes(), here.indexes());
}

void tst_BeatFollower::settling_isTheSlowestBeatAndTwelveBlocks_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("minimalBPM");
    QTest::addColumn<quint64>("count");
    QTest::newRow("90 BPM") << 44100 << 90.0 << quint64(29400 + 12 * 1024);
    QTest::newRow("1 BPM") << 44100 << 1.0 << quint64(2646000 + 12 * 1024);
    QTest::newRow("8 kHz") << 8000 << 120.0 << quint64(4000 + 12 * 128);
}

void tst_BeatFollower::settling_isTheSlowestBeatAndTwelveBlocks()
{
    QFETCH(int, rate);
    QFETCH(double, minimalBPM);
    QFETCH(quint64, count);
    Configuration configuration;
    configuration.setSelectedProfile(
        configuration.Add(QStringLiteral("test"), minimalBPM, 999.0, 1.0, -1, -1));
    AudioAnalyzer analyzer(&configuration, MakeFormat(rate), nullptr);
    BeatFollower follower;
    follower.Follow(&analyzer);
    QCOMPARE(follower.getSettlingSampleCount(rate), count);
}

// Wherever the audio ends, silence of that length leaves no pulse of it undecided.
void tst_BeatFollower::settling_closesTheLastWindow()
{
    for (std::size_t blocks = 160; blocks < 190; ++blocks) {
        FollowerFixture fixture;
        waves::Samples samples = waves::kickTrack(10.0, kFollowerRate, 150.0);
        samples.resize(blocks * kFollowerBlock);
        fixture.follower.setEnd(samples.size());
        waves::append(samples,
                      waves::silence(fixture.follower.getSettlingSampleCount(kFollowerRate)));
        fixture.analyze(samples);
        QVERIFY(fixture.follower.m_windowPulses.empty() ||
                fixture.follower.m_windowPulses.front().getStartIndex() >= blocks * kFollowerBlock);
        QVERIFY(fixture.analyzer.m_beatWindowStart >= blocks * kFollowerBlock ||
                fixture.analyzer.m_candidatePulses.empty());
        QVERIFY(!fixture.beats.empty() && fixture.beats.back().index < blocks * kFollowerBlock);
    }
}

void tst_BeatFollower::playing_isUnknownAndFalse_beforeTheFirstBlock()
{
    FollowerFixture fixture;
    QVERIFY(!fixture.follower.isPlaying());
    Q_EMIT fixture.analyzer.OnAmplitudesComputed(nullptr, 0);
    QVERIFY(fixture.follower.isPlaying());
}

void tst_BeatFollower::sampleCount_countsBlocks_upToTheEnd()
{
    FollowerFixture fixture;
    QCOMPARE(fixture.follower.getSampleCount(), quint64(0));
    fixture.analyze(waves::silence(3 * kFollowerBlock + 5));
    QCOMPARE(fixture.follower.getSampleCount(), quint64(3 * kFollowerBlock));
    fixture.follower.setEnd(2 * kFollowerBlock + 1);
    QCOMPARE(fixture.follower.getSampleCount(), quint64(2 * kFollowerBlock + 1));
}

void tst_BeatFollower::receiver_mayRestartTheFollower()
{
    FollowerFixture fixture;
    connect(&fixture.follower, &BeatFollower::OnBeatFound, this, [&fixture] {
        fixture.follower.Restart();
    });
    Pulse pulse = MakePulse(5 * kFollowerBlock);
    Q_EMIT fixture.analyzer.OnPulseDetected(pulse);
    pulse.setType(eBeat);
    Q_EMIT fixture.analyzer.OnBPMChanged(120.0);
    Q_EMIT fixture.analyzer.OnPulseDetected(MakePulse(7 * kFollowerBlock, eVirtualBeat));
    Q_EMIT fixture.analyzer.OnBPMChanged(121.0);
    QCOMPARE(fixture.indexes(), (std::vector<quint64>{5 * kFollowerBlock, 7 * kFollowerBlock}));
    QCOMPARE(fixture.beats[1].bpm, 121.0);
    QVERIFY(fixture.beats[1].isVirtual);
}

AA_TEST(tst_BeatFollower, QCoreApplication)
#include "tst_BeatFollower.moc"
