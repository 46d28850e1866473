// SPDX-License-Identifier: MIT
#include "Twins.h"

#include <QAudioFormat>

#include <algorithm>
#include <utility>

namespace model {

namespace {

constexpr quint64 firstTime = 1700000000000000;

QAudioFormat makeFormat(int sampleRate)
{
    QAudioFormat format;
    format.setSampleRate(sampleRate);
    format.setChannelCount(1);
    format.setSampleSize(16);
    format.setSampleType(QAudioFormat::SignedInt);
    return format;
}

Samples readWindow(const AudioSamplesStats& stats)
{
    const qint16* pFirst = stats.m_pSamples;
    if (stats.m_isFull == 0)
        return Samples(pFirst, pFirst + stats.m_writePosition);
    Samples samples(pFirst + stats.m_writePosition, pFirst + stats.m_capacity);
    samples.insert(samples.end(), pFirst, pFirst + stats.m_writePosition);
    return samples;
}

template <typename T>
QString describe(const char* pName, T left, T right)
{
    if (left == right)
        return QString();
    return QStringLiteral("\n  %1: left %2, right %3")
        .arg(QLatin1String(pName))
        .arg(left)
        .arg(right);
}

}  // namespace

AnalyzerState readState(const AudioAnalyzer& analyzer)
{
    AnalyzerState state;
    state.accuracy = analyzer.m_accuracy;
    state.hasAmplitudes = analyzer.m_pAmplitudes != nullptr;
    state.amplitudesCount = analyzer.m_amplitudesCount;
    state.analysisStartTime = analyzer.m_analysisStartTime;
    state.sampleIndex = analyzer.m_sampleIndex;
    state.isAnalyzing = analyzer.m_isAnalyzing;
    state.isConsistencyAllowed = analyzer.m_isConsistencyAllowed;
    state.isStopped = analyzer.m_isStopped;
    state.beatIndexes.assign(analyzer.m_beatIndexes.begin(), analyzer.m_beatIndexes.end());
    state.computedBPM = analyzer.m_computedBPM;
    state.missedBeatsCount = analyzer.m_missedBeatsCount;
    state.beatLength = analyzer.m_beatLength;
    state.fixedBPM = analyzer.m_fixedBPM;
    state.lastBPM = analyzer.m_lastBPM;
    state.inaccuracyStartTime = analyzer.m_inaccuracyStartTime;
    state.lastBeatIndex = analyzer.m_lastBeatIndex;
    state.isLastBeatVirtual = analyzer.m_isLastBeatVirtual;
    state.lastPulseIndex = analyzer.m_lastPulseIndex;
    state.virtualBeatIndex = analyzer.m_virtualBeatIndex;
    state.currentVolume = analyzer.m_currentVolume;
    state.previousVolume = analyzer.m_previousVolume;
    state.beatWindowEnd = analyzer.m_beatWindowEnd;
    state.beatWindowStart = analyzer.m_beatWindowStart;
    state.nextBeatIndex = analyzer.m_nextBeatIndex;
    for (const ::Pulse& pulse : analyzer.m_candidatePulses)
        state.candidates.push_back(pulse.getStartIndex());
    state.pulseBlockFill = analyzer.m_pulseBlockFill;
    state.pulseBlockSize = analyzer.m_pulseBlockSize;
    state.hasStopBlock = analyzer.m_pStopBlock != nullptr;
    state.stopBlockFill = analyzer.m_stopBlockFill;
    state.stopBlockSize = analyzer.m_stopBlockSize;
    return state;
}

Twins::Twins(const Settings& settings, int sampleRate)
    : plain(settings, sampleRate), m_sampleRate(sampleRate), m_clockOffset(firstTime),
      m_clock(firstTime)
{
    setUpConfiguration(settings);
    pLibrary = std::make_unique<AudioAnalyzer>(&configuration, makeFormat(sampleRate), nullptr);
    m_pLog = std::make_unique<SignalLog>(pLibrary.get());
    setClock();

    m_trap.setHandler(
        [](void* pContext, int delay, const QObject* pReceiver, const char* pMember) {
            auto* pTwins = static_cast<Twins*>(pContext);
            const bool isExpected =
                pReceiver == pTwins->pLibrary.get() && qstrcmp(pMember, "1_OnBeat()") == 0;
            SignalRecord record;
            record.kind = SignalKind::TimerArmed;
            record.delay = isExpected ? delay : -1;
            pTwins->m_pLog->add(record);
        },
        this);
    m_pLog->setObserver([this](const SignalRecord& record) {
        m_librarySide.states.push_back(readState(*pLibrary));
        handle(
            m_librarySide,
            record,
            [this](const Action& action) {
                ++m_reactionsCount;
                return action.apply(*pLibrary, configuration);
            });
    });
    plain.observer = [this](const SignalRecord& record) {
        m_plainSide.states.push_back(plain.getState());
        handle(m_plainSide, record, [this](const Action& action) { return action.apply(plain); });
    };
}

void Twins::setUpConfiguration(const Settings& settings)
{
    configuration.setAverageVolumeCalculationDuration(settings.averageDuration);
    configuration.setBPMCalculationDuration(settings.bpmDuration);
    configuration.setDisplayVirtualBeatsWhenStopped(settings.displayVirtualBeatsWhenStopped);
    configuration.setStopDetectionDuration(settings.stopDuration);
    configuration.setStopDetectionThreshold(static_cast<short>(settings.stopThreshold));
    configuration.setThreshold(static_cast<short>(settings.threshold));
    configuration.setSelectedProfile(makeLibraryProfile(*settings.pProfile));
}

template <typename Apply>
void Twins::handle(Side& side, const SignalRecord& record, Apply apply)
{
    const std::size_t occurrence = ++side.occurrences[record.kind];
    if (side.isReacting || record.kind == SignalKind::TimerArmed)
        return;
    side.isReacting = true;
    for (const Reaction& reaction : m_reactions) {
        const bool isDue =
            reaction.occurrence == Reaction::every || reaction.occurrence == occurrence;
        if (reaction.kind == record.kind && isDue)
            side.results.push_back(apply(reaction.action));
    }
    side.isReacting = false;
}

void Twins::react(const Reaction& reaction)
{
    m_reactions.push_back(reaction);
}

void Twins::setClock()
{
    const quint64 time =
        m_clockOffset + m_samplesFed * 1000000 / static_cast<quint64>(m_sampleRate);
    m_clock.setTime(time);
    plain.now = time;
}

void Twins::feed(const Samples& batch)
{
    m_samplesFed += batch.size();
    setClock();
    Samples copy = batch;
    pLibrary->Analyze(copy.data(), copy.size());
    plain.analyze(batch);
    fireTimers();
}

void Twins::apply(const Action& action)
{
    setClock();
    m_librarySide.results.push_back(action.apply(*pLibrary, configuration));
    m_plainSide.results.push_back(action.apply(plain));
}

/// Both have armed the same timers, or the next comparison says otherwise.
void Twins::fireTimers()
{
    const std::vector<quint64> timers = std::exchange(m_timers, {});
    for (const quint64 time : timers) {
        if (time <= plain.now) {
            pLibrary->_OnBeat();
            plain.beatIsDue();
        } else {
            m_timers.push_back(time);
        }
    }
}

QString Twins::compare()
{
    const SignalRecords records = m_pLog->take();
    const SignalRecords plainRecords = std::exchange(plain.records, {});
    QString text = describeDifference(records, plainRecords);
    if (text.isEmpty())
        text = compareStates();
    if (m_librarySide.results != m_plainSide.results)
        text += QStringLiteral("\n  results of the actions differ");
    for (SignalRecord record : records) {
        if (record.kind == SignalKind::TimerArmed)
            m_timers.push_back(plain.now + static_cast<quint64>(record.delay) * 1000);
        record.samples.clear();
        record.amplitudes.clear();
        allRecords.push_back(record);
    }
    for (Side* pSide : {&m_librarySide, &m_plainSide}) {
        pSide->states.clear();
        pSide->results.clear();
    }
    return text;
}

QString Twins::compareStates() const
{
    const std::size_t count = std::min(m_librarySide.states.size(), m_plainSide.states.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (m_librarySide.states[i] != m_plainSide.states[i]) {
            return QStringLiteral("state at record %1:").arg(i) +
                   describeDifference(m_librarySide.states[i], m_plainSide.states[i]);
        }
    }
    const AnalyzerState state = readState(*pLibrary);
    const AnalyzerState plainState = plain.getState();
    return state == plainState ? QString()
                               : QStringLiteral("state:") + describeDifference(state, plainState);
}

QString Twins::compareDeeply()
{
    return compare() + compareGetters() + comparePulses() + compareVolumes();
}

QString Twins::compareGetters() const
{
    const AudioValues values = pLibrary->getCurrentPulseBlock();
    const auto filled = static_cast<std::ptrdiff_t>(plain.pulseBlock.size());
    const bool isSameBlock =
        std::equal(values.samples, values.samples + filled, plain.pulseBlock.begin());
    return describe("pulse block", isSameBlock, true) +
           describe("size", quint64(values.size), plain.state.pulseBlockSize) +
           describe("isAnalyzing", pLibrary->isAnalyzing(), plain.state.isAnalyzing) +
           describe("getFixedBPM", pLibrary->getFixedBPM(), plain.getFixedBPM()) +
           describe("getComputedBPM", pLibrary->getComputedBPM(), plain.getComputedBPM()) +
           describe("getCurrentBPM", pLibrary->getCurrentBPM(), plain.getCurrentBPM()) +
           describe("getAccuracy", pLibrary->getAccuracy(), plain.getAccuracy()) +
           describe("isSendingBeats", pLibrary->isSendingBeats(), plain.isSendingBeats()) +
           describe("getInaccuracyElapsedSeconds",
                    pLibrary->getInaccuracyElapsedSeconds(),
                    plain.getInaccuracySeconds());
}

QString Twins::comparePulses() const
{
    const std::vector<PulseRecord> pulses = m_pLog->getPulseRecords();
    if (pulses.size() != plain.pulses.size())
        return QStringLiteral("\n  %1 and %2 pulses").arg(pulses.size()).arg(plain.pulses.size());
    for (std::size_t i = 0; i < pulses.size(); ++i) {
        const PulseRecord other = plain.toRecord(*plain.pulses[i]);
        if (!(pulses[i] == other)) {
            return QStringLiteral("\n  pulse %1 by now: left %2, right %3")
                .arg(i)
                .arg(pulses[i].toString(), other.toString());
        }
    }
    return QString();
}

QString Twins::compareVolumes() const
{
    const AudioSamplesStats& stats = pLibrary->m_volumeStats;
    const VolumeFigures figures = plain.volume.getFigures();
    return describe("average volume", int(pLibrary->getAverageVolume()), figures.average) +
           describe("maximum of the window", int(stats.getMaximalVolume()), figures.maximum) +
           describe("minimum of the window", int(stats.getMinimalVolume()), figures.minimum) +
           describe("getThreshold", int(pLibrary->getThreshold()), plain.getThreshold()) +
           describe(
               "getCurrentVolume", int(pLibrary->getCurrentVolume()), plain.state.currentVolume) +
           describe(
               "getMaximalVolume", int(pLibrary->getMaximalVolume()), plain.getMaximalVolume()) +
           describe(
               "window length", quint64(stats.m_capacity), quint64(plain.volume.getCapacity())) +
           describe("window", readWindow(stats) == plain.volume.getSamples(), true);
}

}  // namespace model
