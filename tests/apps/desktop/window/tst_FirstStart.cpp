// SPDX-License-Identifier: MIT
#include <desktop/live/BpmPanel.h>
#include <desktop/settings/InputDevicesPanel.h>
#include <desktop/settings/Translations.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QListView>

#include <apps/desktop/window/WindowTest.h>
#include <memory>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

namespace {

const QString kPlay = QStringLiteral("Play music: the tempo comes by itself. ");

/// A session with its window, as the program begins them.
struct Start
{
    Start()
    {
        QString error;
        if (!session.Load(error))
            qFatal("%s", qPrintable(error));
        window = std::make_unique<MainWindow>(session, WindowSettings(), makePalette(eLightLook));
        window->show();
        session.Listen({});
    }
    QString hint() const { return window->getBpm().m_pHint->text(); }
    QString status() const { return window->getStatus().getSource(); }

    MonitorSession session;
    std::unique_ptr<MainWindow> window;
};

}  // namespace

/// A start at which nobody has set anything up.
class tst_FirstStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
        QFile::remove(UISettings::_getDefaultPath());
    }

    void nothing_isAsked_andTheHelpGoesWithTheFirstBeat();
    void help_staysWithoutMusic();
    void help_givesWay_toWhatIsToBeDone();
    void help_comesWithTheFirstInput();
    void choice_endsIt();
    void laterStart_hasNone();
};

void tst_FirstStart::nothing_isAsked_andTheHelpGoesWithTheFirstBeat()
{
    Machine().Plug(desktoptest::SilentDevice("Speakers.monitor"));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().SetDefault(1);
    Start start;
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(start.session.isAutomatic());
    QTRY_VERIFY(start.hint().startsWith(kPlay));
    QVERIFY(start.hint().contains(QStringLiteral("“Deck”")));
    QTRY_COMPARE(start.status(), QStringLiteral("Listening to “Deck”"));
    QTRY_VERIFY_WITH_TIMEOUT(start.session.getFeed().getBeatCount() > 0, 60000);
    QTRY_COMPARE(start.hint(), QString());
    QVERIFY(!start.session.isNew());
    QVERIFY(!start.session.getConfiguration().isModified());
}

void tst_FirstStart::help_staysWithoutMusic()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    Start start;
    QTRY_VERIFY(start.hint().startsWith(kPlay));
    // Once silence is noticed, what to do against it is said instead.
    QTRY_VERIFY_WITH_TIMEOUT(start.session.getSource().notice.has_value(), 60000);
    QTRY_VERIFY(!start.hint().startsWith(kPlay));
    QVERIFY(start.status().startsWith(Name("Nothing but silence")));
    QVERIFY(start.session.isNew());
}

void tst_FirstStart::help_givesWay_toWhatIsToBeDone()
{
    Start start;
    QVERIFY(start.status().startsWith(Name("No input device.")));
    QTest::qWait(1000);
    QVERIFY(!start.hint().startsWith(kPlay));
}

void tst_FirstStart::help_comesWithTheFirstInput()
{
    Start start;
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    PanelTest::Poll();
    QTRY_VERIFY(start.hint().contains(QStringLiteral("“Deck”")));
}

void tst_FirstStart::choice_endsIt()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    Machine().Plug(desktoptest::SilentDevice("Deck"));
    PanelTest::Poll();
    Start start;
    QTRY_VERIFY(start.hint().contains(QStringLiteral("“Line”")));
    Q_EMIT start.window->getSettings().getDevices().OnDeviceChosen(Name("Deck"));
    QTRY_VERIFY(!start.hint().startsWith(kPlay));
    QVERIFY(!start.session.isNew());
}

void tst_FirstStart::laterStart_hasNone()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    {
        ConfigurationStore store;
        QVERIFY(store.LoadToChange());
        store.getConfiguration().setGrayMode(true);
        QVERIFY(store.Save());
    }
    Start start;
    QTest::qWait(1000);
    QVERIFY(!start.session.isNew());
    QVERIFY(!start.hint().startsWith(kPlay));
}

AA_TEST(tst_FirstStart, InVirtualTime<QApplication>)
#include "tst_FirstStart.moc"
