// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <optional>

/// Mono samples on their way to the default output.
///
/// None of its functions waits for anybody. [event loop]
class SoundPlayback
{
public:
    enum eState
    {
        eOpening,  ///< nobody has asked for samples yet
        eRunning,
        eStuck,   ///< nobody has asked for samples for seconds
        eRefused  ///< there is no output, or it has gone
    };

    SoundPlayback() = default;
    virtual ~SoundPlayback() = default;
    SoundPlayback(const SoundPlayback&) = delete;
    SoundPlayback& operator=(const SoundPlayback&) = delete;

    virtual eState getState() const = 0;
    /// How many samples are taken now.
    virtual std::size_t getRoom() const = 0;
    /// pCount: at most getRoom(). What is not there in time is a pause.
    virtual void Write(const qint16* pSamples, std::size_t pCount) = 0;
    /// How many of the samples have sounded by pNow, µs since the epoch; nothing before the server
    /// has told.
    virtual std::optional<quint64> getHeard(quint64 pNow) const = 0;
    /// When the sample of that number, from 0, sounds, µs since the epoch; 0 before the server has
    /// told.
    virtual quint64 getInstant(quint64 pSample) const = 0;
    /// A muted one goes on in silence.
    virtual void setMuted(bool pIsMuted) = 0;
};
