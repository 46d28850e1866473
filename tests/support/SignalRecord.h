// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <vector>

enum class SignalKind
{
    AmplitudesComputed,
    AnalysisStarted,
    AnalysisStopped,
    AudioSamplesAnalyzed,
    Beat,
    BPMChanged,
    PulseDetected,
    TimerArmed,  ///< not a signal: a single-shot timer was armed
};

/// Everything a host can read from a pulse.
struct PulseRecord
{
    quint64 startIndex = 0;
    quint64 endIndex = 0;
    quint64 startTime = 0;  ///< µs
    quint64 endTime = 0;    ///< µs
    quint64 duration = 0;   ///< µs
    int averageVolume = 0;
    int threshold = 0;
    int maximalValue = 0;
    int type = 0;

    bool operator==(const PulseRecord& other) const
    {
        return startIndex == other.startIndex && endIndex == other.endIndex &&
               startTime == other.startTime && endTime == other.endTime &&
               duration == other.duration && averageVolume == other.averageVolume &&
               threshold == other.threshold && maximalValue == other.maximalValue &&
               type == other.type;
    }

    QString toString() const
    {
        return QStringLiteral(
                   "[%1..%2] at %3..%4 us (%5 us) average %6 threshold %7 maximum %8 type %9")
            .arg(startIndex)
            .arg(endIndex)
            .arg(startTime)
            .arg(endTime)
            .arg(duration)
            .arg(averageVolume)
            .arg(threshold)
            .arg(maximalValue)
            .arg(type);
    }
};

/// One emitted signal with its arguments; what a signal does not carry keeps its default.
struct SignalRecord
{
    SignalKind kind = SignalKind::Beat;
    quint64 index = 0;               ///< AudioSamplesAnalyzed
    int delay = 0;                   ///< TimerArmed, ms
    double bpm = 0.0;                ///< BPMChanged
    PulseRecord pulse;               ///< PulseDetected, as it was during the emission
    std::vector<double> amplitudes;  ///< AmplitudesComputed
    std::vector<qint16> samples;     ///< AudioSamplesAnalyzed

    bool operator==(const SignalRecord& other) const
    {
        return kind == other.kind && index == other.index && delay == other.delay &&
               bpm == other.bpm && pulse == other.pulse && amplitudes == other.amplitudes &&
               samples == other.samples;
    }
    bool operator!=(const SignalRecord& other) const { return !(*this == other); }

    QString toString() const
    {
        switch (kind) {
        case SignalKind::AmplitudesComputed:
            return QStringLiteral("OnAmplitudesComputed(%1 values)").arg(amplitudes.size());
        case SignalKind::AnalysisStarted:
            return QStringLiteral("OnAnalysisStarted()");
        case SignalKind::AnalysisStopped:
            return QStringLiteral("OnAnalysisStopped()");
        case SignalKind::AudioSamplesAnalyzed:
            return QStringLiteral("OnAudioSamplesAnalyzed(%1, %2 samples)")
                .arg(index)
                .arg(samples.size());
        case SignalKind::Beat:
            return QStringLiteral("OnBeat()");
        case SignalKind::BPMChanged:
            return QStringLiteral("OnBPMChanged(%1)").arg(bpm, 0, 'g', 17);
        case SignalKind::PulseDetected:
            return QStringLiteral("OnPulseDetected(%1)").arg(pulse.toString());
        case SignalKind::TimerArmed:
            return QStringLiteral("timer armed for %1 ms").arg(delay);
        }
        return QString();
    }
};

using SignalRecords = std::vector<SignalRecord>;

/// Where two arrays differ, in words; empty when they are equal.
template <typename T>
QString describeDifference(const std::vector<T>& left, const std::vector<T>& right)
{
    if (left.size() != right.size())
        return QStringLiteral(" sizes %1 and %2").arg(left.size()).arg(right.size());
    const auto [at, other] = std::mismatch(left.begin(), left.end(), right.begin());
    if (at == left.end())
        return QString();
    return QStringLiteral(" entry %1: %2 and %3").arg(at - left.begin()).arg(*at).arg(*other);
}

/// The first record in which two logs differ, with the ones before it; empty when they are equal.
inline QString describeDifference(const SignalRecords& left, const SignalRecords& right)
{
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t at = 0;
    while (at < common && left[at] == right[at])
        ++at;
    if (at == left.size() && at == right.size())
        return QString();
    QString text =
        QStringLiteral("record %1 of %2 and %3").arg(at).arg(left.size()).arg(right.size());
    for (std::size_t i = at > 3 ? at - 3 : 0; i < at; ++i)
        text += QStringLiteral("\n  both:  ") + left[i].toString();
    const QString nothing = QStringLiteral("nothing");
    text += QStringLiteral("\n  left:  ") + (at < left.size() ? left[at].toString() : nothing);
    text += QStringLiteral("\n  right: ") + (at < right.size() ? right[at].toString() : nothing);
    if (at < common) {
        text += describeDifference(left[at].samples, right[at].samples) +
                describeDifference(left[at].amplitudes, right[at].amplitudes);
    }
    return text;
}

/// One line for each record.
inline QString toString(const SignalRecords& records)
{
    QString text;
    for (const SignalRecord& record : records)
        text += record.toString() + QLatin1Char('\n');
    return text;
}
