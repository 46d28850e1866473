// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QtTest>

#include <support/IniFile.h>
#include <support/TestClass.h>
#include <type_traits>

namespace {

struct Shown
{
    const char* key;
    bool (UISettings::*get)() const;
    bool initial;
};

const Shown kShown[] = {
    {"AdvancedSettings", &UISettings::isAdvancedSettingsVisible, true},
    {"AudioInputDevices", &UISettings::isAudioInputDevicesVisible, true},
    {"AudioSpectrum", &UISettings::isAudioSpectrumVisible, true},
    {"BeatLED", &UISettings::isBeatLEDVisible, true},
    {"BPM", &UISettings::isBPMVisible, true},
    {"Durations", &UISettings::isDurationsSettingsPanelVisible, false},
    {"HideOnStart", &UISettings::isHiddenOnStart, false},
    {"ManualBeatLock", &UISettings::isManualBeatLockingBPM, false},
    {"ManualBeat", &UISettings::isManualBeatVisible, true},
    {"Profiles", &UISettings::isProfilesVisible, true},
    {"PulseLED", &UISettings::isPulseLEDVisible, true},
    {"Reset", &UISettings::isResetVisible, true},
    {"Threshold", &UISettings::isThresholdVisible, true},
};

/// The keys whose flags differ from the defaults.
QByteArray changesOf(const UISettings& pSettings)
{
    QByteArray keys;
    for (const Shown& flag : kShown)
        if ((pSettings.*flag.get)() != flag.initial)
            keys += QByteArray(flag.key) + ' ';
    return keys.trimmed();
}

bool isDefault(const UISettings& pSettings)
{
    return changesOf(pSettings).isEmpty() && pSettings.getStartingPosition() == Default;
}

}  // namespace

class tst_UISettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void class_isPlainValue();
    void positions_haveFixedNumbers_isIntended();
    void constructor_setsDefaults();
    void getDefaultPath_isNextToExecutable();
    void Load_makesDefaultsAndNoFile_whenThereIsNoFile();
    void Load_changesNoFile();
    void Load_readsEachKey_data();
    void Load_readsEachKey();
    void Load_readsSeveralKeys();
    void Load_readsFlagAsQtReadsText_isIntended_data();
    void Load_readsFlagAsQtReadsText_isIntended();
    void Load_readsStartingPosition_data();
    void Load_readsStartingPosition();
    void Load_ignoresKeysOutsideTheSection_data();
    void Load_ignoresKeysOutsideTheSection();
    void Load_makesDefaults_whenFileIsUseless_data();
    void Load_makesDefaults_whenFileIsUseless();
    void Load_makesDefaults_whenFileIsFolder();
    void copy_takesEveryMember();

private:
    void write(const QByteArray& pText);

    QString m_path;
};

void tst_UISettings::init()
{
    m_path = QCoreApplication::applicationDirPath() + QStringLiteral("/AudioAnalyzer.ini");
    QFile::remove(m_path);
}

void tst_UISettings::cleanup()
{
    QFile::remove(m_path);
}

void tst_UISettings::write(const QByteArray& pText)
{
    QVERIFY(WriteIniFile(m_path, pText));
}

void tst_UISettings::class_isPlainValue()
{
    static_assert(!std::is_polymorphic_v<UISettings>);
    static_assert(std::is_copy_constructible_v<UISettings>);
    static_assert(sizeof(eStartingPosition) == 4);
    const UISettings settings;
    const auto offset = [&settings](const auto& pMember) {
        return int(reinterpret_cast<quintptr>(&pMember) - reinterpret_cast<quintptr>(&settings));
    };
    QCOMPARE(offset(settings.m_isAdvancedSettingsVisible), 0);
    QCOMPARE(offset(settings.m_isResetVisible), 11);
    QCOMPARE(offset(settings.m_startingPosition), 12);
    QCOMPARE(offset(settings.m_isThresholdVisible), 16);
}

