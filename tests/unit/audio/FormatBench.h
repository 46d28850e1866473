// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevice.h>

#include <QByteArrayList>

#include <fake/FakeAudioState.h>
#include <memory>

constexpr QAudioFormat::SampleType kSigned = QAudioFormat::SignedInt;
constexpr QAudioFormat::SampleType kUnsigned = QAudioFormat::UnSignedInt;

using DevicePtr = std::unique_ptr<QtAudioInputDevice>;

/// A capture device on the only device of the machine.
inline DevicePtr Plug(const FakeAudioDevice& pDevice)
{
    FakeAudioState::Get().Plug(pDevice);
    return DevicePtr(new QtAudioInputDevice(QAudioDeviceInfo::defaultInputDevice(), nullptr));
}

inline FakeAudioDevice
Device(const QList<int>& pRates, const QList<int>& pSizes, const QList<int>& pCounts)
{
    FakeAudioDevice device;
    device.name = QStringLiteral("Mic");
    device.sampleRates = pRates;
    device.sampleSizes = pSizes;
    device.channelCounts = pCounts;
    device.sampleTypes = {kSigned, kUnsigned};
    return device;
}

inline FakeAudioDevice TolerantDevice()
{
    FakeAudioDevice device = Device({48000}, {8, 16, 24, 32}, {1, 2});
    device.isSupported = [](const QAudioFormat&) { return true; };
    return device;
}

inline QAudioFormat Format(int pRate, int pSize, int pCount, QAudioFormat::SampleType pType)
{
    QAudioFormat format;
    format.setCodec(QStringLiteral("audio/pcm"));
    format.setSampleRate(pRate);
    format.setSampleSize(pSize);
    format.setChannelCount(pCount);
    format.setSampleType(pType);
    return format;
}

/// "48000/16/1s": rate, size, channels, and the integer type's letter.
inline QByteArray Text(const QAudioFormat& pFormat)
{
    if (!pFormat.isValid())
        return "invalid";
    const char* letter = pFormat.sampleType() == kSigned     ? "s"
                         : pFormat.sampleType() == kUnsigned ? "u"
                                                             : "?";
    return QByteArray::number(pFormat.sampleRate()) + '/' +
           QByteArray::number(pFormat.sampleSize()) + '/' +
           QByteArray::number(pFormat.channelCount()) + letter;
}

inline QByteArray Text(const QList<QAudioFormat>& pFormats)
{
    QByteArrayList texts;
    for (const QAudioFormat& format : pFormats)
        texts.append(Text(format));
    return texts.join(' ');
}
