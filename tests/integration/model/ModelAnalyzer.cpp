// SPDX-License-Identifier: MIT
#include "ModelAnalyzer.h"

#include <algorithm>
#include <cmath>

namespace model {

namespace {

Samples slice(const Samples& samples, std::size_t begin, std::size_t end)
{
    const auto first = samples.begin();
    return Samples(first + static_cast<std::ptrdiff_t>(begin),
                   first + static_cast<std::ptrdiff_t>(end));
}

quint64 getBlockSize(int sampleRate)
{
    const auto fortieth = static_cast<quint64>(qRound(sampleRate / 40.0));
    quint64 size = 1;
    while (size * 2 <= fortieth)
        size *= 2;
    return size;
}

qint16 rectify(qint16 sample)
{
    return static_cast<qint16>(std::min(std::abs(static_cast<int>(sample)), 32767));
}

}  // namespace

Analyzer::Analyzer(const Settings& initialSettings, int sampleRate)
    : settings(initialSettings), volume(initialSettings.averageDuration, sampleRate),
      m_sampleRate(static_cast<quint64>(sampleRate)), m_samplesPerMinute(sampleRate * 60.0)
{
    state.pulseBlockSize = getBlockSize(sampleRate);
}

bool Analyzer::start()
{
    if (state.isAnalyzing)
        return false;
    state.computedBPM = 0.0;
    state.analysisStartTime = now;
    computeNextBeat();
    state.isAnalyzing = true;
    emitPlain(SignalKind::AnalysisStarted);
    return true;
}

bool Analyzer::stop()
{
    if (!state.isAnalyzing)
        return false;
    AnalyzerState kept = state;
    state = AnalyzerState();
    state.accuracy = kept.accuracy;
    state.isConsistencyAllowed = kept.isConsistencyAllowed;
    state.missedBeatsCount = kept.missedBeatsCount;
    state.fixedBPM = kept.fixedBPM;
    state.lastBPM = kept.lastBPM;
    state.inaccuracyStartTime = kept.inaccuracyStartTime;
    state.isLastBeatVirtual = kept.isLastBeatVirtual;
    state.currentVolume = kept.currentVolume;
    state.previousVolume = kept.previousVolume;
    state.pulseBlockSize = kept.pulseBlockSize;
    state.hasStopBlock = kept.hasStopBlock;
    state.stopBlockSize = kept.stopBlockSize;
    volume.reset();
    m_candidates.clear();
    emitPlain(SignalKind::AnalysisStopped);
    return true;
}

bool Analyzer::pause()
{
    if (state.isAnalyzing)
        return false;
    emitPlain(SignalKind::AnalysisStopped);
    return true;
}

void Analyzer::reset()
{
    AnalyzerState kept = state;
    state = AnalyzerState();
    state.hasAmplitudes = kept.hasAmplitudes;
    state.amplitudesCount = kept.amplitudesCount;
    state.analysisStartTime = kept.analysisStartTime;
    state.sampleIndex = kept.sampleIndex;
    state.isAnalyzing = kept.isAnalyzing;
    state.isConsistencyAllowed = kept.isConsistencyAllowed;
    state.fixedBPM = kept.fixedBPM;
    state.isLastBeatVirtual = kept.isLastBeatVirtual;
    state.pulseBlockSize = kept.pulseBlockSize;
    state.hasStopBlock = kept.hasStopBlock;
    state.stopBlockSize = kept.stopBlockSize;
    volume.reset();
    m_candidates.clear();
}

void Analyzer::analyze(const Samples& batch)
{
    detectStops(batch);
    const std::size_t size = state.pulseBlockSize;
    const std::size_t missing = size - state.pulseBlockFill;
    std::size_t at = 0;
    if (missing <= batch.size()) {
        pulseBlock.resize(std::max<std::size_t>(pulseBlock.size(), size));
        std::copy_n(batch.begin(),
                    missing,
                    pulseBlock.begin() + static_cast<std::ptrdiff_t>(state.pulseBlockFill));
        state.pulseBlockFill = 0;
        processBlock(pulseBlock);
        at = missing;
        for (; batch.size() - at >= size; at += size) {
            state.pulseBlockFill = 0;
            processBlock(slice(batch, at, at + size));
        }
    }
    const Samples rest = slice(batch, at, batch.size());
    const std::size_t fill = state.pulseBlockFill + rest.size();
    pulseBlock.resize(std::max(pulseBlock.size(), fill));
    std::copy(rest.begin(),
              rest.end(),
              pulseBlock.begin() + static_cast<std::ptrdiff_t>(state.pulseBlockFill));
    state.pulseBlockFill = fill;
}

void Analyzer::processBlock(const Samples& block)
{
    detectPulses(block, state.sampleIndex);
    state.sampleIndex += block.size();
}

void Analyzer::detectStops(const Samples& batch)
{
    if (!state.hasStopBlock) {
        state.stopBlockFill = 0;
        state.stopBlockSize = static_cast<quint64>(
            qRound64(static_cast<double>(m_sampleRate) * settings.stopDuration));
        if (state.stopBlockSize == 0)
            return;
        state.hasStopBlock = true;
        m_stopBlock.assign(state.stopBlockSize, 0);
    }
    const std::size_t size = state.stopBlockSize;
    if (batch.size() >= size) {
        state.stopBlockFill = 0;
        decideStop(slice(batch, batch.size() - size, batch.size()));
        return;
    }
    Samples gathered = slice(m_stopBlock, 0, state.stopBlockFill);
    gathered.insert(gathered.end(), batch.begin(), batch.end());
    const bool isComplete = !batch.empty() && gathered.size() >= size;
    if (isComplete) {
        decideStop(slice(gathered, 0, size));
        gathered = slice(gathered, size, gathered.size());
    }
    state.stopBlockFill = gathered.size();
    std::copy(gathered.begin(), gathered.end(), m_stopBlock.begin());
}

void Analyzer::decideStop(const Samples& block)
{
    Spectrum spectrum = transform(block);
    bandPass(spectrum, 50, 2000, static_cast<int>(m_sampleRate));
    const Samples filtered = transformBack(spectrum, block.size());
    const int threshold = settings.stopThreshold;
    // Intended: signed samples, so that only positive excursions prove that music plays.
    state.isStopped = std::none_of(filtered.begin(), filtered.end(), [threshold](qint16 sample) {
        return sample > threshold;
    });
}

void Analyzer::detectPulses(const Samples& block, quint64 index)
{
    if (state.beatLength == 0)
        computeNextBeat();
    if (state.isStopped) {
        detectBeats(block.size(), index, 0, 0);
        emitSamples(index, block);
        return;
    }
    Samples filtered = applyFilter(block);
    std::transform(filtered.begin(), filtered.end(), filtered.begin(), rectify);
    if (!volume.update(filtered))
        return;
    for (const int sample : filtered)
        state.currentVolume = std::max(state.currentVolume, sample);
    const VolumeFigures figures = volume.getFigures();
    const int threshold = getThreshold();
    if (isPulse(filtered, threshold))
        handlePulse(block.size(), index, filtered.size(), figures, threshold);
    else
        detectBeats(filtered.size(), index, figures.average, threshold);
    emitSamples(index, filtered);
}

Samples Analyzer::applyFilter(const Samples& block)
{
    Spectrum spectrum = transform(block);
    const std::shared_ptr<Profile> pProfile = settings.pProfile;

    SignalRecord record;
    record.kind = SignalKind::AmplitudesComputed;
    record.amplitudes = power(spectrum);
    for (const double value : record.amplitudes)
        m_loudestPower = std::max(m_loudestPower, value);
    if (m_loudestPower != 0.0)
        for (double& value : record.amplitudes)
            value /= m_loudestPower;
    state.hasAmplitudes = true;
    state.amplitudesCount = record.amplitudes.size();
    emitRecord(record);

    const int sampleRate = static_cast<int>(m_sampleRate);
    const bool hasLow = pProfile->filterLow >= 1;
    const bool hasHigh = pProfile->filterHigh >= 1;
    if (hasLow && hasHigh)
        bandPass(spectrum, pProfile->filterLow, pProfile->filterHigh, sampleRate);
    else if (hasHigh)
        lowPass(spectrum, pProfile->filterHigh, sampleRate);
    else if (hasLow)
        highPass(spectrum, pProfile->filterLow, sampleRate);
    return transformBack(spectrum, block.size());
}

int Analyzer::getThreshold() const
{
    if (settings.threshold >= 0)
        return settings.threshold;
    const int automatic = qRound(settings.pProfile->sensibility * volume.getFigures().average);
    return static_cast<qint16>(std::min(automatic, settings.pProfile->maximalThreshold));
}

/// Intended: blocks of fewer than four samples have a quota of zero, which any loud sample spoils.
bool Analyzer::isPulse(const Samples& filtered, int threshold) const
{
    const auto loud = std::count_if(filtered.begin(), filtered.end(), [threshold](qint16 sample) {
        return sample >= threshold;
    });
    const auto quota = static_cast<std::ptrdiff_t>(filtered.size() / 4);
    return quota == 0 ? loud == 0 : loud >= quota;
}

void Analyzer::handlePulse(quint64 count,
                           quint64 index,
                           quint64 filteredCount,
                           const VolumeFigures& figures,
                           int threshold)
{
    const PulsePointer pPulse = std::make_shared<Pulse>();
    pPulse->analysisStart = state.analysisStartTime;
    pPulse->start = index;
    pPulse->end = index + count - 1;
    pPulse->average = figures.average;
    pPulse->threshold = threshold;
    pPulse->maximum = std::max(threshold, figures.maximum);
    if (state.beatWindowStart <= index && index <= state.beatWindowEnd)
        m_candidates.push_back(pPulse);
    detectBeats(filteredCount, index, figures.average, threshold);
    state.lastPulseIndex = index;
    emitPulse(pPulse);
}

AnalyzerState Analyzer::getState() const
{
    AnalyzerState copy = state;
    for (const PulsePointer& pPulse : m_candidates)
        copy.candidates.push_back(pPulse->start);
    return copy;
}

int Analyzer::getMaximalVolume() const
{
    return std::max(state.previousVolume, state.currentVolume);
}

bool Analyzer::resizeVolumeWindow(double seconds)
{
    return volume.resize(seconds, static_cast<int>(m_sampleRate));
}

void Analyzer::forgetStopBlock()
{
    state.hasStopBlock = false;
}

void Analyzer::emitRecord(const SignalRecord& record)
{
    records.push_back(record);
    if (observer)
        observer(record);
}

void Analyzer::emitPlain(SignalKind kind)
{
    SignalRecord record;
    record.kind = kind;
    emitRecord(record);
}

void Analyzer::emitPulse(const PulsePointer& pPulse)
{
    pulses.push_back(pPulse);
    SignalRecord record;
    record.kind = SignalKind::PulseDetected;
    record.pulse = toRecord(*pPulse);
    emitRecord(record);
}

void Analyzer::emitSamples(quint64 index, const Samples& samples)
{
    SignalRecord record;
    record.kind = SignalKind::AudioSamplesAnalyzed;
    record.index = static_cast<quint32>(index);
    record.samples = samples;
    emitRecord(record);
}

}  // namespace model
