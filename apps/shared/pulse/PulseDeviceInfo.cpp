// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseDeviceInfo.h>

namespace {

constexpr int kUsualRate = 48000;  // Hz
constexpr int kOtherRate = 44100;  // Hz

}  // namespace

PulseDeviceInfo::PulseDeviceInfo(const SoundSource& pSource)
    : m_name(pSource.name), m_sampleRate(pSource.sampleRate == kOtherRate ? kOtherRate : kUsualRate)
{
}

QAudioFormat PulseDeviceInfo::preferredFormat() const
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(m_sampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    format.setByteOrder(QAudioFormat::Endian(QSysInfo::ByteOrder));
    return format;
}

bool PulseDeviceInfo::isFormatSupported(const QAudioFormat& pFormat) const
{
    return pFormat == preferredFormat();
}

QString PulseDeviceInfo::deviceName() const
{
    return m_name;
}

QStringList PulseDeviceInfo::supportedCodecs()
{
    return {preferredFormat().codec()};
}

QList<int> PulseDeviceInfo::supportedSampleRates()
{
    return {m_sampleRate};
}

QList<int> PulseDeviceInfo::supportedChannelCounts()
{
    return {preferredFormat().channelCount()};
}

QList<int> PulseDeviceInfo::supportedSampleSizes()
{
    return {preferredFormat().sampleSize()};
}

QList<QAudioFormat::Endian> PulseDeviceInfo::supportedByteOrders()
{
    return {preferredFormat().byteOrder()};
}

QList<QAudioFormat::SampleType> PulseDeviceInfo::supportedSampleTypes()
{
    return {preferredFormat().sampleType()};
}

#include "moc_PulseDeviceInfo.cpp"
