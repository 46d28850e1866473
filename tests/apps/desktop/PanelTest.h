// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QtTest>

#include <fake/FakeAudioState.h>
#include <memory>

/// What the tests of panels share.
class PanelTest
{
public:
    /// To be called by initTestCase(): the machine is the fake one, and warnings are fatal.
    static void Install()
    {
        FakeAudioState::Install();
        s_previous = qInstallMessageHandler(&_OnMessage);
    }

    /// To be called by init(): no devices, and built-in profiles as in a new process.
    static void Clear()
    {
        FakeAudioState::Get().Clear();
        Poll();
        UserProfile::_nextID = 100;
        PredefinedProfile::_nextID = 1;
        PredefinedProfile::_builtInProfiles.clear();
    }

    /// What the watcher does every two seconds.
    static void Poll() { QtAudioInputDevicesManager::GetInstance()->OnTimer(); }

    static std::unique_ptr<AudioAnalyzer> MakeAnalyzer(Configuration& pConfiguration)
    {
        QAudioFormat format;
        format.setSampleRate(48000);
        format.setChannelCount(1);
        format.setSampleSize(16);
        return std::make_unique<AudioAnalyzer>(&pConfiguration, format, nullptr);
    }

    /// A descendant by its class and object name; there must be one.
    template <typename Widget>
    static Widget& Get(QObject& pParent, const char* pName)
    {
        auto* pWidget = pParent.findChild<Widget*>(QLatin1String(pName));
        if (!pWidget)
            qFatal("there is no %s", pName);
        return *pWidget;
    }

    static void Click(QObject& pParent, const char* pName)
    {
        QTest::mouseClick(&Get<QAbstractButton>(pParent, pName), Qt::LeftButton);
    }

    /// Shows it as the active window, so that keys reach it.
    static bool Show(QWidget& pWindow)
    {
        pWindow.show();
        pWindow.activateWindow();
        return QTest::qWaitForWindowActive(&pWindow, 60000);
    }

    /// The widgets that take the keyboard and say nothing to a screen reader.
    static QStringList Unnamed(const QWidget& pPanel)
    {
        QStringList unnamed;
        const auto widgets = pPanel.findChildren<QWidget*>();
        for (const QWidget* pWidget : widgets) {
            const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget);
            const bool isNamed =
                !pWidget->accessibleName().isEmpty() || (pButton && !pButton->text().isEmpty());
            // Parts of other widgets have names that Qt gave them.
            const bool isOurs = !pWidget->objectName().startsWith(QLatin1String("qt_"));
            const bool takesKeys = pWidget->focusPolicy() & Qt::TabFocus;
            if (isOurs && takesKeys && !isNamed)
                unnamed.append(pWidget->objectName());
        }
        return unnamed;
    }

    /// The letters that Alt reaches, in capitals: those of buttons, and of labels with a field.
    static QString Mnemonics(const QWidget& pPanel)
    {
        QString letters;
        const auto widgets = pPanel.findChildren<QWidget*>();
        for (const QWidget* pWidget : widgets) {
            const auto* pButton = qobject_cast<const QAbstractButton*>(pWidget);
            const auto* pLabel = qobject_cast<const QLabel*>(pWidget);
            const QString text = pButton                     ? pButton->text()
                                 : pLabel && pLabel->buddy() ? pLabel->text()
                                                             : QString();
            const int mark = text.indexOf(QLatin1Char('&'));
            if (mark >= 0)
                letters.append(text.at(mark + 1).toUpper());
        }
        return letters;
    }

private:
    static void
    _OnMessage(QtMsgType pType, const QMessageLogContext& pContext, const QString& pText)
    {
        // The platform without a screen says this of every window with a minimal size.
        if (pText == QLatin1String("This plugin does not support propagateSizeHints()"))
            return;
        s_previous(pType, pContext, pText);
        if (pType == QtWarningMsg || pType == QtCriticalMsg)
            std::abort();
    }

    inline static QtMessageHandler s_previous = nullptr;
};
