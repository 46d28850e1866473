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

/// Each test has an output folder of its own, where the configuration stands beside the program.
class tst_ConfigurationStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setLibraryPaths({}); }
    void init();

    void save_putsChangesIntoWhatIsStored();
    void save_tellsWhetherItTookOver();
    void saveWithoutLoading_changesWhatDiffersFromTheDefaults();
    void save_replacesADamagedFile();
    void takeOver_isForChangesOfOthers();
    void takeOver_leavesOwnChanges();
    void takeOver_isNothing_whenTheFileIsGoneOrDamaged();
    void reset_isOnlyOfWhatWasLoaded();
    void turn_lastsFromLoadingToSaving();
    void turn_endsWithTheStore();
    void otherProgramThatDoesNotFinish_isSaid();
    void lockFileThatCannotBeMade_isSaid();
};

void tst_ConfigurationStore::init()
{
    QFile::remove(Path());
    QDir(Path()).removeRecursively();
}

void tst_ConfigurationStore::save_putsChangesIntoWhatIsStored()
{
    StoreElsewhere(1000, "Deck");
    ConfigurationStore store;
    QVERIFY(store.Load());
    StoreElsewhere(2000, "Line");
    store.getConfiguration().setLanguage(Text("de"));
    store.getConfiguration().Add(Text("House"), 110.0, 140.0, 2.0, 0, 75);
    QVERIFY(store.getConfiguration().isModified());
    QVERIFY(store.Save());
    QVERIFY(!store.getConfiguration().isModified());
    ConfigurationStore read;
    QVERIFY(read.Load());
    for (const ConfigurationStore* pStore : {&store, &read}) {
        QCOMPARE(pStore->getConfiguration().getThreshold(), short(2000));
        QCOMPARE(pStore->getConfiguration().getLanguage(), Text("de"));
        QCOMPARE(pStore->getConfiguration().getProfiles().size(), 4);
        QCOMPARE(pStore->getDeviceName(), Text("Line"));
    }
    // The own change has become what is stored: another may take it back.
    StoreElsewhere(3000);
    store.getConfiguration().setGrayMode(false);
    QVERIFY(store.Save());
    QCOMPARE(StoredThreshold(), short(3000));
}

void tst_ConfigurationStore::save_tellsWhetherItTookOver()
{
    ConfigurationStore store;
    QVERIFY(store.Save());
    QVERIFY(!store.hasTakenOver());
    StoreElsewhere(1000);
    QVERIFY(store.Save());
    QVERIFY(store.hasTakenOver());
    QVERIFY(store.Save());
    QVERIFY(!store.hasTakenOver());
}

void tst_ConfigurationStore::saveWithoutLoading_changesWhatDiffersFromTheDefaults()
{
    StoreElsewhere(1000);
    ConfigurationStore store;
    store.setDeviceName(Text("Deck"));
    QVERIFY(store.Save());
    QCOMPARE(StoredThreshold(), short(1000));
}

void tst_ConfigurationStore::save_replacesADamagedFile()
{
    QVERIFY(WriteFile(Path(), "not a configuration"));
    ConfigurationStore store;
    QVERIFY(!store.Load());
    QVERIFY(store.getError().contains(Path() + Text(" cannot be read or is damaged")));
    store.getConfiguration().setThreshold(1000);
    QVERIFY(store.Save());
    QCOMPARE(StoredThreshold(), short(1000));
}

void tst_ConfigurationStore::takeOver_isForChangesOfOthers()
{
    ConfigurationStore store;
    QVERIFY(store.Load());
    QVERIFY(!store.TakeOver());
    const Configuration* pConfiguration = &store.getConfiguration();
    StoreElsewhere(1000, "Deck");
    QVERIFY(store.TakeOver());
    QCOMPARE(&store.getConfiguration(), pConfiguration);
    QCOMPARE(pConfiguration->getThreshold(), short(1000));
    QCOMPARE(store.getDeviceName(), Text("Deck"));
    QVERIFY(!pConfiguration->isModified());
    QVERIFY(!store.TakeOver());
    // What is stored is the own.
    store.getConfiguration().setThreshold(2000);
    QVERIFY(store.Save());
    QVERIFY(!store.TakeOver());
}

