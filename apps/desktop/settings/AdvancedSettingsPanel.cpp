// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AnalyzerSettings.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/Translations.h>
#include <desktop/settings/detail/PlainText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

using P = AdvancedSettingsPanel;

struct Flag
{
    const char* pIdentifier;  ///< of the setting and of the field
    void (*tell)(AdvancedSettingsPanel&, bool);
};

template <void (AdvancedSettingsPanel::*kSignal)(bool)>
void Tell(AdvancedSettingsPanel& pPanel, bool pIsOn)
{
    Q_EMIT(pPanel.*kSignal)(pIsOn);
}

// In the order of the panel's enumeration.
constexpr Flag kFlags[] = {
    {"virtual-when-stopped", &Tell<&P::OnVirtualBeatsWhenStoppedChanged>},
    {"display-stopped", &Tell<&P::OnDisplayStoppedChanged>},
    {"display-speakers", &Tell<&P::OnDisplaySpeakersChanged>},
    {"gray-mode", &Tell<&P::OnGrayModeChanged>},
    {"top-most", &Tell<&P::OnTopMostChanged>},
};

const SettingsTable::Setting& SettingOf(const Flag& pFlag)
{
    const auto* pSetting = SettingsTable::Find(QLatin1String(pFlag.pIdentifier));
    Q_ASSERT_X(pSetting, "AdvancedSettingsPanel", pFlag.pIdentifier);
    return *pSetting;
}

}  // namespace

AdvancedSettingsPanel::AdvancedSettingsPanel(Configuration& pConfiguration, QWidget* pParent)
    : SettingsPanel(pConfiguration, pParent), m_flags(), m_pLanguageLabel(new QLabel(this)),
      m_pLanguage(new QComboBox(this))
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setSpacing(fontMetrics().height() / 8);
    for (int i = 0; i < eFlagCount; ++i) {
        auto* pBox = new QCheckBox(this);
        pBox->setObjectName(QLatin1String(kFlags[i].pIdentifier));
        connect(pBox, &QCheckBox::toggled, this, [this, i](bool pIsOn) {
            _StoreFlag(eFlag(i), pIsOn);
        });
        pLayout->addWidget(pBox);
        m_flags[std::size_t(i)] = pBox;
    }
    auto* pLine = new QHBoxLayout;
    m_pLanguage->setObjectName(QStringLiteral("language"));
    m_pLanguageLabel->setBuddy(m_pLanguage);
    connect(
        m_pLanguage, QOverload<int>::of(&QComboBox::activated), this, [this] { _StoreLanguage(); });
    pLine->addWidget(m_pLanguageLabel);
    pLine->addWidget(m_pLanguage, 1);
    pLayout->addLayout(pLine);
    pLayout->addStretch();
    _Retranslate();
    Refresh();
}

bool AdvancedSettingsPanel::isStoppedDisplayed(const Configuration& pConfiguration)
{
    return SettingOf(kFlags[eStopped]).get(pConfiguration) != 0.0;
}

void AdvancedSettingsPanel::_StoreFlag(eFlag pFlag, bool pIsOn)
{
    const Flag& flag = kFlags[pFlag];
    if (!AnalyzerSettings::Store(SettingOf(flag), pIsOn ? 1.0 : 0.0, m_configuration, m_pAnalyzer))
        return;
    flag.tell(*this, pIsOn);
    Q_EMIT OnConfigurationChanged();
}

void AdvancedSettingsPanel::_StoreLanguage()
{
    const QString code = m_pLanguage->currentData().toString();
    if (!m_configuration.setLanguage(code))
        return;
    Q_EMIT OnLanguageChanged(code);
    Q_EMIT OnConfigurationChanged();
}

void AdvancedSettingsPanel::Refresh()
{
    for (int i = 0; i < eFlagCount; ++i) {
        const QSignalBlocker blocker(m_flags[std::size_t(i)]);
        m_flags[std::size_t(i)]->setChecked(SettingOf(kFlags[i]).get(m_configuration) != 0.0);
    }
    _ShowLanguages();
}

void AdvancedSettingsPanel::_Retranslate()
{
    setWindowTitle(tr("Advanced settings"));
    const auto set = [this](eFlag pFlag, const QString& pText, const QString& pHelp) {
        m_flags[pFlag]->setText(pText);
        m_flags[pFlag]->setToolTip(pHelp);
        m_flags[pFlag]->setAccessibleDescription(pHelp);
    };
    set(eVirtualBeats,
        tr("Go o&n with virtual beats while stopped"),
        tr("Beats go on at the last tempo while the music is stopped."));
    set(eStopped,
        tr("Show when the music is sto&pped"),
        tr("The window says so as soon as the music stops."));
    set(eSpeakers, tr("Show the &speakers"), tr("Two speakers pump with the beat."));
    set(eGrayMode, tr("Gra&y mode"), tr("A quiet, dark look for dark places."));
    set(eTopMost, tr("Always on &top"), tr("The window stays above all others."));
    m_pLanguageLabel->setText(tr("Lan&guage:"));
    m_pLanguage->setAccessibleName(desktop::PlainText(m_pLanguageLabel->text()));
    _ShowLanguages();
}

void AdvancedSettingsPanel::_ShowLanguages()
{
    const QSignalBlocker blocker(m_pLanguage);
    m_pLanguage->clear();
    m_pLanguage->addItem(tr("Language of the system"), QString());
    for (const Translations::Language& language : Translations::getLanguages())
        m_pLanguage->addItem(language.name, language.code);
    const QString stored = m_configuration.getLanguage();
    const QString code = stored.isEmpty() ? stored : Translations::Match(stored);
    m_pLanguage->setCurrentIndex(m_pLanguage->findData(code));
}

#include "moc_AdvancedSettingsPanel.cpp"
