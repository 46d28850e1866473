// SPDX-License-Identifier: MIT
#pragma once

#include <cli/plot/BeliefTrace.h>
#include <cli/plot/LevelTrace.h>
#include <shared/beats/AnalysisResult.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <vector>

enum class ePlotFormat
{
    eSvg,
    ePng
};

/// The gnuplot script, data included, that draws an analysis to standard output.
///
/// Panels share the time axis. Above: level, threshold and a lane each for beats, virtual beats and
/// pulses; below: the tempo. With the automatic tracker a lane of bars takes the place of the
/// virtual beats, the tempo lies over a strip that shows the belief in each, and a third panel has
/// the confidence. Stretches of silence are shaded in both. What would be too dense
/// to read is drawn as density, so the picture of a long file stays readable and small.
class PlotScript
{
    Q_DECLARE_TR_FUNCTIONS(PlotScript)

public:
    static constexpr int kWidth = 1280;  ///< pixels
    static constexpr int kHeight = 680;  ///< pixels

    /// They are read only by Make() and must live as long. pBeliefs are the automatic tracker's;
    /// null or empty = there are none.
    PlotScript(const AnalysisResult& pResult,
               const LevelTrace& pTrace,
               const BeliefTrace* pBeliefs = nullptr);

    /// The whole script, UTF-8.
    QByteArray Make(ePlotFormat pFormat);

private:
    /// A row of marks above the level.
    struct Lane
    {
        QByteArray name;  ///< of its data block
        QString label;
        const char* color;
        double bottom;  ///< on the level's scale, %
        std::vector<double> times;
    };

    void _AddTerminal(ePlotFormat pFormat);
    void _AddTitle(ePlotFormat pFormat);
    void _AddTimeAxis(bool pIsLabelled);
    void _AddSilences();
    void _AddLevelData();
    void _AddData(const QByteArray& pName, const QByteArray& pData, const QByteArray& pStyle);
    void _AddLane(const Lane& pLane);
    void _AddTicks(const Lane& pLane);
    void _AddDensity(const Lane& pLane);
    void _AddTempoData();
    void _PlotLevel();
    void _PlotTempo();
    QByteArray _MakeTempoAxis() const;
    void _AddBeliefData();
    void _PlotConfidence();
    bool _hasBeliefs() const { return m_pBeliefs && !m_pBeliefs->getColumns().empty(); }
    void _AddLegend(const QByteArray& pStyle, const QString& pText);
    QString _GetSummary() const;
    QString _GetTimeTitle() const;
    std::vector<double> _GetBeatTimes(bool pIsVirtual) const;
    std::vector<double> _GetBarTimes() const;

    const AnalysisResult& m_result;
    const LevelTrace& m_trace;
    const BeliefTrace* m_pBeliefs;  ///< may be null
    double m_duration;              ///< seconds, never 0
    QByteArray m_script;
    QByteArray m_levelPlots;  ///< elements of the upper plot command
};
