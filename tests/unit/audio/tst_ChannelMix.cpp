// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>
#include <AudioAnalyzer/audio/ChannelMix.h>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr int kRate = 8000;
constexpr int kWindow = kRate / 10;  ///< frames between two choices

/// Frames whose channels are pLevels times a tone.
std::vector<qint16> tone(const std::vector<double>& pLevels, int pFrames)
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

std::vector<qint16> average(const std::vector<qint16>& pFrames, int pChannels)
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
    ChannelMix mixer(kRate);
    const int count = levels.size();
    const auto frames = tone({levels.begin(), levels.end()}, 3 * kWindow);
    auto expected = average(frames, count);
    if (channel >= 0) {
        const auto taken = ::channel(frames, count, channel);
        std::copy(taken.begin() + kWindow, taken.end(), expected.begin() + kWindow);
    }
    QCOMPARE(mix(mixer, frames, count, 1000), expected);
    QCOMPARE(mixer.getChannel(), channel);
    QCOMPARE(mixer.hasCancelled(), channel >= 0);
}

void tst_ChannelMix::louderChannel_isTaken_behindTheFirstWindow()
{
    ChannelMix mixer(kRate);
    auto frames = tone({9000, 9000}, 2 * kWindow);
    const auto opposed = tone({-3000, 9000}, 20 * kWindow);
    mix(mixer, frames, 2, 500);
    QVERIFY(!mixer.hasCancelled());
    mix(mixer, opposed, 2, 500);
    QCOMPARE(mixer.getChannel(), -1);  // (9000 - 3000)^2 is 0.44 of 9000^2
    mix(mixer, tone({-6000, 9000}, 20 * kWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 1);
    QVERIFY(mixer.hasCancelled());
    QCOMPARE(mixer.getFirstCancellation() % kWindow, quint64(0));
    QVERIFY(mixer.getFirstCancellation() > quint64(22 * kWindow));
    QVERIFY(mixer.getFirstCancellation() < quint64(42 * kWindow));
}

void tst_ChannelMix::average_isTakenAgain_whenNothingCancels()
{
    ChannelMix mixer(kRate);
    mix(mixer, tone({9000, -9000}, 20 * kWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 0);
    const auto frames = tone({9000, 9000}, 40 * kWindow);
    const auto samples = mix(mixer, frames, 2, 500);
    QCOMPARE(mixer.getChannel(), -1);
    QVERIFY(mixer.hasCancelled());
    QCOMPARE(samples.back(), average(frames, 2).back());
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
    auto frames = tone({9000, -8000}, 5 * kWindow);
    const auto rest = tone({5000, 5000}, 30 * kWindow + 13);
    frames.insert(frames.end(), rest.begin(), rest.end());
    ChannelMix expected(kRate);
    ChannelMix mixer(kRate);
    QCOMPARE(mix(mixer, frames, 2, std::size_t(portion)), mix(expected, frames, 2, kWindow));
    QCOMPARE(mixer.getFirstCancellation(), quint64(kWindow));
}

void tst_ChannelMix::floats_giveWhatIntegersGive()
{
    const auto frames = tone({9000, -8000}, 5 * kWindow);
    std::vector<float> floats;
    for (const qint16 sample : frames)
        floats.push_back(float(sample) / 32768.0F);
    std::vector<qint16> samples(frames.size() / 2);
    ChannelMix mixer(kRate);
    mixer.Mix(floats.data(), 2, samples.size(), samples.data());
    ChannelMix expected(kRate);
    QCOMPARE(samples, mix(expected, frames, 2, 1000));
}

void tst_ChannelMix::newChannelCount_isJudgedAnew()
{
    ChannelMix mixer(kRate);
    mix(mixer, tone({9000, -9000}, 2 * kWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), 0);
    mix(mixer, tone({9000}, 2 * kWindow), 1, 500);
    QCOMPARE(mixer.getChannel(), -1);
}

void tst_ChannelMix::silence_isNoCancellation()
{
    ChannelMix mixer(kRate);
    mix(mixer, std::vector<qint16>(20 * kWindow), 2, 500);
    QCOMPARE(mixer.getChannel(), -1);
    QVERIFY(!mixer.hasCancelled());
}

void tst_ChannelMix::reset_forgets()
{
    ChannelMix mixer(kRate);
    const auto frames = tone({9000, -8000}, 5 * kWindow);
    const auto first = mix(mixer, frames, 2, 500);
    mixer.Reset();
    QVERIFY(!mixer.hasCancelled());
    QCOMPARE(mixer.getChannel(), -1);
    QCOMPARE(mix(mixer, frames, 2, 500), first);
}

AA_TEST(tst_ChannelMix, NoApplication)
#include "tst_ChannelMix.moc"