void tst_ConfigurationStore::takeOver_leavesOwnChanges()
{
    StoreElsewhere(1000);
    ConfigurationStore store;
    QVERIFY(store.Load());
    store.getConfiguration().setThreshold(2000);
    StoreElsewhere(3000, "Deck");
    QVERIFY(store.TakeOver());
    QCOMPARE(store.getConfiguration().getThreshold(), short(2000));
    QCOMPARE(store.getDeviceName(), Text("Deck"));
    // It is still to be saved.
    QVERIFY(store.getConfiguration().isModified());
    QVERIFY(store.Save());
    QCOMPARE(StoredThreshold(), short(2000));
}

void tst_ConfigurationStore::takeOver_isNothing_whenTheFileIsGoneOrDamaged()
{
    StoreElsewhere(1000);
    ConfigurationStore store;
    QVERIFY(store.Load());
    QVERIFY(QFile::remove(Path()));
    QVERIFY(!store.TakeOver());
    QVERIFY(WriteFile(Path(), "not a configuration"));
    QVERIFY(!store.TakeOver());
    QCOMPARE(store.getConfiguration().getThreshold(), short(1000));
}

void tst_ConfigurationStore::reset_isOnlyOfWhatWasLoaded()
{
    StoreElsewhere(1000, "Deck");
    ConfigurationStore store;
    QVERIFY(store.LoadToChange());
    store.getConfiguration().Add(Text("House"), 110.0, 140.0, 2.0, 0, 75);
    QVERIFY(store.Save());
    store.Reset(true);
    QVERIFY(store.Save());
    ConfigurationStore read;
    QVERIFY(read.Load());
    QCOMPARE(read.getConfiguration().getThreshold(), short(-1));
    QCOMPARE(read.getDeviceName(), QString());
    QCOMPARE(read.getConfiguration().getProfiles().size(), 4);
    store.Reset(false);
    QVERIFY(store.Save());
    QVERIFY(read.TakeOver());
    QCOMPARE(read.getConfiguration().getProfiles().size(), 3);
}

void tst_ConfigurationStore::turn_lastsFromLoadingToSaving()
{
    ConfigurationStore store;
    QVERIFY(store.LoadToChange());
    ConfigurationStore other;
    QVERIFY(!other.LoadToChange(0));
    QVERIFY(other.isBusy());
    // Reading needs no turn.
    QVERIFY(other.Load());
    QVERIFY(store.Save());
    QVERIFY(other.LoadToChange(0));
    QVERIFY(!other.isBusy());
}

void tst_ConfigurationStore::turn_endsWithTheStore()
{
    {
        ConfigurationStore store;
        QVERIFY(store.LoadToChange(0));
    }
    ConfigurationStore other;
    QVERIFY(other.LoadToChange(0));
    // Nothing was saved.
    QVERIFY(!QFile::exists(Path()));
}

void tst_ConfigurationStore::otherProgramThatDoesNotFinish_isSaid()
{
    FileLock holder;
    QCOMPARE(holder.Take(Path(), 0), FileLock::eTaken);
    ConfigurationStore store;
    store.getConfiguration().setThreshold(1000);
    QVERIFY(!store.Save(1));
    QVERIFY(store.isBusy());
    QVERIFY(store.getError().startsWith(Path()));
    QVERIFY(store.getError().contains(Text("another program")));
    QVERIFY(store.getConfiguration().isModified());
    QVERIFY(!QFile::exists(Path()));
    holder.LetGo();
    QVERIFY(store.Save(0));
    QVERIFY(!store.isBusy());
}

void tst_ConfigurationStore::lockFileThatCannotBeMade_isSaid()
{
    const QString lock = FileLock::getLockPath(Path());
    QVERIFY(QDir().mkpath(lock));
    ConfigurationStore store;
    const bool isSaved = store.Save();
    QVERIFY(QDir().rmdir(lock));
    QVERIFY(!isSaved);
    QVERIFY(!store.isBusy());
    QVERIFY(store.getError().contains(Path() + Text(" cannot be written")));
    QVERIFY(store.getError().contains(lock));
}

AA_TEST(tst_ConfigurationStore, QCoreApplication)
#include "tst_ConfigurationStore.moc"
