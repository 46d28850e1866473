// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>
#include <desktop/live/SpectrumBars.h>

class Configuration;
class QwtPlot;
class SpectrumCanvas;

/// The amplitude spectrum on a logarithmic frequency axis, with the band of the selected profile.
class SpectrumPanel final : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit SpectrumPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    const SpectrumBars& getBars() const { return m_bars; }
    const SpectrumCanvas& getCanvas() const { return *m_pCanvas; }

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;

private:
    void _MakeAxes();
    void _SetFonts();
    void _ShowBand();

    Configuration& m_configuration;  ///< not owned
    QwtPlot* m_pPlot;
    SpectrumBars m_bars;
    SpectrumCanvas* m_pCanvas;
    qint64 m_lastFrame = 0;       ///< ms
    quint64 m_spectrumCount = 0;  ///< of the spectrum shown last
    quint64 m_inputCount = 0;     ///< of the input shown last
};
