// SPDX-License-Identifier: MIT
#include <demo/DemoTrack.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFadeSeconds = 0.01;  ///< before a stop and at the end
constexpr int kStepsPerBar = 16;

/// Am, F, C, G: one bar each.
constexpr demo::Chords::Notes kChords[] = {
    {57, 60, 64, 69}, {57, 60, 65, 69}, {55, 60, 64, 67}, {55, 59, 62, 67}};
constexpr int kRoots[] = {45, 41, 48, 43};
/// Loudness of a stab on each sixteenth of a bar.
constexpr double kStabs[] = {0, 0, 0, 1, 0, 0, 0.9, 0, 0, 0, 0, 1, 0, 0, 0.9, 0};
/// Chord tone of the lead on each sixteenth of a bar; -1 = rest.
constexpr int kArpeggio[] = {3, -1, 2, 1, -1, 3, -1, 2, 0, -1, 2, -1, 3, 1, -1, 2};

}  // namespace

DemoTrack::Band::Band(double pRate, double pEchoSeconds)
    : kick(pRate), hats(pRate), clap(pRate), bass(pRate), chords(pRate), drone(pRate),
      lead(pRate, pEchoSeconds), riserFilter(pRate), duck(pRate, 0.11)
{
    riserFilter.setCutoff(500.0, 1.5);
}

DemoTrack::DemoTrack(const Options& pOptions)
    : m_arrangement(pOptions.bpm), m_sampleRate(pOptions.sampleRate),
      m_duration(pOptions.duration > 0.0 ? pOptions.duration : m_arrangement.getPassDuration()),
      m_frameCount(quint64(std::llround(m_duration * m_sampleRate))), m_band(_MakeBand())
{
}

quint64 DemoTrack::_FrameOfStep(quint64 pStep) const
{
    return quint64(std::llround(m_arrangement.getStepTime(pStep) * m_sampleRate));
}

DemoTrack::Band DemoTrack::_MakeBand() const
{
    return {double(m_sampleRate), m_arrangement.getStepTime(3)};
}

std::size_t DemoTrack::Read(float* pFrames, std::size_t pCount)
{
    const auto count = std::size_t(std::min<quint64>(pCount, m_frameCount - m_frame));
    for (std::size_t i = 0; i < count; ++i) {
        if (m_frame == m_stepFrame)
            _PlayStep();
        _Mix(pFrames + 2 * i);
        ++m_frame;
    }
    return count;
}

void DemoTrack::_PlayStep()
{
    const DemoArrangement::Position position = m_arrangement.getPosition(m_step);
    if (position.sectionStep == 0)
        _BeginSection();
    _PlayDrums(m_layers, position.sectionStep);
    _PlayNotes(m_layers, position.sectionStep);
    ++m_step;
    m_stepFrame = _FrameOfStep(m_step);
}

void DemoTrack::_BeginSection()
{
    const DemoSection& section = *m_arrangement.getPosition(m_step).section;
    const quint64 end = m_step + quint64(section.beats * DemoArrangement::kStepsPerBeat);
    const bool isStopNext = (m_arrangement.getPosition(end).section->layers & eDemoStop) != 0;
    m_layers = section.layers;
    m_sectionFrame = m_frame;
    m_sectionEnd = _FrameOfStep(end);
    m_fadeEnd = isStopNext ? std::min(m_sectionEnd, m_frameCount) : m_frameCount;
    if ((m_layers & eDemoStop) != 0)
        m_band = _MakeBand();
}

void DemoTrack::_PlayDrums(unsigned pLayers, int pSectionStep)
{
    const int step = pSectionStep % DemoArrangement::kStepsPerBeat;
    const bool isHit = (pLayers & eDemoHit) != 0 && pSectionStep == 0;
    if (isHit || ((pLayers & eDemoKick) != 0 && step == 0)) {
        m_band.kick.Trigger();
        m_band.duck.Trigger(1.0);
    }
    if ((pLayers & eDemoHats) != 0)
        m_band.hats.Trigger(step == 2 ? 0.5 : 0.25 + 0.07 * (step % 3), step == 2);
    if (isHit)
        m_band.hats.Trigger(0.8, true);
    if ((pLayers & eDemoClap) != 0 && pSectionStep % 8 == 4)
        m_band.clap.Trigger();
}

void DemoTrack::_PlayNotes(unsigned pLayers, int pSectionStep)
{
    const int bar = pSectionStep / kStepsPerBar % 4;
    const int step = pSectionStep % kStepsPerBar;
    if ((pLayers & eDemoBass) != 0 && (step % 4 == 2 || step == 15))
        m_band.bass.Trigger(step == 15 ? kRoots[bar] + 12 : kRoots[bar]);
    if ((pLayers & eDemoStabs) != 0 && kStabs[step] > 0.0)
        m_band.chords.Trigger(kChords[bar], kStabs[step], 0.16);
    if ((pLayers & eDemoPad) != 0 && step == 0)
        m_band.chords.Trigger(kChords[bar], 0.9, 6.0);
    if ((pLayers & eDemoHit) != 0 && pSectionStep == 0)
        m_band.chords.Trigger(kChords[0], 1.0, 0.5);
    if ((pLayers & eDemoLead) != 0 && kArpeggio[step] >= 0)
        m_band.lead.Trigger(kChords[bar][std::size_t(kArpeggio[step])] + 12);
}

void DemoTrack::_Mix(float* pFrame)
{
    const double duck = 1.0 - 0.85 * m_band.duck.Next();
    if (m_frame % 16 == 0) {
        const double progress = _GetSectionProgress();
        m_band.chords.setCutoff(_GetChordCutoff(progress));
        m_band.riserFilter.setCutoff(400.0 + 7000.0 * progress * progress, 1.5);
    }
    const double hats = 0.28 * m_band.hats.Next();
    const double center = 0.82 * m_band.kick.Next() + 0.3 * m_band.clap.Next() +
                          0.45 * duck * m_band.bass.Next() +
                          0.2 * m_band.drone.Next((m_layers & eDemoPad) != 0) + _MixRiser();
    double left = center + 0.8 * hats;
    double right = center + hats;
    m_band.chords.Mix(0.15 * duck, left, right);
    m_band.lead.Mix(0.22 * duck, left, right);
    const double gain = demo::kPeak * _GetFade();
    pFrame[0] = float(gain * std::tanh(demo::kDrive * left));
    pFrame[1] = float(gain * std::tanh(demo::kDrive * right));
}

/// Pads open up through the breakdown, Hz.
double DemoTrack::_GetChordCutoff(double pProgress) const
{
    if ((m_layers & eDemoPad) == 0)
        return 2400.0;
    return (m_layers & eDemoRiser) != 0 ? 1700.0 + 2500.0 * pProgress : 700.0 + 1000.0 * pProgress;
}

double DemoTrack::_MixRiser()
{
    m_band.riserFilter.Process(m_band.riserNoise.Next());
    if ((m_layers & eDemoRiser) == 0)
        return 0.0;
    const double progress = _GetSectionProgress();
    return 0.35 * progress * progress * m_band.riserFilter.getBand();
}

/// 0 at the section's start, 1 at its end.
double DemoTrack::_GetSectionProgress() const
{
    return double(m_frame - m_sectionFrame) / double(m_sectionEnd - m_sectionFrame);
}

/// 1 in the music, falling to 0 right before a stop and the end, 0 in a stop.
double DemoTrack::_GetFade() const
{
    if ((m_layers & eDemoStop) != 0)
        return 0.0;
    return std::min(1.0, double(m_fadeEnd - m_frame) / (kFadeSeconds * m_sampleRate));
}
