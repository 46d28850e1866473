// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/api/Analysis.h>

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr double kOddNumbers[] = {0.0,
                                  -0.0,
                                  1.0,
                                  -1.0,
                                  0.05,
                                  0.5,
                                  2.0,
                                  100.0,
                                  999.0,
                                  32767.0,
                                  1e300,
                                  std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN(),
                                  std::numeric_limits<double>::denorm_min()};

/// A host that does anything, from outside and from callbacks.
class Monkey
{
public:
    explicit Monkey(quint32 pSeed) : m_random(pSeed)
    {
        const int rates[] = {8000, 11025, 22050, 44100, 48000, 192000};
        m_pAnalysis = AudioAnalysis_Create(rates[m_random.bounded(6)]);
        _Connect();
    }
    ~Monkey() { AudioAnalysis_Destroy(m_pAnalysis); }
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    /// Empty, or which rule was broken.
    QString run(int pSteps)
    {
        for (int step = 0; step < pSteps && m_fault.isEmpty(); ++step) {
            _Act();
            if (AudioAnalysis_GetSampleCount(m_pAnalysis) != m_count)
                m_fault = QStringLiteral("samples are counted wrongly");
        }
        return m_fault;
    }

    int beats = 0;
    int pulses = 0;

private:
    void _Connect()
    {
        AudioAnalysis_SetPulseCallback(
            m_pAnalysis,
            [](void* pUser, const AudioAnalysisPulse* pPulse) {
                Monkey& self = *static_cast<Monkey*>(pUser);
                ++self.pulses;
                self._CheckEvent(pPulse->index, pPulse->time);
            },
            this);
        AudioAnalysis_SetBeatCallback(
            m_pAnalysis,
            [](void* pUser, const AudioAnalysisBeat* pBeat) {
                Monkey& self = *static_cast<Monkey*>(pUser);
                ++self.beats;
                // A fixed tempo below the range puts a virtual one ahead of the audio.
                self._CheckTime(pBeat->index, pBeat->time);
                if (!pBeat->isVirtual)
                    self._CheckEvent(pBeat->index, pBeat->time);
                if (!(pBeat->accuracy > 0.0 && pBeat->accuracy <= 1.0))
                    self.m_fault = QStringLiteral("accuracy %1").arg(pBeat->accuracy);
                if (!(pBeat->bpm >= 0.0 && pBeat->bpm < 1000.0))
                    self.m_fault = QStringLiteral("tempo %1").arg(pBeat->bpm);
            },
            this);
        AudioAnalysis_SetTempoCallback(
            m_pAnalysis,
            [](void* pUser, const AudioAnalysisTempo* pTempo) {
                static_cast<Monkey*>(pUser)->_CheckEvent(pTempo->index, pTempo->time);
            },
            this);
        AudioAnalysis_SetStopCallback(
            m_pAnalysis,
            [](void* pUser, const AudioAnalysisStop* pStop) {
                Monkey& self = *static_cast<Monkey*>(pUser);
                self._CheckTime(pStop->index, pStop->time);
                // It counts from the next sample on, at the earliest.
                self._CheckEvent(pStop->index > 0 ? pStop->index - 1 : 0, {});
            },
            this);
        AudioAnalysis_SetSpectrumCallback(
            m_pAnalysis,
            [](void* pUser, const AudioAnalysisSpectrum* pSpectrum) {
                static_cast<Monkey*>(pUser)->_CheckEvent(pSpectrum->index, pSpectrum->time);
            },
            this);
    }

    // Whatever is heard lies in what was pushed; then something is tried that changes nothing else.
    void _CheckEvent(quint64 pIndex, std::optional<double> pTime)
    {
        if (pIndex >= AudioAnalysis_GetSampleCount(m_pAnalysis))
            m_fault = QStringLiteral("index %1 was not pushed").arg(pIndex);
        if (pTime)
            _CheckTime(pIndex, *pTime);
        _Meddle();
    }

    void _CheckTime(quint64 pIndex, double pTime)
    {
        if (pTime != double(pIndex) / AudioAnalysis_GetSampleRate(m_pAnalysis))
            m_fault = QStringLiteral("index %1 is not at %2 s").arg(pIndex).arg(pTime);
    }

    void _Meddle()
    {
        if (m_random.bounded(8) != 0)
            return;
        const float sample = 0.0f;
        if (AudioAnalysis_PushFloat(m_pAnalysis, &sample, 1, 1) != AudioAnalysisError_Busy ||
            AudioAnalysis_Destroy(m_pAnalysis) != AudioAnalysisError_Busy ||
            AudioAnalysis_Restart(m_pAnalysis) != AudioAnalysisError_Busy ||
            AudioAnalysis_Finish(m_pAnalysis) != AudioAnalysisError_Busy ||
            AudioAnalysis_SetTracker(m_pAnalysis, 0) != AudioAnalysisError_Busy ||
            AudioAnalysis_Tap(m_pAnalysis, 0) != AudioAnalysisError_Busy)
            m_fault = QStringLiteral("a callback could do what it must not");
        _Set();
        if (m_random.bounded(20) == 0)
            AudioAnalysis_Reset(m_pAnalysis);
    }

