// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QtGlobal>

#include <cmath>

/// The constants and encodings of the configuration file; docs/config-file-format.md has the
/// layout. Files of users hold these values: do not change any of them.
namespace detail {

constexpr int kFileVersion1_0 = 0x100;  // major * 256 + minor
constexpr int kFileVersion1_1 = 0x101;
constexpr int kFileVersion1_2 = 0x102;

constexpr qint64 kHeadSize = 12;     // bytes: signature, version, length of the device name
constexpr int kSignatureSize = 8;    // bytes
constexpr int kChecksumSize = 2;     // bytes
constexpr quint32 kRecordSize = 37;  // bytes of a user profile without its name

constexpr qint16 kRecordVersion = 1;
constexpr qint8 kRecordMarker = 0x46;
constexpr double kReserved = 1.0;  // written into every record, ignored by readers

/// Low 16 bits of a value truncated toward zero; 0 for NaN and the infinities.
inline qint16 lowWord(double value)
{
    const double rest = std::fmod(std::trunc(value), 65536.0);
    return std::isnan(rest) ? qint16(0) : static_cast<qint16>(static_cast<int>(rest));
}

/// Writes a 16-bit length and that many bytes of UTF-8; a longer text is cut to its size modulo
/// 65536. Returns the length.
inline quint16 writeText(QDataStream& stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const auto length = static_cast<quint16>(bytes.size());
    stream << length;
    stream.writeRawData(bytes.constData(), length);
    return length;
}

}  // namespace detail
