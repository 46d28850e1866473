// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/LivePanel.h>

#include <QString>

class Configuration;
class QLabel;
class QProgressBar;

/// The tempo, large, with how sure it is, the place in the bar, and what there is to say about it.
class BpmPanel final : public LivePanel
{
    Q_OBJECT

public:
    /// pConfiguration is not owned.
    explicit BpmPanel(Configuration& pConfiguration, QWidget* pParent = nullptr);

    /// Stands in the place of every other hint; empty = none.
    void setHelp(const QString& pHelp) { m_help = pHelp; }
    /// Whether it says in words that the music has stopped.
    void setStoppedShown(bool pIsShown) { m_isStoppedShown = pIsShown; }
    void Refresh(const LiveValues& pValues, qint64 pNow) override;
    void setColors(const LookColors& pColors) override;

protected:
    void Retranslate() override;
    void changeEvent(QEvent* pEvent) override;

private:
    void _SetFonts();
    void _ShowTempo(const LiveValues& pValues);
    void _ShowConfidence(const LiveValues& pValues);
    void _ShowBar(const LiveValues& pValues);
    void _ShowHint(const LiveValues& pValues);
    QString _DescribeState(const LiveValues& pValues) const;
    QString _DescribeRange(double pMeasured) const;

    Configuration& m_configuration;  ///< not owned
    QLabel* m_pTempo;
    QLabel* m_pUnit;
    QLabel* m_pConfidenceTitle;
    QProgressBar* m_pConfidence;
    QLabel* m_pBarTitle;
    QLabel* m_pBar;  ///< a dot for each beat of it
    QLabel* m_pHint;
    bool m_isStoppedShown = false;
    QString m_help;
    qint64 m_lastFrame = 0;  ///< ms
};
