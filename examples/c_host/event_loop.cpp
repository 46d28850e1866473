// SPDX-License-Identifier: MIT
#include "event_loop.h"

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QCoreApplication>
#include <QTimer>

int OpenEventLoop(int* pCount, char* pArguments[])
{
    static QCoreApplication application(*pCount, pArguments);
    AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    if (!pAnalyzer)
        return 0;
    // The library does not record by itself: the host does, and hands the samples on.
    const auto* pInfo = pAnalyzer->getConfiguration()->getSelectedAudioInputDevice();
    QtAudioInputDevice* pDevice = pInfo ? pInfo->Create(&application) : nullptr;
    if (!pDevice || !pDevice->SetRecordingFormat(pDevice->getPreferredInputFormat()))
        return 0;
    QObject::connect(
        pDevice, &QtAudioInputDevice::OnAudioSamplesRecorded, pAnalyzer, &AudioAnalyzer::Analyze);
    return pDevice->StartRecording() ? 1 : 0;
}

void RunEventLoop(int pMilliSeconds, int (*pPoll)(void))
{
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [pPoll] {
        if (pPoll() == 0)
            QCoreApplication::quit();
    });
    timer.start(pMilliSeconds);
    QCoreApplication::exec();
}
