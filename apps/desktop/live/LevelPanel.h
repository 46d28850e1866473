// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>
#include <desktop/live/detail/PeakBallistics.h>

#include <array>

class Configuration;
class LevelMeter;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QSlider;
class QwtScaleWidget;
class Readout;

/// The level of the input as it comes, and the volumes of the band in which pulses are looked for
/// against the threshold, which is automatic or set by a slider.
class LevelPanel final : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit LevelPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    static constexpr qint64 kClipMs = 3000;  ///< how long a clipped input is marked

    const LevelMeter& getMeter() const { return *m_pMeter; }
    const LevelMeter& getInputMeter() const { return *m_pInputMeter; }
    QSlider& getSlider() { return *m_pSlider; }
    QCheckBox& getAutomatic() { return *m_pAutomatic; }

Q_SIGNALS:
    /// The threshold has been set.
    void OnConfigurationChanged();

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;

private:
    enum eReadout
    {
        eInput,
        eCurrent,
        eAverage,
        eMaximal,
        eThreshold,
        eReadoutCount
    };

    void _MakeSlider();
    QLayout* _MakeReadouts();
    void _Align();
    void _OnAutomatic(bool pIsAutomatic);
    void _OnSlider(int pTenths);
    void _ShowThreshold(int pThreshold);
    void _ShowInput(const LiveValues& pValues, qint64 pNow);
    void _ShowNumber(eReadout pReadout, int pMagnitude);

    Configuration& m_configuration;  ///< not owned
    QSlider* m_pSlider;              ///< tenths of dBFS
    QwtScaleWidget* m_pScale;
    QLabel* m_pInputTitle;
    LevelMeter* m_pInputMeter;
    QLabel* m_pBandTitle;
    LevelMeter* m_pMeter;
    QCheckBox* m_pAutomatic;
    QLabel* m_pUnit;
    QLabel* m_pClipped;
    QHBoxLayout* m_pSliderRow;
    std::array<Readout*, eReadoutCount> m_readouts;
    desktop::PeakBallistics m_input;
    quint64 m_inputCount = 0;  ///< as in the values shown last
    qint64 m_lastFrame = 0;    ///< ms
    qint64 m_lastNumbers = 0;  ///< ms
};
