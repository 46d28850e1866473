// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/detail/ProgressLine.h>
#include <cli/live/ListenCommand.h>
#include <cli/live/ListenHands.h>
#include <cli/live/ListenOutputs.h>
#include <cli/live/ListenTexts.h>
#include <cli/live/ListenWeb.h>
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <cli/live/detail/LiveLine.h>
#include <cli/settings/BandCheck.h>

#include <cmath>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kTickMs = 50;
constexpr double kFullScale = 32768.0;
constexpr std::int64_t kBeatMark = 120000;  ///< µs

}  // namespace

ListenCommand::ListenCommand(const ListenOptions& pOptions)
    : m_options(pOptions), m_analysis(pOptions.analysis),
      m_isLine(!pOptions.format && ::isatty(STDOUT_FILENO) == 1 && console::isTerminal())
{
}

ListenCommand::~ListenCommand() = default;

int ListenCommand::Run()
{
    const bool isLoaded = m_store.Load();
    const QString problem = isLoaded ? m_store.getNotice() : m_store.getError();
    if (!problem.isEmpty())
        console::PrintError(problem);
    const QString input = m_options.file.isEmpty() ? _ChooseDevice() : m_options.file;
    if (input.isEmpty())
        return eExitFailed;
    if (m_options.isSaved)
        _Save(input);
    QString refusal = ListenOutputs::FindUnknown(m_options);
    if (refusal.isEmpty())
        refusal = _ApplyOptions();
    if (!refusal.isEmpty()) {
        console::PrintError(refusal);
        return eExitUsage;
    }
    _Listen(input);
    return m_exitCode;
}

// ---- Before -------------------------------------------------------------------------------------

void ListenCommand::_Save(const QString& pDevice)
{
    m_store.setDeviceName(pDevice);
    if (!m_store.Save())
        console::PrintError(m_store.getError());
    if (!m_options.offset)
        return;
    m_beatSettings.offset = *m_options.offset;
    if (!m_beatSettings.Save())
        console::PrintError(
            tr("the offset cannot be stored in %1").arg(UISettings::_getDefaultPath()));
}

QString ListenCommand::_ApplyOptions()
{
    return m_analysis.Apply(m_store.getConfiguration());
}

// ---- Meanwhile ----------------------------------------------------------------------------------

void ListenCommand::_Listen(const QString& pInput)
{
    const std::function<void()> open = _MakeSource(pInput);
    _SetUpBeats();
    m_summary = std::make_unique<LiveSummary>(*m_source, m_beats, m_options.measures);
    if (!m_isLine)
        m_events = std::make_unique<LiveEvents>(
            m_options.format.value_or(eTextEvents), *m_source, m_beats, *m_summary);
    _Connect();
    _SetUpOutputs();
    _SetUpHands();
    _SetUpWeb();
    m_beats.getThread().Start();
    m_sinceStart.start();
    m_tick.start(kTickMs);
    // In the event loop, since it may end at once.
    QTimer::singleShot(0, m_source.get(), open);
    QCoreApplication::exec();
    m_tick.stop();
    m_beats.getThread().Stop();
    m_web.reset();
    m_hands.reset();
    m_outputs.reset();
    _Clear();
    _Summarize();
    m_events.reset();
    m_summary.reset();
    m_beats.Follow(nullptr);
    m_pCapture = nullptr;
    m_source.reset();
}

void ListenCommand::_SetUpBeats()
{
    m_beats.setAutomatic(m_analysis.getTracker() == eAutomaticTracker);
    const AnalysisOptions::TempoRange range = m_analysis.getAutomaticRange();
    m_beats.setTempoRange(range.minimal, range.maximal);
    constexpr double kMicroSeconds = 1000.0;
    m_beats.getClock().setOffset(
        std::llround(kMicroSeconds * m_options.offset.value_or(m_beatSettings.offset)));
    m_beats.Follow(m_source.get());
}

