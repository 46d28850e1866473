// SPDX-License-Identifier: MIT
#include <desktop/session/SourceTexts.h>
#include <shared/capture/InputDevices.h>

SourceTexts::Text SourceTexts::_DescribeNotice(const SourceState& pState)
{
    switch (*pState.notice) {
    case eNoDataNotice:
        return {tr("No data comes from “%1”. Check that nothing else holds it.").arg(pState.name),
                true};
    case eDigitalSilenceNotice:
        return {tr("Nothing but silence from “%1”. Start the music or unmute the input.")
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

SourceTexts::Text SourceTexts::_DescribeUnusable(const SourceState& pState)
{
    if (pState.channels == 0)
        return {tr("“%1” offers no format that can be analysed. Choose another input.")
                    .arg(pState.name),
                true};
    return {tr("“%1” delivers %2 channels only; a mono input or a monitor is needed.")
                .arg(pState.name)
                .arg(pState.channels),
            true};
}

SourceTexts::Text SourceTexts::_DescribeDevice(const SourceState& pState)
{
    switch (pState.capture) {
    case eCaptureWaiting:
        return {tr("Waiting for “%1”; it resumes as soon as the device is there.").arg(pState.name),
                true};
    case eCaptureUnusable:
        return _DescribeUnusable(pState);
    case eCaptureStarting:
        return pState.notice ? _DescribeNotice(pState)
                             : Text{tr("Opening “%1” …").arg(pState.name), false};
    case eCaptureRunning:
    case eCaptureClosed:
        break;
    }
    if (pState.notice)
        return _DescribeNotice(pState);
    return {pState.isPlaying ? tr("Listening to “%1”").arg(pState.name)
                             : tr("Listening to “%1”: no music").arg(pState.name),
            false};
}

SourceTexts::Text SourceTexts::_DescribeFile(const SourceState& pState)
{
    if (pState.notice)
        return _DescribeNotice(pState);
    const QString position = DescribeTime(pState.position);
    const QString place =
        pState.length > 0.0 ? tr("%1 of %2").arg(position, DescribeTime(pState.length)) : position;
    return {_DescribeWhat(pState) + QStringLiteral("   ") + place, false};
}

QString SourceTexts::_DescribeWhat(const SourceState& pState)
{
    const QString reason = _DescribeSilence(pState.sound);
    return reason.isEmpty() ? tr("Playing “%1”").arg(pState.name)
                            : tr("Playing “%1” without sound: %2").arg(pState.name, reason);
}

QString SourceTexts::DescribeBriefly(const SourceState& pState)
{
    const bool isPlaying = pState.kind == SourceState::eFile && !pState.notice;
    return isPlaying ? _DescribeWhat(pState) : Describe(pState).text;
}

/// Empty when it is heard.
QString SourceTexts::_DescribeSilence(eFileSound pSound)
{
    switch (pSound) {
    case eFileHeard:
        return {};
    case eFileNoOutput:
        return tr("there is no output");
    case eFileStuck:
        return tr("the output takes no sound");
    case eFileNoServer:
        return tr("no sound server answers");
    case eFileMuted:
    case eFileSilent:
        break;
    }
    return tr("muted");
}

SourceTexts::Text SourceTexts::Describe(const SourceState& pState)
{
    switch (pState.kind) {
    case SourceState::eNone:
        return {tr("No input device. Plug one in, start a sound server, or drop an audio file "
                   "here."),
                true};
    case SourceState::eDevice:
        return _DescribeDevice(pState);
    case SourceState::eFile:
        return _DescribeFile(pState);
    case SourceState::eEnded:
        break;
    }
    return pState.error.isEmpty() ? Text{tr("“%1” has ended").arg(pState.name), false}
                                  : Text{tr("“%1”: %2").arg(pState.name, pState.error), true};
}

QString SourceTexts::DescribeBeginning(const SourceState& pState)
{
    const bool isFine = pState.kind == SourceState::eDevice && !pState.notice &&
                        (pState.capture == eCaptureStarting || pState.capture == eCaptureRunning);
    if (!isFine)
        return {};
    const auto source = findSoundSource(pState.name);
    const bool isDescribed = source && !source->description.isEmpty();
    return tr("Play music: the tempo comes by itself. “%1” is listened to.")
        .arg(isDescribed ? source->description : pState.name);
}

QString SourceTexts::DescribeTime(double pSeconds)
{
    const auto seconds = qint64(pSeconds > 0.0 ? pSeconds : 0.0);
    const QString rest = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, seconds >= 3600 ? 2 : 1, 10, QLatin1Char('0'))
                             .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return seconds >= 3600 ? QStringLiteral("%1:%2").arg(seconds / 3600).arg(rest) : rest;
}
