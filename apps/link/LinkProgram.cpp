// SPDX-License-Identifier: MIT
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <shared/text/Text.h>

#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <link/LinkProgram.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr double kFirstTempo = 120.0;  // BPM of a session that nobody else is in
constexpr double kOldest = 1.0;        // seconds after which a beat is of no use
constexpr int kPollMs = 200;
constexpr int kLongestLine = 65536;

/// Of the system's monotonic clock.
double Now()
{
    using Seconds = std::chrono::duration<double>;
    return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// The session matters, not its reader: who closed the output is not told.
void Say(const QString& pText)
{
    std::fputs((pText + QLatin1Char('\n')).toLocal8Bit().constData(), stdout);
    std::fflush(stdout);
}

void SayError(const QString& pText)
{
    std::fprintf(stderr, "audio-analyzer-link: %s\n", pText.toLocal8Bit().constData());
}

QString PeersText(std::size_t pPeers)
{
    return pPeers == 0 ? tr("alone in the session") : tr("peers: %1").arg(qulonglong(pPeers));
}

}  // namespace

LinkProgram::LinkProgram(const LinkSteering::Options& pOptions)
    : m_steering(pOptions), m_session(kFirstTempo)
{
}

int LinkProgram::Run(int pInput)
{
    bool isOpen = true;
    while (isOpen && interrupt::getSignal() == 0) {
        _TellSession();
        const LinkView view = m_session.Look(0.0, m_steering.getOptions().quantum);
        _Commit(m_steering.Wait(Now(), view), 0.0);
        pollfd input = {pInput, POLLIN, 0};
        if (::poll(&input, 1, kPollMs) > 0)
            isOpen = _Read(pInput);
    }
    _Commit(m_steering.Finish(m_session.Look(0.0, m_steering.getOptions().quantum)), 0.0);
    interrupt::Accept();
    return m_isFailed || (m_hasUnreadable && !m_hasEvents) ? eExitFailed : eExitDone;
}

// ---- Reading ------------------------------------------------------------------------------------

/// False at the end of the input.
bool LinkProgram::_Read(int pInput)
{
    char bytes[4096];
    const ssize_t count = ::read(pInput, bytes, sizeof(bytes));
    if (count > 0)
        _Take(QByteArray::fromRawData(bytes, int(count)));
    else if (count < 0 && errno != EINTR && errno != EAGAIN) {
        SayError(tr("the input cannot be read: %1").arg(QString::fromLocal8Bit(strerror(errno))));
        m_isFailed = true;
        return false;
    }
    return count != 0;
}

void LinkProgram::_Take(const QByteArray& pBytes)
{
    m_rest += pBytes;
    for (int end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        _TakeLine(m_rest.left(end));
        m_rest.remove(0, end + 1);
    }
    // What is left of an endless line is no line of ours either.
    if (m_rest.size() > kLongestLine) {
        _TakeLine(m_rest);
        m_rest.clear();
    }
}

void LinkProgram::_TakeLine(const QByteArray& pLine)
{
    const HeardLine line = parseHeardLine(pLine);
    if (line.kind != HeardLine::eUnreadable)
        m_hasEvents = true;
    else if (!m_hasUnreadable) {
        m_hasUnreadable = true;
        SayError(tr("that is no line of \"audio-analyzer listen --format ndjson\"; such lines are "
                    "left out"));
    }
    if (line.kind == HeardLine::eBeat)
        _TakeBeat(line.beat);
}

void LinkProgram::_TakeBeat(const HeardBeat& pBeat)
{
    const double age = Now() - pBeat.time;
    const bool isLate = std::fabs(age) > kOldest;
    if (isLate && !m_isLate)
        SayError(tr("beats come %1 s after their instant and are left out").arg(age, 0, 'f', 1));
    m_isLate = isLate;
    if (isLate)
        return;
    const LinkView view = m_session.Look(age, m_steering.getOptions().quantum);
    const bool wasNudging = m_steering.isNudging();
    const LinkChange change = m_steering.Hear(pBeat, view);
    _TellSession();
    _TellSureness();
    _Commit(change, age);
    if (m_steering.isSure()) {
        _TellChange(change, wasNudging, m_steering.getError() * 60.0 / view.bpm);
        _TellBar(view.peers);
    }
}

void LinkProgram::_Commit(const LinkChange& pChange, double pAge)
{
    m_session.Commit(pChange, pAge, m_steering.getOptions().quantum);
    if (pChange.bpm > 0.0)
        m_saidTempo = pChange.bpm;
}

// ---- Words --------------------------------------------------------------------------------------

/// What others do: who is there, and which tempo they set.
void LinkProgram::_TellSession()
{
    const LinkView view = m_session.Look(0.0, m_steering.getOptions().quantum);
    if (!m_saidSession || view.peers != m_saidPeers)
        Say(PeersText(view.peers));
    if (!m_saidSession)
        Say(tr("tempo %1 BPM, the session's").arg(view.bpm, 0, 'f', 2));
    else if (!isSameTempo(view.bpm, m_saidTempo))
        Say(tr("tempo %1 BPM, from another peer").arg(view.bpm, 0, 'f', 2));
    m_saidSession = true;
    m_saidPeers = view.peers;
    m_saidTempo = view.bpm;
}

void LinkProgram::_TellSureness()
{
    if (m_steering.isSure() == m_saidSure)
        return;
    m_saidSure = m_steering.isSure();
    Say(m_saidSure ? tr("sure of the beat")
                   : tr("not sure of the beat: the session is left alone"));
}

/// pError: seconds by which the session is ahead.
void LinkProgram::_TellChange(const LinkChange& pChange, bool pWasNudging, double pError)
{
    if (pChange.phase == LinkChange::eRequest)
        Say(tr("the session begins its bar with the music"));
    else if (pChange.phase == LinkChange::eForce)
        Say(tr("the session's beat is forced to the music's"));
    const QString tempo = QString::number(pChange.bpm, 'f', 2);
    const bool isNudging = m_steering.isNudging();
    if (isNudging && !pWasNudging)
        Say((pError > 0.0 ? tr("%1 ms ahead: nudged at %2 BPM")
                          : tr("%1 ms behind: nudged at %2 BPM"))
                .arg(std::lround(std::fabs(pError) * 1000.0))
                .arg(tempo));
    else if (!isNudging && pWasNudging)
        Say(tr("in step at %1 BPM").arg(tempo));
    else if (!isNudging && pChange.bpm > 0.0)
        Say(tr("tempo %1 BPM, from the music").arg(tempo));
}

/// A bar that is off takes too long to be nudged.
void LinkProgram::_TellBar(std::size_t pPeers)
{
    const int bar = pPeers == 0 ? 0 : int(std::lround(m_steering.getError()));
    if (bar != 0 && bar != m_saidBar)
        Say(tr("the session's bar is %1 beats from the music's, and stays so without --force")
                .arg(std::abs(bar)));
    m_saidBar = bar;
}
