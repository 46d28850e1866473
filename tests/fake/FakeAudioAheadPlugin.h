// SPDX-License-Identifier: MIT
#pragma once

#include "FakeAudioPlugin.h"

/// The devices of FakeAudioState before the default one.
class FakeAudioAheadPlugin : public FakeAudioPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.audiosystemfactory/5.0" FILE "fake_ahead.json")

public:
    QList<QByteArray> availableDevices(QAudio::Mode pMode) const override;
};
