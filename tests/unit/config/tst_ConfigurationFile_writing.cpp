// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"
#include "support/HexDump.h"

#include <QRegularExpression>
#include <QtTest>

#include <limits>
#include <support/TestClass.h>

namespace {

QByteArray hexFile(const char* pName)
{
    return bytesOfHexFile(QFINDTESTDATA((QByteArray("data/") + pName).constData()));
}

}  // namespace

class tst_ConfigurationFile_writing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Save_writesLayoutOfDefaults();
    void Save_writesLayoutByteByByte();
    void Save_writesTheDocumentedExample();
    void Save_writesEachFlag_data();
    void Save_writesEachFlag();
    void Save_readsBackEverySetting();
    void Save_dropsFractionsThresholdsAndEdits_isIntended();
    void Save_cutsBPMToLow16Bits_isIntended_data();
    void Save_cutsBPMToLow16Bits_isIntended();
    void Save_cutsLongTexts_data();
    void Save_cutsLongTexts();
    void Save_keepsNaN();
    void Save_compactsIDsInListOrder();
    void Save_keepsSelection_whenIDsAreCompacted();
    void Save_compactsIDs_whenWritingFails();
    void Save_touchesNoID_whenPathIsBlank();
    void Save_keepsModifiedMark_isIntended();
    void Save_leavesBuiltInProfilesOut_isIntended();
    void Save_givesSameBytesTwice();
};

void tst_ConfigurationFile_writing::Save_writesLayoutOfDefaults()
{
    const ConfigSandbox sandbox;
    FileBuilder expected;
    expected.head(1, 2).text("").i32(1).i16(-1).u8(1).u8(0).u8(1).u8(1).i16(0);
    expected.f64(2.0).f64(10.0).f64(5.0).i16(16383).f64(0.5).i16(3276).text("").u8(0).seal();
    QVERIFY(Configuration()._Save(sandbox.path()));
    QCOMPARE(sandbox.read().toHex(' '), expected.bytes().toHex(' '));
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("test.cfg")));
}

void tst_ConfigurationFile_writing::Save_writesLayoutByteByByte()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    const auto loaded = sandbox.load(hexFile("config-1.2.hex"));
    QVERIFY(loaded);
    QVERIFY(loaded->_Save(sandbox.path()));
    const QByteArray expected = hexFile("config-written.hex");
    QVERIFY(!expected.isEmpty());
    QCOMPARE(sandbox.read().toHex(' '), expected.toHex(' '));
}

void tst_ConfigurationFile_writing::Save_writesTheDocumentedExample()
{
    QFile page(QFINDTESTDATA("../../../docs/config-file-format.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const QRegularExpression block(QStringLiteral("```hex\\n(.*?)```"),
                                   QRegularExpression::DotMatchesEverythingOption);
    const QByteArray expected = bytesOfHexDump(block.match(text).captured(1).toUtf8());
    QVERIFY(!expected.isEmpty());

    const ConfigSandbox sandbox;
    Configuration configuration;
    configuration.m_selectedAudioInputDevice = QStringLiteral("Line In");
    const Profile added = configuration.Add(QStringLiteral("Acid"), 118.9, 142.0, 1.25, 20, 200);
    QVERIFY(configuration.setSelectedProfile(added));
    QVERIFY(configuration.setThreshold(2000));
    QVERIFY(configuration.setLanguage(QStringLiteral("en")));
    QVERIFY(configuration._Save(sandbox.path()));
    QCOMPARE(sandbox.read().toHex(' '), expected.toHex(' '));
}

void tst_ConfigurationFile_writing::Save_writesEachFlag_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("index");
    const char* const fields[] = {"speakers", "virtual beats", "gray mode", "top most", "stopped"};
    for (int i = 0; i < 5; ++i)
        QTest::newRow(fields[i]) << QByteArray(fields[i]) << i;
}

