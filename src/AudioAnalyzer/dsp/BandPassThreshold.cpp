// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BandAngles.h>
#include <AudioAnalyzer/dsp/detail/BandGrid.h>
#include <AudioAnalyzer/dsp/detail/BandSpectrum.h>
#include <AudioAnalyzer/dsp/detail/BinRanges.h>
#include <AudioAnalyzer/dsp/detail/LengthSelection.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t kLeastLength = 4096;  // below, the full transform is cheap
constexpr std::size_t kSegments = 8;        // of a block, each with its own candidate
constexpr std::size_t kCandidates = 3;      // that are worth a look before a transform

/// What rounding can do, as a share of the block's norm: docs/stop-decision.md.
double ErrorBound(std::size_t pLength)
{
    const double length = static_cast<double>(pLength);
    return 4.0 * length * length * (std::numeric_limits<double>::epsilon() / 2.0);
}

double Norm(const qint16* pSamples, std::size_t pCount)
{
    qint64 sum = 0;
    for (std::size_t i = 0; i < pCount; ++i) {
        const qint32 square = pSamples[i] * pSamples[i];
        sum += square;
    }
    return std::sqrt(static_cast<double>(sum));
}

/// The sum of pSamples[i] pKernel[i]; pStep -1 walks the samples backwards.
template <int pStep>
double Dot(const qint16* pSamples, const double* pKernel, std::size_t pCount)
{
    constexpr std::size_t kLanes = 8;
    std::array<double, kLanes> sums{};
    std::size_t i = 0;
    for (; i + kLanes <= pCount; i += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            sums[lane] +=
                pKernel[i + lane] * pSamples[pStep * static_cast<std::ptrdiff_t>(i + lane)];
    double sum = 0.0;
    for (; i < pCount; ++i)
        sum += pKernel[i] * pSamples[pStep * static_cast<std::ptrdiff_t>(i)];
    for (double laneSum : sums)
        sum += laneSum;
    return sum;
}

struct Candidate
{
    qint32 sum;
    std::size_t index;
};

/// The middle of the chunk with the highest positive sum, of pChunks chunks from pFirst on.
Candidate
HighestChunk(const qint16* pSamples, std::size_t pFirst, std::size_t pChunks, std::size_t pChunk)
{
    Candidate best{0, pFirst};
    for (std::size_t i = 0; i < pChunks; ++i) {
        const std::size_t start = pFirst + i * pChunk;
        qint32 sum = 0;
        for (std::size_t j = 0; j < pChunk; ++j)
            sum += pSamples[start + j];
        if (sum > best.sum)
            best = {sum, start + pChunk / 2};
    }
    return best;
}

}  // namespace

BandPassThreshold::BandPassThreshold() = default;

BandPassThreshold::~BandPassThreshold() = default;

bool BandPassThreshold::RisesAbove(const qint16* pSamples,
                                   std::size_t pCount,
                                   const Question& pQuestion,
                                   FastFourierTransform& pTransform)
{
    if (!_ChooseBins(pCount, pQuestion))
        return RisesAboveByTransform(pSamples, pCount, pQuestion, pTransform);
    if (m_kernel.empty())
        _Prepare(pSamples, pTransform);
    _SetLimits(pSamples, pQuestion.threshold);
    Verdict verdict = _DecideByEnergy();
    if (verdict == Verdict::eOpen)
        verdict = _DecideByPeaks(pSamples);
    if (verdict == Verdict::eOpen)
        verdict = _DecideBySpectrum(pSamples);
    if (verdict == Verdict::eOpen)
        return RisesAboveByTransform(pSamples, pCount, pQuestion, pTransform);
    return verdict == Verdict::eAbove;
}

bool BandPassThreshold::RisesAboveByTransform(const qint16* pSamples,
                                              std::size_t pCount,
                                              const Question& pQuestion,
                                              FastFourierTransform& pTransform)
{
    pTransform.Compute(pSamples, pCount);
    pTransform.BandPassFilter(pQuestion.lowHz, pQuestion.highHz, pQuestion.sampleRate);
    short* pFiltered = nullptr;
    size_t count = 0;
    pTransform.ComputeInverse(pFiltered, count);
    return std::any_of(pFiltered, pFiltered + count, [&pQuestion](short sample) {
        return sample > pQuestion.threshold;
    });
}

/// False for what the cheap ways are not made for: short blocks, wide bands, negative thresholds.
bool BandPassThreshold::_ChooseBins(std::size_t pCount, const Question& pQuestion)
{
    const std::size_t length = detail::lengthOfBits(detail::selectBitCount(pCount));
    const int nyquist = pQuestion.sampleRate >> 1;
    if (length < kLeastLength || pQuestion.threshold < 0 || pQuestion.highHz < 1 ||
        nyquist <= std::max(pQuestion.lowHz, 0))
        return false;
    const std::size_t low = detail::bandPassCut(pQuestion.lowHz, nyquist, length / 2);
    const std::size_t high = detail::bandPassKeep(pQuestion.highHz, nyquist, length / 2);
    if (low < 1 || low >= high || high >= length / 4)
        return false;
    if (pCount != m_count || low != m_lowBin || high != m_highBin)
        m_kernel.clear();
    m_count = pCount;
    m_length = length;
    m_lowBin = low;
    m_highBin = high;
    return true;
}

