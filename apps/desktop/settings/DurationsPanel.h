// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/SettingsPanel.h>

#include <array>

class DecimalField;
class HintLabel;
class QGridLayout;
class QLabel;
class QPushButton;
class QSpinBox;

/// The spans of time over which the analysis measures, and the levels that go with them.
class DurationsPanel final : public SettingsPanel
{
    Q_OBJECT

public:
    explicit DurationsPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh() override;

protected:
    void _Retranslate() override;

private:
    enum eDuration
    {
        eAverageVolume,
        eBPM,
        eStop,
        eNormalization,
        eDurationCount
    };
    enum eLevel
    {
        eStopLevel,
        eNormalizationLevel,
        eLevelCount
    };
    struct DurationRow
    {
        QLabel* pLabel = nullptr;
        DecimalField* pField = nullptr;
        HintLabel* pHint = nullptr;
    };
    struct LevelRow
    {
        QLabel* pLabel = nullptr;
        QSpinBox* pField = nullptr;
        HintLabel* pHint = nullptr;
    };

    void _AddDuration(eDuration pDuration, QGridLayout* pGrid);
    void _AddLevel(eLevel pLevel, QGridLayout* pGrid);
    void _StoreDuration(eDuration pDuration, double pSeconds);
    void _StoreLevel(eLevel pLevel, int pMagnitude);
    void _RestoreDefaults();
    template <typename Row>
    static void _SetTexts(const Row& pRow, const QString& pLabel, const QString& pHelp);
    void _ShowHints();
    void _ShowDurationHint(eDuration pDuration);
    void _ShowLevelHint(eLevel pLevel);

    std::array<DurationRow, eDurationCount> m_durations;
    std::array<LevelRow, eLevelCount> m_levels;
    QPushButton* m_pDefaults;
};
