// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/BeatDecision.h>
#include <AudioAnalyzer/analysis/detail/MeterFilter.h>

#include <QtTest>

#include <cmath>
#include <numeric>
#include <support/TestClass.h>

using detail::MeterFilter;
using detail::MeterKernel;
using detail::MeterLikelihoods;
using detail::MeterStates;

namespace {

MeterLikelihoods likelihoods(float pOnBeat, float pElsewhere)
{
    MeterLikelihoods values = {};
    for (std::size_t step = 0; step <= detail::kMeterFeels * detail::kStepsPerBar; ++step)
        values[step] = step % detail::kBinsPerBeat == 0 ? pOnBeat : pElsewhere;
    return values;
}

/// A beat every pPeriod frames, from frame pFirst on.
void hearBeats(MeterFilter& pFilter,
               detail::BeatDecision& pDecision,
               int pPeriod,
               int pFrames,
               std::vector<double>& pBeats)
{
    for (int frame = 1; frame <= pFrames; ++frame) {
        const bool isBeat = frame % pPeriod == 0;
        pFilter.Update(isBeat ? likelihoods(6.0F, 0.8F) : likelihoods(0.8F, 1.0F));
        if (const auto beat = pDecision.Update(quint64(frame), pFilter))
            pBeats.push_back(*beat);
    }
}

float bpmOf(const detail::BeatDecision& pDecision)
{
    return 6000.0F / pDecision.getPeriod();
}

}  // namespace

class tst_MeterFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kernels_giveTheSameBits();
    void prior_isOneInAll();
    void noEvidence_keepsTheTotal_nearlyOne();
    void certainPlace_movesOnByOneCell();
    void total_isTheProbabilityOfTheEvidence();
    void beats_areFoundByTheDecision_data();
    void beats_areFoundByTheDecision();
    void feel_isToldByTheSecondHalf_data();
    void feel_isToldByTheSecondHalf();
    void allow_keepsTheOtherTempiEmpty();
    void multiply_keepsThePlaceInTheBar();
    void multiply_asksForTheFeelAnew();
    void tap_putsTheBeatWhereItWas();
};

void tst_MeterFilter::kernels_giveTheSameBits()
{
    const MeterStates states;
    std::vector<float> cells(states.getSize() + 1);
    quint32 state = 99;
    for (float& cell : cells) {
        state = state * 1664525U + 1013904223U;
        cell = float(state >> 8) * 1e-9F;
    }
    MeterLikelihoods values = {};
    for (std::size_t i = 0; i <= detail::kMeterFeels * detail::kStepsPerBar; ++i)
        values[i] = 0.5F + 0.013F * float(i % 37);
    int kernels = 0;
    for (const MeterKernel* const* kernel = detail::kMeterKernels; *kernel; ++kernel) {
        if (!detail::isSupported(**kernel))
            continue;
        ++kernels;
        for (const MeterStates::Tempo& tempo : states.getTempi()) {
            std::vector<float> expected(tempo.blocks * MeterStates::kBlock);
            std::vector<float> found(expected.size());
            const float* from = &cells[tempo.offset];
            const std::uint8_t* steps = &states.getSteps()[tempo.offset];
            const float sum = detail::kMeterKernels[0]->move(
                from, steps, values, 1e-5F, tempo.blocks, expected.data());
            QCOMPARE((*kernel)->move(from, steps, values, 1e-5F, tempo.blocks, found.data()), sum);
            QVERIFY(found == expected);
        }
    }
    QVERIFY(kernels >= 1);
}

void tst_MeterFilter::prior_isOneInAll()
{
    const MeterFilter filter;
    QVERIFY(std::fabs(filter.getTotal() - 1.0F) < 1e-4F);
    const auto& masses = filter.getTempoMasses();
    const auto& tempi = filter.getStates().getTempi();
    const auto best = std::size_t(std::max_element(masses.begin(), masses.end()) - masses.begin());
    QVERIFY(std::fabs(6000.0F / tempi[best].period - 125.0F) < 1.5F);
}

// Only the slow pull to the usual tempi takes a little.
void tst_MeterFilter::noEvidence_keepsTheTotal_nearlyOne()
{
    MeterFilter filter;
    for (int frame = 0; frame < 200; ++frame) {
        const float total = filter.Update(likelihoods(1.0F, 1.0F));
        QVERIFY(total > 0.99F && total < 1.001F);
    }
}

void tst_MeterFilter::certainPlace_movesOnByOneCell()
{
    MeterFilter filter;
    std::fill(filter.m_cells.begin(), filter.m_cells.end(), 0.0F);
    const std::size_t offset = filter.getStates().getTempi()[20].offset;
    filter.m_cells[offset + 5] = 1.0F;
    filter._CollectMasses();
    filter.Update(likelihoods(1.0F, 1.0F));
    QVERIFY(std::fabs(filter.getCells(20)[6] - 1.0F) < 1e-4F);
    QVERIFY(filter.getCells(20)[5] < 1e-4F);
    QVERIFY(std::fabs(filter.getTempoMasses()[20] - 1.0F) < 1e-4F);
}

// Twice as likely everywhere is twice as likely.
void tst_MeterFilter::total_isTheProbabilityOfTheEvidence()
{
    MeterFilter filter;
    MeterFilter twice;
    const float once = filter.Update(likelihoods(1.5F, 0.9F));
    const float doubled = twice.Update(likelihoods(3.0F, 1.8F));
    QVERIFY(std::fabs(doubled / once - 2.0F) < 1e-5F);
}

