// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>
#include <AudioAnalyzer/audio/ChannelMix.h>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr int kMixedRate = 8000;
constexpr int kMixWindow = kMixedRate / 10;  ///< frames between two choices

/// Frames whose channels are pLevels times a tone.
std::vector<qint16> mixTone(const std::vector<double>& pLevels, int pFrames)
{
    std::vector<qint16> frames;
    for (int i = 0; i < pFrames; ++i)
        for (const double level : pLevels)
            frames.push_back(qint16(std::lround(level * std::sin(i * 0.3))));
    return frames;
}

std::vector<qint16>
mix(ChannelMix& pMix, const std::vector<qint16>& pFrames, int pChannels, std::size_t pPortion)
{
    const std::size_t count = pFrames.size() / std::size_t(pChannels);
    std::vector<qint16> samples(count);
    for (std::size_t i = 0; i < count; i += pPortion)
        pMix.Mix(&pFrames[i * std::size_t(pChannels)],
                 pChannels,
                 std::min(pPortion, count - i),
                 &samples[i]);
    return samples;
}

std::vector<qint16> averageOf(const std::vector<qint16>& pFrames, int pChannels)
{
    std::vector<qint16> samples(pFrames.size() / std::size_t(pChannels));
    AudioDownmix::ToMono(pFrames.data(), pChannels, samples.size(), samples.data());
    return samples;
}

/// One channel of the frames.
std::vector<qint16> channel(const std::vector<qint16>& pFrames, int pChannels, int pChannel)
{
    std::vector<qint16> samples;
    for (std::size_t i = std::size_t(pChannel); i < pFrames.size(); i += std::size_t(pChannels))
        samples.push_back(pFrames[i]);
    return samples;
}

}  // namespace

/// Averages, and the choice of a channel where they would be silence.
class tst_ChannelMix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void channels_areAveraged_unlessTheyCancel_data();
    void channels_areAveraged_unlessTheyCancel();
    void louderChannel_isTaken_behindTheFirstWindow();
    void average_isTakenAgain_whenNothingCancels();
    void samples_areTheSame_inPortionsOfAnySize_data();
    void samples_areTheSame_inPortionsOfAnySize();
    void floats_giveWhatIntegersGive();
    void newChannelCount_isJudgedAnew();
    void silence_isNoCancellation();
    void reset_forgets();
};

void tst_ChannelMix::channels_areAveraged_unlessTheyCancel_data()
{
    QTest::addColumn<QVector<double>>("levels");
    QTest::addColumn<int>("channel");  // -1 = the average
    const auto row = [](const char* pName, const QVector<double>& pLevels, int pChannel) {
        QTest::newRow(pName) << pLevels << pChannel;
    };
    row("mono", {9000}, -1);
    row("equal", {9000, 9000}, -1);
    row("one silent", {9000, 0}, -1);
    row("opposite", {9000, -9000}, 0);
    row("opposite, the right one louder", {-8000, 9000}, 1);
    // (1 - 0.3)^2 of the power that the left one alone leaves is 0.49, (1 - 0.4)^2 is 0.36.
    row("a little against it", {9000, -2700}, -1);
    row("much against it", {9000, -3600}, 0);
    row("one of four", {9000, 0, 0, 0}, -1);
    row("four in pairs", {9000, -9000, 5000, -5000}, 0);
}

void tst_ChannelMix::channels_areAveraged_unlessTheyCancel()
{
    QFETCH(QVector<double>, levels);
    QFETCH(int, channel);
    ChannelMix mixer(kMixedRate);
    const int count = levels.size();
    const auto frames = mixTone({levels.begin(), levels.end()}, 3 * kMixWindow);
    auto expected = averageOf(frames, count);
    if (channel >= 0) {
        const auto taken = ::channel(frames, count, channel);
        std::copy(taken.begin() + kMixWindow, taken.end(), expected.begin() + kMixWindow);
    }
    QCOMPARE(mix(mixer, frames, count, 1000), expected);
    QCOMPARE(mixer.getChannel(), channel);
    QCOMPARE(mixer.hasCancelled(), channel >= 0);
}

