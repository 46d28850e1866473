// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include "PushedMusic.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>

using namespace pushed;

/// What is pushed and what is told.
class tst_Analysis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void version_isThatOfTheHeader();
    void create_takesRatesWithinLimits_data();
    void create_takesRatesWithinLimits();
    void blockSize_isTheLargestPowerOfTwoWithinAFortieth_data();
    void blockSize_isTheLargestPowerOfTwoWithinAFortieth();
    void portions_changeNothing_data();
    void portions_changeNothing();
    void floats_areRoundedTo16Bits();
    void channels_areAveraged();
    void channels_mayCancelEachOther();
    void samplesThatAreNoNumber_areSilent();
    void music_isHeardAfterOneStopBlock();
    void silence_isToldAsAStop();
    void finish_tellsNothingBehindTheEnd_data();
    void finish_tellsNothingBehindTheEnd();
    void finish_tellsNothing_withoutSamples();
    void finish_tellsAllThatFollowingSilenceWould();
    void restart_isAsNew();
    void restart_dropsAPartOfABlock();
    void reset_searchesAnew_atTheSamePosition();
};

void tst_Analysis::version_isThatOfTheHeader()
{
    QCOMPARE(AudioAnalysis_GetVersion(), AUDIOANALYZER_VERSION);
}

void tst_Analysis::create_takesRatesWithinLimits_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("lowest") << 8000 << true;
    QTest::newRow("below") << 7999 << false;
    QTest::newRow("highest") << 192000 << true;
    QTest::newRow("above") << 192001 << false;
    QTest::newRow("usual") << 48000 << true;
    QTest::newRow("odd") << 44056 << true;
    QTest::newRow("none") << 0 << false;
    QTest::newRow("negative") << -44100 << false;
    QTest::newRow("most negative") << std::numeric_limits<int>::min() << false;
    QTest::newRow("greatest") << std::numeric_limits<int>::max() << false;
}

void tst_Analysis::create_takesRatesWithinLimits()
{
    QFETCH(int, rate);
    QFETCH(bool, isTaken);
    const AnalysisHandle handle(AudioAnalysis_Create(rate));
    QCOMPARE(handle != nullptr, isTaken);
    if (isTaken)
        QCOMPARE(AudioAnalysis_GetSampleRate(handle.get()), rate);
    else
        QCOMPARE(QString::fromUtf8(AudioAnalysis_GetErrorText(nullptr)),
                 QStringLiteral("a sample rate is 8000 to 192000 Hz, not %1").arg(rate));
}

void tst_Analysis::blockSize_isTheLargestPowerOfTwoWithinAFortieth_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<quint64>("size");
    QTest::newRow("8000: 200") << 8000 << quint64(128);
    QTest::newRow("22050: 551") << 22050 << quint64(512);
    QTest::newRow("44100: 1103") << 44100 << quint64(1024);
    QTest::newRow("96000: 2400") << 96000 << quint64(2048);
    QTest::newRow("192000: 4800") << 192000 << quint64(4096);
}

void tst_Analysis::blockSize_isTheLargestPowerOfTwoWithinAFortieth()
{
    QFETCH(int, rate);
    QFETCH(quint64, size);
    const AnalysisHandle handle(AudioAnalysis_Create(rate));
    QCOMPARE(quint64(AudioAnalysis_GetBlockSize(handle.get())), size);
}

void tst_Analysis::portions_changeNothing_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {1, 3, 1023, 1024, 1025, 4410, 100000, 1000000})
        QTest::addRow("%d", portion) << portion;
}

void tst_Analysis::portions_changeNothing()
{
    QFETCH(int, portion);
    QVERIFY(EventsOfMusic().size() > 400);
    PushedAnalysis analysis;
    analysis.pushInPortions(Music(), std::size_t(portion));
    QCOMPARE(quint64(AudioAnalysis_GetSampleCount(analysis)), quint64(12 * kRate));
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOfMusic());
}

