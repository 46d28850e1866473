// SPDX-License-Identifier: MIT
#include <demo/RecordingJoiner.h>
#include <demo/SceneFiles.h>
#include <demo/SceneNoise.h>
#include <demo/ScenePlayer.h>
#include <shared/files/WholeFile.h>
#include <shared/text/Text.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <sndfile.h>

namespace {

constexpr std::size_t kSamplesPerChunk = 4096;

/// Writes all samples to the file at pPath.
QString WriteSamples(const QString& pPath, int pSampleRate, const SampleMaker& pMaker)
{
    SF_INFO info = {};
    info.samplerate = pSampleRate;
    info.channels = 1;
    info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    SNDFILE* pFile = sf_open(QFile::encodeName(pPath).constData(), SFM_WRITE, &info);
    if (pFile == nullptr)
        return QString::fromUtf8(sf_strerror(nullptr));
    sf_command(pFile, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    std::vector<float> samples(kSamplesPerChunk);
    bool isWritten = true;
    for (std::size_t count = 0;
         isWritten && (count = pMaker(samples.data(), kSamplesPerChunk)) > 0;)
        isWritten = sf_writef_float(pFile, samples.data(), sf_count_t(count)) == sf_count_t(count);
    const QString error = isWritten ? QString() : QString::fromUtf8(sf_strerror(pFile));
    const bool isClosed = sf_close(pFile) == 0;
    return isWritten && !isClosed ? tr("closing the file failed") : error;
}

QString WriteBytes(const QString& pPath, const QByteArray& pBytes)
{
    QFile file(pPath);
    if (file.open(QIODevice::WriteOnly) && file.write(pBytes) == pBytes.size() && file.flush())
        return {};
    return tr("Cannot write \"%1\": %2.").arg(pPath, file.errorString());
}

QJsonArray ToArray(const std::vector<double>& pNumbers)
{
    QJsonArray array;
    for (const double number : pNumbers)
        array.append(number);
    return array;
}

QJsonObject Describe(const Scene& pScene)
{
    QJsonObject object;
    object[QStringLiteral("name")] = pScene.name;
    object[QStringLiteral("genre")] = pScene.genre;
    object[QStringLiteral("duration")] = pScene.duration;
    if (pScene.bpm > 0.0)
        object[QStringLiteral("bpm")] = pScene.bpm;
    if (pScene.deviation > 0.0)
        object[QStringLiteral("tempo_range")] =
            ToArray({pScene.bpm * (1.0 - pScene.deviation), pScene.bpm * (1.0 + pScene.deviation)});
    QJsonArray gaps;
    for (const TimeSpan& gap : pScene.gaps)
        gaps.append(ToArray({gap.start, gap.end}));
    if (!gaps.isEmpty())
        object[QStringLiteral("ignore")] = gaps;
    if (!pScene.changes.empty())
        object[QStringLiteral("changes")] = ToArray(pScene.changes);
    return object;
}

/// Writes what is known of a scene beside its music.
QString WriteTruth(const QDir& pFolder, const Scene& pScene)
{
    QByteArray beats;
    for (const double beat : pScene.beats)
        beats += QByteArray::number(beat, 'f', 6) + '\n';
    const QString error =
        WriteBytes(pFolder.filePath(pScene.name + QStringLiteral(".beats")), beats);
    if (!error.isEmpty())
        return error;
    return WriteBytes(pFolder.filePath(pScene.name + QStringLiteral(".json")),
                      QJsonDocument(Describe(pScene)).toJson());
}

QString WriteNoise(const QDir& pFolder, eSceneNoise pNoise, double pSeconds)
{
    Scene scene;
    scene.name = getSceneNoiseName(pNoise);
    scene.genre = QStringLiteral("no music");
    scene.duration = pSeconds;
    SceneNoise noise(pNoise);
    auto left = std::size_t(std::llround(pSeconds * SceneNoise::kRate));
    const QString error = writeMonoFlac(pFolder.filePath(scene.name + QStringLiteral(".flac")),
                                        SceneNoise::kRate,
                                        [&](float* pSamples, std::size_t pCount) {
                                            const std::size_t count = std::min(pCount, left);
                                            noise.Read(pSamples, count);
                                            left -= count;
                                            return count;
                                        });
    return error.isEmpty() ? WriteTruth(pFolder, scene) : error;
}

}  // namespace

QString writeMonoFlac(const QString& pPath, int pSampleRate, const SampleMaker& pMaker)
{
    WholeFile file;
    if (!file.Create(pPath))
        return file.getError();
    const QString error = WriteSamples(file.getTemporaryPath(), pSampleRate, pMaker);
    if (!error.isEmpty())
        return tr("Cannot write \"%1\": %2.").arg(pPath, error);
    return file.Commit() ? QString() : file.getError();
}

QString writeScene(const QString& pFolder, const Scene& pScene)
{
    const QDir folder(pFolder);
    ScenePlayer player(pScene);
    const QString error = writeMonoFlac(
        folder.filePath(pScene.name + QStringLiteral(".flac")),
        pScene.sampleRate,
        [&](float* pSamples, std::size_t pCount) { return player.Read(pSamples, pCount); });
    return error.isEmpty() ? WriteTruth(folder, pScene) : error;
}

QString writeSceneNoises(const QString& pFolder, double pSeconds)
{
    for (const eSceneNoise noise : getSceneNoises()) {
        const QString error = WriteNoise(QDir(pFolder), noise, pSeconds);
        if (!error.isEmpty())
            return error;
    }
    return {};
}

QString
joinRecordings(const QString& pPath, const QStringList& pInputs, std::vector<double>& pStarts)
{
    RecordingJoiner joiner(pInputs);
    if (!joiner.Open())
        return joiner.getError();
    const QString error =
        writeMonoFlac(pPath, joiner.getSampleRate(), [&](float* pSamples, std::size_t pCount) {
            return joiner.Read(pSamples, pCount);
        });
    pStarts = joiner.getStarts();
    return joiner.getError().isEmpty() ? error : joiner.getError();
}
