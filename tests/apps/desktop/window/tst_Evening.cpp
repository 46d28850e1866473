// SPDX-License-Identifier: MIT
#include <desktop/live/BpmPanel.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/SettingsColumn.h>
#include <desktop/window/StatusLine.h>

#include <QAction>

#include <apps/desktop/window/WindowTest.h>
#include <cmath>
#include <memory>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using namespace windowtest;

namespace {

constexpr int kPatienceMs = 30000;  // of virtual time

/// Music with a break from 40 to 46 s after it was plugged in.
FakeAudioDevice Set(const char* pName)
{
    return FakeAudioTrack::FromGenerator(
        QLatin1String(pName),
        desktoptest::kRate,
        [](qint64 pIndex) {
            const double seconds = double(pIndex) / desktoptest::kRate;
            return seconds > 40.0 && seconds < 46.0 ? qint16(0) : desktoptest::Stroke(pIndex);
        });
}

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

    /// Quits.
    bool End()
    {
        const bool isKept = window->CollectSettings().Save(settings);
        return session.getSaver().Save() && isKept;
    }

    void Press(Qt::Key pKey) { QTest::keyClick(window.get(), pKey); }
    QString Status() const { return window->getStatus().getSource(); }
    double Tempo() { return session.getFeed().Read().bpm; }
    int Charge() { return session.getFeed().Read().charge; }
    bool IsFollowed() { return session.getFeed().Read().beatInBar > 0; }
    bool IsAbout(double pBPM) { return std::abs(Tempo() - pBPM) < 0.015 * pBPM; }

    MonitorSession session;
    WindowSettings settings;
    std::unique_ptr<MainWindow> window;
};

}  // namespace

/// An operator's evening, by keys alone.
class tst_Evening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { PanelTest::Install(); }
    void init();
    void cleanup() { QFile::remove(UISettings::_getDefaultPath()); }

    void evening_isRuledByKeys_andKept();

private:
    static void _Play(Evening& pEvening);
    static void _LoseTheInput(Evening& pEvening, const QByteArray& pDeck);
};

void tst_Evening::init()
{
    PanelTest::Clear();
    desktoptest::ForgetSettings();
    QFile::remove(UISettings::_getDefaultPath());
}

/// A wrong tempo, a hand, and a break.
void tst_Evening::_Play(Evening& pEvening)
{
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.IsAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.Charge(), int(BeatClockCharge_Music));
    pEvening.Press(Qt::Key_Down);
    QVERIFY(pEvening.IsAbout(64.0));
    QTest::qWait(3000);
    // It stays so while the music is followed.
    QVERIFY(pEvening.IsAbout(64.0));
    pEvening.Press(Qt::Key_Up);
    QVERIFY(pEvening.IsAbout(128.0));
    pEvening.Press(Qt::Key_Space);
    for (int tap = 0; tap < 4; ++tap, QTest::qWait(500))
        pEvening.Press(Qt::Key_T);
    QCOMPARE(pEvening.Charge(), int(BeatClockCharge_Hand));
    QVERIFY(pEvening.IsAbout(120.0));
    pEvening.Press(Qt::Key_H);
    QCOMPARE(pEvening.Charge(), int(BeatClockCharge_Held));
    // The break passes, and the beat goes on.
    const quint64 beats = pEvening.session.getFeed().getBeatCount();
    QTRY_VERIFY_WITH_TIMEOUT(!pEvening.session.getFeed().Read().isPlaying, 60000);
    QTest::qWait(2000);
    QVERIFY(pEvening.session.getFeed().getBeatCount() - beats >= 4);
    QVERIFY(pEvening.IsAbout(120.0));
    pEvening.Press(Qt::Key_H);
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.IsFollowed() && pEvening.IsAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.Charge(), int(BeatClockCharge_Music));
}

void tst_Evening::_LoseTheInput(Evening& pEvening, const QByteArray& pDeck)
{
    Machine().Unplug(pDeck);
    PanelTest::Poll();

    QTRY_VERIFY_WITH_TIMEOUT(pEvening.Status().startsWith(QStringLiteral("Waiting for “Deck”")),
                             kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(!pEvening.IsFollowed(), kPatienceMs);
    Machine().Plug(Set("Deck"));
    PanelTest::Poll();
    QTRY_VERIFY_WITH_TIMEOUT(pEvening.IsFollowed() && pEvening.IsAbout(128.0), kPatienceMs);
    QCOMPARE(pEvening.Status(), QStringLiteral("Listening to “Deck”"));
}

void tst_Evening::evening_isRuledByKeys_andKept()
{
    {
        Evening evening;
        QVERIFY(evening.Status().startsWith(QLatin1String("No input device")));
        const QByteArray deck = Machine().Plug(Set("Deck"));
        PanelTest::Poll();
        QTRY_COMPARE_WITH_TIMEOUT(
            evening.Status(), QStringLiteral("Listening to “Deck”"), kPatienceMs);
        _Play(evening);
        if (QTest::currentTestFailed())
            return;
        _LoseTheInput(evening, deck);
        if (QTest::currentTestFailed())
            return;
        evening.Press(Qt::Key_F11);
        QVERIFY(evening.window->getStage().isVisible());
        evening.Press(Qt::Key_F11);
        evening.Press(Qt::Key_O);
        QVERIFY(evening.session.getOutputs().isOn());
        evening.Press(Qt::Key_O);
        QVERIFY(!evening.session.getOutputs().isOn());
        evening.Press(Qt::Key_2);
        evening.window->m_actions[eSpectrumPanel]->trigger();
        evening.window->m_pSoftFlash->trigger();
        evening.session.setOffset(25.0);
        QVERIFY(evening.End());
    }
    Evening next;
    QVERIFY(!next.session.isAutomatic());
    QCOMPARE(next.session.getConfiguration().getSelectedProfile().getName(),
             next.session.getConfiguration().getProfiles()[1].getName());
    QVERIFY(!next.window->isPanelVisible(eSpectrumPanel));
    QVERIFY(next.window->m_pSoftFlash->isChecked());
    QCOMPARE(next.session.getOffset(), 25.0);
    QTRY_COMPARE_WITH_TIMEOUT(next.Status(), QStringLiteral("Listening to “Deck”"), kPatienceMs);
}

AA_TEST(tst_Evening, InVirtualTime<QApplication>)
#include "tst_Evening.moc"
