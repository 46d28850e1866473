// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <demo/DemoTrack.h>
#include <desktop/live/StripPanel.h>
#include <desktop/look/Style.h>
#include <desktop/stage/StageView.h>
#include <desktop/window/BoothActions.h>
#include <desktop/window/SaveDialog.h>

#include <QAction>
#include <QApplication>

#include <apps/desktop/ScreenshotScene.h>
#include <fake/FakeAudioState.h>
#include <fake/FakeAudioTrack.h>
#include <string>
#include <vector>

using namespace screenshots;

namespace {

constexpr int kRate = 48000;  // Hz
constexpr int kSettleMs = 14000;

/// The demo track in mono, without its quiet beginning.
std::vector<qint16> DemoSamples()
{
    DemoTrack::Options options;
    options.sampleRate = kRate;
    DemoTrack track(options);
    std::vector<float> frames(std::size_t(track.getFrameCount()) * 2);
    track.Read(frames.data(), std::size_t(track.getFrameCount()));
    std::vector<qint16> samples;
    for (std::size_t i = 0; i + 1 < frames.size(); i += 2)
        samples.push_back(qint16(16383.0F * (frames[i] + frames[i + 1])));
    return samples;
}

FakeAudioDevice Deck(const char* pName)
{
    static const std::vector<qint16> samples = DemoSamples();
    return FakeAudioTrack::FromGenerator(QString::fromUtf8(pName), kRate, [](qint64 pIndex) {
        return samples[std::size_t(pIndex) % samples.size()];
    });
}

FakeAudioDevice Silence(const char* pName)
{
    return FakeAudioTrack::FromGenerator(
        QString::fromUtf8(pName), kRate, [](qint64) { return qint16(0); });
}

QByteArray Plug(const FakeAudioDevice& pDevice)
{
    const QByteArray handle = FakeAudioState::Get().Plug(pDevice);
    QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
    return handle;
}

void ShootLooks(Scene& pScene)
{
    pScene.SaveOnBeat("playing");
    pScene.setLook(eDarkLook);
    pScene.SaveOnBeat("dark");
    pScene.setLook(eGrayLook);
    pScene.SaveOnBeat("gray");
    pScene.window->m_pContrast->setChecked(true);
    pScene.SaveOnBeat("contrast");
    pScene.window->m_pContrast->setChecked(false);
    pScene.setLook(eLightLook);
    pScene.session.getHand().Hold();
    pScene.window->setFocus();
    pScene.SaveOnBeat("held");
    pScene.session.getHand().Release();
}

void ShootLanguages(Scene& pScene)
{
    for (const char* code : {"de", "es", "fr"}) {
        pScene.session.getConfiguration().setLanguage(QLatin1String(code));
        pScene.translations.setLanguage(QLatin1String(code));
        pScene.window->m_pSettings->getAdvanced().Refresh();
        Wait(400);
        pScene.Save((std::string("playing-") + code).c_str());
    }
    pScene.session.getConfiguration().setLanguage({});
    pScene.translations.setLanguage(QStringLiteral("en"));
    pScene.window->m_pSettings->getAdvanced().Refresh();
}

void ShootPanels(Scene& pScene)
{
    MainWindow& window = *pScene.window;
    for (int panel = 0; panel < ePanelCount; ++panel)
        window.setPanelVisible(ePanel(panel), panel <= eThresholdPanel);
    window.resize(window.minimumSizeHint().width(), 600);
    Wait(300);
    pScene.SaveOnBeat("live-panels");
    for (int panel = 0; panel < ePanelCount; ++panel)
        window.setPanelVisible(ePanel(panel), panel <= eThresholdPanel || panel == eDurationsPanel);
    window._SetSize();
    Wait(300);
    pScene.Save("durations");
    for (int panel = 0; panel < ePanelCount; ++panel)
        window.setPanelVisible(ePanel(panel), panel <= eBeatLEDPanel);
    window.resize(1500, 1000);
    Wait(300);
    pScene.SaveOnBeat("tempo-and-lamp");
    for (int panel = 0; panel < ePanelCount; ++panel)
        window.setPanelVisible(ePanel(panel), panel != eDurationsPanel);
    window._SetSize();
    Wait(300);
}

/// Waits for that beat of the bar, from 1, while the window is bright.
void AwaitBeat(Scene& pScene, int pBeat)
{
    LiveFeed& feed = pScene.session.getFeed();
    do {
        const quint64 beats = feed.getBeatCount();
        while (feed.getBeatCount() == beats)
            Wait(1);
        pScene.window->_Refresh();
    } while (feed.Read().beatInBar != pBeat);
}

void ShootStage(Scene& pScene)
{
    StageView& stage = pScene.window->getStage();
    stage.setGeometry(0, 0, 1280, 720);
    stage.show();
    Wait(500);
    AwaitBeat(pScene, 1);
    pScene.Save("stage-one", stage);
    AwaitBeat(pScene, 3);
    pScene.Save("stage", stage);
    pScene.session.getHand().Hold();
    AwaitBeat(pScene, 4);
    Wait(200);
    pScene.Save("stage-held", stage);
    pScene.session.getHand().Release();
    pScene.window->m_pSoftFlash->setChecked(true);
    AwaitBeat(pScene, 1);
    pScene.Save("stage-soft", stage);
    pScene.window->m_pSoftFlash->setChecked(false);
    pScene.window->getActions().get(eKeysAction).trigger();
    Wait(200);
    pScene.Save("stage-keys", stage);
    pScene.window->getActions().get(eKeysAction).trigger();
    pScene.window->LeaveStage();
}

void ShootTroubles(Scene& pScene, const QByteArray& pDeck)
{
    pScene.session.Listen(QStringLiteral("Line in"));
    Wait(6000);
    pScene.Save("silence");
    pScene.session.getConfiguration().setDisplayStopped(true);
    pScene.window->ApplyFlags();
    pScene.window->m_pSettings->getAdvanced().Refresh();
    pScene.session.Listen(QStringLiteral("Deck A"));
    Wait(kSettleMs);
    FakeAudioState::Get().Unplug(pDeck);
    QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
    Wait(1000);
    pScene.Save("device-gone");
    pScene.window->ShowProblem(QStringLiteral(
        "/opt/beat-monitor/AudioAnalyzer.cfg cannot be written; the folder /opt/beat-monitor must "
        "be writable, and the name free for a file"));
    Wait(200);
    pScene.Save("not-saved");
    pScene.window->ShowProblem({});
}

/// Music that stops.
void ShootStop(Scene& pScene)
{
    Plug(FakeAudioTrack::FromGenerator(QStringLiteral("Tape"), kRate, [](qint64 pIndex) {
        static const std::vector<qint16> samples = DemoSamples();
        return pIndex < 12 * kRate ? samples[std::size_t(pIndex + 8 * kRate)] : qint16(0);
    }));
    pScene.session.Listen(QStringLiteral("Tape"));
    Wait(14000);
    pScene.Save("stopped");
}

/// What happened in the scenes before, with music and the hand on it at the end.
void ShootStrip(Scene& pScene)
{
    MainWindow& window = *pScene.window;
    Plug(Deck("Deck B"));
    pScene.session.Listen(QStringLiteral("Deck B"));
    Wait(kSettleMs);
    pScene.session.getHand().Hold();
    Wait(6000);
    pScene.session.getHand().Release();
    Wait(6000);
    window.setPanelVisible(eStripPanel, true);
    window._SetSize();
    Wait(500);
    pScene.SaveOnBeat("strip");
    window.getStrip().Zoom(2);
    pScene.setLook(eDarkLook);
    pScene.SaveOnBeat("strip-near");
    pScene.setLook(eLightLook);
    SaveDialog dialog(pScene.session.getSound(), &window);
    dialog.show();
    Wait(300);
    pScene.Save("save", dialog);
    window.setPanelVisible(eStripPanel, false);
}

void Shoot(const QDir& pFolder)
{
    shootFirstStart(pFolder);
    Scene scene(pFolder);
    scene.session.Listen({});
    Wait(500);
    scene.Save("no-device");
    const QByteArray deck = Plug(Deck("Deck A"));
    Plug(Silence("Line in"));
    scene.session.Listen(QStringLiteral("Deck A"));
    Wait(kSettleMs);
    ShootLooks(scene);
    scene.setLook(eLightLook);
    ShootLanguages(scene);
    shootOutputs(scene);
    ShootStage(scene);
    ShootPanels(scene);
    ShootTroubles(scene, deck);
    ShootStop(scene);
    ShootStrip(scene);
}

}  // namespace

/// Writes pictures of the window in all its states into a folder.
int main(int argc, char* argv[])
{
    style::Prepare();
    QApplication application(argc, argv);
    style::Apply();
    if (argc != 2)
        qFatal("usage: %s FOLDER", argv[0]);
    FakeAudioState::Install();
    FakeAudioState::Get().Clear();
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    Shoot(folder);
    return 0;
}
