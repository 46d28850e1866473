// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Profile.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/Numbers.h>
#include <support/TestClass.h>

namespace {

Profile withRange(double pMinimal, double pMaximal, bool pIsReadOnly = false)
{
    return Profile(QStringLiteral("Name"), 2.0, 10, 20, pIsReadOnly, true, 5, pMinimal, pMaximal);
}

}  // namespace

class tst_Profile_setters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySetter_refuses_whenProfileIsDefaultConstructed();
    void everySetter_refusesAndChangesNothing_whenReadOnly();
    void setBPM_followsLimits_data();
    void setBPM_followsLimits();
    void setMinimalBPM_followsLimits_data();
    void setMinimalBPM_followsLimits();
    void setMaximalBPM_followsLimits_data();
    void setMaximalBPM_followsLimits();
    void singleBPMSetters_refuse_whenRangeWasNeverSet_isIntended();
    void setMinimalBPM_refuses_whenPresentMaximumIsOutOfReach_isIntended();
    void setMaximalBPM_refuses_whenPresentMinimumIsBelowOne_isIntended();
    void setMinimalThreshold_followsLimits_data();
    void setMinimalThreshold_followsLimits();
    void setMaximalThreshold_followsLimits_data();
    void setMaximalThreshold_followsLimits();
    void thresholds_mayMeet();
    void setSensibility_followsLimits_data();
    void setSensibility_followsLimits();
    void setName_refusesBlankNames_data();
    void setName_refusesBlankNames();
    void setName_storesBlanksAround_isIntended();
    void refusedSetters_changeNothing();
};

void tst_Profile_setters::everySetter_refuses_whenProfileIsDefaultConstructed()
{
    Profile profile;
    QVERIFY(!profile.setBPM(90.0, 175.0));
    QVERIFY(!profile.setMinimalBPM(90.0));
    QVERIFY(!profile.setMaximalBPM(175.0));
    QVERIFY(!profile.setMinimalThreshold(2000));
    QVERIFY(!profile.setMaximalThreshold(20000));
    QVERIFY(!profile.setSensibility(1.0));
    QVERIFY(!profile.setName(QStringLiteral("Name")));
    QVERIFY(!profile.setFilterFrequencies(10, 20));
    QVERIFY(!profile.setFilterFrequencies(-1, -1));
    QVERIFY(!profile.setFilterLowFrequency(-1));
    QVERIFY(!profile.setFilterHighFrequency(20));
}

void tst_Profile_setters::everySetter_refusesAndChangesNothing_whenReadOnly()
{
    Profile profile = withRange(90.0, 175.0, true);
    QVERIFY(!profile.setBPM(100.0, 110.0));
    QVERIFY(!profile.setMinimalBPM(100.0));
    QVERIFY(!profile.setMaximalBPM(110.0));
    QVERIFY(!profile.setMinimalThreshold(2000));
    QVERIFY(!profile.setMaximalThreshold(20000));
    QVERIFY(!profile.setSensibility(1.0));
    QVERIFY(!profile.setName(QStringLiteral("Other")));
    QVERIFY(!profile.setFilterFrequencies(11, 19));
    QVERIFY(!profile.setFilterLowFrequency(11));
    QVERIFY(!profile.setFilterHighFrequency(19));
    QCOMPARE(profile.getMinimalBPM(), 90.0);
    QCOMPARE(profile.getMaximalBPM(), 175.0);
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QCOMPARE(profile.getSensibility(), 2.0);
    QCOMPARE(profile.getName(), QStringLiteral("Name"));
    QCOMPARE(profile.getFilterLowFrequency(), 10);
    QCOMPARE(profile.getFilterHighFrequency(), 20);
}

void tst_Profile_setters::setBPM_followsLimits_data()
{
    QTest::addColumn<double>("minimal");
    QTest::addColumn<double>("maximal");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("usual") << 90.0 << 175.0 << true;
    QTest::newRow("widest") << 1.0 << 999.9 << true;
    QTest::newRow("one tempo") << 120.0 << 120.0 << true;
    QTest::newRow("just below 1000") << 1.0 << std::nextafter(1000.0, 0.0) << true;
    QTest::newRow("both high") << 999.0 << 999.5 << true;
    QTest::newRow("minimum too low") << 0.5 << 100.0 << false;
    QTest::newRow("just below 1") << std::nextafter(1.0, 0.0) << 100.0 << false;
    QTest::newRow("zero") << 0.0 << 100.0 << false;
    QTest::newRow("negative") << -90.0 << 100.0 << false;
    QTest::newRow("maximum 1000") << 100.0 << 1000.0 << false;
    QTest::newRow("both 1000") << 1000.0 << 1000.0 << false;
    QTest::newRow("infinite") << 100.0 << kInfinity << false;
    QTest::newRow("reversed") << 120.0 << 100.0 << false;
    QTest::newRow("reversed by a hair") << 120.0 << std::nextafter(120.0, 0.0) << false;
    QTest::newRow("NaN minimum") << kNaN << 100.0 << false;
    QTest::newRow("NaN maximum") << 100.0 << kNaN << false;
    QTest::newRow("both NaN") << kNaN << kNaN << false;
}

