// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

/// True when the fields of an object stand in memory in the given order.
template <typename... Fields>
bool AreInOrder(const Fields&... pFields)
{
    const std::uintptr_t addresses[] = {reinterpret_cast<std::uintptr_t>(&pFields)...};
    return std::is_sorted(std::begin(addresses), std::end(addresses));
}
