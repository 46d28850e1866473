// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <tuple>
#include <vector>

/// Everything an analyzer remembers between two calls but its buffers.
struct AnalyzerState
{
    double accuracy = 1.0;
    bool hasAmplitudes = false;
    quint64 amplitudesCount = 0;
    quint64 analysisStartTime = 0;
    quint64 sampleIndex = 0;
    bool isAnalyzing = false;
    bool isConsistencyAllowed = true;
    bool isStopped = true;
    std::vector<quint64> beatIndexes;
    double computedBPM = 0.0;
    quint64 missedBeatsCount = 0;
    quint64 beatLength = 0;
    double fixedBPM = 0.0;
    double lastBPM = 0.0;
    quint64 inaccuracyStartTime = 0;
    quint64 lastBeatIndex = 0;
    bool isLastBeatVirtual = true;
    quint64 lastPulseIndex = 0;
    quint64 virtualBeatIndex = 0;
    int currentVolume = 0;
    int previousVolume = 0;
    quint64 beatWindowEnd = 0;
    quint64 beatWindowStart = 0;
    quint64 nextBeatIndex = 0;
    std::vector<quint64> candidates;  ///< start indexes
    quint64 pulseBlockFill = 0;
    quint64 pulseBlockSize = 0;
    bool hasStopBlock = false;
    quint64 stopBlockFill = 0;
    quint64 stopBlockSize = 0;

    /// Every member, in this order.
    auto tie() const
    {
        return std::tie(accuracy,
                        hasAmplitudes,
                        amplitudesCount,
                        analysisStartTime,
                        sampleIndex,
                        isAnalyzing,
                        isConsistencyAllowed,
                        isStopped,
                        beatIndexes,
                        computedBPM,
                        missedBeatsCount,
                        beatLength,
                        fixedBPM,
                        lastBPM,
                        inaccuracyStartTime,
                        lastBeatIndex,
                        isLastBeatVirtual,
                        lastPulseIndex,
                        virtualBeatIndex,
                        currentVolume,
                        previousVolume,
                        beatWindowEnd,
                        beatWindowStart,
                        nextBeatIndex,
                        candidates,
                        pulseBlockFill,
                        pulseBlockSize,
                        hasStopBlock,
                        stopBlockFill,
                        stopBlockSize);
    }

    bool operator==(const AnalyzerState& other) const { return tie() == other.tie(); }
    bool operator!=(const AnalyzerState& other) const { return !(*this == other); }

    /// Calls visitor(name, value) for each member, in this order.
    template <typename Visitor>
    void visit(Visitor visitor) const
    {
        std::size_t at = 0;
        std::apply([&](const auto&... values) { (visitor(names[at++], values), ...); }, tie());
    }

private:
    static constexpr const char* names[] = {
        "accuracy",          "hasAmplitudes",  "amplitudesCount",      "analysisStartTime",
        "sampleIndex",       "isAnalyzing",    "isConsistencyAllowed", "isStopped",
        "beatIndexes",       "computedBPM",    "missedBeatsCount",     "beatLength",
        "fixedBPM",          "lastBPM",        "inaccuracyStartTime",  "lastBeatIndex",
        "isLastBeatVirtual", "lastPulseIndex", "virtualBeatIndex",     "currentVolume",
        "previousVolume",    "beatWindowEnd",  "beatWindowStart",      "nextBeatIndex",
        "candidates",        "pulseBlockFill", "pulseBlockSize",       "hasStopBlock",
        "stopBlockFill",     "stopBlockSize"};
};

namespace detail {

inline QString toText(double value)
{
    return QString::number(value, 'g', 17);
}
inline QString toText(bool value)
{
    return QString::number(value ? 1 : 0);
}
inline QString toText(int value)
{
    return QString::number(value);
}
inline QString toText(quint64 value)
{
    return QString::number(value);
}
inline QString toText(const std::vector<quint64>& values)
{
    QString text;
    for (const quint64 value : values)
        text += QString::number(value) + QLatin1Char(' ');
    return text;
}

}  // namespace detail

/// The members in which two states differ, one a line.
inline QString describeDifference(const AnalyzerState& left, const AnalyzerState& right)
{
    std::vector<QString> values;
    left.visit(
        [&values](const char*, const auto& value) { values.push_back(detail::toText(value)); });
    QString text;
    std::size_t at = 0;
    right.visit([&](const char* pName, const auto& value) {
        const QString& other = values[at++];
        if (other != detail::toText(value))
            text += QStringLiteral("\n  %1: left %2, right %3")
                        .arg(QLatin1String(pName), other, detail::toText(value));
    });
    return text;
}