void ListenCommand::_SetUpOutputs()
{
    m_outputs = std::make_unique<ListenOutputs>(m_options, m_beats);
    QObject::connect(&m_outputs->getOutputs(),
                     &Outputs::OnStateChanged,
                     [this](const QString& pName, const QString& pWords) {
                         _Say(QStringLiteral("%1: %2").arg(pName, pWords));
                     });
    if (m_events)
        m_events->Follow(m_outputs->getOutputs());
    for (const QString& problem : m_outputs->Begin(*m_source))
        console::PrintError(problem);
}

void ListenCommand::_SetUpHands()
{
    m_hands = std::make_unique<ListenHands>(
        m_options.hands, m_beats, m_store.getConfiguration(), [this](const QString& pWords) {
            _Say(tr("hands: %1").arg(pWords));
        });
    for (const QString& problem : m_hands->Begin())
        console::PrintError(problem);
}

void ListenCommand::_Connect()
{
    _ConnectSource();
    // Whatever the music does from then on; its phase counts, which only it can tell.
    QObject::connect(
        &m_beats,
        &LiveBeats::OnBeatHeard,
        [this] {
            const double fixed = m_analysis.getFixedBPM();
            if (fixed > 0.0 && m_beats.getClock().getState().charge != BeatClockCharge_Held)
                m_beats.getClock().HoldAt(fixed, shared::ClockThread::getTime());
        });
    QObject::connect(&m_tick, &QTimer::timeout, [this] { _OnTick(); });
    m_beat.setSingleShot(true);
    m_beat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_beat, &QTimer::timeout, [this] { _DrawLine(); });
}

void ListenCommand::_OnAnalyzerCreated(AudioAnalyzer* pAnalyzer)
{
    m_analysis.Apply(*pAnalyzer);
    const QString refusal = m_beats.isAutomatic() ? QString()
                                                  : cli::CheckBand(m_store.getConfiguration(),
                                                                   m_source->getSampleRate());
    if (!refusal.isEmpty()) {
        console::PrintError(refusal);
        return _End(eExitFailed);
    }
    if (!m_pCapture)
        _Say(listentexts::describeFile(m_source->getSource()));
    if (m_options.showsFormat)
        _Tell(m_pCapture ? listentexts::describeFormat(*m_pCapture)
                         : listentexts::describeAnalysis(*m_source));
}

void ListenCommand::_OnStateChanged(eCaptureState pState)
{
    if (pState == eCaptureUnusable && !m_wasRunning && !m_isChanged) {
        console::PrintError(listentexts::describeUnusable(*m_pCapture));
        return _End(eExitFailed);
    }
    const QString name = m_pCapture->getDeviceName();
    _Say(listentexts::describeState(*m_pCapture, m_heard == name));
    if (pState == eCaptureRunning) {
        m_wasRunning = true;
        m_heard = name;
    }
}

/// Of the file.
void ListenCommand::_OnEnded(const QString& pError)
{
    _Clear();
    if (!pError.isEmpty())
        console::PrintError(QStringLiteral("%1: %2").arg(m_options.file, pError));
    _End(pError.isEmpty() && m_summary->hasBegun() ? eExitDone : eExitFailed);
}

void ListenCommand::_OnTick()
{
    const bool isOver =
        m_options.duration > 0.0 && double(m_sinceStart.elapsed()) >= m_options.duration * 1000.0;
    if (interrupt::getSignal() != 0)
        return _End(eExitDone);
    if (isOver)
        return _End(m_summary->hasBegun() ? eExitDone : eExitFailed);
    if (m_events && m_events->isBroken())
        return _End(eExitFailed);
    if (m_options.showsFormat && !std::exchange(m_isPriorityTold, true))
        _Tell(listentexts::describePriority(m_beats.getThread().isRealTime()));
    _TellLostSamples();
    m_summary->TakeTicks();
    m_peak = m_source->TakePeak();
    if (m_web)
        m_web->getPage().setLevel(m_peak / kFullScale);
    if (m_isLine)
        _DrawLine();
}

