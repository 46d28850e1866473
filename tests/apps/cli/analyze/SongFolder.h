// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <apps/cli/analyze/ProgramRunner.h>
#include <apps/shared/files/TestAudio.h>
#include <support/Text.h>

inline QJsonObject Parse(const QByteArray& pText)
{
    return QJsonDocument::fromJson(pText).object();
}

/// The current folder of a test, with song.wav, 8 s of strokes at 120 BPM, the same in stereo as
/// stereo.flac, and other.flac, strokes at 140 BPM.
class SongFolder
{
public:
    /// Moves into the folder and fills it. False when that failed.
    bool Enter()
    {
        if (!QDir::setCurrent(m_folder.path()))
            return false;
        const std::vector<float> song = testaudio::Kicks(44100, 120, 8.0);
        const bool isWritten =
            _Write("song.wav", SF_FORMAT_WAV, 44100, 1, song) &&
            _Write("stereo.flac", SF_FORMAT_FLAC, 44100, 2, Doubled(song)) &&
            _Write("other.flac", SF_FORMAT_FLAC, 48000, 1, testaudio::Kicks(48000, 140, 6.0));
        m_files = FilesHere();
        return isWritten;
    }

    /// Removes, by name, what a test has made in it.
    bool CleanUp() const
    {
        bool isDone = true;
        for (const QString& file : FilesHere()) {
            if (!m_files.contains(file))
                isDone &=
                    QFileInfo(file).isDir() ? QDir(file).removeRecursively() : QFile::remove(file);
        }
        return isDone;
    }

    const QStringList& getFiles() const { return m_files; }

    /// Every sample twice: two equal channels.
    static std::vector<float> Doubled(const std::vector<float>& pSamples)
    {
        std::vector<float> frames;
        for (const float sample : pSamples)
            frames.insert(frames.end(), {sample, sample});
        return frames;
    }

private:
    static bool _Write(
        const char* pName, int pType, int pRate, int pChannels, const std::vector<float>& pFrames)
    {
        return testaudio::Write(
            QLatin1String(pName), pType | SF_FORMAT_PCM_16, pRate, pChannels, pFrames);
    }

    QTemporaryDir m_folder;
    QStringList m_files;
};
