// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/api/Analysis.h>
#include <AudioAnalyzer/api/detail/AnalysisAnswer.h>
#include <AudioAnalyzer/api/detail/AnalysisHandle.h>
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr int kMinimalRate = 8000;    ///< Hz
constexpr int kMaximalRate = 192000;  ///< Hz
constexpr int kMostChannels = 1024;
/// Differs from those of the profiles that a configuration has, so that it can be selected.
constexpr unsigned int kProfileID = std::numeric_limits<unsigned int>::max();

thread_local std::string t_errorText;  ///< of refusals without an analysis

/// True while it lives.
class Mark
{
public:
    explicit Mark(bool& pMark) : m_mark(pMark) { m_mark = true; }
    ~Mark() { m_mark = false; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

private:
    bool& m_mark;
};

Profile CopyOf(const Profile& pProfile)
{
    return Profile(pProfile.getName(),
                   pProfile.getSensibility(),
                   pProfile.getFilterLowFrequency(),
                   pProfile.getFilterHighFrequency(),
                   false,
                   true,
                   kProfileID,
                   pProfile.getMinimalBPM(),
                   pProfile.getMaximalBPM());
}

template <typename Sample>
AudioAnalysisError
CheckSamples(const AudioAnalysis& pAnalysis, const Sample* pSamples, size_t pFrames, int pChannels)
{
    using detail::Refuse;
    if (pChannels < 1 || pChannels > kMostChannels)
        return Refuse(&pAnalysis,
                      AudioAnalysisError_Range,
                      "samples have 1 to " + detail::Text(kMostChannels) + " channels, not " +
                          detail::Text(pChannels));
    const size_t most = std::numeric_limits<size_t>::max() / sizeof(Sample) / size_t(pChannels);
    if (pFrames > most)
        return Refuse(&pAnalysis, AudioAnalysisError_Range, "so many frames fit in no memory");
    if (!pSamples && pFrames > 0)
        return Refuse(&pAnalysis, AudioAnalysisError_Null, "the samples are NULL");
    if (reinterpret_cast<std::uintptr_t>(pSamples) % alignof(Sample) != 0)
        return Refuse(&pAnalysis, AudioAnalysisError_Range, "the samples are not aligned");
    if (pAnalysis.isFinished)
        return Refuse(&pAnalysis,
                      AudioAnalysisError_Finished,
                      "the analysis is finished; restart it for other audio");
    return AudioAnalysisError_None;
}

template <typename Sample>
AudioAnalysisError
Push(AudioAnalysis* pAnalysis, const Sample* pSamples, size_t pFrames, int pChannels)
{
    return detail::AnswerOutside(
        pAnalysis,
        [=](AudioAnalysis& pThis) {
            const AudioAnalysisError error = CheckSamples(pThis, pSamples, pFrames, pChannels);
            if (error == AudioAnalysisError_None)
                pThis.Push(pSamples, pFrames, pChannels);
            return error;
        });
}

}  // namespace

std::mutex& detail::ProfilesMutex()
{
    static std::mutex mutex;
    return mutex;
}

AudioAnalysisError detail::Refuse(const AudioAnalysis* pAnalysis,
                                  AudioAnalysisError pError,
                                  const std::string& pText) noexcept
{
    std::string& text = pAnalysis ? pAnalysis->errorText : t_errorText;
    try {
        text = pText;
    } catch (...) {
        text.clear();
    }
    return pError;
}

AudioAnalysis::AudioAnalysis(int pSampleRate, const std::lock_guard<std::mutex>&)
    : sampleRate(pSampleRate), profile(CopyOf(configuration.getSelectedProfile()))
{
    profile.setMinimalThreshold(0);
    configuration.setSelectedProfile(profile);
    SettingsTable::Restore(configuration);
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.reader == SettingsTable::eHeld)
            held.push_back({&setting, setting.initial});
    _ConnectMeter();
    Restart();
    heard.resize(pPump->getBlockSize());
}

void AudioAnalysis::Restart()
{
    ChannelMix newMix(sampleRate);
    auto pump = std::make_unique<AnalysisPump>(&configuration, sampleRate);
    _ApplyTo(pump->getAnalyzer());
    _ConnectEvents(pump->getFollower());
    _ConnectSpectrum(*pump);
    pPump = std::move(pump);
    pAnalyzer = &pPump->getAnalyzer();
    mix = std::move(newMix);
    ResetMeter();
    isFinished = false;
}

void AudioAnalysis::_ApplyTo(AudioAnalyzer& pNew) const
{
    for (const Held& one : held)
        AnalyzerSettings::Tell(*one.pSetting, one.value, pNew);
}

