// SPDX-License-Identifier: MIT
#pragma once

#include "LivePanel.h"
#include "SpectrumBars.h"

class Configuration;
class QwtPlot;
class QwtPlotGrid;
class QwtPlotZoneItem;
class SpectrumCanvas;

/// The amplitude spectrum on a logarithmic frequency axis, with the band of the selected profile.
class SpectrumPanel : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit SpectrumPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    const SpectrumBars& getBars() const { return m_bars; }
    const QwtPlotZoneItem& getBand() const { return *m_pBand; }

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;

private:
    void _MakeAxes();
    void _SetFonts();
    bool _ShowBand();

    Configuration& m_configuration;  ///< not owned
    QwtPlot* m_pPlot;
    QwtPlotGrid* m_pGrid;  ///< owned by the plot, as are the next
    QwtPlotZoneItem* m_pBand;
    SpectrumBars m_bars;
    SpectrumCanvas* m_pCanvas;
    qint64 m_lastFrame = 0;       ///< ms
    quint64 m_spectrumCount = 0;  ///< of the spectrum shown last
    int m_low = 0;                ///< Hz, of the band shown
    int m_high = 0;
};
