// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/live/LevelMeter.h>
#include <desktop/live/LevelPanel.h>
#include <desktop/live/Readout.h>
#include <desktop/live/detail/Decibels.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QVBoxLayout>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 kNumbersMs = 200;  ///< faster ones cannot be read
constexpr int kTenths = 10;         ///< steps of the slider per dB

int ToTenths(int pMagnitude)
{
    return int(std::lround(desktop::ToDecibels(pMagnitude) * kTenths));
}

}  // namespace

LevelPanel::LevelPanel(Configuration& pConfiguration, QWidget* pParent)
    : LivePanel(pParent), m_configuration(pConfiguration),
      m_pSlider(new QSlider(Qt::Horizontal, this)),
      m_pScale(new QwtScaleWidget(QwtScaleDraw::BottomScale, this)),
      m_pInputTitle(new QLabel(this)), m_pInputMeter(new LevelMeter(this)),
      m_pBandTitle(new QLabel(this)), m_pMeter(new LevelMeter(this)),
      m_pAutomatic(new QCheckBox(this)), m_pUnit(new QLabel(this)), m_pClipped(new QLabel(this)),
      m_pSliderRow(new QHBoxLayout)
{
    _MakeSlider();
    auto* pGrid = new QGridLayout;
    pGrid->setSpacing(fontMetrics().height() / 4);
    pGrid->addWidget(m_pInputTitle, 0, 0);
    pGrid->addWidget(m_pInputMeter, 0, 1);
    pGrid->addWidget(m_pBandTitle, 1, 0);
    pGrid->addWidget(m_pMeter, 1, 1);
    pGrid->addWidget(m_pScale, 2, 1);
    pGrid->addLayout(m_pSliderRow, 3, 1);
    pGrid->setColumnStretch(1, 1);
    m_pSliderRow->addWidget(m_pSlider);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(fontMetrics().height() / 4);
    pLayout->addLayout(pGrid);
    pLayout->addLayout(_MakeReadouts());
    m_pAutomatic->setChecked(m_configuration.getThreshold() < 0);
    _ShowThreshold(0);
    connect(m_pAutomatic, &QCheckBox::toggled, this, &LevelPanel::_OnAutomatic);
    connect(m_pSlider, &QSlider::valueChanged, this, &LevelPanel::_OnSlider);
    _Align();
    Retranslate();
}

void LevelPanel::_MakeSlider()
{
    const double least = desktop::kLeastDecibels;
    m_pSlider->setRange(int(least) * kTenths, 0);
    m_pSlider->setSingleStep(kTenths / 2);
    m_pSlider->setPageStep(6 * kTenths);
    m_pScale->setScaleDiv(QwtLinearScaleEngine().divideScale(least, 0.0, 6, 0, 10.0));
    m_pScale->scaleDraw()->enableComponent(QwtAbstractScaleDraw::Backbone, false);
    m_pScale->scaleDraw()->setTickLength(QwtScaleDiv::MajorTick, fontMetrics().height() / 3.0);
    m_pScale->setMargin(0);
}

QLayout* LevelPanel::_MakeReadouts()
{
    auto* pRow = new QHBoxLayout;
    pRow->setSpacing(fontMetrics().height());
    pRow->addWidget(m_pAutomatic);
    pRow->addStretch(1);
    pRow->addWidget(m_pClipped);
    // Nothing moves when it is said.
    QSizePolicy kept = m_pClipped->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_pClipped->setSizePolicy(kept);
    m_pClipped->hide();
    for (Readout*& pReadout : m_readouts) {
        pReadout = new Readout(this);
        pRow->addWidget(pReadout);
    }
    pRow->addWidget(m_pUnit);
    return pRow;
}

/// The bar, the scale and the middle of the slider's handle agree on where a level is.
void LevelPanel::_Align()
{
    QStyleOptionSlider option;
    option.initFrom(m_pSlider);
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, m_pSlider) / 2;
    int left = 0;
    int right = 0;
    m_pScale->getBorderDistHint(left, right);
    const int inset = std::max({left, right, handle});
    m_pScale->setMinBorderDist(inset, inset);
    m_pScale->setBorderDist(inset, inset);
    m_pMeter->setInset(inset);
    m_pInputMeter->setInset(inset);
    m_pSliderRow->setContentsMargins(inset - handle, 0, inset - handle, 0);
}

void LevelPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        _Align();
    LivePanel::changeEvent(pEvent);
}