void ListenCommand::_TellLostSamples()
{
    const quint64 lost = m_pCapture ? m_pCapture->getLostSamples() : 0;
    if (lost > m_toldLoss)
        _Say(listentexts::describeLostSamples(lost - std::exchange(m_toldLoss, lost)));
}

void ListenCommand::_DrawLine()
{
    const AudioAnalyzer* pAnalyzer = m_source->getAnalyzer();
    const SourceState source = m_source->getSource();
    const bool isRunning = source.kind == SourceState::eFile || source.capture == eCaptureRunning;
    const BeatClockState beat = m_beats.getClock().getState();
    const std::int64_t now = shared::ClockThread::getTime();
    cli::LiveValues values;
    if (beat.isRunning()) {
        const std::int64_t number = beat.getBeat(now);
        values.isBeat = number >= beat.firstBeat && now - beat.getTickTime(number) < kBeatMark;
        values.bpm = beat.bpm;
        values.beatInBar = beat.getBeatInBar(number) + 1;
        values.confidence = m_beats.getConfidence(beat);
        // The mark is there in time.
        m_beat.start(int((beat.getTickTime(number + 1) - now) / 1000) + 1);
    }
    values.threshold = pAnalyzer ? pAnalyzer->getThreshold() : 0;
    values.peak = m_peak;
    values.status = !isRunning            ? tr("waiting")
                    : m_beats.isPlaying() ? tr("playing")
                                          : tr("stopped");
    values.seconds = m_summary->getSeconds();
    values.device = source.name;
    // The last column stays free: a full line would make some terminals scroll.
    const QString line = cli::LiveLine(values, console::getColumns() - 1);
    console::PrintRaw('\r' + line.toLocal8Bit() + "\033[K");
    m_isLineDrawn = true;
}

void ListenCommand::_Say(const QString& pText)
{
    if (!m_options.isQuiet && !pText.isEmpty())
        _Tell(pText);
}

void ListenCommand::_Tell(const QString& pText)
{
    _Clear();
    console::PrintLine(pText);
}

void ListenCommand::_Clear()
{
    if (m_isLineDrawn)
        console::PrintRaw("\r\033[K");
    m_isLineDrawn = false;
}

// ---- Afterwards ---------------------------------------------------------------------------------

void ListenCommand::_End(int pExitCode)
{
    m_exitCode = pExitCode;
    // It was asked to end, and does.
    interrupt::Accept();
    QCoreApplication::quit();
}

void ListenCommand::_Summarize()
{
    if (m_events) {
        m_events->Finish();
        const OutputFile& output = m_events->getOutput();
        const int exitCode = output.Conclude();
        if (exitCode != eExitDone)
            m_exitCode = exitCode;
        if (m_events->getLostCount() > 0)
            _Say(listentexts::describeLostEvents(m_events->getLostCount()));
    }
    if (!m_summary->hasBegun())
        return _Say(tr("nothing was heard"));
    if (m_options.showsFormat && m_pCapture)
        _Tell(listentexts::describeDrift(*m_pCapture));
    if (m_options.measures) {
        _Tell(listentexts::describeAnnouncements(m_summary->getAnnounceStatistics()));
        _Tell(listentexts::describeTicks(m_summary->getTickStatistics()));
    }
    const double tempo = m_summary->getTempo();
    _Say(tr("%1: %2 long, %3, %4 beats (%5 real, %6 virtual)")
             .arg(m_source->getSource().name,
                  cli::Clock(m_summary->getSeconds()),
                  tempo > 0.0 ? tr("%1 BPM").arg(tempo, 0, 'f', 1) : tr("tempo unknown"),
                  QString::number(m_summary->getRealBeats() + m_summary->getVirtualBeats()),
                  QString::number(m_summary->getRealBeats()),
                  QString::number(m_summary->getVirtualBeats())));
}
