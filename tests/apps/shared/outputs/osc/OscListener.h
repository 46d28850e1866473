// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QStringList>

#include <cstring>
#include <lo/lo.h>

/// A real receiver on loopback, at a port that the system chooses. What it gets becomes words:
/// "/address types values", with "@seconds.fraction" of its time tag when it came in a bundle.
class OscListener
{
public:
    explicit OscListener(int pProtocol = LO_UDP, const char* pPort = nullptr)
        : m_server(lo_server_new_with_proto(pPort, pProtocol, nullptr))
    {
        if (m_server == nullptr)
            qFatal("no port for a receiver");
        lo_server_enable_queue(m_server, 0, 1);
        lo_server_add_method(m_server, nullptr, nullptr, &OscListener::_Note, this);
    }
    ~OscListener() { lo_server_free(m_server); }
    OscListener(const OscListener&) = delete;
    OscListener& operator=(const OscListener&) = delete;

    int getPort() const { return lo_server_get_port(m_server); }

    /// The next so many messages, one a line, when they have come.
    QString take(int pCount)
    {
        // One call accepts a connection, the next one reads from it.
        constexpr int kAwhileMs = 5;
        const QDeadlineTimer patience(60000);
        while (m_messages.size() < pCount && !patience.hasExpired())
            lo_server_recv_noblock(m_server, kAwhileMs);
        if (m_messages.size() < pCount)
            return QStringLiteral("no more came behind: ") + m_messages.join(QLatin1Char('\n'));
        const QStringList taken = m_messages.mid(0, pCount);
        m_messages = m_messages.mid(pCount);
        return taken.join(QLatin1Char('\n'));
    }

private:
    static int _Note(const char* pPath,
                     const char* pTypes,
                     lo_arg** pValues,
                     int pCount,
                     lo_message pMessage,
                     void* pSelf)
    {
        QString line = QStringLiteral("%1 %2").arg(QLatin1String(pPath), QLatin1String(pTypes));
        for (int i = 0; i < pCount; ++i)
            line += QStringLiteral(" %1").arg(_NumberOf(pTypes[i], pValues[i]));
        const lo_timetag tag = lo_message_get_timestamp(pMessage);
        if (tag.sec != 0)
            line += QStringLiteral(" @%1+%2").arg(tag.sec).arg(tag.frac);
        static_cast<OscListener*>(pSelf)->m_messages += line;
        return 0;
    }
    /// The library's pointers are aligned to the packet's four bytes, not to those of a double.
    static double _NumberOf(char pType, const void* pValue)
    {
        const bool isLong = pType == 'h' || pType == 'd';
        lo_arg value = {};
        std::memcpy(&value, pValue, isLong ? sizeof(value.d) : sizeof(value.f));
        return pType == 'i'   ? value.i
               : pType == 'h' ? double(value.h)
               : pType == 'd' ? value.d
                              : double(value.f);
    }

    lo_server m_server;
    QStringList m_messages;
};
