// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseBackEnd.h>
#include <shared/pulse/PulseDeviceInfo.h>
#include <shared/pulse/PulseInput.h>
#include <shared/pulse/PulsePlugin.h>

QList<QByteArray> PulsePlugin::availableDevices(QAudio::Mode pMode) const
{
    QList<QByteArray> names;
    const PulseBackEnd* pBackEnd = PulseBackEnd::get();
    if (pMode != QAudio::AudioInput || !pBackEnd)
        return names;
    for (const SoundSource& source : pBackEnd->getSources())
        names.append(source.name.toUtf8());
    return names;
}

QAbstractAudioInput* PulsePlugin::createInput(const QByteArray& pSource)
{
    PulseBackEnd* pBackEnd = PulseBackEnd::get();
    return pBackEnd ? new PulseInput(*pBackEnd, pSource) : nullptr;
}

QAbstractAudioOutput* PulsePlugin::createOutput(const QByteArray&)
{
    return nullptr;
}

/// A source that has gone meanwhile still has its name.
QAbstractAudioDeviceInfo* PulsePlugin::createDeviceInfo(const QByteArray& pSource, QAudio::Mode)
{
    SoundSource found;
    found.name = QString::fromUtf8(pSource);
    if (const PulseBackEnd* pBackEnd = PulseBackEnd::get())
        for (const SoundSource& source : pBackEnd->getSources())
            if (source.name == found.name)
                found = source;
    return new PulseDeviceInfo(found);
}

#include "moc_PulsePlugin.cpp"
