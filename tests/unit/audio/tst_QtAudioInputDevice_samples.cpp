// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>

#include "Capture.h"

#include <QtTest>

#include <limits>
#include <support/TestClass.h>
#include <support/Text.h>

using eRead = FakeAudioStream::eRead;

class tst_QtAudioInputDevice_samples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void raw_samplesComeFromTheReadBuffer();
    void raw_takesWholeSamplesOnly_data();
    void raw_takesWholeSamplesOnly();
    void raw_dependsOnTheRead_data();
    void raw_dependsOnTheRead();
    void converted_samplesComeFromTheConverter();
    void converted_takesWholeFramesOnly_data();
    void converted_takesWholeFramesOnly();
    void converted_dependsOnTheRead_data();
    void converted_dependsOnTheRead();
    void converted_formats_data();
    void converted_formats();
    void leftOver_isReadWithTheNextBlock();
    void zeroChannels_deliverNothing();
    void rawBytes_passForMono16_whenThereIsNoConverter_isIntended();
    void buffer_growsToTheBlockAndNeverShrinks();
};

void tst_QtAudioInputDevice_samples::initTestCase()
{
    FakeAudioState::Install();
}

void tst_QtAudioInputDevice_samples::raw_samplesComeFromTheReadBuffer()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.Push({0x01, 0x00, 0xFF, 0xFF, 0xFF, 0x7F, 0x00, 0x80});
    QCOMPARE(c.Take(), Text("samples(1,-1,32767,-32768)"));
    QCOMPARE(static_cast<const void*>(c.pLog->lastPointer()),
             static_cast<const void*>(c.pCapture->m_pBuffer));
}

void tst_QtAudioInputDevice_samples::raw_takesWholeSamplesOnly_data()
{
    QTest::addColumn<int>("ready");
    QTest::addColumn<QList<qint64>>("reads");
    QTest::addColumn<QString>("log");
    QTest::newRow("8") << 8 << QList<qint64>{8} << Text("samples(1,2,3,4)");
    QTest::newRow("7") << 7 << QList<qint64>{6} << Text("samples(1,2,3)");
    QTest::newRow("2") << 2 << QList<qint64>{2} << Text("samples(1)");
    QTest::newRow("1") << 1 << QList<qint64>{} << QString();
    QTest::newRow("0") << 0 << QList<qint64>{} << QString();
    QTest::newRow("-2") << -2 << QList<qint64>{} << QString();
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << QList<qint64>{} << QString();
    QTest::newRow("more than there is") << 12 << QList<qint64>{12} << Text("samples(1,2,3,4)");
}

void tst_QtAudioInputDevice_samples::raw_takesWholeSamplesOnly()
{
    QFETCH(int, ready);
    QFETCH(QList<qint64>, reads);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.backEnd()->ScriptBytesReady(ready);
    c.Push({1, 0, 2, 0, 3, 0, 4, 0});
    QCOMPARE(c.reads(), reads);
    QCOMPARE(c.Take(), log);
}

void tst_QtAudioInputDevice_samples::raw_dependsOnTheRead_data()
{
    QTest::addColumn<int>("read");
    QTest::addColumn<QString>("log");
    QTest::newRow("short") << int(eRead::eShort) << Text("samples(1)");
    QTest::newRow("one byte") << int(eRead::eOneByte) << QString();
    QTest::newRow("empty") << int(eRead::eEmpty) << QString();
    QTest::newRow("failing") << int(eRead::eFailing) << QString();
    QTest::newRow("throwing") << int(eRead::eThrowing) << QString();
}

void tst_QtAudioInputDevice_samples::raw_dependsOnTheRead()
{
    QFETCH(int, read);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.backEnd()->stream()->ScriptRead(eRead(read));
    c.Push({1, 0, 0, 0, 0, 0});  // short: 3 bytes, so 1 sample and half of one
    QCOMPARE(c.Take(), log);
    QVERIFY(c.pCapture->isRecording());
    // The recording goes on.
    c.backEnd()->stream()->Append(QByteArray(1, '\0'));
    c.Push({});
    QVERIFY(c.Take().startsWith(Text("samples(")));
}

