// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputReceiver.h>

#include <QProcess>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <csignal>

/// An output that nothing is wrong with.
class CalmReceiver : public shared::OutputReceiver
{
public:
    bool Open() override { return ++opened == 1; }
    void Close() override {}
    QString getState() const override { return QStringLiteral("calm"); }
    bool Beat(const shared::OutputMoment& pMoment) override
    {
        const qint64 lateness = shared::ClockThread::getTime() - pMoment.tick.time;
        worst = std::max<qint64>(worst, lateness);
        missed += last >= 0 ? int(pMoment.tick.number - last - 1) : 0;
        breaches += pMoment.tick.number > last ? 0 : 1;
        last = pMoment.tick.number;
        ++beats;
        return true;
    }

    std::atomic<int> opened{0};
    std::atomic<int> beats{0};
    std::atomic<int> missed{0};  ///< too old when their turn came
    std::atomic<int> breaches{0};
    std::atomic<qint64> worst{0};  ///< µs
    qint64 last = -1;
};

/// A program that is sent beats, and what came there since it was asked last.
class FaultyProgram
{
public:
    static constexpr int kTimeoutMs = 60000;  // only a hang takes that long

    explicit FaultyProgram(int pPort) : m_port(pPort) {}
    ~FaultyProgram() { Kill(); }

    void Start()
    {
        m_process.start(QStringLiteral(FAULTY_RECEIVER), {QString::number(m_port)});
        m_process.waitForStarted(kTimeoutMs);
    }
    void Kill()
    {
        m_process.kill();
        m_process.waitForFinished(kTimeoutMs);
    }
    void Signal(int pSignal) { ::kill(pid_t(m_process.processId()), pSignal); }
    void Do(const char* pCommand) { m_process.write(pCommand); }
    void Forget() { m_process.readAllStandardOutput(); }
    bool hears(const char* pWhat)
    {
        QByteArray heard;
        return QTest::qWaitFor(
            [&] {
                heard += m_process.readAllStandardOutput();
                return heard.contains(pWhat);
            },
            kTimeoutMs);
    }

private:
    const int m_port;
    QProcess m_process;
};
