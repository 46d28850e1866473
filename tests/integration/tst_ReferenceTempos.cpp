// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QtTest>

#include <algorithm>
#include <support/SingleShotTrap.h>
#include <support/TestClass.h>
#include <support/Waves.h>

namespace {

constexpr int kReferenceRate = 44100;
constexpr quint64 kReferenceTime = 1700000000000000;

/// A short, loud 60 Hz drum; lengths from 0.10 to 0.18 s give the same tempos.
waves::Kick makeKick(double duration)
{
    waves::Kick kick;
    kick.frequency = 60;
    kick.decay = 1.0 / 3.0;
    kick.amplitude = 0.8 * 32767;
    kick.duration = duration;
    return kick;
}

/// A minute of four on the floor with the profile "Electro"; the tempo in force at the end.
double readTempo(double bpm, const waves::Kick& kick, std::size_t batchSize)
{
    const SingleShotTrap trap;
    Configuration configuration;
    configuration.setStopDetectionDuration(1.5);
    QAudioFormat format;
    format.setSampleRate(kReferenceRate);
    HighResolutionTimerOverride clock(kReferenceTime);
    AudioAnalyzer analyzer(&configuration, format, nullptr);
    analyzer.Start();
    waves::Samples track = waves::kickTrack(60, kReferenceRate, bpm, kick);
    for (std::size_t at = 0; at < track.size(); at += batchSize) {
        const std::size_t count = std::min(batchSize, track.size() - at);
        clock.setTime(kReferenceTime + (at + count) * 1000000 / kReferenceRate);
        analyzer.Analyze(track.data() + at, count);
    }
    return analyzer.getCurrentBPM();
}

QString toText(double bpm)
{
    return QString::number(bpm, 'f', 1);
}

}  // namespace

/// The tempo is the mean interval, in whole samples, of beats that start with a pulse block: ten
/// seconds at 110 BPM hold 18 intervals, so one block more or less in their sum is 0.26 BPM. The
/// figures below were computed apart from this library by a plain transcription of the algorithm.
class tst_ReferenceTempos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tempo_isTheReference_forFourOnTheFloor_data();
    void tempo_isTheReference_forFourOnTheFloor();
    void tempo_isWithinOneBlockOfTheTrack_forOtherKicks_data();
    void tempo_isWithinOneBlockOfTheTrack_forOtherKicks();
};

void tst_ReferenceTempos::tempo_isTheReference_forFourOnTheFloor_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("duration");
    QTest::addColumn<int>("batchSize");
    QTest::addColumn<QString>("expected");
    QTest::newRow("110") << 110.0 << 0.15 << 1024 << QStringLiteral("110.2");
    QTest::newRow("120") << 120.0 << 0.15 << 1024 << QStringLiteral("120.0");
    QTest::newRow("128") << 128.0 << 0.15 << 1024 << QStringLiteral("128.3");
    QTest::newRow("140") << 140.0 << 0.15 << 1024 << QStringLiteral("140.2");
    QTest::newRow("160") << 160.0 << 0.15 << 1024 << QStringLiteral("160.0");
    QTest::newRow("174") << 174.0 << 0.15 << 1024 << QStringLiteral("173.9");
    QTest::newRow("110, shorter") << 110.0 << 0.12 << 441 << QStringLiteral("110.2");
    QTest::newRow("128, longer") << 128.0 << 0.18 << 4096 << QStringLiteral("128.3");
}

void tst_ReferenceTempos::tempo_isTheReference_forFourOnTheFloor()
{
    QFETCH(double, bpm);
    QFETCH(double, duration);
    QFETCH(int, batchSize);
    QFETCH(QString, expected);
    const double tempo = readTempo(bpm, makeKick(duration), static_cast<std::size_t>(batchSize));
    QCOMPARE(toText(tempo), expected);
}

void tst_ReferenceTempos::tempo_isWithinOneBlockOfTheTrack_forOtherKicks_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("decay");
    QTest::newRow("110 BPM, low and short") << 110.0 << 45.0 << 0.05;
    QTest::newRow("128 BPM, short") << 128.0 << 55.0 << 0.05;
    QTest::newRow("150 BPM, low and long") << 150.0 << 45.0 << 0.12;
    QTest::newRow("170 BPM, long") << 170.0 << 55.0 << 0.12;
}

/// Blocks are all that can blur the sum of the intervals: at most one block at each end of it.
void tst_ReferenceTempos::tempo_isWithinOneBlockOfTheTrack_forOtherKicks()
{
    QFETCH(double, bpm);
    waves::Kick kick = makeKick(0.25);
    QFETCH(double, frequency);
    QFETCH(double, decay);
    kick.frequency = frequency;
    kick.decay = decay;
    const double interval = kReferenceRate * 60 / bpm;
    const double intervals = std::floor(10 * kReferenceRate / interval);
    const double tolerance = bpm * 2 * 1024 / (intervals * interval);
    const double tempo = readTempo(bpm, kick, 1024);
    QVERIFY2(std::abs(tempo - bpm) <= tolerance, qPrintable(toText(tempo)));
}

AA_TEST(tst_ReferenceTempos, QCoreApplication)
#include "tst_ReferenceTempos.moc"
