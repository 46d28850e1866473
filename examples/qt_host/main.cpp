// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QCoreApplication>
#include <QTextStream>

/// Prints tempo and beats of the device that the configuration file names, until it is ended.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    if (!pAnalyzer)
        return 1;  // no device is selected: audio-analyzer listen --save does it
    using A = AudioAnalyzer;
    using D = QtAudioInputDevice;
    D* pDevice = pAnalyzer->getConfiguration()->getSelectedAudioInputDevice()->Create(&application);
    pDevice->SetRecordingFormat(pDevice->getPreferredInputFormat());
    QObject::connect(pDevice, &D::OnAudioSamplesRecorded, pAnalyzer, &A::Start);
    QObject::connect(pDevice, &D::OnAudioSamplesRecorded, pAnalyzer, &A::Analyze);
    QObject::connect(
        pAnalyzer, &A::OnBeat, [&out] { out << "beat" << Qt::endl; });
    QObject::connect(
        pAnalyzer, &A::OnBPMChanged, [&out](double pBPM) { out << pBPM << " BPM" << Qt::endl; });
    return pDevice->StartRecording() ? QCoreApplication::exec() : 1;
}