void tst_ConfigurationFile_writing::Save_writesEachFlag()
{
    QFETCH(QByteArray, field);
    QFETCH(int, index);
    const ConfigSandbox sandbox;
    FileBuilder file = FileBuilder::sample(1, 2).setU8("virtual beats", 0).setU8("stopped", 0);
    const auto loaded = sandbox.load(file.reseal().bytes());
    QVERIFY(loaded);
    bool Configuration::*const flags[] = {&Configuration::m_displaySpeakers,
                                          &Configuration::m_displayVirtualBeatsWhenStopped,
                                          &Configuration::m_grayMode,
                                          &Configuration::m_topMost,
                                          &Configuration::m_displayStopped};
    loaded.get()->*flags[index] = true;
    QVERIFY(loaded->_Save(sandbox.path()));
    QCOMPARE(sandbox.read().toHex(' '), file.setU8(field, 1).reseal().bytes().toHex(' '));
}

void tst_ConfigurationFile_writing::Save_readsBackEverySetting()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Line in"));
    Configuration saved;
    saved.m_selectedAudioInputDevice = QStringLiteral("Line in");
    saved.setAverageVolumeCalculationDuration(1.0 / 3.0);
    saved.setBPMCalculationDuration(12.75);
    saved.setDisplaySpeakers(false);
    saved.setDisplayStopped(true);
    saved.setDisplayVirtualBeatsWhenStopped(true);
    saved.setGrayMode(false);
    saved.setLanguage(QString::fromUtf8("日本語"));
    saved.setNormalizationDuration(-0.5);
    saved.setNormalizationThreshold(-32768);
    saved.setStopDetectionDuration(1e300);
    saved.setStopDetectionThreshold(32767);
    saved.setThreshold(32767);
    saved.setTopMost(false);
    saved.Add(QString::fromUtf8(" Zoë "), 60.0, 80.0, 0.1, -1, 22050);
    saved.setSelectedProfile(saved.Add(QStringLiteral("A"), 1.0, 999.0, 3.5, 0, 0));
    QVERIFY(saved._Save(sandbox.path()));

    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QCOMPARE(loaded->m_selectedAudioInputDevice, QStringLiteral("Line in"));
    QCOMPARE(loaded->getAverageVolumeCalculationDuration(), 1.0 / 3.0);
    QCOMPARE(loaded->getBPMCalculationDuration(), 12.75);
    QCOMPARE(loaded->getDisplaySpeakers(), false);
    QCOMPARE(loaded->m_displayStopped, true);
    QCOMPARE(loaded->getDisplayVirtualBeatsWhenStopped(), true);
    QCOMPARE(loaded->getGrayMode(), false);
    QCOMPARE(loaded->getLanguage(), QString::fromUtf8("日本語"));
    QCOMPARE(loaded->getNormalizationDuration(), -0.5);
    QCOMPARE(loaded->getNormalizationThreshold(), short(-32768));
    QCOMPARE(loaded->getStopDetectionDuration(), 1e300);
    QCOMPARE(loaded->getStopDetectionThreshold(), short(32767));
    QCOMPARE(loaded->getThreshold(), short(32767));
    QCOMPARE(loaded->isTopMost(), false);
    QCOMPARE(loaded->m_profiles.size(), 5);
    const Profile zoe = loaded->m_profiles.at(3);
    QCOMPARE(zoe.getName(), QString::fromUtf8(" Zoë "));
    QCOMPARE(zoe.getID(), 100U);
    QCOMPARE(zoe.getMinimalBPM(), 60.0);
    QCOMPARE(zoe.getMaximalBPM(), 80.0);
    QCOMPARE(zoe.getSensibility(), 0.1);
    QCOMPARE(zoe.getFilterLowFrequency(), -1);
    QCOMPARE(zoe.getFilterHighFrequency(), 22050);
    QCOMPARE(loaded->getSelectedProfile().getName(), QStringLiteral("A"));
    QCOMPARE(loaded->getSelectedProfile().getID(), 101U);
}

void tst_ConfigurationFile_writing::Save_dropsFractionsThresholdsAndEdits_isIntended()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    Profile profile = saved.Add(QStringLiteral("A"), 100.9, 150.99, 1.5, 0, 75);
    QVERIFY(profile.setMaximalThreshold(2500));
    QVERIFY(profile.setMinimalThreshold(2000));
    QVERIFY(saved._Save(sandbox.path()));
    QCOMPARE(profile.getMinimalBPM(), 100.9);
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    const Profile read = loaded->m_profiles.last();
    QCOMPARE(read.getMinimalBPM(), 100.0);
    QCOMPARE(read.getMaximalBPM(), 150.0);
    QCOMPARE(read.getMinimalThreshold(), short(1000));
    QCOMPARE(read.getMaximalThreshold(), short(32000));
}

