// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>

namespace detail {

/// The factors e^(-i j a), j = 0, 1, 2, ..., of one stage of angle a, each from the two before it:
/// w(j) = 2 cos(a) w(j - 1) - w(j - 2). Only the two seeds, w(-1) and w(-2), need a sine and a
/// cosine.
class TwiddleRecurrence
{
public:
    explicit TwiddleRecurrence(double pAngle)
        : m_cosine1(std::cos(pAngle)), m_sine1(std::sin(pAngle)),
          m_cosine2(std::cos(pAngle + pAngle)), m_sine2(std::sin(pAngle + pAngle)),
          m_factor(2.0 * m_cosine1)
    {
        restart();
    }

    /// Back to before w(0).
    void restart()
    {
        m_previousReal = m_cosine2;
        m_previousImaginary = m_sine2;
        m_real = m_cosine1;
        m_imaginary = m_sine1;
    }

    void advance()
    {
        const double real = m_factor * m_real - m_previousReal;
        const double imaginary = m_factor * m_imaginary - m_previousImaginary;
        m_previousReal = m_real;
        m_previousImaginary = m_imaginary;
        m_real = real;
        m_imaginary = imaginary;
    }

    double real() const { return m_real; }
    double imaginary() const { return m_imaginary; }

private:
    double m_cosine1;
    double m_sine1;
    double m_cosine2;
    double m_sine2;
    double m_factor;
    double m_previousReal = 0.0;
    double m_previousImaginary = 0.0;
    double m_real = 0.0;
    double m_imaginary = 0.0;
};

/// Combines the two halves of one block of pSpan values in place.
inline void
runBlock(double* pReal, double* pImaginary, std::size_t pSpan, TwiddleRecurrence& pTwiddles)
{
    const std::size_t half = pSpan / 2;
    pTwiddles.restart();
    for (std::size_t j = 0; j < half; ++j) {
        pTwiddles.advance();
        const std::size_t k = j + half;
        const double real = pTwiddles.real() * pReal[k] - pTwiddles.imaginary() * pImaginary[k];
        const double imaginary =
            pTwiddles.imaginary() * pReal[k] + pTwiddles.real() * pImaginary[k];
        pReal[k] = pReal[j] - real;
        pImaginary[k] = pImaginary[j] - imaginary;
        pReal[j] = pReal[j] + real;
        pImaginary[j] = pImaginary[j] + imaginary;
    }
}

/// All stages over pLength values, a power of two or 0, that stand in bit-reversed order. In place,
/// natural order afterwards, not scaled in either direction.
inline void runButterflies(double* pReal, double* pImaginary, std::size_t pLength, bool pInverse)
{
    constexpr double kFullCircle = 6.283185307179586;
    // Intended: the forward transform turns by +2 pi / N, although most conventions give that sign
    // to the inverse. With w(j) = e^(-i j a) it takes a negative angle here.
    const double circle = pInverse ? kFullCircle : -kFullCircle;
    for (std::size_t span = 2; span <= pLength; span *= 2) {
        TwiddleRecurrence twiddles(circle / static_cast<double>(span));
        for (std::size_t block = 0; block < pLength; block += span)
            runBlock(pReal + block, pImaginary + block, span, twiddles);
    }
}

}  // namespace detail
