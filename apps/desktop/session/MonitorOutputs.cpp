// SPDX-License-Identifier: MIT
#include <desktop/session/MonitorOutputs.h>
#include <shared/outputs/OutputSettings.h>
#include <shared/outputs/kinds/OutputKinds.h>

MonitorOutputs::MonitorOutputs(LiveBeats& pBeats, QObject* pParent)
    : QObject(pParent), m_beats(pBeats),
      m_outputs(pBeats.getThread(),
                [&pBeats](const BeatClockState& pState) { return pBeats.getConfidence(pState); })
{
    connect(&m_outputs, &Outputs::OnStateChanged, this, &MonitorOutputs::OnChanged);
}

MonitorOutputs::~MonitorOutputs()
{
    setOn(false);
}

QStringList MonitorOutputs::setOn(bool pIsOn)
{
    if (pIsOn == m_isOn)
        return {};
    m_isOn = pIsOn;
    QStringList problems;
    if (pIsOn) {
        const OutputSettings settings = OutputSettings::Load();
        problems = settings.getProblems();
        for (const StoredOutput& output : settings.getOutputs())
            if (output.isEnabled)
                problems += shared::addOutput(m_outputs, output);
        problems.removeAll(QString());
        m_names = m_outputs.getNames();
        if (!m_names.isEmpty())
            m_beats.getThread().Start();
    } else {
        m_outputs.RemoveAll();
        m_beats.getThread().Stop();
    }
    _HearSource();
    Q_EMIT OnChanged();
    return problems;
}

std::vector<MonitorOutputs::State> MonitorOutputs::getStates() const
{
    std::vector<State> states;
    for (const QString& name : m_names)
        states.push_back({name, m_isOn && m_outputs.isOpen(name)});
    return states;
}

void MonitorOutputs::Follow(LiveSource* pSource)
{
    m_pSource = pSource;
    _HearSource();
}

void MonitorOutputs::_HearSource()
{
    m_sound.reset();
    if (!m_pSource || !m_outputs.hearsSound())
        return;
    m_sound = std::make_unique<SoundFeed>();
    connect(m_sound.get(), &SoundFeed::OnSound, &m_outputs, &Outputs::Hear);
    m_sound->Follow(*m_pSource);
}

#include "moc_MonitorOutputs.cpp"
