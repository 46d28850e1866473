// SPDX-License-Identifier: MIT
#include <cli/live/EventWriter.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

EventWriter::EventWriter(Forms pForms, const QString& pPath)
    : m_forms(std::move(pForms)), m_bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    m_isBroken = !m_output.Open(pPath);
    m_thread = std::thread([this] { _Run(); });
}

EventWriter::~EventWriter()
{
    End();
    ::close(m_bell);
}

void EventWriter::Write(const QByteArray& pLine)
{
    _Push({false, {}, pLine});
}

void EventWriter::Announce(const Announcement& pAnnouncement)
{
    _Push({true, pAnnouncement, {}});
}

void EventWriter::_Push(Event pEvent)
{
    m_events.Push(std::move(pEvent));
    eventfd_write(m_bell, 1);
}

void EventWriter::End()
{
    if (!m_thread.joinable())
        return;
    m_isEnding = true;
    eventfd_write(m_bell, 1);
    m_thread.join();
}

// ---- The writing thread -------------------------------------------------------------------------

void EventWriter::_Run()
{
    while (!m_isEnding) {
        pollfd bell = {m_bell, POLLIN, 0};
        ::poll(&bell, 1, -1);
        eventfd_t count = 0;
        eventfd_read(m_bell, &count);
        _WriteAll();
    }
    _WriteAll();
    Event left;
    while (m_events.Take(left))
        ++m_lost;
    m_lost += m_events.TakeLost();
}

void EventWriter::_WriteAll()
{
    Event event;
    while (!m_isBroken && m_events.Take(event)) {
        const std::uint64_t lost = m_events.TakeLost();
        m_lost += lost;
        const QByteArray loss = lost > 0 ? m_forms.loss(lost) : QByteArray();
        const bool isLossTold = loss.isEmpty() || _WriteLine(loss);
        const QByteArray line =
            event.isAnnouncement ? m_forms.announcement(event.announcement) : event.line;
        if (!isLossTold || (!line.isEmpty() && !_WriteLine(line)))
            return;
    }
}

/// No more than a pipe takes at once when it says that it takes anything.
bool EventWriter::_WriteLine(const QByteArray& pLine)
{
    if (!_AwaitReader()) {
        ++m_lost;
        return false;
    }
    m_isBroken = m_isBroken || !m_output.Write(pLine);
    return !m_isBroken;
}

/// False when the reader does not read and the program is ending.
bool EventWriter::_AwaitReader()
{
    for (;;) {
        pollfd files[] = {{m_output.getDescriptor(), POLLOUT, 0}, {m_bell, POLLIN, 0}};
        const int timeout = m_isEnding ? kPatienceMs : -1;
        // At the end the bell has rung for the last time.
        const int ready = ::poll(files, m_isEnding ? 1 : 2, timeout);
        if (files[0].revents != 0)
            return true;
        if (m_isEnding && ready == 0)
            return false;
        eventfd_t count = 0;
        if (!m_isEnding)
            eventfd_read(m_bell, &count);
    }
}
