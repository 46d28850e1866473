// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>
#include <AudioAnalyzer/analysis/Pulse.h>

#include <QtTest>

#include <support/TestClass.h>
#include <type_traits>

static_assert(std::is_base_of_v<Comparable<Pulse>, Pulse>);
static_assert(std::has_virtual_destructor_v<Pulse>);
static_assert(ePulse == 0 && eBeat == 1 && eVirtualBeat == 2);
static_assert(sizeof(ePulseType) == 4);

class tst_Pulse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void getters_giveWhatWasConstructed();
    void lengthAndDuration_countBothEnds_data();
    void lengthAndDuration_countBothEnds();
    void times_divideBeforeTheyAdd();
    void times_are0_withoutARecord();
    void elapsedTime_runsFromTheStartAndFromTheEnd_data();
    void elapsedTime_runsFromTheStartAndFromTheEnd();
    void elapsedTime_countsFromTheEpoch_withoutARecord();
    void copies_shareOneRecord();
    void assignedPulses_shareOneRecord();
    void assignment_leavesTheOldRecordToItsOtherHandles();
    void assignment_toItself_doesNothing();
    void record_livesAsLongAsItsLastHandle();
    void setEndIndex_refusesLessThanTheStart();
    void setLength_refuses0();
    void setMaximalValue_onlyRaises();
    void setType_isAlwaysStored();
    void order_isByStartThenByEnd_data();
    void order_isByStartThenByEnd();
};

static Pulse makePulse(quint64 startIndex, quint64 endIndex)
{
    return Pulse(1000000, startIndex, endIndex, 44100, 5, 6, 7, ePulse);
}

void tst_Pulse::getters_giveWhatWasConstructed()
{
    const Pulse pulse(123, 44100, 88200, 44100, -1, -32768, 32767, eVirtualBeat);
    QCOMPARE(pulse.getStartIndex(), quint64(44100));
    QCOMPARE(pulse.getEndIndex(), quint64(88200));
    QCOMPARE(pulse.getStartTime(), quint64(1000123));
    QCOMPARE(pulse.getEndTime(), quint64(2000123));
    QCOMPARE(pulse.getAverageVolume(), qint16(-1));
    QCOMPARE(pulse.getThreshold(), qint16(-32768));
    QCOMPARE(pulse.getMaximalValue(), qint16(32767));
    QCOMPARE(pulse.getType(), eVirtualBeat);
    QCOMPARE(pulse.m_timeScale, quint64(1000000));
}

void tst_Pulse::lengthAndDuration_countBothEnds_data()
{
    QTest::addColumn<quint64>("startIndex");
    QTest::addColumn<quint64>("endIndex");
    QTest::addColumn<quint64>("length");
    QTest::addColumn<quint64>("duration");
    QTest::newRow("one second") << quint64(100) << quint64(44199) << quint64(44100)
                                << quint64(1000000);
    QTest::newRow("block of 1024")
        << quint64(1024) << quint64(2047) << quint64(1024) << quint64(23219);  // 23219.95
    QTest::newRow("one sample") << quint64(5) << quint64(5) << quint64(1) << quint64(22);  // 22.68
    QTest::newRow("far away") << Q_UINT64_C(44100000000) << Q_UINT64_C(44100044099)
                              << quint64(44100) << quint64(1000000);
}

void tst_Pulse::lengthAndDuration_countBothEnds()
{
    QFETCH(quint64, startIndex);
    QFETCH(quint64, endIndex);
    const Pulse pulse = makePulse(startIndex, endIndex);
    QTEST(pulse.getLength(), "length");
    QTEST(pulse.getDuration(), "duration");
}

void tst_Pulse::times_divideBeforeTheyAdd()
{
    // 1024 samples are 23219.95 µs, 2047 are 46417.23 µs.
    const Pulse pulse = makePulse(1024, 2047);
    QCOMPARE(pulse.getStartTime(), quint64(1023219));
    QCOMPARE(pulse.getEndTime(), quint64(1046417));
    // An hour of samples does not overflow.
    QCOMPARE(makePulse(158760000, 158760000).getStartTime(), Q_UINT64_C(3601000000));
}

