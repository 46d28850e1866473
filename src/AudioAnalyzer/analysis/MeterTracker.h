// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>

#include <QObject>
#include <QtGlobal>

#include <cstddef>
#include <memory>

class OnsetLevels;

namespace detail {
class BeatDecision;
class MeterEvidence;
class MeterFilter;
class MusicEvidence;
}  // namespace detail

/// Follows the beat of any music, without a profile, a threshold or a level to set.
///
/// A hundred times a second it asks how well what begins to sound fits each tempo and each place in
/// a bar of four beats, and keeps the belief in all of them; docs/automatic.md explains it. A beat
/// is told when it is due within 10 ms, from samples before it only. While nothing says that there
/// is a meter (silence, noise, speech) no beats are told.
///
/// It needs no event loop and no clock. The same samples give the same beats, in portions of any
/// size and on every machine; samples that are cut off later take nothing from the beats before.
/// Indexes count samples from 0 at the first one after construction or Reset().
///
/// Threads: one at a time; signals are emitted from inside Push().
class AUDIOANALYZER_EXPORT MeterTracker : public QObject
{
    Q_OBJECT

public:
    static constexpr int kLowestRate = 8000;      ///< Hz
    static constexpr int kHighestRate = 192000;   ///< Hz
    static constexpr double kSlowestBPM = 60.0;   ///< of what can be followed
    static constexpr double kFastestBPM = 190.0;  ///< of what can be followed

    struct Beat
    {
        quint64 index;      ///< sample at which it falls; at most 10 ms ahead, 50 ms behind
        double bpm;         ///< tempo, beats per minute
        int beatInBar;      ///< 1 to 4
        double confidence;  ///< probability that it lies within 70 ms of the music's beat, 0 to 1
        double barConfidence;  ///< share of the belief that beatInBar has; 1 when set by hand
    };

    /// pSampleRate in Hz, kLowestRate to kHighestRate; what lies outside is taken to the nearer.
    /// [allocates]
    explicit MeterTracker(int pSampleRate, QObject* pParent = nullptr);
    ~MeterTracker() override;

    /// Hears pCount mono samples, which are only read. [audio path: no allocation]
    void Push(const qint16* pSamples, std::size_t pCount);
    /// Forgets all that was heard and every beat and bar set by hand; the tempo range stays.
    /// Emits nothing. [no allocation]
    void Reset();

    int getSampleRate() const { return m_sampleRate; }
    /// Samples pushed. [any time]
    quint64 getSampleCount() const { return m_sampleCount; }
    /// Whether there is a meter to follow. [any time]
    bool isPlaying() const { return m_isPlaying; }
    /// Beats per minute; 0 while nothing plays. [any time]
    double getBPM() const;
    /// Probability that the next beat lies within 70 ms of the music's, 0 to 1; 0 while nothing
    /// plays. [any time]
    double getConfidence() const;
    /// Sample at which the next beat is expected, never before the last one told; 0 while nothing
    /// plays. [any time]
    quint64 getNextBeat() const;
    /// Place between two beats of sample pIndex, extrapolated from now: 0 is a beat, below 1; 0
    /// while nothing plays. [any time]
    double getPhase(quint64 pIndex) const;

    /// Tempi that are told apart. [any time]
    std::size_t getTempoCount() const;
    /// The one of that number, from 0, BPM: the fastest first, each 1.5 % below the one before.
    /// [any time]
    double getTempo(std::size_t pNumber) const;
    /// Share of the belief that it has, 0 to 1, whether anything plays or not. [any time]
    double getTempoBelief(std::size_t pNumber) const;

    // ---- A hand on it: MeterTrackerHand.cpp ---------------------------------------------------
    // What it does shows within one beat. None of it allocates.

    /// The user tapped a beat at sample pIndex, usually a moment ago. A tap moves the beat, and the
    /// time between taps the tempo; the music goes on being followed. Three settle both.
    void Tap(quint64 pIndex);
    /// Follows the music at pFactor (2, 1/2, 3/2 or 2/3) times the tempo, and stays at that level.
    /// False when pFactor is another or the tempo would leave the range; then nothing changes.
    bool Multiply(double pFactor);
    /// The beat nearest to sample pIndex is the first of a bar. Bars are counted from there on,
    /// through breaks as well, until Reset() or ReleaseDownbeat().
    void setDownbeat(quint64 pIndex);
    /// Lets the music tell the bar again.
    void ReleaseDownbeat();
    /// Limits the tempo, in BPM. False, and nothing changes, unless kSlowestBPM <= pMinimum <=
    /// pMaximum <= kFastestBPM. A tempo outside goes to its double, half, 3/2 or 2/3, if that is
    /// inside.
    bool setTempoRange(double pMinimum, double pMaximum);
    double getMinimalBPM() const { return m_minimalBPM; }
    double getMaximalBPM() const { return m_maximalBPM; }

Q_SIGNALS:
    /// A beat is due. In order of time. [valid during the emission]
    void OnBeatForeseen(const MeterTracker::Beat& pBeat);
    /// The tempo told with the beats changed by a thousandth or more; pIndex = the beat's.
    void OnTempoChanged(quint64 pIndex, double pBPM);
    /// From pIndex on there is a meter to follow, or no longer.
    void OnPlayingChanged(quint64 pIndex, bool pIsPlaying);

private:
    void _CompleteFrame();
    void _SetPlaying(bool pIsPlaying);
    void _TellBeat(double pTime);
    int _CountBeat(double pTime);
    quint64 _IndexOf(double pFrames) const;
    double _FramesOf(quint64 pIndex) const;
    void _AllowTempi();

    int m_sampleRate;           ///< Hz
    quint64 m_sampleCount = 0;  ///< samples
    std::unique_ptr<OnsetLevels> m_pOnsets;
    std::unique_ptr<detail::MeterEvidence> m_pEvidence;
    std::unique_ptr<detail::MeterFilter> m_pFilter;
    std::unique_ptr<detail::BeatDecision> m_pDecision;
    std::unique_ptr<detail::MusicEvidence> m_pMusic;
    bool m_isPlaying = false;
    double m_toldBPM = 0.0;   ///< of the last OnTempoChanged
    double m_lastBeat = 0.0;  ///< told or not, frames
    int m_lastNumber = 0;     ///< of that beat in the bar, 0 to 3

    double m_minimalBPM = kSlowestBPM;
    double m_maximalBPM = kFastestBPM;
    bool m_isLevelHeld = false;     ///< Multiply() chose the level: no jumps to another
    bool m_isDownbeatHeld = false;  ///< setDownbeat() chose the bar
    double m_lastTap = 0.0;         ///< frames
    double m_tapInterval = 0.0;     ///< mean of the row of taps, frames; 0 = unknown
    int m_tapCount = 0;             ///< taps in a row
};
