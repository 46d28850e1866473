// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "DataPath.h"
#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"
#include "support/HexDump.h"

#include <QtTest>

#include <support/TestClass.h>
#include <utility>

namespace {

QString executableFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/AudioAnalyzer.cfg");
}

bool isDefault(const Configuration& pConfiguration)
{
    return pConfiguration.getThreshold() == -1 && pConfiguration.getProfiles().size() == 3 &&
           pConfiguration.getLanguage().isEmpty() && !pConfiguration.isModified() &&
           pConfiguration.m_selectedAudioInputDevice.isEmpty() &&
           pConfiguration.getStopDetectionThreshold() == 3276 && pConfiguration.getGrayMode() &&
           pConfiguration.getSelectedProfile().getName() == QStringLiteral("Electro");
}

}  // namespace

class tst_ConfigurationFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getConfigFilePath_isNextToExecutable();
    void LoadOrCreate_makesDefaultsAndNoFile_whenThereIsNoFile();
    void LoadOrCreate_makesDefaults_whenFileIsDamaged();
    void LoadOrCreate_readsWhatSaveWrote();
    void LoadWithoutDevice_readsAllElse_withoutTheDevices();
    void LoadWithoutDevice_rejects_whatLoadRejects();
    void Load_trimsPath();
    void Load_rejects_whenPathIsBlank_data();
    void Load_rejects_whenPathIsBlank();
    void Load_rejects_whenThereIsNoFile();
    void Load_rejects_whenPathIsFolder();
    void Load_returnsDefaults_whenFileIsShorterThanHead_isIntended();
    void Load_keepsNegativeThresholdAsItIs_isIntended();
    void Load_setsDevice_whenPresent();
    void Load_dropsDevice_whenNamesDiffer_data();
    void Load_dropsDevice_whenNamesDiffer();
    void Load_keepsUserProfilesInFileOrder();
    void Load_isNotModified();
    void rejectedFile_mayRaiseNextID_isIntended();
};

void tst_ConfigurationFile::getConfigFilePath_isNextToExecutable()
{
    QCOMPARE(Configuration::_getConfigFilePath(), executableFile());
    QVERIFY(QDir::isAbsolutePath(Configuration::_getConfigFilePath()));
}

void tst_ConfigurationFile::LoadOrCreate_makesDefaultsAndNoFile_whenThereIsNoFile()
{
    const ConfigSandbox sandbox;
    QFile::remove(executableFile());
    const std::unique_ptr<Configuration> configuration(Configuration::LoadOrCreate());
    QVERIFY(configuration);
    QVERIFY(isDefault(*configuration));
    QVERIFY(!QFile::exists(executableFile()));
}

void tst_ConfigurationFile::LoadOrCreate_makesDefaults_whenFileIsDamaged()
{
    const ConfigSandbox sandbox;
    const FileBuilder damaged = FileBuilder::sample(1, 2).flip(30);
    QVERIFY(damaged.writeTo(executableFile()));
    const std::unique_ptr<Configuration> configuration(Configuration::LoadOrCreate());
    QVERIFY(configuration);
    QVERIFY(isDefault(*configuration));
    QFile file(executableFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), damaged.bytes());
    QVERIFY(file.remove());
}

void tst_ConfigurationFile::LoadOrCreate_readsWhatSaveWrote()
{
    const ConfigSandbox sandbox;
    QFile::remove(executableFile());
    Configuration saved;
    QVERIFY(saved.setThreshold(1234));
    QVERIFY(saved.Save());
    QVERIFY(saved.isModified());
    const std::unique_ptr<Configuration> loaded(Configuration::LoadOrCreate());
    QCOMPARE(loaded->getThreshold(), short(1234));
    QVERIFY(QFile::remove(executableFile()));
}

void tst_ConfigurationFile::LoadWithoutDevice_readsAllElse_withoutTheDevices()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    saved.Add(QStringLiteral("House"), 110.0, 140.0, 2.0, 0, 80);
    QVERIFY(saved.setThreshold(1234));
    QVERIFY(
        saved.setSelectedAudioInputDevice(QtAudioInputDeviceInfo(QStringLiteral("Mic"), false)));
    QVERIFY(saved._Save(sandbox.path()));
    // A watcher would be made anew.
    const auto watcher = std::exchange(QtAudioInputDevicesManager::s_instance, {});
    const std::unique_ptr<Configuration> loaded(Configuration::LoadWithoutDevice(sandbox.path()));
    QVERIFY(!QtAudioInputDevicesManager::s_instance);
    QtAudioInputDevicesManager::s_instance = watcher;
    QVERIFY(loaded);
    QCOMPARE(loaded->getThreshold(), short(1234));
    QCOMPARE(loaded->m_selectedAudioInputDevice, QString());
    QCOMPARE(loaded->getProfiles().size(), 4);
    QCOMPARE(loaded->getProfiles().at(3).getName(), QStringLiteral("House"));
    QCOMPARE(loaded->getProfiles().at(3).getMinimalBPM(), 110.0);
}

void tst_ConfigurationFile::LoadWithoutDevice_rejects_whatLoadRejects()
{
    const ConfigSandbox sandbox;
    QVERIFY(!Configuration::LoadWithoutDevice(sandbox.path()));
    QVERIFY(!Configuration::LoadWithoutDevice({}));
    const QByteArray good = FileBuilder::sample(1, 2).bytes();
    sandbox.write(good.left(good.size() - 1));
    QVERIFY(!Configuration::LoadWithoutDevice(sandbox.path()));
    sandbox.write(good);
    QVERIFY(std::unique_ptr<Configuration>(Configuration::LoadWithoutDevice(sandbox.path())));
}

