// SPDX-License-Identifier: MIT
#pragma once

#include <link/LinkSteering.h>
#include <memory>

namespace ableton {
class Link;
}  // namespace ableton

/// A place in the Link session of the local network, as long as it lives. Ages are seconds before
/// now, by the clock's own speed. Threads of its own do the talking.
class LinkSession
{
public:
    /// pBPM: the tempo of a session that nobody else is in.
    explicit LinkSession(double pBPM);
    ~LinkSession();
    LinkSession(const LinkSession&) = delete;
    LinkSession& operator=(const LinkSession&) = delete;

    /// The session as it was then, or as it would have been. [event loop]
    LinkView Look(double pAge, int pQuantum) const;
    /// A tempo counts from now on, so that nothing leaps; a beat stands at that age. [event loop]
    void Commit(const LinkChange& pChange, double pAge, int pQuantum);

private:
    std::unique_ptr<ableton::Link> m_pLink;
};
