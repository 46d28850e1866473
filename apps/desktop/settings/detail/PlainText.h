// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace desktop {

/// What a label says, without its mnemonic and its colon: the name of its field for assistive
/// tools.
inline QString PlainText(QString pLabel)
{
    pLabel.remove(QLatin1Char('&'));
    if (pLabel.endsWith(QLatin1Char(':')))
        pLabel.chop(1);
    return pLabel.trimmed();
}

}  // namespace desktop
