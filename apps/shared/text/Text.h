// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

/// A text for people, where no class has a context of its own.
inline QString tr(const char* pText)
{
    return QCoreApplication::translate("shared", pText);
}
