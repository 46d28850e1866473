// SPDX-License-Identifier: MIT
#include <desktop/window/WindowSettings.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <support/IniFile.h>
#include <support/TestClass.h>

namespace {

constexpr std::pair<const char*, ePanel> kPanels[] = {
    {"AdvancedSettings", eAdvancedSettingsPanel},
    {"AudioInputDevices", eDevicesPanel},
    {"AudioSpectrum", eSpectrumPanel},
    {"BeatLED", eBeatLEDPanel},
    {"BPM", eBPMPanel},
    {"Durations", eDurationsPanel},
    {"LastMinutes", eStripPanel},
    {"ManualBeat", eManualBeatPanel},
    {"Outputs", eOutputsPanel},
    {"Profiles", eProfilesPanel},
    {"PulseLED", ePulseLEDPanel},
    {"Reset", eResetPanel},
    {"Threshold", eThresholdPanel},
};

/// Whether a panel is not there by default.
bool IsHidden(int pPanel)
{
    return pPanel == eDurationsPanel || pPanel == eStripPanel;
}

}  // namespace

/// Which panels are shown, by both ways of naming the file.
class tst_WindowSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void noFile_givesTheDefaults();
    void key_showsOrHidesItsPanel_data();
    void key_showsOrHidesItsPanel();
    void flag_isRead_data();
    void flag_isRead();
    void position_isRead_data();
    void position_isRead();
    void otherSections_areIgnored();
    void change_isSaved_andTheRestStays();

private:
    /// The settings of a file of that text, which must be the same in both places.
    WindowSettings _Load(const QByteArray& pText)
    {
        const QString path = m_folder.filePath(QStringLiteral("other.ini"));
        if (!WriteIniFile(path, pText) || !WriteIniFile(UISettings::_getDefaultPath(), pText))
            qFatal("cannot write the settings");
        const WindowSettings settings = WindowSettings::Load(path);
        const WindowSettings beside = WindowSettings::Load({});
        if (settings.visible != beside.visible || settings.position != beside.position ||
            settings.isHiddenOnStart != beside.isHiddenOnStart ||
            settings.isManualBeatLockingBPM != beside.isManualBeatLockingBPM)
            qFatal("the two files are read differently");
        return settings;
    }

    QTemporaryDir m_folder;
};

void tst_WindowSettings::cleanup()
{
    QFile::remove(UISettings::_getDefaultPath());
}

void tst_WindowSettings::noFile_givesTheDefaults()
{
    const WindowSettings settings = WindowSettings::Load({});
    for (int panel = 0; panel < ePanelCount; ++panel)
        QCOMPARE(bool(settings.visible[std::size_t(panel)]), !IsHidden(panel));
    QVERIFY(!settings.isHiddenOnStart);
    QVERIFY(!settings.isManualBeatLockingBPM);
    QCOMPARE(settings.position, Default);
}

void tst_WindowSettings::key_showsOrHidesItsPanel_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("panel");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("isVisible");
    for (const auto& [key, panel] : kPanels) {
        QTest::addRow("%s shown", key)
            << QByteArray(key) << int(panel) << QByteArray("true") << true;
        QTest::addRow("%s hidden", key)
            << QByteArray(key) << int(panel) << QByteArray("0") << false;
    }
    QTest::newRow("\"off\" is true")
        << QByteArray("Durations") << int(eDurationsPanel) << QByteArray("off") << true;
    QTest::newRow("FALSE") << QByteArray("BPM") << int(eBPMPanel) << QByteArray("FALSE") << false;
}

void tst_WindowSettings::key_showsOrHidesItsPanel()
{
    QFETCH(QByteArray, key);
    QFETCH(int, panel);
    QFETCH(QByteArray, value);
    QFETCH(bool, isVisible);
    const WindowSettings settings = _Load("[MainWindow]\n" + key + "=" + value + "\n");
    for (int other = 0; other < ePanelCount; ++other)
        QCOMPARE(bool(settings.visible[std::size_t(other)]),
                 other == panel ? isVisible : !IsHidden(other));
}

void tst_WindowSettings::flag_isRead_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<bool>("isLocking");
    QTest::newRow("hidden") << QByteArray("HideOnStart") << true << false;
    QTest::newRow("locking") << QByteArray("ManualBeatLock") << false << true;
}

void tst_WindowSettings::flag_isRead()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, isHidden);
    QFETCH(bool, isLocking);
    const WindowSettings settings = _Load("[MainWindow]\n" + key + "=1\n");
    QCOMPARE(settings.isHiddenOnStart, isHidden);
    QCOMPARE(settings.isManualBeatLockingBPM, isLocking);
}

void tst_WindowSettings::position_isRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("bottom left") << QByteArray("BOTTOM-LEFT") << 0;
    QTest::newRow("bottom right") << QByteArray("bottom-right") << 1;
    QTest::newRow("center") << QByteArray("Center") << 2;
    QTest::newRow("unknown") << QByteArray("MIDDLE") << 3;
    QTest::newRow("empty") << QByteArray("") << 3;
    QTest::newRow("top left, blanks") << QByteArray("\"  top-left \"") << 4;
    QTest::newRow("top right") << QByteArray("TOP-RIGHT") << 5;
}

void tst_WindowSettings::position_isRead()
{
    QFETCH(QByteArray, text);
    QFETCH(int, position);
    const WindowSettings settings = _Load("[MainWindow]\nStartingPosition=" + text + "\n");
    QCOMPARE(int(settings.position), position);
}

void tst_WindowSettings::otherSections_areIgnored()
{
    const WindowSettings settings = _Load("BPM=0\n[Other]\nBPM=0\nHideOnStart=1\n");
    QVERIFY(settings.visible[eBPMPanel]);
    QVERIFY(!settings.isHiddenOnStart);
}

void tst_WindowSettings::change_isSaved_andTheRestStays()
{
    const QString path = UISettings::_getDefaultPath();
    QVERIFY(WriteIniFile(path, "[MainWindow]\nReset=false\nStartingPosition=CENTER\n"));
    const WindowSettings before = WindowSettings::Load({});
    QVERIFY(before.size.isEmpty());
    QVERIFY(!before.place);
    QVERIFY(before.isFlashLimited);
    WindowSettings after = before;
    after.visible.flip(eSpectrumPanel);
    after.visible.flip(eDurationsPanel);
    after.size = QSize(900, 700);
    after.place = QPoint(-20, 40);
    after.isHighContrast = true;
    after.isFlashLimited = false;
    QVERIFY(after.Save(before));
    const WindowSettings kept = WindowSettings::Load({});
    QVERIFY(!kept.visible[eSpectrumPanel]);
    QVERIFY(kept.visible[eDurationsPanel]);
    QVERIFY(!kept.visible[eResetPanel]);
    QCOMPARE(int(kept.position), int(Center));
    QCOMPARE(kept.size, QSize(900, 700));
    QCOMPARE(*kept.place, QPoint(-20, 40));
    QVERIFY(kept.isHighContrast);
    QVERIFY(!kept.isFlashLimited);
    QVERIFY(!kept.isFlashSoft);
    // What was not changed is not written.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.readAll().contains("SoftFlash"));
}

AA_TEST(tst_WindowSettings, QCoreApplication)
#include "tst_WindowSettings.moc"
