// SPDX-License-Identifier: MIT
#include <shared/files/FileNameCodec.h>

namespace {

constexpr ushort kFirstEscape = 0xDC80;
constexpr ushort kLastEscape = 0xDCFF;
constexpr ushort kEscapeBase = 0xDC00;

const QTextCodec& Utf8()
{
    static const QTextCodec& codec = *QTextCodec::codecForName("UTF-8");
    return codec;
}

/// Appends the bytes to pText and returns true, when they are UTF-8 from front to end.
bool AppendValid(QString& pText, const char* pBytes, int pSize)
{
    // A byte order mark is part of a name as any other character.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = Utf8().toUnicode(pBytes, pSize, &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return false;
    pText += text;
    return true;
}

/// Bytes of the character that begins with this one; 1 when none does.
int LengthOf(uchar pFirst)
{
    return pFirst >= 0xF0 ? 4 : pFirst >= 0xE0 ? 3 : pFirst >= 0xC0 ? 2 : 1;
}

bool IsEscape(const QChar* pText, int pIndex)
{
    const ushort unit = pText[pIndex].unicode();
    const bool isPair = pIndex > 0 && pText[pIndex - 1].isHighSurrogate();
    return unit >= kFirstEscape && unit <= kLastEscape && !isPair;
}

QByteArray Encode(const QChar* pText, int pSize)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return Utf8().fromUnicode(pText, pSize, &state);
}

}  // namespace

void FileNameCodec::Install()
{
    setCodecForLocale(new FileNameCodec);
}

QByteArray FileNameCodec::name() const
{
    return QByteArrayLiteral("UTF-8-file-names");
}

int FileNameCodec::mibEnum() const
{
    constexpr int kPrivate = -1980;  // registered numbers are positive
    return kPrivate;
}

QString FileNameCodec::convertToUnicode(const char* pBytes, int pSize, ConverterState*) const
{
    QString text;
    if (AppendValid(text, pBytes, pSize))
        return text;
    for (int i = 0; i < pSize;) {
        const int length = qMin(LengthOf(uchar(pBytes[i])), pSize - i);
        if (AppendValid(text, pBytes + i, length)) {
            i += length;
        } else {
            text += QChar(ushort(kEscapeBase + uchar(pBytes[i])));
            ++i;
        }
    }
    return text;
}

QByteArray FileNameCodec::convertFromUnicode(const QChar* pText, int pSize, ConverterState*) const
{
    QByteArray bytes;
    int start = 0;
    for (int i = 0; i < pSize; ++i) {
        if (!IsEscape(pText, i))
            continue;
        bytes += Encode(pText + start, i - start) + char(pText[i].unicode() - kEscapeBase);
        start = i + 1;
    }
    return bytes + Encode(pText + start, pSize - start);
}