void tst_Analysis::floats_areRoundedTo16Bits()
{
    std::vector<float> floats;
    for (const qint16 sample : Music())
        floats.push_back((float(sample) + 0.25f) / 32768.0f);
    PushedAnalysis analysis;
    QCOMPARE(AudioAnalysis_PushFloat(analysis, floats.data(), floats.size(), 1),
             AudioAnalysisError_None);
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOfMusic());
}

// Of three channels one holds three times the music, but at a third of the level.
void tst_Analysis::channels_areAveraged()
{
    waves::Samples quiet = Music();
    for (qint16& sample : quiet)
        sample = qint16(sample / 3);
    std::vector<float> floats;
    waves::Samples integers;
    for (const qint16 sample : quiet) {
        for (const int share : {0, 2, 1}) {
            floats.push_back(float(sample * share) / 32768.0f);
            integers.push_back(qint16(sample * share));
        }
    }
    PushedAnalysis ofFloats;
    QCOMPARE(AudioAnalysis_PushFloat(ofFloats, floats.data(), quiet.size(), 3),
             AudioAnalysisError_None);
    PushedAnalysis ofIntegers;
    QCOMPARE(AudioAnalysis_PushInt16(ofIntegers, integers.data(), quiet.size(), 3),
             AudioAnalysisError_None);
    PushedAnalysis mono;
    mono.push(quiet);
    QVERIFY(mono.getEvents().size() > 100);
    QCOMPARE(ofFloats.getEvents(), mono.getEvents());
    QCOMPARE(ofIntegers.getEvents(), mono.getEvents());
}

void tst_Analysis::channels_mayCancelEachOther()
{
    waves::Samples frames;
    for (const qint16 sample : Music()) {
        frames.push_back(sample);
        frames.push_back(qint16(-sample));
    }
    PushedAnalysis analysis;
    AudioAnalysis_PushInt16(analysis, frames.data(), frames.size() / 2, 2);
    QCOMPARE(analysis.getEvents("spectrum").size(), 0);
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
}

void tst_Analysis::samplesThatAreNoNumber_areSilent()
{
    const std::vector<float> samples(3 * kRate, std::numeric_limits<float>::quiet_NaN());
    PushedAnalysis analysis;
    QCOMPARE(AudioAnalysis_PushFloat(analysis, samples.data(), samples.size(), 1),
             AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
    QCOMPARE(AudioAnalysis_GetSampleCount(analysis), uint64_t(3 * kRate));
}

// 1.5 s are 66150 samples; the 65th block completes them (64.6 blocks), and so is the first one
// heard.
void tst_Analysis::music_isHeardAfterOneStopBlock()
{
    PushedAnalysis analysis;
    analysis.push(Music(3.0));
    const QStringList stops = analysis.getEvents("stop");
    QCOMPARE(stops.size(), 2);
    QCOMPARE(stops[0], QStringLiteral("stop 0 0 1"));
    QCOMPARE(stops[1].section(QLatin1Char(' '), 1, 1), QString::number(64 * kBlock));
    QVERIFY(stops[1].endsWith(QLatin1String(" 0")));
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 0);
    QVERIFY(analysis.getEvents("spectrum")[0].startsWith(
        QStringLiteral("spectrum %1 ").arg(64 * kBlock)));
}

void tst_Analysis::silence_isToldAsAStop()
{
    PushedAnalysis analysis;
    analysis.push(Music(6.0));
    analysis.push(waves::silence(4 * kRate));
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
    QCOMPARE(analysis.getEvents("stop").size(), 3);
    QVERIFY(analysis.getEvents("stop")[2].endsWith(QLatin1String(" 1")));
    analysis.push(Music(4.0));
    QCOMPARE(analysis.getEvents("stop").size(), 4);
}

void tst_Analysis::finish_tellsNothingBehindTheEnd_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one sample") << 1;
    QTest::newRow("a block") << 1024;
    QTest::newRow("a part of a block") << 8 * kRate;
    for (int blocks = 400; blocks < 412; ++blocks)
        QTest::addRow("%d blocks", blocks) << blocks * int(kBlock);
}

