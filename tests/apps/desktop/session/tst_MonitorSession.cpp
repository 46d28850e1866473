// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include "MonitorSessionTest.h"
#include <desktop/session/MonitorSession.h>
#include <shared/capture/InputDevices.h>

#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <apps/desktop/DesktopTest.h>
#include <fake/Machine.h>
#include <limits>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

/// The source of sound behind the window, on the fake machine.
class tst_MonitorSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();

    void listen_takesTheDefault_withoutAChoice();
    void listen_takesTheStoredDevice();
    void listen_waitsForTheStoredDevice_whenItIsAway();
    void noDevice_isSaid_andTheFirstOneIsTaken();
    void silence_isJudgedEvery1500Ms_untilAnotherPaceIsStored();
    void silence_isJudgedEvery1500Ms_whoeverWroteTheFileFirst();
    void analyzer_isAnnouncedBeforeItIsGone();
    void vanishedDevice_isSaidAndResumed();
    void tempo_isMeasured();
    void silence_hasNoTempo();
    void beats_flash();
    void reset_forgetsTheTempo();
    void beats_areTheClocks();
    void defaultInput_isListenedTo_asWhateverItIs();
    void fixedTempo_outlivesTheSource();
    void file_replacesTheDevice_andEnds();
    void stopFile_listensAgain();
    void brokenFile_isSaid();
    void silence_isSaidUntilMusicPlays();
};

void tst_MonitorSession::init()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
}

void tst_MonitorSession::listen_takesTheDefault_withoutAChoice()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    Machine().SetDefault(1);
    MonitorSession session;
    QSignalSpy devices(&session, &MonitorSession::OnDeviceChanged);
    session.Listen({});
    QCOMPARE(session.getDeviceName(), Name("Deck"));
    QCOMPARE(devices.last(), QVariantList({Name("Deck"), true}));
    QVERIFY(session.isDevicePresent());
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    // Nobody has chosen it.
    QVERIFY(!session.getConfiguration().isModified());
}

void tst_MonitorSession::listen_takesTheStoredDevice()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    ConfigurationStore store;
    store.setDeviceName(Name("Deck"));
    QVERIFY(store.Save());
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    session.Listen({});
    QCOMPARE(session.getDeviceName(), Name("Deck"));
    session.Listen(Name("Line"));
    QCOMPARE(session.getDeviceName(), Name("Line"));
}

void tst_MonitorSession::listen_waitsForTheStoredDevice_whenItIsAway()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    ConfigurationStore store;
    store.setDeviceName(Name("Deck"));
    QVERIFY(store.Save());
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    session.Listen({});
    QCOMPARE(session.getDeviceName(), Name("Deck"));
    QCOMPARE(session.getSource().capture, eCaptureWaiting);
    QVERIFY(!session.isDevicePresent());
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    QVERIFY(session.isDevicePresent());
}

void tst_MonitorSession::noDevice_isSaid_andTheFirstOneIsTaken()
{
    MonitorSession session;
    QSignalSpy sources(&session, &MonitorSession::OnSourceChanged);
    session.Listen({});
    QCOMPARE(session.getSource().kind, SourceState::eNone);
    QVERIFY(!session.getAnalyzer());
    QCOMPARE(sources.count(), 1);
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    PanelTest::Poll();
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    QCOMPARE(session.getDeviceName(), Name("Deck"));
}

void tst_MonitorSession::silence_isJudgedEvery1500Ms_untilAnotherPaceIsStored()
{
    QString error;
    {
        MonitorSession session;
        QVERIFY(session.Load(error));
        QCOMPARE(session.getConfiguration().getStopDetectionDuration(), 1.5);
        // Nobody has changed a thing: nothing is written.
        QVERIFY(!session.getConfiguration().isModified());
        session.getConfiguration().setStopDetectionDuration(0.75);
        QVERIFY(session.getSaver().Save());
    }
    MonitorSession session;
    QVERIFY(session.Load(error));
    QCOMPARE(session.getConfiguration().getStopDetectionDuration(), 0.75);
}

// Another host may have made the file, for another setting.
void tst_MonitorSession::silence_isJudgedEvery1500Ms_whoeverWroteTheFileFirst()
{
    ConfigurationStore store;
    QVERIFY(store.Load());
    store.getConfiguration().setStopDetectionThreshold(99);
    QVERIFY(store.Save());
    MonitorSession session;
    QString error;
    QVERIFY(session.Load(error));
    QCOMPARE(session.getConfiguration().getStopDetectionThreshold(), short(99));
    QCOMPARE(session.getConfiguration().getStopDetectionDuration(), 1.5);
}

