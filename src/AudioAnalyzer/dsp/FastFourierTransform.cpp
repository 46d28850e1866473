// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BitReversal.h>
#include <AudioAnalyzer/dsp/detail/Butterflies.h>
#include <AudioAnalyzer/dsp/detail/LengthSelection.h>

#include <algorithm>

namespace {

template <typename T>
void freeArray(T*& pArray)
{
    delete[] pArray;
    pArray = nullptr;
}

// Intended: truncated toward zero and cut to the low 16 bits. Rounding or saturating here would
// change which blocks reach a threshold. The cast to int cannot overflow: a spectrum made by
// Compute() and only zeroed since gives |x| <= sqrt(N) 2^15 (Parseval), below 2^31 for every N that
// fits into memory.
qint16 toSample(double pValue)
{
    return static_cast<qint16>(static_cast<qint32>(pValue));
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
    if (m_length > 0) {
        detail::scatterBitReversed(pAudioSamples, pCount, m_bitCount, m_pReal);
        std::fill_n(m_pImaginary, m_length, 0.0);
        detail::runButterflies(m_pReal, m_pImaginary, m_length, false);
    }
    m_sampleCount = pCount;
    m_isSpectrumStale = true;
}

void FastFourierTransform::ComputeInverse(short*& pAudioSamples, size_t& pCount)
{
    if (m_length > 0) {
        detail::scatterBitReversed(m_pReal, m_length, m_bitCount, m_pInverseReal);
        detail::scatterBitReversed(m_pImaginary, m_length, m_bitCount, m_pInverseImaginary);
        _Compute(m_pInverseReal, m_pInverseImaginary, m_length, true);
        std::transform(m_pInverseReal, m_pInverseReal + m_sampleCount, m_pInverseSamples, toSample);
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
    detail::runButterflies(pReal, pImaginary, pLength, pInverse);
    if (!pInverse)
        return;
    const double divisor = static_cast<double>(pLength);
    for (size_t i = 0; i < pLength; ++i) {
        pReal[i] /= divisor;
        pImaginary[i] /= divisor;
    }
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
    detail::scatterBitReversed(pReal, pCount, bitCount, pOutReal);
    detail::scatterBitReversed(pImaginary, pCount, bitCount, pOutImaginary);
    _Compute(pOutReal, pOutImaginary, length, pInverse);
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
    m_pImaginary = new double[length];
    m_pReal = new double[length];
    m_pInverseImaginary = new double[length];
    m_pInverseReal = new double[length];
    m_pInverseSamples = new qint16[length];
    m_bitCount = pBitCount;
    m_length = length;
}

void FastFourierTransform::_FreeTransform()
{
    freeArray(m_pImaginary);
    freeArray(m_pReal);
    freeArray(m_pInverseImaginary);
    freeArray(m_pInverseReal);
    freeArray(m_pInverseSamples);
    m_bitCount = 0;
    m_length = 0;
    m_sampleCount = 0;
}
