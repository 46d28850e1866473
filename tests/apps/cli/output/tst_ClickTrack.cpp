// SPDX-License-Identifier: MIT
#include "ClickTrackTest.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <support/TestClass.h>

class tst_ClickTrack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_clicks = ClickFolder(); }

    void music_isUntouched_outsideTheClicks_data();
    void music_isUntouched_outsideTheClicks();
    void music_isUntouched_withoutBeats();
    void click_hasItsEnergyAtTheBeat();
    void click_isSofterAndLower_whenVirtual();
    void click_isLouderAndHigher_onTheFirstOfTheBar();
    void click_goesToEveryChannel();
    void clicks_addUp_whenTheyOverlap();
    void click_isSaturated_inLoudMusic();
    void click_isCut_atTheEnd();
    void beat_isLeftOut_behindTheEnd();

private:
    ClickFolder m_clicks;
};

void tst_ClickTrack::music_isUntouched_outsideTheClicks_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::newRow("8000 Hz mono") << 8000 << 1;
    QTest::newRow("44100 Hz mono") << 44100 << 1;
    QTest::newRow("44100 Hz stereo") << 44100 << 2;
    QTest::newRow("48000 Hz, 6 channels") << 48000 << 6;
    QTest::newRow("192000 Hz stereo") << 192000 << 2;
}

void tst_ClickTrack::music_isUntouched_outsideTheClicks()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    const auto frames = std::size_t(rate);
    const Samples music = makeMusic(frames * std::size_t(channels));
    const std::vector<std::size_t> beats = {0, frames / 4, frames / 2 + 1};
    const Track track = m_clicks.make(
        music, {makeBeat(beats[0]), makeBeat(beats[1], true), makeBeat(beats[2])}, channels, rate);
    QCOMPARE(track.samples.size(), music.size());
    QCOMPARE(track.info.samplerate, rate);
    QCOMPARE(track.info.channels, channels);

    const auto click = std::size_t(std::lround(kClickSeconds * rate));
    for (std::size_t i = 0; i < music.size(); ++i) {
        const std::size_t frame = i / std::size_t(channels);
        const bool isClick = std::any_of(beats.begin(), beats.end(), [&](std::size_t pBeat) {
            return frame >= pBeat && frame < pBeat + click;
        });
        if (!isClick)
            QCOMPARE(track.samples[i], music[i]);
    }
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const std::size_t sample = beats[i] * std::size_t(channels);
        QCOMPARE(int(track.samples[sample]),
                 int(music[sample]) + (i == 1 ? kVirtualPeak : kRealPeak));
    }
}

void tst_ClickTrack::music_isUntouched_withoutBeats()
{
    // Every 16-bit value there is.
    Samples music(65536);
    for (std::size_t i = 0; i < music.size(); ++i)
        music[i] = qint16(int(i) - 32768);
    QCOMPARE(m_clicks.make(music, {}).samples, music);
}

void tst_ClickTrack::click_hasItsEnergyAtTheBeat()
{
    const Track track = m_clicks.make(Samples(44100), {makeBeat(22050)});
    QCOMPARE(sumSquares(track.samples, 0, 22050), 0.0);
    QCOMPARE(sumSquares(track.samples, 22050 + 1323, 44100), 0.0);
    const double first = sumSquares(track.samples, 22050, 22050 + 441);
    const double last = sumSquares(track.samples, 22050 + 882, 22050 + 1323);
    QVERIFY(first > 50.0 * last);  // it dies away
    QVERIFY(last > 0.0);
    QCOMPARE(int(*std::max_element(track.samples.begin(), track.samples.end())), kRealPeak);
    QCOMPARE(track.samples[22050], qint16(kRealPeak));
}

void tst_ClickTrack::click_isSofterAndLower_whenVirtual()
{
    const Track track = m_clicks.make(Samples(44100), {makeBeat(0), makeBeat(22050, true)});
    QCOMPARE(track.samples[0], qint16(kRealPeak));
    QCOMPARE(track.samples[22050], qint16(kVirtualPeak));
    const int real = countSignChanges(track.samples, 0, 44100);
    const int virtualBeat = countSignChanges(track.samples, 22050, 44100);
    QVERIFY2(std::abs(real - 35) <= 1, qPrintable(QString::number(real)));
    QVERIFY2(std::abs(virtualBeat - 18) <= 1, qPrintable(QString::number(virtualBeat)));
}

// 1760 Hz changes its sign 35 times in 10 ms, 2640 Hz 53 times.
void tst_ClickTrack::click_isLouderAndHigher_onTheFirstOfTheBar()
{
    LoggedBeat first = makeBeat(0);
    first.beatInBar = 1;
    LoggedBeat second = makeBeat(10000);
    second.beatInBar = 2;
    const Track track = m_clicks.make(Samples(20000), {first, second});
    QCOMPARE(track.samples[0], qint16(28000));
    QCOMPARE(track.samples[10000], qint16(kRealPeak));
    QVERIFY(std::abs(countSignChanges(track.samples, 0, 44100) - 53) <= 1);
    QVERIFY(std::abs(countSignChanges(track.samples, 10000, 44100) - 35) <= 1);
}

void tst_ClickTrack::click_goesToEveryChannel()
{
    const Track track = m_clicks.make(Samples(3 * 4410), {makeBeat(100)}, 3);
    for (std::size_t frame = 0; frame < 4410; ++frame) {
        QCOMPARE(track.samples[3 * frame + 1], track.samples[3 * frame]);
        QCOMPARE(track.samples[3 * frame + 2], track.samples[3 * frame]);
    }
    QCOMPARE(track.samples[300], qint16(kRealPeak));
}

void tst_ClickTrack::clicks_addUp_whenTheyOverlap()
{
    const Track track = m_clicks.make(
        Samples(4410), {makeBeat(100, true), makeBeat(100, true), makeBeat(100, true)});
    QCOMPARE(track.samples[100], qint16(3 * kVirtualPeak));
    const Track one = m_clicks.make(Samples(4410), {makeBeat(100, true)});
    for (std::size_t i = 0; i < one.samples.size(); ++i)
        QCOMPARE(int(track.samples[i]), 3 * int(one.samples[i]));
}

void tst_ClickTrack::click_isSaturated_inLoudMusic()
{
    const Track plain = m_clicks.make(Samples(4410), {makeBeat(100)});
    for (const int value : {32767, -32768, 20000}) {
        const Track loud = m_clicks.make(Samples(4410, qint16(value)), {makeBeat(100)});
        for (std::size_t i = 0; i < loud.samples.size(); ++i)
            QCOMPARE(int(loud.samples[i]), qBound(-32768, value + int(plain.samples[i]), 32767));
    }
}

void tst_ClickTrack::click_isCut_atTheEnd()
{
    const Track track = m_clicks.make(Samples(1000), {makeBeat(999)});
    QCOMPARE(track.samples.size(), std::size_t(1000));
    QCOMPARE(track.samples[999], qint16(kRealPeak));
    QCOMPARE(sumSquares(track.samples, 0, 999), 0.0);
}

void tst_ClickTrack::beat_isLeftOut_behindTheEnd()
{
    const Samples music = makeMusic(1000);
    const Track track =
        m_clicks.make(music, {makeBeat(1000), makeBeat(std::numeric_limits<quint64>::max())});
    QCOMPARE(track.samples, music);
}

AA_TEST(tst_ClickTrack, NoApplication)
#include "tst_ClickTrack.moc"
