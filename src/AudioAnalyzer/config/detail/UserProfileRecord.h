// SPDX-License-Identifier: MIT
#pragma once

class Profile;
class QDataStream;

namespace detail {

/// Writes the file record of a user profile, which a list holds as a plain Profile.
/// Returns the bytes written.
unsigned long writeUserProfile(QDataStream& stream, const Profile& profile);

}  // namespace detail
