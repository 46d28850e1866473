// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/api/EntryPoints.h>

void StartAudio(void)
{
    if (AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance())
        pAnalyzer->Start();
}

AudioValues GetAudioValues(void)
{
    const AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    return pAnalyzer ? pAnalyzer->getCurrentPulseBlock() : AudioValues{0, nullptr};
}
