// SPDX-License-Identifier: MIT
#include "FakeAudioStream.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace {

constexpr int kReservedRequests = 4096;  // so that reading does not allocate

}  // namespace

FakeAudioStream::FakeAudioStream(QObject* pParent) : QIODevice(pParent)
{
    m_requestedSizes.reserve(kReservedRequests);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void FakeAudioStream::Append(const QByteArray& pBytes)
{
    m_pending.append(pBytes);
}

void FakeAudioStream::ScriptRead(eRead pRead)
{
    m_script.enqueue(pRead);
}

int FakeAudioStream::pendingBytes() const
{
    return m_pending.size();
}

const QList<qint64>& FakeAudioStream::requestedSizes() const
{
    return m_requestedSizes;
}

bool FakeAudioStream::isSequential() const
{
    return true;
}

qint64 FakeAudioStream::bytesAvailable() const
{
    return m_pending.size();
}

qint64 FakeAudioStream::readData(char* pData, qint64 pMaxSize)
{
    m_requestedSizes.append(pMaxSize);
    if (m_script.isEmpty())
        return _Take(pData, pMaxSize);
    switch (m_script.dequeue()) {
    case eRead::eShort:
        return _Take(pData, pMaxSize / 2);
    case eRead::eOneByte:
        return _Take(pData, 1);
    case eRead::eEmpty:
        return 0;
    case eRead::eFailing:
        return -1;
    case eRead::eThrowing:
        break;
    }
    throw std::runtime_error("scripted");
}

qint64 FakeAudioStream::writeData(const char*, qint64)
{
    return -1;
}

qint64 FakeAudioStream::_Take(char* pData, qint64 pSize)
{
    const int size = static_cast<int>(std::min<qint64>(pSize, m_pending.size()));
    std::memcpy(pData, m_pending.constData(), static_cast<size_t>(size));
    m_pending.remove(0, size);
    return size;
}

#include "moc_FakeAudioStream.cpp"
