// SPDX-License-Identifier: MIT
#pragma once

namespace detail {

/// What decides where a file of settings stands.
struct SettingsPlace
{
    bool isThere = false;           ///< the file, in the executable's folder
    bool isFolderWritable = false;  ///< the executable's folder, by this user
};

/// A file that is there holds for every user, whether or not this one may write it.
constexpr bool isBesideExecutable(const SettingsPlace& place)
{
    return place.isThere || place.isFolderWritable;
}

}  // namespace detail
