// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <vamp/BeatTracker.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <utility>

namespace {

using Vamp::RealTime;
using Descriptor = Vamp::Plugin::OutputDescriptor;

constexpr size_t kMaximalChannels = 64;
constexpr size_t kBlockSizeWithoutAnalysis = 1024;  ///< samples
constexpr float kFullScale = 32767.0F;

void Destroy(AudioAnalysis* pAnalysis)
{
    AudioAnalysis_Destroy(pAnalysis);
}

/// Its place in the bar, where that is known.
std::string LabelOf(const AudioAnalysisBeat& pBeat)
{
    if (pBeat.beatInBar > 0)
        return std::to_string(pBeat.beatInBar);
    return pBeat.isVirtual ? "virtual" : "";
}

/// Events at single moments, to the sample.
Descriptor
DescribeEvents(const char* pName, const char* pTitle, const char* pDescription, float pSampleRate)
{
    Descriptor result;
    result.identifier = pName;
    result.name = pTitle;
    result.description = pDescription;
    result.hasFixedBinCount = true;
    result.binCount = 1;
    result.sampleType = Descriptor::VariableSampleRate;
    result.sampleRate = pSampleRate;
    return result;
}

Descriptor DescribeSpectrum(float pSampleRate, size_t pBlockSize)
{
    Descriptor result;
    result.identifier = "spectrum";
    result.name = "Spectrum";
    result.description = "Powers of each block before its filter, 1 being the greatest one so far; "
                         "there are none while the music is stopped";
    result.hasFixedBinCount = true;
    result.binCount = pBlockSize / 2;
    for (size_t i = 0; i < result.binCount; ++i) {
        const double low = static_cast<double>(pSampleRate) * double(i) / double(pBlockSize);
        result.binNames.push_back(std::to_string(std::lround(low)) + " Hz");
    }
    result.hasKnownExtents = true;
    result.maxValue = 1.0F;
    result.sampleType = Descriptor::FixedSampleRate;
    result.sampleRate = pSampleRate / static_cast<float>(pBlockSize);
    return result;
}

}  // namespace

BeatTracker::BeatTracker(float pSampleRate)
    : Plugin(pSampleRate),
      m_analysis(AudioAnalysis_Create(static_cast<int32_t>(std::lround(pSampleRate))), &Destroy),
      m_blockSize(m_analysis ? size_t(AudioAnalysis_GetBlockSize(m_analysis.get()))
                             : kBlockSizeWithoutAnalysis)
{
    if (!m_analysis)
        m_refusal = AudioAnalysis_GetErrorText(nullptr);
    _Connect();
}

std::string BeatTracker::getDescription() const
{
    return "Finds beats and tempo as in live music; with a profile beats are real, heard in the "
           "music, or virtual, put where one was expected";
}

int BeatTracker::getPluginVersion() const
{
    return 100 * AUDIOANALYZER_VERSION_MAJOR + AUDIOANALYZER_VERSION_MINOR;
}

size_t BeatTracker::getMaxChannelCount() const
{
    return kMaximalChannels;
}

BeatTracker::OutputList BeatTracker::getOutputDescriptors() const
{
    Descriptor beats = DescribeEvents("beats",
                                      "Beats",
                                      "Beats with their places in the bar; with a profile, virtual "
                                      "ones are labelled so",
                                      m_inputSampleRate);
    beats.binCount = 0;
    Descriptor tempo = DescribeEvents(
        "tempo", "Tempo", "Each change of the tempo; 0 = unknown", m_inputSampleRate);
    tempo.unit = "bpm";
    Descriptor pulses = DescribeEvents(
        "pulses", "Pulses", "Loudness of each block above the threshold", m_inputSampleRate);
    pulses.hasKnownExtents = true;
    pulses.maxValue = kFullScale;
    return {beats, tempo, pulses, DescribeSpectrum(m_inputSampleRate, m_blockSize)};
}

BeatTracker::ParameterList BeatTracker::getParameterDescriptors() const
{
    return TrackerParameters::getDescriptors();
}

void BeatTracker::setParameter(std::string pName, float pValue)
{
    m_parameters.set(pName, pValue);
}

bool BeatTracker::initialise(size_t pChannels, size_t pStepSize, size_t pBlockSize)
{
    if (!m_analysis)
        return _Refuse(m_refusal);
    if (pChannels < 1 || pChannels > kMaximalChannels)
        return _Refuse("1 to " + std::to_string(kMaximalChannels) + " channels can be analysed");
    if (pStepSize < 1 || pStepSize > pBlockSize)
        return _Refuse("the step must not be longer than the block");
    if (!m_parameters.ApplyTo(m_analysis.get()))
        return _Refuse(AudioAnalysis_GetErrorText(m_analysis.get()));
    m_channels = pChannels;
    m_stepSize = pStepSize;
    m_frames.resize(pStepSize * pChannels);
    m_silence.resize(pStepSize * pChannels);
    reset();
    return true;
}

