// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <QtTest>

#include <cmath>
#include <support/TestClass.h>

namespace {

std::vector<qint16> clicks(int pSampleRate, double pSeconds)
{
    std::vector<qint16> samples(std::size_t(pSeconds * pSampleRate));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = std::fmod(double(i) / pSampleRate, 0.5);
        const double low = std::sin(6.283185307179586 * 80.0 * t) * std::exp(-t / 0.05);
        const double high = std::sin(6.283185307179586 * 2500.0 * t) * std::exp(-t / 0.02);
        samples[i] = qint16(2 * std::lround(4000.0 * (low + high)));
    }
    return samples;
}

struct Heard
{
    std::vector<OnsetLevels::Levels> levels;
    std::vector<quint64> ends;
};

Heard hear(OnsetLevels& pOnsets, const std::vector<qint16>& pSamples, std::size_t pPortion)
{
    Heard heard;
    quint64 end = 0;
    for (std::size_t i = 0; i < pSamples.size();) {
        const std::size_t taken =
            pOnsets.Push(&pSamples[i], std::min(pPortion, pSamples.size() - i));
        i += taken;
        end += taken;
        if (pOnsets.isFrameComplete()) {
            heard.levels.push_back(pOnsets.getLevels());
            heard.ends.push_back(end);
        }
    }
    return heard;
}

}  // namespace

class tst_OnsetLevels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frames_endOnHundredths_data();
    void frames_endOnHundredths();
    void levels_areZero_inSilence();
    void levels_areHighest_whereAClickBegins();
    void levels_areTheSame_inPortionsOfAnySize();
    void levels_areTheSame_atTwiceTheLevel();
    void levels_areTheSame_afterReset();
    void ranges_beyondTheRate_takeTheLevelBelow();
    void meanSquare_isThatOfTheFrame();
};

void tst_OnsetLevels::frames_endOnHundredths_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<quint64>("first");
    QTest::addColumn<quint64>("second");
    QTest::addColumn<quint64>("hundredth");
    QTest::newRow("44100") << 44100 << quint64(441) << quint64(882) << quint64(44100);
    QTest::newRow("22050: 220.5") << 22050 << quint64(220) << quint64(441) << quint64(22050);
    QTest::newRow("11025: 110.25") << 11025 << quint64(110) << quint64(220) << quint64(11025);
    QTest::newRow("8000") << 8000 << quint64(80) << quint64(160) << quint64(8000);
}

void tst_OnsetLevels::frames_endOnHundredths()
{
    QFETCH(int, rate);
    OnsetLevels onsets(rate);
    const Heard heard = hear(onsets, std::vector<qint16>(std::size_t(rate)), 333);
    QCOMPARE(heard.ends.size(), std::size_t(100));
    QTEST(heard.ends[0], "first");
    QTEST(heard.ends[1], "second");
    QTEST(heard.ends[99], "hundredth");
    QCOMPARE(onsets.getFrameCount(), quint64(100));
    QTEST(onsets.getFrameEnd(100), "hundredth");
}

void tst_OnsetLevels::levels_areZero_inSilence()
{
    OnsetLevels onsets(44100);
    for (const auto& levels : hear(onsets, std::vector<qint16>(44100), 1024).levels)
        QCOMPARE(levels, (OnsetLevels::Levels{0, 0, 0, 0, 0}));
    QCOMPARE(onsets.getMeanSquare(), 0.0F);
}

// Clicks every half second: the frame that first holds one, or one of the three after it.
void tst_OnsetLevels::levels_areHighest_whereAClickBegins()
{
    OnsetLevels onsets(44100);
    const Heard heard = hear(onsets, clicks(44100, 4.0), 1024);
    for (std::size_t click = 100; click < 400; click += 50)
        for (const std::size_t range : {0U, 3U}) {
            quint8 near = 0;
            for (std::size_t i = click; i < click + 4; ++i)
                near = std::max(near, heard.levels[i][range]);
            QVERIFY(near >= 8);
            for (std::size_t i = click + 10; i < click + 50; ++i)
                QVERIFY(heard.levels[i][range] < near);
        }
}

void tst_OnsetLevels::levels_areTheSame_inPortionsOfAnySize()
{
    const std::vector<qint16> samples = clicks(22050, 3.0);
    OnsetLevels onsets(22050);
    const Heard whole = hear(onsets, samples, samples.size());
    for (const std::size_t portion : {1U, 2U, 219U, 220U, 221U, 1024U}) {
        OnsetLevels other(22050);
        const Heard pieces = hear(other, samples, portion);
        QVERIFY(whole.levels == pieces.levels);
        QVERIFY(whole.ends == pieces.ends);
    }
}

// The gain is the inverse of a root: a factor of two leaves no rounding behind.
void tst_OnsetLevels::levels_areTheSame_atTwiceTheLevel()
{
    std::vector<qint16> samples = clicks(44100, 3.0);
    OnsetLevels onsets(44100);
    const Heard loud = hear(onsets, samples, 1024);
    for (qint16& sample : samples)
        sample = qint16(sample / 2);
    OnsetLevels other(44100);
    QVERIFY(hear(other, samples, 1024).levels == loud.levels);
}

void tst_OnsetLevels::levels_areTheSame_afterReset()
{
    const std::vector<qint16> samples = clicks(44100, 1.0);
    OnsetLevels onsets(44100);
    const Heard first = hear(onsets, samples, 1000);
    hear(onsets, clicks(44100, 0.737), 1000);
    onsets.Reset();
    QVERIFY(hear(onsets, samples, 1000).levels == first.levels);
}

void tst_OnsetLevels::ranges_beyondTheRate_takeTheLevelBelow()
{
    OnsetLevels onsets(8000);
    for (const auto& levels : hear(onsets, clicks(8000, 2.0), 1024).levels)
        QCOMPARE(levels[4], levels[3]);
    // 8 kHz is more than 5.
    OnsetLevels others(16000);
    int differing = 0;
    for (const auto& levels : hear(others, clicks(16000, 2.0), 1024).levels)
        differing += levels[4] != levels[3] ? 1 : 0;
    QVERIFY(differing > 0);
}

void tst_OnsetLevels::meanSquare_isThatOfTheFrame()
{
    OnsetLevels onsets(44100);
    std::vector<qint16> samples(441, qint16(16384));
    onsets.Push(samples.data(), samples.size());
    QCOMPARE(onsets.getMeanSquare(), 0.25F);
}

AA_TEST(tst_OnsetLevels, NoApplication)
#include "tst_OnsetLevels.moc"
