// SPDX-License-Identifier: MIT
#include <shared/pulse/PulsePlayback.h>

#include <utility>

namespace {

constexpr auto kAsTheServerLikes = std::uint32_t(-1);
constexpr int kFadesPerSecond = 100;
constexpr qint64 kTimevalSecond = 1000000;  // µs

PulsePlayback& PlaybackOf(void* pThis)
{
    return *static_cast<PulsePlayback*>(pThis);
}

}  // namespace

PulsePlayback::PulsePlayback(std::shared_ptr<PulseConnection> pConnection, int pSampleRate)
    : m_connection(std::move(pConnection)), m_rate(pSampleRate), m_ring(std::size_t(pSampleRate)),
      m_line(pSampleRate), m_fader(pSampleRate / kFadesPerSecond)
{
}

PulsePlayback::~PulsePlayback()
{
    const PulseConnection::Lock lock(*m_connection);
    if (!m_pStream)
        return;
    pa_stream_set_state_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_write_callback(m_pStream, nullptr, nullptr);
    pa_stream_set_latency_update_callback(m_pStream, nullptr, nullptr);
    pa_stream_disconnect(m_pStream);
    pa_stream_unref(std::exchange(m_pStream, nullptr));
}

bool PulsePlayback::Open()
{
    const PulseConnection::Lock lock(*m_connection);
    pa_context* pContext = m_connection->getContext();
    if (!pContext)
        return false;
    const pa_sample_spec format = {PA_SAMPLE_S16NE, std::uint32_t(m_rate), 1};
    m_pStream = pa_stream_new(pContext, "file", &format, nullptr);
    if (!m_pStream)
        return false;
    m_lastAsked = pa_rtclock_now();
    pa_stream_set_state_callback(m_pStream, &_StateCallback, this);
    pa_stream_set_write_callback(m_pStream, &_WantedCallback, this);
    pa_stream_set_latency_update_callback(m_pStream, &_TimingCallback, this);
    pa_buffer_attr sizes = {};
    sizes.maxlength = sizes.prebuf = sizes.minreq = kAsTheServerLikes;
    sizes.tlength = std::uint32_t(pa_usec_to_bytes(kLatencyMs * PA_USEC_PER_MSEC, &format));
    const auto flags = pa_stream_flags_t(PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE);
    return pa_stream_connect_playback(m_pStream, nullptr, &sizes, flags, nullptr, nullptr) == 0;
}

// ---- The owner's side ---------------------------------------------------------------------------

SoundPlayback::eState PulsePlayback::getState() const
{
    if (m_hasEnded)
        return eRefused;
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (qint64(pa_rtclock_now() - m_lastAsked) > kStuckUs)
        return eStuck;
    return m_isAsked ? eRunning : eOpening;
}

std::size_t PulsePlayback::getRoom() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return std::size_t(m_rate) - m_ring.getSize();
}

void PulsePlayback::Write(const qint16* pSamples, std::size_t pCount)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_ring.Write(pSamples, pCount);
}

std::optional<quint64> PulsePlayback::getHeard(quint64 pNow) const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (!m_line.isKnown())
        return {};
    return m_spans.getSound(m_line.getIndex(pNow));
}

quint64 PulsePlayback::getInstant(quint64 pSample) const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_line.isKnown() ? m_line.getInstant(m_spans.getPlace(pSample)) : 0;
}

void PulsePlayback::setMuted(bool pIsMuted)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_fader.setOpen(!pIsMuted);
    if (!m_isAsked)
        m_fader.Leap();
}

// ---- libpulse's side ----------------------------------------------------------------------------

void PulsePlayback::_OnState()
{
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(m_pStream)))
        m_hasEnded = true;
}

void PulsePlayback::_OnWanted(std::size_t pBytes)
{
    m_wanted.assign(pBytes / sizeof(qint16), 0);
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        const std::size_t count = m_ring.Read(m_wanted.data(), m_wanted.size());
        m_fader.Apply(m_wanted.data(), count);
        m_spans.AddSound(count);
        m_spans.AddPause(m_wanted.size() - count);
        m_isAsked = true;
        m_lastAsked = pa_rtclock_now();
    }
    pa_stream_write(
        m_pStream, m_wanted.data(), m_wanted.size() * sizeof(qint16), nullptr, 0, PA_SEEK_RELATIVE);
}

/// The server tells which sample it took last at an instant of its clock, and how long what it took
/// has until it sounds. While it plays nothing, that says nothing.
void PulsePlayback::_OnTiming()
{
    const pa_timing_info* pInfo = pa_stream_get_timing_info(m_pStream);
    if (!pInfo || pInfo->read_index_corrupt != 0 || pInfo->playing == 0 || pInfo->read_index <= 0)
        return;
    const qint64 told = qint64(pInfo->timestamp.tv_sec) * kTimevalSecond + pInfo->timestamp.tv_usec;
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_line.Add(quint64(pInfo->read_index) / sizeof(qint16),
               quint64(told + qint64(pInfo->sink_usec)));
}

void PulsePlayback::_StateCallback(pa_stream*, void* pThis)
{
    PlaybackOf(pThis)._OnState();
}

void PulsePlayback::_WantedCallback(pa_stream*, std::size_t pBytes, void* pThis)
{
    PlaybackOf(pThis)._OnWanted(pBytes);
}

void PulsePlayback::_TimingCallback(pa_stream*, void* pThis)
{
    PlaybackOf(pThis)._OnTiming();
}
