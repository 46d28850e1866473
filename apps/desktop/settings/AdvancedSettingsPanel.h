// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/SettingsPanel.h>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;

/// How the window looks and what it shows besides: the display flags and the language.
class AdvancedSettingsPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit AdvancedSettingsPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh() override;

    /// The display-stopped flag, for which the configuration has only a setter.
    static bool isStoppedDisplayed(const Configuration& pConfiguration);

Q_SIGNALS:
    void OnVirtualBeatsWhenStoppedChanged(bool pIsDisplayed);
    void OnGrayModeChanged(bool pIsGray);
    void OnTopMostChanged(bool pIsTopMost);
    void OnDisplaySpeakersChanged(bool pIsDisplayed);
    void OnDisplayStoppedChanged(bool pIsDisplayed);
    /// pCode: as stored; empty = the system's language.
    void OnLanguageChanged(const QString& pCode);

protected:
    void _Retranslate() override;

private:
    enum eFlag
    {
        eVirtualBeats,
        eStopped,
        eSpeakers,
        eGrayMode,
        eTopMost,
        eFlagCount
    };

    void _StoreFlag(eFlag pFlag, bool pIsOn);
    void _StoreLanguage();
    void _ShowLanguages();

    std::array<QCheckBox*, eFlagCount> m_flags;
    QLabel* m_pLanguageLabel;
    QComboBox* m_pLanguage;
};
