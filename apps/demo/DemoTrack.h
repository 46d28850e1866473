// SPDX-License-Identifier: MIT
#pragma once

#include <demo/DemoArrangement.h>
#include <demo/DemoInstruments.h>

#include <QtGlobal>

#include <cstddef>

/// About a minute of electronic music that is the project's own, made as it is read.
///
/// The same options give the same samples in every run. The music is mastered as loud as today's
/// records are: its peak is just below -1 dBFS. getArrangement() knows where every beat is.
///
/// Threads: one at a time.
class DemoTrack
{
public:
    static constexpr int kMinimalRate = 8000;    ///< Hz
    static constexpr int kMaximalRate = 192000;  ///< Hz
    static constexpr double kMinimalBPM = 60.0;
    static constexpr double kMaximalBPM = 200.0;

    struct Options
    {
        int sampleRate = 44100;  ///< Hz, kMinimalRate to kMaximalRate
        double bpm = 128.0;      ///< kMinimalBPM to kMaximalBPM
        double duration =
            0.0;  ///< seconds; 0 = one pass of the arrangement, more than that repeats it
    };

    explicit DemoTrack(const Options& pOptions);

    /// Makes at most pCount stereo frames (left, right, interleaved, in [-1, 1]) and returns how
    /// many; 0 once all have been read. [no allocation]
    std::size_t Read(float* pFrames, std::size_t pCount);

    quint64 getFrameCount() const { return m_frameCount; }
    int getSampleRate() const { return m_sampleRate; }
    /// Length before it is rounded to whole frames, seconds.
    double getDuration() const { return m_duration; }
    const DemoArrangement& getArrangement() const { return m_arrangement; }

private:
    /// All instruments. Made anew at every stop, so that nothing rings on after it.
    struct Band
    {
        Band(double pRate, double pEchoSeconds);

        demo::Kick kick;
        demo::HiHat hats;
        demo::Clap clap;
        demo::Bass bass;
        demo::Chords chords;
        demo::Drone drone;
        demo::Lead lead;
        demo::Noise riserNoise{0x5eed5eed};
        demo::Filter riserFilter;
        demo::Envelope duck;  ///< 1 at a bass drum: makes room for it
    };

    quint64 _FrameOfStep(quint64 pStep) const;
    Band _MakeBand() const;
    void _BeginSection();
    void _PlayStep();
    void _PlayDrums(unsigned pLayers, int pSectionStep);
    void _PlayNotes(unsigned pLayers, int pSectionStep);
    void _Mix(float* pFrame);
    double _GetChordCutoff(double pProgress) const;
    double _MixRiser();
    double _GetSectionProgress() const;
    double _GetFade() const;

    DemoArrangement m_arrangement;
    int m_sampleRate;   ///< Hz
    double m_duration;  ///< seconds
    quint64 m_frameCount;
    quint64 m_frame = 0;         ///< next frame to be made
    quint64 m_step = 0;          ///< next step to be played
    quint64 m_stepFrame = 0;     ///< frame at which it is played
    quint64 m_sectionFrame = 0;  ///< frame at which the present section began
    quint64 m_sectionEnd = 0;    ///< frame at which it ends
    quint64 m_fadeEnd = 0;       ///< frame at which the music must have faded out
    unsigned m_layers = 0;       ///< of the present section
    Band m_band;
};
