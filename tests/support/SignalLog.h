// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>

#include "SignalRecord.h"

#include <QObject>

#include <functional>
#include <utility>
#include <vector>

/// Records every signal of an analyzer in the order of emission, and keeps copies of the pulses.
class SignalLog : public QObject
{
public:
    explicit SignalLog(AudioAnalyzer* pAnalyzer)
    {
        connect(pAnalyzer, &AudioAnalyzer::OnAmplitudesComputed, this, &SignalLog::addAmplitudes);
        connect(
            pAnalyzer,
            &AudioAnalyzer::OnAnalysisStarted,
            this,
            [this] { add(SignalKind::AnalysisStarted); });
        connect(pAnalyzer, &AudioAnalyzer::OnAnalysisStopped, this, [this] {
            add(SignalKind::AnalysisStopped);
        });
        connect(pAnalyzer, &AudioAnalyzer::OnAudioSamplesAnalyzed, this, &SignalLog::addSamples);
        connect(pAnalyzer, &AudioAnalyzer::OnBeat, this, [this] { add(SignalKind::Beat); });
        connect(pAnalyzer, &AudioAnalyzer::OnBPMChanged, this, &SignalLog::addBPM);
        connect(pAnalyzer, &AudioAnalyzer::OnPulseDetected, this, &SignalLog::addPulse);
    }

    static PulseRecord toRecord(const Pulse& pulse)
    {
        PulseRecord record;
        record.startIndex = pulse.getStartIndex();
        record.endIndex = pulse.getEndIndex();
        record.startTime = pulse.getStartTime();
        record.endTime = pulse.getEndTime();
        record.duration = pulse.getDuration();
        record.averageVolume = pulse.getAverageVolume();
        record.threshold = pulse.getThreshold();
        record.maximalValue = pulse.getMaximalValue();
        record.type = pulse.getType();
        return record;
    }

    /// Called after each record was added; it may act on the analyzer.
    void setObserver(std::function<void(const SignalRecord&)> observer)
    {
        m_observer = std::move(observer);
    }

    const SignalRecords& getRecords() const { return m_records; }
    SignalRecords take() { return std::exchange(m_records, {}); }
    /// The pulses, sharing their records with the analyzer's.
    const std::vector<Pulse>& getPulses() const { return m_pulses; }

    /// The pulses as they are by now: a chosen one has become a beat.
    std::vector<PulseRecord> getPulseRecords() const
    {
        std::vector<PulseRecord> records;
        for (const Pulse& pulse : m_pulses)
            records.push_back(toRecord(pulse));
        return records;
    }

    SignalRecords select(SignalKind kind) const
    {
        SignalRecords selected;
        for (const SignalRecord& record : m_records)
            if (record.kind == kind)
                selected.push_back(record);
        return selected;
    }

    std::size_t count(SignalKind kind) const { return select(kind).size(); }

    /// Adds a record of the test's own, for example of an armed timer.
    void add(SignalRecord record)
    {
        m_records.push_back(record);
        if (m_observer)
            m_observer(record);
    }

private:
    void add(SignalKind kind)
    {
        SignalRecord record;
        record.kind = kind;
        add(record);
    }

    void addAmplitudes(const double* pAmplitudes, unsigned int pCount)
    {
        SignalRecord record;
        record.kind = SignalKind::AmplitudesComputed;
        record.amplitudes.assign(pAmplitudes, pAmplitudes + pCount);
        add(record);
    }

    void addSamples(unsigned int pIndex, qint16* pSamples, unsigned int pCount)
    {
        SignalRecord record;
        record.kind = SignalKind::AudioSamplesAnalyzed;
        record.index = pIndex;
        record.samples.assign(pSamples, pSamples + pCount);
        add(record);
    }

    void addBPM(double pBPM)
    {
        SignalRecord record;
        record.kind = SignalKind::BPMChanged;
        record.bpm = pBPM;
        add(record);
    }

    void addPulse(const Pulse& pPulse)
    {
        m_pulses.push_back(pPulse);
        SignalRecord record;
        record.kind = SignalKind::PulseDetected;
        record.pulse = toRecord(pPulse);
        add(record);
    }

    SignalRecords m_records;
    std::vector<Pulse> m_pulses;
    std::function<void(const SignalRecord&)> m_observer;
};
