// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundBackEnd.h>

#include <qaudiosystem.h>

/// A source as Qt Multimedia asks about it: mono with 16 bits, whatever it has. The server mixes
/// and converts. Its own rate is kept where the analysis takes it, so that nothing is resampled.
class PulseDeviceInfo : public QAbstractAudioDeviceInfo
{
    Q_OBJECT

public:
    explicit PulseDeviceInfo(const SoundSource& pSource);

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
    const QString m_name;
    const int m_sampleRate;  ///< Hz
};
