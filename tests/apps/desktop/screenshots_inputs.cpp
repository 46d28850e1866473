// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include <shared/capture/SoundBackEnd.h>

#include <QAction>

#include <apps/desktop/ScreenshotScene.h>
#include <fake/FakeAudioState.h>
#include <fake/FakeAudioTrack.h>
#include <map>
#include <memory>
#include <optional>
#include <vector>

using namespace screenshots;

namespace {

/// A sound server with three inputs, two of which can be heard.
class ThreeInputs : public SoundBackEnd
{
public:
    ThreeInputs()
    {
        _Add("alsa_input.usb-mixer", "USB Mixer", 0.45, false);
        _Add("alsa_input.pci-line", "Line in", 0.0, false);
        _Add("alsa_output.pci-speakers.monitor", "Monitor of Speakers", 0.03, true);
        m_sources.front().isDefault = true;
        _Publish();
        QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
    }

    std::vector<SoundSource> getSources() const override { return m_sources; }
    bool isAnswering() const override { return true; }
    std::optional<SoundPosition> getPosition() const override { return {}; }
    std::unique_ptr<SoundLevels> HearLevels() override
    {
        auto levels = std::make_unique<Levels>();
        levels->peaks = m_peaks;
        return levels;
    }

private:
    struct Levels : SoundLevels
    {
        std::map<QString, double> TakePeaks() override { return peaks; }

        std::map<QString, double> peaks;
    };

    void _Add(const char* pName, const char* pDescription, double pPeak, bool pIsMonitor)
    {
        constexpr int kRate = 48000;
        SoundSource source;
        source.name = QString::fromUtf8(pName);
        source.description = QString::fromUtf8(pDescription);
        source.channels = 2;
        source.sampleRate = kRate;
        source.isMonitor = pIsMonitor;
        m_sources.push_back(source);
        m_peaks[source.name] = pPeak;
        FakeAudioState::Get().Plug(
            FakeAudioTrack::FromGenerator(source.name, kRate, [](qint64) { return qint16(0); }));
    }

    std::vector<SoundSource> m_sources;
    std::map<QString, double> m_peaks;
};

}  // namespace

void screenshots::shootFirstStart(const QDir& pFolder)
{
    {
        const ThreeInputs server;
        Scene scene(pFolder);
        scene.session.m_isNew = true;
        scene.session.Listen({});
        Wait(1200);
        scene.Save("first-start");
        scene.setLook(eGrayLook);
        Wait(300);
        scene.Save("first-start-gray");
        scene.window->m_pContrast->setChecked(true);
        Wait(300);
        scene.Save("first-start-contrast");
    }
    FakeAudioState::Get().Clear();
    QtAudioInputDevicesManager::GetInstance()->Enumerate(true);
}
