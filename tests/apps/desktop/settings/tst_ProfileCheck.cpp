// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>

#include <desktop/settings/detail/ProfileCheck.h>
#include <desktop/settings/detail/ProfileValues.h>

#include <QtTest>

#include <cmath>
#include <limits>
#include <support/TestClass.h>
#include <support/Text.h>

using desktop::ProfileCheck;
using desktop::ProfileValues;

/// Which values are refused, in which words; and that the setters of profiles agree.
class tst_ProfileCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void name_data();
    void name();
    void tempos_data();
    void tempos();
    void band_data();
    void band();
    void sensibility_data();
    void sensibility();
    void apply_storesEveryValue();
    void apply_tellsWhenTheProfileIsReadOnly();
    void valuesOf_areThoseOfTheProfile();
    void equality_looksAtEveryValue();
    void firstFreeName_takesTheFirstFreeNumber();
};

void tst_ProfileCheck::name_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("refusal");
    const QString empty = Text("Give the profile a name.");
    QTest::newRow("word") << Text("Friday") << QString();
    QTest::newRow("blanks around") << Text("  Friday ") << QString();
    QTest::newRow("letters of others") << Text("ночь 夜") << QString();
    QTest::newRow("longest") << QString(100, QLatin1Char('x')) << QString();
    QTest::newRow("empty") << QString() << empty;
    QTest::newRow("blank") << Text(" \t ") << empty;
    QTest::newRow("too long") << QString(103, QLatin1Char('x'))
                              << Text("The name has 3 character(s) too many.");
    QTest::newRow("taken") << Text("Slow")
                           << Text("There is a profile “Slow” already; choose another name.");
    QTest::newRow("taken in another case")
        << Text(" sLOW") << Text("There is a profile “sLOW” already; choose another name.");
}

void tst_ProfileCheck::name()
{
    QFETCH(const QString, value);
    QFETCH(const QString, refusal);
    const QStringList taken{Text("Electro"), Text("Slow ")};
    QCOMPARE(ProfileCheck::Name(value, taken), refusal);
    UserProfile profile(Text("p"), 2.0, 0, 75, 90.0, 175.0);
    if (refusal.isEmpty())
        QVERIFY(profile.setName(value));
}

void tst_ProfileCheck::tempos_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("refusal");
    const QString low = Text("The lowest tempo must be at least 1 BPM.");
    const QString high = Text("The highest tempo must be at most 999 BPM.");
    const QString order = Text("The lowest tempo must not be above the highest.");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("usual") << 90.0 << 175.0 << QString();
    QTest::newRow("one tempo") << 128.0 << 128.0 << QString();
    QTest::newRow("widest") << 1.0 << 999.0 << QString();
    QTest::newRow("too slow") << 0.5 << 100.0 << low;
    QTest::newRow("none") << 0.0 << 0.0 << low;
    QTest::newRow("too fast") << 100.0 << 1000.0 << high;
    QTest::newRow("reversed") << 120.0 << 100.0 << order;
    QTest::newRow("NaN") << nan << 100.0 << low;
    QTest::newRow("NaN above") << 100.0 << nan << high;
}

void tst_ProfileCheck::tempos()
{
    QFETCH(const double, minimum);
    QFETCH(const double, maximum);
    QFETCH(const QString, refusal);
    QCOMPARE(ProfileCheck::Tempos(minimum, maximum), refusal);
    UserProfile profile(Text("p"), 2.0, 0, 75, 90.0, 175.0);
    QCOMPARE(profile.setBPM(minimum, maximum), refusal.isEmpty());
}

void tst_ProfileCheck::band_data()
{
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<QString>("refusal");
    const QString order = Text("The lower edge must not be above the upper edge.");
    QTest::newRow("usual") << 0 << 75 << QString();
    QTest::newRow("one frequency") << 75 << 75 << QString();
    QTest::newRow("no lower edge") << -1 << 75 << QString();
    QTest::newRow("no upper edge") << 200 << -1 << QString();
    QTest::newRow("no edge") << -1 << -1 << QString();
    QTest::newRow("reversed") << 200 << 100 << order;
    QTest::newRow("reversed at 0") << 1 << 0 << order;
}

