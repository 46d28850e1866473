// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <QtTest>

#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>
#include <support/Text.h>

namespace {

using Change = SettingsTable::Change;

/// "stop-duration 0 -> 0.05", or with the profile before it.
QStringList Describe(const std::vector<Change>& pChanges)
{
    QStringList result;
    for (const Change& change : pChanges)
        result << QStringLiteral("%1%2 %3 -> %4")
                      .arg(change.profile.isEmpty() ? QString() : change.profile + QLatin1Char(' '),
                           change.identifier)
                      .arg(change.before)
                      .arg(change.after);
    return result;
}

}  // namespace

/// What is brought to its limits, and what stays.
class tst_SettingsTable_clamp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newConfiguration_staysAsItIs();
    void setting_isClamped_data();
    void setting_isClamped();
    void everyStoredSetting_isClamped_data();
    void everyStoredSetting_isClamped();
    void anyNegativeThreshold_isAutomatic();
    void profile_isClamped_data();
    void profile_isClamped();
    void selectedProfile_isClampedToo();
    void builtInProfiles_stay();
    void restore_givesTheInitialValues();
};

void tst_SettingsTable_clamp::newConfiguration_staysAsItIs()
{
    Configuration configuration;
    configuration.Add(Text("House"), 110.0, 140.0, 1.25, 20, 90);
    configuration.setIsModified(false);
    QCOMPARE(Describe(SettingsTable::Clamp(configuration)), QStringList());
    QVERIFY(!configuration.isModified());
    QCOMPARE(configuration.getStopDetectionDuration(), 0.5);
}

void tst_SettingsTable_clamp::setting_isClamped_data()
{
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<double>("stored");
    QTest::addColumn<double>("expected");
    const auto add = [](const char* pIdentifier, double pStored, double pExpected) {
        QTest::addRow("%s %g", pIdentifier, pStored) << Text(pIdentifier) << pStored << pExpected;
    };
    add("stop-duration", 1e9, 10.0);
    add("stop-duration", 1e300, 10.0);
    add("stop-duration", kInfinity, 10.0);
    add("stop-duration", -kInfinity, 0.05);
    add("stop-duration", kNaN, 1.5);
    add("stop-duration", 0.0, 0.05);
    add("stop-duration", 10.0, 10.0);
    add("stop-duration", 0.05, 0.05);
    add("average-duration", 1e9, 60.0);
    add("average-duration", -2.0, 0.05);
    add("average-duration", kNaN, 2.0);
    add("bpm-duration", kInfinity, 600.0);
    add("bpm-duration", kNaN, 10.0);
    add("normalization-duration", 60.5, 60.0);
    add("normalization-duration", kNaN, 5.0);
    add("stop-threshold", -1.0, 0.0);
    add("stop-threshold", -32768.0, 0.0);
    add("stop-threshold", 32767.0, 32767.0);
    add("normalization-threshold", -5.0, 0.0);
    add("virtual-when-stopped", 1.0, 1.0);
}

void tst_SettingsTable_clamp::setting_isClamped()
{
    QFETCH(QString, identifier);
    QFETCH(double, stored);
    QFETCH(double, expected);
    const SettingsTable::Setting* pSetting = SettingsTable::Find(identifier);
    QVERIFY(pSetting);
    Configuration configuration;
    pSetting->set(configuration, stored);
    configuration.setIsModified(false);
    const std::vector<Change> changes = SettingsTable::Clamp(configuration);
    QCOMPARE(pSetting->get(configuration), expected);
    const bool isChanged = !(stored == expected);
    QCOMPARE(changes.size(), std::size_t(isChanged ? 1 : 0));
    QCOMPARE(configuration.isModified(), isChanged);
    if (isChanged) {
        QCOMPARE(changes[0].profile, QString());
        QCOMPARE(changes[0].identifier, identifier);
        QVERIFY(changes[0].before == stored ||
                (std::isnan(stored) && std::isnan(changes[0].before)));
        QCOMPARE(changes[0].after, expected);
    }
    QCOMPARE(Describe(SettingsTable::Clamp(configuration)), QStringList());
}

void tst_SettingsTable_clamp::everyStoredSetting_isClamped_data()
{
    QTest::addColumn<int>("place");
    for (std::size_t i = 0; i < SettingsTable::getSettings().size(); ++i)
        if (SettingsTable::getSettings()[i].get)
            QTest::newRow(SettingsTable::getSettings()[i].pIdentifier) << int(i);
}

void tst_SettingsTable_clamp::everyStoredSetting_isClamped()
{
    QFETCH(int, place);
    const SettingsTable::Setting& setting = SettingsTable::getSettings()[std::size_t(place)];
    for (const double value : {-32768.0, -2.0, 0.0, 1.0, 32767.0}) {
        Configuration configuration;
        setting.set(configuration, value);
        SettingsTable::Clamp(configuration);
        QVERIFY(setting.isAllowed(setting.get(configuration)));
    }
}

