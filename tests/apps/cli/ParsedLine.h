// SPDX-License-Identifier: MIT
#pragma once

#include <cli/CommandLine.h>

#include <QStringList>

#include <vector>

inline CommandLine Parse(const QStringList& pArguments)
{
    std::vector<QByteArray> bytes{"audio-analyzer"};
    for (const QString& argument : pArguments)
        bytes.push_back(argument.toUtf8());
    std::vector<const char*> pointers;
    for (const QByteArray& argument : bytes)
        pointers.push_back(argument.constData());
    return parseCommandLine(int(pointers.size()), pointers.data());
}

/// Arguments separated by blanks.
inline CommandLine Parse(const char* pArguments)
{
    return Parse(QString::fromUtf8(pArguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}
