// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace shared {

/// Sends the process's standard error to nowhere while it lives.
///
/// The MP3 decoder behind libsndfile prints notes of its own on damaged files. A host says what is
/// wrong in one line of its own instead.
class QuietStandardError
{
public:
    QuietStandardError()
    {
        const int sink = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (sink < 0)
            return;
        std::fflush(stderr);
        m_saved = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
        if (m_saved >= 0)
            ::dup2(sink, STDERR_FILENO);
        ::close(sink);
    }
    ~QuietStandardError()
    {
        if (m_saved < 0)
            return;
        std::fflush(stderr);
        ::dup2(m_saved, STDERR_FILENO);
        ::close(m_saved);
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

private:
    int m_saved = -1;  ///< copy of standard error; -1 = nothing to put back
};

}  // namespace shared
