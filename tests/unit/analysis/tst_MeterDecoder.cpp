// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/MeterDecoder.h>

#include "MeterMusic.h"
#include "TrackedBeats.h"

#include <QtTest>

#include <support/TestClass.h>

namespace {

constexpr int kDecodedRate = 22050;
using Beats = std::vector<MeterTracker::Beat>;

MeterDecoder::Decoding decode(const std::vector<qint16>& pSamples, std::size_t pPortion = 1024)
{
    MeterDecoder decoder(kDecodedRate);
    for (std::size_t i = 0; i < pSamples.size(); i += pPortion)
        decoder.Push(&pSamples[i], std::min(pPortion, pSamples.size() - i));
    return decoder.Decode();
}

/// How many of the beats of pBPM from pFrom to pTo seconds, a beat falling on pStart, are found
/// within 70 ms.
int countDecoded(const Beats& pBeats, double pBPM, double pStart, double pFrom, double pTo)
{
    int hits = 0;
    for (double time = pStart; time < pTo; time += 60.0 / pBPM)
        hits += time >= pFrom && std::any_of(pBeats.begin(),
                                             pBeats.end(),
                                             [=](const MeterTracker::Beat& pBeat) {
                                                 const double found =
                                                     double(pBeat.index) / kDecodedRate;
                                                 return std::fabs(found - time) <= 0.07;
                                             })
                    ? 1
                    : 0;
    return hits;
}

}  // namespace

/// The most probable way through a whole recording.
class tst_MeterDecoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beats_fallOnTheBassDrum_fromTheBeginningOn_data();
    void beats_fallOnTheBassDrum_fromTheBeginningOn();
    void beats_areTheSame_inPortionsOfAnySize_data();
    void beats_areTheSame_inPortionsOfAnySize();
    void beats_hitNoFewer_thanThoseOfTheTracker();
    void tempo_staysInItsRange();
    void nothing_isTold_inSilenceAndBehindTheEnd();
    void nothing_isTold_ofNothing();
    void bar_isCountedInFours();
};

void tst_MeterDecoder::beats_fallOnTheBassDrum_fromTheBeginningOn_data()
{
    QTest::addColumn<double>("bpm");
    for (const double bpm : {82.0, 100.0, 120.0, 150.0})
        QTest::addRow("%g BPM", bpm) << bpm;
}

// From the first second on: what comes later tells which beats they are.
void tst_MeterDecoder::beats_fallOnTheBassDrum_fromTheBeginningOn()
{
    QFETCH(double, bpm);
    const Beats beats = decode(MeterMusic(kDecodedRate).play(bpm, 12.0).samples()).beats;
    const int truth = int(std::floor(11.9 * bpm / 60.0)) - int(std::ceil(bpm / 60.0)) + 1;
    const int hits = countDecoded(beats, bpm, 0.0, 1.0, 11.9);
    QVERIFY2(hits >= truth - 1, qPrintable(QStringLiteral("%1 of %2").arg(hits).arg(truth)));
    QVERIFY(int(beats.size()) <= int(12.0 * bpm / 60.0) + 2);
    QVERIFY(std::fabs(beats[beats.size() / 2].bpm / bpm - 1.0) < 0.02);
}

void tst_MeterDecoder::beats_areTheSame_inPortionsOfAnySize_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {7, 441, 1000000})
        QTest::addRow("%d", portion) << portion;
}

void tst_MeterDecoder::beats_areTheSame_inPortionsOfAnySize()
{
    QFETCH(int, portion);
    const auto samples =
        MeterMusic(kDecodedRate).rest(1.0).play(100.0, 6.0).play(140.0, 6.0).samples();
    const MeterDecoder::Decoding expected = decode(samples);
    const MeterDecoder::Decoding found = decode(samples, std::size_t(portion));
    QVERIFY(expected.beats.size() > 15);
    QVERIFY(found.beats == expected.beats);
    QCOMPARE(found.stretches.size(), expected.stretches.size());
}

// A step of the tempo.
void tst_MeterDecoder::beats_hitNoFewer_thanThoseOfTheTracker()
{
    const auto samples = MeterMusic(kDecodedRate).play(100.0, 12.0).play(130.0, 12.0).samples();
    TrackedBeats tracked(kDecodedRate);
    tracked.push(samples);
    const Beats beats = decode(samples).beats;
    const auto hits = [](const Beats& pBeats) {
        return countDecoded(pBeats, 100.0, 0.0, 0.0, 12.0) +
               countDecoded(pBeats, 130.0, 12.0, 12.0, 23.9);
    };
    QVERIFY2(hits(beats) >= hits(tracked.beats),
             qPrintable(QStringLiteral("%1, live %2").arg(hits(beats)).arg(hits(tracked.beats))));
    QVERIFY(hits(beats) >= 40);
}

void tst_MeterDecoder::tempo_staysInItsRange()
{
    const auto samples = MeterMusic(kDecodedRate).play(120.0, 10.0).samples();
    MeterDecoder decoder(kDecodedRate);
    QVERIFY(decoder.getTracker().setTempoRange(70.0, 100.0));
    decoder.Push(samples.data(), samples.size());
    const Beats beats = decoder.Decode().beats;
    QVERIFY(!beats.empty());
    // A grid step of 1.5 % at each end.
    for (const MeterTracker::Beat& beat : beats)
        QVERIFY2(beat.bpm > 68.9 && beat.bpm < 101.6, qPrintable(QString::number(beat.bpm)));
}

// Six seconds of music, five of silence, and music that is cut off.
void tst_MeterDecoder::nothing_isTold_inSilenceAndBehindTheEnd()
{
    const auto samples =
        MeterMusic(kDecodedRate).play(120.0, 6.0).rest(5.0).play(120.0, 6.0).samples();
    const MeterDecoder::Decoding decoding = decode(samples);
    for (const MeterTracker::Beat& beat : decoding.beats) {
        const double time = double(beat.index) / kDecodedRate;
        QVERIFY2(time < 8.0 || time > 10.9, qPrintable(QString::number(time)));
        QVERIFY(beat.index < samples.size());
    }
    QVERIFY(countDecoded(decoding.beats, 120.0, 11.0, 12.0, 16.9) >= 8);
    QVERIFY(decoding.stretches.size() >= 2);
    QCOMPARE(decoding.stretches.front().start, quint64(0));
    QCOMPARE(decoding.stretches.back().end, quint64(samples.size()));
}

void tst_MeterDecoder::nothing_isTold_ofNothing()
{
    QVERIFY(decode({}).beats.empty());
    QVERIFY(decode({}).stretches.empty());
    QVERIFY(decode(std::vector<qint16>(10)).beats.empty());
    const MeterDecoder::Decoding silence = decode(std::vector<qint16>(5 * kDecodedRate));
    QVERIFY(silence.beats.empty() && silence.stretches.empty());
}

void tst_MeterDecoder::bar_isCountedInFours()
{
    const Beats beats = decode(MeterMusic(kDecodedRate).play(120.0, 12.0).samples()).beats;
    QVERIFY(beats.size() > 16);
    for (std::size_t i = 1; i < beats.size(); ++i)
        QCOMPARE(beats[i].beatInBar, beats[i - 1].beatInBar % 4 + 1);
    for (const MeterTracker::Beat& beat : beats) {
        QVERIFY(beat.confidence > 0.0 && beat.confidence <= 1.0);
        QVERIFY(beat.barConfidence >= 0.0 && beat.barConfidence <= 1.0);
    }
}

AA_TEST(tst_MeterDecoder, NoApplication)
#include "tst_MeterDecoder.moc"
