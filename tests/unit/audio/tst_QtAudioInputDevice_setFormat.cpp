// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResamplerMonoToMono.h>
#include <AudioAnalyzer/audio/AudioResamplerMultiToMono.h>

#include "FormatBench.h"

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// Nothing of the device has changed since its construction.
void CompareUnconfigured(const QtAudioInputDevice& pDevice)
{
    QVERIFY(!pDevice.getInputFormat().isValid());
    QVERIFY(!pDevice.getOutputFormat().isValid());
    QCOMPARE(pDevice.m_frameSize, quint64(0));
    QCOMPARE(pDevice.m_pResampler, static_cast<AudioResampler*>(nullptr));
}

}  // namespace

class tst_QtAudioInputDevice_setFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void setFormat_isRefused_whenInvalid();
    void setFormat_isRefused_whenUnsupported();
    void setFormat_isRefused_whenCodecIsNotPcm();
    void setFormat_isRefused_whenSizeIsOther_data();
    void setFormat_isRefused_whenSizeIsOther();
    void setFormat_keepsTheFormerFormat_whenRefused();
    void setFormat_ignoresTheCaseOfTheCodec();
    void setFormat_setsFrameSizeAndFormats_data();
    void setFormat_setsFrameSizeAndFormats();
    void setFormat_keepsByteOrderAndCodecInTheOutput();
    void setFormat_needsNoConverter_whenInputIsMonoSigned16();
    void setFormat_replacesTheConverter();
    void setFormat_takesTheDevicesOwnFormat();
    void setFormat_takesFloat_isIntended();
    void setFormat_takesZeroChannels();
};

void tst_QtAudioInputDevice_setFormat::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevice_setFormat::init()
{
    FakeAudioState::Get().Clear();
}

void tst_QtAudioInputDevice_setFormat::setFormat_isRefused_whenInvalid()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(!pDevice->SetRecordingFormat(QAudioFormat()));
    QAudioFormat format = Format(48000, 16, 1, kSigned);
    format.setSampleType(QAudioFormat::Unknown);
    QVERIFY(!pDevice->SetRecordingFormat(format));
    CompareUnconfigured(*pDevice);
}

void tst_QtAudioInputDevice_setFormat::setFormat_isRefused_whenUnsupported()
{
    const DevicePtr pDevice = Plug(Device({48000}, {16}, {1}));
    QVERIFY(!pDevice->SetRecordingFormat(Format(44100, 16, 1, kSigned)));
    CompareUnconfigured(*pDevice);
    const DevicePtr pNoDevice(new QtAudioInputDevice(QAudioDeviceInfo(), nullptr));
    QVERIFY(!pNoDevice->SetRecordingFormat(Format(48000, 16, 1, kSigned)));
}

void tst_QtAudioInputDevice_setFormat::setFormat_isRefused_whenCodecIsNotPcm()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QAudioFormat format = Format(48000, 16, 1, kSigned);
    format.setCodec(QStringLiteral("audio/mpeg"));
    QVERIFY(!pDevice->SetRecordingFormat(format));
    CompareUnconfigured(*pDevice);
}

void tst_QtAudioInputDevice_setFormat::setFormat_isRefused_whenSizeIsOther_data()
{
    QTest::addColumn<int>("size");
    for (int size : {0, 1, 7, 12, 20, 24, 31, 64, -8})
        QTest::addRow("%d bits", size) << size;
}

void tst_QtAudioInputDevice_setFormat::setFormat_isRefused_whenSizeIsOther()
{
    QFETCH(int, size);
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(!pDevice->SetRecordingFormat(Format(48000, size, 1, kSigned)));
    CompareUnconfigured(*pDevice);
}

void tst_QtAudioInputDevice_setFormat::setFormat_keepsTheFormerFormat_whenRefused()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(pDevice->SetRecordingFormat(Format(44100, 32, 2, kSigned)));
    const AudioResampler* pConverter = pDevice->m_pResampler;
    QVERIFY(!pDevice->SetRecordingFormat(Format(48000, 24, 1, kSigned)));
    QCOMPARE(Text(pDevice->getInputFormat()), QByteArray("44100/32/2s"));
    QCOMPARE(Text(pDevice->getOutputFormat()), QByteArray("44100/16/1s"));
    QCOMPARE(pDevice->m_frameSize, quint64(8));
    QCOMPARE(static_cast<const AudioResampler*>(pDevice->m_pResampler), pConverter);
}

void tst_QtAudioInputDevice_setFormat::setFormat_ignoresTheCaseOfTheCodec()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QAudioFormat format = Format(48000, 16, 1, kSigned);
    format.setCodec(QStringLiteral("Audio/PCM"));
    QVERIFY(pDevice->SetRecordingFormat(format));
}

