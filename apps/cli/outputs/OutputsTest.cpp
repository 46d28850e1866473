// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/outputs/OutputsTest.h>

#include <cmath>

using shared::ClockThread;

namespace {

constexpr int kTestTickMs = 20;
constexpr std::int64_t kLead = 300000;  ///< µs before the first beat
constexpr auto kTestPeriod = std::int64_t(60e6 / OutputsTest::kTempo);

}  // namespace

OutputsTest::OutputsTest(const QString& pName, double pOffset) : m_name(pName), m_offset(pOffset) {}

int OutputsTest::Run(std::unique_ptr<shared::OutputReceiver> pReceiver)
{
    QObject::connect(
        &m_outputs,
        &Outputs::OnStateChanged,
        [](const QString& pName, const QString& pWords) {
            console::PrintLine(QStringLiteral("%1: %2").arg(pName, pWords));
        });
    QObject::connect(&m_tick, &QTimer::timeout, [this] { _OnTick(); });
    m_start = ClockThread::getTime();
    m_outputs.Add(m_name, std::move(pReceiver), m_offset);
    m_thread.Start();
    m_tick.setTimerType(Qt::PreciseTimer);
    m_tick.start(kTestTickMs);
    QCoreApplication::exec();
    m_outputs.RemoveAll();
    m_thread.Stop();
    return m_exitCode;
}

void OutputsTest::_OnTick()
{
    const std::int64_t now = ClockThread::getTime();
    const bool isOpen = m_outputs.isOpen(m_name);
    if (interrupt::getSignal() != 0)
        return _End(eExitFailed, {});
    if (m_firstTime == 0)
        return _Await(now, isOpen);
    if (!isOpen)
        return _End(eExitFailed, tr("%1: it was lost").arg(m_name));
    // In the middle of what would be the last beat of all, so that each one has come.
    if (now - m_firstTime >= kBeats * kTestPeriod - kTestPeriod / 2) {
        m_clock.Restart(now);
        _End(eExitDone, tr("%1: %2 beats were sent").arg(m_name).arg(kBeats));
    }
}

void OutputsTest::_Await(std::int64_t pNow, bool pIsOpen)
{
    if (pIsOpen) {
        // When the first one is sent, which may be before the clock's beat.
        m_firstTime = pNow + kLead;
        m_clock.HoldAt(kTempo, m_firstTime - std::int64_t(std::llround(1000.0 * m_offset)));
    } else if (pNow - m_start > kPatience) {
        _End(eExitFailed, tr("%1: it was not reached").arg(m_name));
    }
}

void OutputsTest::_End(int pExitCode, const QString& pWords)
{
    if (!pWords.isEmpty())
        console::PrintLine(pWords);
    m_exitCode = pExitCode;
    QCoreApplication::quit();
}
