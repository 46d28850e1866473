// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/detail/ProgressLine.h>
#include <cli/live/ListenCommand.h>
#include <cli/live/ListenTexts.h>
#include <cli/live/LiveEvents.h>
#include <cli/live/LiveSummary.h>
#include <cli/live/detail/LiveLine.h>
#include <cli/settings/BandCheck.h>
#include <shared/capture/InputDevices.h>
#include <shared/capture/SoundBackEnd.h>

#include <algorithm>
#include <unistd.h>

namespace {

constexpr int kTickMs = 50;
constexpr int kBeatMarkMs = 120;
const QString kDefault = QStringLiteral("default");

QStringList NamesOf(const std::vector<InputDevice>& pDevices)
{
    QStringList names;
    for (const InputDevice& device : pDevices)
        names.append(device.name);
    return names;
}

QString DefaultOf(const std::vector<InputDevice>& pDevices)
{
    const auto found = std::find_if(
        pDevices.begin(), pDevices.end(), [](const auto& pDevice) { return pDevice.isDefault; });
    return found != pDevices.end() ? found->name : pDevices.front().name;
}

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
    const QString device = _ChooseDevice();
    if (device.isEmpty())
        return eExitFailed;
    if (m_options.isSaved)
        _SaveDevice(device);
    const QString refusal = _ApplyOptions();
    if (!refusal.isEmpty()) {
        console::PrintError(refusal);
        return eExitUsage;
    }
    _Listen(device);
    return m_exitCode;
}

// ---- Before -------------------------------------------------------------------------------------

/// The name of a device that is present; empty, and said in words, when there is none to listen to.
QString ListenCommand::_ChooseDevice()
{
    const std::vector<InputDevice> devices = listInputDevices();
    const QStringList names = NamesOf(devices);
    m_followsDefault =
        m_options.device == kDefault && !names.isEmpty() && !names.contains(kDefault);
    if (m_followsDefault)
        return DefaultOf(devices);
    if (!m_options.device.isEmpty()) {
        if (names.contains(m_options.device))
            return m_options.device;
        console::PrintError(listentexts::describeUnknownDevice(m_options.device, names));
        return {};
    }
    if (names.isEmpty()) {
        console::PrintError(listentexts::describeNoDevice());
        return {};
    }
    const QString stored = m_store.getDeviceName();
    if (names.contains(stored))
        return stored;
    const QString other = DefaultOf(devices);
    if (!stored.isEmpty())
        _Say(tr("the stored device \"%1\" is not there; taking \"%2\"").arg(stored, other));
    return other;
}

void ListenCommand::_SaveDevice(const QString& pName)
{
    m_store.setDeviceName(pName);
    if (!m_store.Save())
        console::PrintError(m_store.getError());
}

QString ListenCommand::_ApplyOptions()
{
    Configuration& configuration = m_store.getConfiguration();
    const QString refusal = m_analysis.Apply(configuration);
    if (refusal.isEmpty() && m_analysis.getFixedBPM() > 0.0)
        _Say(tr("with --fixed-bpm no beat is announced"));
    return refusal;
}

// ---- Meanwhile ----------------------------------------------------------------------------------

void ListenCommand::_Listen(const QString& pDevice)
{
    if (!SoundBackEnd::get())
        _Say(listentexts::describeNoServer());
    m_session = std::make_unique<CaptureSession>(m_store.getConfiguration());
    if (m_followsDefault)
        m_session->FollowDefault();
    m_summary = std::make_unique<LiveSummary>(*m_session, m_options.measures);
    if (!m_isLine)
        m_events = std::make_unique<LiveEvents>(
            m_options.format.value_or(eTextEvents), *m_session, *m_summary);
    _Connect();
    m_sinceStart.start();
    m_tick.start(kTickMs);
    // In the event loop, since it may end at once.
    QTimer::singleShot(0, m_session.get(), [this, pDevice] { m_session->Open(pDevice); });
    QCoreApplication::exec();
    m_tick.stop();
    _Clear();
    _Summarize();
    m_session.reset();
}

