// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Words for the person at the terminal, on standard error.
namespace console {

/// Prints one line; line feeds inside it become blanks.
void PrintLine(const QString& pText);
/// Prints one line that begins with the program's name.
void PrintError(const QString& pText);
/// Prints pText as it is. False when nobody reads standard error any more.
bool PrintRaw(const QByteArray& pText);

/// Whether standard error is a terminal on which a line can be drawn over.
bool isTerminal();
/// Width of that terminal in characters.
int getColumns();

}  // namespace console
