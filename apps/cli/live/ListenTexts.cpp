// SPDX-License-Identifier: MIT
#include <cli/detail/ProgressLine.h>
#include <cli/live/ListenTexts.h>
#include <shared/capture/InputDevices.h>
#include <shared/capture/SoundBackEnd.h>
#include <shared/text/Text.h>

#include <cmath>

namespace listentexts {

namespace {

QString Quoted(const QStringList& pNames)
{
    return QStringLiteral("\"%1\"").arg(pNames.join(QLatin1String("\", \"")));
}

QString TypeName(QAudioFormat::SampleType pType)
{
    return pType == QAudioFormat::SignedInt ? tr("signed") : tr("unsigned");
}

bool IsServerSilent()
{
    return SoundBackEnd::get() && !SoundBackEnd::get()->isAnswering();
}

}  // namespace

QString describeState(const CaptureSession& pSession, bool pWasRunning)
{
    switch (pSession.getState()) {
    case eCaptureWaiting:
        return tr("\"%1\" is gone; it will be recorded again as soon as it is back")
            .arg(pSession.getDeviceName());
    case eCaptureUnusable:
        return describeUnusable(pSession);
    case eCaptureRunning:
        return pWasRunning ? tr("\"%1\" is back").arg(pSession.getDeviceName())
                           : tr("listening to \"%1\"").arg(pSession.getDeviceName());
    case eCaptureStarting:
    case eCaptureClosed:
        break;
    }
    return {};
}

QString describeNotice(const SourceState& pSource,
                       eCaptureNotice pNotice,
                       bool pIsAutomatic,
                       int pStopThreshold)
{
    switch (pNotice) {
    case eNoDataNotice:
        if (IsServerSilent())
            return tr("the sound server does not answer; still trying");
        return tr("no data comes from \"%1\", though it is there; check that nothing holds it and "
                  "that it is not suspended. Still trying")
            .arg(pSource.name);
    case eDigitalSilenceNotice:
        if (pSource.kind == SourceState::eFile)
            return tr("digital silence: nothing but equal samples in \"%1\"").arg(pSource.name);
        return tr("digital silence: \"%1\" delivers nothing but equal samples; start the music, "
                  "unmute the input, or choose another with --device")
            .arg(pSource.name);
    case eTooQuietNotice:
        if (pIsAutomatic)
            return tr("no music is heard in what \"%1\" delivers, and it is quiet; turn the input "
                      "up")
                .arg(pSource.name);
        return tr("too quiet: nothing rises above the stop threshold %1 between 50 and 2000 Hz; "
                  "turn the input up, or lower --stop-threshold")
            .arg(pStopThreshold);
    case eClippedNotice:
        break;
    }
    return tr("clipped: the level is cut off at full scale; turn the input down");
}

QString describeUnusable(const CaptureSession& pSession)
{
    QStringList monitors;
    QStringList others;
    for (const InputDevice& device : listInputDevices())
        if (device.isUsable())
            (device.isMonitor() ? monitors : others).append(device.name);
    const QAudioFormat& format = pSession.getInputFormat();
    const QString reason =
        format.isValid()
            ? tr("\"%1\" delivers %2 channels only, which the analysis cannot use; it needs a mono "
                 "format")
                  .arg(pSession.getDeviceName(), QString::number(format.channelCount()))
            : tr("\"%1\" offers no format that can be analysed").arg(pSession.getDeviceName());
    const QStringList choices = others + monitors;
    return choices.isEmpty() ? tr("%1; set up a mono source or a monitor of it").arg(reason)
                             : tr("%1; choose with --device: %2").arg(reason, Quoted(choices));
}

QString describeFormat(const QAudioFormat& pFormat)
{
    if (!pFormat.isValid())
        return tr("no usable format");
    const QString channels =
        pFormat.channelCount() == 1 ? tr("mono") : tr("%1 channels").arg(pFormat.channelCount());
    return tr("%1 Hz, %2, %3 bits %4")
        .arg(pFormat.sampleRate())
        .arg(channels)
        .arg(pFormat.sampleSize())
        .arg(TypeName(pFormat.sampleType()));
}

QString describeAnalysis(const LiveSource& pSource)
{
    const int rate = pSource.getSampleRate();
    const quint64 block = pSource.getAnalyzer()->getPulseBlockSize();
    return tr("analysed: %1 Hz, mono, 16 bits signed, blocks of %2 samples (%3 ms)")
        .arg(rate)
        .arg(block)
        .arg(1000.0 * double(block) / rate, 0, 'f', 1);
}

QString describeFormat(const CaptureSession& pSession)
{
    return tr("recorded: %1; %2")
        .arg(describeFormat(pSession.getInputFormat()), describeAnalysis(pSession));
}

QString describeFile(const SourceState& pSource)
{
    const QString what = pSource.sound == eFileSilent
                             ? tr("playing \"%1\" without sound").arg(pSource.name)
                             : tr("playing \"%1\"").arg(pSource.name);
    return pSource.length > 0.0 ? tr("%1, %2 long").arg(what, cli::Clock(pSource.length)) : what;
}

QString describeSound(const SourceState& pSource)
{
    switch (pSource.sound) {
    case eFileHeard:
        return tr("it is heard on the default output");
    case eFileNoServer:
        return tr("it is not heard: no sound server answers");
    case eFileNoOutput:
        return tr("it is not heard: the sound server has no output");
    case eFileStuck:
        return tr("it is not heard: the output takes no sound");
    case eFileMuted:
    case eFileSilent:
        break;
    }
    return {};
}

QString describeDrift(const CaptureSession& pSession)
{
    const shared::SampleClock& clock = pSession.getSampleClock();
    return tr("drift against the clock: %1 ms, %2 ppm; anchored %3 times; lost: %4 samples")
        .arg(double(clock.getDrift()) / 1000.0, 0, 'f', 1)
        .arg(clock.getPpm(), 0, 'f', 1)
        .arg(pSession.getAnchorCount())
        .arg(pSession.getLostSamples());
}

QString describeAnnouncements(const cli::AnnounceStatistics& pStatistics)
{
    return tr("announced beats: %1, missing: %2; announced after the sound left the server: median "
              "%3 ms, standard deviation %4 ms, 95 % within %5 ms")
        .arg(pStatistics.count)
        .arg(pStatistics.missing)
        .arg(pStatistics.median, 0, 'f', 1)
        .arg(pStatistics.deviation, 0, 'f', 1)
        .arg(pStatistics.most, 0, 'f', 1);
}

QString describeTicks(const cli::TickStatistics& pStatistics)
{
    return tr("ticks, 24 a beat: %1; told late by %2 ms on average, standard deviation %3 ms, at "
              "most %4 ms")
        .arg(pStatistics.getCount())
        .arg(pStatistics.getMean(), 0, 'f', 2)
        .arg(pStatistics.getDeviation(), 0, 'f', 2)
        .arg(pStatistics.getWorst(), 0, 'f', 1);
}

QString describePriority(bool pIsRealTime)
{
    return pIsRealTime ? tr("beats are told with real-time priority")
                       : tr("beats are told without real-time priority, which the system refuses: "
                            "on a busy machine they may come late");
}

QString describeLostEvents(std::uint64_t pCount)
{
    return tr("the reader of standard output was too slow: %1 events lost").arg(pCount);
}

QString describeLostSamples(quint64 pCount)
{
    return tr("%1 samples arrived and were not taken in time").arg(pCount);
}

QString describeNoServer()
{
    return tr("no sound server answers; the devices are those that Qt finds by itself");
}

QString describeNoDevice()
{
    return IsServerSilent() ? tr("the sound server does not answer")
                            : tr("there is no input device; plug one in, or start a sound server");
}

QString describeUnknownDevice(const QString& pName, const QStringList& pNames)
{
    const QStringList similar = findSimilarNames(pName, pNames);
    const QString unknown = tr("there is no input device \"%1\"").arg(pName);
    if (pNames.isEmpty())
        return tr("%1, nor any other").arg(unknown);
    return similar.isEmpty() ? tr("%1; there are: %2").arg(unknown, Quoted(pNames))
                             : tr("%1; did you mean: %2").arg(unknown, Quoted(similar));
}

}  // namespace listentexts