void tst_QtAudioInputDevice_setFormat::setFormat_setsFrameSizeAndFormats_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("count");
    QTest::addColumn<quint64>("frameSize");
    QTest::newRow("mono 8") << 8 << 1 << quint64(1);
    QTest::newRow("stereo 8") << 8 << 2 << quint64(2);
    QTest::newRow("mono 16") << 16 << 1 << quint64(2);
    QTest::newRow("six 16") << 16 << 6 << quint64(12);
    QTest::newRow("mono 32") << 32 << 1 << quint64(4);
    QTest::newRow("stereo 32") << 32 << 2 << quint64(8);
}

void tst_QtAudioInputDevice_setFormat::setFormat_setsFrameSizeAndFormats()
{
    QFETCH(int, size);
    QFETCH(int, count);
    QFETCH(quint64, frameSize);
    const DevicePtr pDevice = Plug(TolerantDevice());
    const QAudioFormat format = Format(22050, size, count, kUnsigned);
    QVERIFY(pDevice->SetRecordingFormat(format));
    QCOMPARE(pDevice->getInputFormat(), format);
    QCOMPARE(pDevice->getOutputFormat(), Format(22050, 16, 1, kSigned));
    QCOMPARE(pDevice->m_frameSize, frameSize);
    QVERIFY(pDevice->m_pResampler);
    QVERIFY(!pDevice->isRecording());
}

void tst_QtAudioInputDevice_setFormat::setFormat_keepsByteOrderAndCodecInTheOutput()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QAudioFormat format = Format(48000, 32, 2, kSigned);
    format.setByteOrder(QAudioFormat::BigEndian);
    format.setCodec(QStringLiteral("AUDIO/pcm"));
    QVERIFY(pDevice->SetRecordingFormat(format));
    QCOMPARE(pDevice->getOutputFormat().byteOrder(), QAudioFormat::BigEndian);
    QCOMPARE(pDevice->getOutputFormat().codec(), QStringLiteral("AUDIO/pcm"));
    QCOMPARE(pDevice->getOutputFormat().sampleRate(), 48000);
}

void tst_QtAudioInputDevice_setFormat::setFormat_needsNoConverter_whenInputIsMonoSigned16()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QAudioFormat format = Format(48000, 16, 1, kSigned);
    QVERIFY(pDevice->SetRecordingFormat(format));
    QCOMPARE(pDevice->m_pResampler, static_cast<AudioResampler*>(nullptr));
    // The output has the input's byte order, so big-endian samples go through as they are.
    format.setByteOrder(QAudioFormat::BigEndian);
    QVERIFY(pDevice->SetRecordingFormat(format));
    QCOMPARE(pDevice->m_pResampler, static_cast<AudioResampler*>(nullptr));
}

void tst_QtAudioInputDevice_setFormat::setFormat_replacesTheConverter()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 8, 1, kUnsigned)));
    QVERIFY(dynamic_cast<AudioResamplerMonoToMono<unsigned char>*>(pDevice->m_pResampler));
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 16, 2, kSigned)));
    using Stereo = AudioResamplerMultiToMono<short, int>;
    QVERIFY(dynamic_cast<Stereo*>(pDevice->m_pResampler));
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 16, 1, kSigned)));
    QCOMPARE(pDevice->m_pResampler, static_cast<AudioResampler*>(nullptr));
    QCOMPARE(pDevice->m_frameSize, quint64(2));
}

void tst_QtAudioInputDevice_setFormat::setFormat_takesTheDevicesOwnFormat()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 8, 2, kUnsigned)));
    QVERIFY(pDevice->SetRecordingFormat(pDevice->getOutputFormat()));
    QCOMPARE(Text(pDevice->getInputFormat()), QByteArray("48000/16/1s"));
    QVERIFY(pDevice->SetRecordingFormat(pDevice->getInputFormat()));
    QCOMPARE(Text(pDevice->getOutputFormat()), QByteArray("48000/16/1s"));
}

void tst_QtAudioInputDevice_setFormat::setFormat_takesFloat_isIntended()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 32, 1, QAudioFormat::Float)));
    QVERIFY(dynamic_cast<AudioResamplerMonoToMono<unsigned int>*>(pDevice->m_pResampler));
    QCOMPARE(Text(pDevice->getOutputFormat()), QByteArray("48000/16/1s"));
}

void tst_QtAudioInputDevice_setFormat::setFormat_takesZeroChannels()
{
    const DevicePtr pDevice = Plug(TolerantDevice());
    QVERIFY(pDevice->SetRecordingFormat(Format(48000, 16, 0, kSigned)));
    QCOMPARE(pDevice->m_frameSize, quint64(0));
    QVERIFY(dynamic_cast<AudioResamplerMonoToMono<short>*>(pDevice->m_pResampler));
}

AA_TEST(tst_QtAudioInputDevice_setFormat, QCoreApplication)
#include "tst_QtAudioInputDevice_setFormat.moc"
