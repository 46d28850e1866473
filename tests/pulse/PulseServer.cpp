// SPDX-License-Identifier: MIT
#include "PulseServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>

namespace {

constexpr int kTimeoutMs = 60000;
constexpr int kPollMs = 20;

QString Socket(const QTemporaryDir& pFolder)
{
    return pFolder.filePath(QStringLiteral("PULSE_RUNTIME_PATH/native"));
}

/// A folder that only its owner may enter, as the daemon demands.
QByteArray PrivateFolder(const QTemporaryDir& pFolder, const char* pName)
{
    const QString path = pFolder.filePath(QLatin1String(pName));
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return QFile::encodeName(path);
}

}  // namespace

PulseServer::PulseServer(eKind pKind) : m_kind(pKind)
{
    for (const char* name : {"HOME",
                             "XDG_RUNTIME_DIR",
                             "XDG_CONFIG_HOME",
                             "XDG_STATE_HOME",
                             "PULSE_RUNTIME_PATH",
                             "PULSE_STATE_PATH",
                             "PULSE_CONFIG_PATH"})
        qputenv(name, PrivateFolder(m_folder, name));
    QFile clientConfiguration(m_folder.filePath(QStringLiteral("client.conf")));
    if (clientConfiguration.open(QIODevice::WriteOnly))
        clientConfiguration.write("autospawn = no\nenable-shm = no\n");
    qputenv("PULSE_CLIENTCONFIG", QFile::encodeName(clientConfiguration.fileName()));
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(Socket(m_folder)));
    for (const char* name :
         {"PULSE_COOKIE", "PULSE_SINK", "PULSE_SOURCE", "DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        qunsetenv(name);
    for (QProcess* pProcess : {&m_bus, &m_engine, &m_manager, &m_daemon})
        pProcess->setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

PulseServer::~PulseServer()
{
    Thaw();
    EndPlaying();
    End();
    _End(m_manager);
    _End(m_engine);
    _End(m_bus);
}

bool PulseServer::Start()
{
    if (m_kind == ePulseAudio)
        _StartPulseAudio();
    else if (!_StartPipeWire())
        return false;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kTimeoutMs) {
        if (!_Control({QStringLiteral("info")}).isEmpty())
            return true;
        QThread::msleep(kPollMs);
    }
    return false;
}

void PulseServer::_StartPulseAudio()
{
    m_daemon.start(QStringLiteral("pulseaudio"),
                   {QStringLiteral("-n"),
                    QStringLiteral("--daemonize=no"),
                    QStringLiteral("--exit-idle-time=-1"),
                    QStringLiteral("--use-pid-file=no"),
                    QStringLiteral("--disable-shm=yes"),
                    QStringLiteral("--log-level=error"),
                    QStringLiteral("-L"),
                    QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=%1")
                        .arg(Socket(m_folder))});
}

/// The parts wait for each other by themselves; once they run, only the one for clients comes anew.
bool PulseServer::_StartPipeWire()
{
    if (m_engine.state() == QProcess::NotRunning) {
        if (!_StartBus())
            return false;
        m_engine.start(QStringLiteral("pipewire"), QStringList());
        const QString socket = m_folder.filePath(QStringLiteral("XDG_RUNTIME_DIR/pipewire-0"));
        QElapsedTimer clock;
        clock.start();
        while (!QFile::exists(socket) && clock.elapsed() < kTimeoutMs)
            QThread::msleep(kPollMs);
        m_manager.start(QStringLiteral("wireplumber"), QStringList());
    }
    m_daemon.start(QStringLiteral("pipewire-pulse"), QStringList());
    return m_manager.waitForStarted(kTimeoutMs) && m_daemon.waitForStarted(kTimeoutMs);
}

bool PulseServer::_StartBus()
{
    m_bus.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"),
         QStringLiteral("--nofork"),
         QStringLiteral("--print-address"),
         QStringLiteral("--address=unix:path=%1").arg(m_folder.filePath(QStringLiteral("bus")))});
    if (!m_bus.waitForReadyRead(kTimeoutMs))
        return false;
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    return true;
}