void tst_Profile_setters::setBPM_followsLimits()
{
    QFETCH(double, minimal);
    QFETCH(double, maximal);
    QFETCH(bool, isStored);
    Profile profile = withRange(0.0, 0.0);
    QCOMPARE(profile.setBPM(minimal, maximal), isStored);
    QCOMPARE(profile.getMinimalBPM(), isStored ? minimal : 0.0);
    QCOMPARE(profile.getMaximalBPM(), isStored ? maximal : 0.0);
}

void tst_Profile_setters::setMinimalBPM_followsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("inside") << 100.0 << true;
    QTest::newRow("lowest") << 1.0 << true;
    QTest::newRow("equal to the maximum") << 175.0 << true;
    QTest::newRow("above the maximum") << std::nextafter(175.0, 200.0) << false;
    QTest::newRow("below 1") << std::nextafter(1.0, 0.0) << false;
    QTest::newRow("zero") << 0.0 << false;
    QTest::newRow("NaN") << kNaN << false;
    QTest::newRow("minus infinity") << -kInfinity << false;
}

void tst_Profile_setters::setMinimalBPM_followsLimits()
{
    QFETCH(double, value);
    QFETCH(bool, isStored);
    Profile profile = withRange(90.0, 175.0);
    QCOMPARE(profile.setMinimalBPM(value), isStored);
    QCOMPARE(profile.getMinimalBPM(), isStored ? value : 90.0);
    QCOMPARE(profile.getMaximalBPM(), 175.0);
}

void tst_Profile_setters::setMaximalBPM_followsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("inside") << 200.0 << true;
    QTest::newRow("equal to the minimum") << 90.0 << true;
    QTest::newRow("just below 1000") << std::nextafter(1000.0, 0.0) << true;
    QTest::newRow("1000") << 1000.0 << false;
    QTest::newRow("below the minimum") << std::nextafter(90.0, 0.0) << false;
    QTest::newRow("NaN") << kNaN << false;
    QTest::newRow("infinity") << kInfinity << false;
}

void tst_Profile_setters::setMaximalBPM_followsLimits()
{
    QFETCH(double, value);
    QFETCH(bool, isStored);
    Profile profile = withRange(90.0, 175.0);
    QCOMPARE(profile.setMaximalBPM(value), isStored);
    QCOMPARE(profile.getMaximalBPM(), isStored ? value : 175.0);
    QCOMPARE(profile.getMinimalBPM(), 90.0);
}

void tst_Profile_setters::singleBPMSetters_refuse_whenRangeWasNeverSet_isIntended()
{
    Profile profile = withRange(0.0, 0.0);
    QVERIFY(!profile.setMinimalBPM(100.0));
    QVERIFY(!profile.setMaximalBPM(200.0));
    QVERIFY(profile.setBPM(100.0, 200.0));
    QVERIFY(profile.setMinimalBPM(110.0));
    QVERIFY(profile.setMaximalBPM(190.0));
}

void tst_Profile_setters::setMinimalBPM_refuses_whenPresentMaximumIsOutOfReach_isIntended()
{
    Profile high = withRange(90.0, 1000.0);
    QVERIFY(!high.setMinimalBPM(100.0));
    QCOMPARE(high.getMinimalBPM(), 90.0);
    QVERIFY(high.setMaximalBPM(200.0));
    QVERIFY(high.setMinimalBPM(100.0));

    Profile notANumber = withRange(90.0, kNaN);
    QVERIFY(!notANumber.setMinimalBPM(100.0));
    QVERIFY(notANumber.setMaximalBPM(200.0));
}

void tst_Profile_setters::setMaximalBPM_refuses_whenPresentMinimumIsBelowOne_isIntended()
{
    Profile low = withRange(0.5, 175.0);
    QVERIFY(!low.setMaximalBPM(200.0));
    QCOMPARE(low.getMaximalBPM(), 175.0);
    QVERIFY(low.setMinimalBPM(1.0));
    QVERIFY(low.setMaximalBPM(200.0));

    Profile notANumber = withRange(kNaN, 175.0);
    QVERIFY(!notANumber.setMaximalBPM(200.0));
    QVERIFY(notANumber.setMinimalBPM(100.0));
}

void tst_Profile_setters::setMinimalThreshold_followsLimits_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("zero") << 0 << true;
    QTest::newRow("inside") << 2000 << true;
    QTest::newRow("equal to the maximum") << 32000 << true;
    QTest::newRow("above the maximum") << 32001 << false;
    QTest::newRow("full scale") << 32767 << false;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("lowest") << -32768 << false;
}

