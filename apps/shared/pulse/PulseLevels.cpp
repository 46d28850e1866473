// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseLevels.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

PulseLevels::PulseLevels(std::shared_ptr<PulseConnection> pConnection)
    : m_connection(std::move(pConnection))
{
    m_sinceAttempt.start();
    _FollowSources();
}

PulseLevels::~PulseLevels()
{
    const PulseConnection::Lock lock(*m_connection);
    for (const auto& [name, pLine] : m_lines)
        _Close(*pLine);
}

std::map<QString, double> PulseLevels::TakePeaks()
{
    _FollowSources();
    std::map<QString, double> peaks;
    for (const auto& [name, pLine] : m_lines) {
        const float peak = pLine->peak.exchange(-1.0F);
        if (peak >= 0.0F)
            peaks[name] = std::min(double(peak), 1.0);
    }
    return peaks;
}

/// A line for each source that is there, and for no other.
void PulseLevels::_FollowSources()
{
    // A server that hangs is asked for nothing.
    if (!m_connection->isAnswering())
        return;
    const std::vector<SoundSource> sources = m_connection->getSources();
    const auto isThere = [&sources](const QString& pName) {
        return std::any_of(sources.begin(), sources.end(), [&](const SoundSource& pSource) {
            return pSource.name == pName;
        });
    };
    const bool mayRetry = m_sinceAttempt.hasExpired(kRetryMs);
    if (mayRetry)
        m_sinceAttempt.start();
    const PulseConnection::Lock lock(*m_connection);
    for (auto line = m_lines.begin(); line != m_lines.end();) {
        const bool stays = isThere(line->first) && !(mayRetry && _HasFailed(*line->second));
        if (!stays)
            _Close(*line->second);
        line = stays ? std::next(line) : m_lines.erase(line);
    }
    for (const SoundSource& source : sources)
        if (m_lines.count(source.name) == 0)
            _Open(source.name);
}

/// Its latency is that of a peak, so that none asks the source for more than a recording does.
void PulseLevels::_Open(const QString& pName)
{
    Line& line = *(m_lines[pName] = std::make_unique<Line>());
    pa_context* pContext = m_connection->getContext();
    if (!pContext)
        return;
    const pa_sample_spec format = {PA_SAMPLE_FLOAT32NE, std::uint32_t(kPeaksPerSecond), 1};
    line.pStream = pa_stream_new(pContext, "level", &format, nullptr);
    if (!line.pStream)
        return;
    pa_stream_set_read_callback(line.pStream, &_OnData, &line);
    constexpr auto kServerDecides = std::uint32_t(-1);
    pa_buffer_attr sizes = {};
    sizes.maxlength = kServerDecides;
    sizes.fragsize = sizeof(float);
    const auto flags =
        pa_stream_flags_t(PA_STREAM_DONT_MOVE | PA_STREAM_PEAK_DETECT | PA_STREAM_ADJUST_LATENCY);
    pa_stream_connect_record(line.pStream, pName.toUtf8().constData(), &sizes, flags);
}

void PulseLevels::_Close(Line& pLine)
{
    if (!pLine.pStream)
        return;
    pa_stream_set_read_callback(pLine.pStream, nullptr, nullptr);
    pa_stream_disconnect(pLine.pStream);
    pa_stream_unref(std::exchange(pLine.pStream, nullptr));
}

bool PulseLevels::_HasFailed(const Line& pLine)
{
    return !pLine.pStream || !PA_STREAM_IS_GOOD(pa_stream_get_state(pLine.pStream));
}

void PulseLevels::_OnData(pa_stream* pStream, std::size_t, void* pLine)
{
    std::atomic<float>& peak = static_cast<Line*>(pLine)->peak;
    for (;;) {
        const void* pData = nullptr;
        std::size_t size = 0;
        if (pa_stream_peek(pStream, &pData, &size) < 0 || size == 0)
            return;
        // Without data it is a hole.
        const auto* pPeaks = static_cast<const float*>(pData);
        const std::size_t count = pPeaks ? size / sizeof(float) : 0;
        float greatest = peak;
        for (std::size_t i = 0; i < count; ++i)
            greatest = std::max(greatest, std::fabs(pPeaks[i]));
        // What is taken meanwhile is told once more, at worst.
        peak = greatest;
        pa_stream_drop(pStream);
    }
}
