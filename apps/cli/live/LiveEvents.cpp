// SPDX-License-Identifier: MIT
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <cli/output/TextNumbers.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString Key(const char* pName)
{
    return QString::fromLatin1(pName);
}

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

QJsonValue BPMValue(double pBPM)
{
    return pBPM > 0.0 ? QJsonValue(cli::Rounded(pBPM, 3)) : QJsonValue();
}

}  // namespace

LiveEvents::LiveEvents(eEventFormat pFormat, CaptureSession& pSession, LiveSummary& pSummary)
    : m_format(pFormat), m_session(pSession), m_summary(pSummary)
{
    m_output.Open(QStringLiteral("-"));
    connect(&pSummary, &LiveSummary::OnBeat, this, &LiveEvents::_OnBeat);
    if (pFormat == eTextEvents)
        _FollowForText();
    else if (pFormat == eNdjsonEvents)
        _FollowForNdjson();
}

void LiveEvents::Finish()
{
    if (m_format == eNdjsonEvents)
        _WriteObject("end",
                     {{Key("bpm"), BPMValue(m_summary.getTempo())},
                      {Key("realBeats"), qint64(m_summary.getRealBeats())},
                      {Key("virtualBeats"), qint64(m_summary.getVirtualBeats())}});
}

void LiveEvents::_FollowForText()
{
    connect(
        &m_summary.getRelay(),
        &BeatRelay::OnPlayingChanged,
        this,
        [this](double pTime, bool pIsPlaying) {
            _WriteText(pTime, pIsPlaying ? tr("playing") : tr("stopped"));
        });
}

void LiveEvents::_FollowForNdjson()
{
    m_ndjson = std::make_unique<NdjsonWriter>(
        m_summary.getRelay(), QString(), false, [this](const QByteArray& pLine) { _Write(pLine); });
    connect(
        &m_session,
        &CaptureSession::OnStateChanged,
        this,
        [this](eCaptureState pState) {
            _WriteObject(
                "device",
                {{Key("name"), m_session.getDeviceName()}, {Key("state"), Key(NameOf(pState))}});
        });
    connect(&m_session, &CaptureSession::OnNotice, this, [this](eCaptureNotice pNotice) {
        _WriteObject("notice", {{Key("what"), Key(NameOf(pNotice))}});
    });
}

void LiveEvents::_OnBeat()
{
    const double now = m_summary.getSeconds();
    const double bpm = m_session.getAnalyzer()->getCurrentBPM();
    switch (m_format) {
    case eTextEvents:
        return _WriteText(now, tr("beat  %1 BPM").arg(bpm, 0, 'f', 1));
    case eBeatEvents:
        return _Write(cli::SecondsText(now) + '\n');
    case eNdjsonEvents:
        return _WriteObject("announce", {{Key("bpm"), BPMValue(bpm)}});
    }
}

void LiveEvents::_WriteText(double pTime, const QString& pText)
{
    _Write(QStringLiteral("%1  %2\n").arg(pTime, 10, 'f', 3).arg(pText).toUtf8());
}

void LiveEvents::_WriteObject(const char* pType, QJsonObject pFields)
{
    pFields[Key("time")] = cli::Rounded(m_summary.getSeconds(), 6);
    pFields[Key("type")] = Key(pType);
    _Write(QJsonDocument(pFields).toJson(QJsonDocument::Compact) + '\n');
}

void LiveEvents::_Write(const QByteArray& pLine)
{
    if (!m_output.Write(pLine))
        Q_EMIT OnFailed();
}

#include "moc_LiveEvents.cpp"
