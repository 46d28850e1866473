// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A PulseAudio daemon of our own, or PipeWire's: no hardware, no session, one unix socket in a
/// temporary folder.
///
/// Its environment is this process's from the construction on, so that every client started or
/// loaded here talks to it, and to nothing else.
class PulseServer
{
public:
    enum eKind
    {
        ePulseAudio,
        ePipeWire  ///< with a session manager and a message bus of its own
    };

    explicit PulseServer(eKind pKind = ePulseAudio);
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    /// True once the daemon answers.
    bool Start();
    /// Ends the daemon by its process ID and waits for it.
    void End();
    /// Kills the daemon and waits for its end; clients get no word from it.
    void Kill();
    /// Keeps the daemon from doing anything, answers included.
    void Freeze();
    void Thaw();

    /// Adds a 48000 Hz null sink, whose monitor is an input named "<name>.monitor". Returns its
    /// module's number; empty on failure.
    QString LoadSink(const QString& pName, int pChannels = 1);
    /// Adds an input that delivers silence from the first moment on; a null sink's monitor may take
    /// two seconds. Returns its module's number; empty on failure.
    QString LoadSource(const QString& pName, int pChannels = 1, int pSampleRate = 48000);
    bool setDefaultSource(const QString& pName);
    bool UnloadModule(const QString& pModule);
    /// Starts playing a raw signed 16-bit 48000 Hz file on a sink.
    bool Play(const QString& pPath, const QString& pSink, int pChannels = 1);
    void EndPlaying();

    /// The folder that this server may fill.
    QString folder() const;
    /// What went wrong last, for the test's message.
    QString error() const;

private:
    void _StartPulseAudio();
    bool _StartPipeWire();
    bool _StartBus();
    bool _Do(const QStringList& pArguments);
    void _Signal(int pSignal);
    QString _Control(const QStringList& pArguments);
    static void _End(QProcess& pProcess);

    const eKind m_kind;
    QTemporaryDir m_folder;
    QProcess m_bus;      ///< what PipeWire's parts find each other through
    QProcess m_engine;   ///< PipeWire itself
    QProcess m_manager;  ///< its session manager
    QProcess m_daemon;   ///< what clients talk to
    QProcess m_player;
    QString m_error;
};
