// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include "MonitorRecording.h"
#include <shared/clock/LiveBeats.h>
#include <shared/play/FilePlayer.h>
#include <shared/pulse/PulseBackEnd.h>

#include <QFile>
#include <QSignalSpy>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <cmath>
#include <pulse/PulseServer.h>
#include <random>
#include <support/TestClass.h>

namespace {

constexpr int kPatience = 60000;   // ms
constexpr int kSoundRate = 48000;  // Hz
constexpr double kNearMs = 15.0;
constexpr double kClickBPM = 120.0;

using Sound = std::vector<qint16>;

Sound Noise(double pSeconds)
{
    std::mt19937 random(7);
    Sound samples(std::size_t(pSeconds * kSoundRate));
    for (qint16& sample : samples)
        sample = qint16(int(random() % 20001) - 10000);
    return samples;
}

/// Bursts of noise that decay, on each beat.
Sound Clicks(double pSeconds)
{
    constexpr double kDecay = 0.02;  // seconds
    constexpr auto kPeriod = std::size_t(kSoundRate * 60 / kClickBPM);
    Sound samples = Noise(pSeconds);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double since = double(i % kPeriod) / kSoundRate;
        samples[i] = qint16(std::lround(2.5 * samples[i] * std::exp(-since / kDecay)));
    }
    return samples;
}

/// Of pCount samples from each place on; 1 = they are the same but for the level.
double Correlation(const qint16* pOne, const qint16* pOther, std::size_t pCount)
{
    double product = 0.0;
    double one = 0.0;
    double other = 0.0;
    for (std::size_t i = 0; i < pCount; ++i) {
        product += double(pOne[i]) * pOther[i];
        one += double(pOne[i]) * pOne[i];
        other += double(pOther[i]) * pOther[i];
    }
    return one > 0.0 && other > 0.0 ? product / std::sqrt(one * other) : 0.0;
}

/// Where pPart begins in pAll, by the greatest correlation of its first samples; pAll's size = it
/// does not.
std::size_t Find(const Sound& pAll, const qint16* pPart)
{
    constexpr std::size_t kHead = 480;
    for (std::size_t i = 0; i + kHead <= pAll.size(); ++i)
        if (Correlation(pAll.data() + i, pPart, kHead) > 0.99)
            return i;
    return pAll.size();
}

double Median(std::vector<double> pValues)
{
    std::sort(pValues.begin(), pValues.end());
    return pValues.empty() ? std::nan("") : pValues[pValues.size() / 2];
}

/// By how much the tracker itself tells beats of the clicks after them, ms, when it only reads
/// them.
double Bias(const Sound& pClicks)
{
    MeterTracker tracker(kSoundRate);
    std::vector<double> errors;
    QObject::connect(&tracker, &MeterTracker::OnBeatForeseen, [&](const MeterTracker::Beat& pBeat) {
        const double beats = double(pBeat.index) / kSoundRate * kClickBPM / 60.0;
        errors.push_back((beats - std::round(beats)) * 60000.0 / kClickBPM);
    });
    tracker.Push(pClicks.data(), pClicks.size());
    return Median(errors);
}

bool HasMonitor()
{
    const auto sources = SoundBackEnd::get()->getSources();
    return std::any_of(sources.begin(), sources.end(), [](const SoundSource& pSource) {
        return pSource.name == Text("deck.monitor");
    });
}

/// A file that is played, with the instants of its samples.
class Played
{
public:
    Played(const QString& pPath, bool pIsLooped)
    {
        player.WantSound();
        QObject::connect(
            &player,
            &LiveSource::OnSamples,
            [this](const qint16*, std::size_t pCount, quint64 pEnd) {
                count += pCount;
                end = pEnd;
                ends.emplace_back(count, pEnd);
            });
        QObject::connect(
            &player, &LiveSource::OnEnded, [this](const QString&) { hasEnded = true; });
        player.Open(pPath, pIsLooped);
    }
    eFileSound getSound() const { return player.getSource().sound; }

    Configuration configuration;
    FilePlayer player{configuration};
    std::size_t count = 0;
    quint64 end = 0;
    bool hasEnded = false;
    std::vector<std::pair<std::size_t, quint64>> ends;  ///< samples so far, µs
};

}  // namespace

