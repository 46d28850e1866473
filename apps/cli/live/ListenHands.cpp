// SPDX-License-Identifier: MIT
#include <cli/live/ListenHands.h>
#include <shared/settings/ChoicesTurn.h>

#include <cmath>
#include <utility>

ListenHands::ListenHands(const HandOptions& pOptions,
                         LiveBeats& pBeats,
                         Configuration& pConfiguration,
                         Say pSay)
    : m_options(pOptions), m_beats(pBeats), m_profiles(pConfiguration, pBeats),
      m_say(std::move(pSay)), m_hands(pBeats, shared::HandMap::Load())
{
    QObject::connect(
        &m_hands, &Hands::OnTouched, [this](const QString& pControl) { _Learn(pControl); });
    QObject::connect(
        &m_hands,
        &Hands::OnOffsetWanted,
        [this](double pMilliSeconds) { _MoveOffset(pMilliSeconds); });
    QObject::connect(
        &m_hands, &Hands::OnProfileWanted, [this](const QString& pName) { _SelectProfile(pName); });
}

QStringList ListenHands::Begin()
{
    QStringList problems;
    if (m_options.midi.isEmpty() && m_options.osc.empty())
        return problems;
    problems += m_hands.getMap().getProblems();
    for (const QString& target : m_options.midi)
        _OpenMidi(target);
    for (const ListeningPlace& place : m_options.osc)
        problems += _OpenOsc(place);
    problems.removeAll(QString());
    m_hands.setLearning(m_options.learned.has_value());
    if (m_options.learned)
        m_say(tr("touch the control that is to do \"%1\"").arg(m_options.learned->getText()));
    else if (m_hands.getMap().getActions().empty())
        m_say(tr("no control has been learned yet; see --learn"));
    return problems;
}

void ListenHands::_OpenMidi(const QString& pTarget)
{
    m_midi.push_back(std::make_unique<MidiInput>());
    MidiInput& input = *m_midi.back();
    QObject::connect(&input, &MidiInput::OnMessage, &m_hands, &Hands::Take);
    QObject::connect(&input, &MidiInput::OnStateChanged, m_say);
    input.Open(pTarget);
}

QString ListenHands::_OpenOsc(const ListeningPlace& pPlace)
{
    m_osc.push_back(std::make_unique<OscInput>());
    OscInput& input = *m_osc.back();
    QObject::connect(&input, &OscInput::OnMessage, &m_hands, &Hands::Take);
    if (!input.Open(pPlace.address, pPlace.port))
        return tr("hands: OSC at port %1: %2").arg(pPlace.port).arg(input.getError());
    m_say(tr("OSC at port %1").arg(input.getPort()));
    return {};
}

void ListenHands::_Learn(const QString& pControl)
{
    shared::ChoicesTurn turn;
    const bool isMyTurn = turn.Take();
    // Others may have learned meanwhile.
    m_hands.getMap() = shared::HandMap::Load();
    if (!m_hands.getMap().Learn(pControl, *m_options.learned))
        return m_say(tr("%1 cannot be learned: there are too many").arg(pControl));
    m_hands.setLearning(false);
    if (isMyTurn && m_hands.getMap().Save())
        m_say(tr("%1 does \"%2\" from now on").arg(pControl, m_options.learned->getText()));
    else
        m_say(tr("%1 does \"%2\" for now; it cannot be stored")
                  .arg(pControl, m_options.learned->getText()));
}

void ListenHands::_MoveOffset(double pMilliSeconds)
{
    constexpr double kMicroSeconds = 1000.0;  // a millisecond
    BeatClock& clock = m_beats.getClock();
    const std::int64_t offset =
        clock.getState().offset + std::llround(pMilliSeconds * kMicroSeconds);
    if (clock.setOffset(offset))
        m_say(tr("offset %1 ms").arg(double(offset) / kMicroSeconds));
}

void ListenHands::_SelectProfile(const QString& pName)
{
    m_say(m_profiles.Choose(pName) ? tr("profile %1").arg(m_profiles.getName())
                                   : tr("there is no profile %1").arg(pName));
}
