// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMonoToMono.h>
#include <AudioAnalyzer/audio/AudioResamplerMultiToMono.h>

#include "Resampling.h"

#include <QAudioFormat>
#include <QtTest>

#include <climits>
#include <memory>
#include <support/TestClass.h>

namespace {

QAudioFormat MakeFormat(int pSize, int pChannelCount, QAudioFormat::SampleType pType)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(48000);
    format.setSampleSize(pSize);
    format.setChannelCount(pChannelCount);
    format.setSampleType(pType);
    return format;
}

std::unique_ptr<AudioResampler> Create(int pSize, int pChannelCount, QAudioFormat::SampleType pType)
{
    return std::unique_ptr<AudioResampler>(
        AudioResampler::Create(MakeFormat(pSize, pChannelCount, pType)));
}

template <typename T>
bool IsMono(const AudioResampler* pResampler)
{
    return dynamic_cast<const AudioResamplerMonoToMono<T>*>(pResampler) != nullptr;
}

template <typename T, typename Acc>
bool IsMulti(const AudioResampler* pResampler)
{
    return dynamic_cast<const AudioResamplerMultiToMono<T, Acc>*>(pResampler) != nullptr;
}

/// The name of the object's class, as the table of the factory has it.
QString ClassOf(const AudioResampler* pResampler)
{
    if (!pResampler)
        return QStringLiteral("null");
    const std::pair<bool, const char*> classes[] = {
        {IsMono<signed char>(pResampler), "mono s8"},
        {IsMono<unsigned char>(pResampler), "mono u8"},
        {IsMono<short>(pResampler), "mono s16"},
        {IsMono<unsigned short>(pResampler), "mono u16"},
        {IsMono<int>(pResampler), "mono s32"},
        {IsMono<unsigned int>(pResampler), "mono u32"},
        {IsMulti<signed char, short>(pResampler), "multi s8"},
        {IsMulti<unsigned char, unsigned short>(pResampler), "multi u8"},
        {IsMulti<short, int>(pResampler), "multi s16"},
        {IsMulti<unsigned short, unsigned int>(pResampler), "multi u16"},
        {IsMulti<int, long long>(pResampler), "multi s32"},
        {IsMulti<unsigned int, unsigned long long>(pResampler), "multi u32"},
    };
    for (const auto& [isClass, name] : classes)
        if (isClass)
            return QLatin1String(name);
    return QStringLiteral("unknown");
}

template <typename T, typename Acc>
void CompareFrame(int pSize,
                  int pChannelCount,
                  QAudioFormat::SampleType pType,
                  size_t pFrameSize,
                  size_t pStoredChannels)
{
    const std::unique_ptr<AudioResampler> pResampler = Create(pSize, pChannelCount, pType);
    const auto* pMulti = dynamic_cast<const AudioResamplerMultiToMono<T, Acc>*>(pResampler.get());
    QVERIFY(pMulti);
    QCOMPARE(pMulti->m_frameSize, pFrameSize);
    QCOMPARE(pMulti->m_channelCount, pStoredChannels);
    QCOMPARE(pMulti->m_pBuffer, static_cast<qint16*>(nullptr));
    QCOMPARE(pMulti->m_bufferCapacity, size_t(0));
}

/// The six multi-channel classes, with the frame of a channel count.
void CompareAllFrames(int pChannelCount, size_t pStoredChannels)
{
    const QAudioFormat::SampleType s = QAudioFormat::SignedInt;
    const QAudioFormat::SampleType u = QAudioFormat::UnSignedInt;
    const size_t n = pStoredChannels;
    CompareFrame<signed char, short>(8, pChannelCount, s, n, n);
    CompareFrame<unsigned char, unsigned short>(8, pChannelCount, u, n, n);
    CompareFrame<short, int>(16, pChannelCount, s, 2 * n, n);
    CompareFrame<unsigned short, unsigned int>(16, pChannelCount, u, 2 * n, n);
    CompareFrame<int, long long>(32, pChannelCount, s, 4 * n, n);
    CompareFrame<unsigned int, unsigned long long>(32, pChannelCount, u, 4 * n, n);
}

}  // namespace

class tst_AudioResampler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void create_followsTheTable_data();
    void create_followsTheTable();
    void create_storesChannelsAndFrameSize_whenMultiChannel();
    void create_takesNegativeCountForMultiChannel_isIntended();
    void create_decodesFloatAsUnsigned_isIntended();
    void create_ignoresByteOrderCodecAndRate_isIntended();
    void create_givesMono_whenChannelCountIsZero();
    void create_ignoresUnsetFormat();
    void resampler_isDestroyedThroughItsBase();
};

