// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QStyleFactory>

#include <common/DemoTrack.h>
#include <cstdio>
#include <desktop/Look.h>
#include <desktop/MainWindow.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/settings/Translations.h>
#include <fake/FakeAudioState.h>
#include <fake/FakeAudioTrack.h>
#include <memory>
#include <vector>

namespace {

constexpr int kRate = 48000;  // Hz
constexpr int kSettleMs = 14000;

void Wait(int pMs)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < pMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}

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

/// One window with its session on the fake machine.
class Scene
{
public:
    explicit Scene(const WindowSettings& pSettings = WindowSettings(),
                   bool pIsGray = false,
                   bool pIsDark = false)
    {
        session.getConfiguration().setGrayMode(pIsGray);
        session.getConfiguration().setTopMost(false);
        const QPalette desktop = makePalette(pIsDark ? eDarkLook : eLightLook);
        window = std::make_unique<MainWindow>(session, pSettings, desktop);
        window->show();
    }

    void Save(const QDir& pFolder, const char* pName)
    {
        const QString path = pFolder.filePath(QString::fromUtf8(pName) + QStringLiteral(".png"));
        const QImage image = window->grab().toImage().convertToFormat(QImage::Format_RGB888);
        if (!image.save(path, nullptr, 0))
            qFatal("cannot write %s", qPrintable(path));
        std::printf("%s\n", qPrintable(path));
    }

    MonitorSession session;
    std::unique_ptr<MainWindow> window;
};

void Plug(const FakeAudioDevice& pDevice)
{
    FakeAudioState::Get().Plug(pDevice);
    QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
}

void ShootDevices(const QDir& pFolder)
{
    Scene scene;
    scene.session.Listen({});
    Wait(500);
    scene.Save(pFolder, "no-device");
    Plug(Deck("Deck A"));
    Plug(Silence("Line in"));
    scene.session.Listen(QStringLiteral("Deck A"));
    Wait(kSettleMs);
    scene.Save(pFolder, "playing");
    scene.session.Listen(QStringLiteral("Line in"));
    Wait(7000);
    scene.Save(pFolder, "stopped");
}

void ShootLook(const QDir& pFolder, const char* pName, bool pIsGray, bool pIsDark)
{
    Scene scene(WindowSettings(), pIsGray, pIsDark);
    scene.session.Listen(QStringLiteral("Deck A"));
    Wait(kSettleMs);
    scene.Save(pFolder, pName);
}

}  // namespace

/// Writes pictures of the window in all its states into a folder.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc != 2)
        qFatal("usage: %s FOLDER", argv[0]);
    FakeAudioState::Install();
    FakeAudioState::Get().Clear();
    Translations translations;
    translations.setLanguage(QStringLiteral("en"));
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    ShootDevices(folder);
    ShootLook(folder, "gray", true, false);
    ShootLook(folder, "dark", false, true);
    return 0;
}
