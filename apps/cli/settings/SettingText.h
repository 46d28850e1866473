// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/SettingsTable.h>

#include <QString>

#include <optional>

namespace cli {

/// "auto", "on", "1.5": as a person writes the value.
QString SettingText(const SettingsTable::Setting& pSetting, double pValue);

/// The value of such a text, within the limits; nothing when it is not one. A value that has a word
/// is not written as a number.
std::optional<double> ReadSetting(const SettingsTable::Setting& pSetting, const QString& pText);

/// The numbers of a setting that is no switch: "0 to 32767", "up to 999".
QString NumberRange(const SettingsTable::Setting& pSetting);

/// What may be written, for people: "0 to 32767 or auto", "on or off".
QString SettingRange(const SettingsTable::Setting& pSetting);

/// Why a text is refused: "give a whole number from 0 to 32767, or auto".
QString SettingRefusal(const SettingsTable::Setting& pSetting);

/// What the setting is, in the host's language.
QString SettingDescription(const SettingsTable::Setting& pSetting);

}  // namespace cli
