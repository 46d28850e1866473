// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/kinds/OutputKinds.h>

namespace shared::detail {

/// The rows of the table of kinds, each in a source of its own.
OutputKind oscKind();
OutputKind os2lKind();
OutputKind midiClockKind();
OutputKind midiNotesKind();
OutputKind wledKind();

}  // namespace shared::detail
