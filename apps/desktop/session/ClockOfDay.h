// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockThread.h>

#include <QDateTime>
#include <QString>

#include <cstdint>

namespace desktop {

/// The time of day of an instant of the system's monotonic clock, µs.
inline QDateTime toClockOfDay(std::int64_t pTime)
{
    return QDateTime::currentDateTime().addMSecs((pTime - shared::ClockThread::getTime()) / 1000);
}

/// 21:04:05
inline QString describeClock(std::int64_t pTime)
{
    return toClockOfDay(pTime).toString(QStringLiteral("HH:mm:ss"));
}

}  // namespace desktop
