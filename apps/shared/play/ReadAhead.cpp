// SPDX-License-Identifier: MIT
#include <shared/play/ReadAhead.h>

#include <chrono>

ReadAhead::ReadAhead(const QString& pPath, bool pIsLooped)
    : m_path(pPath), m_isLooped(pIsLooped),
      m_next(std::async(std::launch::async, [this] { return _ReadChunk(); }))
{
}

ReadAhead::~ReadAhead() = default;

bool ReadAhead::isReady() const
{
    return m_next.valid() &&
           m_next.wait_for(std::chrono::seconds::zero()) == std::future_status::ready;
}

ReadAhead::Chunk ReadAhead::Take()
{
    Chunk chunk = m_next.get();
    if (!chunk.isLast)
        m_next = std::async(std::launch::async, [this] { return _ReadChunk(); });
    return chunk;
}

ReadAhead::Chunk ReadAhead::_ReadChunk()
{
    Chunk chunk;
    if (m_reader || _Open())
        _Fill(chunk);
    else
        chunk.isLast = true;
    chunk.error = m_reader->getError();
    chunk.isLast |= !chunk.error.isEmpty();
    return chunk;
}

bool ReadAhead::_Open()
{
    m_reader = std::make_unique<AudioFileReader>();
    return m_reader->Open(m_path);
}

void ReadAhead::_Fill(Chunk& pChunk)
{
    const auto wanted = std::size_t(m_reader->getSampleRate());
    pChunk.sampleRate = m_reader->getSampleRate();
    pChunk.frameCount = m_reader->getFrameCount();
    pChunk.samples.resize(wanted);
    pChunk.samples.resize(m_reader->Read(pChunk.samples.data(), wanted));
    const bool isEnd = pChunk.samples.size() < wanted;
    m_isEmpty &= pChunk.samples.empty();
    const bool isAgain =
        isEnd && m_isLooped && !m_isEmpty && m_reader->getError().isEmpty() && _Open();
    pChunk.isLast = isEnd && !isAgain;
}
