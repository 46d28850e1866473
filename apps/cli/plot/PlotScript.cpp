// SPDX-License-Identifier: MIT
#include <cli/plot/PlotScript.h>
#include <cli/plot/detail/PlotData.h>

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cmath>

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

PlotScript::PlotScript(const AnalysisResult& pResult,
                       const LevelTrace& pTrace,
                       const BeliefTrace* pBeliefs)
    : m_result(pResult), m_trace(pTrace), m_pBeliefs(pBeliefs),
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
    if (_hasBeliefs())
        _AddLane({"bars", tr("bars"), "#d95f02", kVirtualLane, _GetBarTimes()});
    else
        _AddLane({"virtuals", tr("virtual beats"), "#d95f02", kVirtualLane, _GetBeatTimes(true)});
    _AddLane({"pulses", tr("pulses"), "#6f6f6f", kPulseLane, m_result.pulseTimes});
    _AddTempoData();
    _AddBeliefData();
    m_script += "set multiplot\n";
    _AddTitle(pFormat);
    _AddSilences();
    _PlotLevel();
    _PlotTempo();
    _PlotConfidence();
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
                               _hasBeliefs() ? tr("%1 bars").arg(int(_GetBarTimes().size()))
                                             : tr("%1 virtual beats").arg(virtualCount),
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
    const auto all = _hasBeliefs() ? cli::getBeatTempos(m_result.beats) : m_result.tempos;
    const auto tempos = cli::thinTempos(all, m_duration, kTempoBins);
    m_script += "$tempo << EOD\n";
    for (std::size_t i = 0; i < tempos.size(); ++i) {
        const double end = i + 1 < tempos.size() ? tempos[i + 1].time : m_duration;
        const double height = _hasBeliefs() ? std::log2(tempos[i].bpm) : tempos[i].bpm;
        // Each tempo holds until the next one; a blank line breaks the curve where it is unknown.
        m_script +=
            tempos[i].bpm > 0.0 ? makeLine(tempos[i].time, height, end, height) : QByteArray("\n");
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
                laneLabel(tr("pulses"), kPulseLane) +
                laneLabel(_hasBeliefs() ? tr("bars") : tr("virtual"), kVirtualLane) +
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
    const bool isKnown = cli::getTempoRange(m_result.tempos).isKnown;
    _AddTimeAxis(!_hasBeliefs());
    m_script += _MakeTempoAxis() + "set ylabel " + cli::quote(tr("tempo (BPM)")) +
                " offset 0, 0\nset xlabel " +
                cli::quote(_hasBeliefs() ? QString() : _GetTimeTitle()) + '\n';
    if (!isKnown) {
        m_script += "set label 3 " + cli::quote(tr("no tempo found")) +
                    " at graph 0.5, graph 0.5 center tc rgb '#404040' noenhanced\n";
    }
    const QByteArray style =
        QByteArray("lines lw ") + (m_result.tempos.size() > kTempoBins ? "1 " : "2 ") + kTempoStyle;
    m_script += "plot " + QByteArray(_hasBeliefs() ? "$belief with image notitle, " : "") +
                (isKnown ? "$tempo with " + style : QByteArray("NaN")) +
                " notitle, keyentry with " + style + " title " + cli::quote(tr("tempo")) +
                (_hasBeliefs() ? ", keyentry with boxes fc rgb '#6baed6' title " +
                                     cli::quote(tr("belief in a tempo"))
                               : QByteArray()) +
                "\nunset label 3\n";
}

QString PlotScript::_GetTimeTitle() const
{
    return tr("time (%1)").arg(cli::getTimeUnit(m_duration));
}

/// The belief's tempi lie at equal distances of their logarithms.
QByteArray PlotScript::_MakeTempoAxis() const
{
    if (!_hasBeliefs()) {
        const cli::TempoRange range = cli::getTempoRange(m_result.tempos);
        return "set tmargin at screen 0.37\nset bmargin at screen 0.11\nset ytics auto\n"
               "set yrange [" +
               number(range.minimum) + ':' + number(range.maximum) + "]\n";
    }
    const std::vector<double>& tempi = m_pBeliefs->getTempi();
    const double half = 0.5 * (std::log2(tempi[0]) - std::log2(tempi[1]));
    QByteArray ticks;
    for (const int bpm : {60, 75, 90, 110, 130, 160, 190})
        ticks += (ticks.isEmpty() ? "'" : ", '") + number(bpm) + "' " + number(std::log2(bpm));
    return "set tmargin at screen 0.37\nset bmargin at screen 0.205\nset ytics (" + ticks +
           ")\nset yrange [" + number(std::log2(tempi.back()) - half) + ':' +
           number(std::log2(tempi[0]) + half) +
           "]\nset palette defined (0 '#ffffff', 1 '#08519c')\nset cbrange [0:1]\n"
           "unset colorbox\n";
}

/// An image of equal cells: the square root shows what is little believed as well.
void PlotScript::_AddBeliefData()
{
    if (!_hasBeliefs())
        return;
    const auto& columns = m_pBeliefs->getColumns();
    const double width = columns.size() > 1 ? columns[1].time - columns[0].time : m_duration;
    QByteArray beliefs;
    QByteArray confidences;
    for (std::size_t i = 0; i <= columns.size(); ++i) {
        // An image needs two columns; what lies behind the end is cut off.
        const BeliefTrace::Column& column = columns[std::min(i, columns.size() - 1)];
        const double start = double(i) * width;
        for (std::size_t k = 0; k < column.beliefs.size(); ++k)
            beliefs += number(start + 0.5 * width) + ' ' +
                       number(std::log2(m_pBeliefs->getTempi()[k])) + ' ' +
                       QByteArray::number(std::sqrt(double(column.beliefs[k])), 'f', 3) + '\n';
        const auto confidence = double(column.confidence);
        confidences += makeLine(start, confidence, start + width, confidence);
    }
    m_script += "$belief << EOD\n" + beliefs + "EOD\n$confidence << EOD\n" + confidences + "EOD\n";
}

void PlotScript::_PlotConfidence()
{
    if (!_hasBeliefs())
        return;
    _AddTimeAxis(true);
    m_script += "set tmargin at screen 0.18\nset bmargin at screen 0.11\n"
                "set ytics ('0' 0, '1' 1)\nset yrange [0:1.05]\nset ylabel " +
                cli::quote(QString()) + "\nset xlabel " + cli::quote(_GetTimeTitle()) +
                "\nplot $confidence with lines lw 1.5 lc rgb '#6a51a3' title " +
                cli::quote(tr("confidence")) + '\n';
}

std::vector<double> PlotScript::_GetBeatTimes(bool pIsVirtual) const
{
    std::vector<double> times;
    for (const LoggedBeat& beat : m_result.beats)
        if (beat.isVirtual == pIsVirtual)
            times.push_back(beat.time);
    return times;
}

std::vector<double> PlotScript::_GetBarTimes() const
{
    std::vector<double> times;
    for (const LoggedBeat& beat : m_result.beats)
        if (beat.beatInBar == 1)
            times.push_back(beat.time);
    return times;
}
