// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <shared/capture/InputDevices.h>
#include <shared/pulse/PulseBackEnd.h>
#include <shared/pulse/PulseInput.h>

#include <QAudioDeviceInfo>
#include <QFile>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <pulse/PulseServer.h>
#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

constexpr int kTimeoutMs = 20000;
constexpr int kRate = 48000;  // Hz
constexpr int kRamp = 20011;  // samples after which the track repeats; prime

using Samples = std::vector<qint16>;

/// Every name as the hosts see it, the default one marked.
QByteArray Names()
{
    QStringList names;
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    for (const QtAudioInputDeviceInfo& device : devices)
        names.append(device.getDeviceName() + (device.isDefault() ? Text("*") : QString()));
    names.sort();
    return names.join(QLatin1Char('|')).toUtf8();
}

InputDevice DeviceOf(const char* pName)
{
    for (const InputDevice& device : listInputDevices())
        if (device.name == Text(pName))
            return device;
    return {};
}

/// A ramp without a zero: every sample tells which one must follow it.
QByteArray Ramp(int pCount)
{
    Samples track;
    for (int i = 0; i < pCount; ++i)
        track.push_back(qint16(1 + i % kRamp));
    return QByteArray(reinterpret_cast<const char*>(track.data()),
                      int(track.size() * sizeof(qint16)));
}

/// One capture with all that it delivers, and where the back end says that it belongs.
class Recording
{
public:
    explicit Recording(const char* pName)
        : device(QtAudioInputDeviceInfo(Text(pName), false).Create(nullptr))
    {
        using D = QtAudioInputDevice;
        QObject::connect(device.get(), &D::OnRecordingStopped, [this] { ++stops; });
        QObject::connect(
            device.get(), &D::OnAudioSamplesRecorded, [this](qint16* pSamples, unsigned pCount) {
                samples.insert(samples.end(), pSamples, pSamples + pCount);
                position = SoundBackEnd::get()->getPosition();
            });
    }
    bool Start()
    {
        return device->SetRecordingFormat(device->getPreferredInputFormat()) &&
               device->StartRecording();
    }

    std::unique_ptr<QtAudioInputDevice> device;
    Samples samples;
    std::optional<SoundPosition> position;
    int stops = 0;
};

}  // namespace

/// The hosts' own back end as Qt Multimedia and the hosts see it. The cases build on each other.
class tst_PulseBackEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void install_isRefused_withoutAServer();
    void install_makesItTheOnlyOne();
    void sources_areListed_asTheServerHasThem();
    void everySource_isMonoWith16Bits();
    void list_followsTheServer();
    void list_needsNoAnswer();
    void capture_deliversTheTrackWithoutAGap();
    void position_isThatOfTheSound();
    void unreadSamples_areCountedAsLost();
    void otherSources_leaveNoGap();
    void capture_isStopped_whenItsSourceGoes();
    void pushMode_writesIntoTheDevice();
    void paused_capture_deliversNothing();
    void ending_needsNoAnswer();

private:
    PulseServer m_server;
    std::unique_ptr<PulseBackEnd> m_backEnd;
};

void tst_PulseBackEnd::initTestCase()
{
    m_backEnd = std::make_unique<PulseBackEnd>();
}

void tst_PulseBackEnd::install_isRefused_withoutAServer()
{
    const QStringList paths = QCoreApplication::libraryPaths();
    QVERIFY(!PulseBackEnd().Install());
    QCOMPARE(SoundBackEnd::get(), nullptr);
    QCOMPARE(PulseBackEnd::get(), nullptr);
    QCOMPARE(QCoreApplication::libraryPaths(), paths);
}

void tst_PulseBackEnd::install_makesItTheOnlyOne()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY2(!m_server.LoadSink(Text("deck")).isEmpty(), qPrintable(m_server.error()));
    QVERIFY(!m_server.LoadSource(Text("line"), 2, 44100).isEmpty());
    QVERIFY(!m_server.LoadSource(Text("fast"), 6, 96000).isEmpty());
    QVERIFY(m_server.setDefaultSource(Text("line")));
    QVERIFY(m_backEnd->Install());
    QCOMPARE(SoundBackEnd::get(), m_backEnd.get());
    QTRY_COMPARE(Names(), QByteArray("deck.monitor|fast|line*"));
    // Plugins of other kinds are still found, and those of this kind never again.
    const QStringList paths = QCoreApplication::libraryPaths();
    QVERIFY(!paths.isEmpty());
    QVERIFY(std::any_of(paths.begin(), paths.end(), [](const QString& pPath) {
        return QFile::exists(pPath + Text("/platforms"));
    }));
    QCoreApplication::setLibraryPaths(paths);
    QCOMPARE(Names(), QByteArray("deck.monitor|fast|line*"));
    QVERIFY(QAudioDeviceInfo::availableDevices(QAudio::AudioOutput).isEmpty());
}

