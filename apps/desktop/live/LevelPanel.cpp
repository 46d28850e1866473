// SPDX-License-Identifier: MIT
#include "LevelPanel.h"

#include <AudioAnalyzer/config/Configuration.h>

#include "../detail/Decibels.h"
#include "LevelMeter.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <qwt_slider.h>

namespace {

constexpr qint64 kNumbersMs = 200;  ///< faster ones cannot be read

}  // namespace

LevelPanel::LevelPanel(Configuration& pConfiguration, QWidget* pParent)
    : LivePanel(pParent), m_configuration(pConfiguration),
      m_pSlider(new QwtSlider(Qt::Horizontal, this)), m_pMeter(new LevelMeter(*m_pSlider, this)),
      m_pAutomatic(new QCheckBox(this)), m_pNumbers(new QLabel(this)),
      m_pColors(&getColors(eLightLook))
{
    _MakeSlider();
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(m_pAutomatic);
    pRow->addStretch(1);
    pRow->addWidget(m_pNumbers);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(4);
    pLayout->addWidget(m_pMeter);
    pLayout->addWidget(m_pSlider);
    pLayout->addLayout(pRow);
    m_pNumbers->setTextFormat(Qt::RichText);
    m_pAutomatic->setChecked(m_configuration.getThreshold() < 0);
    m_pSlider->setEnabled(!m_pAutomatic->isChecked());
    connect(m_pAutomatic, &QCheckBox::toggled, this, &LevelPanel::_OnAutomatic);
    connect(m_pSlider, &QwtSlider::valueChanged, this, &LevelPanel::_OnSlider);
    Retranslate();
}

void LevelPanel::_MakeSlider()
{
    m_pSlider->setScalePosition(QwtSlider::LeadingScale);
    m_pSlider->setGroove(true);
    m_pSlider->setTrough(false);
    m_pSlider->setScale(detail::kLeastDecibels, 0.0);
    m_pSlider->setScaleStepSize(10.0);
    m_pSlider->setScaleMaxMinor(0);
    m_pSlider->setTotalSteps(600);
    m_pSlider->setSingleSteps(5);
    m_pSlider->setPageSteps(60);
    m_pSlider->setFocusPolicy(Qt::StrongFocus);
    const int side = fontMetrics().height();
    m_pSlider->setHandleSize({side, side});
}

void LevelPanel::Retranslate()
{
    m_pAutomatic->setText(tr("&Automatic threshold"));
    m_pAutomatic->setToolTip(tr("The threshold follows the average volume and the sensibility of "
                                "the profile."));
    m_pSlider->setAccessibleName(tr("Threshold in dB below full scale"));
    m_pSlider->setToolTip(tr("A block is a pulse when a quarter of its samples reach the "
                             "threshold."));
    m_pMeter->setAccessibleName(tr("Volume meter"));
}

void LevelPanel::setColors(const LookColors& pColors)
{
    m_pColors = &pColors;
    m_pMeter->setColors(pColors);
    m_lastNumbers = 0;
}

void LevelPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    m_pMeter->setLevels({detail::ToDecibels(pValues.current),
                         detail::ToDecibels(pValues.average),
                         detail::ToDecibels(pValues.maximal),
                         detail::ToDecibels(pValues.threshold)});
    if (pNow - m_lastNumbers < kNumbersMs)
        return;
    m_lastNumbers = pNow;
    _ShowNumbers(pValues);
    _ShowThreshold(pValues.threshold);
}

void LevelPanel::_ShowNumbers(const LiveValues& pValues)
{
    const QString gap = QStringLiteral("&nbsp;&nbsp;&nbsp;");
    const QString text = _Describe(m_pColors->spectrum, tr("Current"), pValues.current) + gap +
                         _Describe(m_pColors->beat, tr("Average"), pValues.average) + gap +
                         _Describe(m_pColors->peak, tr("Maximum"), pValues.maximal) + gap +
                         _Describe(m_pColors->threshold, tr("Threshold"), pValues.threshold) +
                         QStringLiteral("&nbsp; dBFS");
    if (text != m_pNumbers->text())
        m_pNumbers->setText(text);
}

QString LevelPanel::_Describe(const QColor& pColor, const QString& pName, int pMagnitude) const
{
    const QString value = pMagnitude > 0 ? locale().toString(detail::ToDecibels(pMagnitude), 'f', 0)
                                         : QStringLiteral("\u2013");
    return QStringLiteral("<span style='color:%1'>\u25a0</span>&nbsp;%2&nbsp;%3")
        .arg(pColor.name(), pName, value);
}

/// A threshold may also be set elsewhere.
void LevelPanel::_ShowThreshold(int pThreshold)
{
    const bool isAutomatic = m_configuration.getThreshold() < 0;
    const QSignalBlocker noToggle(m_pAutomatic);
    const QSignalBlocker noValue(m_pSlider);
    m_pAutomatic->setChecked(isAutomatic);
    m_pSlider->setEnabled(!isAutomatic);
    const double shown =
        detail::ToDecibels(isAutomatic ? pThreshold : m_configuration.getThreshold());
    if (std::abs(m_pSlider->value() - shown) >= 0.1)
        m_pSlider->setValue(shown);
}

void LevelPanel::_OnAutomatic(bool pIsAutomatic)
{
    m_pSlider->setEnabled(!pIsAutomatic);
    m_configuration.setThreshold(pIsAutomatic ? qint16(-1)
                                              : detail::ToMagnitude(m_pSlider->value()));
    Q_EMIT OnConfigurationChanged();
}

void LevelPanel::_OnSlider(double pDecibels)
{
    if (m_pAutomatic->isChecked())
        return;
    m_configuration.setThreshold(detail::ToMagnitude(pDecibels));
    Q_EMIT OnConfigurationChanged();
}

#include "moc_LevelPanel.cpp"
