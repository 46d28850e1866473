// SPDX-License-Identifier: MIT
#include <cli/analyze/AnalyzeFile.h>
#include <cli/analyze/RawPcmReader.h>
#include <cli/detail/ProgressLine.h>
#include <cli/output/JsonWriter.h>
#include <cli/output/NdjsonWriter.h>
#include <cli/output/SvlWriter.h>
#include <cli/output/TextWriters.h>
#include <cli/plot/Plot.h>
#include <cli/settings/BandCheck.h>
#include <shared/files/AudioFileReader.h>

#include <QElapsedTimer>

#include <algorithm>

namespace {

/// Below -70 dBFS, where the automatic tracker hears silence, are all blocks with such a peak.
constexpr int kInaudiblePeak = 10;

}  // namespace

AnalyzeFile::AnalyzeFile(const AnalyzeOptions& pOptions, const AnalyzeTask& pTask)
    : m_options(pOptions), m_task(pTask)
{
}

AnalyzeFile::~AnalyzeFile() = default;

bool AnalyzeFile::Run(const Progress& pProgress)
{
    QElapsedTimer timer;
    timer.start();
    if (!_OpenSource() || !_OpenOutputs() || !_Analyze(pProgress))
        return false;
    _WriteExtras();
    _WriteResult();
    if (!m_errors.isEmpty() || m_output.isReaderGone())
        return false;
    _AddSummary(double(timer.nsecsElapsed()) / 1e9);
    return true;
}

bool AnalyzeFile::_OpenSource()
{
    bool isOpen = false;
    if (m_options.rawRate > 0) {
        auto reader = std::make_unique<RawPcmReader>(m_options.rawRate, m_options.rawChannels);
        isOpen = reader->Open(m_task.input);
        m_source = std::move(reader);
    } else {
        auto reader = std::make_unique<AudioFileReader>();
        if (m_options.isPartial)
            reader->setPartial();
        isOpen = reader->Open(m_task.input);
        m_source = std::move(reader);
    }
    if (!isOpen)
        return _FailToRead(m_source->getError());
    m_analysis =
        std::make_unique<FileAnalysis>(m_options.analysis, *m_source, m_options.isLookingAhead);
    if (m_options.analysis.getTracker() == eAutomaticTracker)
        return true;
    const QString refusal =
        cli::CheckBand(m_analysis->getConfiguration(), m_source->getSampleRate());
    return refusal.isEmpty() || _Fail(refusal);
}

/// What cannot be written is found out before the work; only events are written during it.
bool AnalyzeFile::_OpenOutputs()
{
    for (const QString& path : {m_task.output, m_options.click, m_options.plot}) {
        const QString obstacle = path.isEmpty() ? QString() : OutputFile::FindObstacle(path);
        if (!obstacle.isEmpty())
            return _Fail(obstacle);
    }
    if (!m_options.click.isEmpty() &&
        !m_click.Open(m_options.click, m_source->getSampleRate(), m_source->getChannelCount()))
        return _Fail(m_click.getError());
    if (m_options.format != eNdjsonFormat)
        return true;
    if (!m_output.Open(m_task.output))
        return _Fail(m_output.getError());
    m_events =
        std::make_unique<NdjsonWriter>(m_analysis->getRelay(),
                                       m_task.isTagged ? m_task.input : QString(),
                                       m_options.isRealOnly,
                                       [this](const QByteArray& pLine) { m_output.Write(pLine); });
    return true;
}

bool AnalyzeFile::_Analyze(const Progress& pProgress)
{
    const bool hasClick = !m_options.click.isEmpty();
    const bool isDone = m_analysis->Run([&](const float* pFrames, std::size_t pCount) {
        if (hasClick && !m_click.Append(pFrames, pCount))
            return _Fail(m_click.getError());
        if (!m_output.getError().isEmpty())
            return _Fail(m_output.getError());
        return !m_output.isReaderGone() && _Report(pProgress);
    });
    if (!isDone && !m_analysis->getError().isEmpty())
        return _FailToRead(m_analysis->getError());
    return isDone;
}

bool AnalyzeFile::_Report(const Progress& pProgress) const
{
    const auto done = double(m_analysis->getSampleCount());
    const auto all = double(m_source->getFrameCount());
    return pProgress(all > 0.0 ? done / all : -1.0, done / m_source->getSampleRate());
}

void AnalyzeFile::_WriteExtras()
{
    AnalysisResult& result = m_analysis->getLog().getResult();
    result.source = m_task.input;
    if (m_options.isRealOnly) {
        result.beats.erase(std::remove_if(
                               result.beats.begin(),
                               result.beats.end(),
                               [](const LoggedBeat& pBeat) { return pBeat.isVirtual; }),
                           result.beats.end());
    }
    if (!m_options.click.isEmpty() && !m_click.Finish(result.beats))
        _Fail(m_click.getError());
    Plot plot;
    if (!m_options.plot.isEmpty() &&
        !plot.Write(m_options.plot, result, m_analysis->getLevels(), m_analysis->getBeliefs()))
        _Fail(plot.getError());
}

