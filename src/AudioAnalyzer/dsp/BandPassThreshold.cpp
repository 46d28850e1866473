// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>
#include <AudioAnalyzer/dsp/detail/BinRanges.h>
#include <AudioAnalyzer/dsp/detail/LengthSelection.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double kPi = 3.141592653589793;
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

}  // namespace

BandPassThreshold::~BandPassThreshold()
{
    delete[] m_pReal;
    delete[] m_pImaginary;
}

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
        verdict = _DecideByHalfTransform(pSamples);
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
    m_chunk = static_cast<int>(std::max<std::size_t>(m_length / m_highBin / 3, 1));
    _MakeTwiddles();
    _MakeKernel();
    // Once through each way that has arrays of its own, so that none is made in the midst of music.
    pTransform.Compute(pSamples, m_count);
    _DecideByHalfTransform(pSamples);
}

/// The filter keeps bins L to H - 1 and, mirrored one bin off, N - H to N - L - 1. The real part of
/// their inverse is a sum of cosines in which the edges L and H count half; this is its closed
/// form.
void BandPassThreshold::_MakeKernel()
{
    const double step = 2.0 * kPi / static_cast<double>(m_length);
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

void BandPassThreshold::_MakeTwiddles()
{
    const double step = 2.0 * kPi / static_cast<double>(m_length);
    m_cosines.clear();
    m_sines.clear();
    for (std::size_t k = m_lowBin; k <= m_highBin; ++k) {
        m_cosines.push_back(std::cos(step * static_cast<double>(k)));
        m_sines.push_back(std::sin(step * static_cast<double>(k)));
    }
    m_even.assign((m_count + 1) / 2, 0);
    m_odd.assign((m_count + 1) / 2, 0);
    m_packedReal.assign(m_length / 2, 0.0);
    m_packedImaginary.assign(m_length / 2, 0.0);
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
    struct Candidate
    {
        qint32 sum;
        std::size_t index;
    };
    std::array<Candidate, kSegments> candidates{};
    const std::size_t chunk = static_cast<std::size_t>(m_chunk);
    const std::size_t chunks = m_count / chunk;
    for (std::size_t i = 0; i < chunks; ++i) {
        qint32 sum = 0;
        for (std::size_t j = 0; j < chunk; ++j)
            sum += pSamples[i * chunk + j];
        Candidate& best = candidates[i * kSegments / chunks];
        if (sum > best.sum)
            best = {sum, i * chunk + chunk / 2};
    }
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

/// All of the filtered signal, by transforms of half the length: even samples travel as real parts,
/// odd ones as imaginary parts. Leaves open only what lies within the error of the threshold.
BandPassThreshold::Verdict BandPassThreshold::_DecideByHalfTransform(const qint16* pSamples)
{
    for (std::size_t i = 0; i < m_count / 2; ++i) {
        m_even[i] = pSamples[2 * i];
        m_odd[i] = pSamples[2 * i + 1];
    }
    if (m_count % 2 == 1)
        m_even.back() = pSamples[m_count - 1];
    FastFourierTransform::Compute(
        m_even.data(), m_odd.data(), m_even.size(), m_pReal, m_pImaginary, m_resultCount, false);
    _FilterHalfSpectrum();
    FastFourierTransform::Compute(m_packedReal.data(),
                                  m_packedImaginary.data(),
                                  m_packedReal.size(),
                                  m_pReal,
                                  m_pImaginary,
                                  m_resultCount,
                                  true);
    double greatest = 0.0;
    bool isAbove = false;
    for (std::size_t i = 0; i < m_count; ++i) {
        const double value = i % 2 == 0 ? m_pReal[i / 2] : m_pImaginary[i / 2];
        greatest = std::max(greatest, std::fabs(value));
        isAbove |= _IsAbove(value);
    }
    if (isAbove)
        return Verdict::eAbove;
    return greatest < m_ceiling ? Verdict::eNotAbove : Verdict::eOpen;
}

/// From the transform Z of even + i odd: the spectrum X of the block in the band, filtered, and
/// from it the transform W of the filtered even + i odd. With phi = 2 pi k / N and M = N/2:
///     X(k) = (Z(k) + conj Z(M-k)) / 2 + e^(i phi) (Z(k) - conj Z(M-k)) / 2i
///     W(k) = X(k) (1 + i e^(-i phi)) / 2,   W(M-k) = conj X(k) (1 + i e^(i phi)) / 2
void BandPassThreshold::_FilterHalfSpectrum()
{
    const std::size_t half = m_length / 2;
    for (std::size_t k = m_lowBin; k <= m_highBin; ++k) {
        const double c = m_cosines[k - m_lowBin];
        const double s = m_sines[k - m_lowBin];
        const bool isEdge = k == m_lowBin || k == m_highBin;
        const double weight = isEdge ? 0.25 : 0.5;
        const double evenReal = m_pReal[k] + m_pReal[half - k];
        const double evenImaginary = m_pImaginary[k] - m_pImaginary[half - k];
        const double oddReal = m_pImaginary[k] + m_pImaginary[half - k];
        const double oddImaginary = m_pReal[half - k] - m_pReal[k];
        const double real = 0.5 * weight * (evenReal + c * oddReal - s * oddImaginary);
        const double imaginary = 0.5 * weight * (evenImaginary + c * oddImaginary + s * oddReal);
        m_packedReal[k] = real * (1.0 + s) - imaginary * c;
        m_packedImaginary[k] = real * c + imaginary * (1.0 + s);
        m_packedReal[half - k] = real * (1.0 - s) + imaginary * c;
        m_packedImaginary[half - k] = real * c - imaginary * (1.0 - s);
    }
}
