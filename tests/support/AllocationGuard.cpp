// SPDX-License-Identifier: MIT
#include "AllocationGuard.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

#define TEST_EXPORT extern "C" __attribute__((visibility("default")))

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* pBlock, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

constexpr std::size_t keptSizes = 64;

thread_local bool isArmed = false;
thread_local std::size_t allocations = 0;
thread_local std::size_t sizes[keptSizes] = {};

void count(std::size_t size)
{
    if (!isArmed)
        return;
    if (allocations < keptSizes)
        sizes[allocations] = size;
    ++allocations;
}

void* allocateAligned(std::size_t alignment, std::size_t size)
{
    count(size);
    return __libc_memalign(alignment, size);
}

}  // namespace

AllocationGuard::AllocationGuard()
{
    allocations = 0;
    isArmed = true;
}

AllocationGuard::~AllocationGuard()
{
    isArmed = false;
}

std::size_t AllocationGuard::getCount()
{
    return allocations;
}

std::size_t AllocationGuard::getSize(std::size_t number)
{
    return number < allocations && number < keptSizes ? sizes[number] : 0;
}

TEST_EXPORT void* malloc(std::size_t size) noexcept
{
    count(size);
    return __libc_malloc(size);
}

TEST_EXPORT void* calloc(std::size_t elements, std::size_t size) noexcept
{
    count(elements * size);
    return __libc_calloc(elements, size);
}

TEST_EXPORT void* realloc(void* pBlock, std::size_t size) noexcept
{
    count(size);
    return __libc_realloc(pBlock, size);
}

TEST_EXPORT void* reallocarray(void* pBlock, std::size_t elements, std::size_t size) noexcept
{
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(elements, size, &bytes)) {
        errno = ENOMEM;
        return nullptr;
    }
    count(bytes);
    return __libc_realloc(pBlock, bytes);
}

TEST_EXPORT void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return allocateAligned(alignment, size);
}

TEST_EXPORT void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return allocateAligned(alignment, size);
}

TEST_EXPORT int posix_memalign(void** ppBlock, std::size_t alignment, std::size_t size) noexcept
{
    const bool isPowerOfTwo = alignment != 0 && (alignment & (alignment - 1)) == 0;
    if (!isPowerOfTwo || alignment % sizeof(void*) != 0)
        return EINVAL;
    void* pBlock = allocateAligned(alignment, size);
    if (pBlock == nullptr)
        return ENOMEM;
    *ppBlock = pBlock;
    return 0;
}

TEST_EXPORT void* valloc(std::size_t size) noexcept
{
    return allocateAligned(static_cast<std::size_t>(getpagesize()), size);
}