void tst_Profile_setters::setMinimalThreshold_followsLimits()
{
    QFETCH(int, value);
    QFETCH(bool, isStored);
    Profile profile = withRange(90.0, 175.0);
    QCOMPARE(profile.setMinimalThreshold(short(value)), isStored);
    QCOMPARE(int(profile.getMinimalThreshold()), isStored ? value : 1000);
    QCOMPARE(int(profile.getMaximalThreshold()), 32000);
}

void tst_Profile_setters::setMaximalThreshold_followsLimits_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("equal to the minimum") << 1000 << true;
    QTest::newRow("inside") << 20000 << true;
    QTest::newRow("full scale") << 32767 << true;
    QTest::newRow("below the minimum") << 999 << false;
    QTest::newRow("zero") << 0 << false;
    QTest::newRow("negative") << -1 << false;
    QTest::newRow("lowest") << -32768 << false;
}

void tst_Profile_setters::setMaximalThreshold_followsLimits()
{
    QFETCH(int, value);
    QFETCH(bool, isStored);
    Profile profile = withRange(90.0, 175.0);
    QCOMPARE(profile.setMaximalThreshold(short(value)), isStored);
    QCOMPARE(int(profile.getMaximalThreshold()), isStored ? value : 32000);
    QCOMPARE(int(profile.getMinimalThreshold()), 1000);
}

void tst_Profile_setters::thresholds_mayMeet()
{
    Profile profile = withRange(90.0, 175.0);
    QVERIFY(profile.setMinimalThreshold(0));
    QVERIFY(profile.setMaximalThreshold(0));
    QVERIFY(!profile.setMinimalThreshold(1));
    QVERIFY(profile.setMaximalThreshold(1));
    QVERIFY(profile.setMinimalThreshold(1));
    QVERIFY(!profile.setMaximalThreshold(0));
}

void tst_Profile_setters::setSensibility_followsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("isStored");
    QTest::newRow("zero") << 0.0 << true;
    QTest::newRow("minus zero") << -0.0 << true;
    QTest::newRow("usual") << 1.5 << true;
    QTest::newRow("huge") << 1e300 << true;
    QTest::newRow("infinity") << kInfinity << true;
    QTest::newRow("smallest below zero") << -std::numeric_limits<double>::denorm_min() << false;
    QTest::newRow("negative") << -1.0 << false;
    QTest::newRow("NaN") << kNaN << false;
}

void tst_Profile_setters::setSensibility_followsLimits()
{
    QFETCH(double, value);
    QFETCH(bool, isStored);
    Profile profile = withRange(90.0, 175.0);
    QCOMPARE(profile.setSensibility(value), isStored);
    QCOMPARE(profile.getSensibility(), isStored ? value : 2.0);
}

void tst_Profile_setters::setName_refusesBlankNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("space") << QStringLiteral(" ");
    QTest::newRow("tab, line feed, return") << QStringLiteral("\t\n\r ");
    QTest::newRow("no-break and ideographic space") << QString::fromUtf8("\u00a0\u3000");
}

void tst_Profile_setters::setName_refusesBlankNames()
{
    QFETCH(QString, name);
    Profile profile = withRange(90.0, 175.0);
    QVERIFY(!profile.setName(name));
    QCOMPARE(profile.getName(), QStringLiteral("Name"));
}

void tst_Profile_setters::setName_storesBlanksAround_isIntended()
{
    Profile profile = withRange(90.0, 175.0);
    QVERIFY(profile.setName(QStringLiteral("  My mix\t")));
    QCOMPARE(profile.getName(), QStringLiteral("  My mix\t"));
    QVERIFY(profile.setName(profile.getName()));
    QCOMPARE(profile.getName(), QStringLiteral("  My mix\t"));
}

void tst_Profile_setters::refusedSetters_changeNothing()
{
    Profile profile = withRange(90.0, 175.0);
    QVERIFY(!profile.setBPM(200.0, 100.0));
    QVERIFY(!profile.setMinimalThreshold(-1));
    QVERIFY(!profile.setMaximalThreshold(10));
    QVERIFY(!profile.setSensibility(-2.0));
    QVERIFY(!profile.setFilterFrequencies(30, 5));
    QCOMPARE(profile.getMinimalBPM(), 90.0);
    QCOMPARE(profile.getMaximalBPM(), 175.0);
    QCOMPARE(profile.getMinimalThreshold(), short(1000));
    QCOMPARE(profile.getMaximalThreshold(), short(32000));
    QCOMPARE(profile.getSensibility(), 2.0);
    QCOMPARE(profile.getFilterLowFrequency(), 10);
    QCOMPARE(profile.getFilterHighFrequency(), 20);
}

AA_TEST(tst_Profile_setters, QCoreApplication)
#include "tst_Profile_setters.moc"
