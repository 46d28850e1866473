// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/live/BpmPanel.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QAction>

#include <apps/desktop/window/WindowTest.h>
#include <atomic>
#include <cmath>
#include <memory>

/// An operator's evening, by keys alone, for whatever clock and display a test runs on.
namespace eveningtest {

using namespace windowtest;

constexpr int kPatienceMs = 60000;

/// Music, silent while it is in a break.
class Music
{
public:
    FakeAudioDevice Play(const char* pName)
    {
        return FakeAudioTrack::FromGenerator(
            QLatin1String(pName),
            desktoptest::kRate,
            [this](qint64 pIndex) { return isBreak ? qint16(0) : desktoptest::Stroke(pIndex); });
    }

    std::atomic<bool> isBreak{false};
};

/// The program, as its main() puts it together, from a start to its end.
class Evening
{
public:
    Evening()
    {
        QString error;
        if (!session.Load(error))
            qFatal("%s", qPrintable(error));
        settings = WindowSettings::Load({});
        window = std::make_unique<MainWindow>(session, settings, makePalette(eDarkLook));
        window->Place(settings.position);
        if (!PanelTest::Show(*window))
            qFatal("the window is not active");
        session.Listen({});
    }
    virtual ~Evening() = default;
    Evening(const Evening&) = delete;
    Evening& operator=(const Evening&) = delete;

    /// Quits.
    bool End()
    {
        const bool isKept = window->CollectSettings().Save(settings);
        return session.getSaver().Save() && isKept;
    }

    /// The key goes to the window that is active.
    virtual void Press(Qt::Key pKey) { QTest::keyClick(QApplication::activeWindow(), pKey); }
    QString getStatus() const { return window->getStatus().getSource(); }
    double getTempo() { return session.getFeed().Read().bpm; }
    int getCharge() { return session.getFeed().Read().charge; }
    bool isFollowed() { return session.getFeed().Read().beatInBar > 0; }
    bool isAbout(double pBPM) { return std::abs(getTempo() - pBPM) < 0.015 * pBPM; }

    MonitorSession session;
    WindowSettings settings;
    std::unique_ptr<MainWindow> window;
};

// Steps of an evening; a failed check ends one of them, see QTest::currentTestFailed().

/// A wrong tempo, and a hand that takes the beat: pTapped is the tempo that it tapped.
inline void correct(Evening& pEvening, double& pTapped)
{
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.isAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.getCharge(), int(BeatClockCharge_Music));
    pEvening.Press(Qt::Key_Down);
    QVERIFY(pEvening.isAbout(64.0));
    QTest::qWait(3000);
    // It stays so while the music is followed.
    QVERIFY(pEvening.isAbout(64.0));
    pEvening.Press(Qt::Key_Up);
    QVERIFY(pEvening.isAbout(128.0));
    pEvening.Press(Qt::Key_Space);
    for (int tap = 0; tap < 4; ++tap, QTest::qWait(500))
        pEvening.Press(Qt::Key_T);
    QCOMPARE(pEvening.getCharge(), int(BeatClockCharge_Hand));
    pTapped = pEvening.getTempo();
    pEvening.Press(Qt::Key_H);
    QCOMPARE(pEvening.getCharge(), int(BeatClockCharge_Held));
}

/// A break passes, and the held beat goes on; then the music leads again.
inline void bridge(Evening& pEvening, Music& pMusic, double pHeld)
{
    const quint64 beats = pEvening.session.getFeed().getBeatCount();
    pMusic.isBreak = true;
    QTRY_VERIFY_WITH_TIMEOUT(!pEvening.session.getFeed().Read().isPlaying, kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.session.getFeed().getBeatCount() - beats >= 6, kPatienceMs);
    QVERIFY(pEvening.isAbout(pHeld));
    QCOMPARE(pEvening.getCharge(), int(BeatClockCharge_Held));
    pMusic.isBreak = false;
    pEvening.Press(Qt::Key_H);
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.isFollowed() && pEvening.isAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.getCharge(), int(BeatClockCharge_Music));
}

inline void loseTheInput(Evening& pEvening, Music& pMusic, const QByteArray& pDeck)
{
    Machine().Unplug(pDeck);
    PanelTest::Poll();
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.getStatus().startsWith(QStringLiteral("Waiting for “Deck”")),
                             kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(!pEvening.isFollowed(), kPatienceMs);
    Machine().Plug(pMusic.Play("Deck"));
    PanelTest::Poll();
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.isFollowed() && pEvening.isAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.getStatus(), QStringLiteral("Listening to “Deck”"));
}

/// The stage view, the outputs, and choices that are kept.
inline void choose(Evening& pEvening)
{
    MainWindow& window = *pEvening.window;
    pEvening.Press(Qt::Key_F11);
    QTRY_VERIFY_WITH_TIMEOUT(window.getStage().isActiveWindow(), kPatienceMs);
    pEvening.Press(Qt::Key_F11);
    QTRY_VERIFY_WITH_TIMEOUT(window.isActiveWindow(), kPatienceMs);
    QVERIFY(!window.getStage().isVisible());
    pEvening.Press(Qt::Key_O);
    QVERIFY(pEvening.session.getOutputs().isOn());
    pEvening.Press(Qt::Key_O);
    QVERIFY(!pEvening.session.getOutputs().isOn());
    pEvening.Press(Qt::Key_2);
    window.m_actions[eSpectrumPanel]->trigger();
    window.m_pSoftFlash->trigger();
    pEvening.session.setOffset(25.0);
    QVERIFY(pEvening.End());
}

/// After the next start.
inline void expectAsLeft(Evening& pNext)
{
    QVERIFY(!pNext.session.isAutomatic());
    QCOMPARE(pNext.session.getConfiguration().getSelectedProfile().getName(),
             pNext.session.getConfiguration().getProfiles()[1].getName());
    QVERIFY(!pNext.window->isPanelVisible(eSpectrumPanel));
    QVERIFY(pNext.window->m_pSoftFlash->isChecked());
    QCOMPARE(pNext.session.getOffset(), 25.0);
    QTRY_COMPARE_WITH_TIMEOUT(
        pNext.getStatus(), QStringLiteral("Listening to “Deck”"), kPatienceMs);
}

/// The whole of it. pTapped as for correct(). Begin makes a new Evening.
template <typename Begin>
void spend(const Begin& pBegin, double& pTapped)
{
    Music music;
    {
        const std::unique_ptr<Evening> evening = pBegin();
        QVERIFY(evening->getStatus().startsWith(QLatin1String("No input device")));
        const QByteArray deck = Machine().Plug(music.Play("Deck"));
        PanelTest::Poll();
        QTRY_COMPARE_WITH_TIMEOUT(
            evening->getStatus(), QStringLiteral("Listening to “Deck”"), kPatienceMs);
        correct(*evening, pTapped);
        if (!QTest::currentTestFailed())
            bridge(*evening, music, pTapped);
        if (!QTest::currentTestFailed())
            loseTheInput(*evening, music, deck);
        if (!QTest::currentTestFailed())
            choose(*evening);
    }
    if (!QTest::currentTestFailed())
        expectAsLeft(*pBegin());
    // It plays this music.
    PanelTest::Clear();
}

}  // namespace eveningtest
