// SPDX-License-Identifier: MIT
#pragma once

/// Makes the sound server's devices the only ones of this process, when a sound server answers.
///
/// Qt lists the devices of every plugin it finds. Asking ALSA takes up to a tenth of a second of
/// the event loop, every time, and yields a dozen pseudo-devices besides the ones that the server
/// has already; asking the server alone takes no time at all. A live host must not stutter whenever
/// it looks for new devices. Without a server every plugin stays, and false is returned.
///
/// To be called before the first device query, with a QCoreApplication. [event loop]
bool preferSoundServer();
