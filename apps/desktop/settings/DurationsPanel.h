// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/SettingsTable.h>

#include <desktop/settings/SettingsPanel.h>

#include <vector>

class DecimalField;
class HintLabel;
class QGridLayout;
class QLabel;
class QPushButton;

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
    struct Row
    {
        const SettingsTable::Setting* pSetting;
        const char* pText;  ///< of the label, untranslated
        const char* pHelp;  ///< untranslated
        QLabel* pLabel;
        DecimalField* pField;  ///< has the identifier as its name
        HintLabel* pHint;
    };

    void _Fill(Row& pRow);
    void _Store(const Row& pRow, double pValue);
    void _RestoreDefaults();
    void _ShowHint(const Row& pRow);

    std::vector<Row> m_rows;
    QPushButton* m_pDefaults;
};
