// SPDX-License-Identifier: MIT
#include <desktop/live/BpmPanel.h>
#include <desktop/live/SpeakersPanel.h>
#include <desktop/settings/AdvancedSettingsPanel.h>
#include <desktop/settings/ManualBeatPanel.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <apps/desktop/window/WindowTest.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

/// The window as a whole.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();

    void panel_isToggledByTheMenu();
    void emptyCards_takeNoRoom();
    void resetKey_resets();
    void resetKey_isALetter_whileTyping();
    void status_saysWhatIsHeard();
    void problem_isSaidAndTakenBack();
    void failedSave_isSaidWithThePath();
    void refresh_restsWhileHidden();
    void refresh_isQuick_onlyWhileLampsFade();
    void droppedFile_isPlayed();
    void droppedText_isRefused();
    void stopFile_isOffered_onlyForAFile();
    void chosenDevice_isRecorded();
    void hand_actsAtOnce();
    void offset_isTheClocks_andKept();
    void closing_quits();
    void widgets_sayWhatTheyAre();
    void mnemonics_ofTheMenusDiffer();
};

void tst_MainWindow::init()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
}

void tst_MainWindow::panel_isToggledByTheMenu()
{
    Stand stand;
    QAction* pAction = stand.window.m_actions[eSpectrumPanel];
    QVERIFY(stand.window.isPanelVisible(eSpectrumPanel));
    pAction->trigger();
    QVERIFY(!stand.window.isPanelVisible(eSpectrumPanel));
    pAction->trigger();
    QVERIFY(stand.window.isPanelVisible(eSpectrumPanel));
    QVERIFY(!stand.window.isPanelVisible(eDurationsPanel));
    stand.window.m_actions[eDurationsPanel]->trigger();
    QVERIFY(stand.window.isPanelVisible(eDurationsPanel));
}

void tst_MainWindow::emptyCards_takeNoRoom()
{
    WindowSettings settings;
    settings.visible.reset();
    Stand stand(settings);
    stand.session.getConfiguration().setDisplaySpeakers(false);
    stand.window.ApplyFlags();
    stand.window.show();
    QVERIFY(!stand.window.getSettings().isVisible());
    QVERIFY(!stand.window.m_pSpeakers->isVisible());
    const auto row = stand.window.m_pBpm->parentWidget();
    QVERIFY(!row->isVisible());
    stand.window.setPanelVisible(eBeatLEDPanel, true);
    QVERIFY(row->isVisible());
}

void tst_MainWindow::resetKey_resets()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Stand stand;
    stand.session.Listen({});
    QVERIFY(PanelTest::Show(stand.window));
    QTRY_VERIFY_WITH_TIMEOUT(stand.session.getFeed().Read().bpm > 0.0, 12000);
    QTest::keyClick(&stand.window, Qt::Key_R);
    QCOMPARE(stand.session.getFeed().Read().bpm, 0.0);
    QTRY_VERIFY_WITH_TIMEOUT(stand.session.getFeed().Read().bpm > 0.0, 12000);
    QTest::mouseClick(stand.window.m_pResetButton, Qt::LeftButton);
    QCOMPARE(stand.session.getFeed().Read().bpm, 0.0);
}

void tst_MainWindow::resetKey_isALetter_whileTyping()
{
    Stand stand;
    QLineEdit field(&stand.window);
    field.show();
    QVERIFY(PanelTest::Show(stand.window));
    QSignalSpy resets(&stand.window.getResetAction(), &QAction::triggered);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_R);
    QCOMPARE(field.text(), QStringLiteral("r"));
    QCOMPARE(resets.count(), 0);
}

void tst_MainWindow::status_saysWhatIsHeard()
{
    Stand stand;
    stand.session.Listen({});
    QVERIFY(stand.window.getStatus().getSource().startsWith(QLatin1String("No input device")));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    stand.session.Listen(QStringLiteral("Deck"));
    stand.window.show();
    QTRY_COMPARE_WITH_TIMEOUT(
        stand.window.getStatus().getSource(), QStringLiteral("Listening to “Deck”"), 8000);
}

void tst_MainWindow::problem_isSaidAndTakenBack()
{
    Stand stand;
    stand.window.show();
    QVERIFY(!stand.window.getStatus().m_pProblem->isVisible());
    stand.window.ShowProblem(QStringLiteral("disk full"));
    QCOMPARE(stand.window.getProblem(), QStringLiteral("disk full"));
    QVERIFY(stand.window.getStatus().m_pProblem->isVisible());
    stand.window.ShowProblem({});
    QVERIFY(!stand.window.getStatus().m_pProblem->isVisible());
}

void tst_MainWindow::failedSave_isSaidWithThePath()
{
    const QString path = ConfigurationStore::getPath();
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    Stand stand;
    stand.window.show();
    auto& gray = PanelTest::Get<QCheckBox>(stand.window.getSettings(), "gray-mode");
    gray.click();
    QTRY_VERIFY(stand.window.getProblem().contains(path));
    QVERIFY(QDir(path).removeRecursively());
    gray.click();
    QTRY_COMPARE(stand.window.getProblem(), QString());
}

void tst_MainWindow::refresh_restsWhileHidden()
{
    Stand stand;
    QVERIFY(!stand.window.isRefreshing());
    stand.window.show();
    QVERIFY(stand.window.isRefreshing());
    stand.window.hide();
    QVERIFY(!stand.window.isRefreshing());
    // A flash while it is hidden wakes nothing.
    Q_EMIT stand.session.getFeed().OnFlashed();
    QVERIFY(!stand.window.isRefreshing());
    stand.window.showMinimized();
    QVERIFY(!stand.window.isRefreshing());
    stand.window.showNormal();
    QVERIFY(stand.window.isRefreshing());
}

