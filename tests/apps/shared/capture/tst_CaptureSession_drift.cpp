// SPDX-License-Identifier: MIT
#include <QtTest>

#include <apps/shared/capture/SessionLog.h>
#include <cmath>
#include <support/FakeClock.h>
#include <support/TestClass.h>

namespace {

constexpr quint64 kDriftStart = 1700000000000000;  // µs
constexpr std::size_t kDriftBlock = 480;           // samples, 10 ms
constexpr double kTwoPi = 6.283185307179586;

}  // namespace

/// When the count of samples leaves the clock. The wall clock is the test's.
class tst_CaptureSession_drift : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void drift_isThatOfTheDevice();
    void smallDrift_isLeftAlone();
    void drift_isCorrected_inSilence();
    void drift_waitsForSilence_whileMusicPlays();
    void greatDrift_isCorrectedAtOnce();
    void clockSetBack_isCorrected();
    void correction_keepsTheTempo();

private:
    void _Play(double pSeconds, quint64 pBlockMicroseconds, bool pIsMusic);

    FakeClock* m_pClock = nullptr;
    quint64 m_played = 0;
};

void tst_CaptureSession_drift::initTestCase()
{
    FakeAudioState::Install();
}

void tst_CaptureSession_drift::init()
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(SessionLog::Device());
}

/// Blocks of 10 ms that take as long by the clock as said: a 100 Hz sine or nothing.
void tst_CaptureSession_drift::_Play(double pSeconds, quint64 pBlockMicroseconds, bool pIsMusic)
{
    for (int block = 0; block < int(pSeconds * 100.0); ++block) {
        std::vector<qint16> samples;
        for (std::size_t i = 0; i < kDriftBlock; ++i) {
            const double phase = kTwoPi * 100.0 * double(m_played++) / 48000.0;
            samples.push_back(pIsMusic ? qint16(20000.0 * std::sin(phase)) : qint16(0));
        }
        m_pClock->advance(pBlockMicroseconds);
        SessionLog::Push(samples);
    }
}

void tst_CaptureSession_drift::drift_isThatOfTheDevice()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(20.0, 10001, false);
    // 100 ppm of 20 s are 2 ms.
    QVERIFY(std::llabs(log.session.getSampleClock().getDrift() - 2000) <= 250);
    QVERIFY(std::fabs(log.session.getSampleClock().getPpm() - 100.0) < 5.0);
    QCOMPARE(log.session.getAnchorCount(), 1);
}

void tst_CaptureSession_drift::smallDrift_isLeftAlone()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(9.0, 10020, false);  // 18 ms
    QCOMPARE(log.session.getAnchorCount(), 1);
}

void tst_CaptureSession_drift::drift_isCorrected_inSilence()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(14.0, 10020, false);  // 28 ms
    QCOMPARE(log.session.getAnchorCount(), 2);
    QVERIFY(log.session.getAnalyzer()->isAnalyzing());
    // The new anchor is the present time.
    const quint64 start = log.session.getAnalyzer()->getAnalysisStartTime();
    QVERIFY(start > kDriftStart + 10000000);
    const quint64 count = log.session.getSampleClock().getCount();
    QVERIFY(count > 0 && count < 4 * 48000);
}

void tst_CaptureSession_drift::drift_waitsForSilence_whileMusicPlays()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(8.0, 10040, true);  // 32 ms
    QVERIFY(log.session.isPlaying());
    QCOMPARE(log.session.getAnchorCount(), 1);
    // A whole stop block of 0.5 s of silence ends the music.
    _Play(1.5, 10000, false);
    QCOMPARE(log.session.getAnchorCount(), 2);
    QVERIFY(!log.session.isPlaying());
}

void tst_CaptureSession_drift::greatDrift_isCorrectedAtOnce()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(4.0, 10000, true);
    clock.advance(200000);
    _Play(1.0, 10000, true);
    QCOMPARE(log.session.getAnchorCount(), 1);
    _Play(4.0, 10000, true);
    QCOMPARE(log.session.getAnchorCount(), 2);
}

void tst_CaptureSession_drift::clockSetBack_isCorrected()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    _Play(1.0, 10000, true);
    clock.setTime(kDriftStart - 3600000000u);
    _Play(0.1, 10000, true);
    QCOMPARE(log.session.getAnchorCount(), 2);
    QVERIFY(log.session.getAnalyzer()->getAnalysisStartTime() < kDriftStart);
}

void tst_CaptureSession_drift::correction_keepsTheTempo()
{
    FakeClock clock(kDriftStart);
    m_pClock = &clock;
    SessionLog log;
    log.Run();
    log.session.getAnalyzer()->m_lastBPM = 120.0;
    _Play(5.0, 11000, false);
    QCOMPARE(log.session.getAnchorCount(), 2);
    // Virtual beats may have moved it by the rounding of their length.
    QVERIFY(std::fabs(log.session.getAnalyzer()->m_lastBPM - 120.0) < 0.1);
}

AA_TEST(tst_CaptureSession_drift, QCoreApplication)
#include "tst_CaptureSession_drift.moc"
