// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/SettingsTable.h>

/// The setting of that identifier, which must be in the table.
inline const SettingsTable::Setting* SettingOf(const char* pIdentifier)
{
    const SettingsTable::Setting* pSetting = SettingsTable::Find(QString::fromUtf8(pIdentifier));
    Q_ASSERT_X(pSetting, "SettingOf", pIdentifier);
    return pSetting;
}

/// One value that the setting does not begin with.
inline double OtherValue(const SettingsTable::Setting& pSetting)
{
    return pSetting.initial == pSetting.maximum ? pSetting.minimum : pSetting.maximum;
}
