// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <vector>

class FastFourierTransform;

namespace detail {
class BandGrid;
class BandSpectrum;
}  // namespace detail

/// Decides whether a band-passed block rises above a threshold: exactly as the full transform does,
/// and nearly always without it.
///
/// The question is whether any sample of Compute(), BandPassFilter(), ComputeInverse() is greater
/// than the threshold. Cheaper ways to the filtered signal answer it first, each only where it is
/// farther from the threshold than everything that rounding can do; docs/stop-decision.md proves
/// the bound. What they leave open goes through the full transform.
///
/// Threads: one thread at a time.
class AUDIOANALYZER_EXPORT BandPassThreshold
{
public:
    /// A band in Hz, the rate of the samples in Hz, and the line as a 16-bit sample value.
    struct Question
    {
        int lowHz;
        int highHz;
        int sampleRate;
        qint16 threshold;
    };

    BandPassThreshold();
    ~BandPassThreshold();
    BandPassThreshold(const BandPassThreshold&) = delete;
    BandPassThreshold& operator=(const BandPassThreshold&) = delete;

    /// True when a filtered sample is greater than the threshold. pTransform answers what the cheap
    /// ways leave open; its contents are not defined afterwards.
    /// [allocates on size change] [audio path: no allocation while count, band and rate stay]
    bool RisesAbove(const qint16* pSamples,
                    std::size_t pCount,
                    const Question& pQuestion,
                    FastFourierTransform& pTransform);

    /// The plain way.
    static bool RisesAboveByTransform(const qint16* pSamples,
                                      std::size_t pCount,
                                      const Question& pQuestion,
                                      FastFourierTransform& pTransform);

private:
    enum class Verdict
    {
        eAbove,
        eNotAbove,
        eOpen
    };

    bool _ChooseBins(std::size_t pCount, const Question& pQuestion);
    void _Prepare(const qint16* pSamples, FastFourierTransform& pTransform);
    void _MakeKernel();
    void _MakeGrids();
    void _SetLimits(const qint16* pSamples, qint16 pThreshold);
    Verdict _DecideByEnergy() const;
    Verdict _DecideByPeaks(const qint16* pSamples) const;
    Verdict _DecideBySpectrum(const qint16* pSamples);
    Verdict _DecideOnGrid(detail::BandGrid& pGrid) const;
    double _FilteredSample(const qint16* pSamples, std::size_t pIndex) const;
    bool _IsAbove(double pFiltered) const;

    std::size_t m_count = 0;    ///< samples of a block
    std::size_t m_length = 0;   ///< N of the full transform
    std::size_t m_lowBin = 0;   ///< L: the first bin that passes
    std::size_t m_highBin = 0;  ///< H: the first bin above the band
    std::size_t m_chunk = 0;    ///< samples that are summed to find where the signal is high

    double m_norm = 0.0;     ///< Euclidean norm of the block
    double m_ceiling = 0.0;  ///< filtered magnitudes below it are not above the threshold
    double m_floor = 0.0;    ///< filtered values from here ...
    double m_roof = 0.0;     ///< ... to here are above the threshold

    std::vector<double> m_kernel;  ///< response to an impulse, m_count values; empty = to be made
    std::unique_ptr<detail::BandSpectrum> m_pSpectrum;
    std::unique_ptr<detail::BandGrid> m_pCoarseGrid;
    std::unique_ptr<detail::BandGrid> m_pFineGrid;  ///< every sample
};
