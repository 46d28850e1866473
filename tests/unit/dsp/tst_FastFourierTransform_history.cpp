// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>

/// The history of maxima, which normalises the amplitudes.
class tst_FastFourierTransform_history : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reference_isGreatestOfHistory_data();
    void reference_isGreatestOfHistory();
    void reference_isZero_whenHistoryIsEmpty();
    void array_staysWhileSizeStays();
    void slots_areWrittenInTurn();
    void singleSlot_isFullAtOnce();
    void quietBlock_staysFarBelowOne_withoutHistorySize();
    void quietBlock_returnsToOne_whenLoudPeakIsOverwritten();
    void history_survivesOtherLengths();
    void setSize_isTrueOnlyWhenItChanges_andRestarts();
    void setSize_allocatesNothing();
    void setSizeFromDuration_appliesTheFormula_data();
    void setSizeFromDuration_appliesTheFormula();
    void setSizeFromDuration_isFalse_forALengthOfZero();
    void setSizeFromDuration_isTrueOnlyWhenItChanges();
};

void tst_FastFourierTransform_history::reference_isGreatestOfHistory_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QVector<double>>("peaks");
    QTest::addColumn<QVector<double>>("references");
    using List = QVector<double>;
    QTest::newRow("0 never decays") << 0 << List{5, 3, 8, 1, 8, 2} << List{5, 5, 8, 8, 8, 8};
    QTest::newRow("0 from negative") << 0 << List{-5, -7, -1} << List{-5, -5, -1};
    QTest::newRow("1 is the last") << 1 << List{5, 3, 8, 1} << List{5, 3, 8, 1};
    QTest::newRow("2") << 2 << List{5, 3, 1, 2, 9, 0, 0} << List{5, 5, 3, 2, 9, 9, 0};
    QTest::newRow("3") << 3 << List{9, 1, 2, 1, 1, 1, 4} << List{9, 9, 9, 2, 2, 1, 4};
    QTest::newRow("3 negative") << 3 << List{-9, -1, -2, -3, -4} << List{-9, -1, -1, -1, -2};
    QTest::newRow("100") << 100 << List{1, 7, 2, 3} << List{1, 7, 7, 7};
}

void tst_FastFourierTransform_history::reference_isGreatestOfHistory()
{
    QFETCH(int, size);
    QFETCH(QVector<double>, peaks);
    QFETCH(QVector<double>, references);
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(size_t(size));
    for (int i = 0; i < peaks.size(); ++i) {
        QVERIFY(fft._setMaximalAmplitude(peaks[i]));
        QVERIFY2(fft._getMaximalAmplitude() == references[i], qPrintable(QString::number(i)));
    }
}

void tst_FastFourierTransform_history::reference_isZero_whenHistoryIsEmpty()
{
    FastFourierTransform fft;
    QVERIFY(fft._getMaximalAmplitude() == 0.0);
    fft.setLastMaximalAmplitudesSize(3);
    QVERIFY(fft._getMaximalAmplitude() == 0.0);
    fft._setMaximalAmplitude(4.0);
    fft.setLastMaximalAmplitudesSize(4);
    QVERIFY(fft._getMaximalAmplitude() == 0.0);
}

void tst_FastFourierTransform_history::array_staysWhileSizeStays()
{
    for (size_t size : {0U, 1U, 3U}) {
        FastFourierTransform fft;
        fft.setLastMaximalAmplitudesSize(size);
        fft._setMaximalAmplitude(1.0);
        const double* pMaximums = fft.m_pMaximums;
        for (int i = 0; i < 10; ++i)
            fft._setMaximalAmplitude(1.0);
        QVERIFY(fft.m_pMaximums == pMaximums);
    }
}

void tst_FastFourierTransform_history::slots_areWrittenInTurn()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(3);
    const size_t positions[] = {1, 2, 0, 1, 2, 0, 1};
    for (size_t i = 0; i < 7; ++i) {
        fft._setMaximalAmplitude(static_cast<double>(i));
        QCOMPARE(fft.m_historyPosition, positions[i]);
        QCOMPARE(fft.m_isHistoryFull, i >= 2);
    }
    QVERIFY(fft.m_pMaximums[0] == 6.0);
    QVERIFY(fft.m_pMaximums[1] == 4.0);
    QVERIFY(fft.m_pMaximums[2] == 5.0);
}

void tst_FastFourierTransform_history::singleSlot_isFullAtOnce()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(1);
    for (double peak : {3.0, 2.0}) {
        fft._setMaximalAmplitude(peak);
        QVERIFY(fft.m_isHistoryFull);
        QCOMPARE(fft.m_historyPosition, size_t(0));
    }
    FastFourierTransform unlimited;
    unlimited._setMaximalAmplitude(3.0);
    unlimited._setMaximalAmplitude(2.0);
    QVERIFY(!unlimited.m_isHistoryFull);
    QCOMPARE(unlimited.m_historyPosition, size_t(0));
}

void tst_FastFourierTransform_history::quietBlock_staysFarBelowOne_withoutHistorySize()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 100.0));
    fft.getAmplitudes();
    for (int i = 0; i < 50; ++i) {
        loadSpectrum(fft, Values(8, 1.0));
        QVERIFY(fft.getAmplitudes()[0] == 1.0 / 10000.0);
    }
}

void tst_FastFourierTransform_history::quietBlock_returnsToOne_whenLoudPeakIsOverwritten()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(3);
    loadSpectrum(fft, Values(8, 100.0));
    fft.getAmplitudes();
    for (double expected : {1.0 / 10000.0, 1.0 / 10000.0, 1.0, 1.0}) {
        loadSpectrum(fft, Values(8, 1.0));
        QVERIFY(fft.getAmplitudes()[0] == expected);
    }
}

