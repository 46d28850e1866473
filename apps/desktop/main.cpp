// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/MonitorOptions.h>
#include <desktop/Termination.h>
#include <desktop/look/Icon.h>
#include <desktop/look/Style.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/settings/Translations.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/Tray.h>
#include <shared/files/FileNameCodec.h>
#include <shared/pulse/PulseBackEnd.h>
#include <shared/settings/ConfigurationStore.h>

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>

namespace {

enum eExitCode
{
    eExitDone = 0,
    eExitFailed = 1,
    eExitUsage = 2
};

void Print(std::FILE* pStream, const QString& pText)
{
    std::fputs(pText.toLocal8Bit().constData(), pStream);
    std::fflush(pStream);
}

/// Qt ends the program without a word that helps when there is none.
bool HasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void Begin(MonitorSession& pSession, const MonitorOptions& pOptions)
{
    if (pOptions.file.isEmpty())
        pSession.Listen(pOptions.device);
    else
        pSession.PlayFile(pOptions.file, pOptions.isLooped);
}

int Run(const MonitorOptions& pOptions)
{
    PulseBackEnd backEnd;
    const bool isFallback = !backEnd.Install();
    if (isFallback)
        Print(stderr,
              QStringLiteral("beat-monitor: no sound server answers; the inputs are those that Qt "
                             "finds by itself\n"));
    MonitorSession session;
    session.setFallback(isFallback);
    QString error;
    session.Load(error);
    const WindowSettings settings = WindowSettings::Load(pOptions.iniPath);
    Translations translations;
    translations.setLanguage(session.getConfiguration().getLanguage());
    MainWindow window(session, settings, QApplication::palette());
    QObject::connect(
        &window, &MainWindow::OnLanguageChosen, &translations, &Translations::setLanguage);
    window.ShowProblem(error);
    window.BeginOutputs();
    Tray tray(window, window.getResetAction(), window.getQuitAction());
    Termination termination;
    QObject::connect(&termination, &Termination::OnRequested, &QCoreApplication::quit);
    window.Place(settings.position);
    tray.Start(settings.isHiddenOnStart);
    QTimer::singleShot(0, &session, [&] { Begin(session, pOptions); });
    QApplication::exec();
    // A file that was named is as it was written by hand.
    const bool isKept = !pOptions.iniPath.isEmpty() || window.CollectSettings().Save(settings);
    if (!isKept)
        Print(stderr,
              QStringLiteral("beat-monitor: %1 cannot be written: the window will not be as it was "
                             "left\n")
                  .arg(UISettings::_getDefaultPath()));
    if (session.getSaver().Save())
        return eExitDone;
    Print(stderr, QStringLiteral("beat-monitor: %1\n").arg(window.getProblem()));
    return eExitFailed;
}

/// Sound plugins comment on devices that vanish. The window says that in words of its own.
void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

}  // namespace

int main(int argc, char* argv[])
{
    FileNameCodec::Install();
    const MonitorOptions options = parseMonitorOptions(argc, argv);
    if (options.action != MonitorOptions::eRun) {
        const bool isRefused = options.action == MonitorOptions::eRefuse;
        Print(isRefused ? stderr : stdout, options.text);
        return isRefused ? eExitUsage : eExitDone;
    }
    if (!HasDisplay()) {
        Print(stderr,
              QStringLiteral("beat-monitor: there is no display. Start it on a desktop, or on a "
                             "virtual one: xvfb-run beat-monitor\n"));
        return eExitFailed;
    }
    style::Prepare();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("beat-monitor"));
    ConfigurationStore::UseUserFolder();
    QApplication::setWindowIcon(makeIcon());
    style::Apply();
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(&IgnoreMessage);
    return Run(options);
}
