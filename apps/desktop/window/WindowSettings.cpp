// SPDX-License-Identifier: MIT
#include <desktop/window/WindowSettings.h>

#include <QSettings>

#include <utility>

namespace {

constexpr std::pair<const char*, ePanel> kPanelKeys[] = {
    {"AdvancedSettings", eAdvancedSettingsPanel},
    {"AudioInputDevices", eDevicesPanel},
    {"AudioSpectrum", eSpectrumPanel},
    {"BeatLED", eBeatLEDPanel},
    {"BPM", eBPMPanel},
    {"Durations", eDurationsPanel},
    {"ManualBeat", eManualBeatPanel},
    {"Profiles", eProfilesPanel},
    {"PulseLED", ePulseLEDPanel},
    {"Reset", eResetPanel},
    {"Threshold", eThresholdPanel},
};

constexpr std::pair<const char*, eStartingPosition> kPositions[] = {
    {"BOTTOM-LEFT", BottomLeft},
    {"BOTTOM-RIGHT", BottomRight},
    {"CENTER", Center},
    {"TOP-LEFT", TopLeft},
    {"TOP-RIGHT", TopRight},
};

/// Intended: by Qt's rule for a text "no" and "off" are true, as in the file beside the program.
bool ReadFlag(const QSettings& pFile, const char* pKey, bool pDefault)
{
    return pFile.value(QLatin1String(pKey), pDefault).toBool();
}

eStartingPosition ReadPosition(const QSettings& pFile)
{
    const QString text =
        pFile.value(QStringLiteral("StartingPosition")).toString().trimmed().toUpper();
    for (const auto& [name, position] : kPositions)
        if (text == QLatin1String(name))
            return position;
    return Default;
}

}  // namespace

WindowSettings::WindowSettings(const UISettings& pSettings)
    : isHiddenOnStart(pSettings.isHiddenOnStart()),
      isManualBeatLockingBPM(pSettings.isManualBeatLockingBPM()),
      position(pSettings.getStartingPosition())
{
    visible[eBPMPanel] = pSettings.isBPMVisible();
    visible[eBeatLEDPanel] = pSettings.isBeatLEDVisible();
    visible[ePulseLEDPanel] = pSettings.isPulseLEDVisible();
    visible[eSpectrumPanel] = pSettings.isAudioSpectrumVisible();
    visible[eThresholdPanel] = pSettings.isThresholdVisible();
    visible[eDevicesPanel] = pSettings.isAudioInputDevicesVisible();
    visible[eProfilesPanel] = pSettings.isProfilesVisible();
    visible[eManualBeatPanel] = pSettings.isManualBeatVisible();
    visible[eDurationsPanel] = pSettings.isDurationsSettingsPanelVisible();
    visible[eAdvancedSettingsPanel] = pSettings.isAdvancedSettingsVisible();
    visible[eResetPanel] = pSettings.isResetVisible();
}

WindowSettings WindowSettings::Load(const QString& pPath)
{
    if (pPath.isEmpty())
        return WindowSettings(UISettings::Load());
    WindowSettings settings;
    QSettings file(pPath, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("MainWindow"));
    for (const auto& [key, panel] : kPanelKeys)
        settings.visible[panel] = ReadFlag(file, key, settings.visible[panel]);
    settings.isHiddenOnStart = ReadFlag(file, "HideOnStart", settings.isHiddenOnStart);
    settings.isManualBeatLockingBPM =
        ReadFlag(file, "ManualBeatLock", settings.isManualBeatLockingBPM);
    settings.position = ReadPosition(file);
    return settings;
}