void tst_ConfigurationFile::Load_trimsPath()
{
    const ConfigSandbox sandbox;
    sandbox.write(FileBuilder::sample(1, 2).bytes());
    const std::unique_ptr<Configuration> loaded(
        Configuration::_Load(QStringLiteral(" \t") + sandbox.path() + QStringLiteral(" \n")));
    QVERIFY(loaded);
    QCOMPARE(loaded->getThreshold(), short(2000));
}

void tst_ConfigurationFile::Load_rejects_whenPathIsBlank_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("blanks") << QStringLiteral(" \t\n");
}

void tst_ConfigurationFile::Load_rejects_whenPathIsBlank()
{
    QFETCH(QString, path);
    QVERIFY(!Configuration::_Load(path));
}

void tst_ConfigurationFile::Load_rejects_whenThereIsNoFile()
{
    const ConfigSandbox sandbox;
    QVERIFY(!Configuration::_Load(sandbox.path()));
    QVERIFY(sandbox.entries().isEmpty());
}

void tst_ConfigurationFile::Load_rejects_whenPathIsFolder()
{
    const ConfigSandbox sandbox;
    QVERIFY(!Configuration::_Load(sandbox.path(QStringLiteral("."))));
}

void tst_ConfigurationFile::Load_returnsDefaults_whenFileIsShorterThanHead_isIntended()
{
    const ConfigSandbox sandbox;
    const QByteArray good = FileBuilder::sample(1, 2).bytes();
    for (int size = 0; size < 12; ++size) {
        for (const QByteArray& content : {good.left(size), QByteArray(size, 'x')}) {
            const auto configuration = sandbox.load(content);
            QVERIFY(configuration);
            QVERIFY(isDefault(*configuration));
        }
    }
    QVERIFY(!sandbox.load(QByteArray(12, 'x')));
    QVERIFY(!sandbox.load(good.left(12)));
}

void tst_ConfigurationFile::Load_keepsNegativeThresholdAsItIs_isIntended()
{
    const ConfigSandbox sandbox;
    const FileBuilder file = FileBuilder::sample(1, 2).setI16("threshold", -700).reseal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->getThreshold(), short(-700));
    QVERIFY(!loaded->setThreshold(-1));
}

void tst_ConfigurationFile::Load_setsDevice_whenPresent()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Line in"));
    sandbox.plug(QString::fromUtf8("Prise é"));
    FileBuilder file = FileBuilder::sample(1, 2);
    const QByteArray name = QByteArray("Prise é");
    file.setI16("device", name.size()).insert("selected ID", name).reseal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->m_selectedAudioInputDevice, QString::fromUtf8("Prise é"));
    QCOMPARE(loaded->getThreshold(), short(2000));
}

void tst_ConfigurationFile::Load_dropsDevice_whenNamesDiffer_data()
{
    QTest::addColumn<QString>("present");
    QTest::newRow("other case") << QStringLiteral("mic");
    QTest::newRow("longer") << QStringLiteral("Mic 2");
    QTest::newRow("shorter") << QStringLiteral("Mi");
    QTest::newRow("none") << QString();
}

void tst_ConfigurationFile::Load_dropsDevice_whenNamesDiffer()
{
    QFETCH(QString, present);
    const ConfigSandbox sandbox;
    if (!present.isEmpty())
        sandbox.plug(present);
    const auto loaded = sandbox.load(bytesOfHexFile(DataPath("config-1.2.hex")));
    QVERIFY(loaded);
    QVERIFY(loaded->m_selectedAudioInputDevice.isEmpty());
}

void tst_ConfigurationFile::Load_keepsUserProfilesInFileOrder()
{
    const ConfigSandbox sandbox;
    FileBuilder file;
    file.head(1, 0).settings(3);
    file.profile(300, "Z", "").profile(7, "A", " 2").profile(50, "", " 3").seal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->m_profiles.size(), 6);
    QCOMPARE(loaded->m_profiles.at(0).getName(), QStringLiteral("Electro"));
    QCOMPARE(loaded->m_profiles.at(3).getName(), QStringLiteral("Z"));
    QCOMPARE(loaded->m_profiles.at(3).getID(), 300U);
    QCOMPARE(loaded->m_profiles.at(4).getName(), QStringLiteral("A"));
    QCOMPARE(loaded->m_profiles.at(4).getID(), 7U);
    QCOMPARE(loaded->m_profiles.at(5).getName(), QString());
    QCOMPARE(loaded->m_profiles.at(5).getID(), 50U);
    QCOMPARE(UserProfile::_nextID, 301U);
}

void tst_ConfigurationFile::Load_isNotModified()
{
    const ConfigSandbox sandbox;
    const auto loaded = sandbox.load(FileBuilder::sample(1, 2).bytes());
    QVERIFY(loaded);
    QVERIFY(!loaded->isModified());
}

void tst_ConfigurationFile::rejectedFile_mayRaiseNextID_isIntended()
{
    const ConfigSandbox sandbox;
    const FileBuilder file = FileBuilder::sample(1, 2).setI32("ID", 500).setU8("marker 2", 0);
    QVERIFY(!sandbox.load(FileBuilder(file).reseal().bytes()));
    QCOMPARE(UserProfile::_nextID, 501U);
}

AA_TEST(tst_ConfigurationFile, QCoreApplication)
#include "tst_ConfigurationFile.moc"
