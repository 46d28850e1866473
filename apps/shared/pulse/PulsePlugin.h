// SPDX-License-Identifier: MIT
#pragma once

#include <QAudioSystemPlugin>

/// Qt Multimedia's way to the back end of the process; without one there are no devices.
class PulsePlugin : public QAudioSystemPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.audiosystemfactory/5.0" FILE "pulse.json")

public:
    QList<QByteArray> availableDevices(QAudio::Mode pMode) const override;
    QAbstractAudioInput* createInput(const QByteArray& pSource) override;
    /// Null: what is played goes through SoundBackEnd::Play().
    QAbstractAudioOutput* createOutput(const QByteArray& pSink) override;
    QAbstractAudioDeviceInfo* createDeviceInfo(const QByteArray& pSource,
                                               QAudio::Mode pMode) override;
};
