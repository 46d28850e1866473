// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <demo/DemoTrack.h>

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <support/TestClass.h>

namespace {

constexpr double kBeat = 0.46875;  ///< seconds at 128 BPM

DemoTrack::Options makeOptions(int pRate, double pDuration = 0.0, double pBPM = 128.0)
{
    DemoTrack::Options options;
    options.sampleRate = pRate;
    options.bpm = pBPM;
    options.duration = pDuration;
    return options;
}

std::vector<float> readAll(const DemoTrack::Options& pOptions, std::size_t pChunk = 4096)
{
    DemoTrack track(pOptions);
    std::vector<float> frames(2 * track.getFrameCount());
    std::size_t position = 0;
    while (const std::size_t count = track.Read(frames.data() + 2 * position, pChunk))
        position += count;
    return position == track.getFrameCount() ? frames : std::vector<float>();
}

/// One pass at 44100 Hz, as most tests read it.
const std::vector<float>& getMusic()
{
    static const std::vector<float> music = readAll(makeOptions(44100));
    return music;
}

std::vector<double> toMono(const std::vector<float>& pFrames)
{
    std::vector<double> mono(pFrames.size() / 2);
    for (std::size_t i = 0; i < mono.size(); ++i)
        mono[i] = 0.5 * (double(pFrames[2 * i]) + double(pFrames[2 * i + 1]));
    return mono;
}

/// Running sum of the squares below about 100 Hz: a bass drum's share of the music.
std::vector<double> sumBassEnergy(const std::vector<double>& pMono, double pRate)
{
    const double share = 1.0 - std::exp(-2.0 * M_PI * 100.0 / pRate);
    std::vector<double> sums(pMono.size() + 1, 0.0);
    double first = 0.0;
    double second = 0.0;
    for (std::size_t i = 0; i < pMono.size(); ++i) {
        first += share * (pMono[i] - first);
        second += share * (first - second);
        sums[i + 1] = sums[i] + second * second;
    }
    return sums;
}

/// Bass energy in the 70 ms after a moment divided by that in the 70 ms before.
double getRise(const std::vector<double>& pSums, double pTime, double pRate)
{
    const auto at = [&](double pSeconds) {
        return pSums[std::size_t(qBound(0.0, pSeconds * pRate, double(pSums.size() - 1)))];
    };
    const double after = at(pTime + 0.07) - at(pTime);
    const double before = at(pTime) - at(pTime - 0.07);
    return after / std::max(before, 1e-9);
}

bool isInside(const std::vector<TimeSpan>& pSpans, double pStart, double pEnd)
{
    return std::any_of(
        pSpans.begin(),
        pSpans.end(),
        [&](const TimeSpan& pSpan) { return pStart < pSpan.end && pEnd > pSpan.start; });
}

void addRates()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {8000, 11025, 22050, 44100, 48000, 96000, 192000})
        QTest::addRow("%d Hz", rate) << rate;
}

}  // namespace

class tst_DemoTrack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_givesTheSameBytes_whenMadeTwice();
    void read_givesTheSameBytes_inChunks_data();
    void read_givesTheSameBytes_inChunks();
    void read_givesNothing_atTheEndOrForNoFrames();
    void length_isOneMinute_atAnyRate_data() { addRates(); }
    void length_isOneMinute_atAnyRate();
    void peak_isJustBelowMinus1dB_atAnyRate_data() { addRates(); }
    void peak_isJustBelowMinus1dB_atAnyRate();
    void music_isStereo();
    void music_isLouderThanTheStopThreshold();
    void stop_isDigitalSilence();
    void stop_isFadedInto();
    void truth_matchesTheScoreAt128();
    void stop_lastsAtLeastFiveSeconds_data();
    void stop_lastsAtLeastFiveSeconds();
    void truth_repeats_whenLonger();
    void truth_isCut_whenShorter();
    void bass_risesAtEveryKick_data();
    void bass_risesAtEveryKick();
    void bass_doesNotRise_withoutKick();
};

