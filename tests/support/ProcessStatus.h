// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QtTest>

/// What the kernel tells of another process, to wait for instead of for a while.
namespace processstatus {

constexpr int kTimeoutMs = 60000;

/// A field of /proc/.../status; empty once the process is gone.
inline QByteArray Read(qint64 pProcess, const QByteArray& pField)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(pProcess));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith(pField + ':'))
            return line.mid(pField.size() + 1).trimmed();
    return QByteArray();
}

/// Waits until the process has a handler for a signal.
inline bool WaitForHandler(qint64 pProcess, int pSignal)
{
    return QTest::qWaitFor(
        [&] {
            const quint64 caught = Read(pProcess, "SigCgt").toULongLong(nullptr, 16);
            return (caught >> (pSignal - 1) & 1U) != 0;
        },
        kTimeoutMs);
}

/// Waits until the main thread of the process has gone to sleep that often, as an event loop does
/// in each of its rounds.
inline bool WaitForRounds(qint64 pProcess, int pCount)
{
    const auto getRounds = [&] { return Read(pProcess, "voluntary_ctxt_switches").toInt(); };
    const int start = getRounds();
    return QTest::qWaitFor([&] { return getRounds() >= start + pCount; }, kTimeoutMs);
}

}  // namespace processstatus
