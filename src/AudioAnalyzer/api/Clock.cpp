// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/api/Clock.h>

#include <cmath>
#include <new>

/// What a host holds by pointer.
struct AudioClock
{
    BeatClock clock;
};

namespace {

constexpr std::int64_t kFarthest = std::int64_t(1) << 52;  ///< µs
constexpr std::int64_t kLongestOffset = 500000;            ///< µs
constexpr std::int32_t kMostTicks = 10000;                 ///< a beat

bool IsInstant(std::int64_t pTime)
{
    return pTime >= -kFarthest && pTime <= kFarthest;
}

bool IsOffset(std::int64_t pOffset)
{
    return pOffset >= -kLongestOffset && pOffset <= kLongestOffset;
}

bool IsDivision(std::int32_t pDivision)
{
    return pDivision >= 1 && pDivision <= kMostTicks;
}

AudioAnalysisError ErrorOf(bool pIsDone)
{
    return pIsDone ? AudioAnalysisError_None : AudioAnalysisError_Range;
}

/// What pStep answers, false being a refusal, given a clock and a present that are ones.
template <typename Step>
AudioAnalysisError SetClock(AudioClock* pClock, std::int64_t pNow, Step pStep) noexcept
{
    if (!pClock)
        return AudioAnalysisError_Null;
    if (!IsInstant(pNow))
        return AudioAnalysisError_Range;
    try {
        return ErrorOf(pStep(pClock->clock));
    } catch (const std::bad_alloc&) {
        return AudioAnalysisError_Memory;
    }
}

/// A whole number within what an int holds; not NaN.
bool IsWhole(double pValue)
{
    return std::abs(pValue) < 1e9 && std::floor(pValue) == pValue;
}

bool SetGoingOn(BeatClock& pClock, double pValue, std::int64_t pNow)
{
    if (pValue != 0.0 && pValue != 1.0)
        return false;
    pClock.setGoingOn(pValue == 1.0, pNow);
    return true;
}

}  // namespace

AudioClock* AudioClock_Create(void)
{
    return new (std::nothrow) AudioClock;
}

AudioAnalysisError AudioClock_Destroy(AudioClock* pClock)
{
    if (!pClock)
        return AudioAnalysisError_Null;
    delete pClock;
    return AudioAnalysisError_None;
}

AudioAnalysisError AudioClock_Restart(AudioClock* pClock, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            pThis.Restart(pNow);
            return true;
        });
}

AudioAnalysisError AudioClock_Set(AudioClock* pClock, int32_t pSetting, double pValue, int64_t pNow)
{
    if (pClock && (pSetting < 0 || pSetting > AudioClockSetting_GoesOn))
        return AudioAnalysisError_Unknown;
    return SetClock(pClock, pNow, [=](BeatClock& pThis) {
        switch (pSetting) {
        case AudioClockSetting_BeatsPerBar:
            return IsWhole(pValue) && pThis.setBeatsPerBar(static_cast<int>(pValue));
        case AudioClockSetting_Slew:
            return pThis.setSlew(pValue);
        case AudioClockSetting_Offset:
            return IsWhole(pValue) && pThis.setOffset(static_cast<std::int64_t>(pValue));
        default:
            return SetGoingOn(pThis, pValue, pNow);
        }
    });
}

AudioAnalysisError AudioClock_Get(const AudioClock* pClock, int32_t pSetting, double* pValue)
{
    if (!pClock || !pValue)
        return AudioAnalysisError_Null;
    switch (pSetting) {
    case AudioClockSetting_BeatsPerBar:
        *pValue = pClock->clock.getBeatsPerBar();
        return AudioAnalysisError_None;
    case AudioClockSetting_Slew:
        *pValue = pClock->clock.getSlew();
        return AudioAnalysisError_None;
    case AudioClockSetting_Offset:
        *pValue = static_cast<double>(pClock->clock.getOffset());
        return AudioAnalysisError_None;
    case AudioClockSetting_GoesOn:
        *pValue = pClock->clock.isGoingOn() ? 1.0 : 0.0;
        return AudioAnalysisError_None;
    default:
        return AudioAnalysisError_Unknown;
    }
}

