// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QSaveFile>
#include <QString>

#include <memory>

/// Where an output goes: a file, which appears whole at Commit() or not at all, or a stream
/// (standard output, a pipe, a device), which is written to at once.
///
/// Failures stick: after one, nothing more is written.
class OutputFile
{
    Q_DECLARE_TR_FUNCTIONS(OutputFile)

public:
    OutputFile() = default;
    /// What has not been committed is dropped.
    ~OutputFile();
    Q_DISABLE_COPY(OutputFile)

    /// Whether pPath names standard output, "-", or something that is not a regular file.
    static bool isStream(const QString& pPath);
    /// Why pPath cannot be written, as far as can be told without touching it, and what to do;
    /// empty when nothing speaks against it.
    static QString FindObstacle(const QString& pPath);

    /// All three return false after a failure. Open() is to be called once.
    bool Open(const QString& pPath);
    bool Write(const QByteArray& pBytes);
    bool Commit();

    /// The reader of the pipe has gone: not worth a message.
    bool isReaderGone() const { return m_isReaderGone; }
    /// One sentence on the first failure, with the file's name; empty = all is well.
    QString getError() const { return m_error; }

private:
    bool _WriteStream(const QByteArray& pBytes);
    bool _Fail(const QString& pReason);

    QString m_path;
    std::unique_ptr<QSaveFile> m_file;  ///< null for a stream
    int m_descriptor = -1;              ///< of a stream
    bool m_isReaderGone = false;
    QString m_error;
};
