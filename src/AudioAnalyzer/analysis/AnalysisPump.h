// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/BeatFollower.h>

#include <QtGlobal>

#include <cstddef>
#include <vector>

class Configuration;

/// Drives an analyzer by samples alone, for audio that comes faster or slower than it sounds.
///
/// While a block is analysed the thread's clock stands at the block's end, counted from a constant,
/// so the same samples and settings give the same events on every run and machine, in whatever
/// portions they come. No event loop is needed: beats are told by the follower, not by timers.
///
///     while (const std::size_t count = source.Read(pump.getSpace(), pump.getSpaceCount()))
///         pump.Commit(count);
///     pump.Finish();
///
/// Threads: one at a time.
class AUDIOANALYZER_EXPORT AnalysisPump
{
public:
    /// pConfiguration is not owned and must outlive the pump; pSampleRate in Hz, 20 at least.
    AnalysisPump(Configuration* pConfiguration, int pSampleRate);
    AnalysisPump(const AnalysisPump&) = delete;
    AnalysisPump& operator=(const AnalysisPump&) = delete;

    /// To be set up before the first block is complete: the analysis starts with it.
    AudioAnalyzer& getAnalyzer() { return m_analyzer; }
    /// Tells the beats; it follows the analyzer from the first sample on.
    BeatFollower& getFollower() { return m_follower; }

    /// Where the next samples go: mono, signed 16 bits. [valid until Commit()]
    qint16* getSpace() { return m_block.data() + m_fill; }
    /// Samples that fit there, 1 at least.
    std::size_t getSpaceCount() const { return m_block.size() - m_fill; }
    /// The first pCount samples of the space are there, at most getSpaceCount(). Analyses the block
    /// that they complete. [audio path: no allocation]
    void Commit(std::size_t pCount);
    /// The audio has ended: gives the analyzer silence until the last beat window has closed, since
    /// a beat is only chosen then. Nothing that lies in that silence is told. To be called once.
    void Finish();

    int getSampleRate() const { return m_sampleRate; }  ///< Hz
    std::size_t getBlockSize() const { return m_block.size(); }
    quint64 getSampleCount() const { return m_sampleCount; }  ///< committed so far
    /// First sample of the block that is being analysed. [during the analyzer's signals]
    quint64 getBlockIndex() const { return m_fedCount - m_block.size(); }

private:
    void _Feed();

    int m_sampleRate;  ///< Hz
    AudioAnalyzer m_analyzer;
    BeatFollower m_follower;
    std::vector<qint16> m_block;  ///< one pulse block
    std::size_t m_fill = 0;       ///< samples
    quint64 m_sampleCount = 0;    ///< samples committed
    quint64 m_fedCount = 0;       ///< given to the analyzer, silence behind the end included
};
