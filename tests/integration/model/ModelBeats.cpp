// SPDX-License-Identifier: MIT
#include "ModelAnalyzer.h"

#include <algorithm>

namespace model {

double Analyzer::clampToProfile(double bpm) const
{
    return std::max(std::min(bpm, settings.pProfile->maximalBPM), settings.pProfile->minimalBPM);
}

void Analyzer::setFixedBPM(double bpm)
{
    state.fixedBPM = bpm > 0 ? bpm : 0;
}

double Analyzer::getFixedBPM() const
{
    return state.fixedBPM > 0 ? clampToProfile(state.fixedBPM) : 0;
}

double Analyzer::getComputedBPM() const
{
    return state.computedBPM > 0 ? clampToProfile(state.computedBPM) : 0;
}

double Analyzer::getCurrentBPM() const
{
    return getFixedBPM() > 0 ? getFixedBPM() : getComputedBPM();
}

double Analyzer::getAccuracy() const
{
    return std::min(state.accuracy, 1.0 / (static_cast<double>(state.missedBeatsCount) + 1.0));
}

double Analyzer::getInaccuracySeconds() const
{
    if (state.inaccuracyStartTime == 0)
        return 0;
    const quint64 elapsed = now - state.inaccuracyStartTime;
    return static_cast<double>(elapsed / 1000000) +
           static_cast<double>(elapsed % 1000000) / 1000000.0;
}

bool Analyzer::isSendingBeats() const
{
    const bool isPlaying = !state.isStopped && state.analysisStartTime != 0;
    return isPlaying || settings.displayVirtualBeatsWhenStopped;
}

void Analyzer::beatIsDue()
{
    if (isSendingBeats())
        emitPlain(SignalKind::Beat);
}

void Analyzer::computeNextBeat()
{
    if (state.beatLength == 0) {
        double tempo = getCurrentBPM();
        if (tempo == 0) {
            const bool isKept = state.isConsistencyAllowed && state.lastBPM > 0;
            const double middle =
                (settings.pProfile->minimalBPM + settings.pProfile->maximalBPM) * 0.5;
            tempo = isKept ? state.lastBPM : middle;
        }
        if (tempo > 0)
            state.beatLength = static_cast<quint64>(qRound(m_samplesPerMinute / tempo));
    }
    if (state.beatLength == 0) {
        state.beatWindowEnd = state.beatWindowStart = state.nextBeatIndex = 0;
        return;
    }
    state.previousVolume = state.currentVolume;
    state.currentVolume = 0;
    if (state.lastBeatIndex != 0) {
        state.nextBeatIndex = state.lastBeatIndex + state.beatLength;
        state.beatWindowStart = state.nextBeatIndex - 4 * state.pulseBlockSize;
        state.beatWindowEnd = state.nextBeatIndex + 6 * state.pulseBlockSize;
    } else {
        const int slowest = qRound(m_samplesPerMinute / settings.pProfile->minimalBPM);
        state.nextBeatIndex = state.sampleIndex + state.beatLength;
        state.beatWindowStart = state.sampleIndex;
        state.beatWindowEnd = state.sampleIndex + static_cast<quint64>(slowest);
    }
}

void Analyzer::detectBeats(quint64 count, quint64 index, int average, int threshold)
{
    if (state.beatWindowEnd > index)
        return;
    const PulsePointer pBeat =
        m_candidates.empty() ? missBeat(count, average, threshold) : takeBeat();
    watchAccuracy();
    measureTempo();
    reportTempo();
    // Intended: no beat is sent while a fixed tempo is set.
    if (pBeat && state.beatLength != 0 && !(getFixedBPM() > 0))
        armTimer(*pBeat);
    m_candidates.clear();
    computeNextBeat();
}

PulsePointer Analyzer::missBeat(quint64 count, int average, int threshold)
{
    state.missedBeatsCount += 1;
    state.lastBeatIndex = state.nextBeatIndex;
    state.isLastBeatVirtual = true;
    state.virtualBeatIndex = state.nextBeatIndex;
    if (!isSendingBeats())
        return nullptr;
    const PulsePointer pPulse = std::make_shared<Pulse>();
    pPulse->analysisStart = state.analysisStartTime;
    pPulse->start = state.nextBeatIndex;
    pPulse->end = state.nextBeatIndex + count - 1;
    pPulse->average = average;
    pPulse->threshold = threshold;
    pPulse->maximum = threshold;
    pPulse->type = 2;
    emitPulse(pPulse);
    return pPulse;
}

PulsePointer Analyzer::takeBeat()
{
    PulsePointer pBeat = m_candidates.front();
    for (const PulsePointer& pPulse : m_candidates)
        if (pPulse->maximum > pBeat->maximum)
            pBeat = pPulse;
    state.accuracy = 1.0 / (static_cast<double>(state.missedBeatsCount) + 1.0);
    state.missedBeatsCount = 0;
    pBeat->type = 1;
    state.virtualBeatIndex = 0;
    state.lastBeatIndex = pBeat->start;
    state.isLastBeatVirtual = false;
    return pBeat;
}

void Analyzer::watchAccuracy()
{
    if (getAccuracy() >= 0.5) {
        state.inaccuracyStartTime = 0;
        return;
    }
    if (state.inaccuracyStartTime == 0)
        state.inaccuracyStartTime = now;
    if (now - state.inaccuracyStartTime >= 10000000) {
        const double lastBPM = state.lastBPM;
        ++watchResets;
        reset();
        state.lastBPM = state.isConsistencyAllowed ? lastBPM : 0;
    }
}

void Analyzer::measureTempo()
{
    std::vector<quint64>& beats = state.beatIndexes;
    beats.push_back(state.lastBeatIndex);
    const auto span =
        static_cast<quint64>(qRound64(static_cast<double>(m_sampleRate) * settings.bpmDuration));
    if (state.lastBeatIndex > span) {
        const quint64 oldest = state.lastBeatIndex - span;
        const auto isTooOld = [oldest](quint64 beat) { return beat < oldest; };
        beats.erase(std::remove_if(beats.begin(), beats.end(), isTooOld), beats.end());
    }
    state.computedBPM = 0;
    if (beats.size() < 5)
        return;
    quint64 sum = 0;
    for (std::size_t i = 1; i < beats.size(); ++i)
        sum += beats[i] - beats[i - 1];
    const quint64 intervals = beats.size() - 1;
    if (sum >= intervals)
        state.computedBPM = m_samplesPerMinute / static_cast<double>(sum / intervals);
}

void Analyzer::reportTempo()
{
    double tempo = getCurrentBPM();
    if (tempo > 0) {
        state.lastBPM = tempo;
        state.beatLength = static_cast<quint64>(qRound(m_samplesPerMinute / tempo));
    } else {
        state.beatLength = 0;
        if (state.isConsistencyAllowed)
            tempo = state.lastBPM;
    }
    SignalRecord record;
    record.kind = SignalKind::BPMChanged;
    record.bpm = tempo;
    emitRecord(record);
}

void Analyzer::armTimer(const Pulse& beat)
{
    const quint64 period = state.beatLength * 1000000 / m_sampleRate;
    quint64 due = beat.analysisStart + beat.start * 1000000 / m_sampleRate + period;
    if (due < now)
        due += (now - due + period - 1) / period * period;
    SignalRecord record;
    record.kind = SignalKind::TimerArmed;
    record.delay = static_cast<int>((due - now) / 1000);
    emitRecord(record);
}

PulseRecord Analyzer::toRecord(const Pulse& pulse) const
{
    PulseRecord record;
    record.startIndex = pulse.start;
    record.endIndex = pulse.end;
    record.startTime = pulse.analysisStart + pulse.start * 1000000 / m_sampleRate;
    record.endTime = pulse.analysisStart + pulse.end * 1000000 / m_sampleRate;
    record.duration = (pulse.end - pulse.start + 1) * 1000000 / m_sampleRate;
    record.averageVolume = pulse.average;
    record.threshold = pulse.threshold;
    record.maximalValue = pulse.maximum;
    record.type = pulse.type;
    return record;
}

}  // namespace model
