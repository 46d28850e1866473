// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>

#include <QSemaphore>
#include <QStringList>

#include <atomic>
#include <functional>

/// What a receiver was told, as words; outlives the receiver. It does as the test wants.
struct ReceiverLog
{
    /// What was told since the last call.
    QString take()
    {
        const QString text = lines.join(QLatin1Char(' '));
        lines.clear();
        return text;
    }

    QStringList lines;
    QString state = QStringLiteral("there");
    std::atomic<bool> opens{true};
    std::atomic<bool> works{true};
    std::function<void()> onBeat = [] {};
    QSemaphore beats;  ///< a ticket for each, when it has been told
    QSemaphore opened;
    QSemaphore closed;
    std::atomic<int> division{1};
    std::atomic<bool> hearsSound{false};
};

/// A receiver that writes down what it is told.
class LoggedReceiver : public shared::OutputReceiver
{
public:
    explicit LoggedReceiver(ReceiverLog& pLog) : m_log(pLog) {}

    std::int32_t getDivision() const override { return m_log.division; }
    bool hearsSound() const override { return m_log.hearsSound; }
    bool Open() override
    {
        m_log.lines += m_log.opens ? QStringLiteral("open") : QStringLiteral("refuse");
        m_log.opened.release();
        return m_log.opens;
    }
    void Close() override
    {
        m_log.lines += QStringLiteral("close");
        m_log.closed.release();
    }
    QString getState() const override { return m_log.state; }
    bool Beat(const shared::OutputMoment& pMoment) override
    {
        m_log.onBeat();
        m_log.lines += QStringLiteral("%1%2")
                           .arg(pMoment.tick.beat)
                           .arg(pMoment.isTempoNew ? QStringLiteral("!") : QString());
        m_log.beats.release();
        return m_log.works;
    }
    bool Tick(const shared::OutputMoment& pMoment) override
    {
        m_log.lines += QStringLiteral("%1.%2").arg(pMoment.tick.beat).arg(pMoment.tick.place);
        return m_log.works;
    }
    bool Tempo(double pBPM) override
    {
        m_log.lines += QStringLiteral("%1BPM").arg(pBPM);
        return m_log.works;
    }
    bool Playing(bool pIsPlaying, const BeatClockState&) override
    {
        m_log.lines += pIsPlaying ? QStringLiteral("plays") : QStringLiteral("stands");
        return m_log.works;
    }
    bool Sound(const shared::OutputSound& pSound) override
    {
        m_log.lines += QStringLiteral("sound%1").arg(pSound.level);
        m_log.beats.release();
        return m_log.works;
    }
    bool Rest() override
    {
        m_log.lines += QStringLiteral("rest");
        return m_log.works;
    }

private:
    ReceiverLog& m_log;  ///< not owned
};
