// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Counts the allocations of the calling thread while it lives.
///
/// Linking aa_test_allocation replaces malloc and its relatives in the whole test executable, the
/// shared libraries included, by forwarders to the C library that count. Guards do not nest. Not
/// for builds with sanitizers, which replace malloc themselves.
class AllocationGuard
{
public:
    AllocationGuard();
    ~AllocationGuard();
    AllocationGuard(const AllocationGuard&) = delete;
    AllocationGuard& operator=(const AllocationGuard&) = delete;

    /// Allocations on this thread since the construction; a realloc counts as one.
    static std::size_t getCount();
    /// Bytes asked for by the allocation of that number, counted from 0; 0 beyond the first 64.
    static std::size_t getSize(std::size_t number);
};
