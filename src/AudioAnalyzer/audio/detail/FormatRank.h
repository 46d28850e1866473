// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace detail {

constexpr quint32 kBestRate = 48000;       // Hz
constexpr quint32 kRateRatioUnits = 1024;  // a rate ratio of 1 in the rank's units
constexpr quint32 kBestRateTerm = 0xFFFFFFFF;
constexpr quint16 kBestTerm = 0xFFFF;  // 16 bits, mono
constexpr int kFirstMultiChannelTerm = 32768;

/// Bits 0 to 15: 16 before 32 before 8 bits; 0 for a size that cannot be used.
constexpr quint16 SizeTerm(int pSampleSize)
{
    switch (pSampleSize) {
    case 16:
        return kBestTerm;
    case 32:
    case 8:
        return static_cast<quint16>(pSampleSize);
    default:
        return 0;
    }
}

/// Bits 16 to 31: mono far ahead, then the fewer channels the better.
constexpr quint16 ChannelTerm(int pChannelCount)
{
    return pChannelCount == 1 ? kBestTerm
                              : static_cast<quint16>(kFirstMultiChannelTerm - pChannelCount);
}

/// Bits 32 to 63: the ratio between the rate (Hz, at least 1) and 48000 Hz, taken from all ones.
/// Intended: a rate above is measured by 1024 r / 48000 and a rate below by 1024 * 48000 / r, so
/// that 50000 Hz ranks before 44100 Hz and 32000 Hz before 96000 Hz. The product wraps at 32 bits.
constexpr quint32 RateTerm(quint32 pSampleRate)
{
    if (pSampleRate == kBestRate)
        return kBestRateTerm;
    return pSampleRate < kBestRate ? kBestRateTerm - kRateRatioUnits * kBestRate / pSampleRate
                                   : kBestRateTerm - pSampleRate * kRateRatioUnits / kBestRate;
}

/// Preference of a recording format, the greater the better; 0 = unusable. Rate in Hz, size in
/// bits.
constexpr quint64 FormatRank(int pSampleRate, int pSampleSize, int pChannelCount)
{
    const quint16 sizeTerm = SizeTerm(pSampleSize);
    if (sizeTerm == 0 || pChannelCount < 1 || pSampleRate < 1)
        return 0;
    return quint64{RateTerm(static_cast<quint32>(pSampleRate))} << 32 |
           quint64{ChannelTerm(pChannelCount)} << 16 | sizeTerm;
}

}  // namespace detail