/// Files on the output of a sound server, and what its monitor hears of them. The cases build on
/// each other.
class tst_FileSound : public QObject
{
    Q_OBJECT

public:
    explicit tst_FileSound(PulseServer::eKind pKind = PulseServer::ePulseAudio)
        : m_kind(pKind), m_server(pKind)
    {
    }

private Q_SLOTS:
    void initTestCase();
    void sound_isTheFile_whenItSaysSo();
    void beats_fallWithTheSound();
    void muted_fileGoesOnInSilence();
    void file_goesOn_whileTheServerIsAway();
    void file_goesOn_whileTheServerHangs();
    void file_goesOn_withoutAnOutput();
    void end_needsNoAnswer();

private:
    QString _Write(const char* pName, const Sound& pSamples) const
    {
        const QString path = m_server.folder() + Text("/") + Text(pName);
        return testaudio::WriteIntegers(
                   path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, kSoundRate, 1, pSamples)
                   ? path
                   : QString();
    }

    const PulseServer::eKind m_kind;
    PulseServer m_server;
    PulseBackEnd m_backEnd;
    QString m_sink;
};

void tst_FileSound::initTestCase()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    m_sink = m_server.LoadSink(Text("deck"));
    QVERIFY2(!m_sink.isEmpty(), qPrintable(m_server.error()));
    QVERIFY(m_backEnd.Install());
}

void tst_FileSound::sound_isTheFile_whenItSaysSo()
{
    const Sound noise = Noise(3.0);
    const QString path = _Write("noise.wav", noise);
    QTRY_VERIFY_WITH_TIMEOUT(HasMonitor(), kPatience);
    MonitorRecording monitor("deck.monitor");
    QVERIFY(monitor.Start());
    QTRY_VERIFY_WITH_TIMEOUT(!monitor.samples.empty(), kPatience);
    Played played(path, false);
    QTRY_VERIFY_WITH_TIMEOUT(played.hasEnded, kPatience);
    QCOMPARE(played.count, noise.size());
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSilent(4800), kPatience);
    // The server may swallow the head of a stream that joins within one of its blocks.
    constexpr std::size_t kHead = kSoundRate / 2;
    const std::size_t place = Find(monitor.samples, noise.data() + kHead);
    QVERIFY(place + noise.size() - kHead <= monitor.samples.size());
    const double same =
        Correlation(monitor.samples.data() + place, noise.data() + kHead, noise.size() - kHead);
    QVERIFY2(same > 0.999, QByteArray::number(same).constData());
    std::vector<double> errors;  // ms
    for (const auto& [count, end] : played.ends)
        if (count >= kSoundRate)
            errors.push_back(double(qint64(end - monitor.getInstant(place + count - kHead))) /
                             1000);
    qInfo("the file says %.1f ms after the monitor that its samples sound", Median(errors));
    QVERIFY(std::fabs(Median(errors)) < kNearMs);
}

/// As a host announces them: by the beat clock.
void tst_FileSound::beats_fallWithTheSound()
{
    const Sound sound = Clicks(14.0);
    const QString path = _Write("clicks.wav", sound);
    MonitorRecording monitor("deck.monitor");
    QVERIFY(monitor.Start());
    QTRY_VERIFY_WITH_TIMEOUT(!monitor.samples.empty(), kPatience);
    LiveBeats beats;
    std::vector<std::int64_t> ticks;  // µs
    Played played(path, false);
    beats.Follow(&played.player);
    connect(&beats, &LiveBeats::OnBeatHeard, this, [&] {
        const BeatClockState state = beats.getClock().getState();
        const std::int64_t now = shared::ClockThread::getTime();
        if (state.isRunning())
            ticks.push_back(state.getTickTime(state.getBeat(now) + 1) - now +
                            std::int64_t(HighResolutionTimer::getTime()));
    });
    QTRY_VERIFY_WITH_TIMEOUT(played.hasEnded, kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSilent(4800), kPatience);
    std::vector<double> clicks;  // µs
    for (std::size_t i = kSoundRate; i < monitor.samples.size(); ++i)
        if (std::abs(int(monitor.samples[i])) > 3000 &&
            (clicks.empty() || double(monitor.getInstant(i)) - clicks.back() > 300000.0))
            clicks.push_back(double(monitor.getInstant(i)));
    QVERIFY(clicks.size() >= 26 && ticks.size() >= 12);
    std::vector<double> errors;  // ms
    for (const std::int64_t tick : ticks) {
        double nearest = 1e9;
        for (const double click : clicks)
            if (std::fabs(double(tick) - click) < std::fabs(nearest))
                nearest = double(tick) - click;
        errors.push_back(nearest / 1000.0);
    }
    // The first ones are those on which the tracker settles; behind the last there is no click.
    errors.erase(errors.begin(), errors.begin() + 6);
    errors.pop_back();
    const double error = Median(errors);
    qInfo("beats are announced for %.1f ms after their clicks, %.1f ms of it by the tracker's ear",
          error,
          Bias(sound));
    QVERIFY(std::fabs(error - Bias(sound)) < kNearMs);
}

