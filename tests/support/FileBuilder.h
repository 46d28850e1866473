// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QMap>
#include <QString>
#include <QtGlobal>

#include <cstring>

/// Builds configuration files field by field, the good ones and the damaged ones.
///
/// It shares nothing with the library: the layout stands here a second time, and the checksum is
/// the plain bitwise one. Every field is found again by its name:
///
///     FileBuilder::sample(1, 2).setI16("profile count", 9).reseal()
///     FileBuilder::sample(1, 2).truncateAt(40)
///     FileBuilder::sample(1, 2).flip(25)
///
/// In a second profile the names of fields end in " 2".
class FileBuilder
{
public:
    /// A file of two user profiles with IDs 100 and 101 and no device, the second one selected. No
    /// value is a default.
    static FileBuilder sample(int major, int minor)
    {
        FileBuilder file;
        file.head(major, minor).settings(2);
        file.profile(100, "Acid", "").profile(101, "\xc3\x89t\xc3\xa9", " 2");
        if (minor >= 1 || major > 1)
            file.durations();
        if (minor >= 2 || major > 1)
            file.language("en");
        return file.seal();
    }

    FileBuilder& head(int major, int minor)
    {
        mark("signature").raw(QByteArray::fromHex("5a45500744ac1002"));
        mark("major").raw(QByteArray(1, char(major)));
        return mark("minor").raw(QByteArray(1, char(minor)));
    }

    FileBuilder& settings(int profileCount)
    {
        mark("device").text("").mark("selected ID").i32(101).mark("threshold").i16(2000);
        mark("speakers").u8(0).mark("virtual beats").u8(1).mark("gray mode").u8(0);
        return mark("top most").u8(0).mark("profile count").i16(profileCount);
    }

    FileBuilder& profile(int id, const QByteArray& name, const QByteArray& suffix)
    {
        mark("ID" + suffix).i32(id).mark("name" + suffix).text(name);
        mark("record version" + suffix).i16(1).mark("marker" + suffix).u8(0x46);
        mark("minimal BPM" + suffix).i16(100).mark("maximal BPM" + suffix).i16(150);
        mark("reserved" + suffix).f64(1.0).mark("sensibility" + suffix).f64(1.25);
        return mark("filter low" + suffix).i32(20).mark("filter high" + suffix).i32(200);
    }

    FileBuilder& durations()
    {
        mark("average").f64(1.5).mark("BPM").f64(8.25).mark("normalization").f64(3.5);
        mark("normalization threshold").i16(12000).mark("stop").f64(0.75);
        return mark("stop threshold").i16(1500);
    }

    FileBuilder& language(const QByteArray& code)
    {
        return mark("language").text(code).mark("stopped").u8(1);
    }

    FileBuilder& seal() { return mark("checksum").i16(crc(m_bytes)); }

    // ---- Damage ---------------------------------------------------------------------------------

    /// Computes the checksum of whatever stands before the last two bytes.
    FileBuilder& reseal()
    {
        m_bytes.chop(2);
        return i16(crc(m_bytes));
    }

    FileBuilder& truncateAt(int size)
    {
        m_bytes.truncate(size);
        return *this;
    }

    FileBuilder& flip(int offset, int mask = 0xFF)
    {
        m_bytes[offset] = char(m_bytes.at(offset) ^ mask);
        return *this;
    }

    FileBuilder& set(const QByteArray& field, const QByteArray& bytes)
    {
        m_bytes.replace(at(field), bytes.size(), bytes);
        return *this;
    }

    FileBuilder& setU8(const QByteArray& field, int value)
    {
        return set(field, QByteArray(1, char(value)));
    }

    FileBuilder& setI16(const QByteArray& field, int value)
    {
        return set(field, little(quint64(value), 2));
    }

    FileBuilder& setI32(const QByteArray& field, qint64 value)
    {
        return set(field, little(quint64(value), 4));
    }

    /// Puts bytes before a field.
    FileBuilder& insert(const QByteArray& field, const QByteArray& bytes)
    {
        m_bytes.insert(at(field), bytes);
        return *this;
    }

    FileBuilder& append(const QByteArray& bytes) { return raw(bytes); }

    // ---- Parts ----------------------------------------------------------------------------------

    FileBuilder& mark(const QByteArray& field)
    {
        m_offsets.insert(field, m_bytes.size());
        return *this;
    }

    FileBuilder& raw(const QByteArray& bytes)
    {
        m_bytes += bytes;
        return *this;
    }

    FileBuilder& u8(int value) { return raw(little(quint64(value), 1)); }
    FileBuilder& i16(int value) { return raw(little(quint64(value), 2)); }
    FileBuilder& i32(qint64 value) { return raw(little(quint64(value), 4)); }

    FileBuilder& f64(double value)
    {
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        return raw(little(bits, 8));
    }

    FileBuilder& text(const QByteArray& utf8) { return i16(utf8.size()).raw(utf8); }

    // ---- Result ---------------------------------------------------------------------------------

    const QByteArray& bytes() const { return m_bytes; }
    int size() const { return m_bytes.size(); }

    /// Offset of a field as the file was built. An unknown name ends the program.
    int at(const QByteArray& field) const
    {
        if (!m_offsets.contains(field))
            qFatal("no field %s", field.constData());
        return m_offsets.value(field);
    }

    bool writeTo(const QString& path) const
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(m_bytes) == m_bytes.size();
    }

    /// CRC-16 with the reflected polynomial 0x1021, all ones at the start, inverted at the end.
    static quint16 crc(const QByteArray& bytes)
    {
        unsigned int state = 0xFFFF;
        for (const char byte : bytes) {
            state ^= static_cast<unsigned char>(byte);
            for (int bit = 0; bit < 8; ++bit)
                state = (state & 1U) != 0 ? (state >> 1) ^ 0x8408U : state >> 1;
        }
        return quint16(state ^ 0xFFFFU);
    }

private:
    static QByteArray little(quint64 value, int size)
    {
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += char(value >> (8 * i) & 0xFF);
        return bytes;
    }

    QByteArray m_bytes;
    QMap<QByteArray, int> m_offsets;  // by field
};
