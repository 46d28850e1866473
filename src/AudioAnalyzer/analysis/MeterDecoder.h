// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <vector>

class OnsetLevels;

namespace detail {
class MeterEvidence;
class MeterPath;
}  // namespace detail

/// Finds the beats of a recording with what comes after them in mind.
///
/// It hears what a MeterTracker hears and asks the same of it, but decides at the end, for the most
/// probable way through the whole. Where the tracker says that there is no meter it tells no beats,
/// but for gaps of less than ten seconds. The confidences are the tracker's at that time.
///
/// The same samples give the same beats, in portions of any size and on every machine. Its memory
/// grows by about 20 MB an hour.
///
/// Threads: one at a time.
class AUDIOANALYZER_EXPORT MeterDecoder
{
public:
    /// As MeterTracker. [allocates]
    explicit MeterDecoder(int pSampleRate);
    ~MeterDecoder();
    MeterDecoder(const MeterDecoder&) = delete;
    MeterDecoder& operator=(const MeterDecoder&) = delete;

    /// It hears all that is pushed. Its tempo range, set before the first sample, holds for all.
    MeterTracker& getTracker() { return m_tracker; }

    /// Hears pCount mono samples, which are only read. [allocates]
    void Push(const qint16* pSamples, std::size_t pCount);
    /// A stretch in which there is a meter to follow.
    struct Stretch
    {
        quint64 start;  ///< first sample
        quint64 end;    ///< sample behind the last
    };
    struct Decoding
    {
        std::vector<MeterTracker::Beat> beats;  ///< in order of time, all in stretches
        std::vector<Stretch> stretches;         ///< in order of time
    };

    /// Of what was pushed. [allocates]
    Decoding Decode() const;

private:
    void _AllowTempi();
    std::vector<Stretch> _FindStretches() const;
    std::size_t _FrameOf(quint64 pIndex) const;
    bool _isBridged(quint64 pStart, quint64 pEnd) const;
    std::vector<MeterTracker::Beat> _FindBeats() const;
    MeterTracker::Beat _MakeBeat(double pFrame, double pPeriod, std::size_t pBeat) const;

    MeterTracker m_tracker;
    std::unique_ptr<OnsetLevels> m_pOnsets;
    std::unique_ptr<detail::MeterEvidence> m_pEvidence;
    std::unique_ptr<detail::MeterPath> m_pPath;
    std::vector<Stretch> m_playing;          ///< to the tracker; the last may lack its end
    std::vector<bool> m_isQuiet;             ///< for each frame: below -70 dBFS
    std::vector<MeterTracker::Beat> m_told;  ///< by the tracker
};
