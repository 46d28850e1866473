// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/detail/WindowedSpectrum.h>

#include <QtTest>

#include <cmath>
#include <complex>
#include <support/TestClass.h>

namespace {

constexpr double kTwoPi = 6.283185307179586;

std::vector<qint16> sine(std::size_t pCount, double pCycles, double pPeak)
{
    std::vector<qint16> samples(pCount);
    for (std::size_t i = 0; i < pCount; ++i)
        samples[i] =
            qint16(std::lround(pPeak * std::sin(kTwoPi * pCycles * double(i) / double(pCount))));
    return samples;
}

/// By the definition: 4 / n times the magnitude of the windowed samples, of full scale 1.
double slowMagnitude(const std::vector<qint16>& pSamples, std::size_t pBin, std::size_t pLength)
{
    std::complex<double> sum;
    const auto n = double(pSamples.size());
    for (std::size_t i = 0; i < pSamples.size(); ++i) {
        const double window = 0.5 - 0.5 * std::cos(kTwoPi * double(i) / n);
        sum += window * pSamples[i] / 32768.0 *
               std::polar(1.0, kTwoPi * double(i * pBin % pLength) / double(pLength));
    }
    return 4.0 / n * std::abs(sum);
}

}  // namespace

class tst_WindowedSpectrum : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sine_isOneAtItsBin_andHalfBesideIt();
    void magnitudes_areThoseOfTheDefinition_data();
    void magnitudes_areThoseOfTheDefinition();
    void silence_isZero();
};

// The Hann window's own spectrum: 1, with a half on each side.
void tst_WindowedSpectrum::sine_isOneAtItsBin_andHalfBesideIt()
{
    detail::WindowedSpectrum spectrum(2048, 11, 743);
    spectrum.Compute(sine(2048, 100.0, 32767.0).data());
    const std::vector<float>& magnitudes = spectrum.getMagnitudes();
    QVERIFY(std::fabs(magnitudes[100] - 1.0F) < 1e-4F);
    QVERIFY(std::fabs(magnitudes[99] - 0.5F) < 1e-4F);
    QVERIFY(std::fabs(magnitudes[101] - 0.5F) < 1e-4F);
    QVERIFY(magnitudes[102] < 1e-4F);
    QVERIFY(magnitudes[0] < 1e-4F);
}

void tst_WindowedSpectrum::magnitudes_areThoseOfTheDefinition_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("bits");
    QTest::newRow("full") << 512 << 9;
    QTest::newRow("padded") << 372 << 9;
    QTest::newRow("odd") << 511 << 9;
    QTest::newRow("smallest") << 64 << 6;
}

void tst_WindowedSpectrum::magnitudes_areThoseOfTheDefinition()
{
    QFETCH(int, window);
    QFETCH(int, bits);
    std::vector<qint16> samples(std::size_t(window), qint16(0));
    quint32 state = 7;
    for (qint16& sample : samples) {
        state = state * 1664525U + 1013904223U;
        sample = qint16(state >> 16);
    }
    const std::size_t length = std::size_t(1) << bits;
    detail::WindowedSpectrum spectrum(samples.size(), std::size_t(bits), length / 2);
    spectrum.Compute(samples.data());
    for (std::size_t bin = 0; bin < length / 2; ++bin) {
        const double expected = slowMagnitude(samples, bin, length);
        QVERIFY(std::fabs(double(spectrum.getMagnitudes()[bin]) - expected) < 1e-6);
    }
}

void tst_WindowedSpectrum::silence_isZero()
{
    detail::WindowedSpectrum spectrum(512, 9, 256);
    spectrum.Compute(std::vector<qint16>(512).data());
    for (const float magnitude : spectrum.getMagnitudes())
        QCOMPARE(magnitude, 0.0F);
}

AA_TEST(tst_WindowedSpectrum, NoApplication)
#include "tst_WindowedSpectrum.moc"
