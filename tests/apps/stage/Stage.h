// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>

/// What a run of a program gave.
struct StagedRun
{
    int exitCode = -1;  ///< -1 = it was ended by a signal, or did not end
    QByteArray output;
    QByteArray errors;
};

/// A folder with programs, and with the fake sound back end as the only one they see.
///
/// Programs are copied, since their configuration file stands beside them.
class Stage
{
public:
    explicit Stage(const QStringList& pPrograms)
    {
        const QString audio = path(QStringLiteral("plugins/audio"));
        bool isReady = QDir().mkpath(audio);
        for (const QString& program : pPrograms)
            isReady &= QFile::copy(program, path(QFileInfo(program).fileName()));
        isReady &=
            QFile::link(QStringLiteral(FAKE_AUDIO_MODULE), audio + QStringLiteral("/fake.so"));
        isReady &= Write(QStringLiteral("qt.conf"), "[Paths]\nPlugins=plugins\n");
        if (!isReady)
            qFatal("cannot prepare %s", qPrintable(m_folder.path()));
        setDevices({});
    }

    /// A device of that name that plays "music", "quiet", "clipped", "silence" or "none".
    static QJsonObject Device(const char* pName, const char* pTrack, int pChannels = 1)
    {
        return {{QStringLiteral("name"), QLatin1String(pName)},
                {QStringLiteral("track"), QLatin1String(pTrack)},
                {QStringLiteral("channels"), pChannels}};
    }

    /// Plugs and unplugs until these devices are there; the first is the default.
    void setDevices(const QList<QJsonObject>& pDevices) const
    {
        QJsonArray devices;
        for (const QJsonObject& device : pDevices)
            devices.append(device);
        // In one step, so that no program sees half of it.
        Write(QStringLiteral("new.json"), QJsonDocument(devices).toJson());
        std::rename(QFile::encodeName(path(QStringLiteral("new.json"))).constData(),
                    QFile::encodeName(path(QStringLiteral("devices.json"))).constData());
    }

    QString path(const QString& pName) const { return m_folder.filePath(pName); }

    bool Write(const QString& pName, const QByteArray& pBytes) const
    {
        QFile file(path(pName));
        return file.open(QIODevice::WriteOnly) && file.write(pBytes) == pBytes.size();
    }
    QByteArray Read(const QString& pName) const
    {
        QFile file(path(pName));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Start(QProcess& pProcess, const QString& pProgram, const QStringList& pArguments) const
    {
        pProcess.setProcessEnvironment(Environment());
        pProcess.start(path(pProgram), pArguments);
    }
    /// Starts a program that ends by itself in virtual time: there its seconds take none.
    void
    StartVirtual(QProcess& pProcess, const QString& pProgram, const QStringList& pArguments) const
    {
        QProcessEnvironment environment = Environment();
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(VIRTUAL_TIME_MODULE));
        // The sanitizer wants to be loaded first, but can do without.
        environment.insert(QStringLiteral("ASAN_OPTIONS"),
                           QStringLiteral("verify_asan_link_order=0"));
        pProcess.setProcessEnvironment(environment);
        pProcess.start(path(pProgram), pArguments);
    }

    static StagedRun Finish(QProcess& pProcess)
    {
        StagedRun run;
        if (!pProcess.waitForFinished(kTimeoutMs)) {
            pProcess.kill();
            pProcess.waitForFinished();
            return run;
        }
        run.exitCode = pProcess.exitStatus() == QProcess::NormalExit ? pProcess.exitCode() : -1;
        run.output = pProcess.readAllStandardOutput();
        run.errors = pProcess.readAllStandardError();
        return run;
    }

    /// Runs audio-analyzer with these arguments, in virtual time.
    StagedRun Run(const QStringList& pArguments) const
    {
        QProcess process;
        StartVirtual(process, QStringLiteral("audio-analyzer"), pArguments);
        return Finish(process);
    }
    /// The same with arguments separated by blanks.
    StagedRun Run(const char* pArguments) const
    {
        return Run(QString::fromUtf8(pArguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }

    /// Waits until a running program has written a text to a channel.
    static bool WaitFor(QProcess& pProcess, QProcess::ProcessChannel pChannel, const char* pText)
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < kTimeoutMs && pProcess.state() != QProcess::NotRunning) {
            pProcess.setReadChannel(pChannel);
            pProcess.waitForReadyRead(20);
            if (pProcess.peek(1 << 20).contains(pText))
                return true;
        }
        return false;
    }

    static constexpr int kTimeoutMs = 60000;

private:
    static QProcessEnvironment Environment()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        // Never the user's, which would take the place of the fake one.
        environment.insert(QStringLiteral("PULSE_SERVER"), QStringLiteral("unix:/nonexistent"));
        return environment;
    }

    QTemporaryDir m_folder;
};
