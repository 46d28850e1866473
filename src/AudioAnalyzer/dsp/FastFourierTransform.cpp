// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BitReversal.h>
#include <AudioAnalyzer/dsp/detail/LengthSelection.h>
#include <AudioAnalyzer/dsp/detail/Transform.h>

#include <new>

namespace {

template <typename T>
void freeArray(T*& pArray)
{
    delete[] pArray;
    pArray = nullptr;
}

// Spectra and work arrays begin at a cache line, so that no vector lies across two.
constexpr std::align_val_t kCacheLine{64};

double* newAligned(size_t pLength)
{
    return new (kCacheLine) double[pLength];
}

void freeAligned(double*& pArray)
{
    operator delete[](pArray, kCacheLine);
    pArray = nullptr;
}

}  // namespace

FastFourierTransform::FastFourierTransform()
    : m_pAmplitudes(nullptr), m_amplitudesCount(0), m_bitCount(0), m_isSpectrumStale(true),
      m_pImaginary(nullptr), m_pReal(nullptr), m_length(0), m_pInverseImaginary(nullptr),
      m_pInverseReal(nullptr), m_pMaximums(nullptr), m_isHistoryFull(false), m_historyPosition(0),
      m_historySize(0), m_pBands(nullptr), m_bandsCapacity(0), m_pInverseSamples(nullptr),
      m_sampleCount(0)
{
}

FastFourierTransform::~FastFourierTransform()
{
    Reset();
}

void FastFourierTransform::Compute(const short* pAudioSamples, size_t pCount)
{
    const size_t bitCount = detail::selectBitCount(pCount);
    const bool needsArrays = m_length == 0 && pCount > 0;
    if (bitCount != m_bitCount || needsArrays)
        _Allocate(bitCount);
    if (m_length > 0)
        detail::transform(pAudioSamples, nullptr, pCount, m_bitCount, false, m_pReal, m_pImaginary);
    m_sampleCount = pCount;
    m_isSpectrumStale = true;
}

// Intended: the samples are truncated toward zero and cut to the low 16 bits. Rounding or
// saturating here would change which blocks reach a threshold. The step through int cannot
// overflow: a spectrum made by Compute() and only zeroed since gives |x| <= sqrt(N) 2^15
// (Parseval), below 2^31 for every N that fits into memory.
void FastFourierTransform::ComputeInverse(short*& pAudioSamples, size_t& pCount)
{
    if (m_length > 0) {
        detail::transform(
            m_pReal, m_pImaginary, m_length, m_bitCount, true, m_pInverseReal, m_pInverseImaginary);
        detail::truncateToSamples(m_pInverseReal, m_sampleCount, m_pInverseSamples);
    }
    pAudioSamples = m_pInverseSamples;
    pCount = m_sampleCount;
}

void FastFourierTransform::Reset()
{
    _FreeTransform();
    freeArray(m_pAmplitudes);
    freeArray(m_pMaximums);
    freeArray(m_pBands);
    m_amplitudesCount = 0;
    m_isSpectrumStale = true;
    m_isHistoryFull = false;
    m_historyPosition = 0;
    m_historySize = 0;
    m_bandsCapacity = 0;
}

void FastFourierTransform::_Compute(double* pReal,
                                    double* pImaginary,
                                    size_t pLength,
                                    bool pInverse)
{
    if (pLength > 0)
        detail::transformReversed(pReal, pImaginary, detail::selectBitCount(pLength), pInverse);
}

size_t FastFourierTransform::_ComputeBitReversedIndex(size_t pIndex, size_t pBits)
{
    return detail::reverseBits(pIndex, pBits);
}

template <typename T>
void FastFourierTransform::Compute(const T* pReal,
                                   const T* pImaginary,
                                   size_t pCount,
                                   double*& pOutReal,
                                   double*& pOutImaginary,
                                   size_t& pOutCount,
                                   bool pInverse)
{
    const size_t bitCount = detail::selectBitCount(pCount);
    const size_t length = detail::lengthOfBits(bitCount);
    if (length != pOutCount || !pOutReal || !pOutImaginary) {
        pOutCount = length;
        freeArray(pOutReal);
        freeArray(pOutImaginary);
        pOutReal = new double[length];
        pOutImaginary = new double[length];
    }
    detail::transform(pReal, pImaginary, pCount, bitCount, pInverse, pOutReal, pOutImaginary);
}

template void FastFourierTransform::Compute<short>(
    const short*, const short*, size_t, double*&, double*&, size_t&, bool);
template void FastFourierTransform::Compute<double>(
    const double*, const double*, size_t, double*&, double*&, size_t&, bool);

// The length is set last: an allocation that fails leaves an object without arrays, not half of
// one.
void FastFourierTransform::_Allocate(size_t pBitCount)
{
    _FreeTransform();
    const size_t length = detail::lengthOfBits(pBitCount);
    m_pImaginary = newAligned(length);
    m_pReal = newAligned(length);
    m_pInverseImaginary = newAligned(length);
    m_pInverseReal = newAligned(length);
    m_pInverseSamples = new qint16[length];
    detail::prepareTransform(pBitCount);
    m_bitCount = pBitCount;
    m_length = length;
}

void FastFourierTransform::_FreeTransform()
{
    freeAligned(m_pImaginary);
    freeAligned(m_pReal);
    freeAligned(m_pInverseImaginary);
    freeAligned(m_pInverseReal);
    freeArray(m_pInverseSamples);
    m_bitCount = 0;
    m_length = 0;
    m_sampleCount = 0;
}