void tst_MonitorSession::analyzer_isAnnouncedBeforeItIsGone()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    QList<AudioAnalyzer*> analyzers;
    QPointer<AudioAnalyzer> pLast;
    connect(&session, &MonitorSession::OnAnalyzerChanged, this, [&](AudioAnalyzer* pAnalyzer) {
        // Whoever is told to let go of it can still look at it.
        QVERIFY(analyzers.isEmpty() || pAnalyzer || !analyzers.last() || pLast);
        analyzers.append(pAnalyzer);
        pLast = pAnalyzer;
    });
    session.Listen({});
    QCOMPARE(analyzers.size(), 2);
    QVERIFY(!analyzers[0] && analyzers[1]);
    QCOMPARE(session.getAnalyzer(), analyzers[1]);
    session.Listen(Name("Deck"));
    QCOMPARE(analyzers.size(), 4);
    QVERIFY(!analyzers[2] && analyzers[3]);
}

void tst_MonitorSession::vanishedDevice_isSaidAndResumed()
{
    FakeAudioDevice deck = desktoptest::MusicDevice("Deck");
    deck.vanishing = eVanishing::eStopped;
    const QByteArray handle = Machine().Plug(deck);
    MonitorSession session;
    QSignalSpy devices(&session, &MonitorSession::OnDeviceChanged);
    session.Listen({});
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    Machine().Unplug(handle);
    QTRY_COMPARE(session.getSource().capture, eCaptureWaiting);
    QCOMPARE(devices.last(), QVariantList({Name("Deck"), false}));
    Machine().Plug(deck);
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    QCOMPARE(devices.last(), QVariantList({Name("Deck"), true}));
}

void tst_MonitorSession::tempo_isMeasured()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Listen({});
    const LiveValues& values = session.getFeed().Read();
    // Five beats after a second and a half of listening.
    const auto isMeasured = [&] {
        session.getFeed().Read();
        return std::abs(values.bpm - 128.0) < 2.0 && std::abs(values.measuredBPM - 128.0) < 2.0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isMeasured(), 30000);
    QVERIFY(values.isAnalyzing && values.isPlaying);
    QVERIFY(values.charge == BeatClockCharge_Music && !values.isHeld);
    QVERIFY(values.maximal > 5000);
    QVERIFY(values.threshold > 0);
    QCOMPARE(values.amplitudes.size(), std::size_t(512));
    QVERIFY(session.TakePeak() > 20000);
}

void tst_MonitorSession::silence_hasNoTempo()
{
    Machine().Plug(desktoptest::SilentDevice("Line"));
    MonitorSession session;
    session.Listen({});
    // The analyzer assumes beats at the middle of the profile's range, 132.5 BPM.
    QTRY_VERIFY_WITH_TIMEOUT(session.getAnalyzer() && session.getAnalyzer()->getComputedBPM() > 0.0,
                             12000);
    QTest::qWait(600);
    QCOMPARE(session.getFeed().Read().bpm, 0.0);
    QCOMPARE(session.getFeed().Read().measuredBPM, 0.0);
    QVERIFY(!session.getFeed().Read().isHeld);
}

void tst_MonitorSession::beats_flash()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    QSignalSpy flashes(&session.getFeed(), &LiveFeed::OnFlashed);
    session.Listen({});
    QTRY_VERIFY_WITH_TIMEOUT(session.getFeed().getBeatCount() >= 8, 12000);
    const LiveValues& values = session.getFeed().Read();
    QVERIFY(values.beatTime > 0 && values.pulseTime > 0);
    QVERIFY(values.spectrumCount > 20);
    QVERIFY(quint64(flashes.count()) > session.getFeed().getBeatCount());
}

void tst_MonitorSession::reset_forgetsTheTempo()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Reset();
    session.Listen({});
    QTRY_VERIFY_WITH_TIMEOUT(session.getFeed().Read().bpm > 0.0, 12000);
    session.Reset();
    QCOMPARE(session.getFeed().Read().bpm, 0.0);
    QCOMPARE(session.getFeed().Read().measuredBPM, 0.0);
    QCOMPARE(session.getAnalyzer()->getComputedBPM(), 0.0);
}

