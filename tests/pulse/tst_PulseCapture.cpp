// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>
#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>

#include "PulseServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibraryInfo>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <support/TestClass.h>
#include <unit/audio/WatcherLog.h>
#include <utility>
#include <vector>

namespace {

constexpr int kRate = 48000;           // Hz
constexpr int kRamp = 20011;           // samples after which the track repeats; prime
constexpr size_t kServerBlock = 2400;  // samples in the 50 ms that a null sink renders at a time
constexpr double kEarlySeconds = 2.0;  // of a recording; the rest is late
constexpr int kTimeoutMs = 60000;      // for what comes sooner or later

using Samples = std::vector<qint16>;

/// A ramp without a zero: every sample tells which one must follow it.
Samples Track(int pCount)
{
    Samples track;
    for (int i = 0; i < pCount; ++i)
        track.push_back(static_cast<qint16>(1 + i % kRamp));
    return track;
}

QtAudioInputDevice* CreateDevice(const char* pName)
{
    return QtAudioInputDeviceInfo(QLatin1String(pName), false).Create(nullptr);
}

/// One capture with all that it delivers.
class Recording
{
public:
    explicit Recording(const char* pName) : m_pDevice(CreateDevice(pName))
    {
        if (!m_pDevice)
            return;
        using D = QtAudioInputDevice;
        D* pDevice = m_pDevice.get();
        QObject::connect(
            pDevice, &D::OnRecordingStarted, [this] { m_log += "started "; });
        QObject::connect(
            pDevice, &D::OnRecordingStopped, [this] { m_log += "stopped "; });
        QObject::connect(pDevice, &D::OnAudioSamplesRecorded, [this](qint16* p, unsigned pCount) {
            AddBlock(p, pCount);
        });
    }

    bool Start()
    {
        return m_pDevice && m_pDevice->SetRecordingFormat(m_pDevice->getPreferredInputFormat()) &&
               m_pDevice->StartRecording();
    }
    bool WaitForData(size_t pCount, int pTimeoutMs)
    {
        return QTest::qWaitFor([&] { return m_samples.size() >= pCount; }, pTimeoutMs);
    }

    bool hasLog() const { return !m_log.isEmpty(); }
    QByteArray TakeLog() { return std::exchange(m_log, {}).trimmed(); }
    QtAudioInputDevice* device() const { return m_pDevice.get(); }
    const Samples& samples() const { return m_samples; }
    void Delete() { m_pDevice.reset(); }

    /// How many seconds later, against the count of samples, blocks come than they did at first;
    /// each time is judged by its least delay.
    double drift() const { return m_lateDelay - m_earlyDelay; }

private:
    void AddBlock(const qint16* pSamples, unsigned pCount)
    {
        if (m_samples.empty()) {
            m_firstBlock = pCount;
            m_clock.start();
        }
        m_samples.insert(m_samples.end(), pSamples, pSamples + pCount);
        const double recorded = double(m_samples.size() - m_firstBlock) / kRate;
        double& delay = recorded < kEarlySeconds ? m_earlyDelay : m_lateDelay;
        delay = std::min(delay, double(m_clock.nsecsElapsed()) * 1e-9 - recorded);
    }

    QByteArray m_log;
    Samples m_samples;
    size_t m_firstBlock = 0;
    QElapsedTimer m_clock;                                          // from the first block on
    double m_earlyDelay = std::numeric_limits<double>::infinity();  // seconds
    double m_lateDelay = std::numeric_limits<double>::infinity();   // seconds
    std::unique_ptr<QtAudioInputDevice> m_pDevice;
};

QByteArray Names()
{
    QStringList names;
    const QList<QtAudioInputDeviceInfo> devices = QtAudioInputDeviceInfo::Enumerate();
    for (const QtAudioInputDeviceInfo& device : devices)
        names.append(device.getDeviceName() +
                     (device.isDefault() ? QStringLiteral("*") : QString()));
    return names.join(QLatin1Char('|')).toUtf8();
}

/// Qt's PulseAudio plugin as the only one: the ALSA plugin would add pseudo-devices, and block the
/// event loop for 50 ms and more with each enumeration.
bool StagePlugin(const QString& pFolder)
{
    const QString plugin = QStringLiteral("/audio/libqtmedia_pulse.so");
    const bool isStaged =
        QDir().mkpath(pFolder + QStringLiteral("/audio")) &&
        QFile::link(QLibraryInfo::location(QLibraryInfo::PluginsPath) + plugin, pFolder + plugin) &&
        QFile::exists(pFolder + plugin);
    QCoreApplication::setLibraryPaths({pFolder});
    return isStaged;
}

/// Warnings other than those with which the plugin comments on a lost source or server.
QByteArrayList s_warnings;

void CollectWarning(QtMsgType pType, const QMessageLogContext&, const QString& pMessage)
{
    const bool isExpected =
        pMessage.contains(QLatin1String("Stream error: Entity killed")) ||
        pMessage.contains(QLatin1String("Stream error: Connection terminated")) ||
        pMessage.contains(QLatin1String("pa_stream_peek() failed"));
    if (pType != QtDebugMsg && pType != QtInfoMsg && !isExpected)
        s_warnings.append(pMessage.toUtf8());
}

}  // namespace

