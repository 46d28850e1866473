// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/Elementary.h>
#include <AudioAnalyzer/dsp/OnsetLevels.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kWindowSeconds = 2048.0 / 44100.0;
constexpr float kCompression = 100.0F;
constexpr float kLeastMeanSquare = 1e-9F;  ///< the loudness of a sample's last bit
constexpr float kLoudnessFrames = 500.0F;  ///< memory of the running mean square
constexpr float kRiseFrames = 400.0F;      ///< memory of the running mean rise
constexpr float kLeastRise = 0.001F;
constexpr float kLevelEdges[] = {0.05F, 0.2F, 0.45F, 0.8F, 1.3F, 2.0F, 3.0F, 4.5F, 7.0F};

/// Bits of the transform's length: the window may be a tenth shorter than wished, not longer.
std::size_t bitCountFor(double pSampleRate)
{
    std::size_t bits = 6;
    while (static_cast<double>(std::size_t(1) << bits) < 0.9 * kWindowSeconds * pSampleRate)
        ++bits;
    return bits;
}

std::size_t windowSizeFor(double pSampleRate)
{
    return std::min(std::size_t(1) << bitCountFor(pSampleRate),
                    static_cast<std::size_t>(kWindowSeconds * pSampleRate + 0.5));
}

double binWidthFor(double pSampleRate)
{
    return pSampleRate / static_cast<double>(std::size_t(1) << bitCountFor(pSampleRate));
}

std::size_t binCountFor(double pSampleRate)
{
    const double highest = std::min(detail::kHighestBand, 0.5 * pSampleRate);
    return static_cast<std::size_t>(highest / binWidthFor(pSampleRate));
}

}  // namespace

OnsetLevels::OnsetLevels(int pSampleRate)
    : m_sampleRate(pSampleRate),
      m_spectrum(windowSizeFor(pSampleRate), bitCountFor(pSampleRate), binCountFor(pSampleRate)),
      m_bands(detail::makeSemitoneBands(binWidthFor(pSampleRate), 0.5 * pSampleRate)),
      m_binScale(
          static_cast<float>(static_cast<double>(windowSizeFor(pSampleRate)) /
                             static_cast<double>(std::size_t(1) << bitCountFor(pSampleRate)))),
      m_samples(m_spectrum.getWindowSize()), m_sums(m_bands.size()), m_values(m_bands.size())
{
    for (std::vector<float>& past : m_past)
        past.resize(m_bands.size());
    for (const detail::SemitoneBand& band : m_bands)
        m_bandCounts[band.range] += 1.0F;
    Reset();
}

void OnsetLevels::Reset()
{
    std::fill(m_samples.begin(), m_samples.end(), qint16(0));
    m_frameCount = 0;
    m_isFrameComplete = false;
    m_frameSize = m_missing = getFrameEnd(1);
    m_meanSquare = m_frameMeanSquare = 0.0F;
    m_rises = m_meanRises = m_strengths = {};
    m_levels = {};
}

quint64 OnsetLevels::getFrameEnd(quint64 pFrame) const
{
    return pFrame * static_cast<quint64>(m_sampleRate) / kFramesPerSecond;
}

std::size_t OnsetLevels::Push(const qint16* pSamples, std::size_t pCount)
{
    if (m_missing == m_frameSize)
        std::copy(m_samples.begin() + static_cast<std::ptrdiff_t>(m_frameSize),
                  m_samples.end(),
                  m_samples.begin());
    const std::size_t taken = std::min(pCount, m_missing);
    std::copy_n(pSamples, taken, m_samples.end() - static_cast<std::ptrdiff_t>(m_missing));
    m_missing -= taken;
    m_isFrameComplete = m_missing == 0;
    if (m_isFrameComplete)
        _CompleteFrame();
    return taken;
}

void OnsetLevels::_CompleteFrame()
{
    ++m_frameCount;
    const float gain = _FollowLoudness();
    m_spectrum.Compute(m_samples.data());
    _CompressBands(gain);
    _MeasureRise();
    _RankRise();
    m_frameSize = m_missing =
        static_cast<std::size_t>(getFrameEnd(m_frameCount + 1) - getFrameEnd(m_frameCount));
}

// Returns the gain that brings the music of the last seconds to a mean square of 1.
float OnsetLevels::_FollowLoudness()
{
    constexpr float kFullScale = 32768.0F;
    // Whole numbers, so that the order of the sum does not matter.
    qint64 sum = 0;
    for (std::size_t i = m_samples.size() - m_frameSize; i < m_samples.size(); ++i)
        sum += qint64(m_samples[i]) * m_samples[i];
    m_frameMeanSquare =
        static_cast<float>(sum) / (static_cast<float>(m_frameSize) * kFullScale * kFullScale);
    const float step = std::max(1.0F / kLoudnessFrames, 1.0F / static_cast<float>(m_frameCount));
    m_meanSquare += step * (m_frameMeanSquare - m_meanSquare);
    return 1.0F / std::sqrt(std::max(m_meanSquare, kLeastMeanSquare));
}

void OnsetLevels::_CompressBands(float pGain)
{
    const float factor = kCompression * pGain * m_binScale;
    const std::vector<float>& magnitudes = m_spectrum.getMagnitudes();
    for (std::size_t i = 0; i < m_bands.size(); ++i) {
        float sum = 0.0F;
        for (std::size_t bin = m_bands[i].firstBin; bin < m_bands[i].endBin; ++bin)
            sum += magnitudes[bin];
        m_sums[i] = 1.0F + factor * sum;
    }
    for (std::size_t i = 0; i < m_sums.size(); ++i)
        m_values[i] = elementary::naturalLog(m_sums[i]);
}

void OnsetLevels::_MeasureRise()
{
    std::vector<float>& past = m_past[m_frameCount % kLag];
    m_rises = {};
    if (m_frameCount > kLag)
        for (std::size_t i = 0; i < m_bands.size(); ++i)
            m_rises[m_bands[i].range] += std::max(0.0F, m_values[i] - past[i]);
    for (std::size_t i = 0; i < m_bands.size(); ++i) {
        const float below = m_values[i == 0 ? i : i - 1];
        const float above = m_values[i + 1 == m_values.size() ? i : i + 1];
        past[i] = std::max({below, m_values[i], above});
    }
}

void OnsetLevels::_RankRise()
{
    const float step = std::max(1.0F / kRiseFrames, 1.0F / static_cast<float>(m_frameCount));
    for (std::size_t range = 0; range < kRangeCount; ++range) {
        if (m_bandCounts[range] == 0.0F) {
            m_levels[range] = m_levels[range - 1];
            continue;
        }
        const float rise = m_rises[range] / m_bandCounts[range];
        m_meanRises[range] += step * (rise - m_meanRises[range]);
        m_strengths[range] = rise / (m_meanRises[range] + kLeastRise);
        m_levels[range] = static_cast<quint8>(
            std::upper_bound(std::begin(kLevelEdges), std::end(kLevelEdges), m_strengths[range]) -
            std::begin(kLevelEdges));
    }
}
