// SPDX-License-Identifier: MIT
#include "FormatBench.h"

#include <QtTest>

#include <fake/FakeAudioState.h>
#include <limits>
#include <support/TestClass.h>

class tst_QtAudioInputDevice_formats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void supported_nestsChannelsThenSizesThenRates();
    void supported_dropsOtherSizes_whenEverySizeIsAsked();
    void supported_offersOtherSizes_whenAskedByValue_isIntended();
    void supported_selectsOneValue_data();
    void supported_selectsOneValue();
    void supported_takesEverything_whenArgumentIsBelow1_data();
    void supported_takesEverything_whenArgumentIsBelow1();
    void supported_takesDuplicateOnce_whenAskedByValue();
    void supported_prefersUnsignedFor8BitsAndSignedElse();
    void supported_fallsBackToTheOtherType();
    void supported_neverOffersFloat_isIntended();
    void supported_leavesOutRefusedCombinations();
    void supported_isEmpty_whenAListIsEmpty_data();
    void supported_isEmpty_whenAListIsEmpty();
    void supported_asksForPcmWithUnsetByteOrder();
    void rank_readsRateSizeAndChannels();
    void preferred_followsItsSteps_data();
    void preferred_followsItsSteps();
    void preferred_isSigned_whenBothTypesAreThere();
    void preferred_isUnsigned_whenSignedIsRefused();
    void preferred_isTheEarliest_whenRanksAreEqual();
    void preferred_isInvalid_whenNothingIsUsable_data();
    void preferred_isInvalid_whenNothingIsUsable();
};

void tst_QtAudioInputDevice_formats::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevice_formats::init()
{
    FakeAudioState::Get().Clear();
}

void tst_QtAudioInputDevice_formats::supported_nestsChannelsThenSizesThenRates()
{
    const DevicePtr pDevice = Plug(Device({44100, 8000}, {32, 8}, {2, 1}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(0, 0, 0)),
             QByteArray("44100/32/2s 8000/32/2s 44100/8/2u 8000/8/2u "
                        "44100/32/1s 8000/32/1s 44100/8/1u 8000/8/1u"));
}

void tst_QtAudioInputDevice_formats::supported_dropsOtherSizes_whenEverySizeIsAsked()
{
    const DevicePtr pDevice = Plug(Device({48000}, {24, 8, 12, 16, 64, 32, 0, -1}, {1}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(0, 0, 0)),
             QByteArray("48000/8/1u 48000/16/1s 48000/32/1s"));
}

void tst_QtAudioInputDevice_formats::supported_offersOtherSizes_whenAskedByValue_isIntended()
{
    const DevicePtr pDevice = Plug(Device({48000}, {16, 24}, {1}));
    const QList<QAudioFormat> formats = pDevice->getSupportedInputFormats(0, 24, 0);
    QCOMPARE(Text(formats), QByteArray("48000/24/1s"));
    QVERIFY(!pDevice->SetRecordingFormat(formats.first()));
}

void tst_QtAudioInputDevice_formats::supported_selectsOneValue_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("formats");
    QTest::newRow("rate") << 44100 << 16 << 1 << QByteArray("44100/16/1s");
    QTest::newRow("unknown rate") << 44101 << 16 << 1 << QByteArray();
    QTest::newRow("unknown size") << 44100 << 32 << 1 << QByteArray();
    QTest::newRow("unknown count") << 44100 << 16 << 3 << QByteArray();
    QTest::newRow("count only") << 0 << 0 << 2
                                << QByteArray("44100/8/2u 48000/8/2u 44100/16/2s 48000/16/2s");
    QTest::newRow("size only") << 0 << 8 << 0
                               << QByteArray("44100/8/1u 48000/8/1u 44100/8/2u 48000/8/2u");
    QTest::newRow("rate only") << 48000 << 0 << 0
                               << QByteArray("48000/8/1u 48000/16/1s 48000/8/2u 48000/16/2s");
}

void tst_QtAudioInputDevice_formats::supported_selectsOneValue()
{
    QFETCH(int, rate);
    QFETCH(int, size);
    QFETCH(int, count);
    QFETCH(QByteArray, formats);
    const DevicePtr pDevice = Plug(Device({44100, 48000}, {8, 16}, {1, 2}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(rate, size, count)), formats);
}

