// SPDX-License-Identifier: MIT
#pragma once

/// What a user has chosen of the beats in general. It stands in "AudioAnalyzer.ini", in a group of
/// its own, beside what that file says of the window; see UISettings.
///
/// Threads: one at a time; both functions read a file.
struct BeatSettings
{
    static constexpr double kFarthestOffset = 500.0;  ///< ms

    bool isAutomatic = true;  ///< the automatic tracker, not a profile
    double offset = 0.0;      ///< ms by which beats are told later, up to kFarthestOffset

    /// Defaults for what the file does not say, or says beyond its limits.
    static BeatSettings Load();
    /// Leaves the rest of the file as it is. False when it cannot be written.
    bool Save() const;
};
