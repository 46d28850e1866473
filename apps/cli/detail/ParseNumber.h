// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cmath>
#include <optional>

namespace cli {

/// A finite number with a decimal point, whatever the locale; nothing when pText is not one.
inline std::optional<double> ParseNumber(const QString& pText)
{
    bool isNumber = false;
    const double value = pText.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// The same within limits, both included.
inline std::optional<double> ParseNumber(const QString& pText, double pMinimum, double pMaximum)
{
    const std::optional<double> value = ParseNumber(pText);
    return value && *value >= pMinimum && *value <= pMaximum ? value : std::nullopt;
}

/// A whole decimal number within limits, both included.
inline std::optional<int> ParseInteger(const QString& pText, int pMinimum, int pMaximum)
{
    bool isNumber = false;
    const int value = pText.toInt(&isNumber);
    if (!isNumber || value < pMinimum || value > pMaximum)
        return std::nullopt;
    return value;
}

}  // namespace cli
