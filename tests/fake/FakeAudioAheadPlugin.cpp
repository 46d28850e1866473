// SPDX-License-Identifier: MIT
#include "FakeAudioAheadPlugin.h"

#include "FakeAudioState.h"

QList<QByteArray> FakeAudioAheadPlugin::availableDevices(QAudio::Mode pMode) const
{
    return pMode == QAudio::AudioInput ? FakeAudioState::Get().HandlesBeforeDefault()
                                       : QList<QByteArray>();
}

#include "moc_FakeAudioAheadPlugin.cpp"
