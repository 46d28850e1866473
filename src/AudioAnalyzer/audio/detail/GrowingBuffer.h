// SPDX-License-Identifier: MIT
#pragma once

namespace detail {

/// Replaces an owned array by one of exactly pWanted entries when it is smaller; its content is
/// lost. Frees before it allocates, and leaves an empty buffer behind when the allocation throws.
template <typename T, typename Size>
void EnsureCapacity(T*& pBuffer, Size& pCapacity, Size pWanted)
{
    if (pCapacity >= pWanted)
        return;
    delete[] pBuffer;
    pBuffer = nullptr;
    pCapacity = 0;
    pBuffer = new T[pWanted];
    pCapacity = pWanted;
}

}  // namespace detail
