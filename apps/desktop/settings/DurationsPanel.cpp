// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/settings/DecimalField.h>
#include <desktop/settings/DurationsPanel.h>
#include <desktop/settings/HintLabel.h>
#include <desktop/settings/detail/PlainText.h>
#include <desktop/settings/detail/SettingLimits.h>
#include <shared/settings/AnalysisOptions.h>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

#include <cmath>

namespace {

using C = Configuration;
using A = AudioAnalyzer;

struct DurationSetting
{
    const char* pName;  ///< of the field
    desktop::DurationLimits limits;
    double (*get)(const Configuration&);
    bool (*set)(Configuration&, double);    ///< whether it changed
    void (*apply)(AudioAnalyzer&, double);  ///< null where the analysis reads the configuration
};

struct LevelSetting
{
    const char* pName;  ///< of the field
    short (*get)(const Configuration&);
    bool (*set)(Configuration&, short);  ///< whether it changed
};

template <auto kGetter>
auto Get(const Configuration& pConfiguration)
{
    return (pConfiguration.*kGetter)();
}

template <auto kSetter, typename Value>
bool Set(Configuration& pConfiguration, Value pValue)
{
    return (pConfiguration.*kSetter)(pValue);
}

template <auto kSetter>
void Apply(AudioAnalyzer& pAnalyzer, double pSeconds)
{
    (pAnalyzer.*kSetter)(pSeconds);
}

// In the order of the panel's enumerations.
constexpr DurationSetting kDurations[] = {
    {"averageVolume",
     desktop::kAverageVolumeLimits,
     &Get<&C::getAverageVolumeCalculationDuration>,
     &Set<&C::setAverageVolumeCalculationDuration>,
     &Apply<&A::setAverageVolumeCalculationDuration>},
    {"bpm",
     desktop::kBPMLimits,
     &Get<&C::getBPMCalculationDuration>,
     &Set<&C::setBPMCalculationDuration>,
     nullptr},
    {"stop",
     desktop::kStopDetectionLimits,
     &Get<&C::getStopDetectionDuration>,
     &Set<&C::setStopDetectionDuration>,
     &Apply<&A::setStopDetectionDuration>},
    {"normalization",
     desktop::kNormalizationLimits,
     &Get<&C::getNormalizationDuration>,
     &Set<&C::setNormalizationDuration>,
     nullptr},
};

constexpr LevelSetting kLevels[] = {
    {"stopLevel", &Get<&C::getStopDetectionThreshold>, &Set<&C::setStopDetectionThreshold>},
    {"normalizationLevel",
     &Get<&C::getNormalizationThreshold>,
     &Set<&C::setNormalizationThreshold>},
};

bool IsWithin(double pSeconds, const desktop::DurationLimits& pLimits)
{
    return pSeconds >= pLimits.minimum && pSeconds <= pLimits.maximum;
}

/// The hint stands below, where it has the width of the panel.
void AddRow(QGridLayout* pGrid, QLabel* pLabel, QWidget* pField, HintLabel* pHint)
{
    const int line = pGrid->rowCount();
    pGrid->addWidget(pLabel, line, 0);
    pGrid->addWidget(pField, line, 1);
    pGrid->addWidget(pHint, line + 1, 0, 1, 2);
}

}  // namespace

DurationsPanel::DurationsPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_pDefaults(new QPushButton(this))
{
    auto* pGrid = new QGridLayout(this);
    pGrid->setColumnStretch(0, 1);
    _AddDuration(eAverageVolume, pGrid);
    _AddDuration(eBPM, pGrid);
    _AddDuration(eStop, pGrid);
    _AddLevel(eStopLevel, pGrid);
    _AddDuration(eNormalization, pGrid);
    _AddLevel(eNormalizationLevel, pGrid);
    m_pDefaults->setObjectName(QStringLiteral("defaults"));
    connect(m_pDefaults, &QPushButton::clicked, this, &DurationsPanel::_RestoreDefaults);
    pGrid->addWidget(m_pDefaults, pGrid->rowCount(), 1);
    pGrid->setRowStretch(pGrid->rowCount(), 1);
    setTabOrder(m_levels[eNormalizationLevel].pField, m_pDefaults);
    _Retranslate();
    Refresh();
}