AudioAnalysisError AudioClock_Hear(AudioClock* pClock, const AudioClockBeat* pBeat, int64_t pNow)
{
    if (!pBeat)
        return AudioAnalysisError_Null;
    return SetClock(pClock, pNow, [=](BeatClock& pThis) {
        if (!IsInstant(pBeat->time))
            return false;
        pThis.Hear({pBeat->time, pBeat->bpm, pBeat->trust, pBeat->isVirtual != 0, pBeat->beatInBar},
                   pNow);
        return true;
    });
}

AudioAnalysisError AudioClock_SetPlaying(AudioClock* pClock, int32_t pIsPlaying, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            pThis.setPlaying(pIsPlaying != 0, pNow);
            return true;
        });
}

AudioAnalysisError AudioClock_Tap(AudioClock* pClock, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            pThis.Tap(pNow);
            return true;
        });
}

AudioAnalysisError AudioClock_Nudge(AudioClock* pClock, int64_t pMicroSeconds, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            if (!IsOffset(pMicroSeconds))
                return false;
            pThis.Nudge(pMicroSeconds, pNow);
            return true;
        });
}

AudioAnalysisError AudioClock_Bend(AudioClock* pClock, double pShare, int64_t pNow)
{
    return SetClock(
        pClock, pNow, [=](BeatClock& pThis) { return pThis.Bend(pShare, pNow); });
}

AudioAnalysisError AudioClock_MarkOne(AudioClock* pClock, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            pThis.MarkOne(pNow);
            return true;
        });
}

AudioAnalysisError
AudioClock_Scale(AudioClock* pClock, int32_t pNumerator, int32_t pDenominator, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) { return pThis.Scale(pNumerator, pDenominator, pNow); });
}

AudioAnalysisError AudioClock_Round(AudioClock* pClock, int64_t pNow)
{
    return SetClock(
        pClock, pNow, [=](BeatClock& pThis) { return pThis.Round(pNow); });
}

AudioAnalysisError AudioClock_Hold(AudioClock* pClock, double pBPM, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            return pBPM == 0.0 ? pThis.Hold(pNow) : pThis.HoldAt(pBPM, pNow);
        });
}

AudioAnalysisError AudioClock_Release(AudioClock* pClock, int64_t pNow)
{
    return SetClock(
        pClock,
        pNow,
        [=](BeatClock& pThis) {
            pThis.Release(pNow);
            return true;
        });
}

AudioAnalysisError AudioClock_GetState(const AudioClock* pClock, BeatClockState* pState)
{
    if (!pClock || !pState)
        return AudioAnalysisError_Null;
    *pState = pClock->clock.getState();
    return AudioAnalysisError_None;
}

int32_t AudioClock_IsRunning(const BeatClockState* pState)
{
    return pState && pState->isRunning() ? 1 : 0;
}

int64_t AudioClock_GetBeat(const BeatClockState* pState, int64_t pTime, int64_t pOffset)
{
    return pState && IsInstant(pTime) && IsOffset(pOffset) ? pState->getBeat(pTime, pOffset) : -1;
}

double AudioClock_GetPhase(const BeatClockState* pState, int64_t pTime, int64_t pOffset)
{
    return pState && IsInstant(pTime) && IsOffset(pOffset) ? pState->getPhase(pTime, pOffset)
                                                           : -1.0;
}

int32_t AudioClock_GetBeatInBar(const BeatClockState* pState, int64_t pBeat)
{
    return pState && IsInstant(pBeat) && pState->beatsPerBar > 0 ? pState->getBeatInBar(pBeat) : -1;
}

int64_t AudioClock_GetNextTick(const BeatClockState* pState,
                               int64_t pTime,
                               int32_t pDivision,
                               int64_t pOffset)
{
    const bool isGood = pState && IsInstant(pTime) && IsDivision(pDivision) && IsOffset(pOffset);
    return isGood ? pState->getNextTick(pTime, pDivision, pOffset) : -1;
}

int64_t AudioClock_GetTickTime(const BeatClockState* pState,
                               int64_t pTick,
                               int32_t pDivision,
                               int64_t pOffset)
{
    const bool isGood = pState && IsInstant(pTick) && IsDivision(pDivision) && IsOffset(pOffset);
    return isGood ? pState->getTickTime(pTick, pDivision, pOffset) : BEATCLOCK_NEVER;
}

double AudioClock_GetSureness(const BeatClockState* pState, int64_t pTime)
{
    return pState && IsInstant(pTime) ? pState->getSureness(pTime) : -1.0;
}
