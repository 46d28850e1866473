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

// Reads the next samples; fewer than pSamples holds only at the end.
size_t read(AudioFileReader& reader, std::vector<float>& samples)
{
    std::vector<qint16> integers(samples.size());
    const size_t count = reader.Read(integers.data(), integers.size());
    for (size_t i = 0; i < count; ++i)
        samples[i] = static_cast<float>(integers[i]) / 32768.0F;
    return count;
}

QByteArray findWithAubio(AudioFileReader& reader)
{
    constexpr unsigned int kWindow = 512;
    constexpr unsigned int kHop = 128;
    const int rate = reader.getSampleRate();
    aubio_tempo_t* pTempo =
        new_aubio_tempo("default", kWindow, kHop, static_cast<unsigned int>(rate));
    fvec_t* pBeat = new_fvec(1);
    std::vector<float> samples(kHop);
    QByteArray text;
    while (read(reader, samples) == kHop) {
        const fvec_t hop = {kHop, samples.data()};
        aubio_tempo_do(pTempo, &hop, pBeat);
        if (fvec_get_sample(pBeat, 0) == 0.0F)
            continue;
        const double seconds = static_cast<double>(aubio_tempo_get_last(pTempo)) / rate;
        text += QByteArray::number(seconds, 'f', 6) + '\n';
    }
    del_fvec(pBeat);
    del_aubio_tempo(pTempo);
    return text;
}

// Its samples may be floats or 16-bit integers, as the package was built.
soundtouch::SAMPLETYPE toSampleType(float sample)
{
#ifdef SOUNDTOUCH_INTEGER_SAMPLES
    return static_cast<soundtouch::SAMPLETYPE>(sample * 32767.0F);
#else
    return sample;
#endif
}

QByteArray findWithSoundTouch(AudioFileReader& reader)
{
    constexpr size_t kBatch = 1024;
    soundtouch::BPMDetect detector(1, reader.getSampleRate());
    std::vector<float> samples(kBatch);
    std::vector<soundtouch::SAMPLETYPE> batch(kBatch);
    while (read(reader, samples) == kBatch) {
        for (size_t i = 0; i < kBatch; ++i)
            batch[i] = toSampleType(samples[i]);
        detector.inputSamples(batch.data(), static_cast<int>(kBatch));
    }
    return QByteArray::number(static_cast<double>(detector.getBpm()), 'f', 3) + '\n';
}

// Returns what failed, or an empty text.
QString process(const QString& input, const QString& output, bool isAubio)
{
    AudioFileReader reader;
    if (!reader.Open(input))
        return reader.getError();
    const QByteArray text = isAubio ? findWithAubio(reader) : findWithSoundTouch(reader);
    if (!reader.getError().isEmpty())
        return reader.getError();
    QFile file(output);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
    return isWritten ? QString() : file.errorString();
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
        const QString output = folder.filePath(QFileInfo(path).completeBaseName() + suffix);
        const QString error = process(path, output, isAubio);
        if (error.isEmpty())
            continue;
        std::fprintf(stderr, "rival_beats: %s: %s\n", qPrintable(path), qPrintable(error));
        return 1;
    }
    return 0;
}
