// SPDX-License-Identifier: MIT
#pragma once

#include <shared/beats/AnalysisResult.h>
#include <shared/files/WholeFile.h>

#include <QCoreApplication>
#include <QString>

#include <cstddef>
#include <memory>
#include <sndfile.h>
#include <vector>

/// Writes the music with a click on every beat to a 16-bit WAV file.
///
/// Open(), then Append() the music as it is read, then Finish() with the beats: the clicks are
/// mixed into the file in place, so memory does not grow with its length. Beyond 4 GB the file
/// becomes RF64. The file appears whole at Finish() or not at all. After a failure getError() says
/// what to do, and only destruction makes sense.
class ClickTrack
{
    Q_DECLARE_TR_FUNCTIONS(ClickTrack)

public:
    /// Whether the file's name ends in .wav, in any case.
    static bool isSupported(const QString& pPath);
    /// pSampleRate in Hz; pChannels from 1. False when the file cannot be written there.
    bool Open(const QString& pPath, int pSampleRate, int pChannels);
    /// Appends pFrames interleaved frames of samples in [-1, 1], saturating what lies outside.
    /// False when the disk is full or fails. Frame 0 of the first call is beat index 0.
    bool Append(const float* pSamples, std::size_t pFrames);
    /// Mixes a click in at every beat's index, a softer and lower one for virtual beats, a louder
    /// and higher one for the first beat of a bar, and puts the file in its place. Beats behind the
    /// end of the music are left out. False when that failed.
    bool Finish(const std::vector<LoggedBeat>& pBeats);
    /// One sentence on the last failure, with the file's name.
    QString getError() const { return m_error; }

private:
    struct Closer
    {
        void operator()(SNDFILE* pFile) const { sf_close(pFile); }
    };

    bool _MixClick(quint64 pFrame, const std::vector<int>& pClick);
    bool _Transfer(sf_count_t pDone, sf_count_t pWanted);
    bool _Close();
    bool _Fail(const QString& pReason);

    QString m_path;
    QString m_error;
    WholeFile m_target;  ///< outlives m_file, which is closed first
    std::unique_ptr<SNDFILE, Closer> m_file;
    int m_channels = 0;
    int m_sampleRate = 0;          ///< Hz
    quint64 m_frameCount = 0;      ///< frames appended
    std::vector<qint16> m_buffer;  ///< reused
};
