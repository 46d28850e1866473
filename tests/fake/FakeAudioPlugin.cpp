// SPDX-License-Identifier: MIT
#include "FakeAudioPlugin.h"

#include "FakeAudioDeviceInfo.h"
#include "FakeAudioState.h"

QList<QByteArray> FakeAudioPlugin::availableDevices(QAudio::Mode pMode) const
{
    return pMode == QAudio::AudioInput ? FakeAudioState::Get().HandlesFromDefault()
                                       : QList<QByteArray>();
}

QAbstractAudioInput* FakeAudioPlugin::createInput(const QByteArray& pHandle)
{
    return FakeAudioState::Get().CreateInput(pHandle);
}

QAbstractAudioOutput* FakeAudioPlugin::createOutput(const QByteArray&)
{
    return nullptr;
}

QAbstractAudioDeviceInfo* FakeAudioPlugin::createDeviceInfo(const QByteArray& pHandle, QAudio::Mode)
{
    const FakeAudioDevice* pDevice = FakeAudioState::Get().Find(pHandle);
    return new FakeAudioDeviceInfo(pDevice ? *pDevice : FakeAudioDevice());
}

#include "moc_FakeAudioPlugin.cpp"
