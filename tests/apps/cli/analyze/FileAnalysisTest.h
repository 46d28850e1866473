// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <cli/analyze/FileAnalysis.h>

#include <algorithm>
#include <vector>

/// Mono samples out of memory.
class MemorySource : public AudioSource
{
public:
    MemorySource(int pRate, std::vector<float> pSamples)
        : m_rate(pRate), m_samples(std::move(pSamples))
    {
    }

    int getSampleRate() const override { return m_rate; }
    int getChannelCount() const override { return 1; }
    quint64 getFrameCount() const override { return m_samples.size(); }
    std::size_t Read(qint16* pSamples, std::size_t pCount) override
    {
        m_last = m_position;
        const std::size_t count = std::min(pCount, m_samples.size() - m_position);
        AudioDownmix::ToMono(m_samples.data() + m_position, 1, count, pSamples);
        m_position += count;
        return count;
    }
    const float* getFrames() const override { return m_samples.data() + m_last; }
    QString getError() const override { return m_error; }

    QString m_error;

private:
    int m_rate;
    std::vector<float> m_samples;
    std::size_t m_position = 0;
    std::size_t m_last = 0;
};

/// With the engine, unless the options name the other tracker.
inline AnalysisResult
Analyze(const std::vector<float>& pSamples, int pRate, AnalysisOptions pOptions = {})
{
    pOptions.tracker = pOptions.tracker.value_or(eProfileTracker);
    MemorySource source(pRate, pSamples);
    FileAnalysis analysis(pOptions, source);
    if (!analysis.Run([](const float*, std::size_t) { return true; }))
        return {};
    return analysis.getLog().getResult();
}

inline bool isSame(const AnalysisResult& pLeft, const AnalysisResult& pRight)
{
    const auto beatsAreSame = [](const LoggedBeat& pA, const LoggedBeat& pB) {
        return pA.index == pB.index && pA.isVirtual == pB.isVirtual && pA.loudness == pB.loudness &&
               pA.accuracy == pB.accuracy && pA.bpm == pB.bpm;
    };
    const auto temposAreSame = [](const TempoPoint& pA, const TempoPoint& pB) {
        return pA.time == pB.time && pA.bpm == pB.bpm;
    };
    return std::equal(pLeft.beats.begin(),
                      pLeft.beats.end(),
                      pRight.beats.begin(),
                      pRight.beats.end(),
                      beatsAreSame) &&
           std::equal(pLeft.tempos.begin(),
                      pLeft.tempos.end(),
                      pRight.tempos.begin(),
                      pRight.tempos.end(),
                      temposAreSame) &&
           pLeft.pulseTimes == pRight.pulseTimes && pLeft.sampleCount == pRight.sampleCount;
}
