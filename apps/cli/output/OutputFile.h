// SPDX-License-Identifier: MIT
#pragma once

#include <shared/files/WholeFile.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

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

    /// Where the bytes go; -1 = nowhere.
    int getDescriptor() const { return m_descriptor; }
    /// The reader of the pipe has gone: not worth a message.
    bool isReaderGone() const { return m_isReaderGone; }
    /// One sentence on the first failure, with the file's name; empty = all is well.
    QString getError() const { return m_error; }
    /// The exit code of a program whose work was to write this; says the failure on standard error.
    int Conclude() const;

private:
    bool _OpenDescriptor(const QString& pPath, int pFlags);
    bool _Fail();

    QString m_path;
    WholeFile m_file;  ///< unused for a stream
    int m_descriptor = -1;
    bool m_isReaderGone = false;
    QString m_error;
};
