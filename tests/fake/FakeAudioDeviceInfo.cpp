// SPDX-License-Identifier: MIT
#include "FakeAudioDeviceInfo.h"

FakeAudioDeviceInfo::FakeAudioDeviceInfo(const FakeAudioDevice& pDevice) : m_device(pDevice) {}

QAudioFormat FakeAudioDeviceInfo::preferredFormat() const
{
    return QAudioFormat();
}

bool FakeAudioDeviceInfo::isFormatSupported(const QAudioFormat& pFormat) const
{
    if (m_device.isSupported)
        return m_device.isSupported(pFormat);
    return pFormat.codec() == QLatin1String("audio/pcm") &&
           m_device.sampleRates.contains(pFormat.sampleRate()) &&
           m_device.sampleSizes.contains(pFormat.sampleSize()) &&
           m_device.channelCounts.contains(pFormat.channelCount()) &&
           m_device.sampleTypes.contains(pFormat.sampleType());
}

QString FakeAudioDeviceInfo::deviceName() const
{
    return m_device.name;
}

QStringList FakeAudioDeviceInfo::supportedCodecs()
{
    return {QStringLiteral("audio/pcm")};
}

QList<int> FakeAudioDeviceInfo::supportedSampleRates()
{
    return m_device.sampleRates;
}

QList<int> FakeAudioDeviceInfo::supportedChannelCounts()
{
    return m_device.channelCounts;
}

QList<int> FakeAudioDeviceInfo::supportedSampleSizes()
{
    return m_device.sampleSizes;
}

QList<QAudioFormat::Endian> FakeAudioDeviceInfo::supportedByteOrders()
{
    return {QAudioFormat::LittleEndian, QAudioFormat::BigEndian};
}

QList<QAudioFormat::SampleType> FakeAudioDeviceInfo::supportedSampleTypes()
{
    return m_device.sampleTypes;
}

#include "moc_FakeAudioDeviceInfo.cpp"
