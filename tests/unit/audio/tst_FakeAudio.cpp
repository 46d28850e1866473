// SPDX-License-Identifier: MIT
#include "DeviceLog.h"

#include <QAudioInput>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <fake/FakeAudioState.h>
#include <fake/FakeAudioTrack.h>
#include <memory>
#include <support/TestClass.h>
#include <support/VirtualTime.h>
#include <vector>

namespace {

template <typename T>
QByteArray LittleEndian(T pValue)
{
    QByteArray bytes(sizeof(T), '\0');
    qToLittleEndian(pValue, bytes.data());
    return bytes;
}

QByteArray Chunk(const char* pId, const QByteArray& pBody)
{
    return pId + LittleEndian(quint32(pBody.size())) + pBody + QByteArray(pBody.size() % 2, '\0');
}

/// A WAV file with a chunk of odd length before its format.
QByteArray WavFile(quint16 pCount, quint32 pRate, quint16 pSize, const QByteArray& pData)
{
    const QByteArray format = LittleEndian(quint16(1)) + LittleEndian(pCount) +
                              LittleEndian(pRate) + LittleEndian(pRate * pCount * pSize / 8) +
                              LittleEndian(quint16(pCount * pSize / 8)) + LittleEndian(pSize);
    const QByteArray chunks = Chunk("LIST", "odd") + Chunk("fmt ", format) + Chunk("data", pData);
    return "RIFF" + LittleEndian(quint32(4 + chunks.size())) + "WAVE" + chunks;
}

/// The samples that a device of the fake back end delivers within a time.
std::vector<qint16> Record(const FakeAudioDevice& pDevice, int pMilliSeconds, qint64* pElapsedNs)
{
    FakeAudioState::Get().Clear();
    FakeAudioState::Get().Plug(pDevice);
    QtAudioInputDevice device(QAudioDeviceInfo::defaultInputDevice(), nullptr);
    std::vector<qint16> samples;
    QElapsedTimer clock;
    QObject::connect(&device,
                     &QtAudioInputDevice::OnAudioSamplesRecorded,
                     [&](const qint16* pSamples, unsigned pCount) {
                         samples.insert(samples.end(), pSamples, pSamples + pCount);
                         *pElapsedNs = clock.nsecsElapsed();
                     });
    device.SetRecordingFormat(device.getPreferredInputFormat());
    clock.start();
    device.StartRecording();
    QTest::qWait(pMilliSeconds);
    return samples;
}

FakeAudioDevice FromFile(const QByteArray& pFile, bool pIsLooped)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("track.wav")));
    if (!file.open(QIODevice::WriteOnly) || file.write(pFile) != pFile.size())
        return FakeAudioDevice();
    file.close();
    return FakeAudioTrack::FromWavFile(QStringLiteral("File"), file.fileName(), pIsLooped);
}

}  // namespace

/// The back end that the other suites trust.
class tst_FakeAudio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void machine_hasTheFakeDevicesOnly();
    void device_answersItsScript();
    void capture_cannotBeStarted_whenTheDeviceIsGone();
    void generator_playsInRealTime();
    void wavFile_playsOnce();
    void wavFile_playsForEver_whenLooped();
    void wavFile_setsTheFormat();
    void wavFile_isRefused_whenBroken_data();
    void wavFile_isRefused_whenBroken();
};

void tst_FakeAudio::initTestCase()
{
    FakeAudioState::Install();
}

void tst_FakeAudio::init()
{
    FakeAudioState::Get().Clear();
}

void tst_FakeAudio::machine_hasTheFakeDevicesOnly()
{
    QVERIFY(QAudioDeviceInfo::availableDevices(QAudio::AudioInput).isEmpty());
    QVERIFY(QAudioDeviceInfo::availableDevices(QAudio::AudioOutput).isEmpty());
    QVERIFY(QAudioDeviceInfo::defaultInputDevice().isNull());
    for (const char* name : {"a", "b", "c"})
        FakeAudioState::Get().Plug(QLatin1String(name));
    for (int defaultIndex : {0, 1, 2}) {
        FakeAudioState::Get().SetDefault(defaultIndex);
        QString names;
        for (const auto& device : QAudioDeviceInfo::availableDevices(QAudio::AudioInput))
            names += device.deviceName();
        QCOMPARE(names, QStringLiteral("abc"));
        QCOMPARE(QAudioDeviceInfo::defaultInputDevice().deviceName(), QString(names[defaultIndex]));
    }
}

