// SPDX-License-Identifier: MIT
#include "Scenario.h"

#include <algorithm>

namespace model {

namespace {

constexpr int commonRates[] = {8000, 11025, 16000, 22050, 32000, 44100, 48000, 88200, 96000};
constexpr std::size_t maximalSamples = 900000;

template <typename T, std::size_t count>
T pick(waves::Random& random, const T (&values)[count])
{
    return values[random.below(count)];
}

int drawSampleRate(waves::Random& random)
{
    if (random.chance(0.06))
        return random.between(60, 400);  // blocks of 2 to 8 samples
    return random.chance(0.25) ? random.between(400, 96000) : pick(random, commonRates);
}

}  // namespace

Scenario::Scenario(std::uint64_t seed) : m_random(seed)
{
    sampleRate = drawSampleRate(m_random);
    drawSettings();
    drawSamples();
    drawSteps();
    drawReactions();
}

Profile Scenario::drawProfile()
{
    static constexpr int lows[] = {-1, 0, 0, 1, 20, 60, 200, 3000, 30000};
    static constexpr int highs[] = {-1, 0, 1, 75, 75, 150, 150, 1000, 8000, 60000};
    Profile profile;
    if (m_random.chance(0.3))
        return profile;
    profile.filterLow = pick(m_random, lows);
    profile.filterHigh = pick(m_random, highs);
    profile.sensibility = m_random.chance(0.1) ? m_random.uniform(-3, 0) : m_random.uniform(0, 3);
    profile.maximalThreshold = m_random.chance(0.2) ? m_random.between(0, 3000) : 32000;
    profile.minimalBPM = m_random.uniform(30, 200);
    profile.maximalBPM = profile.minimalBPM + m_random.uniform(-60, 250);
    return profile;
}

double Scenario::drawValue(Action::Kind kind)
{
    switch (kind) {
    case Action::Kind::SetFixedBPM:
        return m_random.chance(0.4) ? m_random.uniform(-5, 0) : m_random.uniform(20, 400);
    case Action::Kind::AllowConsistency:
    case Action::Kind::DisplayVirtualBeats:
        return m_random.between(0, 1);
    case Action::Kind::SetAverageDuration:
        return m_random.chance(0.1) ? m_random.uniform(-1, 0.001) : m_random.uniform(0.001, 4);
    case Action::Kind::SetStopDuration:
        return m_random.chance(0.15) ? 0 : m_random.uniform(0.02, 2.5);
    case Action::Kind::SetStopThreshold:
        return m_random.chance(0.3) ? m_random.between(-100, 100) : m_random.between(0, 12000);
    case Action::Kind::SetThreshold:
        return m_random.chance(0.5) ? -m_random.between(1, 9) : m_random.between(0, 20000);
    case Action::Kind::SetBPMDuration:
        return m_random.uniform(0, 15);
    case Action::Kind::EditSensibility:
        return m_random.uniform(0, 4);
    case Action::Kind::EditMaximalThreshold:
        return m_random.between(0, 32767);
    default:
        return 0;
    }
}

Action Scenario::drawAction()
{
    Action action;
    action.kind = pick(m_random, allActions).kind;
    action.value = drawValue(action.kind);
    action.profile = drawProfile();
    return action;
}

void Scenario::drawSettings()
{
    settings.pProfile = std::make_shared<Profile>(drawProfile());
    settings.stopDuration = m_random.chance(0.5) ? 1.5 : m_random.uniform(0.02, 2.5);
    settings.displayVirtualBeatsWhenStopped = m_random.chance(0.3);
    if (m_random.chance(0.5)) {
        settings.threshold = m_random.chance(0.5) ? -1 : m_random.between(0, 12000);
        settings.stopThreshold = m_random.between(-200, 8000);
        settings.averageDuration = m_random.uniform(0.05, 4);
        settings.bpmDuration = m_random.uniform(0, 15);
    }
    if (m_random.chance(0.3))
        settings.stopThreshold = 0;  // exactly what silence reaches
}

Samples Scenario::drawBursts(std::size_t count)
{
    Samples segment = waves::silence(count);
    const int bursts = m_random.between(1, 30);
    for (int i = 0; i < bursts; ++i) {
        waves::Kick shape;
        shape.frequency = m_random.uniform(20, 4000);
        shape.decay = m_random.uniform(0.01, 1);
        shape.amplitude = m_random.uniform(500, 32767);
        shape.duration = m_random.uniform(0.01, 0.6);
        waves::mix(segment, m_random.below(count), waves::kick(sampleRate, shape));
    }
    return segment;
}

/// The two ends of the range, by turns or at random.
Samples Scenario::drawExtremes(std::size_t count)
{
    Samples segment(count);
    const std::size_t period = m_random.chance(0.3) ? 0 : m_random.below(2000) + 1;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isHigh = period == 0 ? m_random.chance(0.5) : i / period % 2 == 0;
        segment[i] = isHigh ? 32767 : -32768;
    }
    return segment;
}