void DurationsPanel::_AddDuration(eDuration pDuration, QGridLayout* pGrid)
{
    const DurationSetting& setting = kDurations[pDuration];
    DurationRow& row = m_durations[pDuration];
    row = {new QLabel(this), new DecimalField(this), new HintLabel(this)};
    row.pLabel->setBuddy(row.pField);
    row.pField->setObjectName(QLatin1String(setting.pName));
    row.pField->setRange(setting.limits.minimum, setting.limits.maximum);
    row.pField->setSingleStep(setting.limits.step);
    connect(row.pField,
            QOverload<double>::of(&QDoubleSpinBox::valueChanged),
            this,
            [this, pDuration](double pSeconds) { _StoreDuration(pDuration, pSeconds); });
    AddRow(pGrid, row.pLabel, row.pField, row.pHint);
}

void DurationsPanel::_AddLevel(eLevel pLevel, QGridLayout* pGrid)
{
    LevelRow& row = m_levels[pLevel];
    row = {new QLabel(this), new QSpinBox(this), new HintLabel(this)};
    row.pLabel->setBuddy(row.pField);
    row.pField->setObjectName(QLatin1String(kLevels[pLevel].pName));
    row.pField->setKeyboardTracking(false);
    row.pField->setAlignment(Qt::AlignRight);
    row.pField->setRange(0, desktop::kMaximalLevel);
    row.pField->setSingleStep(100);
    connect(row.pField,
            QOverload<int>::of(&QSpinBox::valueChanged),
            this,
            [this, pLevel](int pMagnitude) { _StoreLevel(pLevel, pMagnitude); });
    AddRow(pGrid, row.pLabel, row.pField, row.pHint);
}

// ---- Changes ------------------------------------------------------------------------------------

void DurationsPanel::_StoreDuration(eDuration pDuration, double pSeconds)
{
    const DurationSetting& setting = kDurations[pDuration];
    if (!setting.set(m_configuration, pSeconds))
        return;
    // The analyzer reads the stop duration from the configuration: that comes first.
    if (m_pAnalyzer && setting.apply)
        setting.apply(*m_pAnalyzer, pSeconds);
    _ShowDurationHint(pDuration);
    Q_EMIT OnConfigurationChanged();
}

void DurationsPanel::_StoreLevel(eLevel pLevel, int pMagnitude)
{
    const LevelSetting& setting = kLevels[pLevel];
    if (!setting.set(m_configuration, static_cast<short>(pMagnitude)))
        return;
    _ShowLevelHint(pLevel);
    Q_EMIT OnConfigurationChanged();
}

void DurationsPanel::_RestoreDefaults()
{
    const Configuration defaults;
    for (int i = 0; i < eDurationCount; ++i)
        _StoreDuration(eDuration(i),
                       i == eStop ? AnalysisOptions::kStopDuration : kDurations[i].get(defaults));
    for (int i = 0; i < eLevelCount; ++i)
        _StoreLevel(eLevel(i), kLevels[i].get(defaults));
    Refresh();
}

// ---- What is shown ------------------------------------------------------------------------------

void DurationsPanel::Refresh()
{
    for (int i = 0; i < eDurationCount; ++i) {
        const QSignalBlocker blocker(m_durations[i].pField);
        m_durations[i].pField->setValue(kDurations[i].get(m_configuration));
    }
    for (int i = 0; i < eLevelCount; ++i) {
        const QSignalBlocker blocker(m_levels[i].pField);
        m_levels[i].pField->setValue(kLevels[i].get(m_configuration));
    }
    _ShowHints();
}

