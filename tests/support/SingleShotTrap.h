// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

class QObject;

/// Catches the single-shot timers that are armed while it lives: they never fire.
///
/// Linking aa_test_timer replaces QTimer::singleShot with a member string in the whole test
/// executable, the library's calls included. While no trap lives, the calls reach Qt. Catching
/// allocates nothing.
class SingleShotTrap
{
public:
    SingleShotTrap();
    ~SingleShotTrap();
    SingleShotTrap(const SingleShotTrap&) = delete;
    SingleShotTrap& operator=(const SingleShotTrap&) = delete;

    /// Called at once for each timer: its delay in ms, its receiver and its member string.
    using Handler = void (*)(void* pContext,
                             int delay,
                             const QObject* pReceiver,
                             const char* pMember);
    void setHandler(Handler handler, void* pContext);

    std::size_t getCount() const;  ///< timers caught since the construction
    int getLastDelay() const;      ///< ms; -1 before the first
};
