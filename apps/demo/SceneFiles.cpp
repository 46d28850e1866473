// SPDX-License-Identifier: MIT
#include <demo/SceneFiles.h>
#include <demo/SceneNoise.h>
#include <demo/ScenePlayer.h>
#include <shared/files/AudioFileReader.h>
#include <shared/files/WholeFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <memory>
#include <sndfile.h>

namespace {

constexpr std::size_t kSamplesPerChunk = 4096;

QString tr(const char* pText)
{
    return QCoreApplication::translate("SceneFiles", pText);
}

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

/// Hands out the samples of one file after the other, and notes where they begin.
class Joiner
{
public:
    Joiner(const QStringList& pInputs, std::vector<double>& pStarts)
        : m_inputs(pInputs), m_starts(pStarts)
    {
    }
    /// Opens the next file; false at the end and after a failure.
    bool Next()
    {
        if (m_index == m_inputs.size())
            return false;
        const QString path = m_inputs[m_index++];
        m_reader = std::make_unique<AudioFileReader>();
        if (!m_reader->Open(path))
            return Fail(path, m_reader->getError());
        if (m_rate != 0 && m_reader->getSampleRate() != m_rate)
            return Fail(path, tr("its rate differs from that of the files ahead of it"));
        m_rate = m_reader->getSampleRate();
        m_starts.push_back(double(m_frames) / m_rate);
        return true;
    }
    std::size_t Read(float* pSamples, std::size_t pCount)
    {
        m_buffer.resize(pCount);
        std::size_t count = 0;
        do {
            count = m_reader->Read(m_buffer.data(), pCount);
            if (!m_reader->getError().isEmpty())
                Fail(m_inputs[m_index - 1], m_reader->getError());
        } while (count == 0 && m_error.isEmpty() && Next());
        for (std::size_t i = 0; i < count; ++i)
            pSamples[i] = float(m_buffer[i]) / 32768.0f;
        m_frames += count;
        return m_error.isEmpty() ? count : 0;
    }
    int getRate() const { return m_rate; }
    double getSeconds() const { return double(m_frames) / m_rate; }
    QString getError() const { return m_error; }

private:
    bool Fail(const QString& pPath, const QString& pReason)
    {
        m_error = QStringLiteral("%1: %2").arg(pPath, pReason);
        return false;
    }

    const QStringList& m_inputs;    ///< not owned
    std::vector<double>& m_starts;  ///< not owned, seconds
    int m_index = 0;                ///< of the next file
    int m_rate = 0;                 ///< Hz
    quint64 m_frames = 0;           ///< handed out
    std::vector<qint16> m_buffer;
    std::unique_ptr<AudioFileReader> m_reader;
    QString m_error;
};

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
    Joiner joiner(pInputs, pStarts);
    if (!joiner.Next())
        return joiner.getError();
    const QString error =
        writeMonoFlac(pPath, joiner.getRate(), [&](float* pSamples, std::size_t pCount) {
            return joiner.Read(pSamples, pCount);
        });
    pStarts.push_back(joiner.getSeconds());
    return joiner.getError().isEmpty() ? error : joiner.getError();
}
