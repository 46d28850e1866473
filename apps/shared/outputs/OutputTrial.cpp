// SPDX-License-Identifier: MIT
#include <shared/outputs/OutputTrial.h>

#include <cmath>
#include <utility>

using shared::ClockThread;

namespace {

const QString kTried = QStringLiteral("tried");
constexpr int kTrialTickMs = 20;
constexpr std::int64_t kLead = 300000;  ///< µs before the first beat
constexpr auto kTrialPeriod = std::int64_t(60e6 / OutputTrial::kTempo);

std::int64_t TrialOffset(double pMilliSeconds)
{
    return std::llround(1000.0 * pMilliSeconds);
}

}  // namespace

OutputTrial::OutputTrial(std::unique_ptr<shared::OutputReceiver> pReceiver,
                         double pOffset,
                         QObject* pParent)
    : QObject(pParent), m_offset(pOffset), m_start(ClockThread::getTime())
{
    connect(&m_outputs,
            &Outputs::OnStateChanged,
            this,
            [this](const QString&, const QString& pWords) { Q_EMIT OnStateChanged(pWords); });
    connect(&m_tick, &QTimer::timeout, this, &OutputTrial::_OnTick);
    m_outputs.Add(kTried, std::move(pReceiver), m_offset);
    m_thread.Start();
    m_tick.setTimerType(Qt::PreciseTimer);
    m_tick.start(kTrialTickMs);
}

OutputTrial::~OutputTrial()
{
    m_outputs.RemoveAll();
}

bool OutputTrial::isOpen() const
{
    return m_outputs.isOpen(kTried);
}

void OutputTrial::setOffset(double pOffset)
{
    m_outputs.setOffset(kTried, pOffset);
    if (m_firstTime != 0)
        m_firstTime += TrialOffset(pOffset) - TrialOffset(m_offset);
    m_offset = pOffset;
}

void OutputTrial::_OnTick()
{
    const std::int64_t now = ClockThread::getTime();
    if (m_firstTime == 0)
        return _Await(now);
    if (!isOpen())
        return _End(false, tr("it was lost"));
    // In the middle of what would be the last beat of all, so that each one has come.
    if (now - m_firstTime >= kBeats * kTrialPeriod - kTrialPeriod / 2) {
        m_clock.Restart(now);
        _End(true, tr("%1 beats were sent").arg(kBeats));
    }
}

void OutputTrial::_Await(std::int64_t pNow)
{
    if (isOpen()) {
        // When the first one is sent, which may be before the clock's beat.
        m_firstTime = pNow + kLead;
        m_clock.HoldAt(kTempo, m_firstTime - TrialOffset(m_offset));
    } else if (pNow - m_start > kPatience) {
        _End(false, tr("it was not reached"));
    }
}

void OutputTrial::_End(bool pIsDone, const QString& pWords)
{
    m_tick.stop();
    m_outputs.RemoveAll();
    m_thread.Stop();
    Q_EMIT OnEnded(pIsDone, pWords);
}

#include "moc_OutputTrial.cpp"
