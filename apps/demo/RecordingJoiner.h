// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/AudioFileReader.h>

#include <QCoreApplication>
#include <QStringList>

#include <memory>
#include <vector>

/// Reads recordings of one sample rate one behind the other, mixed to mono.
class RecordingJoiner
{
    Q_DECLARE_TR_FUNCTIONS(RecordingJoiner)

public:
    explicit RecordingJoiner(const QStringList& pInputs);

    /// Opens the first one. False when there is none or it is not usable; getError() says why. To
    /// be called once, before the first Read().
    bool Open();
    /// Makes at most pCount samples in [-1, 1] and returns how many; 0 at the end and after a
    /// failure. [allocates when pCount grows]
    std::size_t Read(float* pSamples, std::size_t pCount);

    int getSampleRate() const { return m_rate; }  ///< Hz
    /// Where each recording that has been opened begins, and where the last one ends, seconds.
    std::vector<double> getStarts() const;
    /// What failed, with the file's name; empty = all is well.
    QString getError() const { return m_error; }

private:
    bool _Next();
    bool _Fail(const QString& pReason);

    QStringList m_inputs;
    int m_next = 0;                 ///< index of the next file
    int m_rate = 0;                 ///< Hz
    quint64 m_frames = 0;           ///< read so far
    std::vector<quint64> m_starts;  ///< frames
    std::vector<qint16> m_buffer;
    std::unique_ptr<AudioFileReader> m_reader;
    QString m_error;
};