/// Live capture through Qt's own plugin from a real sound server. The cases build on each other.
class tst_PulseCapture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void enumerate_listsTheMonitors();
    void preferredFormat_isMonoSigned16At48000();
    void capture_deliversTheTrackWithoutAGapAndInTime();
    void capture_goesOn_whenItsSinkIsUnloadedAndAnotherIsThere();
    void create_givesNull_whenTheSinkIsGone();
    void watcher_reportsSinksThatAppearAndVanish();
    void capture_justEnds_whenTheLastSinkIsUnloaded();
    void capture_isStopped_whenTheServerEnds();
    void capture_worksAgain_whenTheServerIsBack();

private:
    PulseServer m_server;
    QString m_deckA;
    QString m_deckB;
};

void tst_PulseCapture::initTestCase()
{
    qInstallMessageHandler(CollectWarning);
    QVERIFY(StagePlugin(m_server.folder() + QStringLiteral("/plugins")));
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    m_deckA = m_server.LoadSink(QStringLiteral("deck_a"));
    m_deckB = m_server.LoadSink(QStringLiteral("deck_b"));
    QVERIFY2(!m_deckA.isEmpty() && !m_deckB.isEmpty(), qPrintable(m_server.error()));
}

void tst_PulseCapture::cleanup()
{
    QCOMPARE(std::exchange(s_warnings, {}).join('\n'), QByteArray());
}

void tst_PulseCapture::enumerate_listsTheMonitors()
{
    QTRY_COMPARE_WITH_TIMEOUT(Names(), QByteArray("deck_a.monitor*|deck_b.monitor"), kTimeoutMs);
}

void tst_PulseCapture::preferredFormat_isMonoSigned16At48000()
{
    const std::unique_ptr<QtAudioInputDevice> pDevice(CreateDevice("deck_a.monitor"));
    QVERIFY(pDevice);
    const QAudioFormat format = pDevice->getPreferredInputFormat();
    QCOMPARE(format.sampleRate(), 48000);
    QCOMPARE(format.sampleSize(), 16);
    QCOMPARE(format.channelCount(), 1);
    QCOMPARE(format.sampleType(), QAudioFormat::SignedInt);
    QVERIFY(pDevice->SetRecordingFormat(format));
    QCOMPARE(pDevice->getOutputFormat(), format);
}