void LevelPanel::Retranslate()
{
    m_pAutomatic->setText(tr("&Automatic threshold"));
    m_pAutomatic->setToolTip(tr("The threshold follows the average volume and the sensibility of "
                                "the profile."));
    m_pSlider->setAccessibleName(tr("Threshold in dB below full scale"));
    m_pSlider->setToolTip(tr("A block is a pulse when a quarter of its samples reach the "
                             "threshold."));
    m_pInputTitle->setText(tr("Input"));
    m_pInputMeter->setAccessibleName(tr("Level of the input"));
    m_pInputMeter->setToolTip(tr("The loudest samples as they come from the input."));
    m_pBandTitle->setText(tr("Band"));
    m_pMeter->setAccessibleName(tr("Volume of the band"));
    m_pMeter->setToolTip(
        tr("What is left of the input in the band of the profile, in which pulses are looked "
           "for."));
    m_pClipped->setText(tr("Clipped"));
    m_readouts[eInput]->setName(tr("Input"));
    m_readouts[eCurrent]->setName(tr("Current"));
    m_readouts[eAverage]->setName(tr("Average"));
    m_readouts[eMaximal]->setName(tr("Maximum"));
    m_readouts[eThreshold]->setName(tr("Threshold"));
    m_pUnit->setText(tr("dBFS"));
}

void LevelPanel::setColors(const LookColors& pColors)
{
    m_pMeter->setColors(pColors);
    m_pInputMeter->setColors(pColors);
    QPalette warning;
    warning.setColor(QPalette::WindowText, pColors.warning);
    m_pClipped->setPalette(warning);
    m_readouts[eInput]->setColor(pColors.spectrum);
    m_readouts[eCurrent]->setColor(pColors.spectrum);
    m_readouts[eAverage]->setColor(pColors.average);
    m_readouts[eMaximal]->setColor(pColors.peak);
    m_readouts[eThreshold]->setColor(pColors.threshold);
}

void LevelPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    if (pNow - m_lastFrame < kFrameMs)
        return;
    m_lastFrame = pNow;
    _ShowInput(pValues, pNow);
    m_pMeter->setLevels({desktop::ToDecibels(pValues.current),
                         desktop::ToDecibels(pValues.average),
                         desktop::ToDecibels(pValues.maximal),
                         desktop::ToDecibels(pValues.threshold)});
    if (pNow - m_lastNumbers < kNumbersMs)
        return;
    m_lastNumbers = pNow;
    const double peak = m_input.getPeak();
    _ShowNumber(eInput, peak > desktop::kLeastDecibels ? desktop::ToMagnitude(peak) : 0);
    _ShowNumber(eCurrent, pValues.current);
    _ShowNumber(eAverage, pValues.average);
    _ShowNumber(eMaximal, pValues.maximal);
    _ShowNumber(eThreshold, pValues.threshold);
    _ShowThreshold(pValues.threshold);
}

void LevelPanel::_ShowInput(const LiveValues& pValues, qint64 pNow)
{
    if (pValues.inputCount != m_inputCount)
        m_input.Clear();
    m_inputCount = pValues.inputCount;
    m_input.Add(desktop::ToDecibels(pValues.input), pNow);
    const bool isClipped = pNow - pValues.clipTime < kClipMs;
    m_pInputMeter->setLevels({m_input.getLevel(),
                              desktop::kLeastDecibels,
                              m_input.getPeak(),
                              desktop::kLeastDecibels,
                              isClipped});
    if (m_pClipped->isHidden() == isClipped)
        m_pClipped->setVisible(isClipped);
}

void LevelPanel::_ShowNumber(eReadout pReadout, int pMagnitude)
{
    const int decibels = int(std::lround(desktop::ToDecibels(pMagnitude)));
    m_readouts[pReadout]->setValue(pMagnitude > 0 ? QLocale().toString(decibels)
                                                  : QStringLiteral("–"));
}

/// A threshold may also be set elsewhere.
void LevelPanel::_ShowThreshold(int pThreshold)
{
    const int fixed = m_configuration.getThreshold();
    const QSignalBlocker noToggle(m_pAutomatic);
    const QSignalBlocker noValue(m_pSlider);
    m_pAutomatic->setChecked(fixed < 0);
    m_pSlider->setEnabled(fixed >= 0);
    m_pSlider->setValue(ToTenths(fixed < 0 ? pThreshold : fixed));
}

void LevelPanel::_OnAutomatic(bool pIsAutomatic)
{
    m_pSlider->setEnabled(!pIsAutomatic);
    m_configuration.setThreshold(
        pIsAutomatic ? qint16(-1) : desktop::ToMagnitude(double(m_pSlider->value()) / kTenths));
    Q_EMIT OnConfigurationChanged();
}

void LevelPanel::_OnSlider(int pTenths)
{
    m_configuration.setThreshold(desktop::ToMagnitude(double(pTenths) / kTenths));
    Q_EMIT OnConfigurationChanged();
}

#include "moc_LevelPanel.cpp"
