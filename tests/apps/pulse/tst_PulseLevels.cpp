// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <shared/pulse/PulseBackEnd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <memory>
#include <pulse/PulseServer.h>
#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

constexpr int kLevelTimeoutMs = 60000;
constexpr int kLevelRate = 48000;  // Hz
constexpr qint16 kHalf = 16384;    // a half of full scale

/// How many recordings the server has.
int RecordingCount()
{
    QProcess pactl;
    pactl.start(Text("pactl"), {Text("list"), Text("short"), Text("source-outputs")});
    if (!pactl.waitForFinished(kLevelTimeoutMs) || pactl.exitCode() != 0)
        return -1;
    return pactl.readAllStandardOutput().count('\n');
}

}  // namespace

/// The levels of the sources of a sound server, which is the test's own. The cases build on each
/// other.
class tst_PulseLevels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everySource_hasItsLevel();
    void sourceThatComesOrGoes_isFollowed();
    void recording_isNotDisturbed();
    void nothing_isHeldOpen_afterwards();
    void server_isFoundAgain();
    void hungServer_holdsNothingUp();

private:
    bool _Play();
    /// Whether that source is heard at about that magnitude.
    bool _Await(const char* pName, double pPeak);
    bool _AwaitHalf(const char* pName) { return _Await(pName, 0.5); }

    PulseServer m_server;
    PulseBackEnd m_backEnd;
    std::unique_ptr<SoundLevels> m_levels;
    QString m_track;
};

void tst_PulseLevels::initTestCase()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    // A square wave, of 375 Hz: the peaks are those of any part of it.
    std::vector<qint16> samples;
    for (int i = 0; i < 600 * kLevelRate; ++i)
        samples.push_back(i / 64 % 2 == 0 ? kHalf : qint16(-kHalf));
    m_track = m_server.folder() + Text("/half.raw");
    QFile file(m_track);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(samples.data()),
               qint64(samples.size() * sizeof(qint16)));
    file.close();
    QVERIFY(_Play());
    QVERIFY(!m_server.LoadSource(Text("line")).isEmpty());
    QVERIFY(m_backEnd.Install());
}

bool tst_PulseLevels::_Play()
{
    return !m_server.LoadSink(Text("deck")).isEmpty() && m_server.Play(m_track, Text("deck"));
}

bool tst_PulseLevels::_Await(const char* pName, double pPeak)
{
    return QTest::qWaitFor(
        [&] {
            const std::map<QString, double> peaks = m_levels->TakePeaks();
            const auto found = peaks.find(Text(pName));
            return found != peaks.end() && std::abs(found->second - pPeak) < 0.05;
        },
        kLevelTimeoutMs);
}

void tst_PulseLevels::everySource_hasItsLevel()
{
    m_levels = m_backEnd.HearLevels();
    QVERIFY(m_levels);
    QVERIFY(_AwaitHalf("deck.monitor"));
    QVERIFY(_Await("line", 0.0));
}

void tst_PulseLevels::sourceThatComesOrGoes_isFollowed()
{
    const QString module = m_server.LoadSource(Text("guest"));
    QVERIFY(!module.isEmpty());
    QVERIFY(_Await("guest", 0.0));
    QVERIFY(m_server.UnloadModule(module));
    QTRY_COMPARE_WITH_TIMEOUT(m_backEnd.getSources().size(), std::size_t(2), kLevelTimeoutMs);
    m_levels->TakePeaks();
    QTRY_COMPARE_WITH_TIMEOUT(RecordingCount(), 2, kLevelTimeoutMs);
    QVERIFY(_AwaitHalf("deck.monitor"));
}

/// Of a square wave every sample is known but for the place at which it begins.
void tst_PulseLevels::recording_isNotDisturbed()
{
    const std::unique_ptr<QtAudioInputDevice> device(
        QtAudioInputDeviceInfo(Text("deck.monitor"), false).Create(nullptr));
    std::vector<qint16> samples;
    int stops = 0;
    quint64 lost = 0;
    connect(device.get(), &QtAudioInputDevice::OnRecordingStopped, this, [&] { ++stops; });
    connect(device.get(),
            &QtAudioInputDevice::OnAudioSamplesRecorded,
            this,
            [&](qint16* pSamples, unsigned pCount) {
                samples.insert(samples.end(), pSamples, pSamples + pCount);
                const auto position = SoundBackEnd::get()->getPosition();
                lost = position ? position->lost : lost;
            });
    m_levels.reset();
    QVERIFY(device->SetRecordingFormat(device->getPreferredInputFormat()));
    QVERIFY(device->StartRecording());
    QTRY_VERIFY_WITH_TIMEOUT(samples.size() > kLevelRate, kLevelTimeoutMs);
    const std::size_t before = samples.size();
    for (int i = 0; i < 5; ++i) {
        m_levels = m_backEnd.HearLevels();
        QVERIFY(_AwaitHalf("deck.monitor"));
        m_levels.reset();
    }
    const std::size_t behind = samples.size() + kLevelRate / 2;
    QTRY_VERIFY_WITH_TIMEOUT(samples.size() > behind, kLevelTimeoutMs);
    QCOMPARE(stops, 0);
    QCOMPARE(lost, quint64(0));
    // Each half wave is as long as every other.
    int length = 0;
    bool isWhole = false;
    for (std::size_t i = before + 1; i < samples.size(); ++i) {
        ++length;
        if ((samples[i] > 0) == (samples[i - 1] > 0))
            continue;
        QVERIFY2(!isWhole || length == 64, qPrintable(QString::number(i)));
        isWhole = true;
        length = 0;
    }
    QVERIFY(isWhole);
}

void tst_PulseLevels::nothing_isHeldOpen_afterwards()
{
    QTRY_COMPARE_WITH_TIMEOUT(RecordingCount(), 0, kLevelTimeoutMs);
    m_levels = m_backEnd.HearLevels();
    QTRY_COMPARE_WITH_TIMEOUT(RecordingCount(), 2, kLevelTimeoutMs);
    m_levels.reset();
    QTRY_COMPARE_WITH_TIMEOUT(RecordingCount(), 0, kLevelTimeoutMs);
}

void tst_PulseLevels::server_isFoundAgain()
{
    m_levels = m_backEnd.HearLevels();
    QVERIFY(_AwaitHalf("deck.monitor"));
    m_server.EndPlaying();
    m_server.Kill();
    QTRY_VERIFY_WITH_TIMEOUT(!m_backEnd.isAnswering(), kLevelTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(m_levels->TakePeaks().empty(), kLevelTimeoutMs);
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY(_Play());
    QVERIFY(_AwaitHalf("deck.monitor"));
}

/// What it does is done at once, whatever the server does.
void tst_PulseLevels::hungServer_holdsNothingUp()
{
    m_server.Freeze();
    QTRY_VERIFY_WITH_TIMEOUT(m_levels->TakePeaks().empty(), kLevelTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(!m_backEnd.isAnswering(), kLevelTimeoutMs);
    const std::unique_ptr<SoundLevels> others = m_backEnd.HearLevels();
    QVERIFY(others->TakePeaks().empty());
    m_levels.reset();
    m_server.Thaw();
    m_levels = m_backEnd.HearLevels();
    QVERIFY(_AwaitHalf("deck.monitor"));
}

AA_TEST(tst_PulseLevels, QCoreApplication)
#include "tst_PulseLevels.moc"