void tst_FakeAudio::device_answersItsScript()
{
    FakeAudioDevice script;
    script.name = QStringLiteral(" Mic");
    script.sampleRates = {1, 2};
    script.sampleSizes = {3};
    script.channelCounts = {};
    script.sampleTypes = {QAudioFormat::Float};
    FakeAudioState::Get().Plug(script);
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultInputDevice();
    QCOMPARE(device.deviceName(), QStringLiteral(" Mic"));
    QCOMPARE(device.supportedSampleRates(), (QList<int>{1, 2}));
    QCOMPARE(device.supportedSampleSizes(), QList<int>{3});
    QCOMPARE(device.supportedChannelCounts(), QList<int>{});
    QCOMPARE(device.supportedSampleTypes(), QList<QAudioFormat::SampleType>{QAudioFormat::Float});
}

void tst_FakeAudio::capture_cannotBeStarted_whenTheDeviceIsGone()
{
    const QByteArray handle = FakeAudioState::Get().Plug(QStringLiteral("Mic"));
    const QAudioDeviceInfo device = QAudioDeviceInfo::defaultInputDevice();
    FakeAudioState::Get().Unplug(handle);
    QAudioInput input(device);
    QCOMPARE(input.start(), static_cast<QIODevice*>(nullptr));
}

void tst_FakeAudio::generator_playsInRealTime()
{
    const FakeAudioDevice device = FakeAudioTrack::FromGenerator(
        QStringLiteral("Generator"), 44100, [](qint64 pIndex) { return qint16(pIndex % 30000); });
    qint64 elapsedNs = 0;
    const std::vector<qint16> samples = Record(device, 500, &elapsedNs);
    for (size_t i = 0; i < samples.size(); ++i)
        QCOMPARE(int(samples[i]), int(i % 30000));
    // At the last block the count is what the clock says; both clocks start within a few ms.
    const double seconds = double(samples.size()) / 44100.0;
    QVERIFY2(std::abs(seconds - double(elapsedNs) * 1e-9) < 0.02,
             qPrintable(QString::number(seconds)));
    QVERIFY(samples.size() >= 44100 / 4);
}

void tst_FakeAudio::wavFile_playsOnce()
{
    QByteArray data;
    for (int i = 0; i < 1000; ++i)
        data += LittleEndian(qint16(i));
    qint64 elapsedNs = 0;
    const FakeAudioDevice device = FromFile(WavFile(1, 8000, 16, data), false);
    const std::vector<qint16> samples = Record(device, 400, &elapsedNs);
    QCOMPARE(samples.size(), size_t(1000));
    for (size_t i = 0; i < samples.size(); ++i)
        QCOMPARE(int(samples[i]), int(i));
}

void tst_FakeAudio::wavFile_playsForEver_whenLooped()
{
    const QByteArray data =
        LittleEndian(qint16(1)) + LittleEndian(qint16(2)) + LittleEndian(qint16(3));
    qint64 elapsedNs = 0;
    const FakeAudioDevice device = FromFile(WavFile(1, 8000, 16, data), true);
    const std::vector<qint16> samples = Record(device, 200, &elapsedNs);
    QVERIFY(samples.size() > 400);
    for (size_t i = 0; i < samples.size(); ++i)
        QCOMPARE(int(samples[i]), int(i % 3) + 1);
}

void tst_FakeAudio::wavFile_setsTheFormat()
{
    const FakeAudioDevice device = FromFile(WavFile(2, 22050, 8, QByteArray(10, 'x')), false);
    QCOMPARE(device.name, QStringLiteral("File"));
    QCOMPARE(device.sampleRates, QList<int>{22050});
    QCOMPARE(device.sampleSizes, QList<int>{8});
    QCOMPARE(device.channelCounts, QList<int>{2});
    QCOMPARE(device.sampleTypes, QList<QAudioFormat::SampleType>{QAudioFormat::UnSignedInt});
    QCOMPARE(device.makeSource()(QAudioFormat(), 0), QByteArray());
}

void tst_FakeAudio::wavFile_isRefused_whenBroken_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray good = WavFile(1, 8000, 16, QByteArray(100, 'x'));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no data") << WavFile(1, 8000, 16, QByteArray());
    QTest::newRow("no channel") << WavFile(0, 8000, 16, QByteArray(4, 'x'));
    for (int size : {4, 11, 12, 19, 27, 31, 40, 47, 55})
        QTest::addRow("%d bytes", size) << good.left(size);
}

void tst_FakeAudio::wavFile_isRefused_whenBroken()
{
    QFETCH(QByteArray, file);
    QCOMPARE(FromFile(file, false).name, QString());
}

AA_TEST(tst_FakeAudio, InVirtualTime<QCoreApplication>)
#include "tst_FakeAudio.moc"
