// SPDX-License-Identifier: MIT
#include <desktop/save/ZipWriter.h>

#include <QFile>

#include <archive.h>
#include <archive_entry.h>
#include <ctime>

namespace {

constexpr int kPermissions = 0644;

}  // namespace

ZipWriter::~ZipWriter()
{
    archive_write_free(m_pArchive);
}

bool ZipWriter::Open(const QString& pPath)
{
    m_pArchive = archive_write_new();
    return _Check(archive_write_set_format_zip(m_pArchive)) &&
           _Check(archive_write_open_filename(m_pArchive, QFile::encodeName(pPath).constData()));
}

bool ZipWriter::Add(const QString& pName, const QByteArray& pContent)
{
    if (!m_error.isEmpty())
        return false;
    archive_entry* pEntry = archive_entry_new();
    archive_entry_set_pathname_utf8(pEntry, pName.toUtf8().constData());
    archive_entry_set_size(pEntry, pContent.size());
    archive_entry_set_filetype(pEntry, AE_IFREG);
    archive_entry_set_perm(pEntry, kPermissions);
    archive_entry_set_mtime(pEntry, std::time(nullptr), 0);
    const bool isBegun = _Check(archive_write_header(m_pArchive, pEntry));
    archive_entry_free(pEntry);
    const auto size = std::size_t(pContent.size());
    const la_ssize_t written =
        isBegun && size > 0 ? archive_write_data(m_pArchive, pContent.constData(), size) : 0;
    return isBegun && _Check(written == la_ssize_t(size) ? ARCHIVE_OK : ARCHIVE_FATAL);
}

bool ZipWriter::Close()
{
    return m_error.isEmpty() && _Check(archive_write_close(m_pArchive));
}

bool ZipWriter::_Check(int pResult)
{
    if (pResult == ARCHIVE_OK)
        return true;
    const char* pReason = archive_error_string(m_pArchive);
    m_error = pReason ? QString::fromLocal8Bit(pReason) : tr("it cannot be written");
    return false;
}
