// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/SettingsFolder.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <QFile>
#include <QSettings>

namespace {

struct PositionText
{
    QLatin1String text;
    eStartingPosition position;
};

const PositionText kPositionTexts[] = {
    {QLatin1String("BOTTOM-LEFT"), BottomLeft},
    {QLatin1String("BOTTOM-RIGHT"), BottomRight},
    {QLatin1String("CENTER"), Center},
    {QLatin1String("TOP-LEFT"), TopLeft},
    {QLatin1String("TOP-RIGHT"), TopRight},
};

eStartingPosition positionOf(const QString& pText)
{
    const QString text = pText.trimmed().toUpper();
    for (const PositionText& known : kPositionTexts)
        if (text == known.text)
            return known.position;
    return Default;
}

}  // namespace

QString UISettings::_getDefaultPath()
{
    return SettingsFolder::getPath(QStringLiteral("AudioAnalyzer.ini"));
}

UISettings UISettings::Load()
{
    UISettings result;
    const QString path = _getDefaultPath();
    if (!QFile::exists(path))
        return result;
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("MainWindow"));
    // Intended: Qt's own rule for a text, by which "no" and "off" are true.
    const auto read = [&file](const char* pKey, bool& pFlag) {
        pFlag = file.value(QLatin1String(pKey), pFlag).toBool();
    };
    read("AdvancedSettings", result.m_isAdvancedSettingsVisible);
    read("AudioInputDevices", result.m_isAudioInputDevicesVisible);
    read("AudioSpectrum", result.m_isAudioSpectrumVisible);
    read("BeatLED", result.m_isBeatLEDVisible);
    read("BPM", result.m_isBPMVisible);
    read("Durations", result.m_isDurationsSettingsPanelVisible);
    read("HideOnStart", result.m_isHiddenOnStart);
    read("ManualBeatLock", result.m_isManualBeatLockingBPM);
    read("ManualBeat", result.m_isManualBeatVisible);
    read("Profiles", result.m_isProfilesVisible);
    read("PulseLED", result.m_isPulseLEDVisible);
    read("Reset", result.m_isResetVisible);
    result.m_startingPosition =
        positionOf(file.value(QStringLiteral("StartingPosition"), QString()).toString());
    read("Threshold", result.m_isThresholdVisible);
    file.endGroup();
    return result;
}

bool UISettings::isAdvancedSettingsVisible() const
{
    return m_isAdvancedSettingsVisible;
}

bool UISettings::isAudioInputDevicesVisible() const
{
    return m_isAudioInputDevicesVisible;
}

bool UISettings::isAudioSpectrumVisible() const
{
    return m_isAudioSpectrumVisible;
}

bool UISettings::isBeatLEDVisible() const
{
    return m_isBeatLEDVisible;
}

bool UISettings::isBPMVisible() const
{
    return m_isBPMVisible;
}

bool UISettings::isDurationsSettingsPanelVisible() const
{
    return m_isDurationsSettingsPanelVisible;
}

bool UISettings::isHiddenOnStart() const
{
    return m_isHiddenOnStart;
}

bool UISettings::isManualBeatLockingBPM() const
{
    return m_isManualBeatLockingBPM;
}

bool UISettings::isManualBeatVisible() const
{
    return m_isManualBeatVisible;
}

bool UISettings::isProfilesVisible() const
{
    return m_isProfilesVisible;
}

bool UISettings::isPulseLEDVisible() const
{
    return m_isPulseLEDVisible;
}

bool UISettings::isResetVisible() const
{
    return m_isResetVisible;
}

eStartingPosition UISettings::getStartingPosition() const
{
    return m_startingPosition;
}

bool UISettings::isThresholdVisible() const
{
    return m_isThresholdVisible;
}
