// SPDX-License-Identifier: MIT
#include "model/Action.h"
#include "model/Twins.h"

#include <QtTest>

#include <algorithm>
#include <support/TestClass.h>
#include <support/Waves.h>

Q_DECLARE_METATYPE(model::Reaction)

using model::Action;
using waves::Samples;

namespace {

constexpr int kTwinRate = 8000;
constexpr std::size_t kTwinBatch = 300;

struct NamedSignal
{
    const char* pName;
    SignalKind kind;
};

constexpr NamedSignal allSignals[] = {
    {"OnAmplitudesComputed", SignalKind::AmplitudesComputed},
    {"OnAnalysisStarted", SignalKind::AnalysisStarted},
    {"OnAnalysisStopped", SignalKind::AnalysisStopped},
    {"OnAudioSamplesAnalyzed", SignalKind::AudioSamplesAnalyzed},
    {"OnBeat", SignalKind::Beat},
    {"OnBPMChanged", SignalKind::BPMChanged},
    {"OnPulseDetected", SignalKind::PulseDetected},
};

model::Settings makeSettings()
{
    model::Settings settings;
    settings.averageDuration = 0.5;
    settings.stopDuration = 0.5;
    settings.bpmDuration = 4;
    return settings;
}

/// Kicks, noise, a pause that is long enough for virtual beats, and kicks again.
Samples makeTwinTrack()
{
    waves::Random random(3);
    Samples track = waves::kickTrack(4, kTwinRate, 125);
    waves::append(track, waves::noise(kTwinRate / 4, 20000, random));
    waves::append(track, waves::silence(kTwinRate + kTwinRate / 2));
    waves::append(track, waves::kickTrack(1.5, kTwinRate, 150));
    return track;
}

/// The same run of the library and the model, in which both answer signals.
QString runTwins(const model::Reaction& reaction, const Samples& track)
{
    model::Twins twins(makeSettings(), kTwinRate);
    twins.react(reaction);
    twins.apply({Action::Kind::Start, 0, {}});
    QString difference;
    for (std::size_t at = 0; at < track.size() && difference.isEmpty(); at += kTwinBatch) {
        const auto first = track.begin() + static_cast<std::ptrdiff_t>(at);
        const std::size_t count = std::min(kTwinBatch, track.size() - at);
        twins.feed(Samples(first, first + static_cast<std::ptrdiff_t>(count)));
        difference = twins.compare();
    }
    twins.apply({Action::Kind::Stop, 0, {}});
    twins.apply({Action::Kind::Start, 0, {}});
    return difference + twins.compareDeeply();
}

}  // namespace

/// Every host action inside every signal: the analyzer ends as the plain model does.
class tst_ReentrancyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void library_equalsTheModel_whenAReceiverActs_data();
    void library_equalsTheModel_whenAReceiverActs();
};

void tst_ReentrancyModel::library_equalsTheModel_whenAReceiverActs_data()
{
    QTest::addColumn<model::Reaction>("reaction");
    for (const NamedSignal& signal : allSignals) {
        for (const model::NamedAction& action : model::allActions) {
            model::Reaction reaction = {signal.kind, 1, {action.kind, action.value, {}}};
            QTest::addRow("%s in the first %s", action.pName, signal.pName) << reaction;
            reaction.occurrence = 7;
            QTest::addRow("%s in a later %s", action.pName, signal.pName) << reaction;
            reaction.occurrence = model::Reaction::every;
            QTest::addRow("%s in every %s", action.pName, signal.pName) << reaction;
        }
    }
}

void tst_ReentrancyModel::library_equalsTheModel_whenAReceiverActs()
{
    static const Samples track = makeTwinTrack();
    QFETCH(model::Reaction, reaction);
    const QString difference = runTwins(reaction, track);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

AA_TEST(tst_ReentrancyModel, QCoreApplication)
#include "tst_ReentrancyModel.moc"
