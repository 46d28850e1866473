// SPDX-License-Identifier: MIT
#include <demo/SceneNoise.h>

#include <cmath>

namespace {

constexpr double kLoud = 0.1 * 1.7320508;           ///< peak of even noise of -20 dBFS
constexpr double kFaint = 0.000177828 * 1.7320508;  ///< of -75 dBFS
constexpr std::size_t kHands = 24;
constexpr double kClapSeconds = 0.06;
constexpr double kClapsPerSecond = 500.0;  ///< at the loudest
constexpr double kSwellSeconds = 40.0;     ///< from one silence to the next

}  // namespace

const std::vector<eSceneNoise>& getSceneNoises()
{
    static const std::vector<eSceneNoise> noises = {
        eSceneSilence, eSceneHiss, eSceneWhite, eScenePink, eSceneHum, eSceneApplause};
    return noises;
}

QString getSceneNoiseName(eSceneNoise pNoise)
{
    switch (pNoise) {
    case eSceneSilence:
        return QStringLiteral("silence");
    case eSceneHiss:
        return QStringLiteral("hiss");
    case eSceneWhite:
        return QStringLiteral("white-noise");
    case eScenePink:
        return QStringLiteral("pink-noise");
    case eSceneHum:
        return QStringLiteral("hum");
    case eSceneApplause:
        break;
    }
    return QStringLiteral("applause");
}

SceneNoise::SceneNoise(eSceneNoise pNoise) : m_kind(pNoise)
{
    if (pNoise == eSceneApplause)
        _MakeClaps();
}

/// Each pair of hands has a pitch and a loudness of its own.
void SceneNoise::_MakeClaps()
{
    const auto length = std::size_t(kClapSeconds * kRate);
    m_ahead.assign(length, 0.0f);
    for (std::size_t i = 0; i < kHands; ++i) {
        demo::Filter filter(kRate);
        demo::Envelope decay(kRate, 0.006 + 0.006 * std::abs(m_noise.Next()));
        filter.setCutoff(700.0 + 1900.0 * std::abs(m_noise.Next()), 1.5);
        decay.Trigger(0.15 + 0.45 * std::abs(m_noise.Next()));
        std::vector<float> clap(length);
        for (float& sample : clap) {
            filter.Process(m_noise.Next());
            sample = float(filter.getBand() * decay.Next());
        }
        m_claps.push_back(clap);
    }
}

void SceneNoise::Read(float* pSamples, std::size_t pCount)
{
    for (std::size_t i = 0; i < pCount; ++i) {
        pSamples[i] = float(_Next());
        m_time += 1.0 / kRate;
    }
}

double SceneNoise::_Next()
{
    switch (m_kind) {
    case eSceneSilence:
        return 0.0;
    case eSceneHiss:
        return kFaint * m_noise.Next();
    case eSceneWhite:
        return kLoud * m_noise.Next();
    case eScenePink:
        return _NextPink();
    case eSceneHum:
        return _NextHum();
    case eSceneApplause:
        break;
    }
    return _NextApplause();
}

/// White noise through three low-passes whose sum falls by 3 dB an octave.
double SceneNoise::_NextPink()
{
    const double white = m_noise.Next();
    m_pink[0] = 0.99765 * m_pink[0] + 0.0990460 * white;
    m_pink[1] = 0.96300 * m_pink[1] + 0.2965164 * white;
    m_pink[2] = 0.57000 * m_pink[2] + 1.0526913 * white;
    return 0.1 * (m_pink[0] + m_pink[1] + m_pink[2] + 0.1848 * white);
}

double SceneNoise::_NextHum()
{
    const double phase = demo::kTwoPi * 50.0 * m_time;
    return 0.1 * std::sin(phase) + 0.05 * std::sin(2.0 * phase) + 0.02 * std::sin(3.0 * phase);
}

double SceneNoise::_NextApplause()
{
    // Below 0 for a third of the time, in which nobody claps.
    const double swell = 0.5 - std::cos(demo::kTwoPi * m_time / kSwellSeconds);
    const double chance = kClapsPerSecond / kRate * swell / 1.5;
    if (0.5 + 0.5 * m_noise.Next() < chance) {
        const auto hands = std::size_t((0.5 + 0.5 * m_noise.Next()) * double(kHands));
        for (std::size_t i = 0; i < m_ahead.size(); ++i)
            m_ahead[(m_position + i) % m_ahead.size()] += m_claps[hands][i];
    }
    const double sample = m_ahead[m_position];
    m_ahead[m_position] = 0.0f;
    m_position = (m_position + 1) % m_ahead.size();
    return std::tanh(sample);
}