void tst_MonitorSession::beats_areTheClocks()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Listen({});
    QVERIFY(session.isAutomatic());
    QTRY_VERIFY_WITH_TIMEOUT(session.getFeed().Read().beatInBar > 0, 12000);
    const LiveValues& values = session.getFeed().Read();
    QVERIFY(values.isAutomatic);
    QVERIFY(values.confidence > 0.0 && values.confidence <= 1.0);
    QCOMPARE(values.beatsPerBar, 4);
    QTRY_VERIFY_WITH_TIMEOUT(std::abs(session.getFeed().Read().bpm - 128.0) < 1.0, 30000);
    session.getHand().Scale(1, 2);
    QVERIFY(std::abs(session.getFeed().Read().bpm - 64.0) < 1.0);
    session.getHand().Scale(2, 1);
    const double doubled = session.getFeed().Read().bpm;
    session.getHand().Round();
    QCOMPARE(session.getFeed().Read().bpm, std::round(doubled));
    session.getHand().MarkOne();
    const BeatClockState state = session.getBeats().getClock().getState();
    const auto nearest = state.getPosition(shared::ClockThread::getTime() + state.offset);
    QCOMPARE(state.getBeatInBar(std::llround(nearest)), 0);
    session.getHand().Tap();
    session.StopFile();
}

void tst_MonitorSession::defaultInput_isListenedTo_asWhateverItIs()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Listen(kDefaultInput);
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    QCOMPARE(session.getSource().name, Name("Deck"));
    QCOMPARE(session.getDeviceName(), kDefaultInput);
}

void tst_MonitorSession::fixedTempo_outlivesTheSource()
{
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.getHand().HoldAt(120.0);
    session.Listen({});
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 120.0);
    QCOMPARE(session.getFeed().Read().charge, int(BeatClockCharge_Held));
    QCOMPARE(session.getFeed().Read().bpm, 120.0);
    session.Listen(Name("Deck"));
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 120.0);
    session.getHand().Release();
    QCOMPARE(session.getAnalyzer()->getFixedBPM(), 0.0);
    QCOMPARE(session.getFeed().Read().charge, int(BeatClockCharge_Music));
}

void tst_MonitorSession::file_replacesTheDevice_andEnds()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("song.wav"));
    desktoptest::WriteWav(path, desktoptest::Strokes(1.0));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.Listen({});
    QTRY_COMPARE(session.getSource().capture, eCaptureRunning);
    session.PlayFile(path, false);
    QCOMPARE(session.getSource().kind, SourceState::eFile);
    QCOMPARE(session.getSource().name, Name("song.wav"));
    // The device is free for others.
    QVERIFY(!Machine().LastInput());
    QTRY_COMPARE(session.getSource().length, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(session.getSource().kind, SourceState::eEnded, 8000);
    QCOMPARE(session.getSource().error, QString());
    QVERIFY(!session.getAnalyzer());
    QVERIFY(!session.getFeed().Read().isPlaying);
}

void tst_MonitorSession::stopFile_listensAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("song.wav"));
    desktoptest::WriteWav(path, desktoptest::Strokes(1.0));
    Machine().Plug(desktoptest::MusicDevice("Deck"));
    MonitorSession session;
    session.PlayFile(path, true);
    QVERIFY(session.isFilePlaying());
    QTRY_VERIFY(session.getAnalyzer());
    session.StopFile();
    QVERIFY(!session.isFilePlaying());
    QCOMPARE(session.getSource().kind, SourceState::eDevice);
    QCOMPARE(session.getDeviceName(), Name("Deck"));
}

void tst_MonitorSession::brokenFile_isSaid()
{
    MonitorSession session;
    session.PlayFile(QStringLiteral("/nowhere/song.wav"), false);
    QTRY_COMPARE(session.getSource().kind, SourceState::eEnded);
    QCOMPARE(session.getSource().name, Name("song.wav"));
    QVERIFY(session.getSource().error.contains(QLatin1String("no such file")));
}

void tst_MonitorSession::silence_isSaidUntilMusicPlays()
{
    // Silence for five seconds, then music.
    Machine().Plug(
        FakeAudioTrack::FromGenerator(Name("Deck"), desktoptest::kRate, [](qint64 pIndex) {
            return pIndex < 5 * desktoptest::kRate ? qint16(0) : desktoptest::Stroke(pIndex);
        }));
    MonitorSession session;
    session.Listen({});
    QTRY_VERIFY_WITH_TIMEOUT(session.getSource().notice == eDigitalSilenceNotice, 8000);
    QTRY_VERIFY_WITH_TIMEOUT(session.getSource().isPlaying, 8000);
    QTRY_VERIFY(!session.getSource().notice);
}

AA_TEST(tst_MonitorSession, InVirtualTime<QCoreApplication>)
#include "tst_MonitorSession.moc"
