// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// What a run of the program gave.
struct ProgramRun
{
    int exitCode = -1;  ///< -1 = it was ended by a signal, or did not end
    QByteArray output;
    QByteArray errors;
};

constexpr int kProgramTimeoutMs = 60000;

inline QString ProgramPath()
{
    return QStringLiteral(AUDIO_ANALYZER_PROGRAM);
}

/// Not the test's own environment: a Qt warning of the program is no crash, and there is no
/// terminal.
inline QProcessEnvironment ProgramEnvironment(const QString& pLocale = QStringLiteral("C.UTF-8"))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), pLocale);
    environment.insert(QStringLiteral("TERM"), QStringLiteral("xterm"));
    return environment;
}

inline ProgramRun Finish(QProcess& pProcess)
{
    ProgramRun run;
    if (!pProcess.waitForFinished(kProgramTimeoutMs)) {
        pProcess.kill();
        pProcess.waitForFinished();
        return run;
    }
    run.exitCode = pProcess.exitStatus() == QProcess::NormalExit ? pProcess.exitCode() : -1;
    run.output = pProcess.readAllStandardOutput();
    run.errors = pProcess.readAllStandardError();
    return run;
}

/// Runs the program in the current folder, pInput on its standard input.
inline ProgramRun RunProgram(const QStringList& pArguments,
                             const QByteArray& pInput = {},
                             const QString& pLocale = QStringLiteral("C.UTF-8"))
{
    QProcess process;
    process.setProcessEnvironment(ProgramEnvironment(pLocale));
    process.start(ProgramPath(), pArguments);
    process.write(pInput);
    process.closeWriteChannel();
    return Finish(process);
}

/// Runs "analyze" with arguments that are separated by blanks.
inline ProgramRun Analyze(const QString& pArguments, const QByteArray& pInput = {})
{
    return RunProgram(QStringList{QStringLiteral("analyze")} +
                          pArguments.split(QLatin1Char(' '), Qt::SkipEmptyParts),
                      pInput);
}

/// Everything in the current folder, hidden files and folders included.
inline QStringList FilesHere()
{
    return QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                            QDir::Name);
}
