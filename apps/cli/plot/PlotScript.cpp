// SPDX-License-Identifier: MIT
#include <cli/plot/PlotScript.h>
#include <cli/plot/detail/PlotData.h>

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int kMaximalTicks = 12;           ///< on the time axis
constexpr int kMaximalTitle = 100;          ///< characters
constexpr std::size_t kMaximalMarks = 400;  ///< in a lane, before it shows density
constexpr std::size_t kDensityBins = 240;
constexpr std::size_t kMaximalLevels = 1000;
constexpr std::size_t kTempoBins = 500;
constexpr double kLaneHeight = 7.0;  ///< % on the level's scale, as are the lanes' bottoms
constexpr double kPulseLane = 106.0;
constexpr double kVirtualLane = 116.0;
constexpr double kBeatLane = 126.0;
constexpr double kTop = 135.0;

const char* const kSilenceStyle = "fc rgb '#dcdcdc'";

const char* const kLevelStyle = "fc rgb '#9ecae1'";
const char* const kThresholdStyle = "lw 1.5 lc rgb '#cb181d'";
const char* const kTempoStyle = "lc rgb '#238b45'";

QByteArray number(double pValue)
{
    return QByteArray::number(pValue, 'g', 8);
}

double toPercent(int pLevel)
{
    return 100.0 * pLevel / 32767.0;
}

/// A straight line from one point to another, as data.
QByteArray makeLine(double pX1, double pY1, double pX2, double pY2)
{
    return number(pX1) + ' ' + number(pY1) + '\n' + number(pX2) + ' ' + number(pY2) + '\n';
}

}  // namespace

PlotScript::PlotScript(const AnalysisResult& pResult, const LevelTrace& pTrace)
    : m_result(pResult), m_trace(pTrace),
      m_duration(pResult.duration() > 0.0 ? pResult.duration() : 1.0)
{
}

QByteArray PlotScript::Make(ePlotFormat pFormat)
{
    m_script.clear();
    m_levelPlots.clear();
    _AddTerminal(pFormat);
    _AddLevelData();
    _AddLane({"beats", tr("beats"), "#08306b", kBeatLane, _GetBeatTimes(false)});
    _AddLane({"virtuals", tr("virtual beats"), "#d95f02", kVirtualLane, _GetBeatTimes(true)});
    _AddLane({"pulses", tr("pulses"), "#6f6f6f", kPulseLane, m_result.pulseTimes});
    _AddTempoData();
    m_script += "set multiplot\n";
    _AddTitle(pFormat);
    _AddSilences();
    _PlotLevel();
    _PlotTempo();
    m_script += "unset multiplot\n";
    return m_script;
}

void PlotScript::_AddTerminal(ePlotFormat pFormat)
{
    const QByteArray size = number(kWidth) + ',' + number(kHeight);
    m_script += "set encoding utf8\n";
    m_script +=
        pFormat == ePlotFormat::eSvg
            ? "set terminal svg size " + size + " font 'sans-serif,13' background '#ffffff'\n"
            : "set terminal pngcairo size " + size + " font 'sans,10' background '#ffffff'\n";
    m_script += "set termoption noenhanced\n"
                "set lmargin at screen 0.095\n"
                "set rmargin at screen 0.80\n"
                "set tics nomirror out\n"
                "set border 3\n"
                "set grid lt 1 lw 0.5 lc rgb '#e4e4e4'\n"
                "set key at screen 0.815, graph 1 left top Left reverse samplen 2 spacing 1.35 "
                "noenhanced\n"
                "set style fill solid 1.0 noborder\n";
}

void PlotScript::_AddTitle(ePlotFormat pFormat)
{
    // SVG counts in pixels, PNG in points.
    const QByteArray fontSize = pFormat == ePlotFormat::eSvg ? "',20'" : "',15'";
    const QString name = m_result.source == QLatin1String("-")
                             ? tr("standard input")
                             : QFileInfo(m_result.source).fileName();
    m_script += "set label 1 " + cli::quote(cli::makeTitle(name, kMaximalTitle)) +
                " at screen 0.4475, screen 0.965 center font " + fontSize + " noenhanced\n";
    m_script += "set label 2 " + cli::quote(_GetSummary()) +
                " at screen 0.4475, screen 0.922 center tc rgb '#404040' noenhanced\n";
}

