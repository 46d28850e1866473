// SPDX-License-Identifier: MIT
#include <cli/output/JsonValues.h>
#include <cli/output/NdjsonWriter.h>
#include <cli/output/TextNumbers.h>
#include <cli/output/detail/BeatFields.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace {

using cli::BPMValue;
using cli::Key;

}  // namespace

NdjsonWriter::NdjsonWriter(const BeatRelay& pRelay,
                           const QString& pFile,
                           bool pIsRealOnly,
                           Sink pSink)
    : m_file(pFile), m_isRealOnly(pIsRealOnly), m_sink(std::move(pSink))
{
    connect(&pRelay, &BeatRelay::OnBeat, this, &NdjsonWriter::_OnBeat);
    connect(&pRelay, &BeatRelay::OnPulse, this, &NdjsonWriter::_OnPulse);
    connect(&pRelay, &BeatRelay::OnTempo, this, &NdjsonWriter::_OnTempo);
    connect(&pRelay, &BeatRelay::OnPlayingChanged, this, [this](double pTime, bool pIsPlaying) {
        _Write(pTime, pIsPlaying ? "play" : "stop", {});
    });
}

void NdjsonWriter::Finish(const AnalysisResult& pResult)
{
    const auto virtualCount =
        std::count_if(pResult.beats.begin(), pResult.beats.end(), [](const LoggedBeat& pBeat) {
            return pBeat.isVirtual;
        });
    _Write(pResult.duration(),
           "end",
           {{Key("bpm"), BPMValue(pResult.getTempo())},
            {Key("realBeats"), qint64(pResult.beats.size()) - virtualCount},
            {Key("virtualBeats"), qint64(virtualCount)}});
}

void NdjsonWriter::_OnBeat(const LoggedBeat& pBeat)
{
    if (pBeat.isVirtual && m_isRealOnly)
        return;
    QJsonObject fields = cli::BeatFields(pBeat);
    fields[Key("bpm")] = BPMValue(pBeat.bpm);
    _Write(pBeat.time, "beat", fields);
}

void NdjsonWriter::_OnPulse(double pTime, const Pulse& pPulse)
{
    _Write(
        pTime,
        "pulse",
        {{Key("loudness"), pPulse.getMaximalValue()}, {Key("threshold"), pPulse.getThreshold()}});
}

void NdjsonWriter::_OnTempo(double pTime, double pBPM)
{
    if (BPMValue(pBPM) == BPMValue(m_lastBPM))
        return;
    m_lastBPM = pBPM;
    _Write(pTime, "tempo", {{Key("bpm"), BPMValue(pBPM)}});
}

void NdjsonWriter::_Write(double pTime, const char* pType, QJsonObject pFields)
{
    pFields[Key("time")] = cli::Rounded(pTime, 6);
    pFields[Key("type")] = Key(pType);
    if (!m_file.isEmpty())
        pFields[Key("file")] = m_file;
    m_sink(QJsonDocument(pFields).toJson(QJsonDocument::Compact) + '\n');
}

#include "moc_NdjsonWriter.cpp"
