// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/config/Configuration.h>

#include "support/ConfigSandbox.h"

#include <QtTest>

#include <support/TestClass.h>

namespace {

QtAudioInputDeviceInfo device(const QString& pName, bool pIsDefault = false)
{
    return QtAudioInputDeviceInfo(pName, pIsDefault);
}

}  // namespace

class tst_ConfigurationDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingStored_selectsNothing();
    void nothingStored_asksForNoDevice();
    void setSelected_storesNameAndMarks();
    void setSelected_doesNothing_whenNameIsStoredAlready();
    void setSelected_goesByLetterCase();
    void setSelected_storesEmptyName_whenNothingIsStored_isIntended();
    void setSelected_storesEmptyName_whenAnotherIsStored();
    void setSelected_storesNameUntrimmed();
    void isSelected_comparesNames_data();
    void isSelected_comparesNames();
    void getSelected_findsPresentDevice();
    void getSelected_isNull_whenNameDiffersInCase();
    void getSelected_followsTheList();
    void getSelected_keepsName_whenDeviceIsAbsent();
};

void tst_ConfigurationDevice::nothingStored_selectsNothing()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    const Configuration configuration;
    QVERIFY(!configuration.getSelectedAudioInputDevice());
    QVERIFY(!configuration.isSelected(device(QStringLiteral("Mic"))));
    QVERIFY(!configuration.isSelected(device(QStringLiteral(" "))));
}

void tst_ConfigurationDevice::nothingStored_asksForNoDevice()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QString());
    const Configuration configuration;
    QVERIFY(!configuration.getSelectedAudioInputDevice());
}

void tst_ConfigurationDevice::setSelected_storesNameAndMarks()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.m_selectedAudioInputDevice, QStringLiteral("Mic"));
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Line in"))));
    QCOMPARE(configuration.m_selectedAudioInputDevice, QStringLiteral("Line in"));
}

void tst_ConfigurationDevice::setSelected_doesNothing_whenNameIsStoredAlready()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    QVERIFY(!configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    QVERIFY(configuration.isModified());
    configuration.setIsModified(false);
    QVERIFY(!configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"), true)));
    QVERIFY(!configuration.isModified());
}

void tst_ConfigurationDevice::setSelected_goesByLetterCase()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("USB Audio"))));
    configuration.setIsModified(false);
    const QtAudioInputDeviceInfo other = device(QStringLiteral("usb audio"));
    QVERIFY(!configuration.isSelected(other));
    QVERIFY(configuration.setSelectedAudioInputDevice(other));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.m_selectedAudioInputDevice, QStringLiteral("usb audio"));
}

void tst_ConfigurationDevice::setSelected_storesEmptyName_whenNothingIsStored_isIntended()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    for (int i = 0; i < 2; ++i) {
        configuration.setIsModified(false);
        QVERIFY(configuration.setSelectedAudioInputDevice(QtAudioInputDeviceInfo()));
        QVERIFY(configuration.isModified());
        QVERIFY(configuration.m_selectedAudioInputDevice.isEmpty());
    }
}

void tst_ConfigurationDevice::setSelected_storesEmptyName_whenAnotherIsStored()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    QVERIFY(configuration.setSelectedAudioInputDevice(QtAudioInputDeviceInfo()));
    QVERIFY(configuration.m_selectedAudioInputDevice.isEmpty());
    QVERIFY(!configuration.getSelectedAudioInputDevice());
}

void tst_ConfigurationDevice::setSelected_storesNameUntrimmed()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral(" Mic "))));
    QCOMPARE(configuration.m_selectedAudioInputDevice, QStringLiteral(" Mic "));
    QVERIFY(!configuration.isSelected(device(QStringLiteral("Mic"))));
}

void tst_ConfigurationDevice::isSelected_comparesNames_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("expected");
    const QString mic = QStringLiteral("Mic");
    QTest::newRow("same") << mic << mic << true;
    QTest::newRow("other case") << mic << QStringLiteral("MIC") << false;
    QTest::newRow("other blanks") << mic << QStringLiteral("Mic ") << false;
    QTest::newRow("other name") << mic << QStringLiteral("Line in") << false;
    QTest::newRow("no name") << mic << QString() << false;
    QTest::newRow("none stored") << QString() << mic << false;
    QTest::newRow("none and no name") << QString() << QString() << true;
}

void tst_ConfigurationDevice::isSelected_comparesNames()
{
    QFETCH(QString, stored);
    QFETCH(QString, name);
    const ConfigSandbox sandbox;
    Configuration configuration;
    configuration.m_selectedAudioInputDevice = stored;
    QTEST(configuration.isSelected(device(name)), "expected");
    QTEST(configuration.isSelected(device(name, true)), "expected");
}

void tst_ConfigurationDevice::getSelected_findsPresentDevice()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    sandbox.plug(QStringLiteral("Line in"));
    sandbox.plug(QStringLiteral("Line in"));
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Line in"))));
    const QtAudioInputDeviceInfo* const found = configuration.getSelectedAudioInputDevice();
    QVERIFY(found);
    QVERIFY(found == &QtAudioInputDevicesManager::GetInstance()->m_devices.at(1));
}

void tst_ConfigurationDevice::getSelected_isNull_whenNameDiffersInCase()
{
    const ConfigSandbox sandbox;
    sandbox.plug(QStringLiteral("Mic"));
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("mic"))));
    QVERIFY(!configuration.getSelectedAudioInputDevice());
}

void tst_ConfigurationDevice::getSelected_followsTheList()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    QVERIFY(!configuration.getSelectedAudioInputDevice());
    sandbox.plug(QStringLiteral("Mic"));
    QVERIFY(configuration.getSelectedAudioInputDevice());
    // No plugin is loaded, so a new list is empty.
    QtAudioInputDevicesManager::GetInstance()->Enumerate(false);
    QVERIFY(!configuration.getSelectedAudioInputDevice());
    sandbox.plug(QStringLiteral("Mic"));
    QVERIFY(configuration.getSelectedAudioInputDevice());
}

void tst_ConfigurationDevice::getSelected_keepsName_whenDeviceIsAbsent()
{
    const ConfigSandbox sandbox;
    Configuration configuration;
    QVERIFY(configuration.setSelectedAudioInputDevice(device(QStringLiteral("Mic"))));
    configuration.setIsModified(false);
    QVERIFY(!configuration.getSelectedAudioInputDevice());
    QVERIFY(configuration.isSelected(device(QStringLiteral("Mic"))));
    QVERIFY(!configuration.isModified());
}

AA_TEST(tst_ConfigurationDevice, QCoreApplication)
#include "tst_ConfigurationDevice.moc"
