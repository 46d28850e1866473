// SPDX-License-Identifier: MIT
#include <shared/capture/SoundBackEnd.h>

#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <memory>
#include <support/FakeClock.h>
#include <support/TestClass.h>

namespace {

constexpr quint64 kStart = 1700000000000000;  // µs

/// What the hosts' own back end would tell of the fake devices.
class ToldBackEnd : public SoundBackEnd
{
public:
    ToldBackEnd() { _Publish(); }

    std::vector<SoundSource> getSources() const override { return sources; }
    bool isAnswering() const override { return isThere; }
    std::optional<SoundPosition> getPosition() const override { return position; }

    std::vector<SoundSource> sources;
    bool isThere = true;
    std::optional<SoundPosition> position;
};

SoundSource Source(const char* pName, bool pIsDefault)
{
    SoundSource source;
    source.name = QLatin1String(pName);
    source.isDefault = pIsDefault;
    return source;
}

}  // namespace

/// What a session makes of a back end that knows more than Qt Multimedia asks.
class tst_CaptureSession_backend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void anchor_isWhenTheNextSampleSounds();
    void anchor_mayLieAhead();
    void drift_isThatOfTheSound();
    void lostSamples_areCounted_andAnchorAnew();
    void silentServer_isToldSooner();
    void unconnectedRecording_isMadeAnew_withoutAWord();
    void default_isFollowed_whenAskedFor();
    void default_isLeftAlone_otherwise();
    void default_isKept_whileThereIsNone();
    void default_isLeft_forAnotherDevice();
};

void tst_CaptureSession_backend::initTestCase()
{
    FakeAudioState::Install();
}

void tst_CaptureSession_backend::init()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
    FakeAudioState::Get().Plug(SessionLog::Device("Line"));
    SessionLog::Poll();
}

void tst_CaptureSession_backend::anchor_isWhenTheNextSampleSounds()
{
    const FakeClock clock(kStart);
    ToldBackEnd backEnd;
    SessionLog log;
    log.Open();
    backEnd.position = SoundPosition{kStart - 12345, 0};
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getAnalyzer()->getAnalysisStartTime(), kStart - 12345);
}

void tst_CaptureSession_backend::anchor_mayLieAhead()
{
    const FakeClock clock(kStart);
    ToldBackEnd backEnd;
    SessionLog log;
    log.Open();
    backEnd.position = SoundPosition{kStart + 50000, 0};
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getAnalyzer()->getAnalysisStartTime(), kStart + 50000);
    QCOMPARE(log.session.getAnchorCount(), 1);
}

/// Blocks come as they like; what counts is when they sound.
void tst_CaptureSession_backend::drift_isThatOfTheSound()
{
    FakeClock clock(kStart);
    ToldBackEnd backEnd;
    SessionLog log;
    log.Open();
    for (quint64 block = 0; block < 500; ++block) {
        clock.advance(block % 2 == 0 ? 1000 : 19000);
        backEnd.position = SoundPosition{kStart + block * 10001, 0};
        SessionLog::Push(std::vector<qint16>(480, 0));
    }
    // 100 ppm of the four seconds up to the last whole window.
    const qint64 drift = log.session.getSampleClock().getDrift();
    QVERIFY2(drift > 150 && drift < 450, QByteArray::number(drift).constData());
    QCOMPARE(log.session.getAnchorCount(), 1);
}

void tst_CaptureSession_backend::lostSamples_areCounted_andAnchorAnew()
{
    const FakeClock clock(kStart);
    ToldBackEnd backEnd;
    SessionLog log;
    log.Open();
    backEnd.position = SoundPosition{kStart, 0};
    SessionLog::Push({1, 2, 3});
    backEnd.position = SoundPosition{kStart + 2000000, 96000};
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getLostSamples(), quint64(96000));
    QCOMPARE(log.session.getAnchorCount(), 2);
    QCOMPARE(log.session.getAnalyzer()->getAnalysisStartTime(), kStart + 2000000);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getAnchorCount(), 2);
    // The next recording counts from nothing; the session does not forget.
    log.session._Lose();
    log.session._TryToRecord();
    backEnd.position = SoundPosition{kStart + 3000000, 4};
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getLostSamples(), quint64(96004));
}

