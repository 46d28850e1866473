// SPDX-License-Identifier: MIT
#pragma once

#include "AnalyzerState.h"
#include "ModelTransform.h"
#include "ModelVolume.h"

#include <functional>
#include <memory>
#include <support/SignalRecord.h>
#include <vector>

/// A second, deliberately plain analyzer, written from the required behaviour alone: no shared
/// code, no shared shortcuts. It logs the same records as a SignalLog on the library's analyzer.
namespace model {

struct Profile
{
    double sensibility = 2.0;
    int filterLow = 0;    ///< Hz
    int filterHigh = 75;  ///< Hz
    double minimalBPM = 90.0;
    double maximalBPM = 175.0;
    int maximalThreshold = 32000;
};

struct Settings
{
    double averageDuration = 2.0;  ///< seconds
    double bpmDuration = 10.0;     ///< seconds
    bool displayVirtualBeatsWhenStopped = false;
    double stopDuration = 0.5;  ///< seconds
    int stopThreshold = 3276;
    int threshold = -1;
    std::shared_ptr<Profile> pProfile = std::make_shared<Profile>();  ///< edits reach every holder
};

struct Pulse
{
    quint64 analysisStart = 0;
    quint64 start = 0;
    quint64 end = 0;
    int average = 0;
    int threshold = 0;
    int maximum = 0;
    int type = 0;
};

using PulsePointer = std::shared_ptr<Pulse>;

class Analyzer
{
public:
    Analyzer(const Settings& settings, int sampleRate);

    bool start();
    bool stop();
    bool pause();
    void reset();
    void analyze(const Samples& batch);
    void beatIsDue();
    void setFixedBPM(double bpm);
    bool resizeVolumeWindow(double seconds);
    void forgetStopBlock();

    double getFixedBPM() const;
    double getComputedBPM() const;
    double getCurrentBPM() const;
    double getAccuracy() const;
    double getInaccuracySeconds() const;
    bool isSendingBeats() const;
    int getThreshold() const;
    int getMaximalVolume() const;

    AnalyzerState getState() const;
    PulseRecord toRecord(const Pulse& pulse) const;

    quint64 now = 1;  ///< the clock, µs
    Settings settings;
    AnalyzerState state;  ///< all but the candidates
    VolumeWindow volume;
    Samples pulseBlock;           ///< as far as it was ever filled
    std::size_t watchResets = 0;  ///< by the ten-second watch
    SignalRecords records;
    std::vector<PulsePointer> pulses;                   ///< all that were emitted
    std::function<void(const SignalRecord&)> observer;  ///< called after each record

private:
    double clampToProfile(double bpm) const;

    void detectStops(const Samples& batch);
    void decideStop(const Samples& block);
    void processBlock(const Samples& block);
    void detectPulses(const Samples& block, quint64 index);
    Samples applyFilter(const Samples& block);
    bool isPulse(const Samples& filtered, int threshold) const;
    void handlePulse(quint64 count,
                     quint64 index,
                     quint64 filteredCount,
                     const VolumeFigures& figures,
                     int threshold);

    void computeNextBeat();
    void detectBeats(quint64 count, quint64 index, int average, int threshold);
    PulsePointer missBeat(quint64 count, int average, int threshold);
    PulsePointer takeBeat();
    void watchAccuracy();
    void measureTempo();
    void reportTempo();
    void armTimer(const Pulse& beat);

    void emitRecord(const SignalRecord& record);
    void emitPlain(SignalKind kind);
    void emitPulse(const PulsePointer& pPulse);
    void emitSamples(quint64 index, const Samples& samples);

    quint64 m_sampleRate;
    double m_samplesPerMinute;
    Samples m_stopBlock;
    double m_loudestPower = 0.0;
    std::vector<PulsePointer> m_candidates;
};

}  // namespace model