void tst_PulseBackEnd::sources_areListed_asTheServerHasThem()
{
    const InputDevice line = DeviceOf("line");
    QVERIFY(line.source && line.isDefault && line.source->isDefault && !line.isMonitor());
    QCOMPARE(line.source->description, Text("Line-line"));
    QCOMPARE(line.source->channels, 2);
    QCOMPARE(line.source->sampleRate, 44100);
    const InputDevice deck = DeviceOf("deck.monitor");
    QVERIFY(deck.source && !deck.isDefault && !deck.source->isDefault && deck.isMonitor());
    QCOMPARE(deck.source->channels, 1);
    QCOMPARE(deck.source->sampleRate, 48000);
    QVERIFY(m_backEnd->isAnswering());
    // Qt's default is the first of the list.
    QCOMPARE(m_backEnd->getSources().front().name, Text("line"));
}

void tst_PulseBackEnd::everySource_isMonoWith16Bits()
{
    for (const char* name : {"line", "deck.monitor", "fast"}) {
        const InputDevice device = DeviceOf(name);
        QVERIFY2(device.isUsable(), name);
        QCOMPARE(device.format.sampleSize(), 16);
        QCOMPARE(device.format.sampleType(), QAudioFormat::SignedInt);
    }
    // The server's rate where the analysis takes it, else the usual one.
    QCOMPARE(DeviceOf("line").format.sampleRate(), 44100);
    QCOMPARE(DeviceOf("deck.monitor").format.sampleRate(), 48000);
    QCOMPARE(DeviceOf("fast").format.sampleRate(), 48000);
    Recording recording("fast");
    QVERIFY(recording.Start());
    QTRY_VERIFY_WITH_TIMEOUT(recording.samples.size() > kRate / 4, kTimeoutMs);
}

void tst_PulseBackEnd::list_followsTheServer()
{
    const QString module = m_server.LoadSource(Text("guest"));
    QVERIFY(!module.isEmpty());
    QTRY_COMPARE(Names(), QByteArray("deck.monitor|fast|guest|line*"));
    QVERIFY(m_server.setDefaultSource(Text("guest")));
    QTRY_COMPARE(Names(), QByteArray("deck.monitor|fast|guest*|line"));
    QVERIFY(m_server.setDefaultSource(Text("line")));
    QVERIFY(m_server.UnloadModule(module));
    QTRY_COMPARE(Names(), QByteArray("deck.monitor|fast|line*"));
}