QString PlotScript::_GetSummary() const
{
    const auto virtualCount = int(_GetBeatTimes(true).size());
    const double bpm = m_result.getTempo();
    const QStringList parts = {bpm > 0.0 ? tr("%1 BPM").arg(bpm, 0, 'f', 1) : tr("no tempo found"),
                               tr("%1 beats").arg(int(m_result.beats.size()) - virtualCount),
                               tr("%1 virtual beats").arg(virtualCount),
                               tr("length %1").arg(cli::formatLength(m_result.duration())),
                               tr("%1 Hz").arg(m_result.sampleRate)};
    return parts.join(QStringLiteral("   \u00b7   "));
}

void PlotScript::_AddTimeAxis(bool pIsLabelled)
{
    const double step = cli::getTickStep(m_duration, kMaximalTicks);
    QByteArray ticks;
    for (int i = 0; i * step <= m_duration; ++i) {
        const QString label = pIsLabelled ? cli::formatTick(i * step, m_duration) : QString();
        ticks += (i == 0 ? "" : ", ") + cli::quote(label) + ' ' + number(i * step);
    }
    m_script += "set xrange [0:" + number(m_duration) + "]\nset xtics (" + ticks + ")\n";
}

void PlotScript::_AddSilences()
{
    for (const TimeSpan& span : m_result.silences) {
        m_script += "set object rectangle from " + number(span.start) + ", graph 0 to " +
                    number(std::min(span.end, m_duration)) + ", graph 1 behind " + kSilenceStyle +
                    " fs solid 1.0 noborder\n";
    }
}

void PlotScript::_AddLevelData()
{
    const auto columns = cli::thinLevels(m_trace.getColumns(), kMaximalLevels);
    QByteArray levels;
    QByteArray thresholds;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double start = columns[i].time;
        const double end = i + 1 < columns.size() ? columns[i + 1].time : m_duration;
        const double level = toPercent(columns[i].level);
        const double threshold = toPercent(columns[i].threshold);
        levels += makeLine(start, level, end, level);
        // A blank line breaks the curve where no threshold is in force.
        thresholds +=
            threshold > 0.0 ? makeLine(start, threshold, end, threshold) : QByteArray("\n");
    }
    _AddData("level", levels, QByteArray("filledcurves y=0 ") + kLevelStyle);
    _AddData("threshold", thresholds, QByteArray("lines ") + kThresholdStyle);
}

/// Adds a data block and its place in the upper plot, unless there is nothing in it.
void PlotScript::_AddData(const QByteArray& pName,
                          const QByteArray& pData,
                          const QByteArray& pStyle)
{
    if (!pData.trimmed().isEmpty()) {
        m_script += '$' + pName + " << EOD\n" + pData + "EOD\n";
        m_levelPlots += '$' + pName + " with " + pStyle + " notitle, ";
    }
}

void PlotScript::_AddLane(const Lane& pLane)
{
    if (pLane.times.size() > kMaximalMarks)
        _AddDensity(pLane);
    else
        _AddTicks(pLane);
}

void PlotScript::_AddTicks(const Lane& pLane)
{
    const QByteArray style = QByteArray("lines lw 1.6 lc rgb '") + pLane.color + '\'';
    QByteArray marks;
    for (const double time : pLane.times)
        marks += makeLine(time, pLane.bottom, time, pLane.bottom + kLaneHeight) + '\n';
    _AddData(pLane.name, marks, style);
    _AddLegend(style, pLane.label);
}

