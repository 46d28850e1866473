// SPDX-License-Identifier: MIT
#include <demo/DemoArrangement.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kBeatsPerBar = 4;

int getStopBeats(double pBPM)
{
    const double barDuration = kBeatsPerBar * 60.0 / pBPM;
    return kBeatsPerBar * int(std::ceil(DemoArrangement::kMinimalStopDuration / barDuration));
}

}  // namespace

DemoArrangement::DemoArrangement(double pBPM) : m_bpm(pBPM)
{
    const unsigned drums = eDemoKick | eDemoHats;
    const unsigned groove = drums | eDemoClap | eDemoBass;
    m_sections = {
        {8, drums},
        {8, drums | eDemoBass},
        {16, groove | eDemoStabs},
        {16, groove | eDemoStabs | eDemoLead},
        {8, eDemoPad},
        {8, eDemoPad | eDemoLead | eDemoRiser},
        {32, groove | eDemoStabs | eDemoLead},
        {getStopBeats(pBPM), eDemoStop},
        {16, groove | eDemoStabs},
        {4, eDemoHit},
    };
    for (const DemoSection& section : m_sections)
        m_passSteps += section.beats * kStepsPerBeat;
}

double DemoArrangement::getPassDuration() const
{
    return getStepTime(quint64(m_passSteps));
}

double DemoArrangement::getStepTime(quint64 pStep) const
{
    return double(pStep) * (60.0 / kStepsPerBeat) / m_bpm;
}

DemoArrangement::Position DemoArrangement::getPosition(quint64 pStep) const
{
    int step = int(pStep % quint64(m_passSteps));
    auto section = m_sections.begin();
    while (step >= section->beats * kStepsPerBeat) {
        step -= section->beats * kStepsPerBeat;
        ++section;
    }
    return {&*section, step, pStep - quint64(step)};
}

template <typename Condition>
std::vector<double> DemoArrangement::_CollectBeats(double pDuration, Condition pCondition) const
{
    std::vector<double> times;
    for (quint64 step = 0; getStepTime(step) < pDuration; step += kStepsPerBeat) {
        const Position position = getPosition(step);
        const bool isHit = (position.section->layers & eDemoHit) != 0 && position.sectionStep == 0;
        if (isHit || pCondition(position.section->layers))
            times.push_back(getStepTime(step));
    }
    return times;
}

std::vector<double> DemoArrangement::getBeatTimes(double pDuration) const
{
    return _CollectBeats(
        pDuration, [](unsigned pLayers) { return (pLayers & (eDemoStop | eDemoHit)) == 0; });
}

std::vector<double> DemoArrangement::getKickTimes(double pDuration) const
{
    return _CollectBeats(
        pDuration, [](unsigned pLayers) { return (pLayers & eDemoKick) != 0; });
}

std::vector<TimeSpan> DemoArrangement::_CollectSpans(double pDuration, unsigned pLayer) const
{
    std::vector<TimeSpan> spans;
    for (quint64 step = 0; getStepTime(step) < pDuration;) {
        const DemoSection& section = *getPosition(step).section;
        const quint64 end = step + quint64(section.beats * kStepsPerBeat);
        const TimeSpan span = {getStepTime(step), std::min(getStepTime(end), pDuration)};
        if ((section.layers & pLayer) == 0) {
            step = end;
            continue;
        }
        if (!spans.empty() && spans.back().end >= span.start)
            spans.back().end = span.end;
        else
            spans.push_back(span);
        step = end;
    }
    return spans;
}

std::vector<TimeSpan> DemoArrangement::getBreakdowns(double pDuration) const
{
    return _CollectSpans(pDuration, eDemoPad);
}

std::vector<TimeSpan> DemoArrangement::getSilences(double pDuration) const
{
    return _CollectSpans(pDuration, eDemoStop);
}
