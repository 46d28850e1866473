// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/SettingsFolder.h>
#include <AudioAnalyzer/config/detail/SettingsPlace.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString SettingsFolder::_userFolder;

QString SettingsFolder::getPath(const QString& pName)
{
    const QDir programs(QCoreApplication::applicationDirPath());
    QString beside = programs.absoluteFilePath(pName);
    if (_userFolder.isEmpty())
        return beside;
    const QFileInfo file(beside);
    detail::SettingsPlace place;
    // A link that leads nowhere yet is there all the same.
    place.isThere = file.exists() || file.isSymLink();
    place.isFolderWritable = QFileInfo(programs.path()).isWritable();
    return detail::isBesideExecutable(place) ? beside : QDir(_userFolder).absoluteFilePath(pName);
}

QString SettingsFolder::getUserFolder()
{
    return _userFolder;
}

void SettingsFolder::setUserFolder(const QString& pFolder)
{
    _userFolder = pFolder;
}
