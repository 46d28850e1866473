// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockListener.h>

#include <QString>

#include <array>
#include <cstdint>

namespace shared {

/// An instant of the clock, as an output sends it.
struct OutputMoment
{
    ClockTick tick;        ///< of the receiver's division
    BeatClockState state;  ///< of the clock
    double confidence;     ///< that the next beat is right, 0 to 1
    bool isTempoNew;       ///< the tempo is another than at the beat before
};

/// What is heard, about fifty times a second.
struct OutputSound
{
    std::int64_t time;             ///< µs of ClockThread::getTime(); when it sounded
    double level;                  ///< 0 to 1, of full scale
    std::array<double, 16> bands;  ///< 0 to 1 each, low to high
    double magnitude;              ///< of the strongest frequency, 0 to 1
    double frequency;              ///< Hz, the strongest one
};

/// One program or device that follows the clock: how it is reached, and what it is sent.
///
/// Each receiver has a thread of its own, in which all these functions are called: they may wait,
/// and a receiver that is away, slow or wrong holds up nobody else. What has become too old
/// meanwhile is not told. After a false, Close() is called, and Open() until it succeeds: Close()
/// once for every Open() that did.
class OutputReceiver
{
public:
    virtual ~OutputReceiver() = default;
    OutputReceiver() = default;
    OutputReceiver(const OutputReceiver&) = delete;
    OutputReceiver& operator=(const OutputReceiver&) = delete;

    /// Ticks a beat that are told; 1 = the beats alone. [any thread]
    virtual std::int32_t getDivision() const { return 1; }
    /// Whether Sound() is to be called. [any thread]
    virtual bool hearsSound() const { return false; }

    /// Finds the receiver: resolves its name, connects. False when it is not there.
    virtual bool Open() = 0;
    /// The end, also of what was begun: a receiver is left as one wants to find it.
    virtual void Close() = 0;
    /// Whom it reaches, or what is wrong and what to do about it, in words for people. Asked
    /// after each Open() and Rest(), and after a false, before Close().
    virtual QString getState() const = 0;

    /// A beat, tick.place 0.
    virtual bool Beat(const OutputMoment& pMoment) = 0;
    /// Between beats; for a division above 1.
    virtual bool Tick(const OutputMoment&) { return true; }
    /// The tempo in force, BPM, before the beat that brings it.
    virtual bool Tempo(double) { return true; }
    /// The clock begins, before its first beat, or stands still. Told once behind Open(), too.
    virtual bool Playing(bool, const BeatClockState&) { return true; }
    virtual bool Sound(const OutputSound&) { return true; }
    /// Some ten times a second, between what is told: to read what the receiver answers, and to
    /// notice that it has gone.
    virtual bool Rest() { return true; }
};

}  // namespace shared