void tst_DemoTrack::read_givesTheSameBytes_whenMadeTwice()
{
    const std::vector<float>& first = getMusic();
    const std::vector<float> second = readAll(makeOptions(44100));
    QCOMPARE(first.size(), std::size_t(2 * 60 * 44100));
    QCOMPARE(second.size(), first.size());
    QCOMPARE(std::memcmp(first.data(), second.data(), first.size() * sizeof(float)), 0);
}

void tst_DemoTrack::read_givesTheSameBytes_inChunks_data()
{
    QTest::addColumn<int>("chunk");
    for (const int chunk : {1, 3, 441, 4097})
        QTest::addRow("%d frames", chunk) << chunk;
}

void tst_DemoTrack::read_givesTheSameBytes_inChunks()
{
    QFETCH(int, chunk);
    const std::vector<float> whole = readAll(makeOptions(8000), 60 * 8000);
    const std::vector<float> chunked = readAll(makeOptions(8000), std::size_t(chunk));
    QCOMPARE(whole.size(), std::size_t(2 * 60 * 8000));
    QCOMPARE(chunked.size(), whole.size());
    QCOMPARE(std::memcmp(whole.data(), chunked.data(), whole.size() * sizeof(float)), 0);
}

void tst_DemoTrack::read_givesNothing_atTheEndOrForNoFrames()
{
    DemoTrack track(makeOptions(8000, 0.5));
    std::vector<float> frames(2 * 8000, 7.0F);
    QCOMPARE(track.Read(frames.data(), 0), std::size_t(0));
    QCOMPARE(frames[0], 7.0F);
    QCOMPARE(track.Read(frames.data(), 8000), std::size_t(4000));
    QCOMPARE(frames[2 * 4000], 7.0F);
    QCOMPARE(track.Read(frames.data(), 8000), std::size_t(0));
}

void tst_DemoTrack::length_isOneMinute_atAnyRate()
{
    QFETCH(int, rate);
    const DemoTrack track(makeOptions(rate));
    QCOMPARE(track.getFrameCount(), quint64(60) * quint64(rate));
    QCOMPARE(track.getDuration(), 60.0);
    QCOMPARE(track.getSampleRate(), rate);
}

void tst_DemoTrack::peak_isJustBelowMinus1dB_atAnyRate()
{
    QFETCH(int, rate);
    DemoTrack track(makeOptions(rate, 10.0));
    std::vector<float> frames(2 * 4096);
    float peak = 0.0F;
    while (const std::size_t count = track.Read(frames.data(), 4096)) {
        for (std::size_t i = 0; i < 2 * count; ++i) {
            QVERIFY(std::isfinite(frames[i]));
            peak = std::max(peak, std::fabs(frames[i]));
        }
    }
    QVERIFY2(peak < 0.8913F, qPrintable(QString::number(double(peak))));  // -1 dBFS
    QVERIFY2(peak > 0.8414F, qPrintable(QString::number(double(peak))));  // -1.5 dBFS
}

void tst_DemoTrack::music_isStereo()
{
    const std::vector<float> frames = readAll(makeOptions(22050, 20.0));
    double difference = 0.0;
    double sum = 0.0;
    for (std::size_t i = 0; i < frames.size(); i += 2) {
        difference += std::pow(frames[i] - frames[i + 1], 2);
        sum += std::pow(frames[i] + frames[i + 1], 2);
    }
    QVERIFY(difference > 0.001 * sum);
    QVERIFY(difference < 0.5 * sum);
}

/// What counts as a stop: nothing above a tenth of full scale between 50 and 2000 Hz for 1.5 s.
void tst_DemoTrack::music_isLouderThanTheStopThreshold()
{
    const int rate = 44100;
    const std::size_t size = 66150;
    const DemoTrack track(makeOptions(rate));
    const std::vector<TimeSpan> silences = track.getArrangement().getSilences(60.0);
    const std::vector<double> mono = toMono(getMusic());
    FastFourierTransform transform;
    std::vector<short> block(size);
    int checked = 0;
    for (std::size_t start = 0; start + size <= std::size_t(58.5 * rate); start += size / 3) {
        if (isInside(silences, double(start) / rate, double(start + size) / rate))
            continue;
        for (std::size_t i = 0; i < size; ++i)
            block[i] = short(std::lround(32767.0 * mono[start + i]));
        transform.Compute(block.data(), size);
        transform.BandPassFilter(50, 2000, rate);
        short* filtered = nullptr;
        unsigned long count = 0;
        transform.ComputeInverse(filtered, count);
        QVERIFY2(*std::max_element(filtered, filtered + count) > 6553,  // twice the threshold
                 qPrintable(QString::number(double(start) / rate)));
        ++checked;
    }
    QVERIFY(checked > 90);
}

