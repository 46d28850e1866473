// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>

#include <array>

class Configuration;
class LevelMeter;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QSlider;
class QwtScaleWidget;
class Readout;

/// The volumes against the threshold, which is automatic or set by a slider.
class LevelPanel final : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit LevelPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    const LevelMeter& getMeter() const { return *m_pMeter; }
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
    void _ShowNumber(eReadout pReadout, int pMagnitude);

    Configuration& m_configuration;  ///< not owned
    QSlider* m_pSlider;              ///< tenths of dBFS
    QwtScaleWidget* m_pScale;
    LevelMeter* m_pMeter;
    QCheckBox* m_pAutomatic;
    QLabel* m_pUnit;
    QHBoxLayout* m_pSliderRow;
    std::array<Readout*, eReadoutCount> m_readouts;
    qint64 m_lastFrame = 0;    ///< ms
    qint64 m_lastNumbers = 0;  ///< ms
};
