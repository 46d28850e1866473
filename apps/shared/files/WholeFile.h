// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

/// A file that appears in its place whole or not at all, for writers that want a path of their own.
///
/// What is written goes to a temporary file in the target's folder; Commit() moves it over the
/// target. Without a successful Commit() the destructor removes the temporary file and the target
/// stays as it was.
class WholeFile
{
    Q_DECLARE_TR_FUNCTIONS(WholeFile)

public:
    WholeFile() = default;
    /// Removes the temporary file unless it has been committed.
    ~WholeFile();
    Q_DISABLE_COPY(WholeFile)

    /// Makes the empty temporary file for a target; false when that cannot be, getError() says why.
    /// A target that exists must be a regular file, or a link to one, which is then what is
    /// replaced. To be called once.
    bool Create(const QString& pTarget);
    /// Path to write to; empty before Create() and after Commit().
    QString getTemporaryPath() const { return m_temporary; }
    /// Puts the written file in its place; false when that cannot be. The file must be closed.
    bool Commit();
    /// One sentence on the last failure.
    QString getError() const { return m_error; }

private:
    bool _CheckTarget();
    bool _CreateTemporary();

    QString m_target;  ///< with links resolved
    QString m_temporary;
    QString m_error;
};
