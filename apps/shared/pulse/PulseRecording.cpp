// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseRecording.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kFragmentsPerSecond = 100;
constexpr auto kServerDecides = std::uint32_t(-1);
constexpr qint64 kMicroSecondsPerSecond = 1000000;

std::size_t FrameSize(int pChannels)
{
    return std::size_t(pChannels) * sizeof(qint16);
}

PulseRecording& RecordingOf(void* pThis)
{
    return *static_cast<PulseRecording*>(pThis);
}

}  // namespace

PulseRecording::PulseRecording(std::shared_ptr<PulseConnection> pConnection,
                               std::function<void()> pTell)
    : m_connection(std::move(pConnection)), m_tell(std::move(pTell)), m_ring(kCapacity)
{
}

PulseRecording::~PulseRecording()
{
    Close();
}

bool PulseRecording::Open(const QByteArray& pSource, int pSampleRate, int pChannels)
{
    const PulseConnection::Lock lock(*m_connection);
    pa_context* pContext = m_connection->getContext();
    if (!pContext)
        return false;
    m_line = pulse::SoundLine(pSampleRate);
    m_mix = ChannelMix(pSampleRate);
    const auto channels = std::uint8_t(qBound(1, pChannels, int(PA_CHANNELS_MAX)));
    const pa_sample_spec format = {PA_SAMPLE_S16NE, std::uint32_t(pSampleRate), channels};
    m_pStream = pa_stream_new(pContext, "beat detection", &format, nullptr);
    if (!m_pStream)
        return false;
    pa_stream_set_state_callback(m_pStream, &_StateCallback, this);
    pa_stream_set_read_callback(m_pStream, &_DataCallback, this);
    pa_stream_set_suspended_callback(m_pStream, &_SuspendedCallback, this);
    pa_stream_set_moved_callback(m_pStream, &_MovedCallback, this);
    pa_stream_set_latency_update_callback(m_pStream, &_TimingCallback, this);
    pa_buffer_attr sizes = {};
    sizes.maxlength = kServerDecides;
    sizes.fragsize = std::uint32_t(pa_bytes_per_second(&format) / kFragmentsPerSecond);
    const auto flags = pa_stream_flags_t(PA_STREAM_DONT_MOVE | PA_STREAM_FIX_CHANNELS |
                                         PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE);
    return pa_stream_connect_record(m_pStream, pSource.constData(), &sizes, flags) == 0;
}

void PulseRecording::Close()
{
    const PulseConnection::Lock lock(*m_connection);
    if (!m_pStream)
        return;
    pa_stream_set_state_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_read_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_suspended_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_moved_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_latency_update_callback(m_pStream, nullptr, nullptr);
    pa_stream_disconnect(m_pStream);
    pa_stream_unref(std::exchange(m_pStream, nullptr));
}

void PulseRecording::setPaused(bool pIsPaused)
{
    const PulseConnection::Lock lock(*m_connection);
    if (!m_pStream || pa_stream_get_state(m_pStream) != PA_STREAM_READY)
        return;
    pa_operation* pOperation = pa_stream_cork(m_pStream, pIsPaused ? 1 : 0, nullptr, nullptr);
    if (pOperation)
        pa_operation_unref(pOperation);
}

// ---- The owner's side ---------------------------------------------------------------------------

bool PulseRecording::TakeNews()
{
    m_isTold = false;
    return m_hasEnded;
}

int PulseRecording::getSamplesReady() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return int(m_ring.getSize());
}

std::size_t PulseRecording::Read(qint16* pSamples, std::size_t pCount)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_ring.Read(pSamples, pCount);
}

std::optional<SoundPosition> PulseRecording::getPosition() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (!m_line.isKnown())
        return {};
    return SoundPosition{m_line.getInstant(m_ring.getRead()), m_ring.getLost()};
}

quint64 PulseRecording::getSamplesRead() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_ring.getRead() - m_ring.getLost();
}

// ---- libpulse's side ----------------------------------------------------------------------------

void PulseRecording::_OnState()
{
    const pa_stream_state_t state = pa_stream_get_state(m_pStream);
    if (!PA_STREAM_IS_GOOD(state))
        _End();
}

void PulseRecording::_OnData()
{
    const int channels = pa_stream_get_sample_spec(m_pStream)->channels;
    for (;;) {
        const void* pData = nullptr;
        std::size_t size = 0;
        if (pa_stream_peek(m_pStream, &pData, &size) < 0 || size == 0)
            break;
        _Write(static_cast<const qint16*>(pData), size / FrameSize(channels), channels);
        pa_stream_drop(m_pStream);
    }
    _Tell();
}

/// Without data it is a hole in the recording, which keeps its length.
void PulseRecording::_Write(const qint16* pFrames, std::size_t pCount, int pChannels)
{
    std::array<qint16, 1024> samples;
    while (pCount > 0) {
        const std::size_t some = std::min(pCount, samples.size());
        if (pFrames) {
            m_mix.Mix(pFrames, pChannels, some, samples.data());
            pFrames += some * std::size_t(pChannels);
        }
        pCount -= some;
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_ring.Write(pFrames ? samples.data() : nullptr, some);
    }
}

/// The server tells how old the sample was that it was to send next, at an instant of its clock;
/// what a monitor delivers may sound only later. libpulse's own interpolation of the same is off by
/// tens of milliseconds for seconds, since its clock runs before the first sample comes.
void PulseRecording::_OnTiming()
{
    const pa_timing_info* pInfo = pa_stream_get_timing_info(m_pStream);
    if (!pInfo || pInfo->write_index_corrupt != 0)
        return;
    const qint64 told =
        qint64(pInfo->timestamp.tv_sec) * kMicroSecondsPerSecond + pInfo->timestamp.tv_usec;
    const qint64 instant = told - qint64(pInfo->source_usec) + qint64(pInfo->sink_usec);
    const std::size_t frame = FrameSize(pa_stream_get_sample_spec(m_pStream)->channels);
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_line.Add(quint64(pInfo->write_index) / frame, quint64(instant));
}

/// A source that pauses is as good as gone.
void PulseRecording::_OnSuspended()
{
    if (pa_stream_is_suspended(m_pStream) > 0)
        _End();
}

void PulseRecording::_End()
{
    m_hasEnded = true;
    _Tell();
}

void PulseRecording::_Tell()
{
    if (!m_isTold.exchange(true))
        m_tell();
}

void PulseRecording::_StateCallback(pa_stream*, void* pThis)
{
    RecordingOf(pThis)._OnState();
}

void PulseRecording::_DataCallback(pa_stream*, std::size_t, void* pThis)
{
    RecordingOf(pThis)._OnData();
}

void PulseRecording::_SuspendedCallback(pa_stream*, void* pThis)
{
    RecordingOf(pThis)._OnSuspended();
}

void PulseRecording::_TimingCallback(pa_stream*, void* pThis)
{
    RecordingOf(pThis)._OnTiming();
}

/// It was asked not to be; the new source is another one.
void PulseRecording::_MovedCallback(pa_stream*, void* pThis)
{
    RecordingOf(pThis)._End();
}
