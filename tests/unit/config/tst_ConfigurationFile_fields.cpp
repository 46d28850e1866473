// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "DataPath.h"
#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"
#include "support/HexDump.h"

#include <QtTest>

#include <support/TestClass.h>

class tst_ConfigurationFile_fields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_readsSettingsOfVersion_data();
    void Load_readsSettingsOfVersion();
    void Load_readsSectionsOfVersion_data();
    void Load_readsSectionsOfVersion();
    void Load_readsUserProfiles_data();
    void Load_readsUserProfiles();
    void Load_takesVersion_data();
    void Load_takesVersion();
    void Load_readsEachFlag_data();
    void Load_readsEachFlag();
    void Load_selectsProfileByID_data();
    void Load_selectsProfileByID();
    void Load_selectsFirstProfile_whenSeveralHaveTheID();
    void Load_readsLongTexts_data();
    void Load_readsLongTexts();
};

void tst_ConfigurationFile_fields::Load_readsSettingsOfVersion_data()
{
    QTest::addColumn<QString>("path");
    for (const char* version : {"1.0", "1.1", "1.2", "1.7"})
        QTest::newRow(version) << DataPath(QByteArray("config-") + version + ".hex");
}

void tst_ConfigurationFile_fields::Load_readsSettingsOfVersion()
{
    QFETCH(QString, path);
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    const auto configuration = sandbox.load(bytesOfHexFile(path));
    QVERIFY(configuration);
    QCOMPARE(configuration->m_selectedAudioInputDevice, QStringLiteral("Mic"));
    QCOMPARE(configuration->getSelectedProfile().getID(), 101U);
    QCOMPARE(configuration->getThreshold(), short(2000));
    QCOMPARE(configuration->getDisplaySpeakers(), false);
    QCOMPARE(configuration->getDisplayVirtualBeatsWhenStopped(), true);
    QCOMPARE(configuration->getGrayMode(), false);
    QCOMPARE(configuration->isTopMost(), true);
    QCOMPARE(configuration->getProfiles().size(), 5);
}

void tst_ConfigurationFile_fields::Load_readsSectionsOfVersion_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("hasDurations");
    QTest::addColumn<bool>("hasLanguage");
    QTest::newRow("1.0") << DataPath("config-1.0.hex") << false << false;
    QTest::newRow("1.1") << DataPath("config-1.1.hex") << true << false;
    QTest::newRow("1.2") << DataPath("config-1.2.hex") << true << true;
    QTest::newRow("1.7") << DataPath("config-1.7.hex") << true << true;
}

void tst_ConfigurationFile_fields::Load_readsSectionsOfVersion()
{
    QFETCH(QString, path);
    QFETCH(bool, hasDurations);
    QFETCH(bool, hasLanguage);
    const ConfigSandbox sandbox;
    const auto loaded = sandbox.load(bytesOfHexFile(path));
    QVERIFY(loaded);
    QCOMPARE(loaded->getAverageVolumeCalculationDuration(), hasDurations ? 1.5 : 2.0);
    QCOMPARE(loaded->getBPMCalculationDuration(), hasDurations ? 8.25 : 10.0);
    QCOMPARE(loaded->getNormalizationDuration(), hasDurations ? 3.5 : 5.0);
    QCOMPARE(loaded->getNormalizationThreshold(), short(hasDurations ? 12000 : 16383));
    QCOMPARE(loaded->getStopDetectionDuration(), hasDurations ? 0.75 : 0.5);
    QCOMPARE(loaded->getStopDetectionThreshold(), short(hasDurations ? 1500 : 3276));
    QCOMPARE(loaded->getLanguage(), hasLanguage ? QStringLiteral("en") : QString());
    QCOMPARE(loaded->m_displayStopped, hasLanguage);
}

void tst_ConfigurationFile_fields::Load_readsUserProfiles_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("minimalBPM");
    QTest::addColumn<double>("maximalBPM");
    QTest::addColumn<double>("sensibility");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::newRow("Acid") << 3 << QStringLiteral("Acid") << 100.0 << 150.0 << 1.25 << 20 << 200;
    QTest::newRow("Été") << 4 << QString::fromUtf8("Été") << -1.0 << 32767.0 << -2.5 << -1 << -7;
}

void tst_ConfigurationFile_fields::Load_readsUserProfiles()
{
    QFETCH(int, index);
    const ConfigSandbox sandbox;
    const auto loaded = sandbox.load(bytesOfHexFile(DataPath("config-1.2.hex")));
    QVERIFY(loaded);
    QCOMPARE(loaded->m_profiles.size(), 5);
    const Profile profile = loaded->m_profiles.at(index);
    QCOMPARE(profile.getID(), unsigned(97 + index));
    QTEST(profile.getName(), "name");
    QTEST(profile.getMinimalBPM(), "minimalBPM");
    QTEST(profile.getMaximalBPM(), "maximalBPM");
    QTEST(profile.getSensibility(), "sensibility");
    QTEST(profile.getFilterLowFrequency(), "low");
    QTEST(profile.getFilterHighFrequency(), "high");
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QVERIFY(!profile.isReadOnly());
    QVERIFY(profile.isSerializable());
    QCOMPARE(UserProfile::_nextID, 102U);
}

