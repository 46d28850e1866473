// SPDX-License-Identifier: MIT
#include <desktop/window/BoothActions.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/StatusLine.h>

#include <QAction>
#include <QTemporaryDir>

#include <apps/desktop/window/WindowTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

/// The window while a file is played.
class tst_MainWindow_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init()
    {
        PanelTest::Clear();
        desktoptest::ForgetSettings();
    }

    void muting_isKept();
    void muting_isSaid();
};

void tst_MainWindow_files::muting_isKept()
{
    WindowSettings settings;
    QVERIFY(!settings.isMuted);
    settings.isMuted = true;
    Stand stand(settings);
    QAction& action = stand.window.getActions().get(eMuteAction);
    QVERIFY(stand.session.isMuted() && action.isChecked());
    action.trigger();
    QVERIFY(!stand.session.isMuted() && !action.isChecked());
    QVERIFY(!stand.window.CollectSettings().isMuted);
    action.trigger();
    QVERIFY(stand.window.CollectSettings().isMuted);
}

void tst_MainWindow_files::muting_isSaid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("song.wav"));
    desktoptest::WriteWav(path, desktoptest::Strokes(4.0));
    Stand stand;
    stand.window.show();
    stand.session.PlayFile(path, true);
    const auto says = [&](const char* pWords) {
        return stand.window.getStatus().getSource().contains(QLatin1String(pWords));
    };
    // There is no back end of the hosts' own here.
    QTRY_VERIFY(says("without sound: no sound server answers"));
    QAction& action = stand.window.getActions().get(eMuteAction);
    action.trigger();
    QTRY_VERIFY(says("without sound: muted"));
    action.trigger();
    QTRY_VERIFY(says("without sound: no sound server answers"));
}

AA_TEST(tst_MainWindow_files, InVirtualTime<QApplication>)
#include "tst_MainWindow_files.moc"
