// SPDX-License-Identifier: MIT
#pragma once

#include <shared/hands/Hands.h>
#include <shared/outputs/Outputs.h>
#include <shared/web/WebChoices.h>
#include <shared/web/WebServer.h>

#include <QObject>
#include <QTimer>

/// The page with the beat on it and the hand at it: tells its browsers each beat before it falls
/// due, so that their flash is in time however long the way is, and does what they ask for.
///
/// Threads: one event-loop thread.
class WebPage : public QObject
{
    Q_OBJECT

public:
    static constexpr int kIntervalMs = 50;  ///< for beats; what else there is comes half as often

    /// Nothing of it is owned.
    WebPage(LiveBeats& pBeats, Hands& pHands, const Outputs& pOutputs, QObject* pParent = nullptr);

    WebServer& getServer() { return m_server; }
    /// Of the newest sound, 0 to 1 of full scale; it and the one before are shown as one.
    void setLevel(double pLevel);
    /// Tells all who look, if it is anything new.
    void setChoices(const shared::WebChoices& pChoices);

Q_SIGNALS:
    /// One of what can be chosen; pName empty = the automatic tracker.
    void OnProfileWanted(const QString& pName);
    void OnInputWanted(const QString& pName);

private:
    void _Take(const shared::detail::WebWish& pWish);
    bool _IsOffered(const shared::detail::WebWish& pWish) const;
    void _TellChoices();
    void _Tick();
    void _Tell();
    void _TellBeat();
    void _TellState();
    void _TellAnew();

    LiveBeats& m_beats;        ///< not owned
    Hands& m_hands;            ///< not owned
    const Outputs& m_outputs;  ///< not owned
    WebServer m_server;
    double m_level = 0.0;
    double m_levelBefore = 0.0;
    bool m_isStateDue = false;
    std::int64_t m_toldTime = 0;  ///< µs; of the beat that was told last, 0 = none
    double m_toldBPM = 0.0;
    QByteArray m_toldState;
    shared::WebChoices m_choices;
    QByteArray m_toldChoices;
    QTimer m_timer;
};