void tst_QtAudioInputDevice_formats::supported_takesEverything_whenArgumentIsBelow1_data()
{
    QTest::addColumn<int>("any");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void tst_QtAudioInputDevice_formats::supported_takesEverything_whenArgumentIsBelow1()
{
    QFETCH(int, any);
    const DevicePtr pDevice = Plug(Device({44100, 48000}, {16}, {1, 2}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(any, any, any)),
             QByteArray("44100/16/1s 48000/16/1s 44100/16/2s 48000/16/2s"));
}

void tst_QtAudioInputDevice_formats::supported_takesDuplicateOnce_whenAskedByValue()
{
    const DevicePtr pDevice = Plug(Device({48000, 48000}, {16, 16}, {1, 1}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(48000, 16, 1)), QByteArray("48000/16/1s"));
    QCOMPARE(pDevice->getSupportedInputFormats(0, 0, 0).size(), 8);
}

void tst_QtAudioInputDevice_formats::supported_prefersUnsignedFor8BitsAndSignedElse()
{
    const DevicePtr pDevice = Plug(Device({48000}, {8, 16, 24, 32}, {1}));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(0, 0, 0)),
             QByteArray("48000/8/1u 48000/16/1s 48000/32/1s"));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(0, 24, 0)), QByteArray("48000/24/1s"));
}

void tst_QtAudioInputDevice_formats::supported_fallsBackToTheOtherType()
{
    FakeAudioDevice device = Device({48000}, {8, 16, 32}, {1});
    device.sampleTypes = {kSigned};
    QCOMPARE(Text(Plug(device)->getSupportedInputFormats(0, 0, 0)),
             QByteArray("48000/8/1s 48000/16/1s 48000/32/1s"));
    FakeAudioState::Get().Clear();
    device.sampleTypes = {kUnsigned};
    QCOMPARE(Text(Plug(device)->getSupportedInputFormats(0, 0, 0)),
             QByteArray("48000/8/1u 48000/16/1u 48000/32/1u"));
}

void tst_QtAudioInputDevice_formats::supported_neverOffersFloat_isIntended()
{
    FakeAudioDevice device = Device({48000}, {32}, {1});
    device.sampleTypes = {QAudioFormat::Float};
    QCOMPARE(Text(Plug(device)->getSupportedInputFormats(0, 0, 0)), QByteArray());
}

void tst_QtAudioInputDevice_formats::supported_leavesOutRefusedCombinations()
{
    FakeAudioDevice device = Device({44100, 48000}, {16}, {1, 2});
    device.isSupported = [](const QAudioFormat& pFormat) {
        return (pFormat.sampleRate() == 48000) == (pFormat.channelCount() == 1);
    };
    QCOMPARE(Text(Plug(device)->getSupportedInputFormats(0, 0, 0)),
             QByteArray("48000/16/1s 44100/16/2s"));
}

void tst_QtAudioInputDevice_formats::supported_isEmpty_whenAListIsEmpty_data()
{
    QTest::addColumn<QList<int>>("rates");
    QTest::addColumn<QList<int>>("sizes");
    QTest::addColumn<QList<int>>("counts");
    const QList<int> none;
    QTest::newRow("no rate") << none << QList<int>{16} << QList<int>{1};
    QTest::newRow("no size") << QList<int>{48000} << none << QList<int>{1};
    QTest::newRow("no usable size") << QList<int>{48000} << QList<int>{24} << QList<int>{1};
    QTest::newRow("no count") << QList<int>{48000} << QList<int>{16} << none;
}

void tst_QtAudioInputDevice_formats::supported_isEmpty_whenAListIsEmpty()
{
    QFETCH(QList<int>, rates);
    QFETCH(QList<int>, sizes);
    QFETCH(QList<int>, counts);
    const DevicePtr pDevice = Plug(Device(rates, sizes, counts));
    QCOMPARE(Text(pDevice->getSupportedInputFormats(0, 0, 0)), QByteArray());
}

void tst_QtAudioInputDevice_formats::supported_asksForPcmWithUnsetByteOrder()
{
    const DevicePtr pDevice = Plug(Device({48000}, {16}, {1}));
    const QAudioFormat format = pDevice->getSupportedInputFormats(0, 0, 0).first();
    QCOMPARE(format.codec(), QStringLiteral("audio/pcm"));
    QCOMPARE(format.byteOrder(), QAudioFormat().byteOrder());
}

void tst_QtAudioInputDevice_formats::rank_readsRateSizeAndChannels()
{
    // 44100 Hz is 1114 below all ones, stereo 32766, 8 bits 8.
    QCOMPARE(QtAudioInputDevice::_ComputeRank(Format(44100, 8, 2, kUnsigned)),
             Q_UINT64_C(0xFFFFFBA57FFE0008));
    QCOMPARE(QtAudioInputDevice::_ComputeRank(Format(48000, 16, 1, QAudioFormat::Float)),
             Q_UINT64_C(0xFFFFFFFFFFFFFFFF));
    QCOMPARE(QtAudioInputDevice::_ComputeRank(QAudioFormat()), quint64(0));
}

