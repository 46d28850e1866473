// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>

#include "ProfileNames.h"

#include <QtTest>

#include <support/TestClass.h>

class tst_Configuration_copy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void copy_takesValuesButLeavesLanguageAndDeviceEmpty_isIntended();
    void copy_listsBuiltInProfilesThenUserProfilesInOrder();
    void copy_sharesUserRecords();
    void copy_selectsSameProfile();
    void copy_selectsFirstBuiltIn_whenSelectionIsOutsideTheList();
    void copy_isIndependent();
};

void tst_Configuration_copy::init()
{
    UserProfile::_nextID = 100;
    PredefinedProfile::_nextID = 1;
    PredefinedProfile::_builtInProfiles.clear();
}

void tst_Configuration_copy::copy_takesValuesButLeavesLanguageAndDeviceEmpty_isIntended()
{
    Configuration other;
    other.setAverageVolumeCalculationDuration(1.5);
    other.setBPMCalculationDuration(2.5);
    other.setDisplaySpeakers(false);
    other.setDisplayStopped(true);
    other.setDisplayVirtualBeatsWhenStopped(true);
    other.setGrayMode(false);
    other.setLanguage(QStringLiteral("en"));
    other.setNormalizationDuration(3.5);
    other.setNormalizationThreshold(11);
    other.m_selectedAudioInputDevice = QStringLiteral("Line in");
    other.setStopDetectionDuration(4.5);
    other.setStopDetectionThreshold(12);
    other.setThreshold(13);
    other.setTopMost(false);

    const Configuration copy(other);
    QCOMPARE(copy.getAverageVolumeCalculationDuration(), 1.5);
    QCOMPARE(copy.getBPMCalculationDuration(), 2.5);
    QCOMPARE(copy.getDisplaySpeakers(), false);
    QCOMPARE(copy.m_displayStopped, true);
    QCOMPARE(copy.getDisplayVirtualBeatsWhenStopped(), true);
    QCOMPARE(copy.getGrayMode(), false);
    QCOMPARE(copy.isModified(), true);
    QVERIFY(copy.getLanguage().isEmpty());
    QCOMPARE(copy.getNormalizationDuration(), 3.5);
    QCOMPARE(copy.getNormalizationThreshold(), short(11));
    QVERIFY(copy.m_selectedAudioInputDevice.isEmpty());
    QCOMPARE(copy.getStopDetectionDuration(), 4.5);
    QCOMPARE(copy.getStopDetectionThreshold(), short(12));
    QCOMPARE(copy.getThreshold(), short(13));
    QCOMPARE(copy.isTopMost(), false);

    other.setIsModified(false);
    QVERIFY(!Configuration(other).isModified());
}

void tst_Configuration_copy::copy_listsBuiltInProfilesThenUserProfilesInOrder()
{
    Configuration other;
    add(other, "zouk");
    add(other, "Acid");
    other.m_profiles.move(3, 0);
    other.m_profiles.removeAt(2);
    QCOMPARE(names(other.m_profiles), texts({"zouk", "Electro", "Slow", "Acid"}));
    const Configuration copy(other);
    QCOMPARE(names(copy.m_profiles), texts({"Electro", "Hardcore", "Slow", "zouk", "Acid"}));
}

void tst_Configuration_copy::copy_sharesUserRecords()
{
    Configuration other;
    Profile added = add(other, "Acid");
    const Configuration copy(other);
    QVERIFY(added.setSensibility(8.0));
    QCOMPARE(copy.m_profiles.last().getSensibility(), 8.0);
}

void tst_Configuration_copy::copy_selectsSameProfile()
{
    Configuration other;
    const Profile added = add(other, "Acid");
    QVERIFY(other.setSelectedProfile(added));
    QCOMPARE(&Configuration(other).m_selectedProfile.getName(), &added.getName());
    QVERIFY(other.setSelectedProfile(other.getProfiles().at(1)));
    QCOMPARE(Configuration(other).getSelectedProfile().getName(), QStringLiteral("Hardcore"));
}

void tst_Configuration_copy::copy_selectsFirstBuiltIn_whenSelectionIsOutsideTheList()
{
    // The first built-in profile is not the default one here.
    QVERIFY(PredefinedProfile::getList()[0].setName(QStringLiteral("Techno")));
    QVERIFY(PredefinedProfile::getList()[1].setName(QStringLiteral("Electro")));
    Configuration other;
    QVERIFY(other.setSelectedProfile(handle("stranger", 900)));
    QCOMPARE(Configuration(other).getSelectedProfile().getName(), QStringLiteral("Techno"));
}

void tst_Configuration_copy::copy_isIndependent()
{
    Configuration other;
    Configuration copy(other);
    add(copy, "Acid");
    QVERIFY(copy.setGrayMode(false));
    QCOMPARE(other.m_profiles.size(), 3);
    QVERIFY(other.getGrayMode());
    QVERIFY(!other.isModified());
}

AA_TEST(tst_Configuration_copy, QCoreApplication)
#include "tst_Configuration_copy.moc"