void tst_MainWindow::refresh_isQuick_onlyWhileLampsFade()
{
    Stand stand;
    stand.window.show();
    QCOMPARE(stand.window.m_refresh.interval(), MainWindow::kCalmMs);
    stand.session.getFeed().m_values.beatTime = stand.session.getFeed().getTime();
    Q_EMIT stand.session.getFeed().OnFlashed();
    QCOMPARE(stand.window.m_refresh.interval(), MainWindow::kFlashMs);
    QTRY_COMPARE(stand.window.m_refresh.interval(), MainWindow::kCalmMs);
}

void tst_MainWindow::droppedFile_isPlayed()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("song.wav"));
    desktoptest::WriteWav(path, desktoptest::Strokes(5.0));
    Stand stand;
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://example.org/a.wav")), QUrl::fromLocalFile(path)});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    stand.window.dragEnterEvent(&enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    stand.window.dropEvent(&drop);
    QVERIFY(stand.session.isFilePlaying());
    QVERIFY(stand.window.getStatus().getSource().contains(QLatin1String("song.wav")));
}

void tst_MainWindow::droppedText_isRefused()
{
    Stand stand;
    QMimeData data;
    data.setText(QStringLiteral("words"));
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    stand.window.dragEnterEvent(&enter);
    QVERIFY(!enter.isAccepted());
}

void tst_MainWindow::stopFile_isOffered_onlyForAFile()
{
    Stand stand;
    stand.session.Listen({});
    QVERIFY(!stand.window.m_pStop->isEnabled());
    stand.session.PlayFile(QStringLiteral("/nowhere.wav"), false);
    QVERIFY(stand.window.m_pStop->isEnabled());
    QTRY_COMPARE(stand.session.getSource().kind, SourceState::eEnded);
    QVERIFY(stand.window.m_pStop->isEnabled());
    stand.window.m_pStop->trigger();
    QVERIFY(!stand.window.m_pStop->isEnabled());
}

void tst_MainWindow::chosenDevice_isRecorded()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().Plug(desktoptest::SilentDevice("Line"));
    PanelTest::Poll();
    Stand stand;
    stand.session.Listen({});
    stand.window.show();
    auto& list = PanelTest::Get<QListView>(stand.window.getSettings(), "devices");
    QCOMPARE(list.model()->rowCount(), 2);
    QTest::mouseClick(list.viewport(),
                      Qt::LeftButton,
                      Qt::NoModifier,
                      list.visualRect(list.model()->index(1, 0)).center());
    QCOMPARE(stand.session.getDeviceName(), QStringLiteral("Line"));
}

void tst_MainWindow::hand_actsAtOnce()
{
    Stand stand;
    stand.window.show();
    stand.session.getHand().HoldAt(128.0);
    SettingsColumn& column = stand.window.getSettings();
    const auto tempo = [&] { return PanelTest::Get<QLabel>(column, "tempo").text(); };
    QCOMPARE(tempo(), QStringLiteral("128.0 BPM"));
    PanelTest::Click(column, "half");
    QCOMPARE(tempo(), QStringLiteral("64.0 BPM"));
    QCOMPARE(stand.session.getBeats().getClock().getState().bpm, 64.0);
    PanelTest::Click(column, "double");
    QCOMPARE(tempo(), QStringLiteral("128.0 BPM"));
    PanelTest::Click(column, "lock");
    QVERIFY(!stand.session.getHand().isHeld());
}

void tst_MainWindow::offset_isTheClocks_andKept()
{
    {
        Stand stand;
        PanelTest::Get<QDoubleSpinBox>(stand.window.getSettings(), "offset").setValue(35.0);
        QCOMPARE(stand.session.getBeats().getClock().getOffset(), std::int64_t(35000));
    }
    Stand again;
    QString error;
    QVERIFY(again.session.Load(error));
    QCOMPARE(again.session.getOffset(), 35.0);
    QCOMPARE(again.session.getBeats().getClock().getOffset(), std::int64_t(35000));
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_MainWindow::closing_quits()
{
    Stand stand;
    stand.window.show();
    QTimer::singleShot(10, &stand.window, &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!stand.window.isVisible());
}

void tst_MainWindow::widgets_sayWhatTheyAre()
{
    Stand stand;
    QCOMPARE(PanelTest::Unnamed(stand.window), QStringList());
}

void tst_MainWindow::mnemonics_ofTheMenusDiffer()
{
    Stand stand;
    const auto menus = stand.window.menuBar()->findChildren<QMenu*>();
    for (const QMenu* pMenu : menus) {
        QString letters;
        const auto actions = pMenu->actions();
        for (const QAction* pAction : actions) {
            if (pAction->isSeparator())
                continue;
            const int mark = pAction->text().indexOf(QLatin1Char('&'));
            QVERIFY2(mark >= 0, qPrintable(pAction->text()));
            const QChar letter = pAction->text().at(mark + 1).toUpper();
            QVERIFY2(!letters.contains(letter), qPrintable(pAction->text()));
            letters.append(letter);
        }
    }
}

AA_TEST(tst_MainWindow, InVirtualTime<QApplication>)
#include "tst_MainWindow.moc"
