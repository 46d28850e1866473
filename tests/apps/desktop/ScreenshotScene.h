// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/look/Look.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/Translations.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>

#include <cstdio>
#include <memory>

/// What the pictures of the window are made with.
namespace screenshots {

inline void Wait(int pMs)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < pMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}

/// The window with its session on the fake machine, and where its pictures go.
class Scene
{
public:
    explicit Scene(const QDir& pFolder) : m_folder(pFolder)
    {
        session.getConfiguration().setTopMost(false);
        translations.setLanguage(QStringLiteral("en"));
        window = std::make_unique<MainWindow>(session, WindowSettings(), makePalette(eLightLook));
        setLook(eLightLook);
        window->show();
    }

    void setLook(eLook pLook)
    {
        session.getConfiguration().setGrayMode(pLook == eGrayLook);
        window->m_desktop = makePalette(pLook);
        window->ApplyFlags();
        window->m_pSettings->getAdvanced().Refresh();
    }

    /// Waits for a beat, so that the lamp shines.
    void SaveOnBeat(const char* pName)
    {
        LiveFeed& feed = session.getFeed();
        const quint64 beats = feed.getBeatCount();
        while (feed.getBeatCount() == beats)
            Wait(1);
        window->_Refresh();
        Save(pName);
    }

    void Save(const char* pName) { Save(pName, *window); }

    void Save(const char* pName, QWidget& pWidget)
    {
        const QString path = m_folder.filePath(QString::fromUtf8(pName) + QStringLiteral(".png"));
        const QImage image = pWidget.grab().toImage().convertToFormat(QImage::Format_RGB888);
        if (!image.save(path, nullptr, 0))
            qFatal("cannot write %s", qPrintable(path));
        std::printf("%s\n", qPrintable(path));
        std::fflush(stdout);
    }

    MonitorSession session;
    Translations translations;
    std::unique_ptr<MainWindow> window;

private:
    QDir m_folder;
};

/// A start at which nobody has set anything up, with the levels of the inputs, in three looks.
void shootFirstStart(const QDir& pFolder);
/// Outputs in their states, in every look, a test, and the window in which one is edited.
void shootOutputs(Scene& pScene);

}  // namespace screenshots
