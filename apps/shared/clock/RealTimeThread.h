// SPDX-License-Identifier: MIT
#pragma once

namespace shared {

/// Makes the calling thread one that wakes in time: of real-time priority, above what plays and
/// records at the usual priorities of a desktop, below the kernel's own. False where the system
/// does not allow that; the thread then goes on as it was. [any thread]
bool becomeRealTimeThread();

}  // namespace shared
