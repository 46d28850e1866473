// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/dsp/FrequencyBandAmplitude.h>

#include <QtGlobal>

#include <cstddef>

/// Radix-2 Fourier transform that keeps its spectrum for filtering in place.
///
/// Conventions:
///   forward  X[k] = sum over n of x[n] e^(+2 pi i n k / N), not scaled;
///   inverse  x[n] = 1/N times the sum over k of X[k] e^(-2 pi i n k / N).
/// N is the smallest power of two not below the sample count; the block is padded with zeros.
///
/// The usual order of calls for a block is Compute(), optionally getAmplitudes(), one filter,
/// ComputeInverse().
///
/// Every array that is returned stays owned by the object. Copy what must be kept.
///
/// Threads: one thread at a time; objects are independent of each other.
class AUDIOANALYZER_EXPORT FastFourierTransform
{
public:
    FastFourierTransform();
    ~FastFourierTransform();
    FastFourierTransform(const FastFourierTransform&) = delete;
    FastFourierTransform& operator=(const FastFourierTransform&) = delete;

    // ---- Transform: FastFourierTransform.cpp ----------------------------------------------------

    /// Transforms pCount mono samples, which are only read, into the kept spectrum, and marks the
    /// amplitude spectrum stale. Any count will do.
    /// [allocates on size change] [audio path: no allocation while N stays]
    void Compute(const short* pAudioSamples, size_t pCount);

    /// Transforms the kept spectrum back, leaving it as it is. Sets pAudioSamples to the object's
    /// output and pCount to the sample count of the last Compute() (0, and null, before the first).
    /// Values are truncated toward zero and cut to their low 16 bits: no rounding, no saturation.
    /// [audio path: no allocation] [valid until the next Compute of another N, ComputeInverse,
    /// Reset]
    void ComputeInverse(short*& pAudioSamples, size_t& pCount);

    /// Back to the constructed state: frees every array and forgets the history size.
    void Reset();

    /// In-place butterflies on pLength values, a power of two, that stand in bit-reversed order;
    /// the result is in natural order, divided by pLength when pInverse is set. [no allocation]
    static void _Compute(double* pReal, double* pImaginary, size_t pLength, bool pInverse);

    /// The low pBits bits of pIndex in reverse order; 0 for no bits.
    static size_t _ComputeBitReversedIndex(size_t pIndex, size_t pBits);

    /// Transforms pCount values of the caller; pImaginary may be null, all imaginary inputs being
    /// 0. The caller owns pOutReal and pOutImaginary, arrays of pOutCount values, and frees them
    /// with delete[]. They are replaced when N differs from pOutCount or one of them is null, else
    /// reused; they may not overlap the inputs. Defined for T = short and T = double.
    /// [allocates on size change]
    template <typename T>
    static void Compute(const T* pReal,
                        const T* pImaginary,
                        size_t pCount,
                        double*& pOutReal,
                        double*& pOutImaginary,
                        size_t& pOutCount,
                        bool pInverse);

    // ---- Filters: FastFourierTransformFilters.cpp -----------------------------------------------

    // Brick walls on the kept spectrum. Frequencies and sample rates in Hz. Each marks the
    // amplitude spectrum stale, also when it zeroes nothing. A sample rate below 2 leaves the
    // spectrum unless a bound alone already empties it. [audio path: no allocation]

    /// Zeroes the bins outside pLow to pHigh; all of them when pHigh < 1 or when pLow is not below
    /// Nyquist.
    void BandPassFilter(int pLow, int pHigh, int pSampleRate);
    /// Zeroes the bins below pLow; all of them when pLow is not below Nyquist, none for pLow <= 0.
    void HighPassFilter(int pLow, int pSampleRate);
    /// Zeroes the bins above pHigh; all of them when pHigh < 1.
    void LowPassFilter(int pHigh, int pSampleRate);

    // ---- Amplitudes: FastFourierTransformAmplitudes.cpp -----------------------------------------

