// SPDX-License-Identifier: MIT
#include <cli/CommandLine.h>
#include <cli/Console.h>
#include <cli/ExitCode.h>
#include <cli/Interrupt.h>
#include <cli/analyze/AnalyzeCommand.h>
#include <cli/evaluate/EvaluateCommand.h>
#include <cli/live/DevicesCommand.h>
#include <cli/live/ListenCommand.h>
#include <cli/output/OutputFile.h>
#include <cli/outputs/OutputsCommand.h>
#include <cli/settings/ConfigCommand.h>
#include <cli/settings/ProfilesCommand.h>
#include <shared/files/FileNameCodec.h>
#include <shared/pulse/PulseBackEnd.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCoreApplication>

#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {

/// A standard stream that the caller closed must not be taken by the next file that is opened.
/// Writing to a closed output fails all the same; for messages there is nobody to be told.
void HoldStandardStreams()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0)
            ::open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY);
}

int ShowText(const QString& pText)
{
    OutputFile output;
    output.Open(QStringLiteral("-"));
    output.Write(pText.toLocal8Bit());
    return output.Conclude();
}

int Run(const CommandLine& pCommand)
{
    switch (pCommand.action) {
    case CommandLine::eShowText:
        return ShowText(pCommand.text);
    case CommandLine::eAnalyze:
        return AnalyzeCommand(pCommand.analyze).Run();
    case CommandLine::eListen:
        return ListenCommand(pCommand.listen).Run();
    case CommandLine::eDevices:
        return DevicesCommand(pCommand.devices).Run();
    case CommandLine::eProfiles:
        return ProfilesCommand(pCommand.profiles).Run();
    case CommandLine::eConfig:
        return ConfigCommand(pCommand.config).Run();
    case CommandLine::eEvaluate:
        return EvaluateCommand(pCommand.evaluate).Run();
    case CommandLine::eOutputs:
        return OutputsCommand(pCommand.outputs).Run();
    case CommandLine::eRefuse:
        break;
    }
    console::PrintError(pCommand.text);
    return eExitUsage;
}

bool UsesSound(const CommandLine& pCommand)
{
    return pCommand.action == CommandLine::eListen || pCommand.action == CommandLine::eDevices;
}

/// Sound plugins comment on devices that vanish. The commands say that in words of their own.
void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

int RunWithSound(const CommandLine& pCommand)
{
    qInstallMessageHandler(&IgnoreMessage);
    PulseBackEnd backEnd;
    backEnd.Install();
    return Run(pCommand);
}

}  // namespace

int main(int argc, char* argv[])
{
    HoldStandardStreams();
    interrupt::Install();
    FileNameCodec::Install();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("audio-analyzer"));
    ConfigurationStore::UseUserFolder();
    const CommandLine command = parseCommandLine(argc, argv);
    const int exitCode = UsesSound(command) ? RunWithSound(command) : Run(command);
    interrupt::Finish();
    return exitCode;
}
