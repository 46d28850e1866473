// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <deque>

namespace pulse {

/// A stream that consists of sound and of the pauses in which there was none in time.
class PlayedSpans
{
public:
    static constexpr std::size_t kLongest = 64;  ///< spans of sound that are kept

    /// So many samples of sound come next.
    void AddSound(quint64 pCount)
    {
        if (pCount > 0 && (m_isPaused || m_spans.empty()))
            m_spans.push_back({m_stream, m_sound});
        if (m_spans.size() > kLongest)
            m_spans.pop_front();
        m_isPaused = m_isPaused && pCount == 0;
        m_sound += pCount;
        m_stream += pCount;
    }

    /// So many samples of silence come next.
    void AddPause(quint64 pCount)
    {
        m_isPaused = m_isPaused || pCount > 0;
        m_stream += pCount;
    }

    /// How many samples of sound are before that place of the stream.
    quint64 getSound(quint64 pStream) const
    {
        quint64 limit = m_sound;
        for (auto span = m_spans.rbegin(); span != m_spans.rend(); ++span) {
            if (span->stream <= pStream)
                return std::min(limit, span->sound + (pStream - span->stream));
            limit = span->sound;
        }
        return limit;
    }

    /// Where in the stream the sample of sound of that number is.
    quint64 getPlace(quint64 pSound) const
    {
        for (auto span = m_spans.rbegin(); span != m_spans.rend(); ++span)
            if (span->sound <= pSound)
                return span->stream + (pSound - span->sound);
        return pSound;
    }

private:
    struct Span
    {
        quint64 stream;  ///< where it begins in the stream, samples
        quint64 sound;   ///< samples of sound before it
    };

    std::deque<Span> m_spans;
    quint64 m_stream = 0;  ///< samples so far
    quint64 m_sound = 0;   ///< samples of sound so far
    bool m_isPaused = false;
};

}  // namespace pulse
