// SPDX-License-Identifier: MIT
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <cli/output/JsonValues.h>
#include <cli/output/TextNumbers.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

using cli::BPMValue;
using cli::Key;

const char* NameOf(eCaptureState pState)
{
    switch (pState) {
    case eCaptureWaiting:
        return "waiting";
    case eCaptureUnusable:
        return "unusable";
    case eCaptureStarting:
        return "starting";
    case eCaptureRunning:
        return "running";
    case eCaptureClosed:
        break;
    }
    return "closed";
}

const char* NameOf(eCaptureNotice pNotice)
{
    switch (pNotice) {
    case eNoDataNotice:
        return "noData";
    case eDigitalSilenceNotice:
        return "digitalSilence";
    case eTooQuietNotice:
        return "tooQuiet";
    case eClippedNotice:
        break;
    }
    return "clipped";
}

QByteArray TextLine(double pTime, const QString& pText)
{
    return QStringLiteral("%1  %2\n").arg(pTime, 10, 'f', 3).arg(pText).toUtf8();
}

QByteArray ObjectLine(double pTime, const char* pType, QJsonObject pFields)
{
    pFields[Key("time")] = cli::Rounded(pTime, 6);
    pFields[Key("type")] = Key(pType);
    return QJsonDocument(pFields).toJson(QJsonDocument::Compact) + '\n';
}

/// Of an instant in µs.
QJsonValue Seconds(std::int64_t pTime)
{
    return cli::Rounded(double(pTime) / 1e6, 6);
}

}  // namespace

LiveEvents::LiveEvents(eEventFormat pFormat,
                       LiveSource& pSource,
                       LiveBeats& pBeats,
                       LiveSummary& pSummary)
    : m_format(pFormat), m_source(pSource), m_beats(pBeats), m_summary(pSummary),
      m_writer({[this](const Announcement& pBeat) { return _FormAnnouncement(pBeat); },
                [this](std::uint64_t pCount) { return _FormLoss(pCount); }})
{
    if (pFormat == eTextEvents)
        _FollowForText();
    else if (pFormat == eNdjsonEvents)
        _FollowForNdjson();
    m_beats.getThread().Add(*this, 1);
}

LiveEvents::~LiveEvents()
{
    m_beats.getThread().Remove(*this);
}

void LiveEvents::Follow(Outputs& pOutputs)
{
    if (m_format != eNdjsonEvents)
        return;
    connect(&pOutputs,
            &Outputs::OnStateChanged,
            this,
            [this, &pOutputs](const QString& pName, const QString& pWords) {
                _WriteObject("output",
                             {{Key("name"), pName},
                              {Key("open"), pOutputs.isOpen(pName)},
                              {Key("state"), pWords}});
            });
}

void LiveEvents::Finish()
{
    m_beats.getThread().Remove(*this);
    if (m_format == eNdjsonEvents)
        _WriteObject("end",
                     {{Key("bpm"), BPMValue(m_summary.getTempo())},
                      {Key("realBeats"), qint64(m_summary.getRealBeats())},
                      {Key("virtualBeats"), qint64(m_summary.getVirtualBeats())}});
    m_writer.End();
}

void LiveEvents::_FollowForText()
{
    connect(
        &m_summary.getRelay(),
        &BeatRelay::OnPlayingChanged,
        this,
        [this](double pTime, bool pIsPlaying) {
            m_writer.Write(TextLine(pTime, pIsPlaying ? tr("playing") : tr("stopped")));
        });
}

void LiveEvents::_FollowForNdjson()
{
    m_ndjson = std::make_unique<NdjsonWriter>(
        m_summary.getRelay(), QString(), false, [this](const QByteArray& pLine) {
            m_writer.Write(pLine);
        });
    connect(
        &m_source,
        &LiveSource::OnSourceChanged,
        this,
        [this] {
            const SourceState source = m_source.getSource();
            if (source.kind == SourceState::eDevice)
                _WriteObject(
                    "device",
                    {{Key("name"), source.name}, {Key("state"), Key(NameOf(source.capture))}});
        });
    connect(&m_source, &LiveSource::OnNotice, this, [this](eCaptureNotice pNotice) {
        _WriteObject("notice", {{Key("what"), Key(NameOf(pNotice))}});
    });
}

void LiveEvents::_WriteObject(const char* pType, const QJsonObject& pFields)
{
    m_writer.Write(ObjectLine(m_summary.getSeconds(), pType, pFields));
}

// ---- In the clock's thread ----------------------------------------------------------------------

void LiveEvents::OnTick(const shared::ClockTick& pTick, const BeatClockState& pState)
{
    m_writer.Announce({pTick, pState.bpm, m_beats.getConfidence(pState)});
}

// ---- In the writer's thread ---------------------------------------------------------------------

QByteArray LiveEvents::_FormAnnouncement(const Announcement& pAnnouncement) const
{
    const shared::ClockTick& tick = pAnnouncement.tick;
    const double time = m_summary.getSeconds(tick.time);
    switch (m_format) {
    case eTextEvents:
        return TextLine(time,
                        tr("beat %1  %2 BPM  %3 %")
                            .arg(tick.beatInBar + 1)
                            .arg(pAnnouncement.bpm, 0, 'f', 1)
                            .arg(std::lround(100.0 * pAnnouncement.confidence)));
    case eBeatEvents:
        return cli::SecondsText(time) + '\n';
    case eNdjsonEvents:
        break;
    }
    return ObjectLine(time,
                      "announce",
                      {{Key("bpm"), BPMValue(pAnnouncement.bpm)},
                       {Key("beat"), qint64(tick.beat)},
                       {Key("beatInBar"), tick.beatInBar + 1},
                       {Key("confidence"), cli::Rounded(pAnnouncement.confidence, 3)},
                       {Key("monotonic"), Seconds(tick.time)},
                       {Key("wall"), Seconds(tick.wallTime)}});
}

/// The lines of "beats" are seconds alone.
QByteArray LiveEvents::_FormLoss(std::uint64_t pCount) const
{
    const double now = m_summary.getSeconds();
    if (m_format == eNdjsonEvents)
        return ObjectLine(now, "lost", {{Key("count"), qint64(pCount)}});
    return m_format == eTextEvents ? TextLine(now, tr("%1 events lost").arg(pCount)) : QByteArray();
}

#include "moc_LiveEvents.cpp"
