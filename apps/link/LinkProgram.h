// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <link/LinkSession.h>
#include <link/LinkSteering.h>

/// Reads the beats that audio-analyzer announces, steers a Link session by them, and says in words
/// what becomes of it.
class LinkProgram
{
public:
    explicit LinkProgram(const LinkSteering::Options& pOptions);

    /// Until the end of the input or an interrupt. pInput: a descriptor that can be read.
    /// The exit code. [event loop]
    int Run(int pInput);

private:
    bool _Read(int pInput);
    void _Take(const QByteArray& pBytes);
    void _TakeLine(const QByteArray& pLine);
    void _TakeBeat(const HeardBeat& pBeat);
    void _Commit(const LinkChange& pChange, double pAge);
    void _TellSession();
    void _TellSureness();
    void _TellChange(const LinkChange& pChange, bool pWasNudging, double pError);
    void _TellBar(std::size_t pPeers);

    LinkSteering m_steering;
    LinkSession m_session;
    QByteArray m_rest;             ///< a line whose end has not come yet
    bool m_hasEvents = false;      ///< the input is of the right format
    bool m_hasUnreadable = false;  ///< and something in it is not
    bool m_isLate = false;         ///< the last beat was too old to be heeded
    bool m_isFailed = false;       ///< the input could not be read
    // ---- What was said last ----
    bool m_saidSure = false;
    bool m_saidSession = false;
    std::size_t m_saidPeers = 0;
    double m_saidTempo = 0.0;  ///< BPM
    int m_saidBar = 0;         ///< beats by which the session's one is ahead
};