void tst_ProfileCheck::band()
{
    QFETCH(const int, low);
    QFETCH(const int, high);
    QFETCH(const QString, refusal);
    QCOMPARE(ProfileCheck::Band(low, high), refusal);
    UserProfile profile(Text("p"), 2.0, 0, 75, 90.0, 175.0);
    QCOMPARE(profile.setFilterFrequencies(low, high), refusal.isEmpty());
}

void tst_ProfileCheck::sensibility_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("refusal");
    const QString negative = Text("The sensibility must be 0 or more.");
    QTest::newRow("usual") << 2.0 << QString();
    QTest::newRow("0") << 0.0 << QString();
    QTest::newRow("great") << 1e9 << QString();
    QTest::newRow("negative") << -0.1 << negative;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << negative;
}

void tst_ProfileCheck::sensibility()
{
    QFETCH(const double, value);
    QFETCH(const QString, refusal);
    QCOMPARE(ProfileCheck::Sensibility(value), refusal);
    UserProfile profile(Text("p"), 2.0, 0, 75, 90.0, 175.0);
    QCOMPARE(profile.setSensibility(value), refusal.isEmpty());
}

void tst_ProfileCheck::apply_storesEveryValue()
{
    const UserProfile profile(Text("p"), 2.0, 0, 75, 90.0, 175.0);
    const ProfileValues values{Text("q"), 180.0, 300.0, 400, 500, 3.5};
    QVERIFY(desktop::Apply(values, profile));
    QCOMPARE(profile.getName(), Text("q"));
    QCOMPARE(profile.getMinimalBPM(), 180.0);
    QCOMPARE(profile.getMaximalBPM(), 300.0);
    QCOMPARE(profile.getFilterLowFrequency(), 400);
    QCOMPARE(profile.getFilterHighFrequency(), 500);
    QCOMPARE(profile.getSensibility(), 3.5);
}

void tst_ProfileCheck::apply_tellsWhenTheProfileIsReadOnly()
{
    QVERIFY(!desktop::Apply(ProfileValues{Text("q"), 180.0, 300.0, 400, 500, 3.5}, Profile()));
}

void tst_ProfileCheck::valuesOf_areThoseOfTheProfile()
{
    const UserProfile profile(Text("p"), 1.25, -1, 75, 90.0, 175.0);
    QVERIFY(desktop::ValuesOf(profile) == (ProfileValues{Text("p"), 90.0, 175.0, -1, 75, 1.25}));
}

void tst_ProfileCheck::equality_looksAtEveryValue()
{
    const ProfileValues values{Text("p"), 90.0, 175.0, 0, 75, 2.0};
    QVERIFY(values == values);
    const QList<ProfileValues> others{{Text("P"), 90.0, 175.0, 0, 75, 2.0},
                                      {Text("p"), 91.0, 175.0, 0, 75, 2.0},
                                      {Text("p"), 90.0, 176.0, 0, 75, 2.0},
                                      {Text("p"), 90.0, 175.0, 1, 75, 2.0},
                                      {Text("p"), 90.0, 175.0, 0, 76, 2.0},
                                      {Text("p"), 90.0, 175.0, 0, 75, 2.1}};
    for (const ProfileValues& other : others)
        QVERIFY(!(values == other));
}

void tst_ProfileCheck::firstFreeName_takesTheFirstFreeNumber()
{
    const auto make = [](int pNumber) { return QStringLiteral("Set (copy %1)").arg(pNumber); };
    QCOMPARE(desktop::FirstFreeName({}, make), Text("Set (copy 2)"));
    const QStringList names{Text("set (COPY 2)"), Text("Set (copy 3) "), Text("Set (copy 5)")};
    QCOMPARE(desktop::FirstFreeName(names, make), Text("Set (copy 4)"));
}

AA_TEST(tst_ProfileCheck, NoApplication)
#include "tst_ProfileCheck.moc"
