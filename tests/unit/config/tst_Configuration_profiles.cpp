// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>

#include "ProfileNames.h"

#include <QtTest>

#include <limits>
#include <random>
#include <support/TestClass.h>

class tst_Configuration_profiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void constructor_listsBuiltInProfilesAndSelectsElectro();
    void constructor_sharesBuiltInRecords();
    void constructor_selectsFirstDefault_whenFirstEntryIsNone();
    void constructor_selectsFirstEntry_whenNoneIsDefault();
    void getProfiles_sortsBuiltInThenUserProfilesByName();
    void getProfiles_sortsStoredList_isIntended();
    void getProfiles_isEmpty_whenListIsEmpty();
    void getProfiles_losesNothing_whenEqualIDsBreakTheOrder();
    void getSelectedProfile_sharesRecord();
    void setSelectedProfile_selects();
    void setSelectedProfile_doesNothing_whenSelectedAlready();
    void setSelectedProfile_takesProfilesOutsideTheList_isIntended();
    void isSelected_goesByID();
    void Add_appendsUserProfileAndMarks();
    void Add_checksNothing_isIntended();
    void Add_returnsHandleOnEntry();
    void Remove_removesEntryAndMarks();
    void Remove_selectsElectro_whenSelectedIsRemoved();
    void Remove_doesNothing_whenProfileIsUnknown();
    void Remove_movesSelection_whenNothingIsRemoved_isIntended();
    void Remove_keepsSelectionButMarks_whenNoDefaultExists();
    void Remove_removesFirstEqualEntry();
    void Remove_removesBuiltInProfile_whenIDIsItsOwn();
};

void tst_Configuration_profiles::init()
{
    UserProfile::_nextID = 100;
    PredefinedProfile::_nextID = 1;
    PredefinedProfile::_builtInProfiles.clear();
}

void tst_Configuration_profiles::constructor_listsBuiltInProfilesAndSelectsElectro()
{
    const Configuration configuration;
    QCOMPARE(names(configuration.m_profiles), texts({"Electro", "Hardcore", "Slow"}));
    QCOMPARE(names(configuration.getProfiles()), texts({"Electro", "Hardcore", "Slow"}));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QVERIFY(!configuration.isModified());
}

void tst_Configuration_profiles::constructor_sharesBuiltInRecords()
{
    const Configuration configuration;
    QVERIFY(PredefinedProfile::getList()[2].setSensibility(7.5));
    QCOMPARE(configuration.getProfiles().at(2).getSensibility(), 7.5);
    Profile selected = configuration.getSelectedProfile();
    QVERIFY(selected.setSensibility(6.5));
    QCOMPARE(PredefinedProfile::getList().first().getSensibility(), 6.5);
    QCOMPARE(Configuration().getSelectedProfile().getSensibility(), 6.5);
}

void tst_Configuration_profiles::constructor_selectsFirstDefault_whenFirstEntryIsNone()
{
    QVERIFY(PredefinedProfile::getList()[0].setName(QStringLiteral("Techno")));
    QVERIFY(PredefinedProfile::getList()[1].setName(QStringLiteral("hard electro")));
    QVERIFY(PredefinedProfile::getList()[2].setName(QStringLiteral("Electro")));
    const Configuration configuration;
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("hard electro"));
}

void tst_Configuration_profiles::constructor_selectsFirstEntry_whenNoneIsDefault()
{
    QVERIFY(PredefinedProfile::getList()[0].setName(QStringLiteral("Techno")));
    const Configuration configuration;
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Techno"));
}

void tst_Configuration_profiles::getProfiles_sortsBuiltInThenUserProfilesByName()
{
    Configuration configuration;
    add(configuration, "zouk");
    add(configuration, "Acid");
    add(configuration, "electro");
    add(configuration, "acid");
    QCOMPARE(names(configuration.getProfiles()),
             texts({"Electro", "Hardcore", "Slow", "Acid", "acid", "electro", "zouk"}));
}

void tst_Configuration_profiles::getProfiles_sortsStoredList_isIntended()
{
    Configuration configuration;
    add(configuration, "zouk");
    add(configuration, "Acid");
    QCOMPARE(names(configuration.m_profiles),
             texts({"Electro", "Hardcore", "Slow", "zouk", "Acid"}));
    const QList<Profile>& sorted = const_cast<const Configuration&>(configuration).getProfiles();
    QCOMPARE(&sorted, &configuration.m_profiles);
    QCOMPARE(names(configuration.m_profiles),
             texts({"Electro", "Hardcore", "Slow", "Acid", "zouk"}));
}

