// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QString>

/// Where the files of settings stand: beside the executable, as long as no host says otherwise.
///
/// A program that is installed for all users cannot write beside itself. Its host names a folder of
/// the user's, and a file that the executable's folder neither holds nor takes stands there.
///
/// Threads: set at start-up, before anything is read; from then on any thread may ask.
class AUDIOANALYZER_EXPORT SettingsFolder
{
public:
    SettingsFolder() = delete;

    /// The absolute path of the file pName: in the executable's folder when the file is there, when
    /// that folder can be written or when no other is named; else in the user's folder, which need
    /// not exist. Looks at the disk with every call.
    static QString getPath(const QString& pName);
    /// The user's folder; empty = none is named.
    static QString getUserFolder();
    /// Names the user's folder for this process; an empty text takes it back. Makes no folder.
    static void setUserFolder(const QString& pFolder);

private:
    static QString _userFolder;
};
