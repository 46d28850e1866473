// SPDX-License-Identifier: MIT
#include "AnalyzerFixture.h"
#include "AnalyzerState.h"
#include "PlayingFixture.h"

#include <QtTest>

#include <support/TestClass.h>

/// What a block tells, and when.
class tst_AudioAnalyzer_signals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signals_comeInTheirOrder_data();
    void signals_comeInTheirOrder();
    void lastPulseIndex_isSetAfterTheBeats();
    void beatLength_isPredicted_whenUnknown();
    void stoppedBlock_isReportedRaw();
    void stoppedBlock_givesVirtualBeatsWithoutVolume();
    void emptyBlock_endsAtOnce();
};

void tst_AudioAnalyzer_signals::signals_comeInTheirOrder_data()
{
    QTest::addColumn<bool>("isStarted");
    QTest::addColumn<int>("loud");
    QTest::addColumn<quint64>("index");
    QTest::addColumn<QString>("order");
    const QString pulse = QStringLiteral("Amplitudes Pulse Samples");
    QTest::newRow("no pulse") << true << 0 << quint64(0) << QStringLiteral("Amplitudes Samples");
    QTest::newRow("pulse") << true << 256 << quint64(0) << pulse;
    QTest::newRow("candidate") << true << 256 << quint64(950000) << pulse;
    QTest::newRow("end of window, no pulse, started")
        << true << 0 << quint64(1000000) << QStringLiteral("Amplitudes Pulse BPM Samples");
    QTest::newRow("end of window, no pulse, not started")
        << false << 0 << quint64(1000000) << QStringLiteral("Amplitudes BPM Samples");
    QTest::newRow("end of window, pulse inside")
        << true << 256 << quint64(1000000) << QStringLiteral("Amplitudes BPM Pulse Samples");
    QTest::newRow("end of window, pulse outside")
        << true << 256 << quint64(1000001) << QStringLiteral("Amplitudes Pulse BPM Pulse Samples");
}

void tst_AudioAnalyzer_signals::signals_comeInTheirOrder()
{
    QFETCH(bool, isStarted);
    QFETCH(int, loud);
    QFETCH(quint64, index);
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    fixture.analyzer.m_analysisStartTime = isStarted ? 1000000 : 0;
    fixture.detect(loudBlock(std::size_t(loud)), index);
    QTEST(kindsOf(fixture.log.getRecords()), "order");
    QCOMPARE(fixture.log.getRecords().back().index, index);
}

void tst_AudioAnalyzer_signals::lastPulseIndex_isSetAfterTheBeats()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(900);
    std::vector<quint64> seen;
    fixture.log.setObserver([&](const SignalRecord& record) {
        if (record.kind == SignalKind::BPMChanged || record.kind == SignalKind::PulseDetected)
            seen.push_back(fixture.analyzer.m_lastPulseIndex);
    });
    fixture.detect(loudBlock(256), 1000000);
    QCOMPARE(seen, std::vector<quint64>({0, 1000000}));
}

void tst_AudioAnalyzer_signals::beatLength_isPredicted_whenUnknown()
{
    for (const bool isStopped : {true, false}) {
        AnalyzerFixture fixture;
        fixture.analyzer.m_isStopped = isStopped;
        Samples samples = waves::silence(1024);
        fixture.analyzer.DetectPulses(samples.data(), samples.size(), 0);
        QCOMPARE(fixture.analyzer.m_beatLength, quint64(19970));
        QCOMPARE(fixture.analyzer.m_beatWindowEnd, quint64(29400));
        // A known length and its window stay.
        fixture.analyzer.m_beatLength = 5;
        fixture.analyzer.DetectPulses(samples.data(), samples.size(), 1024);
        QCOMPARE(fixture.analyzer.m_beatLength, quint64(5));
        QCOMPARE(fixture.analyzer.m_beatWindowEnd, quint64(29400));
    }
}

void tst_AudioAnalyzer_signals::stoppedBlock_isReportedRaw()
{
    PlayingFixture fixture;
    fixture.analyzer.m_isStopped = true;
    fixture.configuration.setThreshold(0);
    AnalyzerState before = stateOf(fixture.analyzer);
    waves::Random random(1);
    const Samples samples = waves::noise(1024, 32767, random);
    fixture.detect(samples, 950000);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Samples"));
    QCOMPARE(fixture.log.getRecords()[0].samples, samples);
    QCOMPARE(fixture.log.getRecords()[0].index, quint64(950000));
    QCOMPARE(stateOf(fixture.analyzer), before);
}

void tst_AudioAnalyzer_signals::stoppedBlock_givesVirtualBeatsWithoutVolume()
{
    PlayingFixture fixture;
    fixture.analyzer.m_isStopped = true;
    fixture.configuration.setThreshold(900);
    fixture.configuration.setDisplayVirtualBeatsWhenStopped(true);
    fixture.detect(loudBlock(1000, 1000), 1000000);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Pulse BPM Samples"));
    const PulseRecord pulse = fixture.log.getRecords()[0].pulse;
    QCOMPARE(pulse.startIndex, quint64(950000));
    QCOMPARE(pulse.endIndex, quint64(950999));
    QCOMPARE(pulse.averageVolume, 0);
    QCOMPARE(pulse.threshold, 0);
    QCOMPARE(pulse.maximalValue, 0);
    QCOMPARE(pulse.type, int(eVirtualBeat));
}

void tst_AudioAnalyzer_signals::emptyBlock_endsAtOnce()
{
    PlayingFixture fixture;
    fixture.configuration.setThreshold(0);
    fixture.detect(loudBlock(512), 0);
    fixture.log.take();
    AnalyzerState before = stateOf(fixture.analyzer);
    before[QStringLiteral("m_amplitudesCount")] = 0.0;  // of a transform of length 1
    Samples samples(1);
    fixture.analyzer.DetectPulses(samples.data(), 0, 2000000);
    QCOMPARE(kindsOf(fixture.log.getRecords()), QStringLiteral("Amplitudes"));
    QCOMPARE(stateOf(fixture.analyzer), before);
}

AA_TEST(tst_AudioAnalyzer_signals, QCoreApplication)
#include "tst_AudioAnalyzer_signals.moc"
