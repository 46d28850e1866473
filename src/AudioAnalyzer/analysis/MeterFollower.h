// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>

#include <QObject>
#include <QtGlobal>

#include <cstddef>
#include <optional>

/// Tells the beats of a MeterTracker once the sample where they lie has been heard.
///
/// The tracker foresees a beat up to 10 ms ahead, which is what a light wants. Whoever logs beats
/// wants none behind the end of the audio; so the follower keeps a beat until its sample is there.
/// What BeatFollower is to the analyzer it is to the tracker. The order of the signals is the same
/// for every portioning.
///
///     MeterTracker tracker(sampleRate);
///     MeterFollower follower;
///     follower.Follow(&tracker);
///     follower.Push(samples, count);
///
/// Indexes count from 0 at the tracker's first sample.
///
/// Threads: one at a time; signals are emitted from inside Push().
class AUDIOANALYZER_EXPORT MeterFollower : public QObject
{
    Q_OBJECT

public:
    explicit MeterFollower(QObject* pParent = nullptr);

    /// Follows a tracker, which is not owned and has heard nothing since it was made or Reset(). To
    /// be called once, and again when that tracker is gone. [allocates]
    void Follow(MeterTracker* pTracker);
    /// The tracker has been Reset(): forgets the beat that waits. [no allocation]
    void Restart();
    /// Lets the tracker hear pCount mono samples, and tells what lies in them. [audio path: no
    /// allocation]
    void Push(const qint16* pSamples, std::size_t pCount);

Q_SIGNALS:
    /// In order of time, each once. [valid during the emission]
    void OnBeatFound(const MeterTracker::Beat& pBeat);
    /// After the beat at pIndex, when its tempo is another than that of the beat before by a
    /// thousandth or more.
    void OnTempoFound(quint64 pIndex, double pBPM);
    /// There is a meter to follow from pIndex on, or none; told for index 0, and at each change.
    void OnPlayingChanged(quint64 pIndex, bool pIsPlaying);

private:
    quint64 _GetSecondFrameEnd() const;
    void _SetPlaying(quint64 pIndex, bool pIsPlaying);
    void _TellWaiting();

    MeterTracker* m_pTracker = nullptr;         ///< not owned
    std::optional<MeterTracker::Beat> m_waits;  ///< its sample has not been heard
    bool m_isTempoNew = false;                  ///< that of the beat that waits
    bool m_isPlayingKnown = false;              ///< index 0 has been told
};