void tst_Pulse::times_are0_withoutARecord()
{
    Pulse pulse = makePulse(1, 2);
    PulseData* const pData = std::exchange(pulse.m_pData, nullptr);
    QCOMPARE(pulse.getStartTime(), quint64(0));
    QCOMPARE(pulse.getEndTime(), quint64(0));
    const Pulse copy(pulse);
    QVERIFY(!copy.m_pData);
    pulse.m_pData = pData;
}

void tst_Pulse::elapsedTime_runsFromTheStartAndFromTheEnd_data()
{
    QTest::addColumn<quint64>("now");
    QTest::addColumn<quint64>("sinceStart");
    QTest::addColumn<quint64>("sinceEnd");
    // The pulse runs from 2000000 to 3000000 µs.
    QTest::newRow("before") << quint64(1999999) << quint64(0) << quint64(0);
    QTest::newRow("at the start") << quint64(2000000) << quint64(0) << quint64(0);
    QTest::newRow("inside") << quint64(2500000) << quint64(500000) << quint64(0);
    QTest::newRow("at the end") << quint64(3000000) << quint64(1000000) << quint64(0);
    QTest::newRow("after") << quint64(3000001) << quint64(1000001) << quint64(1);
}

void tst_Pulse::elapsedTime_runsFromTheStartAndFromTheEnd()
{
    QFETCH(quint64, now);
    const HighResolutionTimerOverride clock(now);
    const Pulse pulse = makePulse(44100, 88200);
    QTEST(pulse.getElapsedTimeFromStart(), "sinceStart");
    QTEST(pulse.getElapsedTimeFromEnd(), "sinceEnd");
}

void tst_Pulse::elapsedTime_countsFromTheEpoch_withoutARecord()
{
    const HighResolutionTimerOverride clock(777);
    Pulse pulse = makePulse(1, 2);
    PulseData* const pData = std::exchange(pulse.m_pData, nullptr);
    QCOMPARE(pulse.getElapsedTimeFromStart(), quint64(777));
    QCOMPARE(pulse.getElapsedTimeFromEnd(), quint64(777));
    pulse.m_pData = pData;
}

void tst_Pulse::copies_shareOneRecord()
{
    Pulse pulse = makePulse(100, 199);
    Pulse copy(pulse);
    QCOMPARE(copy.m_pData, pulse.m_pData);
    copy.setType(eBeat);
    pulse.setMaximalValue(5000);
    copy.setEndIndex(299);
    QCOMPARE(pulse.getType(), eBeat);
    QCOMPARE(copy.getMaximalValue(), qint16(5000));
    QCOMPARE(pulse.getLength(), quint64(200));
}

void tst_Pulse::assignedPulses_shareOneRecord()
{
    const Pulse pulse = makePulse(100, 199);
    Pulse other = makePulse(300, 399);
    Pulse* const pResult = &(other = pulse);
    QCOMPARE(pResult, &other);
    QCOMPARE(other.m_pData, pulse.m_pData);
    other.setType(eBeat);
    QCOMPARE(pulse.getType(), eBeat);
    other = pulse;  // both share the record already
    QCOMPARE(other.getStartIndex(), quint64(100));
}

void tst_Pulse::assignment_leavesTheOldRecordToItsOtherHandles()
{
    Pulse pulse = makePulse(100, 199);
    const Pulse kept(pulse);
    pulse = makePulse(300, 399);
    QCOMPARE(kept.getStartIndex(), quint64(100));
    QCOMPARE(pulse.getStartIndex(), quint64(300));
    pulse.setType(eBeat);
    QCOMPARE(kept.getType(), ePulse);
}