// A file keeps the number, and no setter takes it away.
void tst_SettingsTable_clamp::anyNegativeThreshold_isAutomatic()
{
    Configuration configuration;
    configuration.m_threshold = -7;
    QCOMPARE(Describe(SettingsTable::Clamp(configuration)), QStringList());
    QCOMPARE(SettingsTable::Find(Text("threshold"))->get(configuration), -1.0);
}

void tst_SettingsTable_clamp::profile_isClamped_data()
{
    QTest::addColumn<double>("minimal");
    QTest::addColumn<double>("maximal");
    QTest::addColumn<double>("sensibility");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QStringList>("changes");
    const auto add = [](const char* pRow,
                        std::array<double, 3> pNumbers,
                        std::array<int, 2> pBand,
                        std::initializer_list<const char*> pChanges) {
        QStringList changes;
        for (const char* pChange : pChanges)
            changes << Text("House ") + Text(pChange);
        QTest::newRow(pRow) << pNumbers[0] << pNumbers[1] << pNumbers[2] << pBand[0] << pBand[1]
                            << changes;
    };
    add("fine", {1.0, 999.5, 1000.0}, {-1, -1}, {});
    add("one tempo and one edge", {120.0, 120.0, 0.0}, {100, 100}, {});
    add("negative edges", {60.0, 120.0, 1.0}, {-77, 50}, {});
    add("no tempo", {0.0, 0.0, 1.0}, {0, 0}, {"minimal-bpm 0 -> 1", "maximal-bpm 0 -> 1"});
    add("negative tempos", {-32768.0, 60.0, 1.0}, {0, 0}, {"minimal-bpm -32768 -> 1"});
    add("fast", {60.0, 32767.0, 1.0}, {0, 0}, {"maximal-bpm 32767 -> 999"});
    add("both fast",
        {2000.0, 3000.0, 1.0},
        {0, 0},
        {"minimal-bpm 2000 -> 999", "maximal-bpm 3000 -> 999"});
    add("reversed", {175.0, 90.0, 1.0}, {0, 0}, {"maximal-bpm 90 -> 175"});
    add("no numbers",
        {kNaN, kNaN, kNaN},
        {0, 0},
        {"minimal-bpm nan -> 90", "maximal-bpm nan -> 175", "sensibility nan -> 2"});
    add("no number above a tempo", {200.0, kNaN, 1.0}, {0, 0}, {"maximal-bpm nan -> 200"});
    add("endless sensibility", {60.0, 90.0, kInfinity}, {0, 0}, {"sensibility inf -> 1000"});
    add("negative sensibility", {60.0, 90.0, -0.5}, {0, 0}, {"sensibility -0.5 -> 0"});
    add("edges reversed", {60.0, 90.0, 1.0}, {200, 50}, {"high-frequency 50 -> 200"});
}

void tst_SettingsTable_clamp::profile_isClamped()
{
    QFETCH(double, minimal);
    QFETCH(double, maximal);
    QFETCH(double, sensibility);
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(QStringList, changes);
    Configuration configuration;
    const Profile profile =
        configuration.Add(Text("House"), minimal, maximal, sensibility, low, high);
    configuration.setIsModified(false);
    QCOMPARE(Describe(SettingsTable::Clamp(configuration)), changes);
    QCOMPARE(configuration.isModified(), !changes.isEmpty());
    Profile copy(profile);
    // What the profile holds now, its own setters take.
    QVERIFY(copy.setBPM(profile.getMinimalBPM(), profile.getMaximalBPM()));
    QVERIFY(copy.setSensibility(profile.getSensibility()));
    QVERIFY(copy.setFilterFrequencies(profile.getFilterLowFrequency(),
                                      profile.getFilterHighFrequency()));
    QCOMPARE(Describe(SettingsTable::Clamp(configuration)), QStringList());
}

void tst_SettingsTable_clamp::selectedProfile_isClampedToo()
{
    Configuration configuration;
    configuration.setSelectedProfile(configuration.Add(Text("House"), 0.0, 0.0, 1.0, 0, 0));
    SettingsTable::Clamp(configuration);
    QCOMPARE(configuration.getSelectedProfile().getMinimalBPM(), 1.0);
}

void tst_SettingsTable_clamp::builtInProfiles_stay()
{
    Configuration configuration;
    const QList<Profile> profiles = configuration.getProfiles();
    SettingsTable::Clamp(configuration);
    QCOMPARE(profiles[0].getMinimalBPM(), 90.0);
    QCOMPARE(profiles[0].getMaximalBPM(), 175.0);
}

void tst_SettingsTable_clamp::restore_givesTheInitialValues()
{
    Configuration configuration;
    configuration.setLanguage(Text("de"));
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.set)
            setting.set(configuration, setting.maximum);
    configuration.setDisplaySpeakers(false);
    SettingsTable::Restore(configuration);
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.get)
            QCOMPARE(setting.get(configuration), setting.initial);
    QCOMPARE(configuration.getStopDetectionDuration(), 1.5);
    QCOMPARE(configuration.getThreshold(), short(-1));
    QCOMPARE(configuration.getDisplaySpeakers(), true);
    QCOMPARE(configuration.getLanguage(), Text("de"));
}

AA_TEST(tst_SettingsTable_clamp, QCoreApplication)
#include "tst_SettingsTable_clamp.moc"
