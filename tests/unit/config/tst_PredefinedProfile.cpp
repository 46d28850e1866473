// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/PredefinedProfile.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_PredefinedProfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void getList_holdsThreeBuiltInProfiles_data();
    void getList_holdsThreeBuiltInProfiles();
    void getList_isBuiltOnce();
    void getList_takesNextIDs_whenOthersWereMadeFirst();
    void getList_isRefilledWithNewIDs_whenEmptied();
    void builtInProfiles_mayBeEditedInMemory_isIntended();
    void constructor_takesNextID();
    void constructor_storesValuesUnchecked();
    void copy_sharesRecord();
    void assignment_sharesRecord();
    void assignment_doesNothing_whenAssignedToItself();
    void assignment_doesNothing_whenOtherIsSerializable();
};

void tst_PredefinedProfile::init()
{
    PredefinedProfile::_nextID = 1;
    PredefinedProfile::_builtInProfiles.clear();
}

void tst_PredefinedProfile::getList_holdsThreeBuiltInProfiles_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("sensibility");
    QTest::addColumn<int>("high");
    QTest::addColumn<double>("minimalBPM");
    QTest::addColumn<double>("maximalBPM");
    QTest::newRow("Electro") << 0 << QStringLiteral("Electro") << 2.0 << 75 << 90.0 << 175.0;
    QTest::newRow("Hardcore") << 1 << QStringLiteral("Hardcore") << 2.0 << 75 << 130.0 << 250.0;
    QTest::newRow("Slow") << 2 << QStringLiteral("Slow") << 1.5 << 150 << 70.0 << 135.0;
}

void tst_PredefinedProfile::getList_holdsThreeBuiltInProfiles()
{
    QFETCH(int, index);
    QCOMPARE(PredefinedProfile::getList().size(), 3);
    const Profile profile = PredefinedProfile::getList().at(index);
    QTEST(profile.getName(), "name");
    QTEST(profile.getSensibility(), "sensibility");
    QCOMPARE(profile.getFilterLowFrequency(), 0);
    QTEST(profile.getFilterHighFrequency(), "high");
    QTEST(profile.getMinimalBPM(), "minimalBPM");
    QTEST(profile.getMaximalBPM(), "maximalBPM");
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QCOMPARE(profile.getID(), unsigned(index + 1));
    QVERIFY(!profile.isReadOnly());
    QVERIFY(!profile.isSerializable());
    QCOMPARE(profile.isDefault(), index == 0);
}

void tst_PredefinedProfile::getList_isBuiltOnce()
{
    QList<Profile>* const list = &PredefinedProfile::getList();
    const QString* const name = &list->first().getName();
    QCOMPARE(&PredefinedProfile::getList(), list);
    QCOMPARE(list->size(), 3);
    QCOMPARE(&list->first().getName(), name);
    QCOMPARE(PredefinedProfile::_nextID, 4U);
}

void tst_PredefinedProfile::getList_takesNextIDs_whenOthersWereMadeFirst()
{
    const PredefinedProfile early(QStringLiteral("Early"), 1.0, 0, 0, 1.0, 2.0);
    QCOMPARE(early.getID(), 1U);
    QCOMPARE(PredefinedProfile::getList().at(0).getID(), 2U);
    QCOMPARE(PredefinedProfile::getList().at(1).getID(), 3U);
    QCOMPARE(PredefinedProfile::getList().at(2).getID(), 4U);
    QCOMPARE(PredefinedProfile::getList().size(), 3);
}

void tst_PredefinedProfile::getList_isRefilledWithNewIDs_whenEmptied()
{
    PredefinedProfile::getList().clear();
    QCOMPARE(PredefinedProfile::getList().size(), 3);
    QCOMPARE(PredefinedProfile::getList().first().getID(), 4U);
}

void tst_PredefinedProfile::builtInProfiles_mayBeEditedInMemory_isIntended()
{
    Profile electro = PredefinedProfile::getList().first();
    QVERIFY(electro.setBPM(100.0, 150.0));
    QVERIFY(electro.setName(QStringLiteral("Other")));
    QCOMPARE(PredefinedProfile::getList().first().getMinimalBPM(), 100.0);
    QCOMPARE(PredefinedProfile::getList().first().getName(), QStringLiteral("Other"));
}

void tst_PredefinedProfile::constructor_takesNextID()
{
    const PredefinedProfile first(QStringLiteral("A"), 1.0, 0, 0, 1.0, 2.0);
    const PredefinedProfile second(QStringLiteral("B"), 1.0, 0, 0, 1.0, 2.0);
    QCOMPARE(first.getID(), 1U);
    QCOMPARE(second.getID(), 2U);
    QCOMPARE(PredefinedProfile::_nextID, 3U);
}

void tst_PredefinedProfile::constructor_storesValuesUnchecked()
{
    const PredefinedProfile profile(QString(), -1.0, 50, 20, 300.0, -4.0);
    QVERIFY(profile.getName().isEmpty());
    QCOMPARE(profile.getSensibility(), -1.0);
    QCOMPARE(profile.getFilterLowFrequency(), 50);
    QCOMPARE(profile.getFilterHighFrequency(), 20);
    QCOMPARE(profile.getMinimalBPM(), 300.0);
    QCOMPARE(profile.getMaximalBPM(), -4.0);
    QVERIFY(!profile.isReadOnly());
    QVERIFY(!profile.isSerializable());
}

void tst_PredefinedProfile::copy_sharesRecord()
{
    const PredefinedProfile first(QStringLiteral("A"), 1.0, 0, 0, 1.0, 2.0);
    PredefinedProfile second(first);
    QVERIFY(second.setSensibility(3.0));
    QCOMPARE(first.getSensibility(), 3.0);
    QCOMPARE(PredefinedProfile::_nextID, 2U);
}

void tst_PredefinedProfile::assignment_sharesRecord()
{
    PredefinedProfile first(QStringLiteral("A"), 1.0, 0, 0, 1.0, 2.0);
    PredefinedProfile second(QStringLiteral("B"), 1.0, 0, 0, 1.0, 2.0);
    PredefinedProfile& result = first = second;
    QCOMPARE(&result, &first);
    QCOMPARE(first.getID(), 2U);
    QVERIFY(second.setSensibility(3.0));
    QCOMPARE(first.getSensibility(), 3.0);
}

void tst_PredefinedProfile::assignment_doesNothing_whenAssignedToItself()
{
    PredefinedProfile profile(QStringLiteral("A"), 1.0, 0, 0, 1.0, 2.0);
    const PredefinedProfile& alias = profile;
    profile = alias;
    QCOMPARE(profile.getName(), QStringLiteral("A"));
}

void tst_PredefinedProfile::assignment_doesNothing_whenOtherIsSerializable()
{
    PredefinedProfile profile(QStringLiteral("A"), 1.0, 0, 0, 1.0, 2.0);
    PredefinedProfile turned(QStringLiteral("B"), 1.0, 0, 0, 1.0, 2.0);
    const Profile user(QStringLiteral("User"), 1.0, 0, 0, false, true, 100, 1.0, 2.0);
    // The base class puts any kind of record behind the handle.
    static_cast<Profile&>(turned) = user;
    QVERIFY(turned.isSerializable());
    profile = turned;
    QCOMPARE(profile.getName(), QStringLiteral("A"));
    QVERIFY(!profile.isSerializable());
    turned = profile;
    QCOMPARE(turned.getName(), QStringLiteral("A"));
}

AA_TEST(tst_PredefinedProfile, QCoreApplication)
#include "tst_PredefinedProfile.moc"
