// SPDX-License-Identifier: MIT
#pragma once

/// How every program with our widgets draws: sharp at every resolution, and the same everywhere.
namespace style {

/// Before the QApplication is made.
void Prepare();
/// With the QApplication.
void Apply();

}  // namespace style
