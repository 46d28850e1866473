// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QtGlobal>

namespace detail {

/// Reads the fields of an untrusted file and counts down the bytes that remain.
///
/// The first read that asks for more than remains, or gets less than it asks for, fails; from then
/// on every read gives 0 or an empty text and isValid() is false. No read allocates more than
/// remains. The byte order is the stream's.
class BoundedReader
{
public:
    BoundedReader(QDataStream& stream, quint64 available) : m_stream(stream), m_remaining(available)
    {
    }

    /// A number, or a bool of one byte.
    template <typename Number>
    Number read()
    {
        Number value{};
        if (take(sizeof(Number)))
            m_stream >> value;
        _Check(m_stream.status() == QDataStream::Ok);
        return m_isValid ? value : Number{};
    }

    /// size bytes of UTF-8.
    QString readText(quint16 size)
    {
        if (!take(size))
            return QString();
        QByteArray bytes(size, Qt::Uninitialized);
        _Check(m_stream.readRawData(bytes.data(), size) == size);
        return m_isValid ? QString::fromUtf8(bytes) : QString();
    }

    /// A 16-bit length and that many bytes of UTF-8.
    QString readText() { return readText(read<quint16>()); }

    /// Counts size bytes as read.
    bool take(quint64 size)
    {
        _Check(size <= m_remaining);
        if (m_isValid)
            m_remaining -= size;
        return m_isValid;
    }

    /// For a field whose value is nonsense.
    void fail() { m_isValid = false; }

    bool isValid() const { return m_isValid; }
    quint64 remaining() const { return m_remaining; }  ///< bytes
    QDataStream& stream() { return m_stream; }

private:
    void _Check(bool isGood) { m_isValid = m_isValid && isGood; }

    QDataStream& m_stream;
    quint64 m_remaining;  // bytes
    bool m_isValid = true;
};

}  // namespace detail
