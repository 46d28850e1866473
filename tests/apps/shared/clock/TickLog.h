// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockListener.h>

#include <QString>
#include <QStringList>

#include <vector>

/// Writes down what an output is told: ticks as "number@ms", and when the clock runs or stands.
class TickLog : public shared::ClockListener
{
public:
    void OnTick(const shared::ClockTick& pTick, const BeatClockState&) override
    {
        ticks.push_back(pTick);
        m_lines += QStringLiteral("%1@%2").arg(pTick.number).arg(pTick.time / 1000);
    }
    void OnRunningChanged(bool pIsRunning, const BeatClockState&) override
    {
        m_lines += pIsRunning ? QStringLiteral("runs") : QStringLiteral("stands");
    }

    /// What was written since the last call.
    QString take()
    {
        const QString text = m_lines.join(QLatin1Char(' '));
        m_lines.clear();
        return text;
    }

    std::vector<shared::ClockTick> ticks;

private:
    QStringList m_lines;
};
