// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>

#include "Resampling.h"

#include <QAudioFormat>
#include <QtTest>

#include <memory>
#include <random>
#include <reference/PlainConverters.h>
#include <support/TestClass.h>
#include <support/Waves.h>

/// Every converter gives what the plain loop gives, for every input.
class tst_Converters_bitIdentity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void converters_equalThePlainOnes_data();
    void converters_equalThePlainOnes();
};

namespace {

using Plain = void (*)(const char*, size_t, size_t, short*);

template <typename T>
void plainMono(const char* pData, size_t pFrames, size_t, short* pOut)
{
    plain::monoToMono<T>(pData, pFrames, pOut);
}

Plain plainFor(int bits, bool isSigned, int channels)
{
    if (channels == 1) {
        if (bits == 8)
            return isSigned ? plainMono<signed char> : plainMono<unsigned char>;
        if (bits == 16)
            return isSigned ? plainMono<short> : plainMono<unsigned short>;
        return isSigned ? plainMono<int> : plainMono<unsigned int>;
    }
    using namespace plain;
    if (bits == 8)
        return isSigned ? multiToMono<signed char, short>
                        : multiToMono<unsigned char, unsigned short>;
    if (bits == 16)
        return isSigned ? multiToMono<short, int> : multiToMono<unsigned short, unsigned int>;
    return isSigned ? multiToMono<int, long long> : multiToMono<unsigned int, unsigned long long>;
}

unsigned int seed()
{
    const char* pName = "AUDIOANALYZER_TEST_SEED";
    const unsigned int value = qEnvironmentVariableIsSet(pName)
                                   ? static_cast<unsigned int>(qEnvironmentVariableIntValue(pName))
                                   : std::random_device{}();
    qInfo("%s=%u", pName, value);
    return value;
}

/// Random bytes, with stretches of lowest, highest and repeated values.
std::vector<char> makeInput(size_t size, waves::Random& random)
{
    std::vector<char> bytes(size);
    int kind = 0;
    for (size_t i = 0; i < size; ++i) {
        if (i % 64 == 0)
            kind = random.between(0, 5);
        const char fixed[] = {0, char(0x80), char(0x7f), char(0xff)};
        bytes[i] = kind < 4 ? fixed[kind] : static_cast<char>(random.next());
    }
    return bytes;
}

}  // namespace

void tst_Converters_bitIdentity::converters_equalThePlainOnes_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<bool>("isSigned");
    QTest::addColumn<int>("channels");
    for (const int bits : {8, 16, 32})
        for (const bool isSigned : {true, false})
            for (const int channels :
                 {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 127, 128, 255, 256, 257, 258, 300})
                QTest::addRow("%c%d, %d channels", isSigned ? 's' : 'u', bits, channels)
                    << bits << isSigned << channels;
}

void tst_Converters_bitIdentity::converters_equalThePlainOnes()
{
    QFETCH(int, bits);
    QFETCH(bool, isSigned);
    QFETCH(int, channels);
    QAudioFormat format;
    format.setSampleSize(bits);
    format.setSampleType(isSigned ? QAudioFormat::SignedInt : QAudioFormat::UnSignedInt);
    format.setChannelCount(channels);
    const std::unique_ptr<AudioResampler> converter(AudioResampler::Create(format));
    waves::Random random(seed());
    const size_t frameSize = static_cast<size_t>(channels * bits / 8);
    for (const size_t frames : {0u, 1u, 2u, 15u, 16u, 17u, 100u, 1000u}) {
        const std::vector<char> input = makeInput(frames * frameSize + 3, random);
        // Off the natural alignment as well.
        for (const size_t offset : {0u, 1u}) {
            std::vector<short> expected(frames);
            plainFor(bits, isSigned, channels)(
                input.data() + offset, frames, static_cast<size_t>(channels), expected.data());
            const Samples16 converted =
                ResampleBytes(*converter, input.data() + offset, frames * frameSize);
            QVERIFY(
                std::equal(converted.begin(), converted.end(), expected.begin(), expected.end()));
        }
    }
}

AA_TEST(tst_Converters_bitIdentity, NoApplication)

#include "tst_Converters_bitIdentity.moc"
