// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/midi/MidiMessage.h>

#include <QString>

namespace shared {

/// What a port is called by others: the client of the system that has it, and the port itself.
/// Outputs that differ bear different names, so that a patch bay finds each again.
struct MidiPortName
{
    const char* client;
    const char* port;
};

constexpr MidiPortName kMidiClockPort = {"audio-analyzer", "clock"};
constexpr MidiPortName kMidiNotesPort = {"audio-analyzer-notes", "notes"};

/// Where messages leave. One thread at a time.
class MidiPort
{
public:
    virtual ~MidiPort() = default;
    MidiPort() = default;
    MidiPort(const MidiPort&) = delete;
    MidiPort& operator=(const MidiPort&) = delete;

    /// False when it cannot be had now; getState() says why.
    virtual bool Open() = 0;
    virtual void Close() = 0;
    /// The event's instant has come; what is late by less than a millisecond may still be put right
    /// by a port that has its own clock. False when the port has gone.
    virtual bool Send(const MidiEvent& pEvent) = 0;
    /// Whether it can still send; for when there is nothing to send.
    virtual bool isThere() const = 0;
    /// Where messages go, or what is wrong, in words for people.
    virtual QString getState() const = 0;
};

}  // namespace shared
