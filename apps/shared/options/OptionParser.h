// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace shared {

/// What a program, or one of its commands, may be given: made by OptionParser, valid as long as it.
///
/// Values stay as they came, in bytes, since file names need not be text. References are kept until
/// the arguments are read, and hold the default until then. Options stand in the help in the order
/// in which they are added.
class OptionSet
{
public:
    using Setter = std::function<void(const std::string&)>;

    /// pMissing: where to keep what to say when a word is missing. Neither is owned.
    OptionSet(CLI::App& pApp, QString& pMissing) : m_app(pApp), m_missing(pMissing) {}

    /// The heading that stands over what is added from now on.
    void setGroup(const QString& pGroup) { m_group = pGroup.toStdString(); }
    /// What stands below the options.
    void setFooter(const QString& pText);

    /// A word without an option's name, or all that are left. What setMissing() says before makes
    /// it one that must not be left out.
    void AddWord(const char* pName, std::string& pValue, const QString& pHelp);
    void AddWords(const char* pName, std::vector<std::string>& pValues, const QString& pHelp);
    /// How a missing word is asked for: "name the audio files".
    void setMissing(const QString& pText) { m_missing = pText; }
    /// A value, which must not be empty: an unset variable in a script is not an option left out.
    /// pNames: "-f,--format"; pType: how the help calls the value.
    void
    AddValue(const char* pNames, std::string& pValue, const QString& pType, const QString& pHelp);
    /// A value that may be given several times. pIsOptional: the option may also stand
    /// alone, which gives an empty value.
    void AddValues(const char* pNames,
                   std::vector<std::string>& pValues,
                   const QString& pType,
                   const QString& pHelp,
                   bool pIsOptional = false);
    /// A file that must exist.
    void AddExistingFile(const char* pNames, std::string& pValue, const QString& pHelp);
    /// A finite number within limits; the help tells them, and the default if it is one of those.
    void AddNumber(
        const char* pNames, double& pValue, double pMinimum, double pMaximum, const QString& pHelp);
    void
    AddNumber(const char* pNames, int& pValue, int pMinimum, int pMaximum, const QString& pHelp);
    void AddFlag(const char* pNames, bool& pValue, const QString& pHelp);
    /// A flag that counts only beside pOther, which has been added.
    void AddFlag(const char* pNames, bool& pValue, const QString& pHelp, const std::string& pOther);
    /// A flag that the help does not show.
    void AddHiddenFlag(const char* pNames, bool& pValue);
    /// Any value, told to pSetter; with an empty pType a flag, which tells an empty one.
    void AddSetter(const std::string& pNames,
                   const Setter& pSetter,
                   const QString& pType,
                   const QString& pHelp);

private:
    CLI::Option* _Place(CLI::Option* pOption) const;

    CLI::App& m_app;     ///< not owned
    QString& m_missing;  ///< not owned
    std::string m_group = "Options";
};

/// What the arguments of a program say.
struct ParsedOptions
{
    enum eOutcome
    {
        eRead,      ///< the values have been filled
        eShowText,  ///< print text to standard output and end well: help or version
        eRefuse     ///< print text as an error and end with the usage exit code
    };

    eOutcome outcome = eRead;
    QString text;
    std::string command;  ///< the one that was named; empty when there is none
};

/// Reads the arguments of a program that may have commands. Every program has --help and --version.
class OptionParser
{
public:
    OptionParser(const QString& pDescription, const QString& pProgram);
    ~OptionParser();
    OptionParser(const OptionParser&) = delete;
    OptionParser& operator=(const OptionParser&) = delete;

    /// What --version says below the version.
    void setVersionNote(const QString& pText) { m_versionNote = pText; }
    /// The program's own options.
    OptionSet getOptions() { return _MakeSet(*m_pApp); }
    OptionSet AddCommand(const char* pName, const QString& pHelp);
    QStringList getCommands() const;

    /// pArguments: pCount of them, the program's name first, in the encoding of file names.
    ParsedOptions Parse(int pCount, const char* const* pArguments);

private:
    OptionSet _MakeSet(CLI::App& pApp) { return {pApp, m_missing[&pApp]}; }
    static void _Dress(CLI::App& pApp);
    const CLI::App* _FindParsed() const;
    ParsedOptions _ShowText(const std::string& pText) const;
    ParsedOptions _Refuse(const QString& pReason) const;

    std::unique_ptr<CLI::App> m_pApp;
    std::map<const CLI::App*, QString> m_missing;  ///< what to say, by command
    QString m_versionNote;
};

}  // namespace shared
