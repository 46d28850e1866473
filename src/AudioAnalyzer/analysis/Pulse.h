// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Comparable.h>
#include <AudioAnalyzer/Export.h>

#include <QtGlobal>

/// What a pulse turned out to be. Do not change the values: hosts store them.
enum ePulseType
{
    ePulse = 0,        ///< a block that rose above the threshold
    eBeat = 1,         ///< the pulse chosen as the beat of its beat window
    eVirtualBeat = 2,  ///< a beat at the predicted place of a window that held no pulse
};

struct PulseData;

/// Handle on the shared record of a pulse, beat or virtual beat.
///
/// Copies share one record, without copy-on-write: what one handle sets, every handle sees. The
/// analyzer relies on it: a pulse that a host kept from OnPulseDetected() reads eBeat once it has
/// been chosen as the beat of its window.
///
/// Indexes are absolute sample indexes, counted from the analyzer's last Stop(). Times are
/// microseconds on the clock of HighResolutionTimer, or since 0 while the analysis is not started.
///
/// Threads: the reference count is a plain integer; all copies stay on the analyzer's thread.
class AUDIOANALYZER_EXPORT Pulse : public Comparable<Pulse>
{
public:
    /// Makes a new record. startTime: µs, start of the analysis. startIndex, endIndex: first and
    /// last sample. sampleRate: Hz, at least 1. averageVolume, threshold, maximalValue: 16-bit
    /// sample magnitudes. [allocates one record]
    Pulse(unsigned long long startTime,
          unsigned long startIndex,
          unsigned long endIndex,
          unsigned long long sampleRate,
          short averageVolume,
          short threshold,
          short maximalValue,
          ePulseType type);
    /// Shares the record. [audio path: no allocation]
    Pulse(const Pulse& pOther);
    Pulse& operator=(const Pulse& pOther);
    ~Pulse() override;

    /// Orders by start index, then by end index: -1, 0 or 1.
    int CompareTo(const Pulse& pOther) const override;

    quint64 getStartIndex() const;    ///< absolute index of the first sample
    quint64 getEndIndex() const;      ///< absolute index of the last sample
    quint64 getLength() const;        ///< samples
    quint64 getDuration() const;      ///< µs
    quint64 getStartTime() const;     ///< µs on the clock; 0 without a record
    quint64 getEndTime() const;       ///< µs on the clock; 0 without a record
    qint16 getAverageVolume() const;  ///< average volume when the pulse was detected
    qint16 getThreshold() const;      ///< threshold in force when the pulse was detected
    qint16 getMaximalValue() const;   ///< loudness by which the candidates of a window are ranked
    ePulseType getType() const;

    /// µs from the pulse's start (end) to now; 0 when the clock is earlier than that.
    quint64 getElapsedTimeFromStart() const;
    quint64 getElapsedTimeFromEnd() const;

    /// False, and no change, when pEndIndex is smaller than the start index.
    bool setEndIndex(unsigned long pEndIndex);
    /// Length in samples; false, and no change, for 0.
    bool setLength(unsigned long pLength);
    /// Only raises: true when pValue was greater than the stored value and was stored.
    bool setMaximalValue(short pValue);
    /// Always true.
    bool setType(ePulseType pType);

private:
    void _Release();

    PulseData* m_pData;   ///< shared record, freed with its last handle
    quint64 m_timeScale;  ///< µs per second
};
