// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include "MonitorSessionTest.h"
#include <desktop/session/MonitorSession.h>
#include <shared/capture/InputDevices.h>

#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <apps/desktop/DesktopTest.h>
#include <fake/Machine.h>
#include <limits>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

/// What a session stores, takes over from other programs, and says of a file that is no good.
class tst_MonitorSession_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();
    void choice_isStored();
    void tracker_isRemembered();
    void firstStart_isAsTheDesktopIs();
    void damagedConfiguration_isSaid();
    void settings_areSavedOnceTheyRest();
    void settings_thatCannotBeWritten_areSaid();
    void settings_waitForAnotherProgramThatSaves();
    void settings_ofOthers_areTakenOver();
    void settings_ofOthers_areTakenOverWithTheNextSave();
    void device_ofOthers_isForTheNextStart();
    void absurdConfiguration_isClampedAndSaid();
};

void tst_MonitorSession_settings::init()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
}

void tst_MonitorSession_settings::choice_isStored()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().Plug(desktoptest::SilentDevice("Line"));
    MonitorSession session;
    QSignalSpy saved(&session.getSaver(), &ConfigurationSaver::OnSaved);
    session.Listen({});
    session.ChooseDevice(Name("Line"));
    QCOMPARE(session.getDeviceName(), Name("Line"));
    QVERIFY(saved.wait(5000));
    ConfigurationStore store;
    QVERIFY(store.Load());
    QCOMPARE(store.getDeviceName(), Name("Line"));
    // The same once more changes nothing, not even the recording.
    const int inputs = Machine().createdInputs();
    session.ChooseDevice(Name("Line"));
    QCOMPARE(Machine().createdInputs(), inputs);
}

void tst_MonitorSession_settings::tracker_isRemembered()
{
    {
        MonitorSession session;
        QString error;
        QVERIFY(session.Load(error));
        QVERIFY(session.isAutomatic());
        session.setAutomatic(false);
        session.setAutomatic(false);
    }
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    QVERIFY(!session.isAutomatic());
    session.setAutomatic(true);
    QVERIFY(QFile::remove(UISettings::_getDefaultPath()));
}

void tst_MonitorSession_settings::firstStart_isAsTheDesktopIs()
{
    QString error;
    {
        MonitorSession session;
        QVERIFY(session.Load(error));
        QVERIFY(!session.getConfiguration().getGrayMode());
        QVERIFY(!session.getConfiguration().isTopMost());
        // It is kept with the first change, whatever that is.
        QVERIFY(session.getSaver().Save());
        QVERIFY(!QFile::exists(ConfigurationStore::getPath()));
        session.getConfiguration().setDisplaySpeakers(false);
        session.getSaver().Touch();
        QVERIFY(session.getSaver().Save());
    }
    MonitorSession session;
    QVERIFY(session.Load(error));
    QVERIFY(!session.getConfiguration().getGrayMode());
    QVERIFY(!session.getConfiguration().isTopMost());
    QVERIFY(!session.getConfiguration().getDisplaySpeakers());
    // Whoever chose gray keeps it.
    session.getConfiguration().setGrayMode(true);
    session.getSaver().Touch();
    QVERIFY(session.getSaver().Save());
    MonitorSession gray;
    QVERIFY(gray.Load(error));
    QVERIFY(gray.getConfiguration().getGrayMode());
}

void tst_MonitorSession_settings::damagedConfiguration_isSaid()
{
    QFile file(ConfigurationStore::getPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("not a configuration") > 0);
    file.close();
    MonitorSession session;
    QString error;
    QVERIFY(!session.Load(error));
    QVERIFY(error.contains(ConfigurationStore::getPath()));
}

void tst_MonitorSession_settings::settings_areSavedOnceTheyRest()
{
    MonitorSession session;
    ConfigurationSaver& saver = session.getSaver();
    QSignalSpy saved(&saver, &ConfigurationSaver::OnSaved);
    // Nothing has changed.
    saver.Touch();
    QVERIFY(saver.Save());
    QVERIFY(!QFileInfo::exists(ConfigurationStore::getPath()));
    for (qint16 threshold = 1000; threshold < 1005; ++threshold) {
        session.getConfiguration().setThreshold(threshold);
        saver.Touch();
        QTest::qWait(50);
    }
    QCOMPARE(saved.count(), 0);
    QVERIFY(saved.wait(5000));
    QCOMPARE(saved.count(), 1);
    QVERIFY(!session.getConfiguration().isModified());
    ConfigurationStore store;
    QVERIFY(store.Load());
    QCOMPARE(store.getConfiguration().getThreshold(), qint16(1004));
}

void tst_MonitorSession_settings::settings_thatCannotBeWritten_areSaid()
{
    // A folder in the file's place cannot be replaced by a file, whoever runs this.
    const QString path = ConfigurationStore::getPath();
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    MonitorSession session;
    QSignalSpy failed(&session.getSaver(), &ConfigurationSaver::OnFailed);
    session.getConfiguration().setThreshold(1000);
    const bool isSaved = session.getSaver().Save();
    QVERIFY(QDir(path).removeRecursively());
    QVERIFY(!isSaved);
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.first().first().toString().contains(path));
    // It is tried again.
    QVERIFY(session.getConfiguration().isModified());
    QVERIFY(session.getSaver().Save());
}

