// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>

#include "StartUp.h"

#include <QPointer>
#include <QtTest>

#include <support/TestClass.h>

namespace {

QByteArray FileContent()
{
    QFile file(Configuration::_getConfigFilePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class tst_AudioAnalyzerInstance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void instance_isMissing_withoutAFile();
    void instance_isMissing_whenNoDeviceIsSelected();
    void instance_isMissing_whenTheDeviceIsAway();
    void instance_isMissing_whenTheDeviceRefusesEveryFormat();
    void instance_isMadeForTheDevicesOutputFormat_data();
    void instance_isMadeForTheDevicesOutputFormat();
    void instance_isTheSameAgain();
    void instance_triesAgain_afterAFailure();
    void instance_isNotStarted();
    void instance_neitherKeepsNorStartsTheDevice();
    void instance_takesTheSavedSettings();
    void stopDuration_isForced_isIntended();
    void firstSortedProfile_isSelected_isIntended();
    void startUp_doesNotSave();
    void init_replacesTheInstance();
    void init_makesTheFirstInstance();
    void init_givesTheParent();
};

void tst_AudioAnalyzerInstance::initTestCase()
{
    FakeAudioState::Install();
}

void tst_AudioAnalyzerInstance::instance_isMissing_withoutAFile()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(!AudioAnalyzer::getInstance());
    QVERIFY(!QFile::exists(Configuration::_getConfigFilePath()));
}

void tst_AudioAnalyzerInstance::instance_isMissing_whenNoDeviceIsSelected()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    Configuration configuration;
    QVERIFY(configuration.Save());
    QVERIFY(!AudioAnalyzer::getInstance());
}

void tst_AudioAnalyzerInstance::instance_isMissing_whenTheDeviceIsAway()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Other"));
    QVERIFY(!AudioAnalyzer::getInstance());
    QVERIFY(!AudioAnalyzer::getInstance());
}

void tst_AudioAnalyzerInstance::instance_isMissing_whenTheDeviceRefusesEveryFormat()
{
    const StartUp machine;
    FakeAudioDevice device;
    device.name = QStringLiteral("Mic");
    device.isSupported = [](const QAudioFormat&) { return false; };
    FakeAudioState::Get().Plug(device);
    StartUp::Look();
    QVERIFY(StartUp::Save("Mic"));
    QVERIFY(!AudioAnalyzer::getInstance());
}

void tst_AudioAnalyzerInstance::instance_isMadeForTheDevicesOutputFormat_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::addColumn<quint64>("blockSize");
    QTest::newRow("44100") << 44100 << 1 << quint64(1024);
    QTest::newRow("48000") << 48000 << 1 << quint64(1024);
    QTest::newRow("22050") << 22050 << 1 << quint64(512);
    QTest::newRow("96000 stereo") << 96000 << 2 << quint64(2048);
}

void tst_AudioAnalyzerInstance::instance_isMadeForTheDevicesOutputFormat()
{
    QFETCH(int, rate);
    QFETCH(int, channels);
    const StartUp machine;
    StartUp::Plug("Mic", rate, channels);
    QVERIFY(StartUp::Save("Mic"));
    const AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    QVERIFY(pAnalyzer);
    QCOMPARE(pAnalyzer->m_format.sampleRate(), rate);
    QCOMPARE(pAnalyzer->m_format.channelCount(), 1);
    QCOMPARE(pAnalyzer->m_format.sampleSize(), 16);
    QCOMPARE(pAnalyzer->m_format.sampleType(), QAudioFormat::SignedInt);
    QTEST(pAnalyzer->getPulseBlockSize(), "blockSize");
    QVERIFY(!pAnalyzer->parent());
}

void tst_AudioAnalyzerInstance::instance_isTheSameAgain()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    const AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    QVERIFY(pAnalyzer);
    // What happens to the file and the device later does not matter.
    FakeAudioState::Get().Clear();
    StartUp::Look();
    QVERIFY(QFile::remove(Configuration::_getConfigFilePath()));
    QCOMPARE(AudioAnalyzer::getInstance(), pAnalyzer);
}

void tst_AudioAnalyzerInstance::instance_triesAgain_afterAFailure()
{
    const StartUp machine;
    QVERIFY(!AudioAnalyzer::getInstance());
    QVERIFY(StartUp::Save("Mic"));
    QVERIFY(!AudioAnalyzer::getInstance());
    StartUp::Plug("Mic");
    QVERIFY(AudioAnalyzer::getInstance());
}

void tst_AudioAnalyzerInstance::instance_isNotStarted()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    QVERIFY(AudioAnalyzer::getInstance());
    QVERIFY(!AudioAnalyzer::getInstance()->isAnalyzing());
}

void tst_AudioAnalyzerInstance::instance_neitherKeepsNorStartsTheDevice()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    QVERIFY(AudioAnalyzer::getInstance());
    QCOMPARE(FakeAudioState::Get().createdInputs(), 0);
}