void tst_PulseCapture::capture_deliversTheTrackWithoutAGapAndInTime()
{
    const Samples track = Track(3 * kRate);
    QFile file(m_server.folder() + QStringLiteral("/track.raw"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const qint64 size = qint64(track.size() * sizeof(qint16));
    QCOMPARE(file.write(reinterpret_cast<const char*>(track.data()), size), size);
    file.close();

    Recording recording("deck_a.monitor");
    QVERIFY(recording.Start());
    QVERIFY(recording.WaitForData(1, kTimeoutMs));
    QVERIFY(m_server.Play(file.fileName(), QStringLiteral("deck_a")));
    // Silence, the whole track, and half a second of silence again.
    const auto isSound = [](qint16 pSample) { return pSample != 0; };
    QTRY_VERIFY_WITH_TIMEOUT(
        std::any_of(recording.samples().begin(), recording.samples().end(), isSound), kTimeoutMs);
    QVERIFY(
        recording.WaitForData(recording.samples().size() + track.size() + kRate / 2, kTimeoutMs));

    const Samples& samples = recording.samples();
    const auto begin = std::find_if(samples.begin(), samples.end(), isSound);
    const auto end = std::find(begin, samples.end(), 0);
    // A player that joins within one of the sink's blocks is mixed into it only after the monitor
    // has had its silence: the server itself swallows the head of the track, less than one block.
    const size_t lost = size_t(*begin - 1);
    QVERIFY2(lost < kServerBlock, QByteArray::number(qulonglong(lost)).constData());
    QCOMPARE(size_t(end - begin), track.size() - lost);
    QVERIFY(std::equal(begin, end, track.begin() + qint64(lost)));
    QVERIFY(std::none_of(end, samples.end(), isSound));

    // Blocks come every 50 ms; the clock may be off by a few of them. A busy machine hears of a
    // block late, and of those after it in time again.
    QTRY_VERIFY_WITH_TIMEOUT(std::abs(recording.drift()) < 0.2, kTimeoutMs);

    QCOMPARE(recording.TakeLog(), QByteArray("started"));
    QVERIFY(recording.device()->StopRecording());
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
    m_server.EndPlaying();
}

void tst_PulseCapture::capture_goesOn_whenItsSinkIsUnloadedAndAnotherIsThere()
{
    Recording recording("deck_b.monitor");
    QVERIFY(recording.Start());
    QVERIFY(recording.WaitForData(1, kTimeoutMs));
    QVERIFY(m_server.UnloadModule(m_deckB));
    // The server moves the recording to the other source, without a word.
    QVERIFY(recording.WaitForData(recording.samples().size() + kRate, kTimeoutMs));
    QCOMPARE(recording.TakeLog(), QByteArray("started"));
    QVERIFY(recording.device()->StopRecording());
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
    QVERIFY(recording.device()->isRecording());
    recording.Delete();
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
}

void tst_PulseCapture::create_givesNull_whenTheSinkIsGone()
{
    QTRY_COMPARE_WITH_TIMEOUT(Names(), QByteArray("deck_a.monitor*"), kTimeoutMs);
    QVERIFY(!Recording("deck_b.monitor").device());
}

void tst_PulseCapture::watcher_reportsSinksThatAppearAndVanish()
{
    QtAudioInputDevicesManager* pManager = QtAudioInputDevicesManager::GetInstance();
    WatcherLog log(pManager);
    int records = 0;
    log.observer = [&] { ++records; };
    QVERIFY(pManager->Start());

    const QString deckC = m_server.LoadSink(QStringLiteral("deck_c"));
    QVERIFY(!deckC.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(records, 2, kTimeoutMs);
    QCOMPARE(log.Take(), QByteArray("modified +deck_c.monitor"));
    QVERIFY(pManager->GetAudioInputDevice(QStringLiteral("deck_c.monitor")));

    m_deckB = m_server.LoadSink(QStringLiteral("deck_b"));
    QVERIFY(m_server.UnloadModule(deckC));
    // Both may fall into one period or into two.
    QTRY_VERIFY_WITH_TIMEOUT(records >= 4 &&
                                 !pManager->GetAudioInputDevice(QStringLiteral("deck_c.monitor")),
                             kTimeoutMs);
    const QByteArray changes = log.Take();
    QVERIFY2(changes == "modified +deck_b.monitor -deck_c.monitor" ||
                 changes == "modified +deck_b.monitor modified -deck_c.monitor",
             changes.constData());
    QVERIFY(pManager->Stop());
}

void tst_PulseCapture::capture_justEnds_whenTheLastSinkIsUnloaded()
{
    QVERIFY(m_server.UnloadModule(m_deckA));
    QTRY_COMPARE_WITH_TIMEOUT(Names(), QByteArray("deck_b.monitor*"), kTimeoutMs);
    Recording recording("deck_b.monitor");
    QVERIFY(recording.Start());
    QVERIFY(recording.WaitForData(1, kTimeoutMs));
    QVERIFY(m_server.UnloadModule(m_deckB));
    // What had been recorded by then may still come; at last a second brings nothing.
    const auto isAtAnEnd = [&] {
        const size_t count = recording.samples().size();
        QTest::qWait(1000);
        return recording.samples().size() == count;
    };
    QVERIFY(QTest::qWaitFor(isAtAnEnd, kTimeoutMs));
    QCOMPARE(recording.TakeLog(), QByteArray("started"));
    QVERIFY(recording.device()->StopRecording());
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
    QTRY_COMPARE_WITH_TIMEOUT(Names(), QByteArray(), kTimeoutMs);
}

void tst_PulseCapture::capture_isStopped_whenTheServerEnds()
{
    QVERIFY(!m_server.LoadSink(QStringLiteral("deck_d")).isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(Names(), QByteArray("deck_d.monitor*"), kTimeoutMs);
    Recording recording("deck_d.monitor");
    QVERIFY(recording.Start());
    QVERIFY(recording.WaitForData(1, kTimeoutMs));
    QCOMPARE(recording.TakeLog(), QByteArray("started"));
    m_server.End();
    QTRY_VERIFY_WITH_TIMEOUT(recording.hasLog(), kTimeoutMs);
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
    QVERIFY(recording.device()->isRecording());
    QVERIFY(!recording.device()->StartRecording());
    recording.Delete();
    QCOMPARE(recording.TakeLog(), QByteArray("stopped"));
}

void tst_PulseCapture::capture_worksAgain_whenTheServerIsBack()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY(!m_server.LoadSink(QStringLiteral("deck_e")).isEmpty());
    // The plugin comes back by itself after some seconds, and may list lost devices as well.
    QTRY_VERIFY_WITH_TIMEOUT(Names().contains("deck_e.monitor"), kTimeoutMs);
    Recording recording("deck_e.monitor");
    QVERIFY(recording.Start());
    QVERIFY(recording.WaitForData(kRate / 2, kTimeoutMs));
    QVERIFY(recording.device()->StopRecording());
    QCOMPARE(recording.TakeLog(), QByteArray("started stopped"));
}

/// The plugin warns of a lost source and of a lost server, which is what happens here on purpose;
/// any other warning fails its case.
static int RunOnASoundServer(int pCount, char** pArguments)
{
    qunsetenv("QT_FATAL_WARNINGS");
    int result = EXIT_FAILURE;
    {
        tst_PulseCapture test;
        QCoreApplication application(pCount, pArguments);
        result = QTest::qExec(&test, pCount, pArguments);
    }
    // Everything of ours has ended by now. What is left is the plugin's global engine, which joins
    // its thread under the static destructors and has been seen to crash there; so they are not
    // run.
    std::fflush(nullptr);
    std::_Exit(result);
}

static const TestClass s_class("tst_PulseCapture", &RunOnASoundServer);
#include "tst_PulseCapture.moc"
