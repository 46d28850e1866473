// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>
#include <AudioAnalyzer/analysis/BeatCursor.h>

#include <QtTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <support/TestClass.h>
#include <thread>
#include <vector>

namespace {

constexpr int kReaders = 3;
constexpr int kEnough = 100;  ///< different values that each reader sees

/// Reads in threads until each has seen enough, while pWrite is called over and over. pRead(seen)
/// counts what it sees, and answers whether that was right.
template <typename Write, typename Read>
int FaultsOf(Write pWrite, Read pRead)
{
    std::atomic<int> busy{kReaders};
    std::atomic<int> faults{0};
    std::vector<std::thread> readers;
    for (int i = 0; i < kReaders; ++i)
        readers.emplace_back([&busy, &faults, pRead]() mutable {
            for (int seen = 0; seen < kEnough;) {
                const int before = seen;
                if (!pRead(seen))
                    ++faults;
                if (seen == before)
                    std::this_thread::yield();
            }
            --busy;
        });
    while (busy > 0)
        pWrite();
    for (std::thread& reader : readers)
        reader.join();
    return faults;
}

using Words = std::array<quint64, 17>;

}  // namespace

/// One thread sets, others read. Meant for a thread sanitizer as well.
class tst_BeatClock_threads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void value_isReadWhole_andNeverAnOlderOne();
    void state_isReadWhole_whileTheClockIsSet();
    void ticks_comeOnceInEachThread();
};

void tst_BeatClock_threads::value_isReadWhole_andNeverAnOlderOne()
{
    Published<Words> published{Words{}};
    quint64 number = 0;
    const int faults = FaultsOf(
        [&] {
            Words words;
            words.fill(++number);
            published.Set(words);
        },
        [&published, last = quint64(0)](int& pSeen) mutable {
            const Words words = published.Get();
            const bool isWhole = std::all_of(
                words.begin(), words.end(), [&](quint64 pWord) { return pWord == words[0]; });
            const bool isNewer = words[0] >= last;
            pSeen += words[0] > last ? 1 : 0;
            last = words[0];
            return isWhole && isNewer;
        });
    QCOMPARE(faults, 0);
}

// Beats that waver, so that every state has two lines: they meet where one ends.
void tst_BeatClock_threads::state_isReadWhole_whileTheClockIsSet()
{
    BeatClock clock;
    qint64 beat = 0;
    const int faults = FaultsOf(
        [&] {
            ++beat;
            const qint64 time = beat * 500000 + beat % 3 * 8000;
            clock.Hear({time, 120.0}, time);
        },
        [&clock, last = qint64(-1)](int& pSeen) mutable {
            const BeatClockState state = clock.getState();
            if (state.run == 0)
                return true;
            const double gap = state.now.getPosition(state.then.time) - state.then.position;
            const bool isNewer = state.heardTime >= last;
            pSeen += state.heardTime > last ? 1 : 0;
            last = state.heardTime;
            return std::abs(gap) < 1e-6 && isNewer && state.period() > 0.0;
        });
    QCOMPARE(faults, 0);
}

// Each reader has a present of its own, which it draws from the states, and loses no tick.
void tst_BeatClock_threads::ticks_comeOnceInEachThread()
{
    BeatClock clock;
    clock.Hear({500000, 120.0}, 500000);
    qint64 beat = 1;
    const int faults = FaultsOf(
        [&] {
            ++beat;
            const qint64 time = beat * 500000 + beat % 3 * 8000;
            clock.Hear({time, 120.0}, time);
        },
        [&clock, cursor = BeatCursor(24), isJoined = false](int& pSeen) mutable {
            const BeatClockState state = clock.getState();
            if (!isJoined)
                cursor.Join(state, state.heardTime);
            isJoined = true;
            bool isRight = true;
            for (qint64 tick = cursor.getTick() + 1, time = cursor.getTickTime();
                 cursor.Take(state, state.heardTime);
                 ++tick, ++pSeen) {
                isRight = isRight && cursor.getTick() == tick && cursor.getTickTime() >= time;
                time = cursor.getTickTime();
            }
            return isRight;
        });
    QCOMPARE(faults, 0);
}

AA_TEST(tst_BeatClock_threads, NoApplication)
#include "tst_BeatClock_threads.moc"