void tst_CaptureSession_backend::silentServer_isToldSooner()
{
    ToldBackEnd backEnd;
    backEnd.isThere = false;
    SessionLog log;
    log.session.m_limits.firstDataMs = 3600000;
    log.session.m_limits.reopenMs = 3600000;
    log.Open();
    QTRY_COMPARE(log.Peek(), QStringLiteral("analyzer starting no data"));
}

void tst_CaptureSession_backend::unconnectedRecording_isMadeAnew_withoutAWord()
{
    ToldBackEnd backEnd;
    SessionLog log;
    log.session.m_limits.firstReopenMs = 50;
    log.session.m_limits.firstDataMs = 3600000;
    log.Open();
    const int inputs = FakeAudioState::Get().createdInputs();
    QTRY_VERIFY(FakeAudioState::Get().createdInputs() >= inputs + 2);
    QCOMPARE(log.Peek(), QStringLiteral("analyzer starting"));
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.Peek(), QStringLiteral("analyzer starting running anchored"));
    // Nor does that put off the word that nothing comes.
    SessionLog other;
    other.session.m_limits.firstReopenMs = 50;
    other.session.m_limits.reopenMs = 3600000;
    other.Open();
    QTRY_COMPARE(other.Peek(), QStringLiteral("analyzer starting no data"));
}

void tst_CaptureSession_backend::default_isFollowed_whenAskedFor()
{
    ToldBackEnd backEnd;
    backEnd.sources = {Source("Deck", true), Source("Line", false)};
    SessionLog log;
    log.session.FollowDefault();
    log.Open();
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getDeviceName(), QStringLiteral("Deck"));
    backEnd.sources = {Source("Line", true), Source("Deck", false)};
    QTRY_COMPARE(log.session.getDeviceName(), QStringLiteral("Line"));
    QTRY_COMPARE(log.session.getState(), eCaptureStarting);
    SessionLog::Push({1, 2, 3});
    QCOMPARE(log.session.getState(), eCaptureRunning);
    QCOMPARE(log.session.getSource().name, QStringLiteral("Line"));
}

void tst_CaptureSession_backend::default_isLeftAlone_otherwise()
{
    ToldBackEnd backEnd;
    backEnd.sources = {Source("Line", true), Source("Deck", false)};
    SessionLog log;
    log.Open();
    SessionLog::Push({1, 2, 3});
    log.session._Tick();
    QCOMPARE(log.session.getDeviceName(), QStringLiteral("Deck"));
    QCOMPARE(log.session.getState(), eCaptureRunning);
}

void tst_CaptureSession_backend::default_isKept_whileThereIsNone()
{
    ToldBackEnd backEnd;
    SessionLog log;
    log.session.FollowDefault();
    log.Open();
    log.session._Tick();
    QCOMPARE(log.session.getDeviceName(), QStringLiteral("Deck"));
    backEnd.sources = {Source("Line", false)};
    log.session._Tick();
    QCOMPARE(log.session.getDeviceName(), QStringLiteral("Deck"));
}

void tst_CaptureSession_backend::default_isLeft_forAnotherDevice()
{
    ToldBackEnd backEnd;
    backEnd.sources = {Source("Deck", true), Source("Line", false)};
    SessionLog log;
    log.session.FollowDefault();
    log.Open();
    log.session.FollowDefault(false);
    log.session.Switch(QStringLiteral("Line"));
    log.session._Tick();
    QCOMPARE(log.session.getDeviceName(), QStringLiteral("Line"));
}

AA_TEST(tst_CaptureSession_backend, QCoreApplication)
#include "tst_CaptureSession_backend.moc"
