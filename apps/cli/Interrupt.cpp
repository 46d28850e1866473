// SPDX-License-Identifier: MIT
#include <cli/Interrupt.h>

#include <csignal>
#include <initializer_list>

namespace {

volatile std::sig_atomic_t s_signal = 0;

void OnSignal(int pSignal)
{
    s_signal = pSignal;
}

}  // namespace

namespace interrupt {

void Install()
{
    struct sigaction action = {};
    action.sa_handler = &OnSignal;
    // Without SA_RESTART, so that a blocking read ends as well.
    action.sa_flags = int(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction present = {};
        ::sigaction(signal, nullptr, &present);
        // nohup and background shells start programs with the signal ignored: leave it so.
        if (present.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

int getSignal()
{
    return s_signal;
}

void Accept()
{
    s_signal = 0;
}

void Finish()
{
    if (s_signal == 0)
        return;
    std::signal(s_signal, SIG_DFL);
    std::raise(s_signal);
}

}  // namespace interrupt