void ListenCommand::_Connect()
{
    CaptureSession* pSession = m_session.get();
    using S = CaptureSession;
    QObject::connect(
        pSession,
        &S::OnAnalyzerCreated,
        [this](AudioAnalyzer* pAnalyzer) {
            m_analysis.Apply(*pAnalyzer);
            const QString refusal = cli::CheckBand(m_store.getConfiguration(),
                                                   m_session->getSampleClock().getSampleRate());
            if (!refusal.isEmpty()) {
                console::PrintError(refusal);
                return _End(eExitFailed);
            }
            if (m_options.showsFormat)
                _Tell(listentexts::describeFormat(*m_session));
        });
    QObject::connect(
        pSession, &S::OnStateChanged, [this](eCaptureState pState) { _OnStateChanged(pState); });
    QObject::connect(
        pSession,
        &S::OnNotice,
        [this](eCaptureNotice pNotice) {
            _Say(listentexts::describeNotice(
                *m_session, pNotice, m_store.getConfiguration().getStopDetectionThreshold()));
        });
    QObject::connect(
        m_summary.get(), &LiveSummary::OnBeat, [this] { _OnBeat(); });
    QObject::connect(&m_tick, &QTimer::timeout, [this] { _OnTick(); });
    if (m_events)
        QObject::connect(m_events.get(), &LiveEvents::OnFailed, [this] { _End(eExitFailed); });
}

void ListenCommand::_OnStateChanged(eCaptureState pState)
{
    if (pState == eCaptureUnusable && !m_wasRunning) {
        console::PrintError(listentexts::describeUnusable(*m_session));
        return _End(eExitFailed);
    }
    const QString name = m_session->getDeviceName();
    _Say(listentexts::describeState(*m_session, m_heard == name));
    if (pState == eCaptureRunning) {
        m_wasRunning = true;
        m_heard = name;
    }
}

void ListenCommand::_OnTick()
{
    const bool isOver =
        m_options.duration > 0.0 && double(m_sinceStart.elapsed()) >= m_options.duration * 1000.0;
    if (interrupt::getSignal() != 0)
        return _End(eExitDone);
    if (isOver)
        return _End(m_session->getAnchorCount() > 0 ? eExitDone : eExitFailed);
    if (m_isLine)
        _DrawLine();
}

void ListenCommand::_OnBeat()
{
    m_sinceBeat.start();
    if (m_isLine)
        _DrawLine();
}

void ListenCommand::_DrawLine()
{
    const AudioAnalyzer* pAnalyzer = m_session->getAnalyzer();
    const bool isRunning = m_session->getState() == eCaptureRunning;
    cli::LiveValues values;
    values.isBeat = m_sinceBeat.isValid() && m_sinceBeat.elapsed() < kBeatMarkMs;
    values.bpm = pAnalyzer ? pAnalyzer->getCurrentBPM() : 0.0;
    values.accuracy = pAnalyzer ? pAnalyzer->getAccuracy() : 1.0;
    values.threshold = pAnalyzer ? pAnalyzer->getThreshold() : 0;
    values.peak = m_session->TakePeak();
    values.status = !isRunning               ? tr("waiting")
                    : m_session->isPlaying() ? tr("playing")
                                             : tr("stopped");
    values.seconds = m_summary->getSeconds();
    values.device = m_session->getDeviceName();
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
    }
    if (m_session->getAnchorCount() == 0)
        return _Say(tr("nothing was heard"));
    if (m_options.showsFormat)
        _Tell(listentexts::describeDrift(*m_session));
    if (m_options.measures)
        _Tell(listentexts::describeAnnouncements(m_summary->getAnnounceStatistics()));
    const double tempo = m_summary->getTempo();
    _Say(tr("%1: %2 long, %3, %4 beats (%5 real, %6 virtual)")
             .arg(m_session->getDeviceName(),
                  cli::Clock(m_summary->getSeconds()),
                  tempo > 0.0 ? tr("%1 BPM").arg(tempo, 0, 'f', 1) : tr("tempo unknown"),
                  QString::number(m_summary->getRealBeats() + m_summary->getVirtualBeats()),
                  QString::number(m_summary->getRealBeats()),
                  QString::number(m_summary->getVirtualBeats())));
}
