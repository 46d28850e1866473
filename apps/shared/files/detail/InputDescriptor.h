// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace shared {

/// A file, a pipe or standard input, opened for reading.
class InputDescriptor
{
public:
    InputDescriptor() = default;
    /// Closes what was opened, but not standard input.
    ~InputDescriptor();
    InputDescriptor(const InputDescriptor&) = delete;
    InputDescriptor& operator=(const InputDescriptor&) = delete;

    /// Opens pPath, or standard input for "-". False, and errno tells why, when it cannot be. Waits
    /// for the writer of a pipe. To be called once.
    bool Open(const QString& pPath);
    /// A file on disk, not a pipe.
    bool isRegular() const;
    qint64 getSize() const;  ///< bytes; of a file on disk
    /// The first bytes, at most pCount, which stay there to be read. Waits for those of a pipe; of
    /// sockets and terminals there are none.
    QByteArray Peek(int pCount) const;
    /// Reads a pipe to its end into a nameless temporary file, which takes its place. False, and
    /// errno tells why, when the disk is full or a signal interrupts it.
    bool Spool();
    /// Where Spool() keeps it, until the object goes.
    static QString getSpoolFolder();
    int get() const { return m_descriptor; }

private:
    void _Close();

    int m_descriptor = -1;
};

}  // namespace shared
