// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/AudioAnalyzer.h>
#include <AudioAnalyzer/analysis/MeterTracker.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>

#include "ReadOption.h"
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/ConfigurationSettings.h>
#include <cli/settings/SettingText.h>
#include <shared/settings/AnalysisOptions.h>
#include <shared/settings/ConfigurationStore.h>

#include <QAudioFormat>
#include <QtTest>

#include <algorithm>
#include <support/SettingOf.h>
#include <support/TestClass.h>

/// The table of options: every one is read, stored and refused as it says.
class tst_AnalysisOptions_table : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void table_readsValues_data();
    void table_readsValues();
    void table_coversEveryOptionOnce();
    void table_storesValues();
    void everySetting_hasItsOption_data();
    void everySetting_hasItsOption();
    void everySettingThatIsStored_isReadBack_data();
    void everySettingThatIsStored_isReadBack();
};

void tst_AnalysisOptions_table::table_readsValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("words");  // of the refusal; empty = accepted
    const auto add = [](const char* pName, const char* pValue, const char* pWords) {
        QTest::addRow("%s %s", pName, pValue) << pName << pValue << pWords;
    };
    add("--tracker", "automatic", "");
    add("--tracker", "Profile", "");
    add("--tracker", "", "automatic or profile");
    add("--tracker", "engine", "automatic or profile");
    add("--profile", "Slow", "");
    add("--profile", "", "name of a profile");
    add("--bpm", "1:999.9", "");
    add("--bpm", "120:120", "");
    add("--bpm", "0.9:100", "1 <= MIN <= MAX < 1000");
    add("--bpm", "100:1000", "1 <= MIN <= MAX < 1000");
    add("--bpm", "120:119", "1 <= MIN <= MAX < 1000");
    add("--bpm", "120", "1 <= MIN <= MAX < 1000");
    add("--bpm", "1:2:3", "1 <= MIN <= MAX < 1000");
    add("--bpm", "a:b", "1 <= MIN <= MAX < 1000");
    add("--bpm", "100:nan", "1 <= MIN <= MAX < 1000");
    add("--bpm", "", "1 <= MIN <= MAX < 1000");
    add("--band", "20:150", "");
    add("--band", ":150", "");
    add("--band", "20:", "");
    add("--band", ":", "");
    add("--band", "0:0", "");
    add("--band", "100:0", "");
    add("--band", "100:99", "LOW <= HIGH");
    add("--band", "-1:99", "LOW <= HIGH");
    add("--band", "1.5:99", "LOW <= HIGH");
    add("--band", "100", "LOW <= HIGH");
    add("--band", "1:2:3", "LOW <= HIGH");
    add("--sensibility", "0", "");
    add("--sensibility", "1000", "");
    add("--sensibility", "-0.1", "0 to 1000");
    add("--sensibility", "1001", "0 to 1000");
    add("--sensibility", "1,5", "0 to 1000");
    add("--threshold", "0", "");
    add("--threshold", "32767", "");
    add("--threshold", "Auto", "");
    add("--threshold", "32768", "0 to 32767, or auto");
    add("--threshold", "-1", "0 to 32767, or auto");
    add("--threshold", "1.5", "0 to 32767, or auto");
    add("--fixed-bpm", "1", "");
    add("--fixed-bpm", "999", "");
    add("--fixed-bpm", "none", "");
    add("--fixed-bpm", "0", "above 0, up to 999, or none");
    add("--fixed-bpm", "999.5", "above 0, up to 999, or none");
    add("--stop-duration", "0.05", "");
    add("--stop-duration", "10", "");
    add("--stop-duration", "0", "0.05 to 10");
    add("--stop-duration", "11", "0.05 to 10");
    add("--stop-threshold", "0", "");
    add("--stop-threshold", "-1", "0 to 32767");
    add("--stop-threshold", "auto", "0 to 32767");
    add("--average-duration", "60", "");
    add("--average-duration", "61", "0.05 to 60");
    add("--bpm-duration", "600", "");
    add("--bpm-duration", "0.01", "0.05 to 600");
    add("--bpm-duration", "inf", "0.05 to 600");
    add("--no-consistency", "", "");
    add("--virtual-when-stopped", "", "");
}

void tst_AnalysisOptions_table::table_readsValues()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, words);
    AnalysisOptions options;
    const QString refusal = Read(options, name, value);
    QCOMPARE(refusal.isEmpty(), words.isEmpty());
    QVERIFY2(refusal.contains(words), qPrintable(refusal));
}

void tst_AnalysisOptions_table::table_coversEveryOptionOnce()
{
    QStringList names;
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable()) {
        QVERIFY(!info.help.isEmpty());
        names.append(info.name);
    }
    QCOMPARE(names,
             QStringLiteral(
                 "--tracker --profile --bpm --band --sensibility --threshold --stop-threshold "
                 "--stop-duration --average-duration "
                 "--bpm-duration --fixed-bpm --no-consistency --virtual-when-stopped")
                 .split(QLatin1Char(' ')));
}

