// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/capture/SoundBackEnd.h>
#include <shared/play/FilePlayer.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <vector>

namespace {

constexpr int kHeardRate = 48000;     // Hz
constexpr quint64 kDelay = 120000;    // µs until the first sample sounds
constexpr std::size_t kRoom = 24000;  // samples that are taken ahead

/// What a sound server does, by the clock.
struct ScriptedOutput
{
    SoundPlayback::eState state = SoundPlayback::eRunning;
    bool isMuted = false;
    bool isPlaying = true;  ///< what it is given; else it takes it alone
    double speed = 1.0;     ///< of its clock
    std::vector<qint16> samples;
    quint64 start = 0;  ///< µs; of the last playback's first sample
    int playbacks = 0;
};

class ScriptedPlayback : public SoundPlayback
{
public:
    explicit ScriptedPlayback(ScriptedOutput& pOutput) : m_output(pOutput)
    {
        ++m_output.playbacks;
        m_output.samples.clear();
    }
    eState getState() const override { return m_output.state; }
    std::size_t getRoom() const override
    {
        const quint64 heard = getHeard(HighResolutionTimer::getTime()).value_or(0);
        return kRoom - (m_output.samples.size() - std::size_t(heard));
    }
    void Write(const qint16* pSamples, std::size_t pCount) override
    {
        if (m_output.samples.empty())
            m_output.start = HighResolutionTimer::getTime() + kDelay;
        m_output.samples.insert(m_output.samples.end(), pSamples, pSamples + pCount);
    }
    std::optional<quint64> getHeard(quint64 pNow) const override
    {
        if (!m_output.isPlaying)
            return {};
        if (m_output.samples.empty() || pNow < m_output.start)
            return 0;
        const double elapsed = double(pNow - m_output.start) * m_output.speed;
        return std::min<quint64>(quint64(elapsed * kHeardRate / 1e6), m_output.samples.size());
    }
    quint64 getInstant(quint64 pSample) const override
    {
        return m_output.start + quint64(double(pSample) * 1e6 / kHeardRate / m_output.speed);
    }
    void setMuted(bool pIsMuted) override { m_output.isMuted = pIsMuted; }

private:
    ScriptedOutput& m_output;
};

class ScriptedBackEnd : public SoundBackEnd
{
public:
    ScriptedBackEnd() { _Publish(); }
    std::vector<SoundSource> getSources() const override { return {}; }
    bool isAnswering() const override { return isThere; }
    std::optional<SoundPosition> getPosition() const override { return {}; }
    std::unique_ptr<SoundPlayback> Play(int pSampleRate) override
    {
        rate = pSampleRate;
        return isThere ? std::make_unique<ScriptedPlayback>(output) : nullptr;
    }

    bool isThere = true;
    int rate = 0;
    ScriptedOutput output;
};

/// Every sample tells its place.
std::vector<qint16> Places(double pSeconds)
{
    std::vector<qint16> samples;
    for (int i = 0; i < int(pSeconds * kHeardRate); ++i)
        samples.push_back(qint16(i % 30011));
    return samples;
}

}  // namespace

/// What a player makes of an output that is there, slow, gone, stuck or back.
class tst_FilePlayer_sound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothing_isPlayed_unlessWanted();
    void file_isPlayedWhole_andAnalysedAsItSounds();
    void pace_isTheOutputs();
    void silence_isSaid_withItsReason_data();
    void silence_isSaid_withItsReason();
    void goneOutput_isReplaced_andNothingIsLost();
    void outputThatPlaysNothing_holdsNothingUp();
    void openingOutput_isWaitedFor_atTheBeginning();
    void muted_isTold_andLasts();

