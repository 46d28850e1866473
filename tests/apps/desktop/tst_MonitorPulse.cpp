// SPDX-License-Identifier: MIT
#include <desktop/live/BpmPanel.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/settings/InputDevicesModel.h>
#include <desktop/window/MainWindow.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>
#include <shared/pulse/PulseBackEnd.h>

#include <QFile>
#include <QListView>

#include <apps/desktop/DesktopTest.h>
#include <pulse/PulseServer.h>
#include <support/TestClass.h>

constexpr int kTimeoutMs = 60000;

/// The window captures from a sound server, which is the test's own.
class tst_MonitorPulse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sink_isListedAndCaptured();

private:
    PulseServer m_server;
    PulseBackEnd m_backEnd;
    QString m_track;
};

void tst_MonitorPulse::initTestCase()
{
    desktoptest::ForgetSettings();
    const std::vector<qint16> samples = desktoptest::DemoPart(8.0, 90.0);
    m_track = m_server.folder() + QStringLiteral("/music.raw");
    QFile file(m_track);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const auto size = qint64(samples.size() * sizeof(qint16));
    QCOMPARE(file.write(reinterpret_cast<const char*>(samples.data()), size), size);
    file.close();
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY2(!m_server.LoadSink(QStringLiteral("deck")).isEmpty(), qPrintable(m_server.error()));
    QVERIFY(m_backEnd.Install());
}

void tst_MonitorPulse::sink_isListedAndCaptured()
{
    QVERIFY(m_server.Play(m_track, QStringLiteral("deck")));
    MonitorSession session;
    MainWindow window(session, WindowSettings(), QPalette());
    window.show();
    session.Listen({});
    auto& list = PanelTest::Get<QListView>(window.getSettings(), "devices");
    // Behind the entry for whichever is the default one.
    QCOMPARE(list.model()->rowCount(), 2);
    const QModelIndex row = list.model()->index(1, 0);
    QCOMPARE(row.data(InputDevicesModel::eNameRole).toString(), QStringLiteral("deck.monitor"));
    // In the words of the server.
    QVERIFY(row.data().toString().startsWith(QLatin1String("Monitor of ")));
    QTRY_COMPARE_WITH_TIMEOUT(
        window.getStatus().getSource(), QStringLiteral("Listening to “deck.monitor”"), kTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(std::abs(window.getBpm().m_pTempo->text().toDouble() - 128.0) < 1.5,
                             kTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(session.getFeed().getBeatCount() >= 3, kTimeoutMs);
    m_server.End();
    QTRY_VERIFY_WITH_TIMEOUT(
        window.getStatus().getSource().startsWith(QStringLiteral("Waiting for “deck.monitor”")),
        kTimeoutMs);
}

AA_TEST(tst_MonitorPulse, QApplication)
#include "tst_MonitorPulse.moc"
