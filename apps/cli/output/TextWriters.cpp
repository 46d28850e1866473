// SPDX-License-Identifier: MIT
#include <cli/output/TextNumbers.h>
#include <cli/output/TextWriters.h>

#include <algorithm>

namespace {

/// Below it the tempo heard twice as fast is listed as the second one, else the one half as fast.
constexpr double kOctaveLimit = 68.0;  ///< BPM

}  // namespace

QByteArray makeHeading(const QString& pFile)
{
    QString name = pFile;
    // A name with a line feed must not look like a line of its own.
    name.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return "# " + name.toLocal8Bit() + '\n';
}

QByteArray makeBeatsText(const AnalysisResult& pResult)
{
    QByteArray text;
    for (const LoggedBeat& beat : pResult.beats)
        text += cli::SecondsText(beat.time) + '\n';
    return text;
}

QByteArray makeLabelsText(const AnalysisResult& pResult)
{
    QByteArray text;
    std::size_t number = 0;
    for (const LoggedBeat& beat : pResult.beats) {
        const QByteArray time = cli::SecondsText(beat.time);
        text += time + '\t' + time + '\t' + cli::BeatLabel(beat, ++number) + '\n';
    }
    return text;
}

QByteArray makeCsvText(const AnalysisResult& pResult)
{
    QByteArray text;
    std::size_t number = 0;
    for (const LoggedBeat& beat : pResult.beats)
        text += cli::SecondsText(beat.time) + ',' + cli::BeatLabel(beat, ++number) + '\n';
    return text;
}

QByteArray makeTempoText(const AnalysisResult& pResult)
{
    const double tempo = pResult.getTempo();
    const double other = tempo < kOctaveLimit ? tempo * 2.0 : tempo / 2.0;
    const double lowerShare = tempo > 0.0 && tempo < other ? 1.0 : 0.0;
    return QByteArray::number(std::min(tempo, other), 'f', 2) + '\t' +
           QByteArray::number(std::max(tempo, other), 'f', 2) + '\t' +
           QByteArray::number(lowerShare, 'f', 2) + '\n';
}
