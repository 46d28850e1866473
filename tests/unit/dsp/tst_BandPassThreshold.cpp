// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/BandPassThreshold.h>
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include "StopSignals.h"

#include <support/TestClass.h>

using namespace stops;

class tst_BandPassThreshold : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answer_equalsTransform_forRandomSignals();
    void answer_equalsTransform_whenPeakSitsOnThreshold_data();
    void answer_equalsTransform_whenPeakSitsOnThreshold();
    void answer_equalsTransform_forWhatIsNotMadeForIt_data();
    void answer_equalsTransform_forWhatIsNotMadeForIt();
    void answer_isNotAbove_whenOnlyNegativeExcursionsExceed_isIntended();
    void answer_equalsTransform_whenFilterOvershoots16Bits();
    void filteredSample_isWithinBound_everywhere();
    void peak_betweenPoints_isFound();
    void twiddles_areWithinTheirBound();
    void energy_provesFaintNoise();
    void peaks_proveLoudMusic();
    void sizes_mayChangeFromCallToCall();
};

void tst_BandPassThreshold::answer_equalsTransform_forRandomSignals()
{
    Random random(seed());
    const int rates[] = {16000, 22050, 44100, 48000};
    for (int i = 0; i < 80; ++i) {
        const int rate = rates[random.below(4)];
        const auto count = static_cast<std::size_t>(rate * (0.3 + random.uniform()));
        const Samples samples = anySignal(random, rate, count);
        const Question question{50, 2000, rate, static_cast<qint16>(random.between(0, 32767))};
        BandPassThreshold decision;
        FastFourierTransform transform;
        const bool expected =
            BandPassThreshold::RisesAboveByTransform(samples.data(), count, question, transform);
        QCOMPARE(decision.RisesAbove(samples.data(), count, question, transform), expected);
    }
}

void tst_BandPassThreshold::answer_equalsTransform_whenPeakSitsOnThreshold_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("amplitude");
    for (int rate : {16000, 44100, 48000})
        for (double amplitude : {300.0, 3000.0, 12000.0, 30000.0})
            QTest::addRow("%d Hz, %g", rate, amplitude) << rate << amplitude;
}

// The filtered peak itself is the threshold, or just beside it: within the rounding bound, where
// only the full transform may decide, and right outside.
void tst_BandPassThreshold::answer_equalsTransform_whenPeakSitsOnThreshold()
{
    QFETCH(int, rate);
    QFETCH(double, amplitude);
    const auto count = static_cast<std::size_t>(rate);
    BandPassThreshold decision;
    FastFourierTransform transform;
    for (const Samples& samples :
         {waves::sine(count, rate, 440.0, amplitude), kicks(rate, count, amplitude)}) {
        const std::vector<double> values = filteredValues(samples, rate);
        const int peak = static_cast<int>(*std::max_element(values.begin(), values.end()));
        for (int offset = -40; offset <= 40; offset += offset > -4 && offset < 4 ? 1 : 4) {
            const int threshold = peak + offset;
            if (threshold < 0 || threshold > 32767)
                continue;
            const Question question{50, 2000, rate, static_cast<qint16>(threshold)};
            QCOMPARE(decision.RisesAbove(samples.data(), count, question, transform), offset < 0);
        }
    }
}

void tst_BandPassThreshold::answer_equalsTransform_forWhatIsNotMadeForIt_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("threshold");

    QTest::addRow("short block") << 1000 << 50 << 2000 << 44100 << 100;
    QTest::addRow("one sample") << 1 << 50 << 2000 << 44100 << 100;
    QTest::addRow("wide band") << 20000 << 50 << 2000 << 8000 << 100;
    QTest::addRow("band above Nyquist") << 20000 << 50 << 2000 << 90 << 100;
    QTest::addRow("no upper edge") << 20000 << 50 << 0 << 44100 << 100;
    QTest::addRow("no lower edge") << 20000 << 0 << 2000 << 44100 << 100;
    QTest::addRow("rate of 0") << 20000 << 50 << 2000 << 0 << 100;
    QTest::addRow("threshold of 0") << 20000 << 50 << 2000 << 44100 << 0;
    QTest::addRow("threshold of -1") << 20000 << 50 << 2000 << 44100 << -1;
    QTest::addRow("lowest threshold") << 20000 << 50 << 2000 << 44100 << -32768;
    QTest::addRow("highest threshold") << 20000 << 50 << 2000 << 44100 << 32767;
}

void tst_BandPassThreshold::answer_equalsTransform_forWhatIsNotMadeForIt()
{
    QFETCH(int, count);
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(int, rate);
    QFETCH(int, threshold);
    const auto size = static_cast<std::size_t>(count);
    const Question question{low, high, rate, static_cast<qint16>(threshold)};
    for (const Samples& samples : {Samples(size, 0), waves::sine(size, 44100, 300.0, 20000.0)}) {
        BandPassThreshold decision;
        FastFourierTransform transform;
        const bool expected =
            BandPassThreshold::RisesAboveByTransform(samples.data(), size, question, transform);
        QCOMPARE(decision.RisesAbove(samples.data(), size, question, transform), expected);
    }
}

// A train of negative clicks: the band-passed signal falls far below zero but rises little above
// it.
void tst_BandPassThreshold::answer_isNotAbove_whenOnlyNegativeExcursionsExceed_isIntended()
{
    constexpr int kRate = 44100;
    Samples samples(kRate, 0);
    for (std::size_t i = 4000; i < samples.size(); i += 8000)
        std::fill_n(samples.begin() + static_cast<std::ptrdiff_t>(i), 8, qint16(-32768));
    const std::vector<double> values = filteredValues(samples, kRate);
    const double highest = *std::max_element(values.begin(), values.end());
    const double lowest = *std::min_element(values.begin(), values.end());
    QVERIFY(-lowest > 2.0 * highest);
    const Question question{50, 2000, kRate, static_cast<qint16>(1.5 * highest)};
    BandPassThreshold decision;
    FastFourierTransform transform;
    QVERIFY(!decision.RisesAbove(samples.data(), samples.size(), question, transform));
}