void tst_AudioResampler::create_followsTheTable_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    const struct
    {
        int type;
        const char* letter;
    } types[] = {
        {QAudioFormat::SignedInt, "s"},
        {QAudioFormat::UnSignedInt, "u"},
        {QAudioFormat::Float, "u"},
        {QAudioFormat::Unknown, "u"},
    };
    const struct
    {
        int count;
        const char* kind;
    } channels[] = {
        {0, "mono"},
        {1, "mono"},
        {2, "multi"},
        {3, "multi"},
        {6, "multi"},
        {255, "multi"},
        {-1, "multi"},
        {INT_MAX, "multi"},
        {INT_MIN, "multi"},
    };
    for (int size : {8, 16, 32}) {
        for (const auto& type : types) {
            for (const auto& channel : channels)
                QTest::addRow("%d bits type %d channels %d", size, type.type, channel.count)
                    << size << channel.count << type.type
                    << QStringLiteral("%1 %2%3")
                           .arg(QLatin1String(channel.kind), QLatin1String(type.letter))
                           .arg(size);
        }
    }
    for (int size : {-1, 0, 1, 7, 9, 12, 15, 17, 20, 24, 31, 33, 64, INT_MAX, INT_MIN}) {
        for (const auto& type : types) {
            for (const auto& channel : channels)
                QTest::addRow("%d bits type %d channels %d", size, type.type, channel.count)
                    << size << channel.count << type.type << QStringLiteral("null");
        }
    }
}

void tst_AudioResampler::create_followsTheTable()
{
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QFETCH(int, type);
    QFETCH(QString, name);
    QCOMPARE(ClassOf(Create(size, channelCount, QAudioFormat::SampleType(type)).get()), name);
}

void tst_AudioResampler::create_storesChannelsAndFrameSize_whenMultiChannel()
{
    CompareAllFrames(2, 2);
    CompareAllFrames(6, 6);
    CompareAllFrames(INT_MAX, 2147483647);
}

void tst_AudioResampler::create_takesNegativeCountForMultiChannel_isIntended()
{
    // -1 extended to 64 bits, then times the sample's bytes, modulo 2^64.
    CompareAllFrames(-1, 0xFFFFFFFFFFFFFFFF);
    CompareAllFrames(INT_MIN, 0xFFFFFFFF80000000);
    const std::vector<char> bytes(4096, 'x');
    for (int size : {8, 16, 32}) {
        const std::unique_ptr<AudioResampler> pResampler =
            Create(size, -1, QAudioFormat::SignedInt);
        QCOMPARE(Resample(*pResampler, bytes), Samples16());
    }
}

void tst_AudioResampler::create_decodesFloatAsUnsigned_isIntended()
{
    const std::unique_ptr<AudioResampler> pResampler = Create(32, 1, QAudioFormat::Float);
    QCOMPARE(ClassOf(pResampler.get()), QStringLiteral("mono u32"));
    // 1.0f is 0x3F800000, -1.0f is 0xBF800000: 0x3F80 - 0x8000 and 0xBF80 - 0x8000.
    QCOMPARE(Resample(*pResampler, std::vector<float>{0.0f, 1.0f, -1.0f}),
             (Samples16{-32768, -16512, 16256}));
}

void tst_AudioResampler::create_ignoresByteOrderCodecAndRate_isIntended()
{
    QAudioFormat format = MakeFormat(16, 1, QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::BigEndian);
    format.setCodec(QStringLiteral("audio/other"));
    format.setSampleRate(-1);
    const std::unique_ptr<AudioResampler> pResampler(AudioResampler::Create(format));
    QCOMPARE(ClassOf(pResampler.get()), QStringLiteral("mono s16"));
    QCOMPARE(Resample(*pResampler, std::vector<short>{0x0102, -2}), (Samples16{0x0102, -2}));
}

void tst_AudioResampler::create_givesMono_whenChannelCountIsZero()
{
    const std::unique_ptr<AudioResampler> pResampler = Create(8, 0, QAudioFormat::SignedInt);
    QCOMPARE(Resample(*pResampler, std::vector<signed char>{1, -1}), (Samples16{256, -256}));
}

void tst_AudioResampler::create_ignoresUnsetFormat()
{
    QCOMPARE(AudioResampler::Create(QAudioFormat()), static_cast<AudioResampler*>(nullptr));
}

void tst_AudioResampler::resampler_isDestroyedThroughItsBase()
{
    QVERIFY(std::has_virtual_destructor_v<AudioResampler>);
    QVERIFY(!std::is_copy_constructible_v<AudioResamplerMonoToMono<short>>);
    QVERIFY(!std::is_copy_assignable_v<AudioResamplerMonoToMono<short>>);
    for (int channelCount : {1, 2}) {
        AudioResampler* pResampler =
            AudioResampler::Create(MakeFormat(16, channelCount, QAudioFormat::SignedInt));
        Resample(*pResampler, std::vector<short>(100));
        delete pResampler;  // the leak checker sees the output buffer
    }
}

AA_TEST(tst_AudioResampler, NoApplication)
#include "tst_AudioResampler.moc"