void tst_FileSound::muted_fileGoesOnInSilence()
{
    MonitorRecording monitor("deck.monitor");
    QVERIFY(monitor.Start());
    Played played(_Write("noise.wav", Noise(2.0)), true);
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSounding(4800), kPatience);
    QCOMPARE(played.getSound(), eFileHeard);
    played.player.setMuted(true);
    QCOMPARE(played.getSound(), eFileMuted);
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSilent(9600), kPatience);
    const std::size_t count = played.count;
    QTRY_VERIFY_WITH_TIMEOUT(played.count > count + kSoundRate / 2, kPatience);
    QVERIFY(monitor.isSilent(9600));
    played.player.setMuted(false);
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSounding(4800), kPatience);
    QCOMPARE(played.getSound(), eFileHeard);
}

void tst_FileSound::file_goesOn_whileTheServerIsAway()
{
    Played played(_Write("noise.wav", Noise(2.0)), true);
    QTRY_VERIFY_WITH_TIMEOUT(played.count > kSoundRate / 2, kPatience);
    QCOMPARE(played.getSound(), eFileHeard);
    m_server.Kill();
    QTRY_COMPARE_WITH_TIMEOUT(int(played.getSound()), int(eFileNoServer), kPatience);
    const std::size_t count = played.count;
    QTRY_VERIFY_WITH_TIMEOUT(played.count > count + kSoundRate, kPatience);
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    m_sink = m_server.LoadSink(Text("deck"));
    QTRY_COMPARE_WITH_TIMEOUT(played.getSound(), eFileHeard, kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(HasMonitor(), kPatience);
    MonitorRecording monitor("deck.monitor");
    QVERIFY(monitor.Start());
    QTRY_VERIFY_WITH_TIMEOUT(monitor.isSounding(4800), kPatience);
}

void tst_FileSound::file_goesOn_whileTheServerHangs()
{
    Played played(_Write("noise.wav", Noise(2.0)), true);
    QTRY_VERIFY_WITH_TIMEOUT(played.count > kSoundRate / 2, kPatience);
    m_server.Freeze();
    QTRY_COMPARE_WITH_TIMEOUT(played.getSound(), eFileStuck, kPatience);
    const std::size_t count = played.count;
    QTRY_VERIFY_WITH_TIMEOUT(played.count > count + kSoundRate, kPatience);
    if (m_kind == PulseServer::ePulseAudio) {
        m_server.Thaw();
    } else {
        // PipeWire itself does not always survive that; then it is started anew.
        m_server.Kill();
        QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
        m_sink = m_server.LoadSink(Text("deck"));
    }
    QTRY_COMPARE_WITH_TIMEOUT(played.getSound(), eFileHeard, kPatience);
    const std::size_t again = played.count;
    QTRY_VERIFY_WITH_TIMEOUT(played.count > again + kSoundRate, kPatience);
}

void tst_FileSound::file_goesOn_withoutAnOutput()
{
    Played played(_Write("noise.wav", Noise(2.0)), true);
    QTRY_VERIFY_WITH_TIMEOUT(played.count > kSoundRate / 2, kPatience);
    QVERIFY(m_server.UnloadModule(m_sink));
    // PipeWire moves the stream to an output of its own making, where nobody hears it.
    if (m_kind == PulseServer::ePulseAudio)
        QTRY_COMPARE_WITH_TIMEOUT(played.getSound(), eFileNoOutput, kPatience);
    const std::size_t count = played.count;
    QTRY_VERIFY_WITH_TIMEOUT(played.count > count + kSoundRate, kPatience);
    m_sink = m_server.LoadSink(Text("deck"));
    QTRY_COMPARE_WITH_TIMEOUT(played.getSound(), eFileHeard, kPatience);
}

void tst_FileSound::end_needsNoAnswer()
{
    {
        Played played(_Write("noise.wav", Noise(2.0)), true);
        QTRY_VERIFY_WITH_TIMEOUT(played.count > kSoundRate / 4, kPatience);
        m_server.Freeze();
    }
    // It still hangs; whoever waited for it would not have come here.
    m_server.Thaw();
}

/// The same on PipeWire.
class tst_PipeWireSound : public tst_FileSound
{
    Q_OBJECT

public:
    tst_PipeWireSound() : tst_FileSound(PulseServer::ePipeWire) {}
};

AA_TEST(tst_FileSound, QCoreApplication)
AA_TEST(tst_PipeWireSound, QCoreApplication)
#include "tst_FileSound.moc"
