// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>

/// Logarithm and exponential that give the same bits on every machine.
///
/// The ones of the C library depend on its version and on the processor. These are made of single
/// additions, multiplications and divisions, which are the same everywhere, and compilers turn
/// loops over them into vector code. Relative errors stay below 4e-7.
namespace elementary {

/// pFrom's bits as a To of the same size.
template <typename To, typename From>
inline To reinterpretBits(From pFrom)
{
    static_assert(sizeof(To) == sizeof(From), "a cast of bits keeps the size");
    To value;
    std::memcpy(&value, &pFrom, sizeof value);
    return value;
}

/// ln(pValue) for positive normal numbers.
inline float naturalLog(float pValue)
{
    constexpr float kLn2 = 0.693147181F;
    constexpr std::int32_t kHalfRootBits = 0x3f3504f3;  ///< of sqrt(1/2)
    const auto bits = reinterpretBits<std::int32_t>(pValue);
    const std::int32_t exponent = (bits - kHalfRootBits) >> 23;
    const float mantissa = reinterpretBits<float>(bits - exponent * (1 << 23));
    // ln m = 2 artanh((m - 1) / (m + 1)) for m from sqrt(1/2) to sqrt(2).
    const float s = (mantissa - 1.0F) / (mantissa + 1.0F);
    const float q = s * s;
    const float series = ((q * (1.0F / 9.0F) + 1.0F / 7.0F) * q + 1.0F / 5.0F) * q + 1.0F / 3.0F;
    return 2.0F * s * (1.0F + q * series) + static_cast<float>(exponent) * kLn2;
}

/// e^pValue for values from -80 to 80.
inline float exponential(float pValue)
{
    constexpr float kLog2e = 1.44269504F;
    constexpr float kLn2High = 0.693359375F;
    constexpr float kLn2Low = -2.12194440e-4F;
    const float shifted = pValue * kLog2e + 128.5F;
    const auto exponent = static_cast<std::int32_t>(shifted) - 128;
    const auto n = static_cast<float>(exponent);
    const float r = pValue - n * kLn2High - n * kLn2Low;
    float sum = 1.0F / 720.0F;
    sum = sum * r + 1.0F / 120.0F;
    sum = sum * r + 1.0F / 24.0F;
    sum = sum * r + 1.0F / 6.0F;
    sum = sum * r + 0.5F;
    sum = sum * r + 1.0F;
    sum = sum * r + 1.0F;
    return sum * reinterpretBits<float>((exponent + 127) << 23);
}

}  // namespace elementary
