// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <shared/settings/ConfigurationValues.h>

#include <QtTest>

#include <support/TestClass.h>
#include <support/Text.h>

namespace {

/// "House 110" for the user's profiles, in the order of their names.
QStringList ProfilesOf(const Configuration& pConfiguration)
{
    QStringList texts;
    for (const Profile& profile : pConfiguration.getProfiles())
        if (profile.isSerializable())
            texts << profile.getName() + QLatin1Char(' ') +
                         QString::number(profile.getMinimalBPM());
    return texts;
}

/// A configuration with such profiles, of which the first, if any, is selected.
std::unique_ptr<Configuration> Make(const QStringList& pProfiles)
{
    auto configuration = std::make_unique<Configuration>();
    for (const QString& text : pProfiles) {
        const double minimal = text.section(QLatin1Char(' '), -1).toDouble();
        const Profile added =
            configuration->Add(text.section(QLatin1Char(' '), 0, -2), minimal, 200.0, 2.0, 0, 75);
        if (configuration->getProfiles().size() == 4)
            configuration->setSelectedProfile(added);
    }
    return configuration;
}

ConfigurationValues ValuesOf(const QStringList& pProfiles)
{
    return ConfigurationValues::Of(*Make(pProfiles), {});
}

}  // namespace

class tst_ConfigurationValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyValue_isTakenAndStored();
    void everyValue_isMergedByItself();
    void sameValue_ofBoth_isTheOwn();
    void profiles_areMerged_data();
    void profiles_areMerged();
    void selection_isMerged_data();
    void selection_isMerged();
    void profilesThatStay_keepTheirHandles();
    void profileThatNoSetterTakes_isStored();
    void profilesOfOneID_areToldApart();
    void builtInProfiles_stayAsTheyAre();
    void automaticThreshold_isOneValue();
};

namespace {

using Change = void (*)(Configuration&);

const Change kChanges[] = {
    [](Configuration& p) { p.setAverageVolumeCalculationDuration(3.5); },
    [](Configuration& p) { p.setBPMCalculationDuration(20.0); },
    [](Configuration& p) { p.setDisplaySpeakers(false); },
    [](Configuration& p) { p.setDisplayStopped(true); },
    [](Configuration& p) { p.setDisplayVirtualBeatsWhenStopped(true); },
    [](Configuration& p) { p.setGrayMode(false); },
    [](Configuration& p) { p.setLanguage(QStringLiteral("de")); },
    [](Configuration& p) { p.setNormalizationDuration(6.5); },
    [](Configuration& p) { p.setNormalizationThreshold(1234); },
    [](Configuration& p) { p.setStopDetectionDuration(1.25); },
    [](Configuration& p) { p.setStopDetectionThreshold(99); },
    [](Configuration& p) { p.setThreshold(2000); },
    [](Configuration& p) { p.setTopMost(false); },
    [](Configuration& p) { p.Add(QStringLiteral("House"), 110.0, 140.0, 1.5, 30, 90); },
    [](Configuration& p) { p.setSelectedProfile(p.getProfiles().at(2)); },
};

}  // namespace

void tst_ConfigurationValues::everyValue_isTakenAndStored()
{
    const ConfigurationValues plain = ConfigurationValues::Of(Configuration(), {});
    for (const Change change : kChanges) {
        Configuration changed;
        change(changed);
        const ConfigurationValues values = ConfigurationValues::Of(changed, {});
        QVERIFY(!(values == plain));
        Configuration other;
        values.StoreIn(other);
        QVERIFY(ConfigurationValues::Of(other, {}) == values);
        plain.StoreIn(other);
        QVERIFY(ConfigurationValues::Of(other, {}) == plain);
    }
    QVERIFY(!(ConfigurationValues::Of(Configuration(), Text("Deck")) == plain));
}

