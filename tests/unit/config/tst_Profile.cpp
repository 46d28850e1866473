// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/Profile.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <QList>
#include <QtTest>

#include <support/TestClass.h>
#include <type_traits>

namespace {

Profile named(const char* pName, unsigned int pID, bool pIsSerializable)
{
    return Profile(QString::fromUtf8(pName), 2.0, 10, 20, false, pIsSerializable, pID, 90.0, 175.0);
}

}  // namespace

class tst_Profile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void class_isHandleOfTwoPointers();
    void constructor_makesEmptyReadOnlyProfile_whenCalledWithoutValues();
    void constructor_storesValuesAsGiven_whenTheyAreNonsense();
    void copy_sharesRecord_isIntended();
    void copy_outlivesOriginal();
    void copyOfReadOnlyProfile_isReadOnly();
    void assignment_sharesRecordOfOther();
    void assignment_keepsRecord_whenAssignedToItself();
    void assignment_keepsRecord_whenBothShareItAlready();
    void assignment_leavesOtherHandlesOnOldRecord();
    void chainOfAssignments_sharesOneRecord();
    void getDefaultBPM_isMiddleOfRange_data();
    void getDefaultBPM_isMiddleOfRange();
    void isDefault_tellsBuiltInElectro_data();
    void isDefault_tellsBuiltInElectro();
    void CompareTo_orders_data();
    void CompareTo_orders();
    void operators_followCompareTo();
    void listSearchAndRemoval_goByID();
    void sort_putsBuiltInProfilesFirstThenNamesThenIDs();
};

void tst_Profile::class_isHandleOfTwoPointers()
{
    static_assert(std::is_base_of_v<Comparable<Profile>, Profile>);
    static_assert(std::is_base_of_v<Profile, PredefinedProfile>);
    static_assert(std::is_base_of_v<Profile, UserProfile>);
    static_assert(std::has_virtual_destructor_v<Profile>);
    QCOMPARE(sizeof(Profile), 2 * sizeof(void*));
    QCOMPARE(sizeof(PredefinedProfile), sizeof(Profile));
    QCOMPARE(sizeof(UserProfile), sizeof(Profile));
}

void tst_Profile::constructor_makesEmptyReadOnlyProfile_whenCalledWithoutValues()
{
    const Profile profile;
    QCOMPARE(profile.getID(), 0U);
    QVERIFY(profile.getName().isEmpty());
    QCOMPARE(profile.getFilterLowFrequency(), 0);
    QCOMPARE(profile.getFilterHighFrequency(), 0);
    QCOMPARE(profile.getMinimalBPM(), 0.0);
    QCOMPARE(profile.getMaximalBPM(), 0.0);
    QCOMPARE(profile.getDefaultBPM(), 0.0);
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QCOMPARE(profile.getSensibility(), 0.0);
    QVERIFY(profile.isReadOnly());
    QVERIFY(!profile.isSerializable());
    QVERIFY(!profile.isDefault());
}

void tst_Profile::constructor_storesValuesAsGiven_whenTheyAreNonsense()
{
    const Profile profile(
        QStringLiteral("  "), -3.5, -77, -88, true, true, 4294967295U, 5000.0, -1.0);
    QCOMPARE(profile.getName(), QStringLiteral("  "));
    QCOMPARE(profile.getSensibility(), -3.5);
    QCOMPARE(profile.getFilterLowFrequency(), -77);
    QCOMPARE(profile.getFilterHighFrequency(), -88);
    QVERIFY(profile.isReadOnly());
    QVERIFY(profile.isSerializable());
    QCOMPARE(profile.getID(), 4294967295U);
    QCOMPARE(profile.getMinimalBPM(), 5000.0);
    QCOMPARE(profile.getMaximalBPM(), -1.0);
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
}

void tst_Profile::copy_sharesRecord_isIntended()
{
    Profile first = named("Mine", 7, true);
    Profile second(first);
    QVERIFY(second.setSensibility(4.25));
    QVERIFY(second.setBPM(60.0, 80.0));
    QVERIFY(second.setName(QStringLiteral("Ours")));
    QVERIFY(second.setMinimalThreshold(2000));
    QVERIFY(second.setMaximalThreshold(3000));
    QVERIFY(first.setFilterFrequencies(30, 40));
    QCOMPARE(first.getSensibility(), 4.25);
    QCOMPARE(first.getMinimalBPM(), 60.0);
    QCOMPARE(first.getMaximalBPM(), 80.0);
    QCOMPARE(first.getName(), QStringLiteral("Ours"));
    QCOMPARE(first.getMinimalThreshold(), short(2000));
    QCOMPARE(first.getMaximalThreshold(), short(3000));
    QCOMPARE(second.getFilterLowFrequency(), 30);
    QCOMPARE(second.getFilterHighFrequency(), 40);
    QCOMPARE(&first.getName(), &second.getName());
}

