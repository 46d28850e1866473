// SPDX-License-Identifier: MIT
#include <desktop/Termination.h>

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {

constexpr std::initializer_list<int> kSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t s_pipe = -1;

void OnSignal(int)
{
    const char byte = 0;
    // The pipe is not full: after the first signal the next one ends the program.
    [[maybe_unused]] const ssize_t written = ::write(s_pipe, &byte, 1);
}

}  // namespace

Termination::Termination(QObject* pParent) : QObject(pParent)
{
    if (::pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    s_pipe = m_pipe[1];
    m_pNotifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this, [this] {
        m_pNotifier->setEnabled(false);
        Q_EMIT OnRequested();
    });
    struct sigaction action = {};
    action.sa_handler = &OnSignal;
    action.sa_flags = int(SA_RESETHAND);
    for (const int signal : kSignals) {
        struct sigaction present = {};
        ::sigaction(signal, nullptr, &present);
        // nohup and background shells start programs with the signal ignored: leave it so.
        if (present.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
    // A file that may not grow any more is a write that fails, and is said.
    std::signal(SIGXFSZ, SIG_IGN);
}

Termination::~Termination()
{
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    s_pipe = -1;
    for (const int end : m_pipe)
        if (end >= 0)
            ::close(end);
}

#include "moc_Termination.cpp"