void tst_ConfigurationValues::everyValue_isMergedByItself()
{
    const ConfigurationValues base = ConfigurationValues::Of(Configuration(), {});
    for (const Change mine : kChanges) {
        for (const Change theirs : kChanges) {
            Configuration own;
            mine(own);
            Configuration other;
            theirs(other);
            Configuration both;
            theirs(both);
            if (mine != theirs)
                mine(both);
            const auto merged = MergeValues(base,
                                            ConfigurationValues::Of(own, Text("Deck")),
                                            ConfigurationValues::Of(other, {}));
            QVERIFY(merged == ConfigurationValues::Of(both, Text("Deck")));
        }
    }
}

void tst_ConfigurationValues::sameValue_ofBoth_isTheOwn()
{
    Configuration own;
    own.setThreshold(1000);
    own.setLanguage(Text("de"));
    Configuration other;
    other.setThreshold(2000);
    other.setLanguage(Text("fr"));
    const auto merged = MergeValues(ConfigurationValues::Of(Configuration(), Text("Base")),
                                    ConfigurationValues::Of(own, Text("Own")),
                                    ConfigurationValues::Of(other, Text("Other")));
    QVERIFY(merged == ConfigurationValues::Of(own, Text("Own")));
}

void tst_ConfigurationValues::profiles_areMerged_data()
{
    QTest::addColumn<QStringList>("base");
    QTest::addColumn<QStringList>("mine");
    QTest::addColumn<QStringList>("theirs");
    QTest::addColumn<QStringList>("merged");
    using L = QStringList;
    const QString a1 = Text("A 101");
    const QString a2 = Text("A 102");
    const QString a3 = Text("A 103");
    const QString b1 = Text("B 101");
    const QString c1 = Text("C 101");
    QTest::newRow("nothing changed") << L{a1} << L{a1} << L{a1} << L{a1};
    QTest::newRow("both added") << L{} << L{a1} << L{b1} << L{a1, b1};
    QTest::newRow("both added the same name") << L{} << L{a1} << L{a2} << L{a1};
    QTest::newRow("they added") << L{a1} << L{a1} << L{a1, b1} << L{a1, b1};
    QTest::newRow("they changed") << L{a1} << L{a1} << L{a2} << L{a2};
    QTest::newRow("they removed") << L{a1, b1} << L{a1, b1} << L{b1} << L{b1};
    QTest::newRow("they renamed") << L{a1} << L{a1} << L{c1} << L{c1};
    QTest::newRow("I changed") << L{a1} << L{a2} << L{a1} << L{a2};
    QTest::newRow("I removed") << L{a1, b1} << L{b1} << L{a1, b1} << L{b1};
    QTest::newRow("both changed") << L{a1} << L{a2} << L{a3} << L{a2};
    QTest::newRow("both removed") << L{a1} << L{} << L{} << L{};
    QTest::newRow("I changed, they removed") << L{a1} << L{a2} << L{} << L{a2};
    QTest::newRow("I removed, they changed") << L{a1} << L{} << L{a2} << L{a2};
    QTest::newRow("I changed one, they another")
        << L{a1, b1} << L{a2, b1} << L{a1, Text("B 104")} << L{a2, Text("B 104")};
    QTest::newRow("two of one name") << L{a1, a2} << L{a1, a2} << L{a1, a3} << L{a1, a3};
    QTest::newRow("no name") << L{} << L{Text(" 101")} << L{b1} << L{Text(" 101"), b1};
}

void tst_ConfigurationValues::profiles_areMerged()
{
    QFETCH(QStringList, base);
    QFETCH(QStringList, mine);
    QFETCH(QStringList, theirs);
    const auto configuration = Make(mine);
    const auto merged =
        MergeValues(ValuesOf(base), ConfigurationValues::Of(*configuration, {}), ValuesOf(theirs));
    merged.StoreIn(*configuration);
    QTEST(ProfilesOf(*configuration), "merged");
    QVERIFY(ConfigurationValues::Of(*configuration, {}).profiles.size() == merged.profiles.size());
}

