// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <pthread.h>
#include <utility>
#include <vector>

namespace shared {

/// What one thread leaves for another that may stall: when there is too much of it, the oldest is
/// lost, and counted.
///
/// The lock is held for the time of one move, and whoever holds it has the priority of who waits
/// for it: so the clock's thread may push, and is not held up by a reader that was interrupted.
template <typename Value>
class StallQueue
{
public:
    /// pCapacity: values, 1 at least. [allocates]
    explicit StallQueue(std::size_t pCapacity) : m_values(pCapacity)
    {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_setprotocol(&attributes, PTHREAD_PRIO_INHERIT);
        pthread_mutex_init(&m_mutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~StallQueue() { pthread_mutex_destroy(&m_mutex); }
    StallQueue(const StallQueue&) = delete;
    StallQueue& operator=(const StallQueue&) = delete;

    /// [any thread] [no allocation, beyond what moving a Value takes]
    void Push(Value pValue)
    {
        const Lock lock(m_mutex);
        using std::swap;
        swap(m_values[m_end % m_values.size()], pValue);
        ++m_end;
        if (m_end - m_begin > m_values.size()) {
            ++m_begin;
            ++m_lost;
        }
    }
    /// False when there is nothing. [any thread]
    bool Take(Value& pValue)
    {
        const Lock lock(m_mutex);
        if (m_begin == m_end)
            return false;
        pValue = std::move(m_values[m_begin++ % m_values.size()]);
        return true;
    }
    /// Values that were lost since this was asked last. [any thread]
    std::uint64_t TakeLost()
    {
        const Lock lock(m_mutex);
        return std::exchange(m_lost, 0);
    }

private:
    class Lock
    {
    public:
        explicit Lock(pthread_mutex_t& pMutex) : m_mutex(pMutex) { pthread_mutex_lock(&m_mutex); }
        ~Lock() { pthread_mutex_unlock(&m_mutex); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        pthread_mutex_t& m_mutex;
    };

    pthread_mutex_t m_mutex;  ///< guards all below
    std::vector<Value> m_values;
    std::uint64_t m_begin = 0;  ///< number of the next value to be taken
    std::uint64_t m_end = 0;    ///< and of the next to be pushed
    std::uint64_t m_lost = 0;   ///< values
};

}  // namespace shared
