// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "ConfigurationStoreTest.h"
#include <shared/settings/ConfigurationStore.h>

#include <QTemporaryDir>
#include <QtTest>

#include <limits>
#include <support/TestClass.h>
#include <support/Text.h>
#include <sys/stat.h>

/// What the store finds where its file is to be: folders, pipes, links, and values beyond all
/// limits.
class tst_ConfigurationStore_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setLibraryPaths({}); }
    void init();

    void whatIsNoFile_isRefusedAtOnce_data();
    void whatIsNoFile_isRefusedAtOnce();
    void link_staysAndItsTargetIsWritten_data();
    void link_staysAndItsTargetIsWritten();
    void linkInACircle_isReplaced();
    void mode_isKept();
    void absurdValues_areClampedAndSaid_data();
    void absurdValues_areClampedAndSaid();
    void absurdProfile_isClampedAndSaid();
    void absurdValuesOfAnother_areClampedAndSaid();
};

void tst_ConfigurationStore_files::init()
{
    QFile::remove(Path());
    QDir(Path()).removeRecursively();
}

void tst_ConfigurationStore_files::whatIsNoFile_isRefusedAtOnce_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* pKind : {"pipe", "endless device", "link to a pipe", "folder"})
        QTest::newRow(pKind) << QString::fromUtf8(pKind);
}

/// Reading any of them would wait or go on for ever, so a test that ends has shown it.
void tst_ConfigurationStore_files::whatIsNoFile_isRefusedAtOnce()
{
    QFETCH(QString, kind);
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    if (kind == QLatin1String("pipe"))
        QCOMPARE(::mkfifo(QFile::encodeName(Path()).constData(), 0600), 0);
    else if (kind == QLatin1String("endless device"))
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), Path()));
    else if (kind == QLatin1String("link to a pipe"))
        QVERIFY(QFile::link(pipe, Path()));
    else
        QVERIFY(QDir().mkpath(Path()));
    ConfigurationStore store;
    QVERIFY(!store.Load());
    QCOMPARE(store.getError(), Path() + Text(" is not a file; move it away"));
    QVERIFY(!store.TakeOver());
    // Nor is it replaced.
    QVERIFY(!store.Save());
    QVERIFY(store.getError().contains(Path() + Text(" cannot be written")));
    QVERIFY(!QFileInfo(Path()).isFile());
}

void tst_ConfigurationStore_files::link_staysAndItsTargetIsWritten_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* pKind : {"absolute", "relative", "link to a link", "nothing there yet"})
        QTest::newRow(pKind) << QString::fromUtf8(pKind);
}

void tst_ConfigurationStore_files::link_staysAndItsTargetIsWritten()
{
    QFETCH(QString, kind);
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("settings.cfg"));
    const QString second = folder.filePath(QStringLiteral("second"));
    StoreElsewhere(1000);
    QVERIFY(QFile::rename(Path(), target));
    QString link = target;
    if (kind == QLatin1String("relative"))
        link = QFileInfo(Path()).dir().relativeFilePath(target);
    if (kind == QLatin1String("link to a link"))
        QVERIFY(QFile::link(target, link = second));
    if (kind == QLatin1String("nothing there yet"))
        QVERIFY(QFile::remove(target));
    QVERIFY(QFile::link(link, Path()));

    ConfigurationStore store;
    QVERIFY(store.Load());
    const bool isThere = kind != QLatin1String("nothing there yet");
    QCOMPARE(store.getConfiguration().getThreshold(), short(isThere ? 1000 : -1));
    // Programs that come by another way wait for each other all the same.
    FileLock holder;
    QCOMPARE(holder.Take(target, 0), FileLock::eTaken);
    QVERIFY(!store.Save(0) && store.isBusy());
    holder.LetGo();
    StoreElsewhere(2000);
    QVERIFY(QFileInfo(Path()).isSymLink());
    QVERIFY(!QFileInfo(target).isSymLink());
    QVERIFY(store.TakeOver());
    QCOMPARE(store.getConfiguration().getThreshold(), short(2000));
    QCOMPARE(std::unique_ptr<Configuration>(Configuration::_Load(target))->getThreshold(),
             short(2000));
}