void tst_UISettings::positions_haveFixedNumbers_isIntended()
{
    QCOMPARE(int(BottomLeft), 0);
    QCOMPARE(int(BottomRight), 1);
    QCOMPARE(int(Center), 2);
    QCOMPARE(int(Default), 3);
    QCOMPARE(int(TopLeft), 4);
    QCOMPARE(int(TopRight), 5);
}

void tst_UISettings::constructor_setsDefaults()
{
    QVERIFY(isDefault(UISettings()));
}

void tst_UISettings::getDefaultPath_isNextToExecutable()
{
    QCOMPARE(UISettings::_getDefaultPath(), m_path);
    QVERIFY(QDir::isAbsolutePath(UISettings::_getDefaultPath()));
}

void tst_UISettings::Load_makesDefaultsAndNoFile_whenThereIsNoFile()
{
    QVERIFY(isDefault(UISettings::Load()));
    QVERIFY(!QFile::exists(m_path));
}

void tst_UISettings::Load_changesNoFile()
{
    const QByteArray text = "; mine\n[MainWindow]\nBPM = 0\nUnknown=1\n";
    write(text);
    const QDir folder(QCoreApplication::applicationDirPath());
    const QStringList before = folder.entryList(QDir::AllEntries | QDir::Hidden);
    QCOMPARE(changesOf(UISettings::Load()), QByteArray("BPM"));
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::Hidden), before);
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), text);
}

void tst_UISettings::Load_readsEachKey_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("value");
    for (const Shown& flag : kShown)
        QTest::newRow(flag.key) << QByteArray(flag.key) << !flag.initial;
}

void tst_UISettings::Load_readsEachKey()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, value);
    write("[MainWindow]\n" + key + (value ? "=true\n" : "=false\n"));
    const UISettings changed = UISettings::Load();
    QCOMPARE(changesOf(changed), key);
    QCOMPARE(changed.getStartingPosition(), Default);
    write("[MainWindow]\n" + key + (value ? "=false\n" : "=true\n"));
    QVERIFY(isDefault(UISettings::Load()));
}

void tst_UISettings::Load_readsSeveralKeys()
{
    write("[MainWindow]\nDurations=true\nBPM=0\n");
    const UISettings settings = UISettings::Load();
    QVERIFY(settings.isDurationsSettingsPanelVisible());
    QVERIFY(!settings.isBPMVisible());
    QCOMPARE(changesOf(settings), QByteArray("BPM Durations"));
}

void tst_UISettings::Load_readsFlagAsQtReadsText_isIntended_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expected");
    for (const char* text : {"", "0", "false", "FALSE", "False", "\"0\"", "  false  ", "\"\""})
        QTest::newRow(text) << QByteArray(text) << false;
    for (const char* text : {"1", "true", "TRUE", "no", "off", "No", "00", "0.0", "-1", "x", "f"})
        QTest::newRow(text) << QByteArray(text) << true;
}

void tst_UISettings::Load_readsFlagAsQtReadsText_isIntended()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, expected);
    write("[MainWindow]\nBPM=" + text + "\nDurations=" + text + "\n");
    QCOMPARE(UISettings::Load().isBPMVisible(), expected);
    QCOMPARE(UISettings::Load().isDurationsSettingsPanelVisible(), expected);
}

void tst_UISettings::Load_readsStartingPosition_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("BOTTOM-LEFT") << QByteArray("BOTTOM-LEFT") << 0;
    QTest::newRow("BOTTOM-RIGHT") << QByteArray("BOTTOM-RIGHT") << 1;
    QTest::newRow("CENTER") << QByteArray("CENTER") << 2;
    QTest::newRow("TOP-LEFT") << QByteArray("TOP-LEFT") << 4;
    QTest::newRow("TOP-RIGHT") << QByteArray("TOP-RIGHT") << 5;
    QTest::newRow("mixed case") << QByteArray("Center") << 2;
    QTest::newRow("lower case and blanks") << QByteArray("  top-left  ") << 4;
    QTest::newRow("quoted blanks") << QByteArray("\" \ttop-left \"") << 4;
    QTest::newRow("empty") << QByteArray() << 3;
    QTest::newRow("blanks") << QByteArray("\"  \"") << 3;
    QTest::newRow("unknown") << QByteArray("MIDDLE") << 3;
    QTest::newRow("default") << QByteArray("DEFAULT") << 3;
    QTest::newRow("other separator") << QByteArray("TOP_LEFT") << 3;
    QTest::newRow("blank inside") << QByteArray("TOP - LEFT") << 3;
    QTest::newRow("number") << QByteArray("4") << 3;
    QTest::newRow("more text") << QByteArray("CENTERED") << 3;
    QTest::newRow("list") << QByteArray("CENTER, TOP-LEFT") << 3;
}

