// SPDX-License-Identifier: MIT
#include <shared/hands/detail/OscReader.h>

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <optional>

namespace shared::detail {

namespace {

constexpr int kDeepest = 4;           // bundles in bundles
constexpr std::size_t kMost = 64;     // messages of a packet
constexpr int kLongestAddress = 200;  // bytes

/// Takes texts and numbers off the front of bytes; what is not there makes it bad for good.
class OscBytes
{
public:
    explicit OscBytes(const QByteArray& pBytes) : m_bytes(pBytes) {}

    bool isGood() const { return m_isGood; }
    bool isEmpty() const { return m_place == m_bytes.size(); }
    QByteArray Take(int pCount)
    {
        m_isGood = m_isGood && pCount >= 0 && pCount <= m_bytes.size() - m_place;
        if (!m_isGood)
            return {};
        m_place += pCount;
        return m_bytes.mid(m_place - pCount, pCount);
    }
    /// Ends in a zero, and is filled up to a multiple of four with more.
    QByteArray TakeText()
    {
        const int end = m_isGood ? m_bytes.indexOf('\0', m_place) : -1;
        m_isGood = end >= 0;
        const QByteArray text = Take(end - m_place);
        Take(4 - text.size() % 4);
        return text;
    }
    template <typename Value>
    Value TakeNumber()
    {
        const QByteArray bytes = Take(int(sizeof(Value)));
        return m_isGood ? qFromBigEndian<Value>(bytes.constData()) : Value();
    }

private:
    QByteArray m_bytes;
    int m_place = 0;
    bool m_isGood = true;
};

double ValueOf(OscBytes& pBytes, char pType)
{
    switch (pType) {
    case 'i':
        return pBytes.TakeNumber<qint32>();
    case 'h':
        return double(pBytes.TakeNumber<qint64>());
    case 'f':
        return double(pBytes.TakeNumber<float>());
    case 'd':
        return pBytes.TakeNumber<double>();
    case 'F':
        return 0.0;
    default:
        return 1.0;
    }
}

std::optional<HandMessage> ReadMessage(const QByteArray& pPacket)
{
    OscBytes bytes(pPacket);
    const QByteArray address = bytes.TakeText();
    // Some senders leave out the types where there are no arguments.
    const QByteArray types = bytes.isEmpty() ? QByteArray(",") : bytes.TakeText();
    const double value = types.size() > 1 ? ValueOf(bytes, types[1]) : 1.0;
    const bool isPlain = std::all_of(
        address.begin(), address.end(), [](char pByte) { return pByte > ' ' && pByte < 127; });
    if (!bytes.isGood() || !address.startsWith('/') || !types.startsWith(',') || !isPlain ||
        address.size() > kLongestAddress || std::isnan(value))
        return std::nullopt;
    return HandMessage{QStringLiteral("osc:") + QString::fromLatin1(address),
                       std::clamp(value, 0.0, 1.0)};
}

void ReadPacket(const QByteArray& pPacket, int pDepth, std::vector<HandMessage>& pFound)
{
    if (!pPacket.startsWith("#bundle")) {
        const std::optional<HandMessage> message = ReadMessage(pPacket);
        if (message && pFound.size() < kMost)
            pFound.push_back(*message);
        return;
    }
    constexpr int kHead = 16;  // bytes, with the time
    OscBytes bytes(pPacket);
    bytes.Take(kHead);
    while (pDepth < kDeepest && bytes.isGood() && !bytes.isEmpty()) {
        const QByteArray part = bytes.Take(bytes.TakeNumber<qint32>());
        if (bytes.isGood())
            ReadPacket(part, pDepth + 1, pFound);
    }
}

}  // namespace

std::vector<HandMessage> ReadOsc(const QByteArray& pPacket)
{
    std::vector<HandMessage> found;
    ReadPacket(pPacket, 0, found);
    return found;
}

}  // namespace shared::detail