void BandPassThreshold::_Prepare(const qint16* pSamples, FastFourierTransform& pTransform)
{
    m_chunk = std::max<std::size_t>(m_length / m_highBin / 3, 1);
    _MakeKernel();
    _MakeGrids();
    // Once through each way that has arrays of its own, so that none is made in the midst of music.
    pTransform.Compute(pSamples, m_count);
    m_pSpectrum->Compute(pSamples, m_count);
    m_pCoarseGrid->Compute(*m_pSpectrum);
    m_pFineGrid->Compute(*m_pSpectrum);
}

/// The filter keeps bins L to H - 1 and, mirrored one bin off, N - H to N - L - 1. The real part of
/// their inverse is a sum of cosines in which the edges L and H count half; this is its closed
/// form.
void BandPassThreshold::_MakeKernel()
{
    const double step = 2.0 * detail::kPi / static_cast<double>(m_length);
    const auto sine = [this, step](std::size_t pBin, std::size_t pIndex) {
        return std::sin(step * static_cast<double>(pBin * pIndex % m_length));
    };
    m_kernel.resize(m_count);
    m_kernel[0] = 2.0 * static_cast<double>(m_highBin - m_lowBin) / static_cast<double>(m_length);
    for (std::size_t i = 1; i < m_count; ++i)
        m_kernel[i] =
            (sine(m_highBin, i) - sine(m_lowBin, i)) /
            (std::tan(0.5 * step * static_cast<double>(i)) * static_cast<double>(m_length));
}

void BandPassThreshold::_MakeGrids()
{
    std::size_t step = 1;
    while (m_length / (2 * step) > 4 * m_highBin)
        step *= 2;
    m_pSpectrum = std::make_unique<detail::BandSpectrum>(m_length, m_lowBin, m_highBin);
    m_pCoarseGrid = std::make_unique<detail::BandGrid>(m_length, m_lowBin, m_highBin, step);
    m_pFineGrid = std::make_unique<detail::BandGrid>(m_length, m_lowBin, m_highBin, 1);
}

/// The full transform truncates toward zero and keeps 16 bits. A value from threshold + 1 up to
/// below 32768 becomes a sample above the threshold; one of smaller magnitude than threshold + 1
/// does not.
void BandPassThreshold::_SetLimits(const qint16* pSamples, qint16 pThreshold)
{
    m_norm = Norm(pSamples, m_count);
    const double error = ErrorBound(m_length) * m_norm;
    m_ceiling = pThreshold + 1.0 - error;
    m_floor = pThreshold + 1.0 + error;
    m_roof = 32768.0 - error;
}

bool BandPassThreshold::_IsAbove(double pFiltered) const
{
    return m_floor <= pFiltered && pFiltered < m_roof;
}

/// No filtered value exceeds the norm of the block times the norm of the kernel.
BandPassThreshold::Verdict BandPassThreshold::_DecideByEnergy() const
{
    const double bins = 2.0 * static_cast<double>(m_highBin - m_lowBin);
    const double kernelNorm = std::sqrt(bins / static_cast<double>(m_length));
    return m_norm * kernelNorm < m_ceiling ? Verdict::eNotAbove : Verdict::eOpen;
}

/// Looks at the filtered signal where the raw one is high for longer than a high frequency lasts.
BandPassThreshold::Verdict BandPassThreshold::_DecideByPeaks(const qint16* pSamples) const
{
    std::array<Candidate, kSegments> candidates{};
    const std::size_t chunks = m_count / m_chunk / kSegments;
    for (std::size_t i = 0; i < kSegments; ++i)
        candidates[i] = HighestChunk(pSamples, i * chunks * m_chunk, chunks, m_chunk);
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return a.sum > b.sum;
    });
    for (std::size_t i = 0; i < kCandidates; ++i)
        if (_IsAbove(_FilteredSample(pSamples, candidates[i].index)))
            return Verdict::eAbove;
    return Verdict::eOpen;
}

double BandPassThreshold::_FilteredSample(const qint16* pSamples, std::size_t pIndex) const
{
    return Dot<1>(pSamples + pIndex, m_kernel.data(), m_count - pIndex) +
           (pIndex > 0 ? Dot<-1>(pSamples + pIndex - 1, m_kernel.data() + 1, pIndex) : 0.0);
}

/// All of the filtered signal: first from a few points of it, then from every sample. Leaves open
/// only what lies within the error of the threshold.
BandPassThreshold::Verdict BandPassThreshold::_DecideBySpectrum(const qint16* pSamples)
{
    m_pSpectrum->Compute(pSamples, m_count);
    const Verdict verdict = _DecideOnGrid(*m_pCoarseGrid);
    const bool isFiner = m_pFineGrid->step() < m_pCoarseGrid->step();
    return verdict == Verdict::eOpen && isFiner ? _DecideOnGrid(*m_pFineGrid) : verdict;
}

BandPassThreshold::Verdict BandPassThreshold::_DecideOnGrid(detail::BandGrid& pGrid) const
{
    pGrid.Compute(*m_pSpectrum);
    const std::size_t ownPoints = (m_count + pGrid.step() - 1) / pGrid.step();
    for (std::size_t i = 0; i < ownPoints; ++i)
        if (_IsAbove(pGrid.at(i)))
            return Verdict::eAbove;
    double greatest = 0.0;
    for (std::size_t i = 0; i < pGrid.size(); ++i)
        greatest = std::max(greatest, std::fabs(pGrid.at(i)));
    return greatest < pGrid.leastShare() * m_ceiling ? Verdict::eNotAbove : Verdict::eOpen;
}
