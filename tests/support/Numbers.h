// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
