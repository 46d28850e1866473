// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundPlayback.h>
#include <shared/pulse/PulseConnection.h>
#include <shared/pulse/detail/Fader.h>
#include <shared/pulse/detail/PlayedSpans.h>
#include <shared/pulse/detail/SampleRing.h>
#include <shared/pulse/detail/SoundLine.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <pulse/pulseaudio.h>
#include <vector>

/// One stream to the sound server's default output: mono, 16 bits.
///
/// The owner fills a ring, from which libpulse's thread takes what the server asks for, and silence
/// where the ring is empty. The server tells now and then which sample it has and when that sounds.
/// Nothing here waits for it.
class PulsePlayback : public SoundPlayback
{
public:
    static constexpr int kLatencyMs = 100;       ///< between the ring and the ear, as is asked for
    static constexpr qint64 kStuckUs = 3000000;  ///< without a request

    PulsePlayback(std::shared_ptr<PulseConnection> pConnection, int pSampleRate);
    ~PulsePlayback() override;

    /// False when there is no server. Whether there is an output shows later. To be called once.
    bool Open();

    eState getState() const override;
    std::size_t getRoom() const override;
    void Write(const qint16* pSamples, std::size_t pCount) override;
    std::optional<quint64> getHeard(quint64 pNow) const override;
    quint64 getInstant(quint64 pSample) const override;
    void setMuted(bool pIsMuted) override;

private:
    void _OnState();
    void _OnWanted(std::size_t pBytes);
    void _OnTiming();

    static void _StateCallback(pa_stream*, void* pThis);
    static void _WantedCallback(pa_stream*, std::size_t pBytes, void* pThis);
    static void _TimingCallback(pa_stream*, void* pThis);

    const std::shared_ptr<PulseConnection> m_connection;
    const int m_rate;                ///< Hz
    pa_stream* m_pStream = nullptr;  ///< [under PulseConnection::Lock, or on libpulse's thread]
    std::vector<qint16> m_wanted;    ///< [on libpulse's thread]
    std::atomic<bool> m_hasEnded{false};

    mutable std::mutex m_mutex;  ///< guards all below
    pulse::SampleRing m_ring;
    pulse::SoundLine m_line;
    pulse::PlayedSpans m_spans;
    pulse::Fader m_fader;
    bool m_isAsked = false;     ///< for samples, at least once
    pa_usec_t m_lastAsked = 0;  ///< µs of libpulse's clock; or since it was opened
};
