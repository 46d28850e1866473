// SPDX-License-Identifier: MIT
#include <shared/files/WholeFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <cstring>

WholeFile::~WholeFile()
{
    if (!m_temporary.isEmpty())
        QFile::remove(m_temporary);
}

bool WholeFile::Create(const QString& pTarget)
{
    m_target = pTarget;
    return _CheckTarget() && _CreateTemporary();
}

bool WholeFile::_CheckTarget()
{
    const QFileInfo info(m_target);
    if (m_target.isEmpty()) {
        m_error = tr("No output file is named.");
    } else if (info.exists() && !info.isFile()) {
        m_error = tr("Cannot write \"%1\": it exists and is not a regular file; name another file.")
                      .arg(m_target);
    } else if (!info.dir().exists()) {
        m_error = tr("Cannot write \"%1\": the folder \"%2\" does not exist; create it first.")
                      .arg(m_target, info.dir().path());
    }
    if (info.exists())
        m_target = info.canonicalFilePath();
    return m_error.isEmpty();
}

bool WholeFile::_CreateTemporary()
{
    const QDir folder = QFileInfo(m_target).dir();
    for (int i = 0; i < 100; ++i) {
        const QString name =
            QStringLiteral(".audio-analyzer-%1.part")
                .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            m_temporary = file.fileName();
            return true;
        }
        if (!file.exists()) {
            m_error = tr("Cannot write \"%1\": %2; check the folder's permissions and free space.")
                          .arg(m_target, file.errorString());
            return false;
        }
    }
    m_error = tr("Cannot write \"%1\": too many temporary files are in its folder.").arg(m_target);
    return false;
}

bool WholeFile::Commit()
{
    if (QFile::exists(m_target))
        QFile::setPermissions(m_temporary, QFile::permissions(m_target));
    const QByteArray from = QFile::encodeName(m_temporary);
    const QByteArray to = QFile::encodeName(m_target);
    // QFile::rename() refuses to replace a file.
    if (std::rename(from.constData(), to.constData()) != 0) {
        m_error = tr("Cannot write \"%1\": %2.")
                      .arg(m_target, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    m_temporary.clear();
    return true;
}
