// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>

#include <QBuffer>
#include <QDataStream>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <memory>

// Fuzz target of UserProfile::Deserialize(): any bytes, with a true and a lying count of what is
// there, give a profile that stands in these bytes, or none.

namespace {

constexpr unsigned long kFixedSize = 37;  // bytes of a record without its name

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

void tryBytes(QByteArray pBytes, unsigned long pAnnounced)
{
    UserProfile::_nextID = 100;
    QBuffer buffer(&pBytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    stream.setByteOrder(QDataStream::LittleEndian);
    unsigned long size = pAnnounced;
    const std::unique_ptr<UserProfile> profile(UserProfile::Deserialize(stream, size));
    if (!profile) {
        require(size == 0, "a failure reports bytes");
        require(UserProfile::_nextID == 100, "a failure takes an ID");
        return;
    }
    require(size >= kFixedSize && size <= pAnnounced, "more bytes taken than announced");
    require(buffer.pos() == static_cast<qint64>(size), "other bytes taken than reported");
    require(profile->isSerializable() && !profile->isReadOnly(), "no user profile");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    tryBytes(bytes, static_cast<unsigned long>(size));
    tryBytes(bytes, ULONG_MAX);
    if (size > 0)
        tryBytes(bytes, static_cast<unsigned long>(size - 1));
    return 0;
}
