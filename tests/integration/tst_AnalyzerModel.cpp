// SPDX-License-Identifier: MIT
#include "model/Scenario.h"
#include "model/Twins.h"

#include <QtTest>

#include <cstdio>
#include <support/TestClass.h>

using model::Samples;
using model::Scenario;
using model::Twins;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int defaultCases = 12;  // the sanitizers make each one ten times as long
#else
constexpr int defaultCases = 40;
#endif
constexpr int casesForCoverage = 40;

/// AA_MODEL_SEED gives the seed of the first case, AA_MODEL_CASES the number of cases. Some hundred
/// of them take longer than QtTest lets a function run; QTEST_FUNCTION_TIMEOUT, in ms, gives more
/// time.
quint64 readNumber(const char* pName, quint64 fallback)
{
    bool isNumber = false;
    const quint64 value = qgetenv(pName).toULongLong(&isNumber);
    return isNumber ? value : fallback;
}

struct Coverage
{
    std::size_t beats = 0;
    std::size_t tempos = 0;
    std::size_t measuredTempos = 0;
    std::size_t pulses = 0;
    std::size_t virtualBeats = 0;
    std::size_t timers = 0;
    std::size_t watchResets = 0;
    std::size_t reactions = 0;

    void add(const Twins& twins)
    {
        watchResets += twins.plain.watchResets;
        reactions += twins.getReactionsCount();
        const SignalRecords& records = twins.allRecords;
        for (const SignalRecord& record : records) {
            beats += record.kind == SignalKind::Beat;
            tempos += record.kind == SignalKind::BPMChanged;
            measuredTempos += record.kind == SignalKind::BPMChanged && record.bpm > 0;
            const bool isPulse = record.kind == SignalKind::PulseDetected;
            pulses += isPulse && record.pulse.type != 2;
            virtualBeats += isPulse && record.pulse.type == 2;
            timers += record.kind == SignalKind::TimerArmed;
        }
    }
};

QString runStep(Twins& twins, const Scenario::Step& step, const Samples& batch, bool isDeep)
{
    twins.advanceClock(step.clockJump);
    for (const model::Action& action : step.actions)
        twins.apply(action);
    QString difference = step.actions.empty() ? QString() : twins.compareDeeply();
    if (difference.isEmpty()) {
        twins.feed(batch);
        difference = isDeep ? twins.compareDeeply() : twins.compare();
    }
    return difference;
}

QString runScenario(Scenario& scenario, Coverage& coverage)
{
    Twins twins(scenario.settings, scenario.sampleRate);
    for (const model::Reaction& reaction : scenario.reactions)
        twins.react(reaction);
    auto at = scenario.samples.cbegin();
    std::size_t sinceDeepComparison = 0;
    for (const Scenario::Step& step : scenario.steps) {
        const auto end = at + static_cast<std::ptrdiff_t>(step.batchSize);
        sinceDeepComparison += step.batchSize;
        const bool isDeep = sinceDeepComparison >= std::size_t(scenario.sampleRate) / 2;
        const QString difference = runStep(twins, step, Samples(at, end), isDeep);
        if (!difference.isEmpty()) {
            const auto sample = end - scenario.samples.cbegin();
            return QStringLiteral("before sample %1: ").arg(sample) + difference;
        }
        at = end;
        sinceDeepComparison = isDeep ? 0 : sinceDeepComparison;
    }
    coverage.add(twins);
    return twins.compareDeeply();
}

}  // namespace

class tst_AnalyzerModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void library_emitsWhatThePlainModelEmits_inRandomRuns();
    void steadyKicks_giveTheHandComputedTempo_inBoth();
};

void tst_AnalyzerModel::library_emitsWhatThePlainModelEmits_inRandomRuns()
{
    const quint64 firstSeed = readNumber("AA_MODEL_SEED", 20240229);
    const quint64 cases = readNumber("AA_MODEL_CASES", defaultCases);
    std::printf("AA_MODEL_SEED=%llu AA_MODEL_CASES=%llu\n", firstSeed, cases);
    Coverage coverage;
    for (quint64 seed = firstSeed; seed < firstSeed + cases; ++seed) {
        Scenario scenario(seed);
        const QString difference = runScenario(scenario, coverage);
        if (!difference.isEmpty()) {
            const QString text = QStringLiteral("AA_MODEL_SEED=%1 AA_MODEL_CASES=1 (%2)\n")
                                     .arg(seed)
                                     .arg(scenario.toString()) +
                                 QStringLiteral("library left, model right, ") + difference;
            QFAIL(qPrintable(text));
        }
    }
    std::printf("%zu pulses, %zu virtual beats, %zu tempos (%zu > 0), %zu timers, %zu beats, "
                "%zu resets by the accuracy watch, %zu reactions\n",
                coverage.pulses,
                coverage.virtualBeats,
                coverage.tempos,
                coverage.measuredTempos,
                coverage.timers,
                coverage.beats,
                coverage.watchResets,
                coverage.reactions);
    if (cases >= casesForCoverage) {
        QVERIFY(coverage.pulses > 1000 && coverage.virtualBeats > 100 && coverage.tempos > 300);
        QVERIFY(coverage.measuredTempos > 100 && coverage.timers > 100 && coverage.beats > 100);
        QVERIFY(coverage.watchResets > 10 && coverage.reactions > 10);
    }
}

/// Keeps the two from being wrong together: at 8000 Hz a block has 128 samples, and a kick of 120
/// BPM comes every 4000 samples, 31.25 blocks, so that the mean interval rounds to whole blocks
/// over time.
void tst_AnalyzerModel::steadyKicks_giveTheHandComputedTempo_inBoth()
{
    model::Settings settings;
    settings.stopDuration = 1.5;
    Twins twins(settings, 8000);
    twins.apply({model::Action::Kind::Start, 0, {}});
    const Samples track = waves::kickTrack(40, 8000, 120);
    for (std::size_t at = 0; at < track.size(); at += 800) {
        const auto first = track.cbegin() + static_cast<std::ptrdiff_t>(at);
        twins.feed(Samples(first, first + 800));
        const QString difference = twins.compareDeeply();
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
    QVERIFY(qAbs(twins.pLibrary->getCurrentBPM() - 120.0) < 1.0);
}

AA_TEST(tst_AnalyzerModel, QCoreApplication)
#include "tst_AnalyzerModel.moc"