void tst_Configuration_profiles::getProfiles_isEmpty_whenListIsEmpty()
{
    Configuration configuration;
    configuration.m_profiles.clear();
    QVERIFY(configuration.getProfiles().isEmpty());
}

void tst_Configuration_profiles::getProfiles_losesNothing_whenEqualIDsBreakTheOrder()
{
    const unsigned int seed = qEnvironmentVariableIsSet("AUDIOANALYZER_TEST_SEED")
                                  ? qEnvironmentVariableIntValue("AUDIOANALYZER_TEST_SEED")
                                  : std::random_device{}();
    qInfo("AUDIOANALYZER_TEST_SEED=%u", seed);
    std::mt19937 random(seed);
    for (int size = 0; size <= 200; ++size) {
        Configuration configuration;
        QStringList added = names(configuration.m_profiles);
        for (int i = 0; i < size; ++i) {
            const QByteArray name = QByteArray::number(uint(random() % 1000U));
            configuration.m_profiles << handle(name.constData(), 100U + uint(random() % 5U));
            added << QString::fromUtf8(name);
        }
        QStringList sorted = names(configuration.getProfiles());
        added.sort();
        sorted.sort();
        QCOMPARE(sorted, added);
    }
}

void tst_Configuration_profiles::getSelectedProfile_sharesRecord()
{
    Configuration configuration;
    Profile fromPlain = configuration.getSelectedProfile();
    Profile fromConst = const_cast<const Configuration&>(configuration).getSelectedProfile();
    QVERIFY(fromPlain.setBPM(60.0, 61.0));
    QCOMPARE(fromConst.getMinimalBPM(), 60.0);
    QVERIFY(fromConst.setSensibility(5.0));
    QCOMPARE(configuration.getSelectedProfile().getSensibility(), 5.0);
    QCOMPARE(configuration.getProfiles().first().getMinimalBPM(), 60.0);
    QVERIFY(!configuration.isModified());
}

void tst_Configuration_profiles::setSelectedProfile_selects()
{
    Configuration configuration;
    const Profile slow = configuration.getProfiles().at(2);
    QVERIFY(configuration.setSelectedProfile(slow));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Slow"));
    QCOMPARE(&configuration.m_selectedProfile.getName(), &slow.getName());
    QVERIFY(configuration.isSelected(slow));
}

void tst_Configuration_profiles::setSelectedProfile_doesNothing_whenSelectedAlready()
{
    Configuration configuration;
    QVERIFY(!configuration.setSelectedProfile(configuration.getSelectedProfile()));
    QVERIFY(!configuration.setSelectedProfile(configuration.m_selectedProfile));
    // An equal ID is the same profile, whatever the record.
    QVERIFY(!configuration.setSelectedProfile(handle("twin", 1)));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QVERIFY(!configuration.isModified());
}

void tst_Configuration_profiles::setSelectedProfile_takesProfilesOutsideTheList_isIntended()
{
    Configuration configuration;
    QVERIFY(configuration.setSelectedProfile(handle("stranger", 900)));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("stranger"));
    QCOMPARE(configuration.getProfiles().size(), 3);
    QVERIFY(configuration.setSelectedProfile(Profile()));
    QVERIFY(configuration.getSelectedProfile().isReadOnly());
}

void tst_Configuration_profiles::isSelected_goesByID()
{
    const Configuration configuration;
    QVERIFY(configuration.isSelected(configuration.getProfiles().at(0)));
    QVERIFY(!configuration.isSelected(configuration.getProfiles().at(1)));
    QVERIFY(configuration.isSelected(handle("another name", 1)));
    QVERIFY(!configuration.isSelected(handle("Electro", 101)));
}

void tst_Configuration_profiles::Add_appendsUserProfileAndMarks()
{
    Configuration configuration;
    const Profile added = configuration.Add(QStringLiteral("Acid"), 100.5, 150.5, 1.25, 20, 200);
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.m_profiles.size(), 4);
    QCOMPARE(configuration.m_profiles.last().getID(), 100U);
    QCOMPARE(added.getID(), 100U);
    QCOMPARE(added.getName(), QStringLiteral("Acid"));
    QCOMPARE(added.getMinimalBPM(), 100.5);
    QCOMPARE(added.getMaximalBPM(), 150.5);
    QCOMPARE(added.getSensibility(), 1.25);
    QCOMPARE(added.getFilterLowFrequency(), 20);
    QCOMPARE(added.getFilterHighFrequency(), 200);
    QVERIFY(added.isSerializable());
    QVERIFY(!added.isReadOnly());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QCOMPARE(PredefinedProfile::getList().size(), 3);
}

