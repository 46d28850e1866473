// SPDX-License-Identifier: MIT
#include "SourceTexts.h"

#include <QCoreApplication>

namespace sourcetexts {

namespace {

QString tr(const char* pText)
{
    return QCoreApplication::translate("sourcetexts", pText);
}

Text describeNotice(const SourceState& pState)
{
    switch (*pState.notice) {
    case eNoDataNotice:
        return {tr("No data comes from \u201c%1\u201d. Check that nothing else holds it.")
                    .arg(pState.name),
                true};
    case eDigitalSilenceNotice:
        return {tr("Nothing but silence from \u201c%1\u201d. Start the music or unmute the input.")
                    .arg(pState.name),
                true};
    case eTooQuietNotice:
        return {tr("Too quiet to count as music. Turn the input up, or lower the stop threshold."),
                true};
    case eClippedNotice:
        break;
    }
    return {tr("Clipped: the level is cut off at full scale. Turn the input down."), true};
}

Text describeUnusable(const SourceState& pState)
{
    if (pState.channels == 0)
        return {tr("\u201c%1\u201d offers no format that can be analysed. Choose another input.")
                    .arg(pState.name),
                true};
    return {tr("\u201c%1\u201d delivers %2 channels only; a mono input or a monitor is needed.")
                .arg(pState.name)
                .arg(pState.channels),
            true};
}

Text describeDevice(const SourceState& pState)
{
    switch (pState.capture) {
    case eCaptureWaiting:
        return {tr("Waiting for \u201c%1\u201d; it resumes as soon as the device is there.")
                    .arg(pState.name),
                true};
    case eCaptureUnusable:
        return describeUnusable(pState);
    case eCaptureStarting:
        return pState.notice ? describeNotice(pState)
                             : Text{tr("Opening \u201c%1\u201d \u2026").arg(pState.name), false};
    case eCaptureRunning:
    case eCaptureClosed:
        break;
    }
    if (pState.notice)
        return describeNotice(pState);
    return {pState.isPlaying ? tr("Listening to \u201c%1\u201d").arg(pState.name)
                             : tr("Listening to \u201c%1\u201d: no music").arg(pState.name),
            false};
}

Text describeFile(const SourceState& pState)
{
    if (pState.notice)
        return describeNotice(pState);
    const QString position = describeTime(pState.position);
    return {pState.length > 0.0 ? tr("Playing \u201c%1\u201d   %2 of %3")
                                      .arg(pState.name, position, describeTime(pState.length))
                                : tr("Playing \u201c%1\u201d   %2").arg(pState.name, position),
            false};
}

}  // namespace

Text describe(const SourceState& pState)
{
    switch (pState.kind) {
    case SourceState::eNone:
        return {tr("No input device. Plug one in, start a sound server, or drop an audio file "
                   "here."),
                true};
    case SourceState::eDevice:
        return describeDevice(pState);
    case SourceState::eFile:
        return describeFile(pState);
    case SourceState::eEnded:
        break;
    }
    return pState.error.isEmpty()
               ? Text{tr("\u201c%1\u201d has ended").arg(pState.name), false}
               : Text{tr("\u201c%1\u201d: %2").arg(pState.name, pState.error), true};
}

QString describeTime(double pSeconds)
{
    const auto seconds = qint64(pSeconds > 0.0 ? pSeconds : 0.0);
    const QString rest = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, seconds >= 3600 ? 2 : 1, 10, QLatin1Char('0'))
                             .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return seconds >= 3600 ? QStringLiteral("%1:%2").arg(seconds / 3600).arg(rest) : rest;
}

}  // namespace sourcetexts