void PlotScript::_AddDensity(const Lane& pLane)
{
    const QByteArray style = QByteArray("fc rgb '") + pLane.color + '\'';
    const auto counts = cli::countPerBin(pLane.times, m_duration, kDensityBins);
    const int highest = *std::max_element(counts.begin(), counts.end());
    const double width = m_duration / double(kDensityBins);
    QByteArray bars;
    for (std::size_t i = 0; i < kDensityBins; ++i) {
        const double top = pLane.bottom + kLaneHeight * counts[i] / highest;
        bars += makeLine(double(i) * width, top, double(i + 1) * width, top);
    }
    _AddData(pLane.name, bars, "filledcurves y=" + number(pLane.bottom) + ' ' + style);
    _AddLegend("boxes " + style,
               tr("%1, up to %2/min").arg(pLane.label).arg(qRound(highest * 60.0 / width)));
}

void PlotScript::_AddTempoData()
{
    const auto tempos = cli::thinTempos(m_result.tempos, m_duration, kTempoBins);
    m_script += "$tempo << EOD\n";
    for (std::size_t i = 0; i < tempos.size(); ++i) {
        const double end = i + 1 < tempos.size() ? tempos[i + 1].time : m_duration;
        // Each tempo holds until the next one; a blank line breaks the curve where it is unknown.
        m_script += tempos[i].bpm > 0.0
                        ? makeLine(tempos[i].time, tempos[i].bpm, end, tempos[i].bpm)
                        : QByteArray("\n");
    }
    m_script += "EOD\n";
}

void PlotScript::_PlotLevel()
{
    _AddLegend(QByteArray("boxes ") + kLevelStyle, tr("level in the band"));
    _AddLegend(QByteArray("lines ") + kThresholdStyle, tr("pulse threshold"));
    _AddLegend(QByteArray("boxes ") + kSilenceStyle, tr("stopped"));
    _AddTimeAxis(false);
    const auto laneLabel = [](const QString& pText, double pBottom) {
        return ", " + cli::quote(pText) + ' ' + number(pBottom + 0.5 * kLaneHeight);
    };
    m_script += "set tmargin at screen 0.885\nset bmargin at screen 0.41\n"
                "set yrange [0:" +
                number(kTop) +
                "]\nset ytics ('0' 0, '20' 20, '40' 40, '60' 60, '80' 80, '100' 100" +
                laneLabel(tr("pulses"), kPulseLane) + laneLabel(tr("virtual"), kVirtualLane) +
                laneLabel(tr("beats"), kBeatLane) + ")\n";
    m_script += "set ylabel " + cli::quote(tr("level (% of full scale)")) + " offset 0, -2\nplot " +
                m_levelPlots + "NaN notitle\n";
    m_script += "unset label 1\nunset label 2\n";
}

void PlotScript::_AddLegend(const QByteArray& pStyle, const QString& pText)
{
    m_levelPlots += "keyentry with " + pStyle + " title " + cli::quote(pText) + ", ";
}

void PlotScript::_PlotTempo()
{
    const cli::TempoRange range = cli::getTempoRange(m_result.tempos);
    _AddTimeAxis(true);
    m_script += "set tmargin at screen 0.37\nset bmargin at screen 0.11\nset ytics auto\n"
                "set yrange [" +
                number(range.minimum) + ':' + number(range.maximum) + "]\nset ylabel " +
                cli::quote(tr("tempo (BPM)")) + " offset 0, 0\nset xlabel " +
                cli::quote(tr("time (%1)").arg(cli::getTimeUnit(m_duration))) + '\n';
    if (!range.isKnown) {
        m_script += "set label 3 " + cli::quote(tr("no tempo found")) +
                    " at graph 0.5, graph 0.5 center tc rgb '#404040' noenhanced\n";
    }
    const QByteArray style =
        QByteArray("lines lw ") + (m_result.tempos.size() > kTempoBins ? "1 " : "2 ") + kTempoStyle;
    m_script += "plot " + (range.isKnown ? "$tempo with " + style : QByteArray("NaN")) +
                " notitle, keyentry with " + style + " title " + cli::quote(tr("tempo")) + '\n';
}

std::vector<double> PlotScript::_GetBeatTimes(bool pIsVirtual) const
{
    std::vector<double> times;
    for (const LoggedBeat& beat : m_result.beats)
        if (beat.isVirtual == pIsVirtual)
            times.push_back(beat.time);
    return times;
}
