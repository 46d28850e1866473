// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "SpectrumTools.h"

#include <QtTest>

#include <support/AllocationGuard.h>
#include <support/TestClass.h>

class tst_FastFourierTransform_allocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void block_allocatesNothing_whileLengthStays_data();
    void block_allocatesNothing_whileLengthStays();
    void block_allocates_whenLengthChanges();
};

static void process(FastFourierTransform& fft, const waves::Samples& block)
{
    short* pSamples = nullptr;
    size_t count = 0;
    FrequencyBandAmplitude* pBands = nullptr;
    fft.Compute(block.data(), block.size());
    fft.getAmplitudes();
    fft.BandPassFilter(50, 2000, 44100);
    fft.FindMaximalAmplitudes(5, 44100, pBands, 0.0);
    fft.ComputeInverse(pSamples, count);
}

void tst_FastFourierTransform_allocations::block_allocatesNothing_whileLengthStays_data()
{
    QTest::addColumn<int>("count");
    for (int count : {16, 100, 1024, 66150})
        QTest::addRow("%d", count) << count;
}

void tst_FastFourierTransform_allocations::block_allocatesNothing_whileLengthStays()
{
    QFETCH(int, count);
    const waves::Samples block = waves::sine(size_t(count), 44100, 440.0, 20000.0);
    FastFourierTransform fft;
    process(fft, block);
    size_t allocations = 0;
    {
        const AllocationGuard guard;
        process(fft, block);
        process(fft, block);
        allocations = AllocationGuard::getCount();
    }
    QCOMPARE(allocations, size_t(0));
}

void tst_FastFourierTransform_allocations::block_allocates_whenLengthChanges()
{
    const waves::Samples block = waves::sine(1024, 44100, 440.0, 20000.0);
    FastFourierTransform fft;
    process(fft, block);
    const waves::Samples longer = waves::sine(1025, 44100, 440.0, 20000.0);
    size_t allocations = 0;
    {
        const AllocationGuard guard;
        process(fft, longer);
        allocations = AllocationGuard::getCount();
    }
    // Spectrum, scratch and output; the amplitudes.
    QCOMPARE(allocations, size_t(6));
}

AA_TEST(tst_FastFourierTransform_allocations, NoApplication)

#include "tst_FastFourierTransform_allocations.moc"
