// SPDX-License-Identifier: MIT
#pragma once

#include "SourceState.h"

#include <QString>

/// The words in which the window says what it hears.
namespace sourcetexts {

struct Text
{
    QString text;
    bool isWarning;  ///< something is to be done
};

Text describe(const SourceState& pState);
/// m:ss, or h:mm:ss from an hour on.
QString describeTime(double pSeconds);

}  // namespace sourcetexts
