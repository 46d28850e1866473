// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatConfidence.h>
#include <AudioAnalyzer/analysis/detail/MusicEvidence.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

using detail::MusicEvidence;

namespace {

void hear(MusicEvidence& pMusic, int pFrames, float pRatio, float pMeanSquare)
{
    for (int frame = 0; frame < pFrames; ++frame)
        pMusic.Update(pRatio, pMeanSquare);
}

constexpr float kLoud = 0.01F;

}  // namespace

class tst_MusicEvidence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void playing_beginsWithTheFirstSound();
    void playing_ends_whenTheEvidenceIsUsedUp();
    void evidence_hasTwoBounds();
    void playing_beginsAgain_withMoreEvidenceThanItEnds();
    void playing_ends_inSilence_data();
    void playing_ends_inSilence();
    void doubt_outlivesAShortSilence();
    void believing_startsPlaying();
    void mean_followsTheLastSeconds();
    void confidence_risesWithEverySign();
    void confidence_isTheLogisticCurve();
};

void tst_MusicEvidence::playing_beginsWithTheFirstSound()
{
    MusicEvidence music;
    hear(music, 10, -0.02F, 0.0F);
    QVERIFY(!music.isPlaying());
    hear(music, 1, 0.0F, kLoud);
    QVERIFY(music.isPlaying());
}

// 2 at first, a fiftieth less each frame.
void tst_MusicEvidence::playing_ends_whenTheEvidenceIsUsedUp()
{
    MusicEvidence music;
    hear(music, 98, -0.02F, kLoud);
    QVERIFY(music.isPlaying());
    hear(music, 4, -0.02F, kLoud);
    QVERIFY(!music.isPlaying());
}

// 20 at most: after an hour of music as after 18 seconds of a tenth each frame; -6 at least.
void tst_MusicEvidence::evidence_hasTwoBounds()
{
    MusicEvidence music;
    hear(music, 10000, 0.1F, kLoud);
    QCOMPARE(music.getSum(), 20.0F);
    hear(music, 10000, -0.1F, kLoud);
    QCOMPARE(music.getSum(), -6.0F);
}

// From -6 a tenth each frame: 1 after 70 frames, and from there 0 after 10.
void tst_MusicEvidence::playing_beginsAgain_withMoreEvidenceThanItEnds()
{
    MusicEvidence music;
    hear(music, 10000, -0.1F, kLoud);
    hear(music, 69, 0.1F, kLoud);
    QVERIFY(!music.isPlaying());
    hear(music, 2, 0.1F, kLoud);
    QVERIFY(music.isPlaying());
    hear(music, 10, -0.1F, kLoud);
    QVERIFY(music.isPlaying());
    hear(music, 2, -0.1F, kLoud);
    QVERIFY(!music.isPlaying());
    hear(music, 10, 0.1F, kLoud);
    QVERIFY(!music.isPlaying());
}

void tst_MusicEvidence::playing_ends_inSilence_data()
{
    QTest::addColumn<float>("loudness");
    QTest::addColumn<float>("rest");
    QTest::newRow("digital silence") << kLoud << 0.0F;
    QTest::newRow("-71 dBFS") << kLoud << 0.8e-7F;
    QTest::newRow("55 dB below the music") << 0.1F << 0.3e-6F;
}

void tst_MusicEvidence::playing_ends_inSilence()
{
    QFETCH(float, loudness);
    QFETCH(float, rest);
    MusicEvidence music;
    hear(music, 1000, 0.1F, loudness);
    hear(music, 119, 0.0F, rest);
    QVERIFY(music.isPlaying());
    hear(music, 1, 0.0F, rest);
    QVERIFY(!music.isPlaying());
    QVERIFY(music.isSilent());
}

// After noise a pause of two seconds does not give the benefit of the doubt back.
void tst_MusicEvidence::doubt_outlivesAShortSilence()
{
    MusicEvidence music;
    hear(music, 1000, -0.1F, kLoud);
    hear(music, 200, 0.0F, 0.0F);
    hear(music, 1, 0.0F, kLoud);
    QVERIFY(!music.isPlaying());
    hear(music, 3000, 0.0F, 0.0F);
    hear(music, 1, 0.0F, kLoud);
    QVERIFY(music.isPlaying());
}

void tst_MusicEvidence::believing_startsPlaying()
{
    MusicEvidence music;
    hear(music, 1000, -0.1F, kLoud);
    music.Believe();
    QVERIFY(music.isPlaying());
    hear(music, 1000, 0.1F, kLoud);
    music.Believe();
    QCOMPARE(music.getSum(), 20.0F);
}

// A smoother of 300 frames has come 1 - 1/e of the way after 300.
void tst_MusicEvidence::mean_followsTheLastSeconds()
{
    MusicEvidence music;
    hear(music, 300, 0.1F, kLoud);
    QVERIFY(std::fabs(music.getMean() - 0.0632F) < 0.0005F);
}

void tst_MusicEvidence::confidence_risesWithEverySign()
{
    const detail::BeatSigns low = {0.3F, 0.3F, 0.0F};
    const detail::BeatSigns high = {0.9F, 0.9F, 0.04F};
    QVERIFY(detail::beatConfidence(low, detail::kMeterTable) <
            detail::beatConfidence(high, detail::kMeterTable));
    QVERIFY(detail::beatConfidence({0.9F, 0.9F, -0.02F}, detail::kMeterTable) <
            detail::beatConfidence(high, detail::kMeterTable));
}

// 1 / (1 + e^-(0.5 + ln 3)) with a share of 3/4 alone.
void tst_MusicEvidence::confidence_isTheLogisticCurve()
{
    static detail::MeterTable table = {};
    table.confidence[0] = 0.5F;
    table.confidence[1] = 1.0F;
    const double expected = 1.0 / (1.0 + std::exp(-0.5) / 3.0);
    const float found = detail::beatConfidence({0.75F, 0.1F, 0.3F}, table);
    QVERIFY(std::fabs(double(found) - expected) < 1e-5);
}

AA_TEST(tst_MusicEvidence, NoApplication)
#include "tst_MusicEvidence.moc"
