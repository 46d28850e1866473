// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundBackEnd.h>
#include <shared/pulse/PulseConnection.h>

#include <QElapsedTimer>

#include <atomic>
#include <map>
#include <memory>
#include <pulse/pulseaudio.h>

/// The levels of all sources: the server sends nothing but the peaks of each, 25 times a second.
///
/// Sources that come are heard from the next TakePeaks() on; a server that goes and comes as well.
/// Nothing here waits for the server.
///
/// Threads: one.
class PulseLevels : public SoundLevels
{
public:
    static constexpr int kPeaksPerSecond = 25;
    static constexpr int kRetryMs = 1000;  ///< between two attempts to hear a source

    explicit PulseLevels(std::shared_ptr<PulseConnection> pConnection);
    ~PulseLevels() override;
    PulseLevels(const PulseLevels&) = delete;
    PulseLevels& operator=(const PulseLevels&) = delete;

    std::map<QString, double> TakePeaks() override;

private:
    /// The peaks of one source.
    struct Line
    {
        pa_stream* pStream = nullptr;    ///< [under PulseConnection::Lock, or on libpulse's thread]
        std::atomic<float> peak{-1.0F};  ///< since it was taken; negative = nothing was heard
    };

    void _FollowSources();
    void _Open(const QString& pName);
    static void _Close(Line& pLine);
    static bool _HasFailed(const Line& pLine);
    static void _OnData(pa_stream* pStream, std::size_t, void* pLine);

    const std::shared_ptr<PulseConnection> m_connection;
    std::map<QString, std::unique_ptr<Line>> m_lines;  ///< by the names of the sources
    QElapsedTimer m_sinceAttempt;
};
