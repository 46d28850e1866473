// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/LiveOptions.h>
#include <cli/live/ProfileChoice.h>
#include <shared/hands/Hands.h>
#include <shared/hands/MidiInput.h>
#include <shared/hands/OscInput.h>

#include <QCoreApplication>

#include <functional>
#include <memory>
#include <vector>

class Configuration;

/// The hands that "listen" lets in, and what they learn.
class ListenHands
{
    Q_DECLARE_TR_FUNCTIONS(ListenHands)

public:
    /// Words for people.
    using Say = std::function<void(const QString& pWords)>;

    /// Nothing of it is owned.
    ListenHands(const HandOptions& pOptions,
                LiveBeats& pBeats,
                Configuration& pConfiguration,
                Say pSay);

    /// Opens what was asked for, and nothing else. Returns what cannot be used, in words; the rest
    /// goes on all the same.
    QStringList Begin();
    /// For other hands.
    Hands& getHands() { return m_hands; }

private:
    void _OpenMidi(const QString& pTarget);
    QString _OpenOsc(const ListeningPlace& pPlace);
    void _Learn(const QString& pControl);
    void _MoveOffset(double pMilliSeconds);
    void _SelectProfile(const QString& pName);

    const HandOptions& m_options;  ///< not owned
    LiveBeats& m_beats;            ///< not owned
    ProfileChoice m_profiles;
    Say m_say;
    Hands m_hands;
    std::vector<std::unique_ptr<MidiInput>> m_midi;
    std::vector<std::unique_ptr<OscInput>> m_osc;
};