template <typename Sample>
void AudioAnalysis::Push(const Sample* pSamples, std::size_t pFrameCount, int pChannelCount)
{
    const Mark busy(isBusy);
    while (pFrameCount > 0) {
        const std::size_t count = std::min(pFrameCount, pPump->getSpaceCount());
        if (isMeterResetDue)
            ResetMeter();
        AudioDownmix::ToMono(pSamples, pChannelCount, count, pPump->getSpace());
        pPump->Commit(count);
        if (isAutomatic())
            _PushToMeter(pSamples, count, pChannelCount);
        pSamples += count * std::size_t(pChannelCount);
        pFrameCount -= count;
    }
}

template <typename Sample>
void AudioAnalysis::_PushToMeter(const Sample* pSamples, std::size_t pFrameCount, int pChannelCount)
{
    mix.Mix(pSamples, pChannelCount, pFrameCount, heard.data());
    meterFollower.Push(heard.data(), pFrameCount);
}

void AudioAnalysis::Finish()
{
    const Mark busy(isBusy);
    isFinished = true;
    pPump->Finish();
}

const char* AudioAnalysis_GetVersion(void)
{
    return AUDIOANALYZER_VERSION;
}

AudioAnalysis* AudioAnalysis_Create(int32_t pSampleRate)
{
    AudioAnalysis* pAnalysis = nullptr;
    detail::Answer(nullptr, [&] {
        if (pSampleRate < kMinimalRate || pSampleRate > kMaximalRate)
            return detail::Refuse(nullptr,
                                  AudioAnalysisError_Range,
                                  "a sample rate is " + detail::Text(kMinimalRate) + " to " +
                                      detail::Text(kMaximalRate) + " Hz, not " +
                                      detail::Text(pSampleRate));
        const std::lock_guard<std::mutex> profiles(detail::ProfilesMutex());
        pAnalysis = new AudioAnalysis(pSampleRate, profiles);
        return AudioAnalysisError_None;
    });
    return pAnalysis;
}

AudioAnalysisError AudioAnalysis_Destroy(AudioAnalysis* pAnalysis)
{
    return detail::AnswerOutside(
        pAnalysis,
        [](AudioAnalysis& pThis) {
            const std::lock_guard<std::mutex> profiles(detail::ProfilesMutex());
            delete &pThis;
            return AudioAnalysisError_None;
        });
}

const char* AudioAnalysis_GetErrorText(const AudioAnalysis* pAnalysis)
{
    return pAnalysis ? pAnalysis->errorText.c_str() : t_errorText.c_str();
}

const char* AudioAnalysis_DescribeError(int32_t pError)
{
    switch (pError) {
    case AudioAnalysisError_None:
        return "no error";
    case AudioAnalysisError_Null:
        return "a pointer is NULL";
    case AudioAnalysisError_Range:
        return "a number is outside its limits";
    case AudioAnalysisError_Unknown:
        return "there is no such setting or profile";
    case AudioAnalysisError_Busy:
        return "called from a callback that must not";
    case AudioAnalysisError_Finished:
        return "the analysis is finished";
    case AudioAnalysisError_Memory:
        return "memory has run out";
    case AudioAnalysisError_Internal:
        return "a callback has thrown an exception";
    default:
        return "there is no such error";
    }
}

AudioAnalysisError AudioAnalysis_PushInt16(AudioAnalysis* pAnalysis,
                                           const int16_t* pSamples,
                                           size_t pFrameCount,
                                           int32_t pChannelCount)
{
    return Push(pAnalysis, pSamples, pFrameCount, pChannelCount);
}

AudioAnalysisError AudioAnalysis_PushFloat(AudioAnalysis* pAnalysis,
                                           const float* pSamples,
                                           size_t pFrameCount,
                                           int32_t pChannelCount)
{
    return Push(pAnalysis, pSamples, pFrameCount, pChannelCount);
}

AudioAnalysisError AudioAnalysis_Finish(AudioAnalysis* pAnalysis)
{
    return detail::AnswerOutside(
        pAnalysis,
        [](AudioAnalysis& pThis) {
            if (pThis.isFinished)
                return detail::Refuse(
                    &pThis, AudioAnalysisError_Finished, "the analysis is finished already");
            pThis.Finish();
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_Restart(AudioAnalysis* pAnalysis)
{
    return detail::AnswerOutside(
        pAnalysis,
        [](AudioAnalysis& pThis) {
            pThis.Restart();
            return AudioAnalysisError_None;
        });
}

AudioAnalysisError AudioAnalysis_Reset(AudioAnalysis* pAnalysis)
{
    return detail::AnswerFor(
        pAnalysis,
        [](AudioAnalysis& pThis) {
            pThis.pAnalyzer->Reset();
            if (pThis.isBusy)
                pThis.isMeterResetDue = true;
            else
                pThis.ResetMeter();
            return AudioAnalysisError_None;
        });
}
