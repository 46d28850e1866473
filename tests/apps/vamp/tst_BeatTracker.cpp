// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioDownmix.h>

#include <cli/analyze/FileAnalysis.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <demo/DemoTrack.h>

#include <algorithm>
#include <apps/vamp/BeatTrackerTest.h>
#include <cmath>
#include <support/TestClass.h>
#include <thread>

using namespace vamptest;

namespace {

/// Stereo frames out of memory.
class MemorySource : public AudioSource
{
public:
    explicit MemorySource(const std::vector<float>& pFrames) : m_frames(pFrames) {}

    int getSampleRate() const override { return kRate; }
    int getChannelCount() const override { return 2; }
    quint64 getFrameCount() const override { return m_frames.size() / 2; }
    std::size_t Read(qint16* pSamples, std::size_t pCount) override
    {
        const std::size_t count = std::min(pCount, m_frames.size() / 2 - m_position);
        m_last = m_position;
        AudioDownmix::ToMono(m_frames.data() + 2 * m_position, 2, count, pSamples);
        m_position += count;
        return count;
    }
    const float* getFrames() const override { return m_frames.data() + 2 * m_last; }
    QString getError() const override { return {}; }

private:
    const std::vector<float>& m_frames;
    std::size_t m_position = 0;  ///< frames
    std::size_t m_last = 0;      ///< the same before the last Read()
};

struct Blocks
{
    std::size_t step = kStep;
    std::size_t size = kStep;
    long origin = 0;  ///< frame at which the host begins
};

void Append(Plugin::FeatureSet& pTarget, const Plugin::FeatureSet& pNew)
{
    for (const auto& [output, features] : pNew)
        pTarget[output].insert(pTarget[output].end(), features.begin(), features.end());
}

/// What a host does: cuts stereo frames into blocks, the last of which it fills up with zeros.
Plugin::FeatureSet
Run(Plugin& pPlugin, const std::vector<float>& pFrames, const Blocks& pBlocks = {})
{
    Plugin::FeatureSet features;
    const std::size_t count = pFrames.size() / 2;
    std::vector<float> left(pBlocks.size);
    std::vector<float> right(pBlocks.size);
    const float* const inputs[] = {left.data(), right.data()};
    for (std::size_t position = 0; position < count; position += pBlocks.step) {
        for (std::size_t i = 0; i < pBlocks.size; ++i) {
            const bool isInside = position + i < count;
            left[i] = isInside ? pFrames[2 * (position + i)] : 0.0F;
            right[i] = isInside ? pFrames[2 * (position + i) + 1] : 0.0F;
        }
        const long frame = pBlocks.origin + long(position);
        Append(features, pPlugin.process(inputs, RealTime::frame2RealTime(frame, kRate)));
    }
    Append(features, pPlugin.getRemainingFeatures());
    return features;
}

long FrameOf(const Plugin::Feature& pFeature)
{
    return RealTime::realTime2Frame(pFeature.timestamp, kRate);
}

/// What a host was told, and what the command line host finds, as lines of text.
QStringList Lines(Plugin::FeatureSet pFeatures, long pOrigin = 0)
{
    QStringList lines;
    for (const Plugin::Feature& beat : pFeatures[eBeats])
        lines += QStringLiteral("beat %1 %2")
                     .arg(FrameOf(beat) - pOrigin)
                     .arg(QString::fromStdString(beat.label));
    for (const Plugin::Feature& pulse : pFeatures[ePulses])
        lines += QStringLiteral("pulse %1").arg(FrameOf(pulse) - pOrigin);
    for (const Plugin::Feature& tempo : pFeatures[eTempo])
        lines += QStringLiteral("tempo %1 %2")
                     .arg(FrameOf(tempo) - pOrigin)
                     .arg(double(tempo.values.at(0)), 0, 'f', 3);
    return lines;
}

QStringList Lines(const AnalysisResult& pResult)
{
    QStringList lines;
    for (const LoggedBeat& beat : pResult.beats)
        lines += QStringLiteral("beat %1 %2")
                     .arg(beat.index)
                     .arg(beat.beatInBar > 0 ? QString::number(beat.beatInBar)
                          : beat.isVirtual   ? QStringLiteral("virtual")
                                             : QString());
    for (const double time : pResult.pulseTimes)
        lines += QStringLiteral("pulse %1").arg(std::lround(time * kRate));
    double last = 0.0;
    for (const TempoPoint& tempo : pResult.tempos)
        if (std::exchange(last, tempo.bpm) != tempo.bpm)
            lines += QStringLiteral("tempo %1 %2")
                         .arg(std::lround(tempo.time * kRate))
                         .arg(double(float(tempo.bpm)), 0, 'f', 3);
    return lines;
}

QStringList Analyze(const std::vector<float>& pFrames, const QString& pArguments = {})
{
    AnalysisOptions options;
    const QStringList words = pArguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable())
        if (words.contains(info.name))
            info.read(options, words.value(words.indexOf(info.name) + 1));
    MemorySource source(pFrames);
    FileAnalysis analysis(options, source);
    analysis.Run([](const float*, std::size_t) { return true; });
    return Lines(analysis.getLog().getResult());
}

}  // namespace

