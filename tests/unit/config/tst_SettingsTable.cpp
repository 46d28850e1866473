// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <QRegularExpression>
#include <QtTest>

#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>

namespace {

using TableSetting = SettingsTable::Setting;

}  // namespace

/// The table of settings against what is written down here by hand.
class tst_SettingsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settings_areThese_data();
    void settings_areThese();
    void noSetting_isForgottenHere();
    void everySetting_isWellFormed();
    void settingsOfTheAnalysis_comeFirst();
    void initialValue_isThatOfANewConfiguration_exceptTheStopDuration();
    void value_reachesTheConfiguration();
    void value_isAllowedWithinTheLimits();
    void clamp_takesTheNearestValue();
    void find_ignoresCase();
    void engine_aloneHeedsThese();
};

void tst_SettingsTable::settings_areThese_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("initial");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("form");
    QTest::addColumn<int>("reader");
    const auto add = [](const char* pIdentifier,
                        std::array<double, 3> pNumbers,
                        const char* pUnit,
                        SettingsTable::eForm pForm,
                        SettingsTable::eReader pReader) {
        QTest::newRow(pIdentifier) << pNumbers[0] << pNumbers[1] << pNumbers[2]
                                   << QString::fromLatin1(pUnit) << int(pForm) << int(pReader);
    };
    using T = SettingsTable;
    add("threshold", {-1.0, 32767.0, -1.0}, "", T::eWholeNumber, T::eConfiguration);
    add("stop-threshold", {0.0, 32767.0, 3276.0}, "", T::eWholeNumber, T::eConfiguration);
    add("stop-duration", {0.05, 10.0, 1.5}, "s", T::eNumber, T::eTold);
    add("average-duration", {0.05, 60.0, 2.0}, "s", T::eNumber, T::eTold);
    add("bpm-duration", {0.05, 600.0, 10.0}, "s", T::eNumber, T::eConfiguration);
    add("fixed-bpm", {0.0, 999.0, 0.0}, "BPM", T::eNumber, T::eHeld);
    add("consistency", {0.0, 1.0, 1.0}, "", T::eSwitch, T::eHeld);
    add("virtual-when-stopped", {0.0, 1.0, 0.0}, "", T::eSwitch, T::eConfiguration);
    add("display-speakers", {0.0, 1.0, 1.0}, "", T::eSwitch, T::eConfiguration);
    add("display-stopped", {0.0, 1.0, 0.0}, "", T::eSwitch, T::eConfiguration);
    add("gray-mode", {0.0, 1.0, 1.0}, "", T::eSwitch, T::eConfiguration);
    add("top-most", {0.0, 1.0, 1.0}, "", T::eSwitch, T::eConfiguration);
    add("normalization-duration", {0.05, 60.0, 5.0}, "s", T::eNumber, T::eConfiguration);
    add("normalization-threshold", {0.0, 32767.0, 16383.0}, "", T::eWholeNumber, T::eConfiguration);
}

