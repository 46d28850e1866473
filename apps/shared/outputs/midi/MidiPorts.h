// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/midi/MidiPort.h>

#include <QStringList>

#include <memory>

namespace shared {

/// A port by the words of a user: a part of the name of the port to reach, or nothing for a port
/// that others connect to; before it alsa: or jack:, else whichever has it, ALSA first.
std::unique_ptr<MidiPort> MakeMidiPort(const QString& pText,
                                       const MidiPortName& pName = kMidiClockPort);

/// What such words can reach, alsa: or jack: before each. Waits for both systems.
QStringList ListMidiPorts();

}  // namespace shared
