// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>

namespace detail {

/// The pIndex-th T at pData, in the machine's byte order and without asking for alignment.
template <typename T>
T NativeSample(const char* pData, std::size_t pIndex)
{
    T sample;
    std::memcpy(&sample, pData + pIndex * sizeof(T), sizeof(T));
    return sample;
}

}  // namespace detail
