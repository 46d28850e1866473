// SPDX-License-Identifier: MIT
#pragma once

#include "LivePanel.h"

class Configuration;
class LevelMeter;
class QCheckBox;
class QLabel;
class QwtSlider;

/// The volumes against the threshold, which is automatic or set by a slider.
class LevelPanel : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit LevelPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;
    const LevelMeter& getMeter() const { return *m_pMeter; }

Q_SIGNALS:
    /// The threshold has been set.
    void OnConfigurationChanged();

protected:
    void Retranslate() override;

private:
    void _MakeSlider();
    void _OnAutomatic(bool pIsAutomatic);
    void _OnSlider(double pDecibels);
    void _ShowThreshold(int pThreshold);
    void _ShowNumbers(const LiveValues& pValues);
    QString _Describe(const QColor& pColor, const QString& pName, int pMagnitude) const;

    Configuration& m_configuration;  ///< not owned
    QwtSlider* m_pSlider;
    LevelMeter* m_pMeter;
    QCheckBox* m_pAutomatic;
    QLabel* m_pNumbers;
    const LookColors* m_pColors;  ///< not owned
    qint64 m_lastNumbers = 0;     ///< ms
};
