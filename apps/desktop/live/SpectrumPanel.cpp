// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/live/SpectrumCanvas.h>
#include <desktop/live/SpectrumPanel.h>

#include <QVBoxLayout>
#include <qwt_plot.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

namespace {

constexpr double kFontScale = 0.85;

class FrequencyDraw : public QwtScaleDraw
{
public:
    QwtText label(double pHertz) const override
    {
        return pHertz >= 1000.0 ? QStringLiteral("%1k").arg(pHertz / 1000.0)
                                : QString::number(pHertz);
    }
};

QwtScaleDiv FrequencyTicks()
{
    const QList<double> major = {50, 100, 200, 500, 1000, 2000, 5000, 10000};
    const QList<double> minor = {
        30, 40, 60, 70, 80, 90, 300, 400, 600, 700, 800, 900, 3000, 4000, 6000, 7000, 8000, 9000};
    return QwtScaleDiv(SpectrumBars::kLow, SpectrumBars::kHigh, minor, {}, major);
}

}  // namespace

SpectrumPanel::SpectrumPanel(Configuration& pConfiguration, QWidget* pParent)
    : LivePanel(pParent), m_configuration(pConfiguration), m_pPlot(new QwtPlot(this)),
      m_pCanvas(new SpectrumCanvas(m_pPlot, m_bars))
{
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pPlot);
    m_pPlot->setCanvas(m_pCanvas);
    m_pPlot->setAutoReplot(false);
    _MakeAxes();
    _SetFonts();
    _ShowBand();
    Retranslate();
}

void SpectrumPanel::_MakeAxes()
{
    m_pPlot->setAxisScaleEngine(QwtPlot::xBottom, new QwtLogScaleEngine);
    m_pPlot->setAxisScaleDraw(QwtPlot::xBottom, new FrequencyDraw);
    m_pPlot->setAxisScaleDiv(QwtPlot::xBottom, FrequencyTicks());
    m_pPlot->setAxisScale(QwtPlot::yLeft, SpectrumBars::kLeast, 0.0, 20.0);
    m_pPlot->setAxisMaxMinor(QwtPlot::yLeft, 0);
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        m_pPlot->axisWidget(axis)->setMargin(0);
        m_pPlot->axisScaleDraw(axis)->enableComponent(QwtAbstractScaleDraw::Backbone, false);
    }
    m_pPlot->setMinimumHeight(11 * fontMetrics().height());
}

void SpectrumPanel::_SetFonts()
{
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kFontScale);
    for (const int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        m_pPlot->setAxisFont(axis, small);
        QwtText title = m_pPlot->axisTitle(axis);
        title.setFont(small);
        m_pPlot->setAxisTitle(axis, title);
    }
}

void SpectrumPanel::changeEvent(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::FontChange)
        _SetFonts();
    LivePanel::changeEvent(pEvent);
}

void SpectrumPanel::Retranslate()
{
    QwtText unit = m_pPlot->axisTitle(QwtPlot::xBottom);
    unit.setText(tr("Hz"));
    m_pPlot->setAxisTitle(QwtPlot::xBottom, unit);
    unit.setText(tr("dB"));
    m_pPlot->setAxisTitle(QwtPlot::yLeft, unit);
    m_pPlot->setAccessibleName(tr("Amplitude spectrum"));
    setToolTip(tr("The loudest bin so far is 0 dB. Shaded: the band of the selected profile, in "
                  "which pulses are looked for."));
    _SetFonts();
}

void SpectrumPanel::setColors(const LookColors& pColors)
{
    m_pCanvas->setColors(pColors);
}

void SpectrumPanel::Refresh(const LiveValues& pValues, qint64 pNow)
{
    if (pNow - m_lastFrame < kFrameMs)
        return;
    m_lastFrame = pNow;
    if (pValues.inputCount != m_inputCount)
        m_bars.Clear();
    m_inputCount = pValues.inputCount;
    m_bars.Fall(pNow);
    if (pValues.spectrumCount != m_spectrumCount) {
        m_spectrumCount = pValues.spectrumCount;
        m_bars.Add(pValues.amplitudes, pValues.sampleRate, pNow);
    }
    m_pCanvas->Repaint(m_bars.TakeMoved());
    _ShowBand();
}

void SpectrumPanel::_ShowBand()
{
    const Profile profile = m_configuration.getSelectedProfile();
    m_pCanvas->setBand(profile.getFilterLowFrequency(), profile.getFilterHighFrequency());
}

#include "moc_SpectrumPanel.cpp"
