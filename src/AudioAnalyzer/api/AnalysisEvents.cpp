// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/RecordingTempo.h>
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>

#include <algorithm>

namespace {

template <typename Record>
AudioAnalysisError SetCallback(AudioAnalysis* pAnalysis,
                               detail::Callback<Record> AudioAnalysis::*pMember,
                               void (*pFunction)(void*, const Record*),
                               void* pUser)
{
    return detail::AnswerFor(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            pThis.*pMember = {pFunction, pUser};
            return AudioAnalysisError_None;
        });
}

}  // namespace

// All connections are direct: an analysis may be used by another thread than the one that made it.

void AudioAnalysis::_ConnectEvents(BeatFollower& pNew)
{
    const auto connect = [&pNew](auto pSignal, auto pSlot) {
        QObject::connect(&pNew, pSignal, &pNew, pSlot, Qt::DirectConnection);
    };
    connect(
        &BeatFollower::OnPulseFound,
        [this](const Pulse& pPulse) {
            onPulse({pPulse.getStartIndex(),
                     TimeOf(pPulse.getStartIndex()),
                     pPulse.getLength(),
                     pPulse.getMaximalValue(),
                     pPulse.getAverageVolume(),
                     pPulse.getThreshold()});
        });
    connect(
        &BeatFollower::OnBeatFound,
        [this](const BeatFollower::Beat& pBeat) {
            if (!isAutomatic())
                onBeat({pBeat.index,
                        TimeOf(pBeat.index),
                        pBeat.bpm,
                        pBeat.accuracy,
                        pBeat.isVirtual ? 1 : 0,
                        pBeat.loudness,
                        0.0,
                        0.0,
                        0});
        });
    connect(
        &BeatFollower::OnTempoFound,
        [this](quint64 pIndex, double pBPM) {
            if (!isAutomatic())
                onTempo({pIndex, TimeOf(pIndex), pBPM});
        });
    connect(&BeatFollower::OnPlayingChanged, [this](quint64 pIndex, bool pIsPlaying) {
        if (!isAutomatic())
            onStop({pIndex, TimeOf(pIndex), pIsPlaying ? 0 : 1});
    });
}

void AudioAnalysis::_ConnectSpectrum(AnalysisPump& pNew)
{
    QObject::connect(
        &pNew.getAnalyzer(),
        &AudioAnalyzer::OnAmplitudesComputed,
        &pNew.getAnalyzer(),
        [this, &pNew](const double* pAmplitudes, unsigned int pCount) {
            const quint64 index = pNew.getBlockIndex();
            if (index < pNew.getSampleCount())
                onSpectrum({index, TimeOf(index), pAmplitudes, pCount, sampleRate * 0.5 / pCount});
        },
        Qt::DirectConnection);
}

AudioAnalysisError AudioAnalysis_SetPulseCallback(AudioAnalysis* pAnalysis,
                                                  AudioAnalysisPulseCallback pCallback,
                                                  void* pUser)
{
    return SetCallback(pAnalysis, &AudioAnalysis::onPulse, pCallback, pUser);
}

AudioAnalysisError AudioAnalysis_SetBeatCallback(AudioAnalysis* pAnalysis,
                                                 AudioAnalysisBeatCallback pCallback,
                                                 void* pUser)
{
    return SetCallback(pAnalysis, &AudioAnalysis::onBeat, pCallback, pUser);
}

AudioAnalysisError AudioAnalysis_SetTempoCallback(AudioAnalysis* pAnalysis,
                                                  AudioAnalysisTempoCallback pCallback,
                                                  void* pUser)
{
    return SetCallback(pAnalysis, &AudioAnalysis::onTempo, pCallback, pUser);
}

AudioAnalysisError AudioAnalysis_SetStopCallback(AudioAnalysis* pAnalysis,
                                                 AudioAnalysisStopCallback pCallback,
                                                 void* pUser)
{
    return SetCallback(pAnalysis, &AudioAnalysis::onStop, pCallback, pUser);
}

AudioAnalysisError AudioAnalysis_SetSpectrumCallback(AudioAnalysis* pAnalysis,
                                                     AudioAnalysisSpectrumCallback pCallback,
                                                     void* pUser)
{
    return SetCallback(pAnalysis, &AudioAnalysis::onSpectrum, pCallback, pUser);
}

AudioAnalysisError AudioAnalysis_ComputeRecordingTempo(const double* pTimes,
                                                       const double* pBPMs,
                                                       const int32_t* pVirtualMarks,
                                                       size_t pCount,
                                                       double* pBPM)
{
    return detail::Answer(
        nullptr,
        [=] {
            const bool hasBeats = pTimes && pBPMs && pVirtualMarks;
            if (!pBPM || (pCount > 0 && !hasBeats))
                return detail::Refuse(nullptr, AudioAnalysisError_Null, "an array is NULL");
            std::vector<RecordingTempo::Report> reports;
            for (size_t i = 0; i < pCount; ++i)
                reports.push_back({pTimes[i], pBPMs[i], pVirtualMarks[i] != 0});
            *pBPM = RecordingTempo::Compute(reports);
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_ComputeTempoOfTimes(const double* pTimes,
                                                     const double* pBPMs,
                                                     size_t pCount,
                                                     double* pBPM)
{
    return detail::Answer(
        nullptr,
        [=] {
            if (!pBPM || (pCount > 0 && !(pTimes && pBPMs)))
                return detail::Refuse(nullptr, AudioAnalysisError_Null, "an array is NULL");
            std::vector<RecordingTempo::Report> reports;
            for (size_t i = 0; i < pCount; ++i)
                reports.push_back({pTimes[i], pBPMs[i], false});
            *pBPM = RecordingTempo::ComputeFromTimes(reports);
            return AudioAnalysisError_None;
        });
}

int32_t AudioAnalysis_GetSampleRate(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->sampleRate : -1;
}

uint64_t AudioAnalysis_GetSampleCount(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->pPump->getSampleCount() : 0;
}

uint64_t AudioAnalysis_GetBlockSize(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->pPump->getBlockSize() : 0;
}

double AudioAnalysis_GetBPM(const AudioAnalysis* pAnalysis)
{
    if (!pAnalysis)
        return -1.0;
    return pAnalysis->isAutomatic() ? pAnalysis->meter.getBPM()
                                    : pAnalysis->pAnalyzer->getCurrentBPM();
}

double AudioAnalysis_GetAccuracy(const AudioAnalysis* pAnalysis)
{
    if (!pAnalysis)
        return -1.0;
    return pAnalysis->isAutomatic() ? pAnalysis->meter.getConfidence()
                                    : pAnalysis->pAnalyzer->getAccuracy();
}

int32_t AudioAnalysis_IsStopped(const AudioAnalysis* pAnalysis)
{
    if (!pAnalysis)
        return -1;
    const bool isPlaying = pAnalysis->isAutomatic() ? pAnalysis->meter.isPlaying()
                                                    : pAnalysis->pPump->getFollower().isPlaying();
    return isPlaying ? 0 : 1;
}

int32_t AudioAnalysis_GetAverageVolume(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->pAnalyzer->getAverageVolume() : -1;
}

int32_t AudioAnalysis_GetCurrentVolume(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->pAnalyzer->getCurrentVolume() : -1;
}

int32_t AudioAnalysis_GetMaximalVolume(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->pAnalyzer->getMaximalVolume() : -1;
}

// An automatic threshold is a multiple of the average volume, -1 when there is none.
int32_t AudioAnalysis_GetThreshold(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? std::max<int32_t>(-1, pAnalysis->pAnalyzer->getThreshold()) : -1;
}