void AnalyzeFile::_WriteResult()
{
    const AnalysisResult& result = m_analysis->getLog().getResult();
    if (m_events != nullptr)
        m_events->Finish(result);
    const bool isWritten =
        m_events != nullptr || (m_output.Open(m_task.output) && m_output.Write(_MakeText(result)));
    if ((!isWritten || !m_output.Commit()) && !m_output.isReaderGone())
        _Fail(m_output.getError());
}

QByteArray AnalyzeFile::_MakeText(const AnalysisResult& pResult) const
{
    const QByteArray heading = m_task.hasHeading ? makeHeading(m_task.input) : QByteArray();
    switch (m_options.format) {
    case eBeatsFormat:
        return heading + makeBeatsText(pResult);
    case eLabelsFormat:
        return makeLabelsText(pResult);
    case eCsvFormat:
        return makeCsvText(pResult);
    case eSvlFormat:
        return makeSvlDocument(pResult);
    case eTempoFormat:
        return heading + makeTempoText(pResult);
    case eJsonFormat:
        return makeJsonDocument(pResult, m_options.analysis, m_analysis->getConfiguration());
    case eNdjsonFormat:
        break;
    }
    return {};
}

void AnalyzeFile::_AddSummary(double pElapsed)
{
    const AnalysisResult& result = m_analysis->getLog().getResult();
    if (!m_source->getLoss().isEmpty())
        m_notes.append(tr("%1: %2").arg(m_task.input, m_source->getLoss()));
    for (const QString& note : {_DescribeMix(), _DescribeSilence()})
        if (!note.isEmpty())
            m_notes.append(tr("%1: %2").arg(m_task.input, note));
    const double bpm = result.getTempo();
    const double speed = result.duration() / std::max(pElapsed, 1e-6);
    m_notes.append(tr("%1: %2 long, %3, %4, %5x real time")
                       .arg(m_task.input,
                            cli::Clock(result.duration()),
                            bpm > 0.0 ? tr("%1 BPM").arg(bpm, 0, 'f', 1) : tr("tempo unknown"),
                            _CountBeats(),
                            QString::number(speed, 'f', 0)));
}

/// The automatic tracker tells none that it has not heard.
QString AnalyzeFile::_CountBeats() const
{
    const std::vector<LoggedBeat>& beats = m_analysis->getLog().getResult().beats;
    if (m_options.analysis.getTracker() == eAutomaticTracker)
        return tr("%1 beats").arg(beats.size());
    const auto virtualCount = std::count_if(
        beats.begin(), beats.end(), [](const LoggedBeat& pBeat) { return pBeat.isVirtual; });
    return tr("%1 beats (%2 real, %3 virtual)")
        .arg(beats.size())
        .arg(qint64(beats.size()) - virtualCount)
        .arg(virtualCount);
}

/// That channels would have cancelled each other out, and since when; empty when they would not.
QString AnalyzeFile::_DescribeMix() const
{
    const ChannelMix& mix = m_analysis->getMix();
    if (!mix.hasCancelled())
        return {};
    return tr("its channels cancel each other out from %1 s on, as if the poles of one were "
              "swapped; the loudest one was heard instead of their mean")
        .arg(double(mix.getFirstCancellation()) / m_source->getSampleRate(), 0, 'f', 1);
}

/// Why the whole file counted as stopped, or has no beat, and what to do; empty when it has.
QString AnalyzeFile::_DescribeSilence() const
{
    const AnalysisResult& result = m_analysis->getLog().getResult();
    if (m_options.analysis.getTracker() == eAutomaticTracker)
        return result.beats.empty() ? _DescribeNoMeter() : QString();
    const bool isSilent = result.silences.size() == 1 && result.silences.front().start <= 0.0 &&
                          result.silences.front().end >= result.duration();
    if (!isSilent)
        return {};
    const double stopDuration = m_analysis->getConfiguration().getStopDetectionDuration();
    if (result.duration() < stopDuration)
        return tr("shorter than the %1 s in which music is told from silence; lower "
                  "--stop-duration")
            .arg(stopDuration);
    if (m_analysis->getPeak() == 0)
        return tr("nothing but digital silence; check the recording");
    const int threshold = m_analysis->getConfiguration().getStopDetectionThreshold();
    return tr("too quiet to count as music: its level never rises above the stop threshold %1 "
              "between 50 and 2000 Hz (its peak is %2); lower --stop-threshold")
        .arg(threshold)
        .arg(m_analysis->getPeak());
}

QString AnalyzeFile::_DescribeNoMeter() const
{
    if (m_analysis->getPeak() == 0)
        return tr("nothing but digital silence; check the recording");
    if (m_analysis->getPeak() <= kInaudiblePeak)
        return tr("too quiet to count as music: its peak is %1 of 32767; record it louder")
            .arg(m_analysis->getPeak());
    return tr("nothing in it has a beat that can be followed");
}

bool AnalyzeFile::_FailToRead(const QString& pReason)
{
    const bool isRest = !m_source->getLoss().isEmpty() && !m_options.isPartial;
    return _Fail(isRest ? tr("%1, or read it as far as it goes with --partial").arg(pReason)
                        : pReason);
}

bool AnalyzeFile::_Fail(const QString& pReason)
{
    m_errors.append(tr("%1: %2").arg(m_task.input, pReason));
    return false;
}