void tst_ConfigurationFile_writing::Save_cutsBPMToLow16Bits_isIntended_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("expected");
    QTest::newRow("toward zero from above") << 99.999 << 99.0;
    QTest::newRow("toward zero from below") << -99.999 << -99.0;
    QTest::newRow("greatest") << 32767.5 << 32767.0;
    QTest::newRow("beyond 15 bits") << 32768.0 << -32768.0;
    QTest::newRow("16 bits") << 65536.0 << 0.0;
    QTest::newRow("17 bits") << 65636.0 << 100.0;
    QTest::newRow("below 15 bits") << -32769.0 << 32767.0;
    QTest::newRow("beyond 32 bits") << 4294967396.0 << 100.0;
    QTest::newRow("beyond 64 bits") << 1e300 << 0.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0.0;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

void tst_ConfigurationFile_writing::Save_cutsBPMToLow16Bits_isIntended()
{
    QFETCH(double, bpm);
    QFETCH(double, expected);
    const ConfigSandbox sandbox;
    Configuration saved;
    saved.Add(QStringLiteral("A"), bpm, -bpm, 1.5, 0, 75);
    QVERIFY(saved._Save(sandbox.path()));
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QCOMPARE(loaded->m_profiles.last().getMinimalBPM(), expected);
    const bool isLowest = qAbs(expected) == 32768.0;
    QCOMPARE(loaded->m_profiles.last().getMaximalBPM(), isLowest ? expected : -expected);
}

void tst_ConfigurationFile_writing::Save_cutsLongTexts_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("kept");
    QTest::newRow("longest") << 65535 << 65535;
    QTest::newRow("cut to nothing") << 65536 << 0;
    QTest::newRow("cut to 1") << 65537 << 1;
    QTest::newRow("cut to 10") << 131082 << 10;
}

void tst_ConfigurationFile_writing::Save_cutsLongTexts()
{
    QFETCH(int, size);
    QFETCH(int, kept);
    const ConfigSandbox sandbox;
    const QString text(size, QLatin1Char('x'));
    Configuration saved;
    saved.setLanguage(text);
    saved.Add(text, 100.0, 150.0, 1.5, 0, 75);
    QVERIFY(saved._Save(sandbox.path()));
    // The file of the defaults has 65 bytes, a record 37 and its name.
    QCOMPARE(sandbox.read().size(), 65 + 37 + 2 * kept);
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QCOMPARE(loaded->getLanguage(), text.left(kept));
    QCOMPARE(loaded->m_profiles.last().getName(), text.left(kept));
}

void tst_ConfigurationFile_writing::Save_keepsNaN()
{
    const ConfigSandbox sandbox;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Configuration saved;
    saved.setBPMCalculationDuration(nan);
    saved.Add(QStringLiteral("A"), 100.0, 150.0, nan, 0, 75);
    QVERIFY(saved._Save(sandbox.path()));
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QVERIFY(qIsNaN(loaded->getBPMCalculationDuration()));
    QVERIFY(qIsNaN(loaded->m_profiles.last().getSensibility()));
}

void tst_ConfigurationFile_writing::Save_compactsIDsInListOrder()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    const Profile b = saved.Add(QStringLiteral("B"), 100.0, 150.0, 1.5, 0, 75);
    saved.Add(QStringLiteral("gone"), 100.0, 150.0, 1.5, 0, 75);
    const Profile a = saved.Add(QStringLiteral("A"), 100.0, 150.0, 1.5, 0, 75);
    QVERIFY(saved.Remove(UserProfile(QString(), 1.0, 0, 0, 101U, 1.0, 2.0)));
    QVERIFY(saved._Save(sandbox.path()));
    QCOMPARE(b.getID(), 100U);
    QCOMPARE(a.getID(), 101U);
    QCOMPARE(UserProfile::_nextID, 102U);
    // A is first in the sorted list, and keeps that place only once the list was sorted.
    QCOMPARE(saved.getProfiles().at(3).getName(), QStringLiteral("A"));
    QVERIFY(saved._Save(sandbox.path()));
    QCOMPARE(a.getID(), 100U);
    QCOMPARE(b.getID(), 101U);
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QCOMPARE(loaded->m_profiles.at(3).getName(), QStringLiteral("A"));
    QCOMPARE(loaded->m_profiles.at(3).getID(), 100U);
    QCOMPARE(loaded->m_profiles.at(4).getID(), 101U);
}