private:
    QString _Write(double pSeconds) const
    {
        const QString path = m_folder.filePath(QStringLiteral("places%1.wav").arg(pSeconds));
        if (!testaudio::WriteIntegers(
                path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, kHeardRate, 1, Places(pSeconds)))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
    void _Open(FilePlayer& pPlayer, double pSeconds)
    {
        connect(&pPlayer,
                &LiveSource::OnSamples,
                this,
                [this](const qint16* pSamples, std::size_t pCount, quint64 pEnd) {
                    m_heard.insert(m_heard.end(), pSamples, pSamples + pCount);
                    m_ends.emplace_back(m_heard.size(), pEnd);
                });
        pPlayer.WantSound();
        pPlayer.Open(_Write(pSeconds), false);
    }

    QTemporaryDir m_folder;
    Configuration m_configuration;
    std::vector<qint16> m_heard;
    std::vector<std::pair<std::size_t, quint64>> m_ends;  ///< samples so far, µs
};

void tst_FilePlayer_sound::init()
{
    m_heard.clear();
    m_ends.clear();
}

void tst_FilePlayer_sound::nothing_isPlayed_unlessWanted()
{
    ScriptedBackEnd backEnd;
    FilePlayer player(m_configuration);
    QSignalSpy changes(&player, &LiveSource::OnSourceChanged);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    player.Open(_Write(0.5), false);
    QVERIFY(ended.wait(5000));
    QCOMPARE(backEnd.output.playbacks, 0);
    QCOMPARE(player.getSource().sound, eFileSilent);
    QCOMPARE(changes.count(), 0);
}

void tst_FilePlayer_sound::file_isPlayedWhole_andAnalysedAsItSounds()
{
    ScriptedBackEnd backEnd;
    FilePlayer player(m_configuration);
    QSignalSpy anchored(&player, &LiveSource::OnAnchored);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    _Open(player, 2.5);
    QVERIFY(ended.wait(10000));
    QCOMPARE(backEnd.rate, kHeardRate);
    QCOMPARE(backEnd.output.playbacks, 1);
    QCOMPARE(backEnd.output.samples, Places(2.5));
    QCOMPARE(m_heard, Places(2.5));
    QCOMPARE(anchored.count(), 1);
    QCOMPARE(player.getSource().sound, eFileHeard);
    for (const auto& [count, end] : m_ends) {
        const quint64 sounds = backEnd.output.start + quint64(count) * 1000000 / kHeardRate;
        // A sample lasts 21 µs.
        QVERIFY2(std::abs(qint64(end - sounds)) <= 22, QByteArray::number(qint64(end - sounds)));
    }
}

void tst_FilePlayer_sound::pace_isTheOutputs()
{
    ScriptedBackEnd backEnd;
    backEnd.output.speed = 0.5;
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    _Open(player, 2.0);
    QVERIFY(ended.wait(20000));
    QCOMPARE(m_heard, Places(2.0));
    const auto took = qint64(m_ends.back().second - backEnd.output.start);
    // The end of a block is told at the file's own speed.
    QVERIFY2(std::abs(took - 4000000) <= 50000, QByteArray::number(took));
}

void tst_FilePlayer_sound::silence_isSaid_withItsReason_data()
{
    QTest::addColumn<bool>("isServerThere");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("reason");
    QTest::newRow("no server") << false << int(SoundPlayback::eRunning) << int(eFileNoServer);
    QTest::newRow("no output") << true << int(SoundPlayback::eRefused) << int(eFileNoOutput);
    QTest::newRow("stuck") << true << int(SoundPlayback::eStuck) << int(eFileStuck);
}

void tst_FilePlayer_sound::silence_isSaid_withItsReason()
{
    QFETCH(bool, isServerThere);
    QFETCH(int, state);
    QFETCH(int, reason);
    ScriptedBackEnd backEnd;
    backEnd.isThere = isServerThere;
    backEnd.output.state = SoundPlayback::eState(state);
    FilePlayer player(m_configuration);
    QSignalSpy changes(&player, &LiveSource::OnSourceChanged);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    _Open(player, 3.0);
    QVERIFY(ended.wait(10000));
    QCOMPARE(int(player.getSource().sound), reason);
    QCOMPARE(changes.count(), 1);
    // At real speed all the same.
    QCOMPARE(m_heard, Places(3.0));
    const auto took = qint64(m_ends.back().second - m_ends.front().second);
    QVERIFY2(std::abs(took - 2950000) < 60000, QByteArray::number(took));
}

