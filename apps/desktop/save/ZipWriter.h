// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

struct archive;

/// Writes a zip file of a few members, each of which is in memory.
class ZipWriter
{
    Q_DECLARE_TR_FUNCTIONS(ZipWriter)

public:
    ZipWriter() = default;
    ~ZipWriter();
    Q_DISABLE_COPY(ZipWriter)

    /// To an existing, empty file. False when that cannot be; getError() says why.
    bool Open(const QString& pPath);
    /// pName: with slashes, relative. Dated now. False after the first failure.
    bool Add(const QString& pName, const QByteArray& pContent);
    /// Without it the file is no zip file. False when anything could not be written.
    bool Close();
    QString getError() const { return m_error; }

private:
    bool _Check(int pResult);

    archive* m_pArchive = nullptr;
    QString m_error;
};
