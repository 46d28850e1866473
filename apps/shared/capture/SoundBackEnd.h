// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundPlayback.h>

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <vector>

/// An input as the sound server has it; it is delivered as mono with 16 bits all the same.
struct SoundSource
{
    QString name;
    QString description;  ///< for people; may be empty
    int channels = 0;
    int sampleRate = 0;      ///< Hz
    bool isMonitor = false;  ///< of what the machine plays itself
    bool isDefault = false;  ///< at most one is
};

/// What is known of samples that were read.
struct SoundPosition
{
    quint64 instant = 0;  ///< when the sample behind them sounds, µs since the epoch
    quint64 lost = 0;     ///< samples of the recording that nobody read in time, so far
};

/// How loud all sources are, for as long as it lives; it holds them open meanwhile, and changes
/// nothing about what is recorded of them.
///
/// None of its functions waits for anybody, its end neither. [event loop]
class SoundLevels
{
public:
    SoundLevels() = default;
    virtual ~SoundLevels() = default;
    SoundLevels(const SoundLevels&) = delete;
    SoundLevels& operator=(const SoundLevels&) = delete;

    /// The greatest magnitude since the last call, 0 to 1, by the names of the sources; nothing of
    /// one from which nothing came. [allocates]
    virtual std::map<QString, double> TakePeaks() = 0;
};

/// What the hosts' own back end tells beyond what Qt Multimedia asks of one.
///
/// None of its functions waits for anybody. [event loop]
class SoundBackEnd
{
public:
    SoundBackEnd() = default;
    virtual ~SoundBackEnd();
    SoundBackEnd(const SoundBackEnd&) = delete;
    SoundBackEnd& operator=(const SoundBackEnd&) = delete;

    /// The back end of this process; null where Qt's own plugins serve.
    static SoundBackEnd* get();

    /// The default one first.
    virtual std::vector<SoundSource> getSources() const = 0;
    /// False while there is no server, or one that hangs.
    virtual bool isAnswering() const = 0;
    /// Of the samples that were read last, from any recording; nothing before the server has told.
    /// [valid until OnAudioSamplesRecorded() returns]
    virtual std::optional<SoundPosition> getPosition() const = 0;
    /// Samples of that rate, Hz, for the default output; null without a server that answers.
    virtual std::unique_ptr<SoundPlayback> Play(int pSampleRate);
    /// Listens to all sources, at little cost. Null where that cannot be had. The caller's.
    virtual std::unique_ptr<SoundLevels> HearLevels() { return nullptr; }

protected:
    /// Makes it the process's; it is so until it is destroyed.
    void _Publish();
};
