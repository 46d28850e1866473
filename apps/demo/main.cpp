// SPDX-License-Identifier: MIT
#include <demo/DemoTrack.h>
#include <shared/files/WholeFile.h>
#include <shared/options/OptionParser.h>
#include <shared/text/Text.h>

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <exception>
#include <sndfile.h>
#include <string>
#include <vector>

namespace {

enum eExitCode
{
    eDone = 0,
    eFailed = 1,
    eUsage = 2
};

struct Arguments
{
    std::string output;
    std::string beats;
    DemoTrack::Options track;
    int channels = 2;
};

constexpr std::size_t kFramesPerChunk = 4096;
constexpr int kWav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
constexpr quint64 kFrameSize = 2 * sizeof(qint16);  ///< bytes, stereo
constexpr quint64 kMostWavBytes = 0xffff0000;  ///< of samples: the head has 32 bits for the size

/// libsndfile's format for a file name's suffix; 0 = none that we write.
int getFormat(const QString& pPath)
{
    const QString suffix = QFileInfo(pPath).suffix().toLower();
    if (suffix == QLatin1String("wav"))
        return kWav;
    if (suffix == QLatin1String("flac"))
        return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    if (suffix == QLatin1String("ogg"))
        return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    if (suffix == QLatin1String("mp3"))
        return SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    return 0;
}

SF_INFO getInfo(const Arguments& pArguments)
{
    SF_INFO info = {};
    info.samplerate = pArguments.track.sampleRate;
    info.channels = pArguments.channels;
    info.format = getFormat(QFile::decodeName(pArguments.output.c_str()));
    return info;
}

/// Makes the left channel of each frame the mean of both and closes the gaps.
void mixToMono(std::vector<float>& pFrames, std::size_t pCount)
{
    for (std::size_t i = 0; i < pCount; ++i)
        pFrames[i] = 0.5F * (pFrames[2 * i] + pFrames[2 * i + 1]);
}

/// Writes the whole track; a sentence on what failed, or an empty string.
QString writeMusic(const Arguments& pArguments, const QString& pPath)
{
    DemoTrack track(pArguments.track);
    SF_INFO info = getInfo(pArguments);
    if (info.format == kWav && track.getFrameCount() * kFrameSize > kMostWavBytes)
        info.format = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(QFile::encodeName(pPath).constData(), SFM_WRITE, &info);
    if (file == nullptr)
        return QString::fromUtf8(sf_strerror(nullptr));
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    std::vector<float> frames(2 * kFramesPerChunk);
    bool isWritten = true;
    for (std::size_t count = 0;
         isWritten && (count = track.Read(frames.data(), kFramesPerChunk)) > 0;) {
        if (pArguments.channels == 1)
            mixToMono(frames, count);
        isWritten = sf_writef_float(file, frames.data(), sf_count_t(count)) == sf_count_t(count);
    }
    const QString error = isWritten ? QString() : QString::fromUtf8(sf_strerror(file));
    const bool isClosed = sf_close(file) == 0;
    return isWritten && !isClosed ? tr("closing the file failed") : error;
}

/// Writes the time of every beat, one a line, in seconds.
QString writeBeats(const Arguments& pArguments, const QString& pPath)
{
    const DemoTrack track(pArguments.track);
    QFile file(pPath);
    bool isWritten = file.open(QIODevice::WriteOnly);
    for (const double time : track.getArrangement().getBeatTimes(track.getDuration()))
        isWritten = isWritten && file.write(QByteArray::number(time, 'f', 6) + '\n') > 0;
    return isWritten && file.flush() ? QString() : file.errorString();
}

int fail(const QString& pMessage, int pCode)
{
    std::fprintf(stderr, "audio-analyzer-demo: %s\n", pMessage.toLocal8Bit().constData());
    return pCode;
}

int run(const Arguments& pArguments)
{
    const QString output = QFile::decodeName(pArguments.output.c_str());
    const QString beats = QFile::decodeName(pArguments.beats.c_str());
    WholeFile music;
    WholeFile list;
    if (!music.Create(output))
        return fail(music.getError(), eFailed);
    if (!beats.isEmpty() && !list.Create(beats))
        return fail(list.getError(), eFailed);
    QString error = writeMusic(pArguments, music.getTemporaryPath());
    if (!error.isEmpty())
        return fail(tr("Cannot write \"%1\": %2.").arg(output, error), eFailed);
    error = beats.isEmpty() ? QString() : writeBeats(pArguments, list.getTemporaryPath());
    if (!error.isEmpty())
        return fail(tr("Cannot write \"%1\": %2.").arg(beats, error), eFailed);
    if (!music.Commit())
        return fail(music.getError(), eFailed);
    return beats.isEmpty() || list.Commit() ? eDone : fail(list.getError(), eFailed);
}

/// What is wrong with arguments that are each fine alone; empty when nothing is.
QString findConflict(const Arguments& pArguments)
{
    const SF_INFO info = getInfo(pArguments);
    const QString output = QFile::decodeName(pArguments.output.c_str());
    if (info.format == 0)
        return tr("\"%1\" does not end in .wav, .flac, .ogg or .mp3.").arg(output);
    const bool isMp3 = (info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG;
    if (sf_format_check(&info) == SF_FALSE || (isMp3 && info.samplerate > 48000))
        return tr("\"%1\" cannot hold %2 Hz; use .wav or .flac.").arg(output).arg(info.samplerate);
    return pArguments.output == pArguments.beats ? tr("The music and the beats need two files.")
                                                 : QString();
}

void addOptions(shared::OptionSet pOptions, Arguments& pArguments)
{
    DemoTrack::Options& track = pArguments.track;
    pOptions.setMissing(tr("name the file to write"));
    pOptions.AddWord("OUT", pArguments.output, tr("file to write: .wav, .flac, .ogg or .mp3"));
    pOptions.AddNumber("--rate",
                       track.sampleRate,
                       DemoTrack::kMinimalRate,
                       DemoTrack::kMaximalRate,
                       tr("sample rate in Hz"));
    pOptions.AddNumber("--bpm",
                       track.bpm,
                       DemoTrack::kMinimalBPM,
                       DemoTrack::kMaximalBPM,
                       tr("tempo in beats per minute"));
    pOptions.AddNumber("--channels", pArguments.channels, 1, 2, tr("mono or stereo"));
    pOptions.AddNumber("--seconds",
                       track.duration,
                       0.1,
                       86400.0,
                       tr("length, which repeats the music; else one pass"));
    pOptions.AddValue("--beats",
                      pArguments.beats,
                      tr("FILE"),
                      tr("also write the true beats, in seconds, one a line"));
    pOptions.setFooter(tr("Example: audio-analyzer-demo demo.flac --bpm 140 --beats demo.beats"));
}

int parseAndRun(int pCount, char** pValues)
{
    Arguments arguments;
    shared::OptionParser parser(
        tr("Makes about a minute of electronic music whose beats are known."),
        QStringLiteral("audio-analyzer-demo"));
    addOptions(parser.getOptions(), arguments);
    const shared::ParsedOptions parsed = parser.Parse(pCount, pValues);
    if (parsed.outcome == shared::ParsedOptions::eShowText) {
        std::fputs(parsed.text.toLocal8Bit().constData(), stdout);
        return eDone;
    }
    const QString refusal =
        parsed.outcome == shared::ParsedOptions::eRefuse ? parsed.text : findConflict(arguments);
    return refusal.isEmpty() ? run(arguments) : fail(refusal, eUsage);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return parseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "audio-analyzer-demo: %s\n", error.what());
        return eFailed;
    }
}