void tst_UISettings::Load_readsStartingPosition()
{
    QFETCH(QByteArray, text);
    write("[MainWindow]\nStartingPosition=" + text + "\n");
    const UISettings settings = UISettings::Load();
    QTEST(int(settings.getStartingPosition()), "expected");
    QVERIFY(changesOf(settings).isEmpty());
}

void tst_UISettings::Load_ignoresKeysOutsideTheSection_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray keys = "BPM=0\nDurations=1\nStartingPosition=CENTER\n";
    QTest::newRow("no section") << keys;
    QTest::newRow("other section") << "[Window]\n" + keys;
    QTest::newRow("section before") << "[Other]\n" + keys + "[MainWindow]\n";
    QTest::newRow("section after") << "[MainWindow]\n[Other]\n" + keys;
    QTest::newRow("section of General") << "[General]\n" + keys;
    QTest::newRow("nested section") << "[MainWindow/Inner]\n" + keys;
    QTest::newRow("other key case") << QByteArray("[MainWindow]\nbpm=0\nDURATIONS=1\n");
    QTest::newRow("commented out") << QByteArray("[MainWindow]\n;BPM=0\n");
}

void tst_UISettings::Load_ignoresKeysOutsideTheSection()
{
    QFETCH(QByteArray, text);
    write(text);
    QVERIFY(isDefault(UISettings::Load()));
}

void tst_UISettings::Load_makesDefaults_whenFileIsUseless_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank lines") << QByteArray("\n\n\n");
    QTest::newRow("no key") << QByteArray("[MainWindow]\n");
    QTest::newRow("no value") << QByteArray("[MainWindow]\nBPM 0\nDurations\n");
    QTest::newRow("zero bytes") << QByteArray(100, '\0');
    QTest::newRow("high bytes") << QByteArray(100, '\xFF');
}

void tst_UISettings::Load_makesDefaults_whenFileIsUseless()
{
    QFETCH(QByteArray, text);
    write(text);
    QVERIFY(isDefault(UISettings::Load()));
}

void tst_UISettings::Load_makesDefaults_whenFileIsFolder()
{
    QDir folder(m_path);
    QVERIFY(folder.mkpath(QStringLiteral(".")));
    const bool isGood = isDefault(UISettings::Load());
    QVERIFY(folder.removeRecursively());
    QVERIFY(isGood);
}

void tst_UISettings::copy_takesEveryMember()
{
    QByteArray text = "[MainWindow]\nStartingPosition=TOP-RIGHT\n";
    QByteArray keys;
    for (const Shown& flag : kShown) {
        text += QByteArray(flag.key) + (flag.initial ? "=0\n" : "=1\n");
        keys += QByteArray(flag.key) + ' ';
    }
    write(text);
    const UISettings settings = UISettings::Load();
    const UISettings copy(settings);
    QCOMPARE(changesOf(copy), keys.trimmed());
    QCOMPARE(copy.getStartingPosition(), TopRight);
    UISettings assigned;
    assigned = settings;
    QCOMPARE(changesOf(assigned), keys.trimmed());
    QCOMPARE(assigned.getStartingPosition(), TopRight);
}

AA_TEST(tst_UISettings, QCoreApplication)
#include "tst_UISettings.moc"
