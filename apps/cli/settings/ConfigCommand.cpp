// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/output/OutputFile.h>
#include <cli/settings/ConfigCommand.h>
#include <cli/settings/ConfigurationSettings.h>
#include <shared/capture/InputDevices.h>

#include <QStringList>

namespace {

int Print(const QString& pText)
{
    OutputFile output;
    output.Open(QStringLiteral("-"));
    output.Write(pText.toLocal8Bit());
    return output.Conclude();
}

}  // namespace

ConfigCommand::ConfigCommand(const ConfigOptions& pOptions) : m_options(pOptions) {}

int ConfigCommand::Run()
{
    // No sound is needed, so the sound system is not asked for its devices.
    QCoreApplication::setLibraryPaths({});
    if (m_options.action == ConfigOptions::ePath)
        return Print(ConfigurationStore::getPath() + QLatin1Char('\n'));
    const bool isShown = m_options.action == ConfigOptions::eShow;
    const bool isLoaded = isShown ? m_store.Load() : m_store.LoadToChange();
    if (!m_store.getNotice().isEmpty() && m_options.action != ConfigOptions::eReset)
        console::PrintError(m_store.getNotice());
    // A damaged file is no reason not to begin anew.
    if (m_options.action == ConfigOptions::eReset && !m_store.isBusy()) {
        m_store.Reset(!m_options.isAll);
        return _Save();
    }
    if (!isLoaded)
        return _Fail(m_store.getError(), eExitFailed);
    return m_options.action == ConfigOptions::eSet ? _Set() : _Show();
}

int ConfigCommand::_Show()
{
    QString text;
    for (const ConfigurationSetting& setting : getConfigurationSettings()) {
        text += QStringLiteral("%1 %2  # %3\n")
                    .arg(setting.name.leftJustified(24),
                         setting.get(m_store).leftJustified(14),
                         setting.help);
    }
    return Print(text);
}

int ConfigCommand::_Set()
{
    QStringList names;
    for (const ConfigurationSetting& setting : getConfigurationSettings()) {
        names.append(setting.name);
        if (setting.name.compare(m_options.key, Qt::CaseInsensitive) != 0)
            continue;
        const QString refusal = setting.set(m_store, m_options.value);
        if (refusal.isEmpty())
            return _Save();
        return _Fail(tr("%1 %2: %3").arg(setting.name, m_options.value, refusal), eExitUsage);
    }
    const QStringList similar = findSimilarNames(m_options.key, names);
    return _Fail(
        tr("there is no setting \"%1\"; there are: %2")
            .arg(m_options.key, (similar.isEmpty() ? names : similar).join(QLatin1String(", "))),
        eExitUsage);
}

int ConfigCommand::_Save()
{
    return m_store.Save() ? int(eExitDone) : _Fail(m_store.getError(), eExitFailed);
}

int ConfigCommand::_Fail(const QString& pReason, int pExitCode)
{
    console::PrintError(pReason);
    return pExitCode;
}