void tst_SettingsTable::settings_areThese()
{
    const TableSetting* pSetting =
        SettingsTable::Find(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(pSetting);
    QTEST(pSetting->minimum, "minimum");
    QTEST(pSetting->maximum, "maximum");
    QTEST(pSetting->initial, "initial");
    QTEST(QString::fromLatin1(pSetting->pUnit), "unit");
    QTEST(int(pSetting->form), "form");
    QTEST(int(pSetting->reader), "reader");
}

void tst_SettingsTable::noSetting_isForgottenHere()
{
    QCOMPARE(SettingsTable::getSettings().size(), std::size_t(14));
}

void tst_SettingsTable::everySetting_isWellFormed()
{
    const QRegularExpression kIdentifier(QStringLiteral("^[a-z]+(-[a-z]+)*$"));
    QStringList identifiers;
    for (const TableSetting& setting : SettingsTable::getSettings()) {
        const QString identifier = QString::fromUtf8(setting.pIdentifier);
        QVERIFY(kIdentifier.match(identifier).hasMatch());
        QVERIFY2(!identifiers.contains(identifier), setting.pIdentifier);
        identifiers << identifier;
        QVERIFY(setting.minimum < setting.maximum && setting.step > 0.0);
        QVERIFY(setting.isAllowed(setting.initial));
        QVERIFY(*setting.pName && *setting.pDescription);
        QVERIFY(!QString::fromUtf8(setting.pDescription).endsWith(QLatin1Char('.')));
        QCOMPARE(setting.get == nullptr, setting.reader == SettingsTable::eHeld);
        QCOMPARE(setting.set == nullptr, setting.reader == SettingsTable::eHeld);
        if (setting.form == SettingsTable::eSwitch)
            QVERIFY(setting.minimum == 0.0 && setting.maximum == 1.0 && !setting.pMinimumWord);
    }
}

void tst_SettingsTable::settingsOfTheAnalysis_comeFirst()
{
    const auto& settings = SettingsTable::getSettings();
    QVERIFY(std::is_partitioned(settings.begin(), settings.end(), [](const TableSetting& pSetting) {
        return pSetting.use == SettingsTable::eAnalysis;
    }));
}

// The required start of a configuration is 0.5 s, that of live hosts 1.5 s.
void tst_SettingsTable::initialValue_isThatOfANewConfiguration_exceptTheStopDuration()
{
    const Configuration configuration;
    for (const TableSetting& setting : SettingsTable::getSettings()) {
        if (!setting.get)
            continue;
        const bool isStop = QLatin1String(setting.pIdentifier) == QLatin1String("stop-duration");
        QCOMPARE(setting.get(configuration), isStop ? 0.5 : setting.initial);
    }
}

void tst_SettingsTable::value_reachesTheConfiguration()
{
    Configuration configuration;
    for (const TableSetting& setting : SettingsTable::getSettings()) {
        if (!setting.set)
            continue;
        for (const double value : {setting.minimum, setting.maximum}) {
            setting.set(configuration, value);
            QCOMPARE(setting.get(configuration), value);
            QVERIFY(!setting.set(configuration, value));
        }
    }
    QCOMPARE(configuration.getThreshold(), short(32767));
    QCOMPARE(configuration.getStopDetectionThreshold(), short(32767));
    QCOMPARE(configuration.getStopDetectionDuration(), 10.0);
    QCOMPARE(configuration.getAverageVolumeCalculationDuration(), 60.0);
    QCOMPARE(configuration.getBPMCalculationDuration(), 600.0);
    QCOMPARE(configuration.getNormalizationDuration(), 60.0);
    QCOMPARE(configuration.getNormalizationThreshold(), short(32767));
    QVERIFY(configuration.getDisplayVirtualBeatsWhenStopped());
    QVERIFY(configuration.getDisplaySpeakers() && configuration.m_displayStopped);
    QVERIFY(configuration.getGrayMode() && configuration.isTopMost());
}

void tst_SettingsTable::value_isAllowedWithinTheLimits()
{
    for (const TableSetting& setting : SettingsTable::getSettings()) {
        QVERIFY(setting.isAllowed(setting.minimum) && setting.isAllowed(setting.maximum));
        for (const double refused :
             {setting.minimum - 0.01, setting.maximum + 0.01, kNaN, kInfinity, -kInfinity})
            QVERIFY(!setting.isAllowed(refused));
        QCOMPARE(setting.isAllowed(setting.minimum + 0.5), setting.form == SettingsTable::eNumber);
    }
}

void tst_SettingsTable::clamp_takesTheNearestValue()
{
    const TableSetting& setting = *SettingsTable::Find(QStringLiteral("average-duration"));
    QCOMPARE(setting.Clamp(7.5), 7.5);
    QCOMPARE(setting.Clamp(-7.5), 0.05);
    QCOMPARE(setting.Clamp(60.5), 60.0);
    QCOMPARE(setting.Clamp(std::numeric_limits<double>::quiet_NaN()), 2.0);
}

void tst_SettingsTable::find_ignoresCase()
{
    QCOMPARE(SettingsTable::Find(QStringLiteral("STOP-threshold"))->pIdentifier, "stop-threshold");
    QVERIFY(!SettingsTable::Find(QStringLiteral("stop threshold")));
    QVERIFY(!SettingsTable::Find(QString()));
}

void tst_SettingsTable::engine_aloneHeedsThese()
{
    QStringList names;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (SettingsTable::isOfEngine(setting))
            names.append(QLatin1String(setting.pIdentifier));
    QCOMPARE(names,
             (QStringList{QStringLiteral("threshold"),
                          QStringLiteral("bpm-duration"),
                          QStringLiteral("fixed-bpm"),
                          QStringLiteral("consistency"),
                          QStringLiteral("virtual-when-stopped")}));
}

AA_TEST(tst_SettingsTable, QCoreApplication)
#include "tst_SettingsTable.moc"
