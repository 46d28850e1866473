// SPDX-License-Identifier: MIT
#pragma once

#include <shared/settings/ConfigurationStore.h>

#include <QFile>

#include <support/Text.h>

/// Of the settings of the test that runs.
inline QString Path()
{
    return ConfigurationStore::getPath();
}

/// What another program does.
inline void StoreElsewhere(short pThreshold, const char* pDevice = nullptr)
{
    ConfigurationStore other;
    if (!other.LoadToChange())
        qFatal("%s", qPrintable(other.getError()));
    other.getConfiguration().setThreshold(pThreshold);
    if (pDevice)
        other.setDeviceName(Text(pDevice));
    if (!other.Save())
        qFatal("%s", qPrintable(other.getError()));
}

/// Whether all could be written.
inline bool WriteFile(const QString& pPath, const QByteArray& pBytes)
{
    QFile file(pPath);
    return file.open(QIODevice::WriteOnly) && file.write(pBytes) == pBytes.size();
}

/// The threshold in the file; -2 = it cannot be read.
inline short StoredThreshold()
{
    ConfigurationStore store;
    return store.Load() ? store.getConfiguration().getThreshold() : short(-2);
}
