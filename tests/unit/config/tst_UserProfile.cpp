// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/PredefinedProfile.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

UserProfile user(const char* pName)
{
    return UserProfile(QString::fromUtf8(pName), 1.0, 0, 75, 90.0, 175.0);
}

UserProfile user(const char* pName, unsigned int pID)
{
    return UserProfile(QString::fromUtf8(pName), 1.0, 0, 75, pID, 90.0, 175.0);
}

}  // namespace

class tst_UserProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void constructor_takesNextID();
    void constructor_storesValuesUnchecked();
    void explicitID_movesCounter_data();
    void explicitID_movesCounter();
    void newProfile_gets251_afterExplicitID250();
    void copy_sharesRecordAndTakesNoID();
    void assignment_sharesRecord();
    void assignment_doesNothing_whenAssignedToItself();
    void assignment_doesNothing_whenOtherIsBuiltIn();
    void CompactIDs_numbersUserProfilesInListOrder();
    void CompactIDs_renumbersEveryHandle();
    void CompactIDs_resetsCounter_whenListHasNoUserProfile();
    void CompactIDs_numbersSharedRecordTwice_whenListedTwice();
};

void tst_UserProfile::init()
{
    UserProfile::_nextID = 100;
}

void tst_UserProfile::constructor_takesNextID()
{
    QCOMPARE(user("A").getID(), 100U);
    QCOMPARE(user("B").getID(), 101U);
    QCOMPARE(UserProfile::_nextID, 102U);
}

void tst_UserProfile::constructor_storesValuesUnchecked()
{
    const UserProfile profile(QStringLiteral("  "), -1.5, 50, 20, 300.0, 0.0);
    QCOMPARE(profile.getName(), QStringLiteral("  "));
    QCOMPARE(profile.getSensibility(), -1.5);
    QCOMPARE(profile.getFilterLowFrequency(), 50);
    QCOMPARE(profile.getFilterHighFrequency(), 20);
    QCOMPARE(profile.getMinimalBPM(), 300.0);
    QCOMPARE(profile.getMaximalBPM(), 0.0);
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QVERIFY(!profile.isReadOnly());
    QVERIFY(profile.isSerializable());
}

void tst_UserProfile::explicitID_movesCounter_data()
{
    QTest::addColumn<uint>("id");
    QTest::addColumn<uint>("next");
    QTest::newRow("far below") << 0U << 100U;
    QTest::newRow("right below") << 99U << 100U;
    QTest::newRow("the next") << 100U << 101U;
    QTest::newRow("above") << 250U << 251U;
    QTest::newRow("greatest but one") << 4294967294U << 4294967295U;
    QTest::newRow("greatest wraps to 0") << 4294967295U << 100U;
}

void tst_UserProfile::explicitID_movesCounter()
{
    QFETCH(uint, id);
    const UserProfile profile(QStringLiteral("X"), 3.5, 11, 22, id, 60.5, 70.25);
    QCOMPARE(profile.getID(), id);
    QTEST(UserProfile::_nextID, "next");
    QCOMPARE(profile.getName(), QStringLiteral("X"));
    QCOMPARE(profile.getSensibility(), 3.5);
    QCOMPARE(profile.getFilterLowFrequency(), 11);
    QCOMPARE(profile.getFilterHighFrequency(), 22);
    QCOMPARE(profile.getMinimalBPM(), 60.5);
    QCOMPARE(profile.getMaximalBPM(), 70.25);
    QVERIFY(!profile.isReadOnly());
    QVERIFY(profile.isSerializable());
}

void tst_UserProfile::newProfile_gets251_afterExplicitID250()
{
    user("X", 250);
    QCOMPARE(user("Y").getID(), 251U);
    user("Z", 120);
    QCOMPARE(user("W").getID(), 252U);
}

void tst_UserProfile::copy_sharesRecordAndTakesNoID()
{
    const UserProfile first = user("A");
    UserProfile second(first);
    QVERIFY(second.setSensibility(3.0));
    QCOMPARE(first.getSensibility(), 3.0);
    QCOMPARE(UserProfile::_nextID, 101U);
}

void tst_UserProfile::assignment_sharesRecord()
{
    UserProfile first = user("A");
    UserProfile second = user("B");
    UserProfile& result = first = second;
    QCOMPARE(&result, &first);
    QCOMPARE(first.getID(), 101U);
    QVERIFY(second.setSensibility(3.0));
    QCOMPARE(first.getSensibility(), 3.0);
}

void tst_UserProfile::assignment_doesNothing_whenAssignedToItself()
{
    UserProfile profile = user("A");
    const UserProfile& alias = profile;
    profile = alias;
    QCOMPARE(profile.getName(), QStringLiteral("A"));
    QCOMPARE(profile.getID(), 100U);
}

void tst_UserProfile::assignment_doesNothing_whenOtherIsBuiltIn()
{
    UserProfile profile = user("A");
    UserProfile turned = user("B");
    // The base class puts any kind of record behind the handle.
    static_cast<Profile&>(turned) = PredefinedProfile::getList().first();
    QVERIFY(!turned.isSerializable());
    profile = turned;
    QCOMPARE(profile.getName(), QStringLiteral("A"));
    turned = profile;
    QCOMPARE(turned.getName(), QStringLiteral("A"));
}

void tst_UserProfile::CompactIDs_numbersUserProfilesInListOrder()
{
    const Profile electro = PredefinedProfile::getList().first();
    const unsigned int electroID = electro.getID();
    QList<Profile> list{user("Z", 500), electro, user("A", 7), user("M", 300)};
    UserProfile::CompactIDs(list);
    QCOMPARE(list.at(0).getID(), 100U);
    QCOMPARE(list.at(0).getName(), QStringLiteral("Z"));
    QCOMPARE(list.at(1).getID(), electroID);
    QCOMPARE(list.at(2).getID(), 101U);
    QCOMPARE(list.at(3).getID(), 102U);
    QCOMPARE(UserProfile::_nextID, 103U);
    QCOMPARE(user("Next").getID(), 103U);
}

void tst_UserProfile::CompactIDs_renumbersEveryHandle()
{
    const UserProfile handle = user("A", 500);
    QList<Profile> list{handle};
    const QList<Profile> copy = list;
    UserProfile::CompactIDs(list);
    QCOMPARE(handle.getID(), 100U);
    QCOMPARE(copy.first().getID(), 100U);
}

void tst_UserProfile::CompactIDs_resetsCounter_whenListHasNoUserProfile()
{
    user("A", 500);
    QList<Profile> empty;
    UserProfile::CompactIDs(empty);
    QCOMPARE(UserProfile::_nextID, 100U);
    UserProfile::_nextID = 700;
    UserProfile::CompactIDs(PredefinedProfile::getList());
    QCOMPARE(UserProfile::_nextID, 100U);
}

void tst_UserProfile::CompactIDs_numbersSharedRecordTwice_whenListedTwice()
{
    const UserProfile twice = user("A", 500);
    QList<Profile> list{twice, twice};
    UserProfile::CompactIDs(list);
    QCOMPARE(twice.getID(), 101U);
    QCOMPARE(UserProfile::_nextID, 102U);
}

AA_TEST(tst_UserProfile, QCoreApplication)
#include "tst_UserProfile.moc"
