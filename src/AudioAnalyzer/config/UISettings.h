// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QString>
#include <QtGlobal>

/// Where a host's window starts. Do not change the values: hosts store them.
enum eStartingPosition : qint32
{
    BottomLeft = 0,
    BottomRight = 1,
    Center = 2,
    Default = 3,  ///< the host's own placement
    TopLeft = 4,
    TopRight = 5,
};

/// Which panels a host shows and where its window starts, read from the optional file
/// "AudioAnalyzer.ini" next to the host's executable.
///
/// A plain value: the library never writes the file and does not act on what it says.
///
/// Threads: any; Load() reads a file and belongs to start-up.
class AUDIOANALYZER_EXPORT UISettings
{
public:
    /// The defaults: every panel visible but the durations, nothing hidden or locked, host's
    /// placement.
    UISettings() = default;

    /// What the file at _getDefaultPath() says; defaults for whatever it does not say, and for all
    /// of it when it is absent or unreadable. Makes no file.
    static UISettings Load();
    /// The absolute path of "AudioAnalyzer.ini" in the folder of the executable, or where
    /// SettingsFolder has it.
    static QString _getDefaultPath();

    bool isAdvancedSettingsVisible() const;
    bool isAudioInputDevicesVisible() const;
    bool isAudioSpectrumVisible() const;
    bool isBeatLEDVisible() const;
    bool isBPMVisible() const;
    bool isDurationsSettingsPanelVisible() const;
    bool isHiddenOnStart() const;
    bool isManualBeatLockingBPM() const;
    bool isManualBeatVisible() const;
    bool isProfilesVisible() const;
    bool isPulseLEDVisible() const;
    bool isResetVisible() const;
    eStartingPosition getStartingPosition() const;
    bool isThresholdVisible() const;

private:
    bool m_isAdvancedSettingsVisible = true;
    bool m_isAudioInputDevicesVisible = true;
    bool m_isAudioSpectrumVisible = true;
    bool m_isBeatLEDVisible = true;
    bool m_isBPMVisible = true;
    bool m_isDurationsSettingsPanelVisible = false;
    bool m_isHiddenOnStart = false;
    bool m_isManualBeatLockingBPM = false;
    bool m_isManualBeatVisible = true;
    bool m_isProfilesVisible = true;
    bool m_isPulseLEDVisible = true;
    bool m_isResetVisible = true;
    eStartingPosition m_startingPosition = Default;
    bool m_isThresholdVisible = true;
};
