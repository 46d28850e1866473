// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

namespace shared {

/// A text of the outputs in the user's language.
inline QString outputText(const char* pText)
{
    return QCoreApplication::translate("Outputs", pText);
}

}  // namespace shared