void tst_Profile::copy_outlivesOriginal()
{
    auto* original = new Profile(named("Original", 7, true));
    Profile copy(*original);
    delete original;
    QCOMPARE(copy.getName(), QStringLiteral("Original"));
    QVERIFY(copy.setName(QStringLiteral("Copy")));
    QCOMPARE(copy.getName(), QStringLiteral("Copy"));
}

void tst_Profile::copyOfReadOnlyProfile_isReadOnly()
{
    const Profile original;
    Profile copy(original);
    QVERIFY(copy.isReadOnly());
    QVERIFY(!copy.setSensibility(1.0));
}

void tst_Profile::assignment_sharesRecordOfOther()
{
    Profile first = named("First", 1, false);
    Profile second = named("Second", 2, true);
    Profile& result = first = second;
    QCOMPARE(&result, &first);
    QCOMPARE(first.getID(), 2U);
    QVERIFY(first.isSerializable());
    QVERIFY(second.setName(QStringLiteral("Renamed")));
    QCOMPARE(first.getName(), QStringLiteral("Renamed"));
}

void tst_Profile::assignment_keepsRecord_whenAssignedToItself()
{
    Profile profile = named("Self", 3, true);
    const Profile& alias = profile;
    profile = alias;
    QCOMPARE(profile.getName(), QStringLiteral("Self"));
    QCOMPARE(profile.getID(), 3U);
}

void tst_Profile::assignment_keepsRecord_whenBothShareItAlready()
{
    Profile first = named("Shared", 3, true);
    Profile second(first);
    for (int i = 0; i < 3; ++i) {
        first = second;
        second = first;
    }
    QVERIFY(first.setName(QStringLiteral("Still shared")));
    QCOMPARE(second.getName(), QStringLiteral("Still shared"));
}

void tst_Profile::assignment_leavesOtherHandlesOnOldRecord()
{
    Profile first = named("Old", 1, false);
    const Profile stays(first);
    first = named("New", 2, true);
    QCOMPARE(stays.getName(), QStringLiteral("Old"));
    QCOMPARE(first.getName(), QStringLiteral("New"));
}

void tst_Profile::chainOfAssignments_sharesOneRecord()
{
    Profile a = named("A", 1, true);
    Profile b = named("B", 2, true);
    Profile c = named("C", 3, true);
    a = b = c;
    QVERIFY(a.setSensibility(9.0));
    QCOMPARE(b.getSensibility(), 9.0);
    QCOMPARE(c.getSensibility(), 9.0);
}

void tst_Profile::getDefaultBPM_isMiddleOfRange_data()
{
    QTest::addColumn<double>("minimal");
    QTest::addColumn<double>("maximal");
    QTest::addColumn<double>("expected");
    QTest::newRow("Electro") << 90.0 << 175.0 << 132.5;
    QTest::newRow("Hardcore") << 130.0 << 250.0 << 190.0;
    QTest::newRow("Slow") << 70.0 << 135.0 << 102.5;
    QTest::newRow("one tempo") << 120.0 << 120.0 << 120.0;
    QTest::newRow("fractions") << 1.5 << 2.25 << 1.875;
    QTest::newRow("never set") << 0.0 << 0.0 << 0.0;
}

void tst_Profile::getDefaultBPM_isMiddleOfRange()
{
    QFETCH(double, minimal);
    QFETCH(double, maximal);
    const Profile profile(QString(), 1.0, 0, 0, false, true, 1, minimal, maximal);
    QTEST(profile.getDefaultBPM(), "expected");
}

void tst_Profile::isDefault_tellsBuiltInElectro_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSerializable");
    QTest::addColumn<bool>("expected");
    QTest::newRow("built-in") << QStringLiteral("Electro") << false << true;
    QTest::newRow("capitals after words") << QStringLiteral("My deep ELECTRO") << false << true;
    QTest::newRow("inside a word") << QStringLiteral("xelectronic") << false << true;
    QTest::newRow("other name") << QStringLiteral("Hardcore") << false << false;
    QTest::newRow("cut word") << QStringLiteral("Electr") << false << false;
    QTest::newRow("split word") << QStringLiteral("Elec tro") << false << false;
    QTest::newRow("empty") << QString() << false << false;
    QTest::newRow("user") << QStringLiteral("Electro") << true << false;
    QTest::newRow("user in capitals") << QStringLiteral("ELECTRO") << true << false;
}

