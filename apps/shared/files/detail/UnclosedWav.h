// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <sndfile.h>
#include <unistd.h>

namespace shared {

constexpr int kWavHeadSize = 4096;  ///< bytes in which the samples of a WAV file begin

/// Where the size of the samples stands in the head of a WAV file that counts none though samples
/// follow, as a recorder leaves it that was cut off; -1 when it is no such file.
inline int FindMissingSize(const QByteArray& pHead, qint64 pFileSize)
{
    constexpr int kFirstChunk = 12;
    constexpr qint64 kLeastSamples = 4096;  // bytes; less may be a chunk behind no samples
    if (!pHead.startsWith("RIFF") || pHead.mid(8, 4) != "WAVE")
        return -1;
    for (qint64 chunk = kFirstChunk; chunk + 8 <= pHead.size();) {
        const char* pChunk = pHead.constData() + chunk;
        const auto size = qFromLittleEndian<quint32>(pChunk + 4);
        if (std::memcmp(pChunk, "data", 4) == 0)
            return size == 0 && pFileSize >= chunk + 8 + kLeastSamples ? int(chunk + 4) : -1;
        chunk += 8 + qint64(size) + size % 2;
    }
    return -1;
}

/// Such a file with the sizes that a program leaves that writes to a pipe: up to the end.
class UnclosedWav
{
public:
    /// pDescriptor is not owned. pMissing: what FindMissingSize() gave.
    UnclosedWav(int pDescriptor, qint64 pSize, const QByteArray& pHead, int pMissing)
        : m_descriptor(pDescriptor), m_size(pSize), m_head(pHead)
    {
        m_head.replace(4, 4, "\xff\xff\xff\xff").replace(pMissing, 4, "\xff\xff\xff\xff");
    }

    /// To be closed before this object goes; null when it cannot be read.
    SNDFILE* Open(SF_INFO& pInfo)
    {
        SF_VIRTUAL_IO io = {};
        io.get_filelen = [](void* pUser) { return sf_count_t(Of(pUser).m_size); };
        io.seek = [](sf_count_t pOffset, int pFrom, void* pUser) {
            return Of(pUser)._Seek(pOffset, pFrom);
        };
        io.read = [](void* pBytes, sf_count_t pCount, void* pUser) {
            return Of(pUser)._Read(static_cast<char*>(pBytes), pCount);
        };
        io.tell = [](void* pUser) { return sf_count_t(Of(pUser).m_position); };
        return sf_open_virtual(&io, SFM_READ, &pInfo, this);
    }

private:
    static UnclosedWav& Of(void* pUser) { return *static_cast<UnclosedWav*>(pUser); }

    sf_count_t _Seek(sf_count_t pOffset, int pFrom)
    {
        const qint64 base = pFrom == SEEK_CUR ? m_position : pFrom == SEEK_END ? m_size : 0;
        m_position = std::clamp<qint64>(base + pOffset, 0, m_size);
        return m_position;
    }

    sf_count_t _Read(char* pBytes, sf_count_t pCount)
    {
        const qint64 count = ::pread(m_descriptor, pBytes, std::size_t(pCount), m_position);
        for (qint64 i = 0; i < count && m_position + i < m_head.size(); ++i)
            pBytes[i] = m_head[int(m_position + i)];
        m_position += std::max<qint64>(count, 0);
        return std::max<qint64>(count, 0);
    }

    int m_descriptor;
    qint64 m_size;  ///< bytes
    qint64 m_position = 0;
    QByteArray m_head;  ///< what is read instead of the file's first bytes
};

}  // namespace shared
