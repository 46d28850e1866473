// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// A value that one thread sets and any number of threads read, without a lock.
///
/// The writer fills the oldest of four places, marks it complete by its number, and only then makes
/// it the latest. A reader copies the latest and looks whether it was still that number afterwards;
/// if not, four newer values came while it copied, and it copies anew. So a reader never waits for
/// the writer, not even for one that was interrupted half way, as a real-time thread needs.
///
/// What the writer did before Set() is seen by a reader that got that value from Get(). The words
/// are atomic, each stored with release and loaded with acquire, so there is no data race: who
/// reads a word of a newer value also sees that the place was marked incomplete before. Values of
/// one writer are seen in their order.
///
/// Value: trivially copyable, its size whole 64-bit words.
template <typename Value>
class Published
{
    static_assert(std::is_trivially_copyable_v<Value>);
    static_assert(sizeof(Value) % sizeof(std::uint64_t) == 0);
    static_assert(std::atomic<std::uint64_t>::is_always_lock_free);

public:
    explicit Published(const Value& pFirst) { Set(pFirst); }
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    /// One thread at a time. [no allocation]
    void Set(const Value& pValue)
    {
        Words words;
        std::memcpy(words.data(), &pValue, sizeof(Value));
        const std::uint64_t number = m_latest.load(std::memory_order_relaxed) + 1;
        Place& place = m_places[number % kPlaces];
        place.number.store(kIncomplete, std::memory_order_relaxed);
        for (std::size_t i = 0; i < words.size(); ++i)
            place.words[i].store(words[i], std::memory_order_release);
        place.number.store(number, std::memory_order_release);
        m_latest.store(number, std::memory_order_release);
    }

    /// [any thread] [no allocation]
    Value Get() const
    {
        Words words;
        std::uint64_t number = 0;
        const Place* pPlace = nullptr;
        do {
            number = m_latest.load(std::memory_order_acquire);
            pPlace = &m_places[number % kPlaces];
            for (std::size_t i = 0; i < words.size(); ++i)
                words[i] = pPlace->words[i].load(std::memory_order_acquire);
        } while (pPlace->number.load(std::memory_order_relaxed) != number);
        Value value;
        std::memcpy(&value, words.data(), sizeof(Value));
        return value;
    }

private:
    static constexpr std::size_t kPlaces = 4;
    static constexpr std::uint64_t kIncomplete = 0;  ///< numbers count from 1
    using Words = std::array<std::uint64_t, sizeof(Value) / sizeof(std::uint64_t)>;
    struct Place
    {
        std::atomic<std::uint64_t> number{kIncomplete};
        std::array<std::atomic<std::uint64_t>, std::tuple_size_v<Words>> words{};
    };

    std::array<Place, kPlaces> m_places;
    std::atomic<std::uint64_t> m_latest{0};
};
