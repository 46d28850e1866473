// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// An X server without a screen, for this process and its children. To be made before the
/// QApplication, which then finds it.
class VirtualDisplay
{
public:
    VirtualDisplay()
    {
        const QStringList arguments = {QStringLiteral("-displayfd"),
                                       QStringLiteral("1"),
                                       QStringLiteral("-screen"),
                                       QStringLiteral("0"),
                                       QStringLiteral("1280x900x24"),
                                       QStringLiteral("-dpi"),
                                       QStringLiteral("96"),
                                       QStringLiteral("-nolisten"),
                                       QStringLiteral("tcp")};
        m_server.start(QStringLiteral("Xvfb"), arguments);
        if (!m_server.waitForReadyRead(20000))
            qFatal("Xvfb does not start: %s", m_server.readAllStandardError().constData());
        qputenv("DISPLAY", ':' + m_server.readAllStandardOutput().trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
        // Nothing here is drawn with OpenGL, whose drivers leave memory behind where there are any.
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    }
    ~VirtualDisplay()
    {
        m_server.terminate();
        if (!m_server.waitForFinished(5000))
            m_server.kill();
        m_server.waitForFinished(5000);
    }
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

private:
    QProcess m_server;
};

/// The display comes first: the application looks for one.
struct DisplayedApplication
{
    DisplayedApplication(int& pCount, char** pArguments) : application(pCount, pArguments) {}

    VirtualDisplay display;
    QApplication application;
};

/// A window manager on that server, for as long as it lives.
class WindowManager
{
public:
    WindowManager()
    {
        // Its start-up command runs once it manages windows.
        m_manager.start(
            QStringLiteral("openbox"),
            {QStringLiteral("--sm-disable"), QStringLiteral("--startup"), QStringLiteral("echo")});
        if (!m_manager.waitForReadyRead(20000))
            qFatal("openbox does not start: %s", m_manager.readAllStandardError().constData());
    }
    ~WindowManager()
    {
        m_manager.terminate();
        if (!m_manager.waitForFinished(5000))
            m_manager.kill();
        m_manager.waitForFinished(5000);
    }
    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

private:
    QProcess m_manager;
};
