// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/output/OutputFile.h>
#include <cli/outputs/OutputsCommand.h>
#include <shared/outputs/OutputTrial.h>
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/settings/ChoicesTurn.h>

#include <QTimer>

#include <algorithm>
#include <utility>

OutputsCommand::OutputsCommand(const OutputsOptions& pOptions) : m_options(pOptions) {}

int OutputsCommand::Run()
{
    if (m_options.action == OutputsOptions::eList) {
        _Load();
        return m_options.showsPorts ? _ListPorts() : _List();
    }
    if (m_options.action == OutputsOptions::eTest) {
        _Load();
        return _Test();
    }
    return _Change();
}

void OutputsCommand::_Load()
{
    m_settings = OutputSettings::Load();
    for (const QString& problem : m_settings.getProblems())
        console::PrintError(problem);
}

int OutputsCommand::_Change()
{
    shared::ChoicesTurn turn;
    if (!turn.Take())
        return _Fail(turn.getError());
    _Load();
    const QString refusal = _Edit();
    if (!refusal.isEmpty())
        return _Refuse(refusal);
    if (!m_settings.Save())
        return _Fail(tr("the outputs cannot be stored in %1").arg(UISettings::_getDefaultPath()));
    return eExitDone;
}

int OutputsCommand::_Fail(const QString& pReason) const
{
    console::PrintError(pReason);
    return eExitFailed;
}

int OutputsCommand::_Refuse(const QString& pReason) const
{
    console::PrintError(pReason);
    return eExitUsage;
}

int OutputsCommand::_List() const
{
    int width = 0;
    for (const StoredOutput& output : m_settings.getOutputs())
        width = std::max(width, int(output.name.size()));
    OutputFile file;
    file.Open(QStringLiteral("-"));
    for (const StoredOutput& output : m_settings.getOutputs()) {
        QString line = QStringLiteral("%1 %2  %3 %4")
                           .arg(QLatin1String(output.isEnabled ? "*" : " "),
                                output.name.leftJustified(width),
                                output.kind.leftJustified(10),
                                shared::describeOutputPlace(output))
                           .trimmed();
        if (!output.isEnabled)
            line.prepend(QStringLiteral("  "));
        if (output.offset != 0.0)
            line += tr("  %1 ms later").arg(output.offset);
        const QString fault = shared::findOutputFault(output);
        if (!fault.isEmpty())
            line += tr("; cannot be used: %1").arg(fault);
        file.Write(line.toUtf8() + '\n');
    }
    if (m_settings.getOutputs().empty())
        console::PrintLine(tr("there are no outputs; add one: audio-analyzer outputs add NAME KIND "
                              "ADDRESS"));
    return file.Conclude();
}

int OutputsCommand::_ListPorts() const
{
    bool isAny = false;
    OutputFile file;
    file.Open(QStringLiteral("-"));
    for (const shared::OutputKind& kind : shared::getOutputKinds()) {
        const QStringList places = kind.find ? kind.find() : QStringList();
        isAny |= !places.isEmpty();
        for (const QString& place : places)
            file.Write(
                QStringLiteral("%1 %2\n").arg(QLatin1String(kind.name), -10).arg(place).toUtf8());
    }
    if (!isAny)
        console::PrintLine(tr("no MIDI port is there, and no light program makes itself known"));
    return file.Conclude();
}

int OutputsCommand::_Test() const
{
    StoredOutput output;
    const StoredOutput* pStored = m_options.place ? nullptr : m_settings.Find(m_options.name);
    if (pStored) {
        output = *pStored;
    } else {
        const shared::OutputKind* pKind = shared::findOutputKind(m_options.name);
        if (!pKind && !m_options.place)
            return _Refuse(_DescribeUnknown());
        output.name = output.kind = m_options.name;
        shared::readOutputPlace(m_options.place.value_or(QString()), output);
    }
    QString reason;
    auto pReceiver = shared::makeReceiver(output.kind, output.address, output.preset, reason);
    if (!pReceiver)
        return _Refuse(reason);
    console::PrintLine(tr("two bars at 120 BPM: %1")
                           .arg(shared::findOutputKind(output.kind)->describeTest(output.preset)));
    return _Try(output, std::move(pReceiver));
}

int OutputsCommand::_Try(const StoredOutput& pOutput,
                         std::unique_ptr<shared::OutputReceiver> pReceiver) const
{
    constexpr int kInterruptMs = 20;
    const auto say = [&pOutput](const QString& pWords) {
        console::PrintLine(QStringLiteral("%1: %2").arg(pOutput.name, pWords));
    };
    int exitCode = eExitFailed;
    OutputTrial trial(std::move(pReceiver), pOutput.offset);
    QObject::connect(&trial, &OutputTrial::OnStateChanged, say);
    QObject::connect(&trial, &OutputTrial::OnEnded, [&](bool pIsDone, const QString& pWords) {
        say(pWords);
        exitCode = pIsDone ? eExitDone : eExitFailed;
        QCoreApplication::quit();
    });
    QTimer interrupts;
    QObject::connect(&interrupts, &QTimer::timeout, [] {
        if (interrupt::getSignal() != 0)
            QCoreApplication::quit();
    });
    interrupts.start(kInterruptMs);
    QCoreApplication::exec();
    return exitCode;
}

/// Returns what is refused, or an empty text.
QString OutputsCommand::_Edit()
{
    if (m_options.action == OutputsOptions::eAdd)
        return _Add();
    if (!m_settings.Find(m_options.name))
        return _DescribeUnknown();
    if (m_options.action == OutputsOptions::eEdit)
        return _Replace();
    if (m_options.action == OutputsOptions::eRemove)
        m_settings.Remove(m_options.name);
    else
        m_settings.Find(m_options.name)->isEnabled = m_options.action == OutputsOptions::eEnable;
    return {};
}

QString OutputsCommand::_Add()
{
    StoredOutput output;
    output.name = m_options.name;
    output.kind = m_options.kind.toLower();
    output.offset = m_options.offset.value_or(0.0);
    shared::readOutputPlace(m_options.place.value_or(QString()), output);
    const QString fault = shared::findOutputFault(output);
    return fault.isEmpty() ? m_settings.Add(output) : fault;
}

QString OutputsCommand::_Replace()
{
    if (m_options.newName.isEmpty() && !m_options.place && !m_options.offset)
        return tr("outputs edit: give what to change: --name, --address or --offset");
    StoredOutput output = *m_settings.Find(m_options.name);
    if (!m_options.newName.isEmpty())
        output.name = m_options.newName;
    if (m_options.place)
        shared::readOutputPlace(*m_options.place, output);
    output.offset = m_options.offset.value_or(output.offset);
    const QString fault = shared::findOutputFault(output);
    return fault.isEmpty() ? m_settings.Replace(m_options.name, output) : fault;
}

QString OutputsCommand::_DescribeUnknown() const
{
    QStringList names;
    for (const StoredOutput& output : m_settings.getOutputs())
        names.append(output.name);
    return names.isEmpty() ? tr("there is no output \"%1\", nor any other").arg(m_options.name)
                           : tr("there is no output \"%1\"; there are: %2")
                                 .arg(m_options.name, names.join(QLatin1String(", ")));
}
