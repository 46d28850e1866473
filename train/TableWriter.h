// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/detail/MeterTable.h>

#include "Track.h"

#include <QString>

#include <vector>

/// Writes the table as a source file, with a head that says what kind of music it comes from.
/// Throws std::runtime_error.
void writeTable(const QString& pPath,
                const detail::MeterTable& pTable,
                const std::vector<Track>& pTracks,
                std::size_t pStudies);
