// SPDX-License-Identifier: MIT
#pragma once

#include <QTextCodec>

/// UTF-8 that keeps every byte: what is no UTF-8 becomes a lone low surrogate, U+DC80 to U+DCFF,
/// which no valid text holds, and turns into the same byte again.
///
/// File names are bytes that need not be text. With this codec in place everything of Qt that takes
/// or gives a file name, an argument of a program among them, works for all of them.
class FileNameCodec : public QTextCodec
{
public:
    /// Makes it the codec of the locale, whatever the locale says, before the application object is
    /// created. Qt owns it.
    static void Install();

    QByteArray name() const override;
    int mibEnum() const override;

protected:
    QString convertToUnicode(const char* pBytes, int pSize, ConverterState* pState) const override;
    QByteArray
    convertFromUnicode(const QChar* pText, int pSize, ConverterState* pState) const override;

private:
    /// Qt's destructor is protected: codecs stay to the end of the program.
    ~FileNameCodec() override = default;
};