void tst_ConfigurationFile_writing::Save_keepsSelection_whenIDsAreCompacted()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    UserProfile::_nextID = 4000;
    const Profile profile = saved.Add(QStringLiteral("A"), 100.0, 150.0, 1.5, 0, 75);
    QVERIFY(saved.setSelectedProfile(profile));
    QCOMPARE(profile.getID(), 4000U);
    QVERIFY(saved._Save(sandbox.path()));
    QCOMPARE(saved.getSelectedProfile().getID(), 100U);
    QVERIFY(saved.isSelected(profile));
    QCOMPARE(sandbox.load()->getSelectedProfile().getName(), QStringLiteral("A"));
}

void tst_ConfigurationFile_writing::Save_compactsIDs_whenWritingFails()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    UserProfile::_nextID = 4000;
    const Profile profile = saved.Add(QStringLiteral("A"), 100.0, 150.0, 1.5, 0, 75);
    QVERIFY(!saved._Save(sandbox.path(QStringLiteral("missing/test.cfg"))));
    QCOMPARE(profile.getID(), 100U);
}

void tst_ConfigurationFile_writing::Save_touchesNoID_whenPathIsBlank()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    UserProfile::_nextID = 4000;
    const Profile profile = saved.Add(QStringLiteral("A"), 100.0, 150.0, 1.5, 0, 75);
    QVERIFY(!saved._Save(QStringLiteral(" ")));
    QCOMPARE(profile.getID(), 4000U);
}

void tst_ConfigurationFile_writing::Save_keepsModifiedMark_isIntended()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    QVERIFY(saved.setGrayMode(false));
    QVERIFY(saved._Save(sandbox.path()));
    QVERIFY(saved.isModified());
    QVERIFY(saved.setIsModified(false));
    QVERIFY(saved._Save(sandbox.path()));
    QVERIFY(!saved.isModified());
}

void tst_ConfigurationFile_writing::Save_leavesBuiltInProfilesOut_isIntended()
{
    const ConfigSandbox sandbox;
    Configuration saved;
    Profile electro = saved.getSelectedProfile();
    QVERIFY(electro.setBPM(100.0, 101.0));
    QVERIFY(electro.setName(QStringLiteral("Electro 2")));
    QVERIFY(saved._Save(sandbox.path()));
    QCOMPARE(sandbox.read().size(), 65);
    PredefinedProfile::_nextID = 1;
    PredefinedProfile::_builtInProfiles.clear();
    const auto loaded = sandbox.load();
    QVERIFY(loaded);
    QCOMPARE(loaded->getSelectedProfile().getName(), QStringLiteral("Electro"));
    QCOMPARE(loaded->getSelectedProfile().getMinimalBPM(), 90.0);
}

void tst_ConfigurationFile_writing::Save_givesSameBytesTwice()
{
    const ConfigSandbox sandbox;
    const auto loaded = sandbox.load(FileBuilder::sample(1, 2).bytes());
    QVERIFY(loaded);
    QVERIFY(loaded->_Save(sandbox.path()));
    const QByteArray first = sandbox.read();
    QVERIFY(loaded->_Save(sandbox.path()));
    QCOMPARE(sandbox.read(), first);
    QCOMPARE(first, FileBuilder::sample(1, 2).bytes());
    QVERIFY(sandbox.load()->_Save(sandbox.path()));
    QCOMPARE(sandbox.read(), first);
}

AA_TEST(tst_ConfigurationFile_writing, QCoreApplication)
#include "tst_ConfigurationFile_writing.moc"
