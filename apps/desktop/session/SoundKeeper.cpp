// SPDX-License-Identifier: MIT
#include <desktop/session/SoundKeeper.h>
#include <shared/capture/LiveSource.h>

#include <algorithm>
#include <cstring>
#include <sndfile.h>

namespace {

/// What libsndfile writes into.
struct Memory
{
    QByteArray bytes;
    sf_count_t place = 0;
};

Memory& MemoryOf(void* pMemory)
{
    return *static_cast<Memory*>(pMemory);
}

sf_count_t GetLength(void* pMemory)
{
    return MemoryOf(pMemory).bytes.size();
}

sf_count_t Seek(sf_count_t pOffset, int pWhence, void* pMemory)
{
    Memory& memory = MemoryOf(pMemory);
    const sf_count_t from = pWhence == SEEK_SET   ? 0
                            : pWhence == SEEK_CUR ? memory.place
                                                  : GetLength(pMemory);
    return memory.place = from + pOffset;
}

sf_count_t ReadBack(void* pBytes, sf_count_t pCount, void* pMemory)
{
    Memory& memory = MemoryOf(pMemory);
    const sf_count_t count = std::clamp<sf_count_t>(GetLength(pMemory) - memory.place, 0, pCount);
    std::memcpy(pBytes, memory.bytes.constData() + memory.place, std::size_t(count));
    memory.place += count;
    return count;
}

sf_count_t WriteBytes(const void* pBytes, sf_count_t pCount, void* pMemory)
{
    Memory& memory = MemoryOf(pMemory);
    memory.bytes.replace(
        int(memory.place), int(pCount), static_cast<const char*>(pBytes), int(pCount));
    memory.place += pCount;
    return pCount;
}

sf_count_t GetPlace(void* pMemory)
{
    return MemoryOf(pMemory).place;
}

}  // namespace

SoundKeeper::SoundKeeper(QObject* pParent) : QObject(pParent) {}

void SoundKeeper::Follow(LiveSource* pSource)
{
    if (m_pSource)
        m_pSource->disconnect(this);
    m_pSource = pSource;
    if (pSource)
        connect(pSource, &LiveSource::OnSamples, this, &SoundKeeper::_OnSamples);
}

void SoundKeeper::setOn(bool pIsOn)
{
    m_isOn = pIsOn;
    m_written = 0;
    m_rate = 0;
    m_ring.clear();
    m_ring.shrink_to_fit();
}

double SoundKeeper::getSeconds() const
{
    return m_rate > 0 ? double(std::min(m_written, m_ring.size())) / m_rate : 0.0;
}

void SoundKeeper::_OnSamples(const qint16* pSamples, std::size_t pCount)
{
    if (!m_isOn)
        return;
    if (m_rate != m_pSource->getSampleRate()) {
        m_rate = m_pSource->getSampleRate();
        m_ring.assign(std::size_t(m_rate) * kSeconds, 0);
        m_written = 0;
    }
    for (std::size_t i = 0; i < pCount; ++i)
        m_ring[(m_written + i) % m_ring.size()] = pSamples[i];
    m_written += pCount;
}

QByteArray SoundKeeper::MakeFlac() const
{
    if (m_written == 0)
        return {};
    Memory memory;
    SF_VIRTUAL_IO io = {&GetLength, &Seek, &ReadBack, &WriteBytes, &GetPlace};
    SF_INFO info = {};
    info.samplerate = m_rate;
    info.channels = 1;
    info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    SNDFILE* pFile = sf_open_virtual(&io, SFM_WRITE, &info, &memory);
    if (!pFile)
        return {};
    const std::size_t count = std::min(m_written, m_ring.size());
    const std::size_t begin = (m_written - count) % m_ring.size();
    const std::size_t head = std::min(count, m_ring.size() - begin);
    const sf_count_t done = sf_write_short(pFile, m_ring.data() + begin, sf_count_t(head)) +
                            sf_write_short(pFile, m_ring.data(), sf_count_t(count - head));
    sf_close(pFile);
    return done == sf_count_t(count) ? memory.bytes : QByteArray();
}

#include "moc_SoundKeeper.cpp"
