// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <shared/options/OptionParser.h>
#include <shared/text/Text.h>

// The only file that includes this large header.
#include <CLI/CLI.hpp>

#include <cmath>

namespace shared {

namespace {

constexpr int kHelpColumn = 34;

std::string Utf8(const QString& pText)
{
    return pText.toStdString();
}

std::string RefuseEmpty(const std::string& pValue)
{
    return pValue.empty() ? Utf8(tr("give a value that is not empty")) : std::string();
}

/// The ranges of the parser let "nan" through.
std::string RefuseInfinite(std::string& pValue)
{
    double number = 0.0;
    const bool isNumber = CLI::detail::lexical_cast(pValue, number);
    return isNumber && !std::isfinite(number) ? Utf8(tr("give a number")) : std::string();
}

/// "how much, 1 to 9.5 (default: 2.5)".
std::string NumberHelp(const QString& pHelp, double pDefault, double pMinimum, double pMaximum)
{
    const QString help = tr("%1, %2 to %3").arg(pHelp).arg(pMinimum).arg(pMaximum);
    return Utf8(pDefault < pMinimum ? help : tr("%1 (default: %2)").arg(help).arg(pDefault));
}

}  // namespace

// ---- What may be given --------------------------------------------------------------------------

void OptionSet::setFooter(const QString& pText)
{
    m_app.footer(Utf8(pText));
}

CLI::Option* OptionSet::_Place(CLI::Option* pOption) const
{
    return pOption->group(m_group);
}

void OptionSet::AddWord(const char* pName, std::string& pValue, const QString& pHelp)
{
    m_app.add_option(pName, pValue, Utf8(pHelp))->type_name("")->required(!m_missing.isEmpty());
}

void OptionSet::AddWords(const char* pName, std::vector<std::string>& pValues, const QString& pHelp)
{
    m_app.add_option(pName, pValues, Utf8(pHelp))->type_name("")->required(!m_missing.isEmpty());
}

void OptionSet::AddValue(const char* pNames,
                         std::string& pValue,
                         const QString& pType,
                         const QString& pHelp)
{
    _Place(m_app.add_option(pNames, pValue, Utf8(pHelp)))
        ->check(RefuseEmpty)
        ->type_name(Utf8(pType));
}

void OptionSet::AddValues(const char* pNames,
                          std::vector<std::string>& pValues,
                          const QString& pType,
                          const QString& pHelp,
                          bool pIsOptional)
{
    CLI::Option* pOption = _Place(m_app.add_option(pNames, pValues, Utf8(pHelp)));
    pOption->type_name(Utf8(pType))->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    if (pIsOptional)
        pOption->expected(0, 1);
    else
        pOption->expected(1)->check(RefuseEmpty);
}

void OptionSet::AddExistingFile(const char* pNames, std::string& pValue, const QString& pHelp)
{
    _Place(m_app.add_option(pNames, pValue, Utf8(pHelp)))
        ->check(CLI::ExistingFile)
        ->type_name(Utf8(tr("FILE")));
}

void OptionSet::AddNumber(
    const char* pNames, double& pValue, double pMinimum, double pMaximum, const QString& pHelp)
{
    const std::string help = NumberHelp(pHelp, pValue, pMinimum, pMaximum);
    _Place(m_app.add_option(pNames, pValue, help))
        ->check(CLI::Range(pMinimum, pMaximum).description(""))
        ->check(CLI::Validator(RefuseInfinite, ""))
        ->type_name("X");
}

void OptionSet::AddNumber(
    const char* pNames, int& pValue, int pMinimum, int pMaximum, const QString& pHelp)
{
    const std::string help = NumberHelp(pHelp, pValue, pMinimum, pMaximum);
    _Place(m_app.add_option(pNames, pValue, help))
        ->check(CLI::Range(pMinimum, pMaximum).description(""))
        ->type_name("N");
}

void OptionSet::AddFlag(const char* pNames, bool& pValue, const QString& pHelp)
{
    _Place(m_app.add_flag(pNames, pValue, Utf8(pHelp)));
}

void OptionSet::AddFlag(const char* pNames,
                        bool& pValue,
                        const QString& pHelp,
                        const std::string& pOther)
{
    _Place(m_app.add_flag(pNames, pValue, Utf8(pHelp)))->needs(m_app.get_option(pOther));
}

void OptionSet::AddHiddenFlag(const char* pNames, bool& pValue)
{
    // An empty group hides it from the help.
    m_app.add_flag(pNames, pValue)->group("");
}

void OptionSet::AddSetter(const std::string& pNames,
                          const Setter& pSetter,
                          const QString& pType,
                          const QString& pHelp)
{
    if (pType.isEmpty()) {
        _Place(m_app.add_flag_callback(
            pNames, [pSetter] { pSetter(std::string()); }, Utf8(pHelp)));
        return;
    }
    _Place(m_app.add_option_function<std::string>(pNames, pSetter, Utf8(pHelp)))
        ->type_name(Utf8(pType));
}

// ---- Reading ------------------------------------------------------------------------------------

OptionParser::OptionParser(const QString& pDescription, const QString& pProgram)
    : m_pApp(std::make_unique<CLI::App>(Utf8(pDescription), Utf8(pProgram)))
{
    m_pApp->set_version_flag(
        "--version", Utf8(pProgram) + " " AUDIOANALYZER_VERSION, Utf8(tr("show the version")));
    _Dress(*m_pApp);
}

OptionParser::~OptionParser() = default;

void OptionParser::_Dress(CLI::App& pApp)
{
    pApp.get_formatter()->column_width(kHelpColumn);
    pApp.get_formatter()->label("REQUIRED", "");
    pApp.set_help_flag("-h,--help", Utf8(tr("show this help")));
}

OptionSet OptionParser::AddCommand(const char* pName, const QString& pHelp)
{
    CLI::App& command = *m_pApp->add_subcommand(pName, Utf8(pHelp));
    _Dress(command);
    return _MakeSet(command);
}

QStringList OptionParser::getCommands() const
{
    QStringList names;
    for (const CLI::App* pCommand : m_pApp->get_subcommands([](const CLI::App*) { return true; }))
        names.append(QString::fromStdString(pCommand->get_name()));
    return names;
}

ParsedOptions OptionParser::Parse(int pCount, const char* const* pArguments)
{
    try {
        m_pApp->parse(pCount, pArguments);
    } catch (const CLI::CallForHelp&) {
        const CLI::App* pCommand = _FindParsed();
        return _ShowText(pCommand ? pCommand->help(m_pApp->get_name()) : m_pApp->help());
    } catch (const CLI::CallForVersion& version) {
        return _ShowText(std::string(version.what()) + "\n" + Utf8(m_versionNote));
    } catch (const CLI::RequiredError&) {
        return _Refuse(m_missing[_FindParsed() ? _FindParsed() : m_pApp.get()]);
    } catch (const CLI::ParseError& error) {
        return _Refuse(QString::fromLocal8Bit(error.what()));
    }
    ParsedOptions result;
    if (const CLI::App* pCommand = _FindParsed())
        result.command = pCommand->get_name();
    return result;
}

/// The command that was named, null when there is none.
const CLI::App* OptionParser::_FindParsed() const
{
    const std::vector<CLI::App*> parsed = m_pApp->get_subcommands();
    return parsed.empty() ? nullptr : parsed.front();
}

ParsedOptions OptionParser::_ShowText(const std::string& pText) const
{
    ParsedOptions result;
    result.outcome = ParsedOptions::eShowText;
    result.text = QString::fromStdString(pText);
    // The formatter puts two blank lines between groups of options.
    result.text.replace(QLatin1String("\n\n\n"), QLatin1String("\n\n"));
    if (!result.text.endsWith(QLatin1Char('\n')))
        result.text += QLatin1Char('\n');
    return result;
}

ParsedOptions OptionParser::_Refuse(const QString& pReason) const
{
    QString program = QString::fromStdString(m_pApp->get_name());
    if (const CLI::App* pCommand = _FindParsed())
        program += QLatin1Char(' ') + QString::fromStdString(pCommand->get_name());
    ParsedOptions result;
    result.outcome = ParsedOptions::eRefuse;
    result.text = tr("%1; see %2 --help").arg(pReason, program);
    return result;
}

}  // namespace shared
