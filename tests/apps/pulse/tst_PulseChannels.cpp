// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <shared/pulse/PulseBackEnd.h>

#include <QFile>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <pulse/PulseServer.h>
#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

constexpr int kChannelsTimeoutMs = 20000;
constexpr int kTrackFrames = 96000;  // 2 s
constexpr int kSteps = 20011;        // of the ramp; prime

using Mono = std::vector<qint16>;

/// A ramp without a zero in the first channel, and pFactor times it in the second.
QByteArray TwoChannels(int pFactor)
{
    Mono track;
    for (int i = 0; i < kTrackFrames; ++i) {
        track.push_back(qint16(1 + i % kSteps));
        track.push_back(qint16(pFactor * track.back()));
    }
    return QByteArray(reinterpret_cast<const char*>(track.data()),
                      int(track.size() * sizeof(qint16)));
}

/// How many samples of the ramp follow each other at the most.
int LongestRun(const Mono& pSamples)
{
    int longest = 0;
    int run = 0;
    for (std::size_t i = 1; i < pSamples.size(); ++i) {
        run = pSamples[i] != 0 && pSamples[i] == pSamples[i - 1] % kSteps + 1 ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

}  // namespace

/// Sources with two channels, which the hosts hear as one.
class tst_PulseChannels : public QObject
{
    Q_OBJECT

public:
    explicit tst_PulseChannels(PulseServer::eKind pKind = PulseServer::ePulseAudio)
        : m_server(pKind)
    {
    }

private Q_SLOTS:
    void initTestCase();
    void channels_areHeard_data();
    void channels_areHeard();

private:
    PulseServer m_server;
    PulseBackEnd m_backEnd;
};

void tst_PulseChannels::initTestCase()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY2(!m_server.LoadSink(Text("wide"), 2).isEmpty(), qPrintable(m_server.error()));
    QVERIFY(m_backEnd.Install());
    QTRY_COMPARE(m_backEnd.getChannels("wide.monitor"), 2);
    QCOMPARE(m_backEnd.getChannels("nowhere"), 0);
}

void tst_PulseChannels::channels_areHeard_data()
{
    QTest::addColumn<int>("factor");
    QTest::newRow("equal") << 1;
    QTest::newRow("opposite") << -1;
}

/// All but what plays before it shows that the mean is silent, and what joins a block too late.
void tst_PulseChannels::channels_areHeard()
{
    QFETCH(int, factor);
    QFile file(m_server.folder() + Text("/track.raw"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(TwoChannels(factor)) > 0);
    file.close();
    Mono samples;
    const std::unique_ptr<QtAudioInputDevice> device(
        QtAudioInputDeviceInfo(Text("wide.monitor"), false).Create(nullptr));
    connect(device.get(),
            &QtAudioInputDevice::OnAudioSamplesRecorded,
            this,
            [&](qint16* pSamples, unsigned pCount) {
                samples.insert(samples.end(), pSamples, pSamples + pCount);
            });
    QVERIFY(device->SetRecordingFormat(device->getPreferredInputFormat()));
    QVERIFY(device->StartRecording());
    QTRY_VERIFY_WITH_TIMEOUT(!samples.empty(), kChannelsTimeoutMs);
    QVERIFY(m_server.Play(file.fileName(), Text("wide"), 2));
    QTRY_VERIFY_WITH_TIMEOUT(LongestRun(samples) > kTrackFrames / 2, kChannelsTimeoutMs);
    m_server.EndPlaying();
}

/// The same on PipeWire.
class tst_PipeWireChannels : public tst_PulseChannels
{
    Q_OBJECT

public:
    tst_PipeWireChannels() : tst_PulseChannels(PulseServer::ePipeWire) {}
};

AA_TEST(tst_PulseChannels, QCoreApplication)
AA_TEST(tst_PipeWireChannels, QCoreApplication)
#include "tst_PulseChannels.moc"