void tst_AnalysisOptions_table::table_storesValues()
{
    AnalysisOptions options;
    const std::vector<std::pair<const char*, const char*>> given = {{"--profile", "slow"},
                                                                    {"--bpm", "80:120.5"},
                                                                    {"--band", "0:99"},
                                                                    {"--sensibility", "1.5"},
                                                                    {"--threshold", "77"},
                                                                    {"--fixed-bpm", "101.5"},
                                                                    {"--stop-duration", "2"},
                                                                    {"--stop-threshold", "88"},
                                                                    {"--average-duration", "4"},
                                                                    {"--bpm-duration", "12"},
                                                                    {"--no-consistency", ""},
                                                                    {"--virtual-when-stopped", ""}};
    for (const auto& [name, value] : given)
        QCOMPARE(Read(options, QLatin1String(name), QLatin1String(value)), QString());
    QCOMPARE(options.profile, QStringLiteral("slow"));
    QCOMPARE(options.bpm->minimal, 80.0);
    QCOMPARE(options.bpm->maximal, 120.5);
    QCOMPARE(options.band->low, -1);  // 0 = no edge
    QCOMPARE(options.band->high, 99);
    QCOMPARE(*options.sensibility, 1.5);
    QCOMPARE(options.settings[SettingOf("threshold")], 77.0);
    QCOMPARE(options.settings[SettingOf("fixed-bpm")], 101.5);
    QCOMPARE(options.settings[SettingOf("stop-duration")], 2.0);
    QCOMPARE(options.settings[SettingOf("stop-threshold")], 88.0);
    QCOMPARE(options.settings[SettingOf("average-duration")], 4.0);
    QCOMPARE(options.settings[SettingOf("bpm-duration")], 12.0);
    QCOMPARE(options.settings[SettingOf("consistency")], 0.0);
    QCOMPARE(options.settings[SettingOf("virtual-when-stopped")], 1.0);
    QCOMPARE(Read(options, QStringLiteral("--threshold"), QStringLiteral("auto")), QString());
    QCOMPARE(options.settings[SettingOf("threshold")], -1.0);
}

void tst_AnalysisOptions_table::everySetting_hasItsOption_data()
{
    QTest::addColumn<QString>("identifier");
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.use == SettingsTable::eAnalysis)
            QTest::newRow(setting.pIdentifier) << QString::fromUtf8(setting.pIdentifier);
}

// From its limits, both included, to the analysis.
void tst_AnalysisOptions_table::everySetting_hasItsOption()
{
    QFETCH(QString, identifier);
    const SettingsTable::Setting& setting = *SettingsTable::Find(identifier);
    const bool isSwitch = setting.form == SettingsTable::eSwitch;
    const QString option =
        (isSwitch && setting.initial != 0.0 ? QStringLiteral("--no-") : QStringLiteral("--")) +
        identifier;
    AnalysisOptions options;
    const auto read = [&](double pValue) {
        return Read(options, option, isSwitch ? QString() : cli::SettingText(setting, pValue));
    };
    for (const double value : {setting.minimum, setting.maximum}) {
        QCOMPARE(read(value), QString());
        QCOMPARE(options.settings[&setting], isSwitch ? OtherValue(setting) : value);
    }
    Configuration configuration;
    QCOMPARE(options.getValue(setting, configuration), OtherValue(setting));
    for (const double value : {setting.minimum - 1.0, setting.maximum + 1.0})
        QVERIFY(isSwitch || read(value).contains(QString::number(setting.maximum)));
}

void tst_AnalysisOptions_table::everySettingThatIsStored_isReadBack_data()
{
    QTest::addColumn<QString>("identifier");
    for (const ConfigurationSetting& setting : getConfigurationSettings())
        if (SettingsTable::Find(setting.name))
            QTest::newRow(qPrintable(setting.name)) << setting.name;
}

/// Through "config set" and "config show", without their file.
void tst_AnalysisOptions_table::everySettingThatIsStored_isReadBack()
{
    QFETCH(QString, identifier);
    const SettingsTable::Setting& setting = *SettingsTable::Find(identifier);
    const auto& settings = getConfigurationSettings();
    const auto found = std::find_if(settings.begin(), settings.end(), [&](const auto& pSetting) {
        return pSetting.name == identifier;
    });
    ConfigurationStore store;
    for (const double value : {setting.minimum, setting.maximum}) {
        const QString text = cli::SettingText(setting, value);
        QCOMPARE(found->set(store, text), QString());
        QCOMPARE(setting.get(store.getConfiguration()), value);
        QCOMPARE(found->get(store), text);
        QVERIFY(found->help.contains(cli::SettingRange(setting)));
    }
    for (const char* pRefused : {"", "-2", "32768", "nan", "inf", "maybe"})
        QCOMPARE(found->set(store, QString::fromUtf8(pRefused)), cli::SettingRefusal(setting));
    QCOMPARE(setting.get(store.getConfiguration()), setting.maximum);
}

AA_TEST(tst_AnalysisOptions_table, QCoreApplication)
#include "tst_AnalysisOptions_table.moc"