void tst_DemoTrack::stop_isDigitalSilence()
{
    const std::vector<float>& frames = getMusic();
    // From 45 s to 50.625 s, sample by sample; the music before and after it is loud.
    const auto first = frames.begin() + 2 * 45 * 44100;
    const auto last = frames.begin() + qint64(2 * std::lround(50.625 * 44100));
    QVERIFY(std::all_of(first, last, [](float pSample) { return pSample == 0.0F; }));
    QVERIFY(*std::max_element(first - 44100, first) > 0.5F);
    QVERIFY(*std::max_element(last, last + 4410) > 0.5F);
}

void tst_DemoTrack::stop_isFadedInto()
{
    const std::vector<float>& frames = getMusic();
    const std::size_t stop = 45 * 44100;
    for (std::size_t frame = stop - 10; frame < stop; ++frame) {
        QVERIFY(std::fabs(frames[2 * frame]) < 0.03F);
        QVERIFY(std::fabs(frames[2 * frame + 1]) < 0.03F);
    }
}

void tst_DemoTrack::truth_matchesTheScoreAt128()
{
    const DemoArrangement arrangement(128.0);
    QCOMPARE(arrangement.getBPM(), 128.0);
    QCOMPARE(arrangement.getPassDuration(), 128 * kBeat);

    std::vector<double> kicks;
    std::vector<double> beats;
    for (int i = 0; i <= 124; ++i) {
        const bool isKick = i < 48 || (i >= 64 && i < 96) || i >= 108;
        const bool isBreakdown = i >= 48 && i < 64;
        if (isKick)
            kicks.push_back(i * kBeat);
        if (isKick || isBreakdown)
            beats.push_back(i * kBeat);
    }
    QCOMPARE(arrangement.getKickTimes(60.0), kicks);
    QCOMPARE(arrangement.getBeatTimes(60.0), beats);

    const std::vector<TimeSpan> breakdowns = arrangement.getBreakdowns(60.0);
    QCOMPARE(breakdowns.size(), std::size_t(1));
    QCOMPARE(breakdowns[0].start, 22.5);
    QCOMPARE(breakdowns[0].end, 30.0);
    const std::vector<TimeSpan> silences = arrangement.getSilences(60.0);
    QCOMPARE(silences.size(), std::size_t(1));
    QCOMPARE(silences[0].start, 45.0);
    QCOMPARE(silences[0].end, 50.625);
}

void tst_DemoTrack::stop_lastsAtLeastFiveSeconds_data()
{
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("seconds");  // the shortest whole number of bars of 4 beats
    QTest::newRow("60, bars of 4 s") << 60.0 << 8.0;
    QTest::newRow("96, bars of 2.5 s") << 96.0 << 5.0;
    QTest::newRow("120, bars of 2 s") << 120.0 << 6.0;
    QTest::newRow("128, bars of 1.875 s") << 128.0 << 5.625;
    QTest::newRow("200, bars of 1.2 s") << 200.0 << 6.0;
}

void tst_DemoTrack::stop_lastsAtLeastFiveSeconds()
{
    QFETCH(double, bpm);
    QFETCH(double, seconds);
    const TimeSpan stop = DemoArrangement(bpm).getSilences(1000.0).at(0);
    QCOMPARE(stop.start, 96 * 60.0 / bpm);
    QCOMPARE(stop.end - stop.start, seconds);
}