void tst_Pulse::assignment_toItself_doesNothing()
{
    Pulse pulse = makePulse(100, 199);
    Pulse& same = pulse;
    Pulse* const pResult = &(pulse = same);
    QCOMPARE(pResult, &pulse);
    QCOMPARE(pulse.getStartIndex(), quint64(100));
}

void tst_Pulse::record_livesAsLongAsItsLastHandle()
{
    auto* pFirst = new Pulse(makePulse(100, 199));
    auto* pSecond = new Pulse(*pFirst);
    delete pFirst;
    const Pulse third(*pSecond);
    delete pSecond;
    QCOMPARE(third.getStartIndex(), quint64(100));
    QCOMPARE(third.getMaximalValue(), qint16(7));
}

void tst_Pulse::setEndIndex_refusesLessThanTheStart()
{
    Pulse pulse = makePulse(100, 199);
    QVERIFY(!pulse.setEndIndex(99));
    QCOMPARE(pulse.getEndIndex(), quint64(199));
    QVERIFY(pulse.setEndIndex(100));
    QCOMPARE(pulse.getEndIndex(), quint64(100));
    QVERIFY(pulse.setEndIndex(500));
    QCOMPARE(pulse.getLength(), quint64(401));
}

void tst_Pulse::setLength_refuses0()
{
    Pulse pulse = makePulse(100, 199);
    QVERIFY(!pulse.setLength(0));
    QCOMPARE(pulse.getEndIndex(), quint64(199));
    QVERIFY(pulse.setLength(1));
    QCOMPARE(pulse.getEndIndex(), quint64(100));
    QVERIFY(pulse.setLength(1024));
    QCOMPARE(pulse.getEndIndex(), quint64(1123));
    QCOMPARE(pulse.getLength(), quint64(1024));
}

void tst_Pulse::setMaximalValue_onlyRaises()
{
    Pulse pulse = makePulse(100, 199);
    QVERIFY(!pulse.setMaximalValue(7));
    QVERIFY(!pulse.setMaximalValue(-5));
    QCOMPARE(pulse.getMaximalValue(), qint16(7));
    QVERIFY(pulse.setMaximalValue(8));
    QCOMPARE(pulse.getMaximalValue(), qint16(8));
}

void tst_Pulse::setType_isAlwaysStored()
{
    Pulse pulse = makePulse(100, 199);
    for (const ePulseType type : {eBeat, eBeat, eVirtualBeat, ePulse}) {
        QVERIFY(pulse.setType(type));
        QCOMPARE(pulse.getType(), type);
    }
}

void tst_Pulse::order_isByStartThenByEnd_data()
{
    QTest::addColumn<quint64>("startIndex");
    QTest::addColumn<quint64>("endIndex");
    QTest::addColumn<int>("order");  // of the pulse 100..200 against it
    QTest::newRow("equal") << quint64(100) << quint64(200) << 0;
    QTest::newRow("starts later") << quint64(101) << quint64(150) << -1;
    QTest::newRow("starts earlier") << quint64(99) << quint64(999) << 1;
    QTest::newRow("ends later") << quint64(100) << quint64(201) << -1;
    QTest::newRow("ends earlier") << quint64(100) << quint64(199) << 1;
    QTest::newRow("unsigned") << ~quint64(0) << ~quint64(0) << -1;
}

void tst_Pulse::order_isByStartThenByEnd()
{
    QFETCH(quint64, startIndex);
    QFETCH(quint64, endIndex);
    QFETCH(int, order);
    const Pulse pulse = makePulse(100, 200);
    const Pulse other = Pulse(9, startIndex, endIndex, 8000, 1, 2, 30000, eBeat);
    QCOMPARE(pulse.CompareTo(other), order);
    QCOMPARE(other.CompareTo(pulse), -order);
    QCOMPARE(pulse < other, order < 0);
    QCOMPARE(pulse == other, order == 0);
}

AA_TEST(tst_Pulse, NoApplication)
#include "tst_Pulse.moc"