void tst_Profile::isDefault_tellsBuiltInElectro()
{
    QFETCH(QString, name);
    QFETCH(bool, isSerializable);
    const Profile profile(name, 1.0, 0, 0, false, isSerializable, 5, 90.0, 175.0);
    QTEST(profile.isDefault(), "expected");
}

void tst_Profile::CompareTo_orders_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSerializable");
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("otherName");
    QTest::addColumn<bool>("otherIsSerializable");
    QTest::addColumn<uint>("otherID");
    QTest::addColumn<int>("expected");
    const QString a = QStringLiteral("Alpha");
    const QString b = QStringLiteral("beta");
    QTest::newRow("same in all") << a << true << 1U << a << true << 1U << 0;
    QTest::newRow("equal IDs, other name") << a << true << 1U << b << true << 1U << 0;
    QTest::newRow("equal IDs, other kind") << b << false << 1U << a << true << 1U << 0;
    QTest::newRow("built-in before user, same name") << a << false << 9U << a << true << 1U << -1;
    QTest::newRow("built-in before user, later name") << b << false << 9U << a << true << 1U << -1;
    QTest::newRow("name without regard to case")
        << QStringLiteral("ALPHA") << true << 2U << b << true << 1U << -1;
    QTest::newRow("capital letter after small one")
        << QStringLiteral("BETA") << true << 1U << QStringLiteral("alpha") << true << 2U << 1;
    QTest::newRow("one step or many")
        << a << true << 1U << QStringLiteral("zzz") << true << 2U << -1;
    QTest::newRow("prefix first") << QStringLiteral("Al") << true << 2U << a << true << 1U << -1;
    QTest::newRow("empty name first") << QString() << true << 2U << a << true << 1U << -1;
    QTest::newRow("null and empty name by ID")
        << QString() << true << 2U << QStringLiteral("") << true << 1U << 1;
    QTest::newRow("same name, smaller ID") << a << true << 1U << a << true << 2U << -1;
    QTest::newRow("same name in other case, smaller ID")
        << a << true << 1U << QStringLiteral("aLPHa") << true << 2U << -1;
    QTest::newRow("unsigned IDs") << a << true << 1U << a << true << 4294967295U << -1;
    QTest::newRow("built-in profiles by name") << a << false << 2U << b << false << 1U << -1;
}

void tst_Profile::CompareTo_orders()
{
    QFETCH(QString, name);
    QFETCH(bool, isSerializable);
    QFETCH(uint, id);
    QFETCH(QString, otherName);
    QFETCH(bool, otherIsSerializable);
    QFETCH(uint, otherID);
    QFETCH(int, expected);
    const Profile profile(name, 1.0, 0, 0, false, isSerializable, id, 1.0, 2.0);
    const Profile other(otherName, 2.0, 1, 1, true, otherIsSerializable, otherID, 3.0, 4.0);
    QCOMPARE(profile.CompareTo(other), expected);
    QCOMPARE(other.CompareTo(profile), -expected);
    QCOMPARE(profile.CompareTo(profile), 0);
}

void tst_Profile::operators_followCompareTo()
{
    const Profile first = named("A", 1, true);
    const Profile second = named("B", 2, true);
    const Profile twin = named("Z", 1, true);
    QVERIFY(first < second);
    QVERIFY(!(second < first));
    QVERIFY(!(first < twin));
    QVERIFY(!(twin < first));
    QVERIFY(first == twin);
    QVERIFY(!(first == second));
}

void tst_Profile::listSearchAndRemoval_goByID()
{
    QList<Profile> list{named("A", 1, false), named("B", 2, true), named("C", 3, true)};
    QCOMPARE(list.indexOf(named("anything", 3, false)), 2);
    QCOMPARE(list.indexOf(named("A", 4, false)), -1);
    QVERIFY(list.removeOne(named("anything", 2, false)));
    QVERIFY(!list.removeOne(named("B", 2, true)));
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(0).getName(), QStringLiteral("A"));
    QCOMPARE(list.at(1).getName(), QStringLiteral("C"));
}

void tst_Profile::sort_putsBuiltInProfilesFirstThenNamesThenIDs()
{
    QList<Profile> list{named("slow", 101, true),
                        named("Slow", 3, false),
                        named("acid", 103, true),
                        named("Electro", 1, false),
                        named("ACID", 102, true),
                        named("Hardcore", 2, false)};
    std::sort(list.begin(), list.end());
    QList<unsigned int> ids;
    for (const Profile& profile : qAsConst(list))
        ids << profile.getID();
    QCOMPARE(ids, (QList<unsigned int>{1, 2, 3, 102, 103, 101}));
}

AA_TEST(tst_Profile, QCoreApplication)
#include "tst_Profile.moc"