void tst_QtAudioInputDevice_samples::converted_samplesComeFromTheConverter()
{
    Capture c;
    QVERIFY(c.Record(8, 1, QAudioFormat::UnSignedInt));
    c.Push({0x00, 0x80, 0xFF});
    QCOMPARE(c.Take(), Text("samples(-32768,0,32512)"));
    QVERIFY(static_cast<const void*>(c.pLog->lastPointer()) != c.pCapture->m_pBuffer);
    const qint16* pFirst = c.pLog->lastPointer();
    c.Push({0x81});
    QCOMPARE(c.Take(), Text("samples(256)"));
    QCOMPARE(c.pLog->lastPointer(), pFirst);
}

void tst_QtAudioInputDevice_samples::converted_takesWholeFramesOnly_data()
{
    QTest::addColumn<int>("ready");
    QTest::addColumn<QList<qint64>>("reads");
    QTest::addColumn<QString>("log");
    QTest::newRow("8") << 8 << QList<qint64>{8} << Text("samples(-1,0)");
    QTest::newRow("7") << 7 << QList<qint64>{4} << Text("samples(-1)");
    QTest::newRow("4") << 4 << QList<qint64>{4} << Text("samples(-1)");
    QTest::newRow("3") << 3 << QList<qint64>{} << QString();
    QTest::newRow("0") << 0 << QList<qint64>{} << QString();
    QTest::newRow("-4") << -4 << QList<qint64>{} << QString();
    QTest::newRow("more than there is") << 12 << QList<qint64>{12} << Text("samples(-1,0)");
}

void tst_QtAudioInputDevice_samples::converted_takesWholeFramesOnly()
{
    QFETCH(int, ready);
    QFETCH(QList<qint64>, reads);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Record(16, 2));
    c.backEnd()->ScriptBytesReady(ready);
    c.Push({0xFF, 0xFF, 0xFF, 0xFF, 0x01, 0x00, 0x01, 0x00});
    QCOMPARE(c.reads(), reads);
    QCOMPARE(c.Take(), log);
}

void tst_QtAudioInputDevice_samples::converted_dependsOnTheRead_data()
{
    QTest::addColumn<int>("read");
    QTest::addColumn<QString>("log");
    QTest::newRow("short") << int(eRead::eShort) << Text("samples(-1)");
    QTest::newRow("one byte") << int(eRead::eOneByte) << QString();
    QTest::newRow("empty") << int(eRead::eEmpty) << QString();
    QTest::newRow("failing") << int(eRead::eFailing) << QString();
    QTest::newRow("throwing") << int(eRead::eThrowing) << QString();
}

void tst_QtAudioInputDevice_samples::converted_dependsOnTheRead()
{
    QFETCH(int, read);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Record(16, 2));
    c.backEnd()->stream()->ScriptRead(eRead(read));
    // Short: 6 of 12 bytes, so one frame and half of one.
    c.Push({0xFF, 0xFF, 0xFF, 0xFF, 1, 0, 1, 0, 1, 0, 1, 0});
    QCOMPARE(c.Take(), log);
    c.Push({1, 0, 1, 0});
    QVERIFY(c.Take().startsWith(Text("samples(")));
}

