// SPDX-License-Identifier: MIT
#include "Corpus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <memory>
#include <sndfile.h>
#include <stdexcept>

namespace {

[[noreturn]] void fail(const QString& pPath, const char* pReason)
{
    throw std::runtime_error(pPath.toStdString() + ": " + pReason);
}

QByteArray readFile(const QString& pPath)
{
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly))
        fail(pPath, "cannot be read");
    return file.readAll();
}

void readNotes(const QString& pPath, Track& pTrack)
{
    const QJsonObject notes = QJsonDocument::fromJson(readFile(pPath)).object();
    if (!notes.contains(QLatin1String("bpm")))
        fail(pPath, "no JSON with a tempo");
    pTrack.genre = notes.value(QLatin1String("genre")).toString();
    pTrack.provenance = notes.value(QLatin1String("provenance")).toString();
    pTrack.bpm = notes.value(QLatin1String("bpm")).toDouble();
    const QJsonArray range = notes.value(QLatin1String("tempo_range")).toArray();
    pTrack.lowestBPM = range.size() == 2 ? range[0].toDouble() : pTrack.bpm;
    pTrack.highestBPM = range.size() == 2 ? range[1].toDouble() : pTrack.bpm;
    const QJsonArray spans = notes.value(QLatin1String("ignore")).toArray();
    for (const QJsonValue& span : spans)
        pTrack.ignored.emplace_back(span.toArray()[0].toDouble(), span.toArray()[1].toDouble());
}

void readBeats(const QString& pPath, Track& pTrack)
{
    const QList<QByteArray> lines = readFile(pPath).split('\n');
    for (const QByteArray& line : lines) {
        bool isNumber = false;
        const double beat = line.simplified().split(' ').first().toDouble(&isNumber);
        if (isNumber)
            pTrack.beats.push_back(beat);
    }
    if (pTrack.beats.size() < 2)
        fail(pPath, "fewer than two beats");
}

void hear(const QString& pPath, Track& pTrack)
{
    SF_INFO info = {};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(
        sf_open(QFile::encodeName(pPath).constData(), SFM_READ, &info), &sf_close);
    if (file == nullptr || info.channels != 1)
        fail(pPath, "no mono sound file");
    pTrack.sampleRate = info.samplerate;
    pTrack.duration = double(info.frames) / info.samplerate;
    OnsetLevels onsets(info.samplerate);
    std::array<qint16, 4096> samples = {};
    for (sf_count_t count = 0;
         (count = sf_readf_short(file.get(), samples.data(), sf_count_t(samples.size()))) > 0;)
        for (sf_count_t done = 0; done < count;) {
            done += sf_count_t(onsets.Push(samples.data() + done, std::size_t(count - done)));
            if (!onsets.isFrameComplete())
                continue;
            pTrack.levels.push_back(onsets.getLevels());
            pTrack.meanSquares.push_back(onsets.getMeanSquare());
        }
}

}  // namespace

std::vector<Track> readCorpus(const QStringList& pFolders)
{
    std::vector<Track> tracks;
    for (const QString& folder : pFolders) {
        const QDir directory(folder);
        const QStringList names = directory.entryList({QStringLiteral("*.beats")}, QDir::Files);
        for (const QString& name : names) {
            Track track;
            track.name = name.chopped(6);
            const QString stem = directory.filePath(track.name);
            readNotes(stem + QLatin1String(".json"), track);
            readBeats(stem + QLatin1String(".beats"), track);
            const QString flac = stem + QLatin1String(".flac");
            hear(QFile::exists(flac) ? flac : stem + QLatin1String(".wav"), track);
            tracks.push_back(std::move(track));
        }
    }
    if (tracks.empty())
        throw std::runtime_error("no annotated music in the folders");
    return tracks;
}

std::vector<Track> readNoise(const QString& pFolder)
{
    std::vector<Track> tracks;
    const QDir directory(pFolder);
    const QStringList names =
        directory.entryList({QStringLiteral("*.flac"), QStringLiteral("*.wav")}, QDir::Files);
    for (const QString& name : names) {
        Track track;
        track.name = QFileInfo(name).completeBaseName();
        hear(directory.filePath(name), track);
        tracks.push_back(std::move(track));
    }
    if (tracks.empty())
        fail(pFolder, "no sound in it");
    return tracks;
}
