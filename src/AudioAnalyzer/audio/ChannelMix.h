// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

#include <cstddef>
#include <vector>

/// Mono of channels that may cancel each other out, as they do where the poles of one are swapped.
///
/// The channels are averaged like AudioDownmix does it. Ten times a second their powers over the
/// last second are compared: an average with less than 40 % of the power that the loudest channel
/// alone would leave in it says that the others work against it. Then that channel is taken, until
/// the average has 80 % again.
///
/// The same frames give the same samples, in portions of any size and on every machine.
///
/// Threads: one at a time.
class AUDIOANALYZER_EXPORT ChannelMix
{
public:
    /// pSampleRate in Hz, 10 at least. [allocates]
    explicit ChannelMix(int pSampleRate);

    /// pCount frames of pChannels interleaved samples, float in [-1, 1] or qint16, to as many
    /// samples. Where the number of channels changes, they are judged anew. [audio path: allocates
    /// when their number rises above 8 and all before]
    template <typename Sample>
    void Mix(const Sample* pFrames, int pChannels, std::size_t pCount, qint16* pSamples);
    /// As constructed. [no allocation]
    void Reset();

    /// The channel that is taken now, counted from 0; -1 = the average.
    int getChannel() const { return m_channel; }
    /// Frames before a channel was taken for the first time; meaningless unless hasCancelled().
    quint64 getFirstCancellation() const { return m_firstCancellation; }
    /// Whether a channel was ever taken.
    bool hasCancelled() const { return m_hasCancelled; }

private:
    template <typename Sample>
    void _MixSome(const Sample* pFrames, std::size_t pCount, qint16* pSamples);
    void _Count(int pChannels);
    void _Choose();

    std::size_t m_windowSize;      ///< frames between two choices
    std::size_t m_windowFill = 0;  ///< frames
    std::size_t m_channels = 0;    ///< 0 before the first frame
    std::vector<quint64> m_sums;   ///< squares in the window; of each channel, then the average
    std::vector<double> m_powers;  ///< the same over the last second, fading
    int m_channel = -1;            ///< taken; -1 = the average
    quint64 m_frameCount = 0;      ///< mixed
    quint64 m_firstCancellation = 0;
    bool m_hasCancelled = false;
};

extern template AUDIOANALYZER_EXPORT void
ChannelMix::Mix(const float* pFrames, int pChannels, std::size_t pCount, qint16* pSamples);
extern template AUDIOANALYZER_EXPORT void
ChannelMix::Mix(const qint16* pFrames, int pChannels, std::size_t pCount, qint16* pSamples);