void tst_DemoTrack::truth_repeats_whenLonger()
{
    const DemoArrangement arrangement(128.0);
    const std::vector<double> once = arrangement.getBeatTimes(60.0);
    const std::vector<double> twice = arrangement.getBeatTimes(120.0);
    QCOMPARE(once.size(), std::size_t(113));
    QCOMPARE(twice.size(), std::size_t(226));
    for (std::size_t i = 0; i < once.size(); ++i)
        QCOMPARE(twice[i + 113], once[i] + 60.0);
    QCOMPARE(arrangement.getSilences(120.0).size(), std::size_t(2));
    QCOMPARE(arrangement.getSilences(120.0)[1].start, 105.0);

    // The second pass is the same music: its bass drum comes as it did in the first.
    const std::vector<double> sums =
        sumBassEnergy(toMono(readAll(makeOptions(8000, 120.0))), 8000.0);
    QCOMPARE(sums.size(), std::size_t(120 * 8000 + 1));
    for (const double time : arrangement.getKickTimes(119.0))
        QVERIFY2(getRise(sums, time, 8000.0) > 3.0, qPrintable(QString::number(time)));
}

void tst_DemoTrack::truth_isCut_whenShorter()
{
    const DemoArrangement arrangement(128.0);
    QCOMPARE(arrangement.getKickTimes(0.46).size(), std::size_t(1));
    QCOMPARE(arrangement.getKickTimes(kBeat).size(), std::size_t(1));
    QCOMPARE(arrangement.getKickTimes(kBeat + 0.001).size(), std::size_t(2));
    QCOMPARE(arrangement.getSilences(45.0).size(), std::size_t(0));
    QCOMPARE(arrangement.getSilences(47.0).at(0).end, 47.0);
    QCOMPARE(arrangement.getBreakdowns(23.0).at(0).end, 23.0);
    QCOMPARE(arrangement.getBeatTimes(0.0).size(), std::size_t(0));
}

void tst_DemoTrack::bass_risesAtEveryKick_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("bpm");
    QTest::addColumn<double>("duration");  // seconds; 0 = one pass
    QTest::addColumn<int>("count");
    QTest::newRow("8000 Hz") << 8000 << 128.0 << 0.0 << 97;
    QTest::newRow("44100 Hz") << 44100 << 128.0 << 0.0 << 97;
    QTest::newRow("192000 Hz") << 192000 << 128.0 << 9.0 << 20;
    QTest::newRow("60 BPM") << 8000 << 60.0 << 0.0 << 97;
    QTest::newRow("97.3 BPM") << 11025 << 97.3 << 0.0 << 97;
    QTest::newRow("174 BPM") << 22050 << 174.0 << 0.0 << 97;
    QTest::newRow("200 BPM") << 8000 << 200.0 << 0.0 << 97;
}

void tst_DemoTrack::bass_risesAtEveryKick()
{
    QFETCH(int, rate);
    QFETCH(double, bpm);
    QFETCH(double, duration);
    QFETCH(int, count);
    const DemoTrack::Options options = makeOptions(rate, duration, bpm);
    const DemoTrack track(options);
    const std::vector<double> kicks = track.getArrangement().getKickTimes(track.getDuration());
    const std::vector<double> sums = sumBassEnergy(toMono(readAll(options)), rate);
    QCOMPARE(int(kicks.size()), count);
    for (const double time : kicks)
        QVERIFY2(getRise(sums, time, rate) > 3.0, qPrintable(QString::number(time)));
}

void tst_DemoTrack::bass_doesNotRise_withoutKick()
{
    const std::vector<double> sums = sumBassEnergy(toMono(getMusic()), 44100.0);
    // Between the beats of the main part, and on the breakdown's beats after its fade-in.
    for (double time = 4 * kBeat; time < 22.0; time += kBeat)
        QVERIFY2(getRise(sums, time + 0.5 * kBeat, 44100.0) < 2.0,
                 qPrintable(QString::number(time)));
    for (int beat = 50; beat < 64; ++beat)
        QVERIFY2(getRise(sums, beat * kBeat, 44100.0) < 2.0, qPrintable(QString::number(beat)));
}

AA_TEST(tst_DemoTrack, NoApplication)
#include "tst_DemoTrack.moc"
