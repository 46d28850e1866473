// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <avahi-client/client.h>
#include <avahi-client/publish.h>
#include <avahi-common/thread-watch.h>

/// A network of our own that consists of one loopback, with a message bus and an Avahi daemon:
/// nothing leaves it, and nobody else is seen in it. Avahi wants to be root and to have a user of
/// its own, and gets both, in a namespace.
class AvahiNet
{
public:
    AvahiNet()
    {
        Write("bus.conf",
              "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
              "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\"><busconfig>"
              "<type>session</type><listen>unix:path=" +
                  QFile::encodeName(m_folder.filePath(QStringLiteral("bus"))) +
                  "</listen><auth>ANONYMOUS</auth><allow_anonymous/><policy context=\"default\">"
                  "<allow user=\"*\"/><allow own=\"*\"/><allow send_destination=\"*\" "
                  "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/></policy></busconfig>");
        Write("avahi.conf",
              "[server]\nuse-ipv4=yes\nuse-ipv6=no\nallow-interfaces=lo\n"
              "[publish]\npublish-hinfo=no\npublish-workstation=no\n");
        Write("passwd", "root:x:0:0::/:/bin/sh\navahi:x:0:0::/:/bin/sh\n");
        Write("group", "root:x:0:\navahi:x:0:\nnetdev:x:0:\n");
        qputenv("DBUS_SYSTEM_BUS_ADDRESS",
                "unix:path=" + QFile::encodeName(m_folder.filePath(QStringLiteral("bus"))));
        m_daemon.setWorkingDirectory(m_folder.path());
        m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    }
    ~AvahiNet()
    {
        End();
        End(m_bus);
    }
    AvahiNet(const AvahiNet&) = delete;
    AvahiNet& operator=(const AvahiNet&) = delete;

    bool Start()
    {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--config-file"),
                     m_folder.filePath(QStringLiteral("bus.conf")),
                     QStringLiteral("--nofork"),
                     QStringLiteral("--print-address")});
        if (!m_bus.waitForReadyRead(kTimeoutMs))
            return false;
        m_daemon.start(
            QStringLiteral("unshare"),
            {QStringLiteral("-rmn"),
             QStringLiteral("sh"),
             QStringLiteral("-c"),
             QStringLiteral("PATH=$PATH:/usr/sbin:/sbin; mount -t tmpfs none /run && "
                            "mount --bind passwd /etc/passwd && mount --bind group /etc/group && "
                            "ip link set lo up && exec avahi-daemon -f avahi.conf "
                            "--no-drop-root --no-chroot --no-rlimits")});
        return m_daemon.waitForStarted(kTimeoutMs);
    }
    /// The daemon alone.
    void End() { End(m_daemon); }
    QByteArray said() { return m_daemon.readAll(); }

private:
    static constexpr int kTimeoutMs = 60000;

    static void End(QProcess& pProcess)
    {
        pProcess.terminate();
        pProcess.waitForFinished(kTimeoutMs);
    }
    void Write(const char* pName, const QByteArray& pText)
    {
        QFile file(m_folder.filePath(QLatin1String(pName)));
        if (file.open(QIODevice::WriteOnly))
            file.write(pText);
    }

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_daemon;
};

/// The sign that a light program puts up in that network, until it is destroyed.
class LightSign
{
public:
    LightSign(const char* pName, std::uint16_t pPort) : m_name(pName), m_port(pPort)
    {
        m_poll = avahi_threaded_poll_new();
        m_client = avahi_client_new(avahi_threaded_poll_get(m_poll),
                                    AVAHI_CLIENT_NO_FAIL,
                                    &LightSign::_OnClient,
                                    this,
                                    nullptr);
        avahi_threaded_poll_start(m_poll);
    }
    ~LightSign()
    {
        avahi_threaded_poll_stop(m_poll);
        if (m_client)
            avahi_client_free(m_client);
        avahi_threaded_poll_free(m_poll);
    }
    LightSign(const LightSign&) = delete;
    LightSign& operator=(const LightSign&) = delete;

private:
    static void _OnClient(AvahiClient* pClient, AvahiClientState pState, void* pSelf)
    {
        if (pState != AVAHI_CLIENT_S_RUNNING)
            return;
        auto& self = *static_cast<LightSign*>(pSelf);
        AvahiEntryGroup* group = avahi_entry_group_new(
            pClient, [](AvahiEntryGroup*, AvahiEntryGroupState, void*) {}, nullptr);
        avahi_entry_group_add_service(group,
                                      AVAHI_IF_UNSPEC,
                                      AVAHI_PROTO_INET,
                                      AvahiPublishFlags(0),
                                      self.m_name,
                                      "_os2l._tcp",
                                      nullptr,
                                      nullptr,
                                      self.m_port,
                                      nullptr);
        avahi_entry_group_commit(group);
    }

    const char* m_name;
    std::uint16_t m_port;
    AvahiThreadedPoll* m_poll = nullptr;
    AvahiClient* m_client = nullptr;
};
