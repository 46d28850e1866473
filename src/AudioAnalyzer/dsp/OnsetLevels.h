// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/detail/SemitoneBands.h>
#include <AudioAnalyzer/dsp/detail/WindowedSpectrum.h>

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <vector>

/// How much begins to sound, in five ranges of frequency, a hundred times a second.
///
/// Each frame looks at the last 46 ms. Its spectrum, in semitone bands, is compressed, and what has
/// risen in a band since three frames ago, beyond what the band and its neighbours had then, is
/// averaged over the bands of a range and divided by its own running mean. So neither loudness nor
/// the character of the music matters, nor the sample rate; a range that the rate does not reach
/// takes the level of the one below.
///
/// The same samples give the same levels, in portions of any size and on every machine.
///
/// Threads: one thread at a time.
class OnsetLevels
{
public:
    static constexpr std::size_t kRangeCount = 5;
    static constexpr int kFramesPerSecond = 100;
    static constexpr quint8 kLevelCount = 10;
    using Levels = std::array<quint8, kRangeCount>;  ///< 0 to 9

    /// pSampleRate in Hz, 8000 to 192000. [allocates]
    explicit OnsetLevels(int pSampleRate);

    /// Takes samples up to the end of the present frame and returns how many, at most pCount.
    /// When that completes the frame, isFrameComplete() until the next call.
    /// [audio path: no allocation]
    std::size_t Push(const qint16* pSamples, std::size_t pCount);
    bool isFrameComplete() const { return m_isFrameComplete; }
    /// As constructed. [no allocation]
    void Reset();

    /// Of the last complete frame. [any time]
    const Levels& getLevels() const { return m_levels; }
    /// Onset strengths behind the levels: 1 is their running mean. [any time]
    const std::array<float, kRangeCount>& getStrengths() const { return m_strengths; }
    /// Mean square of the last complete frame's new samples, 1 = full scale. [any time]
    float getMeanSquare() const { return m_frameMeanSquare; }
    /// Complete frames since the start. [any time]
    quint64 getFrameCount() const { return m_frameCount; }
    /// Sample index at which frame pFrame ends; the first frame is number 1. [any time]
    quint64 getFrameEnd(quint64 pFrame) const;

private:
    static constexpr std::size_t kLag = 3;  ///< frames between which sound rises

    void _CompleteFrame();
    float _FollowLoudness();
    void _CompressBands(float pGain);
    void _MeasureRise();
    void _RankRise();

    int m_sampleRate;  ///< Hz
    detail::WindowedSpectrum m_spectrum;
    std::vector<detail::SemitoneBand> m_bands;
    float m_binScale;               ///< makes sums of bins independent of their distance
    std::vector<qint16> m_samples;  ///< the window; the present frame's end it
    std::size_t m_missing = 0;      ///< samples until the present frame is complete
    std::size_t m_frameSize = 0;    ///< samples of the present frame
    quint64 m_frameCount = 0;
    bool m_isFrameComplete = false;

    float m_meanSquare = 0.0F;  ///< running
    float m_frameMeanSquare = 0.0F;
    std::vector<float> m_sums;                         ///< gained band sums, for the logarithm
    std::vector<float> m_values;                       ///< compressed bands
    std::array<std::vector<float>, kLag> m_past;       ///< highest of each three neighbours
    std::array<float, kRangeCount> m_bandCounts = {};  ///< of each range
    std::array<float, kRangeCount> m_rises = {};       ///< mean of a range
    std::array<float, kRangeCount> m_meanRises = {};   ///< running
    std::array<float, kRangeCount> m_strengths = {};
    Levels m_levels = {};
};
