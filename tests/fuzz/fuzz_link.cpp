// SPDX-License-Identifier: MIT
#include <QByteArray>
#include <QList>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <link/LinkSteering.h>

// Fuzz target of the lines that audio-analyzer-link reads: any bytes are beats that can be, or
// none, and whatever they are, a session is told what it can be told.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

void checkBeat(const HeardBeat& pBeat)
{
    require(std::isfinite(pBeat.time) && pBeat.time >= 0.0, "a time cannot be");
    require(pBeat.bpm >= 0.0 && pBeat.bpm < 1000.0, "a tempo cannot be");
    require(pBeat.beatInBar >= 1 && pBeat.beatInBar <= 64, "a bar cannot be");
    require(pBeat.confidence >= 0.0 && pBeat.confidence <= 1.0, "a confidence cannot be");
}

/// A session that does what it is told.
class Session
{
public:
    explicit Session(const LinkSteering::Options& pOptions) : m_steering(pOptions)
    {
        m_view.peers = pOptions.isForced ? 1 : 0;
        m_view.bpm = 120.0;
    }

    void Hear(const HeardBeat& pBeat)
    {
        const LinkChange change = m_steering.Hear(pBeat, m_view);
        require(change.bpm >= 0.0 && change.bpm < 1020.0, "a tempo cannot be told");
        require(change.beat >= 0.0 && change.beat < m_steering.getOptions().quantum,
                "a beat cannot be told");
        if (change.bpm > 0.0)
            m_view.bpm = change.bpm;
        if (change.phase != LinkChange::eKeep)
            m_view.phase = change.beat;
        m_view.phase = std::fmod(m_view.phase + 1.1, m_steering.getOptions().quantum);
    }

private:
    LinkSteering m_steering;
    LinkView m_view;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session alone({4, 0.5, 2, false});
    Session forced({3, 0.0, 1, true});
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    for (const QByteArray& text : bytes.split('\n')) {
        const HeardLine line = parseHeardLine(text);
        if (line.kind != HeardLine::eBeat)
            continue;
        checkBeat(line.beat);
        alone.Hear(line.beat);
        forced.Hear(line.beat);
    }
    return 0;
}
