// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/UISettings.h>

#include <QString>

#include <bitset>

/// The panels of the window, in the order of the View menu.
enum ePanel
{
    eBPMPanel,
    eBeatLEDPanel,
    ePulseLEDPanel,
    eSpectrumPanel,
    eThresholdPanel,
    eDevicesPanel,
    eProfilesPanel,
    eManualBeatPanel,
    eDurationsPanel,
    eAdvancedSettingsPanel,
    eResetPanel,
    ePanelCount
};

/// Which panels the window shows, and where and how it starts.
struct WindowSettings
{
    explicit WindowSettings(const UISettings& pSettings = UISettings());
    /// The file at pPath, read by the very rules of UISettings; or, when empty, the file that
    /// UISettings reads.
    static WindowSettings Load(const QString& pPath);

    std::bitset<ePanelCount> visible;
    bool isHiddenOnStart;
    bool isManualBeatLockingBPM;
    eStartingPosition position;
};
