// SPDX-License-Identifier: MIT
#include <cli/live/ListenOutputs.h>
#include <shared/outputs/kinds/OutputKinds.h>

ListenOutputs::ListenOutputs(const ListenOptions& pOptions, LiveBeats& pBeats)
    : m_options(pOptions), m_outputs(pBeats.getThread(), [&pBeats](const BeatClockState& pState) {
          return pBeats.getConfidence(pState);
      })
{
    QObject::connect(&m_sound, &SoundFeed::OnSound, &m_outputs, &Outputs::Hear);
}

QString ListenOutputs::FindUnknown(const ListenOptions& pOptions)
{
    if (pOptions.outputNames.isEmpty())
        return {};
    const OutputSettings settings = OutputSettings::Load();
    for (const QString& name : pOptions.outputNames)
        if (!settings.Find(name))
            return tr("--output %1: there is no such output; see audio-analyzer outputs").arg(name);
    return {};
}

QStringList ListenOutputs::Begin(LiveSource& pSource)
{
    const OutputSettings settings = OutputSettings::Load();
    QStringList problems = settings.getProblems();
    for (const StoredOutput& output : settings.getOutputs()) {
        const bool isAsked = m_options.outputNames.contains(output.name, Qt::CaseInsensitive);
        if (isAsked || (output.isEnabled && !m_options.isWithoutStored))
            problems += shared::addOutput(m_outputs, output);
    }
    for (StoredOutput output : m_options.outputs) {
        output.name = _FreeName(output.kind);
        problems += shared::addOutput(m_outputs, output);
    }
    if (m_outputs.hearsSound())
        m_sound.Follow(pSource);
    problems.removeAll(QString());
    return problems;
}

/// "osc", or "osc 2" when that one is taken.
QString ListenOutputs::_FreeName(const QString& pKind) const
{
    const QStringList taken = m_outputs.getNames();
    QString name = pKind;
    for (int i = 2; taken.contains(name, Qt::CaseInsensitive); ++i)
        name = QStringLiteral("%1 %2").arg(pKind).arg(i);
    return name;
}