/// The Vamp plugin in a host, against the analysis of the command line host.
class tst_BeatTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void features_areThoseOfAnalyze_data();
    void features_areThoseOfAnalyze();
    void features_areTheSameInAnyBlocks_data();
    void features_areTheSameInAnyBlocks();
    void ends_areThoseOfAnalyze_data();
    void ends_areThoseOfAnalyze();
    void times_countFromTheHostsFirstBlock();
    void reset_startsAnew();
    void threads_mayChange();
    void spectrum_showsTheLoudestBin();

private:
    std::vector<float> m_track;  ///< stereo frames of the demo track
    QStringList m_lines;         ///< what the command line host finds in it
};

void tst_BeatTracker::initTestCase()
{
    DemoTrack::Options options;
    options.sampleRate = kRate;
    DemoTrack track(options);
    m_track.resize(std::size_t(track.getFrameCount()) * 2);
    QCOMPARE(track.Read(m_track.data(), std::size_t(track.getFrameCount())),
             std::size_t(track.getFrameCount()));
    m_lines = Analyze(m_track);
    QVERIFY(m_lines.size() > 300);
}

using Values = QList<QPair<QString, float>>;

void tst_BeatTracker::features_areThoseOfAnalyze_data()
{
    QTest::addColumn<QString>("before");    // options that are given as well
    QTest::addColumn<QString>("argument");  // the option under test
    QTest::addColumn<Values>("values");
    const auto add = [](const char* pBefore, const char* pArgument, const Values& pValues) {
        QTest::newRow(pArgument) << QString::fromLatin1(pBefore) << QString::fromLatin1(pArgument)
                                 << pValues;
    };
    const auto P = [](const char* pName, float pValue) {
        return qMakePair(QString::fromLatin1(pName), pValue);
    };
    add("", "--tracker profile", {P("tracker", 1)});
    add("", "--bpm 70:100", {P("minimal-bpm", 70), P("maximal-bpm", 100)});
    add("", "--profile Hardcore", {P("profile", 1)});
    add("", "--profile Slow", {P("profile", 2)});
    add("--profile Slow",
        "--bpm 60:70",
        {P("profile", 2), P("minimal-bpm", 60), P("maximal-bpm", 70)});
    add("", "--band 0:200", {P("low-frequency", 0), P("high-frequency", 200)});
    add("", "--band 40:0", {P("low-frequency", 40), P("high-frequency", 0)});
    add("", "--sensibility 1.25", {P("sensibility", 1.25F)});
    add("", "--threshold 9000", {P("threshold", 9000)});
    add("", "--fixed-bpm 120", {P("fixed-bpm", 120)});
    add("", "--tracker profile --stop-duration 0.5", {P("tracker", 1), P("stop-duration", 0.5F)});
    add("", "--stop-threshold 25000", {P("stop-threshold", 25000)});
    add("", "--average-duration 8", {P("average-duration", 8)});
    add("", "--bpm-duration 3", {P("bpm-duration", 3)});
    add("--threshold 30000", "--no-consistency", {P("threshold", 30000), P("consistency", 0)});
    add("", "--virtual-when-stopped", {P("virtual-when-stopped", 1)});
}

void tst_BeatTracker::features_areThoseOfAnalyze()
{
    QFETCH(QString, before);
    QFETCH(QString, argument);
    QFETCH(Values, values);
    const auto pPlugin = Load();
    for (const auto& [name, value] : values)
        pPlugin->setParameter(name.toStdString(), value);
    QVERIFY(pPlugin->initialise(2, kStep, kStep));
    const QStringList lines = Lines(Run(*pPlugin, m_track));
    QCOMPARE(lines, Analyze(m_track, before + QLatin1Char(' ') + argument));
    // An option that did nothing would agree as well.
    QVERIFY(lines != (before.isEmpty() ? m_lines : Analyze(m_track, before)));
}