void tst_FastFourierTransform_history::history_survivesOtherLengths()
{
    FastFourierTransform fft;
    loadSpectrum(fft, Values(8, 4.0));
    fft.getAmplitudes();
    loadSpectrum(fft, Values(16, 2.0));
    QVERIFY(fft.getAmplitudes()[0] == 0.25);
    loadSpectrum(fft, Values(16, 2.0));
    fft.setLastMaximalAmplitudesSize(2);
    QVERIFY(fft.getAmplitudes()[0] == 1.0);
}

void tst_FastFourierTransform_history::setSize_isTrueOnlyWhenItChanges_andRestarts()
{
    FastFourierTransform fft;
    QVERIFY(!fft.setLastMaximalAmplitudesSize(0));
    QVERIFY(fft.setLastMaximalAmplitudesSize(3));
    for (double peak : {5.0, 6.0, 7.0, 8.0})
        fft._setMaximalAmplitude(peak);

    QVERIFY(!fft.setLastMaximalAmplitudesSize(3));
    QCOMPARE(fft.m_historyPosition, size_t(1));
    QVERIFY(fft.m_isHistoryFull);
    QVERIFY(fft._getMaximalAmplitude() == 8.0);

    QVERIFY(fft.setLastMaximalAmplitudesSize(5));
    QVERIFY(!fft.m_pMaximums);
    QCOMPARE(fft.m_historyPosition, size_t(0));
    QCOMPARE(fft.m_historySize, size_t(5));
    QVERIFY(!fft.m_isHistoryFull);
    fft._setMaximalAmplitude(1.0);
    QVERIFY(fft._getMaximalAmplitude() == 1.0);
    QVERIFY(fft.setLastMaximalAmplitudesSize(0));
    QCOMPARE(fft.m_historySize, size_t(0));
}

void tst_FastFourierTransform_history::setSize_allocatesNothing()
{
    FastFourierTransform fft;
    QVERIFY(fft.setLastMaximalAmplitudesSize(std::numeric_limits<size_t>::max()));
    QVERIFY(!fft.m_pMaximums);
    QVERIFY(fft._getMaximalAmplitude() == 0.0);
    QVERIFY(fft.setLastMaximalAmplitudesSize(2));
    fft._setMaximalAmplitude(3.0);
    QVERIFY(fft._getMaximalAmplitude() == 3.0);
}

void tst_FastFourierTransform_history::setSizeFromDuration_appliesTheFormula_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("duration");
    QTest::addColumn<quint64>("blockLength");
    QTest::addColumn<quint64>("size");
    const auto row =
        [](const char* pName, int rate, double duration, quint64 length, quint64 size) {
            QTest::newRow(pName) << rate << duration << length << size;
        };
    row("86.13", 44100, 1.0, 1024, 86);
    row("padded block", 44100, 1.0, 600, 86);
    row("next length", 44100, 1.0, 1025, 43);
    row("half rounds up", 1024, 2.5, 2048, 3);
    row("below half", 1024, 2.499, 2048, 2);
    row("block of 2", 44100, 1.0, 2, 44100);
    row("block of 3", 44100, 1.0, 3, 22050);
    row("block of 1 has a divisor of 2^63", 44100, 1.0, 1, 0);
    row("block of 1, even then", std::numeric_limits<int>::max(), 1e11, 1, 23);
    row("negative duration", 44100, -1.0, 1024, 0);
    row("negative rate", -44100, 1.0, 1024, 0);
    row("both negative", -44100, -1.0, 1024, 86);
    row("no number", 44100, std::numeric_limits<double>::quiet_NaN(), 1024, 0);
    row("infinite", 44100, std::numeric_limits<double>::infinity(), 1024, 0);
    row("greatest int", 1, 2147483647.0, 2, 2147483647);
    row("above the int range", 1, 2147483647.5, 2, 0);
    row("greatest block", 44100, 1.0, std::numeric_limits<quint64>::max(), 0);
}

void tst_FastFourierTransform_history::setSizeFromDuration_appliesTheFormula()
{
    QFETCH(int, rate);
    QFETCH(double, duration);
    QFETCH(quint64, blockLength);
    QFETCH(quint64, size);
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(12345);
    QVERIFY(fft.setLastMaximalAmplitudesSize(rate, duration, blockLength));
    QCOMPARE(quint64(fft.m_historySize), size);
}

void tst_FastFourierTransform_history::setSizeFromDuration_isFalse_forALengthOfZero()
{
    FastFourierTransform fft;
    fft.setLastMaximalAmplitudesSize(7);
    fft._setMaximalAmplitude(2.0);
    QVERIFY(!fft.setLastMaximalAmplitudesSize(44100, 1.0, 0));
    QCOMPARE(fft.m_historySize, size_t(7));
    QVERIFY(fft._getMaximalAmplitude() == 2.0);
}

void tst_FastFourierTransform_history::setSizeFromDuration_isTrueOnlyWhenItChanges()
{
    FastFourierTransform fft;
    QVERIFY(fft.setLastMaximalAmplitudesSize(44100, 1.0, 1024));
    fft._setMaximalAmplitude(2.0);
    QVERIFY(!fft.setLastMaximalAmplitudesSize(44100, 1.0, 1024));
    QVERIFY(!fft.setLastMaximalAmplitudesSize(86));
    QVERIFY(fft._getMaximalAmplitude() == 2.0);
    QVERIFY(fft.setLastMaximalAmplitudesSize(44100, 2.0, 1024));
    QCOMPARE(fft.m_historySize, size_t(172));
    QVERIFY(!fft.m_pMaximums);
}

AA_TEST(tst_FastFourierTransform_history, NoApplication)

#include "tst_FastFourierTransform_history.moc"
