// SPDX-License-Identifier: MIT
#include <desktop/window/WindowSettings.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <utility>

namespace {

constexpr const char* kStripKey = "LastMinutes";

constexpr std::pair<const char*, ePanel> kPanelKeys[] = {
    {"AdvancedSettings", eAdvancedSettingsPanel},
    {"AudioInputDevices", eDevicesPanel},
    {"AudioSpectrum", eSpectrumPanel},
    {"BeatLED", eBeatLEDPanel},
    {"BPM", eBPMPanel},
    {"Durations", eDurationsPanel},
    {"ManualBeat", eManualBeatPanel},
    {"Outputs", eOutputsPanel},
    {"Profiles", eProfilesPanel},
    {"PulseLED", ePulseLEDPanel},
    {"Reset", eResetPanel},
    {kStripKey, eStripPanel},
    {"Threshold", eThresholdPanel},
};

constexpr std::pair<const char*, bool WindowSettings::*> kFlagKeys[] = {
    {"HighContrast", &WindowSettings::isHighContrast},
    {"SoftFlash", &WindowSettings::isFlashSoft},
    {"LimitFlash", &WindowSettings::isFlashLimited},
    {"Muted", &WindowSettings::isMuted},
};

const QString kGroup = QStringLiteral("MainWindow");
const QString kSize = QStringLiteral("Size");
const QString kPlace = QStringLiteral("Place");

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

/// How the window was left: what only this program writes.
void ReadLeft(const QSettings& pFile, WindowSettings& pSettings)
{
    for (const auto& [key, flag] : kFlagKeys)
        pSettings.*flag = ReadFlag(pFile, key, pSettings.*flag);
    pSettings.visible[eStripPanel] = ReadFlag(pFile, kStripKey, pSettings.visible[eStripPanel]);
    pSettings.visible[eOutputsPanel] = ReadFlag(pFile, "Outputs", pSettings.visible[eOutputsPanel]);
    pSettings.size = pFile.value(kSize).toSize();
    const QVariant place = pFile.value(kPlace);
    if (place.canConvert<QPoint>())
        pSettings.place = place.toPoint();
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
    visible[eOutputsPanel] = true;
    visible[eDurationsPanel] = pSettings.isDurationsSettingsPanelVisible();
    visible[eAdvancedSettingsPanel] = pSettings.isAdvancedSettingsVisible();
    visible[eResetPanel] = pSettings.isResetVisible();
}

WindowSettings WindowSettings::Load(const QString& pPath)
{
    WindowSettings settings(pPath.isEmpty() ? UISettings::Load() : UISettings());
    QSettings file(pPath.isEmpty() ? UISettings::_getDefaultPath() : pPath, QSettings::IniFormat);
    file.beginGroup(kGroup);
    ReadLeft(file, settings);
    if (pPath.isEmpty())
        return settings;
    for (const auto& [key, panel] : kPanelKeys)
        settings.visible[panel] = ReadFlag(file, key, settings.visible[panel]);
    settings.isHiddenOnStart = ReadFlag(file, "HideOnStart", settings.isHiddenOnStart);
    settings.isManualBeatLockingBPM =
        ReadFlag(file, "ManualBeatLock", settings.isManualBeatLockingBPM);
    settings.position = ReadPosition(file);
    return settings;
}

bool WindowSettings::Save(const WindowSettings& pBefore) const
{
    const QString path = UISettings::_getDefaultPath();
    QDir().mkpath(QFileInfo(path).path());
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(kGroup);
    for (const auto& [key, panel] : kPanelKeys)
        if (visible[panel] != pBefore.visible[panel])
            file.setValue(QLatin1String(key), bool(visible[panel]));
    for (const auto& [key, flag] : kFlagKeys)
        if (this->*flag != pBefore.*flag)
            file.setValue(QLatin1String(key), this->*flag);
    if (size != pBefore.size)
        file.setValue(kSize, size);
    if (place && place != pBefore.place)
        file.setValue(kPlace, *place);
    file.sync();
    return file.status() == QSettings::NoError;
}