void PulseServer::End()
{
    _End(m_daemon);
}

void PulseServer::Kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished(kTimeoutMs);
}

void PulseServer::Freeze()
{
    _Signal(SIGSTOP);
}

void PulseServer::Thaw()
{
    _Signal(SIGCONT);
}

QString PulseServer::LoadSource(const QString& pName, int pChannels, int pSampleRate)
{
    if (m_kind == ePipeWire)
        return _Control({QStringLiteral("load-module"),
                         QStringLiteral("module-null-sink"),
                         QStringLiteral("media.class=Audio/Source/Virtual"),
                         QStringLiteral("sink_name=%1").arg(pName),
                         QStringLiteral("channels=%1").arg(pChannels),
                         QStringLiteral("rate=%1").arg(pSampleRate)});
    return _Control({QStringLiteral("load-module"),
                     QStringLiteral("module-null-source"),
                     QStringLiteral("source_name=%1").arg(pName),
                     QStringLiteral("description=Line-%1").arg(pName),
                     QStringLiteral("channels=%1").arg(pChannels),
                     QStringLiteral("rate=%1").arg(pSampleRate)});
}

bool PulseServer::setDefaultSource(const QString& pName)
{
    return _Do({QStringLiteral("set-default-source"), pName});
}

QString PulseServer::LoadSink(const QString& pName, int pChannels)
{
    return _Control({QStringLiteral("load-module"),
                     QStringLiteral("module-null-sink"),
                     QStringLiteral("sink_name=%1").arg(pName),
                     QStringLiteral("rate=48000"),
                     QStringLiteral("channels=%1").arg(pChannels),
                     QStringLiteral("format=s16le")});
}

bool PulseServer::UnloadModule(const QString& pModule)
{
    return _Do({QStringLiteral("unload-module"), pModule});
}

bool PulseServer::Play(const QString& pPath, const QString& pSink, int pChannels)
{
    m_player.start(QStringLiteral("pacat"),
                   {QStringLiteral("--playback"),
                    QStringLiteral("--raw"),
                    QStringLiteral("--rate=48000"),
                    QStringLiteral("--channels=%1").arg(pChannels),
                    QStringLiteral("--format=s16le"),
                    QStringLiteral("--device=%1").arg(pSink),
                    pPath});
    return m_player.waitForStarted(kTimeoutMs);
}

void PulseServer::EndPlaying()
{
    _End(m_player);
}

QString PulseServer::folder() const
{
    return m_folder.path();
}

QString PulseServer::error() const
{
    return m_error;
}

bool PulseServer::_Do(const QStringList& pArguments)
{
    _Control(pArguments);
    return m_error.isEmpty();
}

void PulseServer::_Signal(int pSignal)
{
    if (m_daemon.state() == QProcess::Running)
        ::kill(pid_t(m_daemon.processId()), pSignal);
}

/// The trimmed answer of pactl; empty on failure, and error() then says why.
QString PulseServer::_Control(const QStringList& pArguments)
{
    QProcess control;
    control.start(QStringLiteral("pactl"), pArguments);
    const bool isDone = control.waitForFinished(kTimeoutMs) && control.exitCode() == 0 &&
                        control.exitStatus() == QProcess::NormalExit;
    m_error = isDone
                  ? QString()
                  : control.errorString() + QString::fromLocal8Bit(control.readAllStandardError());
    return isDone ? QString::fromLocal8Bit(control.readAllStandardOutput()).trimmed() : QString();
}

void PulseServer::_End(QProcess& pProcess)
{
    if (pProcess.state() == QProcess::NotRunning)
        return;
    pProcess.terminate();
    if (pProcess.waitForFinished(kTimeoutMs))
        return;
    pProcess.kill();
    pProcess.waitForFinished(kTimeoutMs);
}