void tst_QtAudioInputDevice_formats::preferred_followsItsSteps_data()
{
    QTest::addColumn<QList<int>>("rates");
    QTest::addColumn<QList<int>>("sizes");
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<QByteArray>("preferred");
    using L = QList<int>;
    QTest::newRow("48000 mono 16")
        << L{8000, 44100, 48000} << L{8, 16, 32} << L{2, 1} << QByteArray("48000/16/1s");
    QTest::newRow("44100 mono 16") << L{50000, 44100} << L{16} << L{1} << QByteArray("44100/16/1s");
    QTest::newRow("rate before channels")
        << L{48000, 44100} << L{16} << L{2} << QByteArray("48000/16/2s");
    QTest::newRow("50000 before 32000")
        << L{32000, 50000} << L{16} << L{1} << QByteArray("50000/16/1s");
    QTest::newRow("50000 before 44100 in stereo")
        << L{44100, 50000} << L{16} << L{2} << QByteArray("50000/16/2s");
    QTest::newRow("32000 before 96000")
        << L{96000, 32000} << L{16} << L{1} << QByteArray("32000/16/1s");
    QTest::newRow("mono before size") << L{48000} << L{8} << L{6, 2, 1} << QByteArray("48000/8/1u");
    QTest::newRow("fewest channels")
        << L{48000} << L{16} << L{6, 2, 4} << QByteArray("48000/16/2s");
    QTest::newRow("16 before 32 before 8")
        << L{96000} << L{8, 32, 16} << L{2} << QByteArray("96000/16/2s");
    QTest::newRow("32 before 8") << L{48000} << L{8, 32} << L{1} << QByteArray("48000/32/1s");
    QTest::newRow("0 channels are unusable")
        << L{48000} << L{16} << L{0, 2} << QByteArray("48000/16/2s");
}

void tst_QtAudioInputDevice_formats::preferred_followsItsSteps()
{
    QFETCH(QList<int>, rates);
    QFETCH(QList<int>, sizes);
    QFETCH(QList<int>, counts);
    QFETCH(QByteArray, preferred);
    QCOMPARE(Text(Plug(Device(rates, sizes, counts))->getPreferredInputFormat()), preferred);
}

void tst_QtAudioInputDevice_formats::preferred_isSigned_whenBothTypesAreThere()
{
    FakeAudioDevice device = Device({48000}, {16}, {1});
    device.sampleTypes = {kUnsigned, kSigned};
    QCOMPARE(Text(Plug(device)->getPreferredInputFormat()), QByteArray("48000/16/1s"));
}

void tst_QtAudioInputDevice_formats::preferred_isUnsigned_whenSignedIsRefused()
{
    FakeAudioDevice device = Device({44100, 48000}, {16}, {1});
    device.sampleTypes = {kUnsigned};
    QCOMPARE(Text(Plug(device)->getPreferredInputFormat()), QByteArray("48000/16/1u"));
}

void tst_QtAudioInputDevice_formats::preferred_isTheEarliest_whenRanksAreEqual()
{
    // 49152000 / 31990 and / 31991 are both 1536.
    const DevicePtr pDevice = Plug(Device({31991, 31990}, {16}, {1}));
    QCOMPARE(QtAudioInputDevice::_ComputeRank(Format(31990, 16, 1, kSigned)),
             QtAudioInputDevice::_ComputeRank(Format(31991, 16, 1, kSigned)));
    QCOMPARE(Text(pDevice->getPreferredInputFormat()), QByteArray("31991/16/1s"));
}

void tst_QtAudioInputDevice_formats::preferred_isInvalid_whenNothingIsUsable_data()
{
    QTest::addColumn<QList<int>>("rates");
    QTest::addColumn<QList<int>>("sizes");
    QTest::addColumn<QList<int>>("counts");
    using L = QList<int>;
    QTest::newRow("nothing at all") << L{} << L{} << L{};
    QTest::newRow("24 bits only") << L{48000} << L{24} << L{1};
    QTest::newRow("0 channels only") << L{48000} << L{16} << L{0};
    QTest::newRow("0 Hz only") << L{0} << L{16} << L{1};
}

void tst_QtAudioInputDevice_formats::preferred_isInvalid_whenNothingIsUsable()
{
    QFETCH(QList<int>, rates);
    QFETCH(QList<int>, sizes);
    QFETCH(QList<int>, counts);
    const DevicePtr pDevice = Plug(Device(rates, sizes, counts));
    const QAudioFormat format = pDevice->getPreferredInputFormat();
    QCOMPARE(Text(format), QByteArray("invalid"));
    QVERIFY(!pDevice->SetRecordingFormat(format));
}

AA_TEST(tst_QtAudioInputDevice_formats, QCoreApplication)
#include "tst_QtAudioInputDevice_formats.moc"