void tst_FilePlayer_sound::goneOutput_isReplaced_andNothingIsLost()
{
    ScriptedBackEnd backEnd;
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    _Open(player, 8.0);
    QTRY_VERIFY(m_heard.size() > std::size_t(2 * kHeardRate));
    backEnd.output.state = SoundPlayback::eRefused;
    QTRY_COMPARE(player.getSource().sound, eFileNoOutput);
    QTRY_VERIFY(m_heard.size() > std::size_t(4 * kHeardRate));
    backEnd.output.state = SoundPlayback::eRunning;
    QTRY_COMPARE(player.getSource().sound, eFileHeard);
    QVERIFY(ended.wait(10000));
    QCOMPARE(m_heard, Places(8.0));
    // The last one began where the analysis was, and had all that followed.
    QVERIFY(backEnd.output.samples.size() > std::size_t(2 * kHeardRate));
    QVERIFY(std::equal(
        backEnd.output.samples.rbegin(), backEnd.output.samples.rend(), m_heard.rbegin()));
}

/// As one that is suspended: it takes what its buffer holds, and no more.
void tst_FilePlayer_sound::outputThatPlaysNothing_holdsNothingUp()
{
    ScriptedBackEnd backEnd;
    FilePlayer player(m_configuration);
    QSignalSpy ended(&player, &LiveSource::OnEnded);
    _Open(player, 9.0);
    QTRY_VERIFY(m_heard.size() > std::size_t(kHeardRate));
    backEnd.output.isPlaying = false;
    backEnd.output.state = SoundPlayback::eStuck;
    QTRY_COMPARE(player.getSource().sound, eFileStuck);
    backEnd.output.state = SoundPlayback::eRunning;
    QTRY_COMPARE(backEnd.output.playbacks, 2);
    const std::size_t heard = m_heard.size();
    QTest::qWait(3000);
    QVERIFY(m_heard.size() > heard + std::size_t(2.8 * kHeardRate));
    QCOMPARE(player.getSource().sound, eFileStuck);
    backEnd.output.isPlaying = true;
    QTRY_COMPARE(player.getSource().sound, eFileHeard);
    QVERIFY(ended.wait(10000));
    QCOMPARE(m_heard, Places(9.0));
}

void tst_FilePlayer_sound::openingOutput_isWaitedFor_atTheBeginning()
{
    ScriptedBackEnd backEnd;
    backEnd.output.state = SoundPlayback::eOpening;
    backEnd.output.speed = 0.0;
    FilePlayer player(m_configuration);
    _Open(player, 3.0);
    QTest::qWait(600);
    QVERIFY(m_heard.empty());
    QVERIFY(!backEnd.output.samples.empty());
    backEnd.output.state = SoundPlayback::eStuck;
    QTRY_VERIFY(m_heard.size() > std::size_t(kHeardRate));
}

void tst_FilePlayer_sound::muted_isTold_andLasts()
{
    ScriptedBackEnd backEnd;
    FilePlayer player(m_configuration);
    player.setMuted(true);
    _Open(player, 8.0);
    QTRY_VERIFY(m_heard.size() > std::size_t(kHeardRate));
    QVERIFY(backEnd.output.isMuted);
    QCOMPARE(player.getSource().sound, eFileMuted);
    player.setMuted(false);
    QVERIFY(!backEnd.output.isMuted);
    QCOMPARE(player.getSource().sound, eFileHeard);
    player.setMuted(true);
    // Also for the output that takes its place.
    backEnd.output.state = SoundPlayback::eRefused;
    QTRY_COMPARE(backEnd.output.playbacks, 2);
    QVERIFY(backEnd.output.isMuted);
}

AA_TEST(tst_FilePlayer_sound, InVirtualTime<QCoreApplication>)
#include "tst_FilePlayer_sound.moc"