void tst_AudioAnalyzerInstance::instance_takesTheSavedSettings()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    Configuration saved;
    saved.setThreshold(1234);
    saved.setBPMCalculationDuration(7.0);
    saved.setAverageVolumeCalculationDuration(3.0);
    QVERIFY(StartUp::Save(saved, "Mic"));
    const AudioAnalyzer* pAnalyzer = AudioAnalyzer::getInstance();
    QVERIFY(pAnalyzer);
    QCOMPARE(pAnalyzer->getConfiguration()->getThreshold(), short(1234));
    QCOMPARE(pAnalyzer->getConfiguration()->getBPMCalculationDuration(), 7.0);
    // The window of the volumes: 3 s of 44100 Hz.
    QCOMPARE(quint64(pAnalyzer->m_volumeStats.m_capacity), quint64(132300));
}

void tst_AudioAnalyzerInstance::stopDuration_isForced_isIntended()
{
    for (const double saved : {0.5, 1.5, 4.0}) {
        const StartUp machine;
        StartUp::Plug("Mic");
        Configuration configuration;
        configuration.setStopDetectionDuration(saved);
        QVERIFY(StartUp::Save(configuration, "Mic"));
        QVERIFY(AudioAnalyzer::getInstance());
        QCOMPARE(AudioAnalyzer::getInstance()->getConfiguration()->getStopDetectionDuration(), 1.5);
    }
}

void tst_AudioAnalyzerInstance::firstSortedProfile_isSelected_isIntended()
{
    for (const char* pSelected : {"Electro", "Slow", "Aaa"}) {
        const StartUp machine;
        StartUp::Plug("Mic");
        Configuration configuration;
        configuration.Add(QStringLiteral("Aaa"), 100, 120, 2.0, 0, 80);
        for (const Profile& profile : configuration.getProfiles())
            if (profile.getName() == QLatin1String(pSelected))
                configuration.setSelectedProfile(profile);
        QVERIFY(StartUp::Save(configuration, "Mic"));
        QVERIFY(AudioAnalyzer::getInstance());
        const Configuration* pStarted = AudioAnalyzer::getInstance()->getConfiguration();
        QCOMPARE(pStarted->getProfiles().size(), 4);
        // Built-in profiles sort first, whatever a user calls his.
        QCOMPARE(pStarted->getSelectedProfile().getName(), QStringLiteral("Electro"));
    }
}

void tst_AudioAnalyzerInstance::startUp_doesNotSave()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    const QByteArray before = FileContent();
    QVERIFY(AudioAnalyzer::getInstance());
    QVERIFY(!before.isEmpty());
    QCOMPARE(FileContent(), before);
}

void tst_AudioAnalyzerInstance::init_replacesTheInstance()
{
    const StartUp machine;
    StartUp::Plug("Mic");
    QVERIFY(StartUp::Save("Mic"));
    const QPointer<AudioAnalyzer> first(AudioAnalyzer::getInstance());
    QVERIFY(first);
    first->Start();
    const Configuration* pFirstConfiguration = first->getConfiguration();
    int stops = 0;
    connect(first, &AudioAnalyzer::OnAnalysisStopped, [&stops] { ++stops; });

    auto* pConfiguration = new Configuration;
    QAudioFormat format;
    format.setSampleRate(8000);
    AudioAnalyzer::init(pConfiguration, format, nullptr);
    QVERIFY(!first);
    QCOMPARE(stops, 1);
    const AudioAnalyzer* pSecond = AudioAnalyzer::getInstance();
    QCOMPARE(pSecond->getConfiguration(), pConfiguration);
    QCOMPARE(pSecond->m_sampleRate, 8000);
    // Not freed with the analyzer: it can still be read.
    QCOMPARE(pFirstConfiguration->getStopDetectionDuration(), 1.5);
    delete pFirstConfiguration;
}

void tst_AudioAnalyzerInstance::init_makesTheFirstInstance()
{
    const StartUp machine;
    auto* pConfiguration = new Configuration;
    pConfiguration->setStopDetectionDuration(4.0);
    QAudioFormat format;
    format.setSampleRate(48000);
    AudioAnalyzer::init(pConfiguration, format, nullptr);
    QVERIFY(AudioAnalyzer::getInstance());
    QCOMPARE(AudioAnalyzer::getInstance()->getConfiguration(), pConfiguration);
    // Nothing is forced on a configuration that the host brings.
    QCOMPARE(pConfiguration->getStopDetectionDuration(), 4.0);
}

void tst_AudioAnalyzerInstance::init_givesTheParent()
{
    const StartUp machine;
    QObject parent;
    QAudioFormat format;
    format.setSampleRate(48000);
    AudioAnalyzer::init(new Configuration, format, &parent);
    QCOMPARE(AudioAnalyzer::getInstance()->parent(), &parent);
    AudioAnalyzer::getInstance()->setParent(nullptr);
}

AA_TEST(tst_AudioAnalyzerInstance, QCoreApplication)
#include "tst_AudioAnalyzerInstance.moc"
