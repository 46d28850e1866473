// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>

void AudioAnalysis::SetTracker(AudioAnalysisTracker pTracker)
{
    if (pTracker != tracker)
        ResetMeter();
    tracker = pTracker;
}

void AudioAnalysis::ResetMeter()
{
    meter.Reset();
    meterFollower.Restart();
    meterStart = pPump->getSampleCount();
    isMeterResetDue = false;
}

// Direct connections, as those to the pump: an analysis may be used by another thread than the one
// that made it. A callback may have chosen a profile meanwhile.
void AudioAnalysis::_ConnectMeter()
{
    using F = MeterFollower;
    meterFollower.Follow(&meter);
    const auto connect = [this](auto pSignal, auto pSlot) {
        QObject::connect(&meterFollower, pSignal, &meterFollower, pSlot, Qt::DirectConnection);
    };
    connect(&F::OnBeatFound, [this](const MeterTracker::Beat& pBeat) { _TellMeterBeat(pBeat); });
    connect(&F::OnTempoFound, [this](quint64 pIndex, double pBPM) {
        const quint64 index = meterStart + pIndex;
        if (isAutomatic())
            onTempo({index, TimeOf(index), pBPM});
    });
    connect(&F::OnPlayingChanged, [this](quint64 pIndex, bool pIsPlaying) {
        const quint64 index = meterStart + pIndex;
        if (isAutomatic())
            onStop({index, TimeOf(index), pIsPlaying ? 0 : 1});
    });
}

void AudioAnalysis::_TellMeterBeat(const MeterTracker::Beat& pBeat)
{
    const quint64 index = meterStart + pBeat.index;
    if (isAutomatic())
        onBeat({index,
                TimeOf(index),
                pBeat.bpm,
                pBeat.confidence,
                0,
                0,
                pBeat.confidence,
                pBeat.barConfidence,
                pBeat.beatInBar});
}

AudioAnalysisError AudioAnalysis_SetTracker(AudioAnalysis* pAnalysis, int32_t pTracker)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            if (pTracker != AudioAnalysisTracker_Automatic &&
                pTracker != AudioAnalysisTracker_Profile)
                return detail::Refuse(&pThis,
                                      AudioAnalysisError_Range,
                                      "a tracker is 0, automatic, or 1, profile, not " +
                                          detail::Text(pTracker));
            pThis.SetTracker(static_cast<AudioAnalysisTracker>(pTracker));
            return AudioAnalysisError_None;
        });
}

int32_t AudioAnalysis_GetTracker(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->tracker : -1;
}

AudioAnalysisError AudioAnalysis_Tap(AudioAnalysis* pAnalysis, uint64_t pIndex)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            pThis.meter.Tap(pThis.ToMeter(pIndex));
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_Multiply(AudioAnalysis* pAnalysis, double pFactor)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            if (!pThis.meter.Multiply(pFactor))
                return detail::Refuse(&pThis,
                                      AudioAnalysisError_Range,
                                      "a factor is 2, 1/2, 3/2 or 2/3 and leads to a tempo of the "
                                      "range, which " +
                                          detail::Text(pFactor) + " does not");
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_SetDownbeat(AudioAnalysis* pAnalysis, uint64_t pIndex)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            pThis.meter.setDownbeat(pThis.ToMeter(pIndex));
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_ReleaseDownbeat(AudioAnalysis* pAnalysis)
{
    return detail::AnswerOutside(
        pAnalysis,
        [](AudioAnalysis& pThis) {
            pThis.meter.ReleaseDownbeat();
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError
AudioAnalysis_SetTempoRange(AudioAnalysis* pAnalysis, double pMinimum, double pMaximum)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            if (!pThis.meter.setTempoRange(pMinimum, pMaximum))
                return detail::Refuse(&pThis,
                                      AudioAnalysisError_Range,
                                      "a tempo range has 60 <= minimum <= maximum <= 190 BPM");
            return AudioAnalysisError_None;
        });
}
