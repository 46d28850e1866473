// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/settings/BeatSettings.h>

#include <QDir>
#include <QtTest>

#include <support/IniFile.h>
#include <support/TestClass.h>

class tst_BeatSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void defaults_holdWithoutAFile();
    void settings_areStored_besideTheOthers();
    void values_beyondTheirLimits_areNotTaken_data();
    void values_beyondTheirLimits_areNotTaken();
    void file_thatCannotBeWritten_isSaid();
};

void tst_BeatSettings::cleanup()
{
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_BeatSettings::defaults_holdWithoutAFile()
{
    const BeatSettings settings = BeatSettings::Load();
    QVERIFY(settings.isAutomatic);
    QCOMPARE(settings.offset, 0.0);
    QVERIFY(!QFile::exists(UISettings::_getDefaultPath()));
}

void tst_BeatSettings::settings_areStored_besideTheOthers()
{
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(), "[MainWindow]\nBPM=false\n"));
    BeatSettings settings;
    settings.isAutomatic = false;
    settings.offset = -123.5;
    QVERIFY(settings.Save());
    const BeatSettings stored = BeatSettings::Load();
    QVERIFY(!stored.isAutomatic);
    QCOMPARE(stored.offset, -123.5);
    QVERIFY(!UISettings::Load().isBPMVisible());
}

void tst_BeatSettings::values_beyondTheirLimits_areNotTaken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isAutomatic");
    QTest::addColumn<double>("offset");
    QTest::newRow("good") << QByteArray("Tracker=profile\nOffsetMs=500") << false << 500.0;
    QTest::newRow("letter case") << QByteArray("Tracker=PROFILE\nOffsetMs=-500") << false << -500.0;
    QTest::newRow("far") << QByteArray("Tracker=automatic\nOffsetMs=501") << true << 0.0;
    QTest::newRow("no number") << QByteArray("Tracker=ear\nOffsetMs=soon") << true << 0.0;
    QTest::newRow("nan") << QByteArray("OffsetMs=nan") << true << 0.0;
}

void tst_BeatSettings::values_beyondTheirLimits_areNotTaken()
{
    QFETCH(QByteArray, text);
    QVERIFY(WriteIniFile(UISettings::_getDefaultPath(), "[Beats]\n" + text + '\n'));
    const BeatSettings settings = BeatSettings::Load();
    QTEST(settings.isAutomatic, "isAutomatic");
    QTEST(settings.offset, "offset");
}

// Also root cannot put a file in a folder's place.
void tst_BeatSettings::file_thatCannotBeWritten_isSaid()
{
    const QString path = UISettings::_getDefaultPath();
    QVERIFY(QDir().mkpath(path + QStringLiteral("/x")));
    QVERIFY(!BeatSettings().Save());
    QVERIFY(QDir(path).removeRecursively());
}

AA_TEST(tst_BeatSettings, QCoreApplication)
#include "tst_BeatSettings.moc"
