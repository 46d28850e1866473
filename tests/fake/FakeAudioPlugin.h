// SPDX-License-Identifier: MIT
#pragma once

#include <QAudioSystemPlugin>

/// Scripted sound back end: lists the devices of FakeAudioState from the default one on.
///
/// Qt takes the first device of the plugin with the key "default" for the default device, and asks
/// the plugins in the order of their keys. So the devices before the default one come from a second
/// plugin, whose key sorts first.
class FakeAudioPlugin : public QAudioSystemPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.audiosystemfactory/5.0" FILE "fake.json")

public:
    QList<QByteArray> availableDevices(QAudio::Mode pMode) const override;
    QAbstractAudioInput* createInput(const QByteArray& pHandle) override;
    QAbstractAudioOutput* createOutput(const QByteArray& pHandle) override;
    QAbstractAudioDeviceInfo* createDeviceInfo(const QByteArray& pHandle,
                                               QAudio::Mode pMode) override;
};
