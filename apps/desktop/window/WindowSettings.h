// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/UISettings.h>

#include <QPoint>
#include <QSize>
#include <QString>

#include <bitset>
#include <optional>

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
    eOutputsPanel,
    eDurationsPanel,
    eAdvancedSettingsPanel,
    eResetPanel,
    eStripPanel,
    ePanelCount
};

/// Which panels the window shows, where and how it starts, and how it was left.
struct WindowSettings
{
    explicit WindowSettings(const UISettings& pSettings = UISettings());
    /// The file at pPath, read by the very rules of UISettings; or, when empty, the file that
    /// UISettings reads.
    static WindowSettings Load(const QString& pPath);
    /// Writes what is different from pBefore into the file that UISettings reads; the rest of it
    /// stays. False when it cannot be written.
    bool Save(const WindowSettings& pBefore) const;

    std::bitset<ePanelCount> visible;
    bool isHiddenOnStart;
    bool isManualBeatLockingBPM;
    eStartingPosition position;
    QSize size;                   ///< as it was left; empty = what the panels need
    std::optional<QPoint> place;  ///< of its frame, as it was left
    bool isHighContrast = false;
    bool isFlashSoft = false;    ///< the stage view only glows with the beat
    bool isFlashLimited = true;  ///< to three full flashes a second
    bool isMuted = false;        ///< files are played without sound
};