void tst_QtAudioInputDevice_samples::converted_formats_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("channelCount");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("log");
    const int s = QAudioFormat::SignedInt;
    const int u = QAudioFormat::UnSignedInt;
    // The bytes pushed are 64 00 32 80 9C FF CE 7F.
    QTest::newRow("mono s8") << 8 << 1 << s
                             << Text("samples(25600,0,12800,-32768,-25600,-256,-12800,32512)");
    QTest::newRow("mono u8") << 8 << 1 << u
                             << Text("samples(-7168,-32768,-19968,0,7168,32512,19968,-256)");
    QTest::newRow("mono u16") << 16 << 1 << u << Text("samples(-32668,50,32668,-50)");
    QTest::newRow("mono s32") << 32 << 1 << s << Text("samples(-32718,32718)");
    QTest::newRow("mono u32") << 32 << 1 << u << Text("samples(50,-50)");
    // (100+0)/2, (50-128)/2, (-100-1)/2 truncated, (-50+127)/2 truncated.
    QTest::newRow("stereo s8") << 8 << 2 << s << Text("samples(50,-39,-50,38)");
    // (100+0)/2, (50+128)/2, (156+255)/2, (206+127)/2, each less 32768.
    QTest::newRow("stereo u8") << 8 << 2 << u << Text("samples(-32718,-32679,-32563,-32602)");
    QTest::newRow("stereo s16") << 16 << 2 << s << Text("samples(-1,0)");
    QTest::newRow("stereo u16") << 16 << 2 << u << Text("samples(-32768,-32768)");
    // (0x80320064 - 2^32 + 0x7FCEFF9C) / 2 = 98304
    QTest::newRow("stereo s32") << 32 << 2 << s << Text("samples(0)");
    QTest::newRow("stereo u32") << 32 << 2 << u << Text("samples(-32768)");
}

void tst_QtAudioInputDevice_samples::converted_formats()
{
    QFETCH(int, size);
    QFETCH(int, channelCount);
    QFETCH(int, type);
    QFETCH(QString, log);
    Capture c;
    QVERIFY(c.Record(size, channelCount, QAudioFormat::SampleType(type)));
    c.Push({0x64, 0x00, 0x32, 0x80, 0x9C, 0xFF, 0xCE, 0x7F});
    QCOMPARE(c.Take(), log);
}

void tst_QtAudioInputDevice_samples::leftOver_isReadWithTheNextBlock()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    c.Push({1, 0, 2});
    QCOMPARE(c.Take(), Text("samples(1)"));
    c.Push({0, 3, 0});
    QCOMPARE(c.Take(), Text("samples(2,3)"));
}

void tst_QtAudioInputDevice_samples::zeroChannels_deliverNothing()
{
    Capture c;
    QVERIFY(c.Record(16, 0));
    c.Push({1, 0, 2, 0});
    QCOMPARE(c.Take(), QString());
    QVERIFY(c.reads().isEmpty());
    QVERIFY(c.pCapture->StopRecording());
    QCOMPARE(c.Take(), Text("stopped"));
}

void tst_QtAudioInputDevice_samples::rawBytes_passForMono16_whenThereIsNoConverter_isIntended()
{
    Capture c;
    QVERIFY(c.Configure(8, 2));
    // As a failed factory leaves the device.
    delete c.pCapture->m_pResampler;
    c.pCapture->m_pResampler = nullptr;
    QVERIFY(c.pCapture->StartRecording());
    c.Push({0x34, 0x12, 0xFF, 0xFF, 0x01});
    QCOMPARE(c.Take(), Text("started samples(4660,-1)"));
}

void tst_QtAudioInputDevice_samples::buffer_growsToTheBlockAndNeverShrinks()
{
    Capture c;
    QVERIFY(c.Record(16, 1));
    const int pushed[] = {10, 4, 10, 26, 2, 25};
    const quint64 capacities[] = {10, 10, 10, 26, 26, 26};
    for (int i = 0; i < 6; ++i) {
        const bool isGrowing = c.pCapture->m_bufferCapacity < capacities[i];
        const char* pBefore = c.pCapture->m_pBuffer;
        c.backEnd()->Push(QByteArray(pushed[i], '\1'));
        QCOMPARE(c.pCapture->m_bufferCapacity, capacities[i]);
        QVERIFY(isGrowing || c.pCapture->m_pBuffer == pBefore);
    }
}

AA_TEST(tst_QtAudioInputDevice_samples, QCoreApplication)
#include "tst_QtAudioInputDevice_samples.moc"