void tst_ConfigurationFile_fields::Load_takesVersion_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isTaken");
    const QByteArray v10 = FileBuilder::sample(1, 0).bytes();
    const QByteArray v11 = FileBuilder::sample(1, 1).bytes();
    const QByteArray v12 = FileBuilder::sample(1, 2).bytes();
    QTest::newRow("0.0") << 0 << 0 << v10 << false;
    QTest::newRow("0.1") << 0 << 1 << v10 << false;
    QTest::newRow("0.255") << 0 << 255 << v12 << false;
    QTest::newRow("1.0") << 1 << 0 << v10 << true;
    QTest::newRow("1.1") << 1 << 1 << v11 << true;
    QTest::newRow("1.2") << 1 << 2 << v12 << true;
    QTest::newRow("1.3") << 1 << 3 << v12 << true;
    QTest::newRow("1.127") << 1 << 127 << v12 << true;
    QTest::newRow("1.128, unsigned") << 1 << 128 << v12 << true;
    QTest::newRow("1.255") << 1 << 255 << v12 << true;
    QTest::newRow("2.0 in the layout of 1.2") << 2 << 0 << v12 << true;
    QTest::newRow("2.0 in the layout of 1.0") << 2 << 0 << v10 << false;
    QTest::newRow("128.0, unsigned") << 128 << 0 << v12 << true;
    QTest::newRow("255.255") << 255 << 255 << v12 << true;
    QTest::newRow("1.0 with later sections") << 1 << 0 << v12 << false;
    QTest::newRow("1.1 with later sections") << 1 << 1 << v12 << false;
    QTest::newRow("1.1 without its section") << 1 << 1 << v10 << false;
    QTest::newRow("1.2 without its section") << 1 << 2 << v11 << false;
}

void tst_ConfigurationFile_fields::Load_takesVersion()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QByteArray, content);
    const ConfigSandbox sandbox;
    FileBuilder file;
    content[8] = char(major);
    content[9] = char(minor);
    const auto loaded = sandbox.load(file.raw(content).reseal().bytes());
    QTEST(loaded != nullptr, "isTaken");
}

void tst_ConfigurationFile_fields::Load_readsEachFlag_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("expected");
    const char* const fields[] = {"speakers", "virtual beats", "gray mode", "top most", "stopped"};
    for (int i = 0; i < 5; ++i) {
        for (const int value : {0, 1, 2, 127, 128, 255}) {
            QTest::addRow("%s %d", fields[i], value)
                << QByteArray(fields[i]) << value << (value != 0 ? 1 << i : 0);
        }
    }
}

void tst_ConfigurationFile_fields::Load_readsEachFlag()
{
    QFETCH(QByteArray, field);
    QFETCH(int, value);
    const ConfigSandbox sandbox;
    FileBuilder file = FileBuilder::sample(1, 2);
    file.setU8("virtual beats", 0).setU8("stopped", 0).setU8(field, value).reseal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    const int flags = (loaded->m_displaySpeakers ? 1 : 0) |
                      (loaded->m_displayVirtualBeatsWhenStopped ? 2 : 0) |
                      (loaded->m_grayMode ? 4 : 0) | (loaded->m_topMost ? 8 : 0) |
                      (loaded->m_displayStopped ? 16 : 0);
    QTEST(flags, "expected");
}

void tst_ConfigurationFile_fields::Load_selectsProfileByID_data()
{
    QTest::addColumn<qint64>("id");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first user profile") << qint64(100) << QStringLiteral("Acid");
    QTest::newRow("second user profile") << qint64(101) << QString::fromUtf8("Été");
    QTest::newRow("Electro") << qint64(1) << QStringLiteral("Electro");
    QTest::newRow("Hardcore") << qint64(2) << QStringLiteral("Hardcore");
    QTest::newRow("Slow") << qint64(3) << QStringLiteral("Slow");
    QTest::newRow("unknown") << qint64(102) << QStringLiteral("Electro");
    QTest::newRow("zero") << qint64(0) << QStringLiteral("Electro");
    QTest::newRow("negative") << qint64(-1) << QStringLiteral("Electro");
}

void tst_ConfigurationFile_fields::Load_selectsProfileByID()
{
    QFETCH(qint64, id);
    const ConfigSandbox sandbox;
    const FileBuilder file = FileBuilder::sample(1, 2).setI32("selected ID", id).reseal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QTEST(loaded->getSelectedProfile().getName(), "expected");
}

void tst_ConfigurationFile_fields::Load_selectsFirstProfile_whenSeveralHaveTheID()
{
    const ConfigSandbox sandbox;
    const FileBuilder file =
        FileBuilder::sample(1, 2).setI32("ID", -5).setI32("ID 2", -5).setI32("selected ID", -5);
    const auto loaded = sandbox.load(FileBuilder(file).reseal().bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->getSelectedProfile().getID(), 4294967291U);
    QCOMPARE(loaded->getSelectedProfile().getName(), QStringLiteral("Acid"));
}

void tst_ConfigurationFile_fields::Load_readsLongTexts_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {1, 32767, 32768, 65535})
        QTest::addRow("%d", size) << size;
}

void tst_ConfigurationFile_fields::Load_readsLongTexts()
{
    QFETCH(int, size);
    const ConfigSandbox sandbox;
    const QByteArray text(size, 'x');
    FileBuilder file;
    file.head(1, 2).settings(1).profile(100, text, "").durations().language(text).seal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->getLanguage(), QString::fromLatin1(text));
    QCOMPARE(loaded->m_profiles.at(3).getName(), QString::fromLatin1(text));
}

AA_TEST(tst_ConfigurationFile_fields, QCoreApplication)
#include "tst_ConfigurationFile_fields.moc"
