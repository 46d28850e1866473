// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <QAudioFormat>
#include <QtTest>

#include <support/SignalLog.h>
#include <support/TestClass.h>

class tst_SignalLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void log_holdsEverySignalInOrder();
    void pulses_areSharedCopies();
    void observer_seesEachRecord();
    void difference_namesTheFirstRecordThatDiffers();

private:
    Configuration m_configuration;
};

static QAudioFormat makeFormat()
{
    QAudioFormat format;
    format.setSampleRate(44100);
    return format;
}

void tst_SignalLog::log_holdsEverySignalInOrder()
{
    AudioAnalyzer analyzer(&m_configuration, makeFormat(), nullptr);
    SignalLog log(&analyzer);
    const double amplitudes[] = {0.25, 1.0};
    qint16 samples[] = {1, -2, 3};
    Q_EMIT analyzer.OnAnalysisStarted();
    Q_EMIT analyzer.OnAmplitudesComputed(amplitudes, 2);
    Q_EMIT analyzer.OnPulseDetected(Pulse(1000000, 10, 19, 1000, 5, 6, 7, ePulse));
    Q_EMIT analyzer.OnAudioSamplesAnalyzed(42, samples, 3);
    Q_EMIT analyzer.OnBPMChanged(120.5);
    Q_EMIT analyzer.OnBeat();
    Q_EMIT analyzer.OnAnalysisStopped();

    const SignalRecords records = log.take();
    QCOMPARE(toString(records),
             QStringLiteral("OnAnalysisStarted()\n"
                            "OnAmplitudesComputed(2 values)\n"
                            "OnPulseDetected([10..19] at 1010000..1019000 us (10000 us)"
                            " average 5 threshold 6 maximum 7 type 0)\n"
                            "OnAudioSamplesAnalyzed(42, 3 samples)\n"
                            "OnBPMChanged(120.5)\n"
                            "OnBeat()\n"
                            "OnAnalysisStopped()\n"));
    QCOMPARE(records[1].amplitudes, std::vector<double>({0.25, 1.0}));
    QCOMPARE(records[3].samples, std::vector<qint16>({1, -2, 3}));
    QCOMPARE(log.getRecords().size(), std::size_t(0));
}

void tst_SignalLog::pulses_areSharedCopies()
{
    AudioAnalyzer analyzer(&m_configuration, makeFormat(), nullptr);
    SignalLog log(&analyzer);
    Pulse pulse(0, 10, 19, 1000, 5, 6, 7, ePulse);
    Q_EMIT analyzer.OnPulseDetected(pulse);
    pulse.setType(eBeat);
    QCOMPARE(log.getRecords()[0].pulse.type, int(ePulse));
    QCOMPARE(log.getPulseRecords()[0].type, int(eBeat));
    QCOMPARE(log.count(SignalKind::PulseDetected), std::size_t(1));
    QCOMPARE(log.count(SignalKind::Beat), std::size_t(0));
}

void tst_SignalLog::observer_seesEachRecord()
{
    AudioAnalyzer analyzer(&m_configuration, makeFormat(), nullptr);
    SignalLog log(&analyzer);
    QStringList seen;
    log.setObserver([&seen](const SignalRecord& record) { seen << record.toString(); });
    Q_EMIT analyzer.OnBeat();
    Q_EMIT analyzer.OnBPMChanged(60);
    QCOMPARE(seen, QStringList({QStringLiteral("OnBeat()"), QStringLiteral("OnBPMChanged(60)")}));
}

void tst_SignalLog::difference_namesTheFirstRecordThatDiffers()
{
    SignalRecord block;
    block.kind = SignalKind::AudioSamplesAnalyzed;
    block.samples = {1, 2, 3};
    SignalRecord other = block;
    other.samples[1] = 5;
    QVERIFY(block == block);
    QVERIFY(block != other);
    QCOMPARE(describeDifference({block}, {block}), QString());
    QCOMPARE(describeDifference({block, block}, {block, other}),
             QStringLiteral("record 1 of 2 and 2\n"
                            "  both:  OnAudioSamplesAnalyzed(0, 3 samples)\n"
                            "  left:  OnAudioSamplesAnalyzed(0, 3 samples)\n"
                            "  right: OnAudioSamplesAnalyzed(0, 3 samples) entry 1: 2 and 5"));
    QCOMPARE(describeDifference({}, {block}),
             QStringLiteral("record 0 of 0 and 1\n"
                            "  left:  nothing\n"
                            "  right: OnAudioSamplesAnalyzed(0, 3 samples)"));
}

AA_TEST(tst_SignalLog, NoApplication)
#include "tst_SignalLog.moc"
