// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/settings/BeatSettings.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <cmath>

namespace {

const QString kTracker = QStringLiteral("Beats/Tracker");
const QString kOffset = QStringLiteral("Beats/OffsetMs");
const QString kAutomatic = QStringLiteral("automatic");
const QString kProfile = QStringLiteral("profile");

}  // namespace

BeatSettings BeatSettings::Load()
{
    BeatSettings settings;
    const QString path = UISettings::_getDefaultPath();
    if (!QFile::exists(path))
        return settings;
    const QSettings file(path, QSettings::IniFormat);
    const QString tracker = file.value(kTracker).toString();
    settings.isAutomatic = tracker.compare(kProfile, Qt::CaseInsensitive) != 0;
    const double offset = file.value(kOffset, 0.0).toDouble();
    if (std::abs(offset) <= kFarthestOffset)
        settings.offset = offset;
    return settings;
}

bool BeatSettings::Save() const
{
    const QString path = UISettings::_getDefaultPath();
    QDir().mkpath(QFileInfo(path).path());
    QSettings file(path, QSettings::IniFormat);
    file.setValue(kTracker, isAutomatic ? kAutomatic : kProfile);
    file.setValue(kOffset, offset);
    file.sync();
    return file.status() == QSettings::NoError;
}
