// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/api/Analysis.h>

#include <vamp/TrackerParameters.h>

#include <memory>
#include <string>
#include <vamp-sdk/Plugin.h>
#include <vector>

/// The analysis as a Vamp plugin: beats, tempo, pulses and the spectrum of a recording.
///
/// The same audio and settings give the same beats as "audio-analyzer analyze". A host fills up the
/// last block with zeros and does not tell how many; so the zeros that end a step are held back
/// until the next one comes, and those that end the audio are not analysed.
///
/// Threads: one at a time, any.
class BeatTracker : public Vamp::Plugin
{
public:
    enum eOutput
    {
        eBeats = 0,
        eTempo = 1,
        ePulses = 2,
        eSpectrum = 3
    };

    explicit BeatTracker(float pSampleRate);

    InputDomain getInputDomain() const override { return TimeDomain; }
    std::string getIdentifier() const override { return "beat-tracker"; }
    std::string getName() const override { return "AudioAnalyzer: Beats and Tempo"; }
    std::string getDescription() const override;
    std::string getMaker() const override { return "The AudioAnalyzer developers"; }
    std::string getCopyright() const override { return "MIT licence"; }
    /// The library's major and minor version in one number: 100 * major + minor.
    int getPluginVersion() const override;

    size_t getPreferredBlockSize() const override { return m_blockSize; }
    size_t getPreferredStepSize() const override { return m_blockSize; }
    size_t getMaxChannelCount() const override;
    OutputList getOutputDescriptors() const override;
    ParameterList getParameterDescriptors() const override;
    float getParameter(std::string pName) const override { return m_parameters.get(pName); }
    void setParameter(std::string pName, float pValue) override;

    /// False when the sample rate, the step, the channels or a parameter cannot be used; one line
    /// on the standard error stream tells which. Steps must not leave gaps between blocks.
    bool initialise(size_t pChannels, size_t pStepSize, size_t pBlockSize) override;
    void reset() override;
    /// Of overlapping blocks only the step is taken.
    FeatureSet process(const float* const* pInputs, Vamp::RealTime pTime) override;
    FeatureSet getRemainingFeatures() override;

private:
    using Analysis = std::unique_ptr<AudioAnalysis, void (*)(AudioAnalysis*)>;

    bool _Refuse(const std::string& pReason) const;
    void _Connect();
    void _Interleave(const float* const* pInputs);
    size_t _CountFramesToLastSound() const;
    void _Add(eOutput pOutput, uint64_t pIndex, std::vector<float> pValues, std::string pLabel);
    FeatureSet _Take();

    TrackerParameters m_parameters;
    Analysis m_analysis;           ///< null when the sample rate cannot be used
    std::string m_refusal;         ///< why m_analysis is null
    size_t m_blockSize;            ///< samples of a pulse block
    size_t m_channels = 0;         ///< 0 = not initialised
    size_t m_stepSize = 0;         ///< frames
    std::vector<float> m_frames;   ///< of one step, interleaved
    std::vector<float> m_silence;  ///< one step of zeros
    size_t m_heldZeros = 0;        ///< frames of silence that end the last step
    bool m_isStarted = false;      ///< m_origin is known
    long m_origin = 0;             ///< frame at which the host began
    double m_lastBPM = 0.0;        ///< last tempo that was told
    FeatureSet m_features;         ///< gathered during a call
};
