// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>

#include "Capture.h"

#include <QtTest>

#include <memory>
#include <support/AllocationGuard.h>
#include <support/TestClass.h>
#include <vector>

namespace {

const int kSizes[] = {8, 16, 32};  // bits
const int kChannelCounts[] = {1, 2, 6};
const size_t kBlocks[] = {4096, 12, 4096, 24, 48, 0, 4092, 1, 4096};  // bytes, the largest first

void AddFormats()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<int>("type");
    for (int size : kSizes) {
        for (int channelCount : kChannelCounts) {
            for (int type : {QAudioFormat::SignedInt, QAudioFormat::UnSignedInt})
                QTest::addRow("%d bits, %d channels, type %d", size, channelCount, type)
                    << size << channelCount << type;
        }
    }
}

}  // namespace

class tst_AudioAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void resample_allocatesOnGrowthOnly_data() { AddFormats(); }
    void resample_allocatesOnGrowthOnly();
    void capture_allocatesOnGrowthOnly_data() { AddFormats(); }
    void capture_allocatesOnGrowthOnly();
};

void tst_AudioAllocations::initTestCase()
{
    FakeAudioState::Install();
}

void tst_AudioAllocations::resample_allocatesOnGrowthOnly()
{
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QFETCH(int, type);
    QAudioFormat format;
    format.setSampleSize(size);
    format.setChannelCount(channelCount);
    format.setSampleType(QAudioFormat::SampleType(type));
    const std::unique_ptr<AudioResampler> pResampler(AudioResampler::Create(format));
    std::vector<char> bytes(4096, 1);
    size_t allocations[std::size(kBlocks)];
    for (size_t i = 0; i < std::size(kBlocks); ++i) {
        const AllocationGuard guard;
        size_t count = 0;
        pResampler->Resample(bytes.data(), kBlocks[i], count);
        allocations[i] = AllocationGuard::getCount();
    }
    QCOMPARE(allocations[0], size_t(1));
    for (size_t i = 1; i < std::size(kBlocks); ++i)
        QCOMPARE(allocations[i], size_t(0));
}

void tst_AudioAllocations::capture_allocatesOnGrowthOnly()
{
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QFETCH(int, type);
    Capture c;
    c.pLog.reset();
    QVERIFY(c.Configure(size, channelCount, QAudioFormat::SampleType(type)));
    size_t received = 0;
    connect(c.pCapture,
            &QtAudioInputDevice::OnAudioSamplesRecorded,
            this,
            [&](const qint16*, unsigned pCount) { received += pCount; });
    QVERIFY(c.pCapture->StartRecording());
    c.backEnd()->stream()->Append(QByteArray(40960, '\1'));
    for (size_t i = 0; i < std::size(kBlocks); ++i) {
        c.backEnd()->ScriptBytesReady(int(kBlocks[i]));
        size_t allocations = 0;
        {
            const AllocationGuard guard;
            c.pCapture->_OnAudioSamplesRecorded();
            allocations = AllocationGuard::getCount();
        }
        if (i > 0)
            QCOMPARE(allocations, size_t(0));
    }
    QVERIFY(received > 0);
}

AA_TEST(tst_AudioAllocations, QCoreApplication)
#include "tst_AudioAllocations.moc"