    // With M = N/2 amplitudes and H half the sample rate, bin i covers [i H/M, (i+1) H/M) Hz.

    /// Power of the bins 0 to N/2 - 1, divided by the greatest power in the history of maxima.
    /// Every call on a stale spectrum records that spectrum's peak in the history, once. Null
    /// before the first transform. [allocates on size change] [valid until a call after N changed,
    /// Reset]
    double* getAmplitudes();
    /// Refreshes like getAmplitudes(); the number of amplitudes, N/2.
    size_t getAmplitudesCount();
    /// Amplitude of bin pIndex; its edges in Hz through the pointers that are not null.
    /// -1.0, and nothing stored, for a bin that does not exist or a rate that is not positive.
    double
    getAmplitude(int pIndex, double pSampleRate, double* pLowFrequency, double* pHighFrequency);
    /// Bin of a frequency in Hz; -1 when it is negative or not below half of pSampleRate, 0 while
    /// there are no amplitudes.
    int getIndex(double pFrequency, double pSampleRate);
    /// N/2 - 1; the largest size_t while N is 0.
    size_t getMaximalIndex() const;
    /// The pMaxCount strongest bins with at least pMinimalAmplitude, in order of discovery with
    /// replacements in place. Sets pResult to the object's records, or to null with the result 0.
    /// [allocates on size change] [valid until the next FindMaximalAmplitudes, Reset]
    size_t FindMaximalAmplitudes(size_t pMaxCount,
                                 int pSampleRate,
                                 FrequencyBandAmplitude*& pResult,
                                 double pMinimalAmplitude);
    /// Number of recent maxima that normalise the amplitudes; 0, the default, keeps one all-time
    /// maximum. True when it changed, which empties the history.
    bool setLastMaximalAmplitudesSize(size_t pSize);
    /// The same from a duration in seconds at pRate Hz with blocks of pBlockLength samples: as many
    /// maxima as half-lengths of the transform fit into the duration. False for a block
    /// length of 0.
    bool setLastMaximalAmplitudesSize(int pRate, double pDuration, size_t pBlockLength);

    double _getMaximalAmplitude() const;
    bool _setMaximalAmplitude(double pValue);

private:
    void _Allocate(size_t pBitCount);
    void _FreeTransform();
    void _ZeroBins(size_t pFirst, size_t pEnd);
    void _ZeroAll();
    void _ResizeAmplitudes();
    double _ComputePowers();
    void _ResizeBands(size_t pCapacity);

    double* m_pAmplitudes;        ///< owned, m_amplitudesCount values; null until first computed
    size_t m_amplitudesCount;     ///< N/2 when last computed
    size_t m_bitCount;            ///< log2 N
    bool m_isSpectrumStale;       ///< the amplitudes must be computed anew
    double* m_pImaginary;         ///< owned, N values, natural order
    double* m_pReal;              ///< owned, N values, natural order
    size_t m_length;              ///< N; 0 until the first allocation
    double* m_pInverseImaginary;  ///< owned, N values, scratch of the inverse
    double* m_pInverseReal;       ///< owned, N values, scratch of the inverse
    double* m_pMaximums;          ///< owned, history of spectrum maxima; null until first used
    bool m_isHistoryFull;         ///< the history has wrapped at least once
    size_t m_historyPosition;     ///< next slot of the history
    size_t m_historySize;         ///< slots; 0 = one all-time maximum
    FrequencyBandAmplitude* m_pBands;  ///< owned, results of FindMaximalAmplitudes
    size_t m_bandsCapacity;            ///< records
    qint16* m_pInverseSamples;         ///< owned, N samples, output of ComputeInverse
    size_t m_sampleCount;              ///< samples of the last Compute
};

extern template AUDIOANALYZER_EXPORT void FastFourierTransform::Compute<short>(
    const short*, const short*, size_t, double*&, double*&, size_t&, bool);
extern template AUDIOANALYZER_EXPORT void FastFourierTransform::Compute<double>(
    const double*, const double*, size_t, double*&, double*&, size_t&, bool);
