// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <new>

/// Doubles that begin at a cache line, as the transform's own arrays do.
class AlignedValues
{
public:
    explicit AlignedValues(std::size_t pSize) : m_values(new (std::align_val_t(64)) double[pSize]())
    {
    }

    double* data() const { return m_values.get(); }
    double& operator[](std::size_t pIndex) const { return m_values[pIndex]; }

private:
    struct Delete
    {
        void operator()(double* pValues) const { operator delete[](pValues, std::align_val_t(64)); }
    };
    std::unique_ptr<double[], Delete> m_values;
};