void tst_ChannelMix::louderChannel_isTaken_behindTheFirstWindow()
{
    ChannelMix mixer(kMixedRate);
    auto frames = mixTone({9000, 9000}, 2 * kMixWindow);
    const auto opposed = mixTone({-3000, 9000}, 20 * kMixWindow);
    mix(mixer, frames, 2, 500);
    QVERIFY(!mixer.hasCancelled());
    mix(mixer, opposed, 2, 500);
    QCOMPARE(mixer.getChannel(), -1);  // (9000 - 3000)^2 is 0.44 of 9000^2
    mix(mixer, mixTone({-6000, 9000}, 20 * kMixWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 1);
    QVERIFY(mixer.hasCancelled());
    QCOMPARE(mixer.getFirstCancellation() % kMixWindow, quint64(0));
    QVERIFY(mixer.getFirstCancellation() > quint64(22 * kMixWindow));
    QVERIFY(mixer.getFirstCancellation() < quint64(42 * kMixWindow));
}

void tst_ChannelMix::average_isTakenAgain_whenNothingCancels()
{
    ChannelMix mixer(kMixedRate);
    mix(mixer, mixTone({9000, -9000}, 20 * kMixWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 0);
    const auto frames = mixTone({9000, 9000}, 40 * kMixWindow);
    const auto samples = mix(mixer, frames, 2, 500);
    QCOMPARE(mixer.getChannel(), -1);
    QVERIFY(mixer.hasCancelled());
    QCOMPARE(samples.back(), averageOf(frames, 2).back());
}

void tst_ChannelMix::samples_areTheSame_inPortionsOfAnySize_data()
{
    QTest::addColumn<int>("portion");
    for (const int portion : {1, 7, 800, 801, 100000})
        QTest::addRow("%d", portion) << portion;
}

void tst_ChannelMix::samples_areTheSame_inPortionsOfAnySize()
{
    QFETCH(int, portion);
    auto frames = mixTone({9000, -8000}, 5 * kMixWindow);
    const auto rest = mixTone({5000, 5000}, 30 * kMixWindow + 13);
    frames.insert(frames.end(), rest.begin(), rest.end());
    ChannelMix expected(kMixedRate);
    ChannelMix mixer(kMixedRate);
    QCOMPARE(mix(mixer, frames, 2, std::size_t(portion)), mix(expected, frames, 2, kMixWindow));
    QCOMPARE(mixer.getFirstCancellation(), quint64(kMixWindow));
}

void tst_ChannelMix::floats_giveWhatIntegersGive()
{
    const auto frames = mixTone({9000, -8000}, 5 * kMixWindow);
    std::vector<float> floats;
    for (const qint16 sample : frames)
        floats.push_back(float(sample) / 32768.0F);
    std::vector<qint16> samples(frames.size() / 2);
    ChannelMix mixer(kMixedRate);
    mixer.Mix(floats.data(), 2, samples.size(), samples.data());
    ChannelMix expected(kMixedRate);
    QCOMPARE(samples, mix(expected, frames, 2, 1000));
}

void tst_ChannelMix::newChannelCount_isJudgedAnew()
{
    ChannelMix mixer(kMixedRate);
    mix(mixer, mixTone({9000, -9000}, 2 * kMixWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 0);
    mix(mixer, mixTone({9000}, 2 * kMixWindow), 1, 500);
    QCOMPARE(mixer.getChannel(), -1);
}

void tst_ChannelMix::silence_isNoCancellation()
{
    ChannelMix mixer(kMixedRate);
    mix(mixer, std::vector<qint16>(20 * kMixWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), -1);
    QVERIFY(!mixer.hasCancelled());
}

void tst_ChannelMix::reset_forgets()
{
    ChannelMix mixer(kMixedRate);
    const auto frames = mixTone({9000, -8000}, 5 * kMixWindow);
    const auto first = mix(mixer, frames, 2, 500);
    mixer.Reset();
    QVERIFY(!mixer.hasCancelled());
    QCOMPARE(mixer.getChannel(), -1);
    QCOMPARE(mix(mixer, frames, 2, 500), first);
}

AA_TEST(tst_ChannelMix, NoApplication)
#include "tst_ChannelMix.moc"
