// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/Butterflies.h>
#include <AudioAnalyzer/dsp/detail/TwiddleTables.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <new>

namespace detail {

namespace {

constexpr std::size_t kEight = 8;
constexpr std::size_t kHeadBits = TwiddleTables::kHeadBits;
constexpr std::size_t kColumnBits = TwiddleTables::kColumnBits;
constexpr std::align_val_t kCacheLine{64};

struct Direction
{
    TwiddleTables tables{};
    std::atomic<std::uint64_t> lengths{0};  ///< bit b: all of length 2^b is there
};

std::size_t sizeOf(std::size_t pBits)
{
    return std::size_t(1) << pBits;
}

TwiddleRecurrence recurrenceOf(bool pInverse, std::size_t pBits)
{
    const double circle = pInverse ? 6.283185307179586 : -6.283185307179586;
    return TwiddleRecurrence(circle / static_cast<double>(sizeOf(pBits)));
}

void fillHead(double* pHead, bool pInverse)
{
    for (std::size_t bits = 1; bits <= kHeadBits; ++bits) {
        TwiddleRecurrence twiddles = recurrenceOf(pInverse, bits);
        for (std::size_t j = 0; j < sizeOf(bits - 1); ++j) {
            twiddles.advance();
            *pHead++ = twiddles.real();
            *pHead++ = twiddles.imaginary();
        }
    }
}

const double* makeStage(bool pInverse, std::size_t pBits)
{
    const std::size_t half = sizeOf(pBits) / 2;
    double* pTable = new (kCacheLine) double[2 * half];
    TwiddleRecurrence twiddles = recurrenceOf(pInverse, pBits);
    for (std::size_t j = 0; j < half; ++j) {
        twiddles.advance();
        double* pFactor = pTable + 2 * (j - j % kEight) + j % kEight;
        pFactor[0] = twiddles.real();
        pFactor[kEight] = twiddles.imaginary();
    }
    return pTable;
}

// A stage's factors belong to the values of one block after the other.
const double* makeColumns(bool pInverse, std::size_t pBits)
{
    const std::size_t width = sizeOf(pBits - kColumnBits);
    const std::size_t eights = sizeOf(kColumnBits) - 1;
    double* pTable = new (kCacheLine) double[2 * width * eights];
    for (std::size_t stage = 0; stage < kColumnBits; ++stage) {
        TwiddleRecurrence twiddles = recurrenceOf(pInverse, pBits - kColumnBits + 1 + stage);
        for (std::size_t block = 0; block < sizeOf(stage); ++block)
            for (std::size_t column = 0; column < width; ++column) {
                twiddles.advance();
                const std::size_t eight = column / kEight * eights + sizeOf(stage) - 1 + block;
                double* pFactor = pTable + 2 * kEight * eight + column % kEight;
                pFactor[0] = twiddles.real();
                pFactor[kEight] = twiddles.imaginary();
            }
    }
    return pTable;
}

void complete(TwiddleTables& pTables, bool pInverse, std::size_t pBitCount)
{
    const bool isLarge = pBitCount >= TwiddleTables::kLargeBits;
    const std::size_t stages = isLarge ? pBitCount - kColumnBits : pBitCount;
    for (std::size_t bits = kHeadBits + 1; bits <= stages; ++bits)
        if (!pTables.stage[bits])
            pTables.stage[bits] = makeStage(pInverse, bits);
    if (isLarge && !pTables.columns[pBitCount])
        pTables.columns[pBitCount] = makeColumns(pInverse, pBitCount);
}

}  // namespace

// Whoever transforms a length for the first time in the process waits here for others that do;
// later on only the bit is read.
const TwiddleTables& twiddleTables(bool pInverse, std::size_t pBitCount)
{
    static Direction directions[2];
    static std::mutex mutex;
    Direction& direction = directions[pInverse ? 1 : 0];
    const std::uint64_t length = std::uint64_t(1) << pBitCount;
    if (!(direction.lengths.load(std::memory_order_acquire) & length)) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (direction.lengths.load(std::memory_order_relaxed) == 0)
            fillHead(direction.tables.head, pInverse);
        complete(direction.tables, pInverse, pBitCount);
        direction.lengths.fetch_or(length, std::memory_order_release);
    }
    return direction.tables;
}

}  // namespace detail