void tst_MonitorSession_settings::settings_waitForAnotherProgramThatSaves()
{
    MonitorSession session;
    ConfigurationSaver& saver = session.getSaver();
    QSignalSpy saved(&saver, &ConfigurationSaver::OnSaved);
    QSignalSpy failed(&saver, &ConfigurationSaver::OnFailed);
    saver.m_delay.setInterval(1);
    FileLock other;
    QCOMPARE(other.Take(ConfigurationStore::getPath(), 0), FileLock::eTaken);
    session.getConfiguration().setThreshold(1000);
    saver.Touch();
    QTRY_VERIFY(saver.m_sinceBusy.isValid());
    // It is tried again and again, and said only after a while.
    QCOMPARE(failed.count(), 0);
    saver.m_patienceMs = 0;
    QTRY_VERIFY(failed.count() > 0);
    QVERIFY(failed.first().first().toString().contains(QLatin1String("another program")));
    QVERIFY(!QFileInfo::exists(ConfigurationStore::getPath()));
    other.LetGo();
    QTRY_COMPARE(saved.count(), 1);
    QVERIFY(!saver.m_sinceBusy.isValid());
    QVERIFY(!saver.m_delay.isActive());
}

void tst_MonitorSession_settings::settings_ofOthers_areTakenOver()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    QSignalSpy taken(&session.getSaver(), &ConfigurationSaver::OnTakenOver);
    session.Listen({});
    QTRY_VERIFY(session.getAnalyzer());
    const auto before = session.getAnalyzer()->m_volumeStats.m_capacity;
    session.getConfiguration().setThreshold(1000);
    ConfigurationStore other;
    QVERIFY(other.LoadToChange());
    other.getConfiguration().setThreshold(2000);
    other.getConfiguration().setAverageVolumeCalculationDuration(4.0);
    QVERIFY(other.Save());
    QTRY_COMPARE(taken.count(), 1);
    QCOMPARE(session.getConfiguration().getAverageVolumeCalculationDuration(), 4.0);
    // The analysis that runs knows it, and what was changed here stays.
    QCOMPARE(session.getAnalyzer()->m_volumeStats.m_capacity, 2 * before);
    QCOMPARE(session.getConfiguration().getThreshold(), qint16(1000));
    QVERIFY(session.getSaver().Save());
    QCOMPARE(taken.count(), 1);
    QVERIFY(other.Load());
    QCOMPARE(other.getConfiguration().getThreshold(), qint16(1000));
    QCOMPARE(other.getConfiguration().getAverageVolumeCalculationDuration(), 4.0);
}

void tst_MonitorSession_settings::settings_ofOthers_areTakenOverWithTheNextSave()
{
    MonitorSession session;
    QSignalSpy taken(&session.getSaver(), &ConfigurationSaver::OnTakenOver);
    ConfigurationStore other;
    other.getConfiguration().setGrayMode(false);
    QVERIFY(other.Save());
    // Nobody looks by itself before the session is loaded.
    session.getConfiguration().setThreshold(1000);
    QVERIFY(session.getSaver().Save());
    QCOMPARE(taken.count(), 1);
    QVERIFY(!session.getConfiguration().getGrayMode());
    QVERIFY(other.TakeOver());
    QCOMPARE(other.getConfiguration().getThreshold(), qint16(1000));
}

void tst_MonitorSession_settings::device_ofOthers_isForTheNextStart()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().Plug(desktoptest::SilentDevice("Line"));
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    QSignalSpy taken(&session.getSaver(), &ConfigurationSaver::OnTakenOver);
    session.Listen(Name("Deck"));
    ConfigurationStore other;
    QVERIFY(other.LoadToChange());
    other.setDeviceName(Name("Line"));
    QVERIFY(other.Save());
    QTRY_COMPARE(taken.count(), 1);
    QCOMPARE(session.getDeviceName(), Name("Deck"));
    session.getConfiguration().setThreshold(1000);
    QVERIFY(session.getSaver().Save());
    QVERIFY(other.Load());
    QCOMPARE(other.getDeviceName(), Name("Line"));
}

void tst_MonitorSession_settings::absurdConfiguration_isClampedAndSaid()
{
    Configuration absurd;
    absurd.setAverageVolumeCalculationDuration(1e300);
    absurd.setStopDetectionDuration(std::numeric_limits<double>::infinity());
    QVERIFY(absurd.Save());
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    QString words;
    QVERIFY(session.Load(words));
    QVERIFY2(words.contains(QLatin1String("average-duration 60 instead of 1e+300")),
             qPrintable(words));
    QCOMPARE(session.getConfiguration().getStopDetectionDuration(), 10.0);
    session.Listen({});
    QTRY_VERIFY(session.getAnalyzer());
}

AA_TEST(tst_MonitorSession_settings, InVirtualTime<QCoreApplication>)
#include "tst_MonitorSession_settings.moc"