void tst_MeterFilter::beats_areFoundByTheDecision_data()
{
    QTest::addColumn<int>("period");
    QTest::newRow("150 BPM") << 40;
    QTest::newRow("120 BPM") << 50;
    QTest::newRow("100 BPM") << 60;
}

void tst_MeterFilter::beats_areFoundByTheDecision()
{
    QFETCH(int, period);
    MeterFilter filter;
    detail::BeatDecision decision(filter.getStates());
    std::vector<double> beats;
    hearBeats(filter, decision, period, 1500, beats);
    QVERIFY(std::fabs(decision.getPeriod() / float(period) - 1.0F) < 0.02F);
    int counted = 0;
    for (const double beat : beats)
        if (beat > 500.0) {
            const double error = beat - std::round(beat / period) * period;
            QVERIFY2(std::fabs(error) < 2.0, qPrintable(QString::number(error)));
            ++counted;
        }
    QVERIFY(std::abs(counted - 1000 / period) <= 1);
}

void tst_MeterFilter::feel_isToldByTheSecondHalf_data()
{
    QTest::addColumn<int>("half");
    QTest::addColumn<bool>("swings");
    QTest::newRow("in the middle") << 25 << false;
    QTest::newRow("at two thirds") << 33 << true;
}

// 120 BPM, and something at each beat and in the second half of it.
void tst_MeterFilter::feel_isToldByTheSecondHalf()
{
    QFETCH(int, half);
    QFETCH(bool, swings);
    MeterFilter filter;
    const auto nearest = std::size_t(filter.getStates().findTempo(50.0F));
    QVERIFY(filter.Allow(nearest - 2, nearest + 3));
    MeterLikelihoods sound = likelihoods(4.0F, 0.8F);
    for (std::size_t step = 12; step < sound.size(); step += detail::kBinsPerBeat)
        sound[step] = 3.0F;
    for (int frame = 1; frame <= 1500; ++frame)
        filter.Update(frame % 50 == 0 || frame % 50 == half ? sound : likelihoods(0.9F, 1.0F));
    const std::size_t bar = 4 * filter.getStates().getTempi()[nearest].cells;
    const float* cells = filter.getCells(nearest);
    const float straight = std::accumulate(cells, cells + bar, 0.0F);
    const float swung = std::accumulate(cells + bar, cells + 2 * bar, 0.0F);
    QVERIFY2(swings ? swung > 10.0F * straight : straight > 10.0F * swung,
             qPrintable(QStringLiteral("%1 %2").arg(double(straight)).arg(double(swung))));
}

void tst_MeterFilter::allow_keepsTheOtherTempiEmpty()
{
    MeterFilter filter;
    QVERIFY(filter.Allow(10, 20));
    for (int frame = 0; frame < 300; ++frame)
        filter.Update(likelihoods(1.2F, 0.9F));
    const auto& masses = filter.getTempoMasses();
    for (std::size_t i = 0; i < masses.size(); ++i)
        QCOMPARE(masses[i] > 0.0F, i >= 10 && i < 20);
}

// From 120 BPM to 180 the bar of four is two thirds as long: the beat in its middle stays a beat.
void tst_MeterFilter::multiply_keepsThePlaceInTheBar()
{
    MeterFilter filter;
    const MeterStates& states = filter.getStates();
    const auto from = std::size_t(states.findTempo(50.0F));
    std::fill(filter.m_cells.begin(), filter.m_cells.end(), 0.0F);
    const MeterStates::Tempo& tempo = states.getTempi()[from];
    filter.m_cells[tempo.offset + 2 * tempo.cells] = 1.0F;
    filter._CollectMasses();
    filter.Multiply(1.5F);
    detail::BeatDecision decision(states);
    decision.Reconsider(filter);
    QVERIFY(std::fabs(bpmOf(decision) / 180.0F - 1.0F) < 0.02F);
    // The beat has just been: the next is a period of 33 frames away, or the cell's width less.
    QVERIFY(decision.getNextBeat() > 31.0 && decision.getNextBeat() < 34.0);
}

// Three beats of 180 BPM in the time of two of 120 divide otherwise.
void tst_MeterFilter::multiply_asksForTheFeelAnew()
{
    MeterFilter filter;
    const MeterStates& states = filter.getStates();
    const MeterStates::Tempo& from = states.getTempi()[std::size_t(states.findTempo(50.0F))];
    std::fill(filter.m_cells.begin(), filter.m_cells.end(), 0.0F);
    filter.m_cells[from.offset + 4 * from.cells] = 1.0F;
    filter._CollectMasses();
    filter.Multiply(1.5F);
    const auto to = std::size_t(states.findTempo(50.0F / 1.5F));
    const std::size_t bar = 4 * states.getTempi()[to].cells;
    const float* cells = filter.getCells(to);
    const float straight = std::accumulate(cells, cells + bar, 0.0F);
    const float swung = std::accumulate(cells + bar, cells + 2 * bar, 0.0F);
    QVERIFY(straight > 0.0F);
    QVERIFY(std::fabs(swung / straight - 0.15F / 0.85F) < 1e-4F);
}

void tst_MeterFilter::tap_putsTheBeatWhereItWas()
{
    MeterFilter filter;
    detail::BeatDecision decision(filter.getStates());
    std::vector<double> beats;
    hearBeats(filter, decision, 50, 1000, beats);
    filter.Tap(20.0F, 0.0F);
    decision.setLastBeat(980.0);
    decision.Reconsider(filter);
    QVERIFY2(std::fabs(decision.getNextBeat() - 1030.0) < 3.0,
             qPrintable(QString::number(decision.getNextBeat())));
}

AA_TEST(tst_MeterFilter, NoApplication)
#include "tst_MeterFilter.moc"
