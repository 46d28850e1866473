// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <support/TestClass.h>

/// Each filter against a rule that judges every bin on its own, over many rates, lengths and
/// bounds.
class tst_FastFourierTransform_filterTables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void highPass_followsTheRule_data();
    void highPass_followsTheRule();
    void lowPass_followsTheRule_data();
    void lowPass_followsTheRule();
    void bandPass_followsTheRule_data();
    void bandPass_followsTheRule();
};

namespace {

const int bounds[] = {
    1, 20, 43, 44, 49, 50, 100, 344, 345, 500, 1000, 2000, 2756, 4000, 8000, 11025};

void addRates()
{
    QTest::addColumn<int>("rate");
    for (int rate : {2,
                     3,
                     7,
                     98,
                     196,
                     8000,
                     11025,
                     16000,
                     22050,
                     32000,
                     44100,
                     48000,
                     88200,
                     96000,
                     176400,
                     192000})
        QTest::addRow("%d", rate) << rate;
}

/// Of a position and its mirror, the one in the lower half.
qint64 lowerOf(size_t position, size_t length)
{
    return static_cast<qint64>(std::min(position, length - 1 - position));
}

template <typename Filter, typename IsZeroed>
void compare(Filter filter, IsZeroed isZeroed)
{
    for (size_t length : {2U, 4U, 8U, 128U, 512U, 2048U}) {
        FastFourierTransform fft;
        loadSpectrum(fft, Values(length, 3.0), Values(length, -4.0));
        filter(fft);
        Values real(length);
        Values imaginary(length);
        for (size_t i = 0; i < length; ++i) {
            const bool isGone = isZeroed(lowerOf(i, length), static_cast<qint64>(length / 2));
            real[i] = isGone ? 0.0 : 3.0;
            imaginary[i] = isGone ? 0.0 : -4.0;
        }
        QCOMPARE(realParts(fft), real);
        QCOMPARE(imaginaryParts(fft), imaginary);
    }
}

}  // namespace

void tst_FastFourierTransform_filterTables::highPass_followsTheRule_data()
{
    addRates();
}

// A bin goes when its upper edge, exactly, is not above the bound.
void tst_FastFourierTransform_filterTables::highPass_followsTheRule()
{
    QFETCH(int, rate);
    const qint64 nyquist = rate / 2;
    for (int low : bounds) {
        compare([=](FastFourierTransform& fft) { fft.HighPassFilter(low, rate); },
                [=](qint64 bin, qint64 half) {
                    return low >= nyquist || (bin + 1) * nyquist <= low * half;
                });
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_FastFourierTransform_filterTables::lowPass_followsTheRule_data()
{
    addRates();
}

// A bin goes when its lower edge, exactly, is above the bound.
void tst_FastFourierTransform_filterTables::lowPass_followsTheRule()
{
    QFETCH(int, rate);
    const qint64 nyquist = rate / 2;
    for (int high : bounds) {
        compare([=](FastFourierTransform& fft) { fft.LowPassFilter(high, rate); },
                [=](qint64 bin, qint64 half) { return bin * nyquist > high * half; });
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_FastFourierTransform_filterTables::bandPass_followsTheRule_data()
{
    addRates();
}

// The same two rules in floating point, with bins per Hz as one rounded number.
void tst_FastFourierTransform_filterTables::bandPass_followsTheRule()
{
    QFETCH(int, rate);
    const int nyquist = rate / 2;
    for (int low : bounds) {
        for (int high : bounds) {
            compare([=](FastFourierTransform& fft) { fft.BandPassFilter(low, high, rate); },
                    [=](qint64 bin, qint64 half) {
                        const double perHz = double(half) / double(nyquist);
                        const bool isBelow = double(bin + 1) <= low * perHz;
                        const bool isAbove = double(bin) > std::min(nyquist, high) * perHz;
                        return low >= nyquist || isBelow || isAbove;
                    });
            if (QTest::currentTestFailed())
                return;
        }
    }
}

AA_TEST(tst_FastFourierTransform_filterTables, NoApplication)

#include "tst_FastFourierTransform_filterTables.moc"