    void _Act()
    {
        const int action = m_random.bounded(20);
        if (action == 0)
            _Grasp();
        if (action < 14)
            _Push();
        else if (action < 17)
            _Set();
        else if (action == 17)
            AudioAnalysis_Reset(m_pAnalysis);
        else if (action == 18 && m_random.bounded(4) == 0)
            m_isFinished |= AudioAnalysis_Finish(m_pAnalysis) == AudioAnalysisError_None;
        else if (action == 19 && m_random.bounded(m_isFinished ? 1 : 6) == 0)
            _Restart();
    }

    /// A hand on the tracker, which takes any number.
    void _Grasp()
    {
        const double odd = kOddNumbers[m_random.bounded(int(std::size(kOddNumbers)))];
        AudioAnalysis_SetTracker(m_pAnalysis, m_random.bounded(2));
        AudioAnalysis_Tap(m_pAnalysis, m_random.generate());
        AudioAnalysis_SetDownbeat(m_pAnalysis, m_random.generate64());
        AudioAnalysis_ReleaseDownbeat(m_pAnalysis);
        AudioAnalysis_Multiply(m_pAnalysis, m_random.bounded(2) ? odd : 0.5);
        AudioAnalysis_SetTempoRange(m_pAnalysis, odd, 2.0 * odd);
        AudioAnalysis_SetTempoRange(m_pAnalysis, m_random.bounded(60, 120), 190.0);
    }

    void _Push()
    {
        const int channels = m_random.bounded(10) == 0 ? m_random.bounded(-2, 3) : 1;
        const std::size_t frames = m_random.bounded(20000u);
        const int level = m_random.bounded(3) == 0 ? 0 : m_random.bounded(1, 32768);
        std::vector<float> samples(frames * std::size_t(std::max(channels, 1)));
        // Noise in bursts, so that there are pulses.
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] =
                i / 6000 % 2 ? 0.0f : float(m_random.bounded(-level, level + 1)) / 32768.0f;
        const AudioAnalysisError error =
            AudioAnalysis_PushFloat(m_pAnalysis, samples.data(), frames, channels);
        const AudioAnalysisError expected = channels < 1   ? AudioAnalysisError_Range
                                            : m_isFinished ? AudioAnalysisError_Finished
                                                           : AudioAnalysisError_None;
        if (error != expected)
            m_fault = QStringLiteral("push answered %1, not %2").arg(error).arg(expected);
        if (error == AudioAnalysisError_None)
            m_count += frames;
    }

    void _Set()
    {
        const double value = kOddNumbers[m_random.bounded(int(std::size(kOddNumbers)))];
        const int setting = m_random.bounded(-1, 9);
        const AudioAnalysisError error = AudioAnalysis_Set(m_pAnalysis, setting, value);
        double minimum = 0.0;
        double maximum = 0.0;
        AudioAnalysisError expected = AudioAnalysisError_None;
        if (AudioAnalysis_GetLimits(setting, &minimum, &maximum, nullptr))
            expected = AudioAnalysisError_Unknown;
        else if (!(value >= minimum && value <= maximum))
            expected = AudioAnalysisError_Range;
        const bool isFraction = std::floor(value) != value;
        if (error != expected && !(error == AudioAnalysisError_Range && isFraction))
            m_fault = QStringLiteral("setting %1 to %2: %3").arg(setting).arg(value).arg(error);
        AudioAnalysisProfile profile = {value, value * 2.0, value, setting, setting * 3, setting};
        AudioAnalysis_SetProfile(m_pAnalysis, &profile);
        if (m_random.bounded(4) == 0)
            AudioAnalysis_SelectProfile(m_pAnalysis, "Hardcore");
    }

    void _Restart()
    {
        if (AudioAnalysis_Restart(m_pAnalysis) != AudioAnalysisError_None)
            m_fault = QStringLiteral("no restart");
        m_count = 0;
        m_isFinished = false;
    }

    QRandomGenerator m_random;
    AudioAnalysis* m_pAnalysis;
    quint64 m_count = 0;  ///< frames pushed
    bool m_isFinished = false;
    QString m_fault;
};

}  // namespace

/// Random calls: nothing crashes, and some rules always hold.
class tst_Analysis_random : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rulesHold_whateverTheHostDoes();
};

void tst_Analysis_random::rulesHold_whateverTheHostDoes()
{
    const bool isGiven = qEnvironmentVariableIsSet("AA_TEST_SEED");
    const quint32 seed = isGiven ? quint32(qEnvironmentVariableIntValue("AA_TEST_SEED"))
                                 : QRandomGenerator::system()->generate();
    qInfo("AA_TEST_SEED=%u", seed);
    int beats = 0;
    int pulses = 0;
    for (quint32 run = 0; run < 12; ++run) {
        Monkey monkey(seed + run);
        QCOMPARE(monkey.run(200), QString());
        beats += monkey.beats;
        pulses += monkey.pulses;
    }
    QVERIFY(beats > 10);
    QVERIFY(pulses > 10);
}

AA_TEST(tst_Analysis_random, QCoreApplication)
#include "tst_Analysis_random.moc"
