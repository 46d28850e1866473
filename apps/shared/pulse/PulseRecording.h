// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/ChannelMix.h>

#include <shared/capture/SoundBackEnd.h>
#include <shared/pulse/PulseConnection.h>
#include <shared/pulse/detail/SampleRing.h>
#include <shared/pulse/detail/SoundLine.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <pulse/pulseaudio.h>

/// One recording of one source, never of another: mono, 16 bits, in fragments of 10 ms.
///
/// The server gives all channels that the source has, since its own mean of channels that work
/// against each other would be silence; ChannelMix makes them one.
///
/// libpulse's thread puts the samples into a ring and tells the owner once; the owner's thread
/// takes them. Nothing here waits for the server.
class PulseRecording
{
public:
    static constexpr int kCapacity = 1 << 17;  ///< samples, 2.7 s at 48000 Hz

    /// pTell is called on libpulse's thread when there is something anew, and then not again before
    /// TakeNews(). It must not call back.
    PulseRecording(std::shared_ptr<PulseConnection> pConnection, std::function<void()> pTell);
    ~PulseRecording();
    PulseRecording(const PulseRecording&) = delete;
    PulseRecording& operator=(const PulseRecording&) = delete;

    /// pChannels is how many the source is thought to have. False when there is no server. Whether
    /// the source is there shows later. To be called once.
    bool Open(const QByteArray& pSource, int pSampleRate, int pChannels);
    /// Nothing arrives any more; what has arrived may still be read.
    void Close();
    void setPaused(bool pIsPaused);

    /// Has pTell called again. True when the recording has ended by itself.
    bool TakeNews();
    int getSamplesReady() const;
    /// Returns how many there were, at most pCount. [audio path: no allocation]
    std::size_t Read(qint16* pSamples, std::size_t pCount);
    /// Of the samples read last.
    std::optional<SoundPosition> getPosition() const;
    quint64 getSamplesRead() const;

private:
    void _OnState();
    void _OnData();
    void _Write(const qint16* pFrames, std::size_t pCount, int pChannels);
    void _OnTiming();
    void _OnSuspended();
    void _End();
    void _Tell();

    static void _StateCallback(pa_stream*, void* pThis);
    static void _DataCallback(pa_stream*, std::size_t, void* pThis);
    static void _SuspendedCallback(pa_stream*, void* pThis);
    static void _TimingCallback(pa_stream*, void* pThis);
    static void _MovedCallback(pa_stream*, void* pThis);

    const std::shared_ptr<PulseConnection> m_connection;
    const std::function<void()> m_tell;
    pa_stream* m_pStream = nullptr;  ///< [under PulseConnection::Lock, or on libpulse's thread]
    std::atomic<bool> m_isTold{false};
    std::atomic<bool> m_hasEnded{false};

    mutable std::mutex m_mutex;  ///< guards all below
    pulse::SampleRing m_ring;
    pulse::SoundLine m_line;

    ChannelMix m_mix{1000};  ///< [on libpulse's thread]
};
