// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

/// Where the file of that name in data/ lies.
inline QString DataPath(const char* pName)
{
    return QFINDTESTDATA((QByteArray("data/") + pName).constData());
}
