// SPDX-License-Identifier: MIT
#include <shared/files/AudioFileReader.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <aubio/aubio.h>
#include <cstdio>
#include <soundtouch/BPMDetect.h>
#include <vector>

// What other trackers find in recordings, written as "audio-analyzer evaluate" reads it.
//
//   rival_beats aubio FOLDER FILE...        beats, FOLDER/NAME.beats.txt
//   rival_beats soundtouch FOLDER FILE...   tempos, FOLDER/NAME.tempo.txt
//
// They get the mono 16-bit samples that our own analysis gets, as floats.

namespace {

struct Recording
{
    int rate = 0;  // Hz
    std::vector<float> samples;
};

QString read(const QString& pPath, Recording& recording)
{
    constexpr size_t kPiece = 65536;
    AudioFileReader reader;
    if (!reader.Open(pPath))
        return reader.getError();
    recording.rate = reader.getSampleRate();
    std::vector<qint16> piece(kPiece);
    for (size_t count = 0; (count = reader.Read(piece.data(), kPiece)) > 0;)
        for (size_t i = 0; i < count; ++i)
            recording.samples.push_back(static_cast<float>(piece[i]) / 32768.0F);
    return reader.getError();
}

QByteArray findWithAubio(Recording& recording)
{
    // It finds more beats so than with its usual 1024 and 512.
    constexpr unsigned int kWindow = 512;
    constexpr unsigned int kHop = 128;
    aubio_tempo_t* pTempo =
        new_aubio_tempo("default", kWindow, kHop, static_cast<unsigned int>(recording.rate));
    fvec_t* pBeat = new_fvec(1);
    QByteArray text;
    for (size_t at = 0; at + kHop <= recording.samples.size(); at += kHop) {
        const fvec_t hop = {kHop, recording.samples.data() + at};
        aubio_tempo_do(pTempo, &hop, pBeat);
        if (fvec_get_sample(pBeat, 0) != 0.0F)
            text +=
                QByteArray::number(
                    static_cast<double>(aubio_tempo_get_last(pTempo)) / recording.rate, 'f', 6) +
                '\n';
    }
    del_fvec(pBeat);
    del_aubio_tempo(pTempo);
    return text;
}

QByteArray findWithSoundTouch(const Recording& recording)
{
    constexpr size_t kBatch = 1024;
    std::vector<soundtouch::SAMPLETYPE> samples;
    for (const float sample : recording.samples)
#ifdef SOUNDTOUCH_INTEGER_SAMPLES
        samples.push_back(static_cast<soundtouch::SAMPLETYPE>(sample * 32767.0F));
#else
        samples.push_back(sample);
#endif
    soundtouch::BPMDetect detector(1, recording.rate);
    for (size_t at = 0; at + kBatch <= samples.size(); at += kBatch)
        detector.inputSamples(samples.data() + at, static_cast<int>(kBatch));
    return QByteArray::number(static_cast<double>(detector.getBpm()), 'f', 3) + '\n';
}

bool write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isAubio = arguments.value(1) == QLatin1String("aubio");
    if (arguments.size() < 4 || !(isAubio || arguments[1] == QLatin1String("soundtouch"))) {
        std::fprintf(stderr, "usage: rival_beats aubio|soundtouch FOLDER FILE...\n");
        return 2;
    }
    const QDir folder(arguments[2]);
    const QString suffix = QLatin1String(isAubio ? ".beats.txt" : ".tempo.txt");
    for (const QString& path : arguments.mid(3)) {
        Recording recording;
        const QString error = read(path, recording);
        const QString name = QFileInfo(path).completeBaseName();
        if (error.isEmpty() &&
            write(folder.filePath(name + suffix),
                  isAubio ? findWithAubio(recording) : findWithSoundTouch(recording)))
            continue;
        std::fprintf(stderr, "rival_beats: %s: %s\n", qPrintable(path), qPrintable(error));
        return 1;
    }
    return 0;
}
