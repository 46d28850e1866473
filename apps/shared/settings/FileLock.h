// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// A program's turn with a file, which others wait for, kept by a lock file beside it.
///
/// The lock is one of the operating system: it ends with the process that holds it, however that
/// ends, so a lock file that was left behind keeps nobody out. Where a file system has no locks,
/// nobody waits.
///
/// Threads: any one.
class FileLock
{
public:
    enum eResult
    {
        eTaken,
        eBusy,       ///< another program keeps its turn
        eImpossible  ///< no lock file can be made; errno tells why
    };

    FileLock() = default;
    /// Lets go.
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Waits for the turn with the file pFile, and gives up when one and the same holder keeps it
    /// for pPatienceMs. So a long queue is no reason to give up; 0 = do not wait.
    eResult Take(const QString& pFile, int pPatienceMs);
    /// Removes the lock file and lets the next one have its turn.
    void LetGo();
    bool isTaken() const { return m_descriptor >= 0; }
    static QString getLockPath(const QString& pFile);

private:
    bool _Open();
    bool _IsNamed() const;
    void _Close();

    QByteArray m_path;      ///< of the lock file
    int m_descriptor = -1;  ///< of the lock file; -1 = not taken
};