void tst_Configuration_profiles::Add_checksNothing_isIntended()
{
    Configuration configuration;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Profile wild = configuration.Add(QString(), 300.0, nan, -1.0, 200, -20);
    QVERIFY(wild.getName().isEmpty());
    QCOMPARE(wild.getMinimalBPM(), 300.0);
    QVERIFY(std::isnan(wild.getMaximalBPM()));
    QCOMPARE(wild.getSensibility(), -1.0);
    QCOMPARE(wild.getFilterLowFrequency(), 200);
    QCOMPARE(wild.getFilterHighFrequency(), -20);
    add(configuration, "Electro");
    add(configuration, "Electro");
    QCOMPARE(configuration.getProfiles().size(), 6);
}

void tst_Configuration_profiles::Add_returnsHandleOnEntry()
{
    Configuration configuration;
    Profile added = add(configuration, "Acid");
    QVERIFY(added.setName(QStringLiteral("Renamed")));
    QCOMPARE(configuration.getProfiles().last().getName(), QStringLiteral("Renamed"));
}

void tst_Configuration_profiles::Remove_removesEntryAndMarks()
{
    Configuration configuration;
    add(configuration, "A");
    add(configuration, "B");
    configuration.setIsModified(false);
    QVERIFY(configuration.Remove(handle("by ID alone", 100)));
    QVERIFY(configuration.isModified());
    QCOMPARE(names(configuration.getProfiles()), texts({"Electro", "Hardcore", "Slow", "B"}));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
}

void tst_Configuration_profiles::Remove_selectsElectro_whenSelectedIsRemoved()
{
    Configuration configuration;
    QVERIFY(configuration.setSelectedProfile(add(configuration, "A")));
    QVERIFY(configuration.Remove(handle("A", 100)));
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QCOMPARE(configuration.getProfiles().size(), 3);
}

void tst_Configuration_profiles::Remove_doesNothing_whenProfileIsUnknown()
{
    Configuration configuration;
    QVERIFY(configuration.setSelectedProfile(configuration.getProfiles().at(1)));
    configuration.setIsModified(false);
    QVERIFY(!configuration.Remove(handle("A", 100)));
    QVERIFY(!configuration.isModified());
    QCOMPARE(configuration.getProfiles().size(), 3);
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Hardcore"));
}

void tst_Configuration_profiles::Remove_movesSelection_whenNothingIsRemoved_isIntended()
{
    Configuration configuration;
    const UserProfile stranger = handle("stranger", 900);
    QVERIFY(configuration.setSelectedProfile(stranger));
    configuration.setIsModified(false);
    QVERIFY(!configuration.Remove(stranger));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("Electro"));
    QCOMPARE(configuration.getProfiles().size(), 3);
}

void tst_Configuration_profiles::Remove_keepsSelectionButMarks_whenNoDefaultExists()
{
    Configuration configuration;
    Profile electro = configuration.getSelectedProfile();
    QVERIFY(electro.setName(QStringLiteral("Techno")));
    const UserProfile stranger = handle("stranger", 900);
    QVERIFY(configuration.setSelectedProfile(stranger));
    configuration.setIsModified(false);
    QVERIFY(!configuration.Remove(stranger));
    QVERIFY(configuration.isModified());
    QCOMPARE(configuration.getSelectedProfile().getName(), QStringLiteral("stranger"));
}

void tst_Configuration_profiles::Remove_removesFirstEqualEntry()
{
    Configuration configuration;
    configuration.m_profiles << handle("first", 300) << handle("second", 300);
    QVERIFY(configuration.Remove(handle("any", 300)));
    QCOMPARE(names(configuration.m_profiles), texts({"Electro", "Hardcore", "Slow", "second"}));
    QVERIFY(configuration.Remove(handle("any", 300)));
    QVERIFY(!configuration.Remove(handle("any", 300)));
}

void tst_Configuration_profiles::Remove_removesBuiltInProfile_whenIDIsItsOwn()
{
    Configuration configuration;
    QVERIFY(configuration.Remove(handle("any", 2)));
    QCOMPARE(names(configuration.getProfiles()), texts({"Electro", "Slow"}));
    QCOMPARE(PredefinedProfile::getList().size(), 3);
}

AA_TEST(tst_Configuration_profiles, QCoreApplication)
#include "tst_Configuration_profiles.moc"
