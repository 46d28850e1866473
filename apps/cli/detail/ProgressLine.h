// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace cli {

/// Minutes and seconds, "1:05"; hours, "2:03:04", from one hour on.
QString Clock(double pSeconds);

/// One line of at most pColumns characters: the label, cut at its front when there is no room, a
/// bar, per cent and the time left. pFraction in [0, 1]; pElapsed in seconds.
QString ProgressLine(const QString& pLabel, double pFraction, double pElapsed, int pColumns);

/// The same for work of unknown length: the label and how much audio has been done, in seconds.
QString ProgressLine(const QString& pLabel, double pSecondsDone, int pColumns);

}  // namespace cli