void tst_BeatTracker::features_areTheSameInAnyBlocks_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("size");
    QTest::newRow("a pulse block") << 512 << 512;
    QTest::newRow("few frames") << 7 << 7;
    QTest::newRow("ten milliseconds") << 441 << 441;
    QTest::newRow("longer than a pulse block") << 4096 << 4096;
    QTest::newRow("overlapping") << 300 << 1000;
    QTest::newRow("a second") << 22050 << 22050;
}

void tst_BeatTracker::features_areTheSameInAnyBlocks()
{
    QFETCH(int, step);
    QFETCH(int, size);
    const auto pPlugin = Load();
    QVERIFY(pPlugin->initialise(2, std::size_t(step), std::size_t(size)));
    const Blocks blocks{std::size_t(step), std::size_t(size)};
    QCOMPARE(Lines(Run(*pPlugin, m_track, blocks)), m_lines);
}

void tst_BeatTracker::ends_areThoseOfAnalyze_data()
{
    QTest::addColumn<int>("frames");
    // A beat of the breakdown, 24.4 s, is virtual; the music is cut in small steps through it, so
    // that an end lies just before it and the padding behind it.
    for (int frames = 538000; frames < 538000 + 10336; frames += 1722)
        QTest::newRow(qPrintable(QString::number(frames))) << frames;
}

void tst_BeatTracker::ends_areThoseOfAnalyze()
{
    QFETCH(int, frames);
    const std::vector<float> part(m_track.begin(), m_track.begin() + 2 * frames);
    const auto pPlugin = Load();
    QVERIFY(pPlugin->initialise(2, 8192, 8192));
    QCOMPARE(Lines(Run(*pPlugin, part, {8192, 8192})), Analyze(part));
}

void tst_BeatTracker::times_countFromTheHostsFirstBlock()
{
    const std::vector<float> part(m_track.begin(), m_track.begin() + 2 * 10 * kRate);
    const auto pPlugin = Load();
    QVERIFY(pPlugin->initialise(2, kStep, kStep));
    constexpr long kOrigin = 12345678;
    QCOMPARE(Lines(Run(*pPlugin, part, {kStep, kStep, kOrigin}), kOrigin), Analyze(part));
}

void tst_BeatTracker::reset_startsAnew()
{
    const std::vector<float> part(m_track.begin(), m_track.begin() + 2 * 10 * kRate);
    const auto pPlugin = Load();
    QVERIFY(pPlugin->initialise(2, kStep, kStep));
    const QStringList first = Lines(Run(*pPlugin, part));
    pPlugin->reset();
    QCOMPARE(Lines(Run(*pPlugin, part)), first);
    QVERIFY(!first.isEmpty());
}

// Hosts make a plugin in one thread and run it in another.
void tst_BeatTracker::threads_mayChange()
{
    const std::vector<float> part(m_track.begin(), m_track.begin() + 2 * 10 * kRate);
    QStringList lines;
    std::unique_ptr<Plugin> pPlugin = Load();
    std::thread([&] { QVERIFY(pPlugin->initialise(2, kStep, kStep)); }).join();
    std::thread([&] { lines = Lines(Run(*pPlugin, part)); }).join();
    std::thread([&] { pPlugin.reset(); }).join();
    QCOMPARE(lines, Analyze(part));
}

// A tone of 1007.8 Hz lies in the middle of bin 23: 23.4 * 22050 / 512.
void tst_BeatTracker::spectrum_showsTheLoudestBin()
{
    std::vector<float> tone(2 * 5 * kRate);
    for (std::size_t i = 0; i < tone.size(); ++i)
        tone[i] = float(0.5 * std::sin(6.283185307179586 * 1007.8 * double(i / 2) / kRate));
    const auto pPlugin = Load();
    QVERIFY(pPlugin->initialise(2, kStep, kStep));
    const auto spectra = Run(*pPlugin, tone)[eSpectrum];
    // All blocks that begin after the first stop decision, 1.5 s, and before the end.
    QVERIFY2(spectra.size() >= 149 && spectra.size() <= 152,
             qPrintable(QString::number(spectra.size())));
    for (const Plugin::Feature& spectrum : spectra) {
        QCOMPARE(FrameOf(spectrum) % 512, 0L);
        QCOMPARE(spectrum.values.size(), std::size_t(256));
        const auto peak = std::max_element(spectrum.values.begin(), spectrum.values.end());
        QCOMPARE(std::distance(spectrum.values.begin(), peak), std::ptrdiff_t(23));
    }
}

AA_TEST(tst_BeatTracker, QCoreApplication)
#include "tst_BeatTracker.moc"
