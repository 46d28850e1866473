// SPDX-License-Identifier: MIT
#pragma once

/// Ordering and equality of T from one operation.
///
/// CompareTo() returns a negative number when this object sorts before pOther, 0 when both count as
/// equal, and a positive number otherwise. Lists sort with operator< and search with operator==.
template <typename T>
class Comparable
{
public:
    virtual int CompareTo(const T& pOther) const = 0;
    virtual ~Comparable() = default;

    bool operator<(const T& pOther) const { return CompareTo(pOther) < 0; }
    bool operator==(const T& pOther) const { return CompareTo(pOther) == 0; }

protected:
    Comparable() = default;
    Comparable(const Comparable&) = default;
    Comparable& operator=(const Comparable&) = default;
};