void BeatTracker::reset()
{
    if (m_analysis)
        AudioAnalysis_Restart(m_analysis.get());
    m_heldZeros = 0;
    m_isStarted = false;
    m_lastBPM = 0.0;
    m_features.clear();
}

BeatTracker::FeatureSet BeatTracker::process(const float* const* pInputs, RealTime pTime)
{
    if (m_channels == 0)
        return {};
    if (!m_isStarted)
        m_origin = RealTime::realTime2Frame(pTime, static_cast<unsigned>(m_inputSampleRate));
    m_isStarted = true;
    _Interleave(pInputs);
    const size_t count = _CountFramesToLastSound();
    const auto channels = static_cast<int32_t>(m_channels);
    AudioAnalysis_PushFloat(m_analysis.get(), m_silence.data(), m_heldZeros, channels);
    AudioAnalysis_PushFloat(m_analysis.get(), m_frames.data(), count, channels);
    m_heldZeros = m_stepSize - count;
    return _Take();
}

BeatTracker::FeatureSet BeatTracker::getRemainingFeatures()
{
    if (m_isStarted)
        AudioAnalysis_Finish(m_analysis.get());
    return _Take();
}

bool BeatTracker::_Refuse(const std::string& pReason) const
{
    std::cerr << "audio-analyzer-vamp: " << pReason << std::endl;
    return false;
}

void BeatTracker::_Connect()
{
    AudioAnalysis* pAnalysis = m_analysis.get();
    if (!pAnalysis)
        return;
    AudioAnalysis_SetBeatCallback(
        pAnalysis,
        [](void* pUser, const AudioAnalysisBeat* pBeat) {
            static_cast<BeatTracker*>(pUser)->_Add(eBeats, pBeat->index, {}, LabelOf(*pBeat));
        },
        this);
    AudioAnalysis_SetTempoCallback(
        pAnalysis,
        [](void* pUser, const AudioAnalysisTempo* pTempo) {
            auto* pThis = static_cast<BeatTracker*>(pUser);
            if (std::exchange(pThis->m_lastBPM, pTempo->bpm) != pTempo->bpm)
                pThis->_Add(eTempo, pTempo->index, {static_cast<float>(pTempo->bpm)}, "");
        },
        this);
    AudioAnalysis_SetPulseCallback(
        pAnalysis,
        [](void* pUser, const AudioAnalysisPulse* pPulse) {
            static_cast<BeatTracker*>(pUser)->_Add(
                ePulses, pPulse->index, {static_cast<float>(pPulse->loudness)}, "");
        },
        this);
    AudioAnalysis_SetSpectrumCallback(
        pAnalysis,
        [](void* pUser, const AudioAnalysisSpectrum* pSpectrum) {
            std::vector<float> values(pSpectrum->amplitudes,
                                      pSpectrum->amplitudes + pSpectrum->count);
            static_cast<BeatTracker*>(pUser)->_Add(
                eSpectrum, pSpectrum->index, std::move(values), "");
        },
        this);
}

void BeatTracker::_Interleave(const float* const* pInputs)
{
    for (size_t i = 0; i < m_stepSize; ++i)
        for (size_t channel = 0; channel < m_channels; ++channel)
            m_frames[i * m_channels + channel] = pInputs[channel][i];
}

/// Frames of the step up to its last one that holds a sample other than 0.
size_t BeatTracker::_CountFramesToLastSound() const
{
    const auto isSound = [](float pSample) { return pSample != 0.0F; };
    const auto last = std::find_if(m_frames.rbegin(), m_frames.rend(), isSound);
    const auto samples = static_cast<size_t>(std::distance(last, m_frames.rend()));
    return (samples + m_channels - 1) / m_channels;
}

void BeatTracker::_Add(eOutput pOutput,
                       uint64_t pIndex,
                       std::vector<float> pValues,
                       std::string pLabel)
{
    Feature feature;
    feature.hasTimestamp = true;
    feature.timestamp = RealTime::frame2RealTime(m_origin + static_cast<long>(pIndex),
                                                 static_cast<unsigned>(m_inputSampleRate));
    feature.values = std::move(pValues);
    feature.label = std::move(pLabel);
    m_features[pOutput].push_back(std::move(feature));
}

BeatTracker::FeatureSet BeatTracker::_Take()
{
    return std::exchange(m_features, FeatureSet());
}
