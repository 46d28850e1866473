// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

inline QString Name(const char* pName)
{
    return QLatin1String(pName);
}
