// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/LiveBeats.h>

#include <QObject>

/// The operator's hand on the beat clock: what it does shows, and is sent, at once.
///
/// Threads: the event-loop thread.
class BeatHand : public QObject
{
    Q_OBJECT

public:
    static constexpr int kNudgeMs = 10;  ///< of one step

    /// pBeats is not owned.
    explicit BeatHand(LiveBeats& pBeats, QObject* pParent = nullptr);

    /// Whether every tempo that is tapped is held at once; by default it is not.
    void setLocking(bool pIsLocking) { m_isLocking = pIsLocking; }
    bool isLocking() const { return m_isLocking; }
    bool isHeld() const { return m_heldTempo > 0.0; }
    /// BPM; 0 = the tempo is not held.
    double getHeldTempo() const { return m_heldTempo; }

    void Tap();
    void Scale(int pNumerator, int pDenominator);
    void Round();
    /// The beat nearest to now is the first of a bar.
    void MarkOne();
    /// ms; positive is later.
    void Nudge(int pMs);
    /// Keeps the tempo of now, if there is one, whatever the music does.
    void Hold();
    /// Keeps that tempo, BPM, 10 to 999.
    void HoldAt(double pBPM);
    /// Gives the clock back to the music.
    void Release();
    /// Forgets music and hand.
    void Reset();

Q_SIGNALS:
    /// The clock may be another one.
    void OnActed();
    /// BPM; 0 = it is not held any more.
    void OnHeldTempoChanged(double pBPM);

private:
    BeatClock& _Clock() { return m_beats.getClock(); }
    void _Acted();

    LiveBeats& m_beats;  ///< not owned
    bool m_isLocking = false;
    double m_heldTempo = 0.0;  ///< BPM; 0 = none
};