Samples Scenario::drawSegment()
{
    const double seconds =
        m_random.chance(0.2) ? m_random.uniform(10, 25) : m_random.uniform(0.2, 8);
    const std::size_t count = waves::toCount(seconds, sampleRate) + 1;
    switch (m_random.below(10)) {
    case 0:
        return waves::silence(count);
    case 1:
        return waves::noise(count, m_random.between(1, 32767), m_random);
    case 2:
        return waves::constant(count, static_cast<qint16>(m_random.between(-32768, 32767)));
    case 3:
        return drawExtremes(count);
    case 4:
        return drawBursts(count);
    default:
        waves::Kick shape;
        shape.frequency = m_random.uniform(40, 100);
        shape.amplitude = m_random.uniform(3000, 32767);
        return waves::kickTrack(seconds, sampleRate, m_random.uniform(50, 220), shape);
    }
}

void Scenario::drawSamples()
{
    const std::size_t wanted =
        std::min(waves::toCount(m_random.uniform(5, 45), sampleRate), maximalSamples);
    while (samples.size() < wanted)
        waves::append(samples, drawSegment());
    samples.resize(std::min(samples.size(), maximalSamples));
}

std::size_t Scenario::drawBatchSize(int mode)
{
    switch (mode) {
    case 0:
        return m_random.below(4);
    case 1:
        return m_random.below(3 * static_cast<std::size_t>(sampleRate)) + 1;
    default:
        return m_random.below(static_cast<std::size_t>(sampleRate) / 10 + 2);
    }
}

void Scenario::drawSteps()
{
    const int usualMode = m_random.between(1, 4);
    std::size_t at = 0;
    if (m_random.chance(0.85)) {
        steps.emplace_back();
        steps.back().actions.push_back(Action());  // Start
    }
    while (at < samples.size()) {
        const int mode = m_random.chance(0.05) ? m_random.between(0, 2) : usualMode;
        Step step;
        step.batchSize = std::min(drawBatchSize(mode), samples.size() - at);
        const double seconds = static_cast<double>(step.batchSize) / sampleRate;
        while (m_random.chance(std::min(0.5, seconds * 0.15)))
            step.actions.push_back(drawAction());
        step.clockJump = m_random.chance(0.003) ? m_random.below(12000000) : 0;
        at += step.batchSize;
        steps.push_back(step);
    }
}

void Scenario::drawReactions()
{
    static constexpr SignalKind kinds[] = {SignalKind::AmplitudesComputed,
                                           SignalKind::AnalysisStarted,
                                           SignalKind::AnalysisStopped,
                                           SignalKind::AudioSamplesAnalyzed,
                                           SignalKind::Beat,
                                           SignalKind::BPMChanged,
                                           SignalKind::PulseDetected};
    if (m_random.chance(0.5))
        return;
    const int count = m_random.between(1, 5);
    for (int i = 0; i < count; ++i) {
        Reaction reaction;
        reaction.kind = pick(m_random, kinds);
        reaction.occurrence = m_random.below(60) + 1;
        reaction.action = drawAction();
        reactions.push_back(reaction);
    }
}

QString Scenario::toString() const
{
    const Profile& profile = *settings.pProfile;
    return QStringLiteral("%1 Hz, %2 samples in %3 steps, %4 reactions; profile %5..%6 Hz, "
                          "sensibility %7, %8..%9 BPM; threshold %10, stop %11 s")
        .arg(sampleRate)
        .arg(samples.size())
        .arg(steps.size())
        .arg(reactions.size())
        .arg(profile.filterLow)
        .arg(profile.filterHigh)
        .arg(profile.sensibility)
        .arg(profile.minimalBPM)
        .arg(profile.maximalBPM)
        .arg(settings.threshold)
        .arg(settings.stopDuration);
}

}  // namespace model
