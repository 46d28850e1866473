// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <cstddef>

namespace detail {

/// Owner of the arrays that FastFourierTransform::Compute() makes.
class TransformResult
{
public:
    TransformResult() = default;
    ~TransformResult()
    {
        delete[] m_pReal;
        delete[] m_pImaginary;
    }
    TransformResult(const TransformResult&) = delete;
    TransformResult& operator=(const TransformResult&) = delete;

    /// [allocates on size change]
    template <typename T>
    void Compute(const T* pReal, const T* pImaginary, std::size_t pCount, bool pInverse)
    {
        FastFourierTransform::Compute(
            pReal, pImaginary, pCount, m_pReal, m_pImaginary, m_count, pInverse);
    }

    const double* real() const { return m_pReal; }
    const double* imaginary() const { return m_pImaginary; }

private:
    double* m_pReal = nullptr;       ///< owned, m_count values
    double* m_pImaginary = nullptr;  ///< owned, m_count values
    std::size_t m_count = 0;
};

}  // namespace detail