void tst_ConfigurationValues::selection_isMerged_data()
{
    QTest::addColumn<int>("mine");  // rows of Electro, Hardcore, Slow, House
    QTest::addColumn<int>("theirs");
    QTest::addColumn<int>("merged");
    QTest::newRow("nobody") << 3 << 3 << 3;
    QTest::newRow("they") << 3 << 1 << 1;
    QTest::newRow("I") << 2 << 3 << 2;
    QTest::newRow("both") << 2 << 1 << 2;
}

void tst_ConfigurationValues::selection_isMerged()
{
    QFETCH(int, mine);
    QFETCH(int, theirs);
    QFETCH(int, merged);
    const QStringList house = {Text("House 110")};
    const auto own = Make(house);
    own->setSelectedProfile(own->getProfiles().at(mine));
    const auto other = Make(house);
    other->setSelectedProfile(other->getProfiles().at(theirs));
    MergeValues(
        ValuesOf(house), ConfigurationValues::Of(*own, {}), ConfigurationValues::Of(*other, {}))
        .StoreIn(*own);
    QVERIFY(own->isSelected(own->getProfiles().at(merged)));
}

void tst_ConfigurationValues::profilesThatStay_keepTheirHandles()
{
    const auto own = Make({Text("House 110")});
    const Profile handle = own->getSelectedProfile();
    ValuesOf({Text("House 120"), Text("Acid 99")}).StoreIn(*own);
    QCOMPARE(handle.getMinimalBPM(), 120.0);
    QVERIFY(own->isSelected(own->getProfiles().first()) == false);
    QCOMPARE(ProfilesOf(*own), QStringList({Text("Acid 99"), Text("House 120")}));
    QCOMPARE(own->getSelectedProfile().getName(), Text("House"));
    // The handle is the profile's, not one of a twin.
    Profile edited = handle;
    QVERIFY(edited.setBPM(130.0, 150.0));
    QCOMPARE(ProfilesOf(*own).last(), Text("House 130"));
}

void tst_ConfigurationValues::profileThatNoSetterTakes_isStored()
{
    // A file can hold it.
    const auto strange = Make({Text("House 300")});
    const ConfigurationValues values = ConfigurationValues::Of(*strange, {});
    const auto own = Make({Text("House 110")});
    values.StoreIn(*own);
    QCOMPARE(ProfilesOf(*own), QStringList(Text("House 300")));
    QVERIFY(ConfigurationValues::Of(*own, {}) == values);
}

void tst_ConfigurationValues::profilesOfOneID_areToldApart()
{
    const auto own = Make({Text("A 101"), Text("B 101"), Text("C 101")});
    for (Profile& profile : own->m_profiles)
        if (profile.isSerializable())
            profile._setID(100);
    ValuesOf({Text("A 101"), Text("C 102")}).StoreIn(*own);
    QCOMPARE(ProfilesOf(*own), QStringList({Text("A 101"), Text("C 102")}));
}

void tst_ConfigurationValues::builtInProfiles_stayAsTheyAre()
{
    Configuration own;
    // A name of the user's that is a built-in one's as well.
    ValuesOf({Text("Slow 99")}).StoreIn(own);
    QCOMPARE(own.getProfiles().size(), 4);
    QCOMPARE(ProfilesOf(own), QStringList(Text("Slow 99")));
    QVERIFY(own.getSelectedProfile().isSerializable());
    ConfigurationValues::Of(Configuration(), {}).StoreIn(own);
    QCOMPARE(own.getProfiles().size(), 3);
    QCOMPARE(own.getSelectedProfile().getName(), Text("Electro"));
}

void tst_ConfigurationValues::automaticThreshold_isOneValue()
{
    Configuration file;
    file.m_threshold = -700;
    QVERIFY(ConfigurationValues::Of(file, {}) == ConfigurationValues::Of(Configuration(), {}));
}

AA_TEST(tst_ConfigurationValues, QCoreApplication)
#include "tst_ConfigurationValues.moc"