// A full-scale square wave overshoots; beyond 32767 the sample wraps and is not above any
// threshold.
void tst_BandPassThreshold::answer_equalsTransform_whenFilterOvershoots16Bits()
{
    constexpr int kRate = 44100;
    Samples samples(kRate);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = i / 150 % 2 == 0 ? 32767 : -32768;
    const std::vector<double> values = filteredValues(samples, kRate);
    QVERIFY(*std::max_element(values.begin(), values.end()) > 33000.0);
    for (int threshold : {0, 3276, 30000, 32000, 32700, 32767}) {
        const Question question{50, 2000, kRate, static_cast<qint16>(threshold)};
        BandPassThreshold decision;
        FastFourierTransform transform;
        const bool expected = BandPassThreshold::RisesAboveByTransform(
            samples.data(), samples.size(), question, transform);
        QCOMPARE(decision.RisesAbove(samples.data(), samples.size(), question, transform),
                 expected);
    }
}

void tst_BandPassThreshold::filteredSample_isWithinBound_everywhere()
{
    Random random(seed());
    for (int rate : {16000, 44100}) {
        const auto count = static_cast<std::size_t>(rate) + 1;
        const Samples samples = anySignal(random, rate, count);
        const std::vector<double> values = filteredValues(samples, rate);
        BandPassThreshold decision;
        prepare(decision, samples, rate, 0);
        for (std::size_t i = 0; i < count; i += i < 20 || i > count - 20 ? 1 : 997) {
            const double difference = decision._FilteredSample(samples.data(), i) - values[i];
            QVERIFY(std::fabs(difference) <= errorBound(decision));
        }
    }
}

// One short bump, so that the filtered peak stands anywhere between two points of a coarse grid:
// the fine grid finds it.
void tst_BandPassThreshold::peak_betweenPoints_isFound()
{
    constexpr int kRate = 44100;
    constexpr std::size_t kCount = 66150;
    for (std::size_t shift = 0; shift < 8; ++shift) {
        Samples samples(kCount, 0);
        for (std::size_t i = 0; i < 24; ++i)
            samples[30000 + shift + i] = toSample(9000.0 * std::sin(kPi * double(i) / 24.0));
        const std::vector<double> values = filteredValues(samples, kRate);
        const double peak = *std::max_element(values.begin(), values.end());
        for (int offset : {-40, 40}) {
            const Question question{50, 2000, kRate, static_cast<qint16>(peak + offset)};
            BandPassThreshold decision;
            FastFourierTransform transform;
            QCOMPARE(decision.RisesAbove(samples.data(), kCount, question, transform), offset < 0);
        }
    }
}

void tst_BandPassThreshold::twiddles_areWithinTheirBound()
{
    for (std::size_t span = 2; span <= (std::size_t(1) << 20); span *= 2) {
        const double angle = -2.0 * kPi / static_cast<double>(span);
        const double factor = 2.0 * std::cos(angle);
        double before[] = {std::cos(angle + angle), std::sin(angle + angle)};
        double last[] = {std::cos(angle), std::sin(angle)};
        double greatest = 0.0;
        for (std::size_t j = 0; j < span / 2; ++j) {
            for (int part = 0; part < 2; ++part) {
                const double next = factor * last[part] - before[part];
                before[part] = last[part];
                last[part] = next;
            }
            const long double exact =
                2.0L * 3.141592653589793238462643L * static_cast<long double>(j) / span;
            greatest =
                std::max<double>(greatest, hypotl(last[0] - cosl(exact), last[1] - sinl(exact)));
        }
        const auto squared = static_cast<double>(span) * static_cast<double>(span);
        QVERIFY2(greatest <= squared * kUnit, qPrintable(QString::number(span)));
    }
}

void tst_BandPassThreshold::energy_provesFaintNoise()
{
    Random random(seed());
    const Samples samples = waves::noise(66150, 60, random);
    BandPassThreshold decision;
    prepare(decision, samples, 44100, 3276);
    QCOMPARE(decision._DecideByEnergy(), BandPassThreshold::Verdict::eNotAbove);
}

void tst_BandPassThreshold::peaks_proveLoudMusic()
{
    const Samples samples = kicks(44100, 66150, 25000.0);
    BandPassThreshold decision;
    prepare(decision, samples, 44100, 3276);
    QCOMPARE(decision._DecideByEnergy(), BandPassThreshold::Verdict::eOpen);
    QCOMPARE(decision._DecideByPeaks(samples.data()), BandPassThreshold::Verdict::eAbove);
}

void tst_BandPassThreshold::sizes_mayChangeFromCallToCall()
{
    BandPassThreshold decision;
    FastFourierTransform transform;
    for (std::size_t count : {66150U, 33075U, 66150U, 5000U, 24000U}) {
        for (double amplitude : {0.0, 100.0, 4000.0, 20000.0}) {
            const Samples samples = waves::sine(count, 44100, 200.0, amplitude);
            const Question question{50, 2000, 44100, 3276};
            const bool expected = BandPassThreshold::RisesAboveByTransform(
                samples.data(), count, question, transform);
            QCOMPARE(decision.RisesAbove(samples.data(), count, question, transform), expected);
        }
    }
}

AA_TEST(tst_BandPassThreshold, NoApplication)
#include "tst_BandPassThreshold.moc"