void tst_ConfigurationStore_files::linkInACircle_isReplaced()
{
    QVERIFY(QFile::link(Path(), Path()));
    ConfigurationStore store;
    QVERIFY(store.Load());
    QVERIFY(store.Save());
    QVERIFY(QFileInfo(Path()).isFile());
}

void tst_ConfigurationStore_files::mode_isKept()
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("settings.cfg"));
    StoreElsewhere(1000);
    QVERIFY(QFile::rename(Path(), target));
    QVERIFY(QFile::link(target, Path()));
    QCOMPARE(::chmod(QFile::encodeName(target).constData(), 0640), 0);
    StoreElsewhere(2000);
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(target).constData(), &status), 0);
    QCOMPARE(status.st_mode, mode_t(S_IFREG | 0640));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("settings.cfg")));
}

void tst_ConfigurationStore_files::absurdValues_areClampedAndSaid_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("taken");
    QTest::addColumn<QString>("words");
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    QTest::newRow("long") << 1e9 << 10.0 << Text("stop-duration 10 instead of 1e+09");
    QTest::newRow("longer") << 1e300 << 10.0 << Text("stop-duration 10 instead of 1e+300");
    QTest::newRow("endless") << kInfinity << 10.0 << Text("stop-duration 10 instead of inf");
    QTest::newRow("negative") << -1.0 << 0.05 << Text("stop-duration 0.05 instead of -1");
    QTest::newRow("none") << 0.0 << 0.05 << Text("stop-duration 0.05 instead of 0");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 1.5
                                  << Text("stop-duration 1.5 instead of nan");
}

void tst_ConfigurationStore_files::absurdValues_areClampedAndSaid()
{
    QFETCH(double, value);
    QFETCH(QString, words);
    Configuration absurd;
    absurd.setStopDetectionDuration(value);
    QVERIFY(absurd.Save());
    ConfigurationStore store;
    QVERIFY(store.Load());
    QTEST(store.getConfiguration().getStopDetectionDuration(), "taken");
    QVERIFY(!store.getConfiguration().isModified());
    QVERIFY2(store.getNotice().startsWith(Path()), qPrintable(store.getNotice()));
    QVERIFY2(store.getNotice().endsWith(words), qPrintable(store.getNotice()));
    // Saved once, it is mended.
    QVERIFY(store.Save());
    ConfigurationStore again;
    QVERIFY(again.Load());
    QTEST(again.getConfiguration().getStopDetectionDuration(), "taken");
    QCOMPARE(again.getNotice(), QString());
}

void tst_ConfigurationStore_files::absurdProfile_isClampedAndSaid()
{
    Configuration absurd;
    absurd.Add(Text("House %1"), 110.0, 140.0, 1e300, 0, 75);
    absurd.setBPMCalculationDuration(1e9);
    QVERIFY(absurd.Save());
    ConfigurationStore store;
    QVERIFY(store.Load());
    QVERIFY(store.getConfiguration().getProfiles().last().getSensibility() <= 1000.0);
    QVERIFY(store.getNotice().contains(Text("bpm-duration 600 instead of 1e+09")));
    QVERIFY2(store.getNotice().contains(Text("instead of 1e+300 of the profile \"House %1\"")),
             qPrintable(store.getNotice()));
}

void tst_ConfigurationStore_files::absurdValuesOfAnother_areClampedAndSaid()
{
    StoreElsewhere(1000);
    ConfigurationStore store;
    QVERIFY(store.Load());
    QCOMPARE(store.getNotice(), QString());
    Configuration absurd;
    absurd.setAverageVolumeCalculationDuration(1e300);
    QVERIFY(absurd.Save());
    QVERIFY(store.TakeOver());
    QCOMPARE(store.getConfiguration().getAverageVolumeCalculationDuration(), 60.0);
    QVERIFY(store.getNotice().contains(Text("average-duration 60 instead of 1e+300")));
}

AA_TEST(tst_ConfigurationStore_files, QCoreApplication)
#include "tst_ConfigurationStore_files.moc"
