// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/DecimalField.h>
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/detail/PlainText.h>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <cmath>

namespace {

struct RowText
{
    const char* pIdentifier;
    const char* pText;
    const char* pHelp;
};

constexpr RowText kRows[] = {
    {"average-duration",
     QT_TRANSLATE_NOOP("DurationsPanel", "&Average volume over:"),
     QT_TRANSLATE_NOOP("DurationsPanel",
                       "The automatic threshold follows the volume of this span.")},
    {"bpm-duration",
     QT_TRANSLATE_NOOP("DurationsPanel", "&Tempo measured over:"),
     QT_TRANSLATE_NOOP("DurationsPanel",
                       "The beats of this span make the tempo: a long one is steady, a short one "
                       "follows quickly.")},
    {"stop-duration",
     QT_TRANSLATE_NOOP("DurationsPanel", "&Stopped after:"),
     QT_TRANSLATE_NOOP("DurationsPanel",
                       "When it has been quiet for so long, the music has stopped.")},
    {"stop-threshold",
     QT_TRANSLATE_NOOP("DurationsPanel", "&Quiet up to:"),
     QT_TRANSLATE_NOOP("DurationsPanel", "Sound up to this level counts as quiet.")},
};

bool isSeconds(const SettingsTable::Setting& pSetting)
{
    return pSetting.form == SettingsTable::eNumber;
}

}  // namespace

DurationsPanel::DurationsPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_pDefaults(new QPushButton(this))
{
    auto* pGrid = new QGridLayout(this);
    pGrid->setColumnStretch(0, 1);
    for (const RowText& text : kRows) {
        const auto* pSetting = SettingsTable::Find(QLatin1String(text.pIdentifier));
        Q_ASSERT_X(pSetting, "DurationsPanel", text.pIdentifier);
        m_rows.push_back({pSetting,
                          text.pText,
                          text.pHelp,
                          new QLabel(this),
                          new DecimalField(this),
                          new HintLabel(this)});
        const Row& row = m_rows.back();
        // The hint stands below, where it has the width of the panel.
        const int line = pGrid->rowCount();
        pGrid->addWidget(row.pLabel, line, 0);
        pGrid->addWidget(row.pField, line, 1);
        pGrid->addWidget(row.pHint, line + 1, 0, 1, 2);
    }
    for (Row& row : m_rows)
        _Fill(row);
    m_pDefaults->setObjectName(QStringLiteral("defaults"));
    connect(m_pDefaults, &QPushButton::clicked, this, &DurationsPanel::_RestoreDefaults);
    pGrid->addWidget(m_pDefaults, pGrid->rowCount(), 1);
    pGrid->setRowStretch(pGrid->rowCount(), 1);
    setTabOrder(m_rows.back().pField, m_pDefaults);
    _Retranslate();
    Refresh();
}

void DurationsPanel::_Fill(Row& pRow)
{
    const SettingsTable::Setting& setting = *pRow.pSetting;
    pRow.pLabel->setBuddy(pRow.pField);
    pRow.pField->setObjectName(QLatin1String(setting.pIdentifier));
    pRow.pField->setDecimals(isSeconds(setting) ? pRow.pField->decimals() : 0);
    pRow.pField->setRange(setting.minimum, setting.maximum);
    pRow.pField->setSingleStep(setting.step);
    connect(pRow.pField,
            QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            this,
            [this, &pRow](double pValue) { _Store(pRow, pValue); });
}

// ---- Changes ------------------------------------------------------------------------------------

void DurationsPanel::_Store(const Row& pRow, double pValue)
{
    if (!AnalyzerSettings::Store(*pRow.pSetting, pValue, m_configuration, m_pAnalyzer))
        return;
    _ShowHint(pRow);
    Q_EMIT OnConfigurationChanged();
}

void DurationsPanel::_RestoreDefaults()
{
    for (const Row& row : m_rows)
        _Store(row, row.pSetting->initial);
    Refresh();
}

// ---- What is shown ------------------------------------------------------------------------------

void DurationsPanel::Refresh()
{
    for (const Row& row : m_rows) {
        const QSignalBlocker blocker(row.pField);
        row.pField->setValue(row.pSetting->get(m_configuration));
        _ShowHint(row);
    }
}

void DurationsPanel::_Retranslate()
{
    setWindowTitle(tr("Durations"));
    for (const Row& row : m_rows) {
        const QString text = tr(row.pText);
        const QString help = tr(row.pHelp);
        row.pLabel->setText(text);
        row.pLabel->setToolTip(help);
        row.pField->setToolTip(help);
        row.pField->setAccessibleName(desktop::PlainText(text));
        row.pField->setSuffix(isSeconds(*row.pSetting) ? tr(" s", "seconds") : QString());
        _ShowHint(row);
    }
    m_pDefaults->setText(tr("Restore &defaults"));
    m_pDefaults->setToolTip(tr("All durations and levels as they were at first."));
    m_pDefaults->setAccessibleDescription(m_pDefaults->toolTip());
}

void DurationsPanel::_ShowHint(const Row& pRow)
{
    const SettingsTable::Setting& setting = *pRow.pSetting;
    const double stored = setting.get(m_configuration);
    const QLocale locale;
    const QString greatest = QString::number(setting.maximum);
    QString hint = tr("silence; 0 to %1").arg(greatest);
    if (isSeconds(setting))
        hint = tr("%1 to %2 s")
                   .arg(locale.toString(setting.minimum), locale.toString(setting.maximum));
    else if (stored > 0.0)
        hint = tr("%1 dBFS; 0 to %2")
                   .arg(locale.toString(20.0 * std::log10(stored / setting.maximum), 'f', 1),
                        greatest);
    pRow.pHint->setHint(hint);
    pRow.pField->setAccessibleDescription(hint);
}

#include "moc_DurationsPanel.cpp"