void tst_Analysis::finish_tellsNothingBehindTheEnd()
{
    QFETCH(int, count);
    waves::Samples samples = Music(20.0);
    samples.resize(std::size_t(count));
    PushedAnalysis analysis;
    AudioAnalysis_Set(analysis, AudioAnalysisSetting_VirtualWhenStopped, 1.0);
    analysis.push(samples);
    QCOMPARE(analysis.finish(), AudioAnalysisError_None);
    QCOMPARE(quint64(AudioAnalysis_GetSampleCount(analysis)), quint64(count));
    for (const QString& event : analysis.getEvents())
        QVERIFY2(event.section(QLatin1Char(' '), 1, 1).toInt() < count, qPrintable(event));
}

void tst_Analysis::finish_tellsNothing_withoutSamples()
{
    PushedAnalysis analysis;
    QCOMPARE(analysis.finish(), AudioAnalysisError_None);
    QCOMPARE(analysis.getEvents(), QStringList());
    QCOMPARE(analysis.finish(), AudioAnalysisError_Finished);
    QCOMPARE(analysis.push(Music(1.0)), AudioAnalysisError_Finished);
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    QCOMPARE(analysis.push(Music(1.0)), AudioAnalysisError_None);
}

// Beats are decided later than they are; nothing else comes of the silence.
void tst_Analysis::finish_tellsAllThatFollowingSilenceWould()
{
    PushedAnalysis finished;
    finished.push(Music());
    finished.finish();
    PushedAnalysis live;
    live.push(Music());
    live.push(waves::silence(5 * kRate));
    std::vector<quint64> expected;
    for (const AudioAnalysisBeat& beat : live.beats)
        if (beat.index < 12 * kRate)
            expected.push_back(beat.index);
    std::vector<quint64> indexes;
    for (const AudioAnalysisBeat& beat : finished.beats)
        indexes.push_back(beat.index);
    QVERIFY(indexes.size() > 15);
    QCOMPARE(indexes, expected);
}

void tst_Analysis::restart_isAsNew()
{
    PushedAnalysis analysis;
    analysis.push(waves::kickTrack(9.0, kRate, 150.0, {70.0, 0.1, 30000.0, 0.3}));
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    analysis.clear();
    QCOMPARE(AudioAnalysis_GetSampleCount(analysis), uint64_t(0));
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 0.0);
    QCOMPARE(AudioAnalysis_IsStopped(analysis), 1);
    analysis.push(Music());
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOfMusic());
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    analysis.clear();
    analysis.push(Music());
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOfMusic());
}

void tst_Analysis::restart_dropsAPartOfABlock()
{
    PushedAnalysis analysis;
    analysis.push(waves::constant(1000, 30000));
    QCOMPARE(AudioAnalysis_Restart(analysis), AudioAnalysisError_None);
    analysis.push(Music());
    analysis.finish();
    QCOMPARE(analysis.getEvents(), EventsOfMusic());
}

void tst_Analysis::reset_searchesAnew_atTheSamePosition()
{
    PushedAnalysis analysis;
    analysis.push(Music());
    QVERIFY(AudioAnalysis_GetBPM(analysis) > 0.0);
    QVERIFY(AudioAnalysis_GetAverageVolume(analysis) > 0);
    QCOMPARE(AudioAnalysis_Reset(analysis), AudioAnalysisError_None);
    QCOMPARE(AudioAnalysis_GetBPM(analysis), 0.0);
    QCOMPARE(AudioAnalysis_GetAccuracy(analysis), 1.0);
    QCOMPARE(AudioAnalysis_GetAverageVolume(analysis), -1);
    QCOMPARE(AudioAnalysis_GetMaximalVolume(analysis), 0);
    QCOMPARE(quint64(AudioAnalysis_GetSampleCount(analysis)), quint64(12 * kRate));
    analysis.beats.clear();
    analysis.push(Music());
    QVERIFY(analysis.beats.size() > 10);
    QVERIFY(analysis.beats.front().index >= 12 * kRate - kBlock);
    QVERIFY(std::abs(analysis.beats.back().bpm - 125.0) < 2.0);
}

AA_TEST(tst_Analysis, QCoreApplication)
#include "tst_Analysis.moc"
