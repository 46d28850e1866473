// SPDX-License-Identifier: MIT
#pragma once

#include "FakeAudioDevice.h"

#include <qaudiosystem.h>

/// Answers for a device as it was scripted when the information was asked for.
class FakeAudioDeviceInfo : public QAbstractAudioDeviceInfo
{
    Q_OBJECT

public:
    explicit FakeAudioDeviceInfo(const FakeAudioDevice& pDevice);

    QAudioFormat preferredFormat() const override;
    bool isFormatSupported(const QAudioFormat& pFormat) const override;
    QString deviceName() const override;
    QStringList supportedCodecs() override;
    QList<int> supportedSampleRates() override;
    QList<int> supportedChannelCounts() override;
    QList<int> supportedSampleSizes() override;
    QList<QAudioFormat::Endian> supportedByteOrders() override;
    QList<QAudioFormat::SampleType> supportedSampleTypes() override;

private:
    FakeAudioDevice m_device;
};