void tst_PulseBackEnd::list_needsNoAnswer()
{
    m_server.Freeze();
    QCOMPARE(Names(), QByteArray("deck.monitor|fast|line*"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_backEnd->isAnswering(), kTimeoutMs);
    QCOMPARE(Names(), QByteArray("deck.monitor|fast|line*"));
    m_server.Thaw();
    QTRY_VERIFY_WITH_TIMEOUT(m_backEnd->isAnswering(), kTimeoutMs);
}

void tst_PulseBackEnd::capture_deliversTheTrackWithoutAGap()
{
    QFile file(m_server.folder() + Text("/track.raw"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(Ramp(2 * kRate)) > 0);
    file.close();
    Recording recording("deck.monitor");
    QVERIFY(recording.Start());
    QTRY_VERIFY_WITH_TIMEOUT(!recording.samples.empty(), kTimeoutMs);
    QVERIFY(m_server.Play(file.fileName(), Text("deck")));
    const auto isEnd = [&] {
        return recording.samples.size() > 100 && recording.samples.back() == 0 &&
               std::any_of(recording.samples.begin(), recording.samples.end(), [](qint16 pSample) {
                   return pSample != 0;
               });
    };
    QTRY_VERIFY_WITH_TIMEOUT(isEnd(), kTimeoutMs);
    const auto begin = std::find_if(recording.samples.begin(),
                                    recording.samples.end(),
                                    [](qint16 pSample) { return pSample != 0; });
    const auto end = std::find(begin, recording.samples.end(), 0);
    for (auto sample = begin + 1; sample != end; ++sample)
        QCOMPARE(int(*sample), *(sample - 1) % kRamp + 1);
    // The server itself may swallow the head of a track that joins within one of its blocks.
    QVERIFY(end - begin > kRate);
    QCOMPARE(recording.position->lost, quint64(0));
    m_server.EndPlaying();
}

/// Of samples that have arrived, the last sounds about now; how far from it is the server's matter.
void tst_PulseBackEnd::position_isThatOfTheSound()
{
    Recording recording("line");
    const quint64 start = HighResolutionTimer::getTime();
    QVERIFY(recording.Start());
    QTRY_VERIFY_WITH_TIMEOUT(recording.samples.size() > kRate / 2, kTimeoutMs);
    QVERIFY(recording.position);
    const std::size_t count = recording.samples.size();
    const quint64 instant = recording.position->instant;
    QVERIFY(instant + 1000000 > start && instant < HighResolutionTimer::getTime() + 1000000);
    QTRY_VERIFY_WITH_TIMEOUT(recording.samples.size() > count + 44100, kTimeoutMs);
    // The instants follow the count of samples.
    const auto span = qint64(recording.position->instant - instant);
    const auto counted = qint64(recording.samples.size() - count) * 1000000 / 44100;
    QVERIFY2(std::abs(span - counted) < 100000, QByteArray::number(span - counted).constData());
}

void tst_PulseBackEnd::unreadSamples_areCountedAsLost()
{
    PulseInput input(*m_backEnd, "fast");
    QAudioFormat format = DeviceOf("fast").format;
    input.setFormat(format);
    QIODevice* pStream = input.start();
    QVERIFY(pStream);
    // No event is taken meanwhile. Once the ring is full, the oldest samples go.
    while (input.bytesReady() < input.bufferSize() || input.m_recording.m_ring.getLost() == 0)
        QThread::msleep(10);
    const QByteArray bytes = pStream->readAll();
    QVERIFY(bytes.size() >= input.bufferSize());
    QVERIFY(m_backEnd->getPosition());
    const quint64 lost = m_backEnd->getPosition()->lost;
    QVERIFY(lost > 0);
    QCOMPARE(input.error(), QAudio::NoError);
    QCOMPARE(input.state(), QAudio::ActiveState);
    input.stop();
    QCOMPARE(input.state(), QAudio::StoppedState);
}

void tst_PulseBackEnd::otherSources_leaveNoGap()
{
    Recording recording("line");
    QVERIFY(recording.Start());
    QTRY_VERIFY_WITH_TIMEOUT(!recording.samples.empty(), kTimeoutMs);
    const quint64 before = recording.position->instant;
    const std::size_t count = recording.samples.size();
    for (int i = 0; i < 5; ++i) {
        const QString module = m_server.LoadSource(Text("guest"));
        QVERIFY(m_server.setDefaultSource(Text("guest")));
        QVERIFY(m_server.UnloadModule(module));
    }
    QVERIFY(m_server.setDefaultSource(Text("line")));
    QTRY_VERIFY_WITH_TIMEOUT(recording.samples.size() > count + kRate / 2, kTimeoutMs);
    QCOMPARE(recording.stops, 0);
    QCOMPARE(recording.position->lost, quint64(0));
    QVERIFY(recording.position->instant > before);
}

void tst_PulseBackEnd::capture_isStopped_whenItsSourceGoes()
{
    const QString module = m_server.LoadSource(Text("guest"));
    QTRY_VERIFY(Names().contains("guest"));
    Recording recording("guest");
    QVERIFY(recording.Start());
    QTRY_VERIFY_WITH_TIMEOUT(!recording.samples.empty(), kTimeoutMs);
    QVERIFY(m_server.UnloadModule(module));
    QTRY_COMPARE_WITH_TIMEOUT(recording.stops, 1, kTimeoutMs);
    // A capture of what is not there ends as well.
    PulseInput input(*m_backEnd, "guest");
    input.setFormat(DeviceOf("line").format);
    QVERIFY(input.start());
    QTRY_COMPARE_WITH_TIMEOUT(input.state(), QAudio::StoppedState, kTimeoutMs);
    QCOMPARE(input.error(), QAudio::IOError);
}

void tst_PulseBackEnd::pushMode_writesIntoTheDevice()
{
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    PulseInput input(*m_backEnd, "line");
    input.setFormat(DeviceOf("line").format);
    input.start(&buffer);
    QCOMPARE(input.state(), QAudio::ActiveState);
    QTRY_VERIFY_WITH_TIMEOUT(buffer.size() > 1000, kTimeoutMs);
    QVERIFY(input.processedUSecs() > 0);
    input.stop();
}

void tst_PulseBackEnd::paused_capture_deliversNothing()
{
    PulseInput input(*m_backEnd, "line");
    input.setFormat(DeviceOf("line").format);
    QVERIFY(input.start());
    QTRY_VERIFY_WITH_TIMEOUT(input.bytesReady() > 0, kTimeoutMs);
    input.suspend();
    QCOMPARE(input.state(), QAudio::SuspendedState);
    input.resume();
    QCOMPARE(input.state(), QAudio::ActiveState);
    const int ready = input.bytesReady();
    QTRY_VERIFY_WITH_TIMEOUT(input.bytesReady() > ready + 8820, kTimeoutMs);
}

void tst_PulseBackEnd::ending_needsNoAnswer()
{
    auto recording = std::make_unique<Recording>("line");
    QVERIFY(recording->Start());
    QTRY_VERIFY_WITH_TIMEOUT(!recording->samples.empty(), kTimeoutMs);
    m_server.Freeze();
    QVERIFY(recording->device->StopRecording());
    recording.reset();
    recording = std::make_unique<Recording>("line");
    QVERIFY(recording->Start());
    recording.reset();
    m_backEnd.reset();
    QCOMPARE(SoundBackEnd::get(), nullptr);
    QCOMPARE(Names(), QByteArray());
    // It still hangs; whoever waited for it would not have come here.
    m_server.Thaw();
}

AA_TEST(tst_PulseBackEnd, QCoreApplication)
#include "tst_PulseBackEnd.moc"