void DurationsPanel::_Retranslate()
{
    setWindowTitle(tr("Durations"));
    _SetTexts(m_durations[eAverageVolume],
              tr("&Average volume over:"),
              tr("The automatic threshold follows the volume of this span."));
    _SetTexts(m_durations[eBPM],
              tr("&Tempo measured over:"),
              tr("The beats of this span make the tempo: a long one is steady, a short one follows "
                 "quickly."));
    _SetTexts(m_durations[eStop],
              tr("&Stopped after:"),
              tr("When it has been quiet for so long, the music has stopped."));
    _SetTexts(
        m_levels[eStopLevel], tr("&Quiet up to:"), tr("Sound up to this level counts as quiet."));
    _SetTexts(m_durations[eNormalization],
              tr("&Normalization over:"),
              tr("The span of time for the normalization of the volume."));
    _SetTexts(m_levels[eNormalizationLevel],
              tr("Normalization &level:"),
              tr("The level for the normalization of the volume."));
    for (const DurationRow& row : m_durations)
        row.pField->setSuffix(tr(" s", "seconds"));
    m_pDefaults->setText(tr("Restore &defaults"));
    m_pDefaults->setToolTip(tr("All durations and levels as they were at first."));
    m_pDefaults->setAccessibleDescription(m_pDefaults->toolTip());
    _ShowHints();
}

template <typename Row>
void DurationsPanel::_SetTexts(const Row& pRow, const QString& pLabel, const QString& pHelp)
{
    pRow.pLabel->setText(pLabel);
    pRow.pLabel->setToolTip(pHelp);
    pRow.pField->setToolTip(pHelp);
    pRow.pField->setAccessibleName(desktop::PlainText(pLabel));
}

void DurationsPanel::_ShowHints()
{
    for (int i = 0; i < eDurationCount; ++i)
        _ShowDurationHint(eDuration(i));
    for (int i = 0; i < eLevelCount; ++i)
        _ShowLevelHint(eLevel(i));
}

void DurationsPanel::_ShowDurationHint(eDuration pDuration)
{
    const DurationSetting& setting = kDurations[pDuration];
    const DurationRow& row = m_durations[pDuration];
    const double stored = setting.get(m_configuration);
    const QLocale locale;
    QString hint =
        tr("%1 to %2 s")
            .arg(locale.toString(setting.limits.minimum), locale.toString(setting.limits.maximum));
    if (pDuration == eStop)
        hint = tr("%1 to %2 s of quiet")
                   .arg(locale.toString(setting.limits.minimum),
                        locale.toString(setting.limits.maximum));
    if (IsWithin(stored, setting.limits))
        row.pHint->setHint(hint);
    else
        row.pHint->setRefusal(tr("%1 s is stored, outside %2 to %3 s; it stays until you change it")
                                  .arg(locale.toString(stored),
                                       locale.toString(setting.limits.minimum),
                                       locale.toString(setting.limits.maximum)));
    row.pField->setAccessibleDescription(row.pHint->text());
}

void DurationsPanel::_ShowLevelHint(eLevel pLevel)
{
    const LevelRow& row = m_levels[pLevel];
    const int stored = kLevels[pLevel].get(m_configuration);
    if (stored < 0)
        row.pHint->setRefusal(
            tr("%1 is stored, below 0; it stays until you change it").arg(QString::number(stored)));
    else if (stored == 0)
        row.pHint->setHint(tr("silence; 0 to %1").arg(QString::number(desktop::kMaximalLevel)));
    else
        row.pHint->setHint(tr("%1 dBFS; 0 to %2")
                               .arg(QLocale().toString(desktop::ToDecibels(stored), 'f', 1),
                                    QString::number(desktop::kMaximalLevel)));
    row.pField->setAccessibleDescription(row.pHint->text());
}

#include "moc_DurationsPanel.cpp"
