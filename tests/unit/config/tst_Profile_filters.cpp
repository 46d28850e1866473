// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Profile.h>

#include <QtTest>

#include <climits>
#include <support/TestClass.h>

namespace {

/// The constructor checks nothing, so a profile may start with edges that no setter would store.
Profile withEdges(int pLow, int pHigh)
{
    return Profile(QStringLiteral("Name"), 2.0, pLow, pHigh, false, true, 5, 90.0, 175.0);
}

}  // namespace

class tst_Profile_filters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setFilterFrequencies_keepsPairConsistent_data();
    void setFilterFrequencies_keepsPairConsistent();
    void setFilterLowFrequency_keepsPairConsistent_data();
    void setFilterLowFrequency_keepsPairConsistent();
    void setFilterHighFrequency_keepsPairConsistent_data();
    void setFilterHighFrequency_keepsPairConsistent();
};

void tst_Profile_filters::setFilterFrequencies_keepsPairConsistent_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<bool>("isStored");
    QTest::addColumn<int>("expectedLow");
    QTest::addColumn<int>("expectedHigh");
    QTest::newRow("+ + in order") << 100 << 200 << true << 100 << 200;
    QTest::newRow("+ + equal") << 100 << 100 << true << 100 << 100;
    QTest::newRow("+ + zero") << 0 << 0 << true << 0 << 0;
    QTest::newRow("+ + greatest") << 0 << INT_MAX << true << 0 << INT_MAX;
    QTest::newRow("+ + reversed") << 200 << 100 << false << 10 << 20;
    QTest::newRow("+ + reversed by one") << 1 << 0 << false << 10 << 20;
    QTest::newRow("+ -") << 100 << -5 << true << 100 << -1;
    QTest::newRow("0 -") << 0 << -1 << true << 0 << -1;
    QTest::newRow("- +") << -5 << 100 << true << -1 << 100;
    QTest::newRow("- 0") << -1 << 0 << true << -1 << 0;
    QTest::newRow("- -") << -5 << -9 << true << -1 << -1;
    QTest::newRow("- - reversed") << -1 << -2 << true << -1 << -1;
    QTest::newRow("- - lowest") << INT_MIN << INT_MIN << true << -1 << -1;
}

void tst_Profile_filters::setFilterFrequencies_keepsPairConsistent()
{
    QFETCH(int, low);
    QFETCH(int, high);
    Profile profile = withEdges(10, 20);
    QTEST(profile.setFilterFrequencies(low, high), "isStored");
    QTEST(profile.getFilterLowFrequency(), "expectedLow");
    QTEST(profile.getFilterHighFrequency(), "expectedHigh");
}

void tst_Profile_filters::setFilterLowFrequency_keepsPairConsistent_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isStored");
    QTest::addColumn<int>("expectedLow");
    QTest::addColumn<int>("expectedHigh");
    QTest::newRow("+ below high") << 10 << 20 << 15 << true << 15 << 20;
    QTest::newRow("+ equal to high") << 10 << 20 << 20 << true << 20 << 20;
    QTest::newRow("+ above high") << 10 << 20 << 21 << false << 10 << 20;
    QTest::newRow("+ on no low edge") << -1 << 20 << 15 << true << 15 << 20;
    QTest::newRow("0 with high 0") << -1 << 0 << 0 << true << 0 << 0;
    QTest::newRow("+ with high 0") << 0 << 0 << 1 << false << 0 << 0;
    QTest::newRow("+ without high") << 10 << -1 << 300 << true << 300 << -1;
    QTest::newRow("+ with wild high") << 10 << -7 << 300 << true << 300 << -1;
    QTest::newRow("0 with wild high") << 10 << INT_MIN << 0 << true << 0 << -1;
    QTest::newRow("- with high") << 10 << 20 << -5 << true << -1 << 20;
    QTest::newRow("- with high 0") << 0 << 0 << -1 << true << -1 << 0;
    QTest::newRow("- without high") << 10 << -1 << -5 << true << -1 << -1;
    QTest::newRow("- with wild high") << -9 << -7 << -5 << true << -1 << -1;
    QTest::newRow("+ repairs a reversed pair") << 30 << 20 << 20 << true << 20 << 20;
}

void tst_Profile_filters::setFilterLowFrequency_keepsPairConsistent()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(int, value);
    Profile profile = withEdges(low, high);
    QTEST(profile.setFilterLowFrequency(value), "isStored");
    QTEST(profile.getFilterLowFrequency(), "expectedLow");
    QTEST(profile.getFilterHighFrequency(), "expectedHigh");
}

void tst_Profile_filters::setFilterHighFrequency_keepsPairConsistent_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isStored");
    QTest::addColumn<int>("expectedLow");
    QTest::addColumn<int>("expectedHigh");
    QTest::newRow("+ above low") << 10 << 20 << 15 << true << 10 << 15;
    QTest::newRow("+ equal to low") << 10 << 20 << 10 << true << 10 << 10;
    QTest::newRow("+ below low") << 10 << 20 << 9 << false << 10 << 20;
    QTest::newRow("+ on no high edge") << 10 << -1 << 15 << true << 10 << 15;
    QTest::newRow("0 with low 0") << 0 << -1 << 0 << true << 0 << 0;
    QTest::newRow("0 below low") << 1 << 20 << 0 << false << 1 << 20;
    QTest::newRow("+ without low") << -1 << 20 << 300 << true << -1 << 300;
    QTest::newRow("+ with wild low") << -7 << 20 << 300 << true << -1 << 300;
    QTest::newRow("0 with wild low") << INT_MIN << 20 << 0 << true << -1 << 0;
    QTest::newRow("- with low") << 10 << 20 << -5 << true << 10 << -1;
    QTest::newRow("- with low 0") << 0 << 0 << -1 << true << 0 << -1;
    QTest::newRow("- without low") << -1 << 20 << -5 << true << -1 << -1;
    QTest::newRow("- with wild low") << -9 << -7 << -5 << true << -1 << -1;
    QTest::newRow("+ repairs a reversed pair") << 30 << 20 << 30 << true << 30 << 30;
}

void tst_Profile_filters::setFilterHighFrequency_keepsPairConsistent()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(int, value);
    Profile profile = withEdges(low, high);
    QTEST(profile.setFilterHighFrequency(value), "isStored");
    QTEST(profile.getFilterLowFrequency(), "expectedLow");
    QTEST(profile.getFilterHighFrequency(), "expectedHigh");
}

AA_TEST(tst_Profile_filters, QCoreApplication)
#include "tst_Profile_filters.moc"
