// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>

/// Audio that is read once from front to end: mono for the analysis, and as it came for click
/// tracks.
class AudioSource
{
public:
    static constexpr int kMinimalRate = 8000;    ///< Hz
    static constexpr int kMaximalRate = 192000;  ///< Hz

    AudioSource() = default;
    virtual ~AudioSource() = default;
    Q_DISABLE_COPY(AudioSource)

    virtual int getSampleRate() const = 0;  ///< Hz, kMinimalRate to kMaximalRate
    virtual int getChannelCount() const = 0;
    /// Frames that the source says it has; 0 = unknown.
    virtual quint64 getFrameCount() const = 0;

    /// Reads pCount frames, each averaged over its channels, into pSamples. Returns how many there
    /// were; fewer than pCount only at the end, and getError() then tells whether that is the
    /// proper one. [allocates when pCount grows]
    virtual std::size_t Read(qint16* pSamples, std::size_t pCount) = 0;
    /// The frames of the last Read(), all channels interleaved, nominally in [-1, 1].
    /// [valid until the next Read]
    virtual const float* getFrames() const = 0;
    /// Why the audio could not be opened or ended too early, and what to do, without the file's
    /// name; empty = all is well.
    virtual QString getError() const = 0;
    /// What is missing of audio that is damaged or cut short, without the file's name; empty = all
    /// is there, as far as has been read.
    virtual QString getLoss() const { return {}; }
};
