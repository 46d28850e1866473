// SPDX-License-Identifier: MIT
#include <cli/analyze/RawPcmReader.h>

#include <QTemporaryDir>
#include <QtTest>

#include <apps/shared/files/TestAudio.h>
#include <support/TestClass.h>

class tst_RawPcmReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_isLittleEndian();
    void read_averagesChannels();
    void read_leavesOutACutOffFrame_data();
    void read_leavesOutACutOffFrame();
    void open_fails_data();
    void open_fails();

private:
    QTemporaryDir m_folder;
};

void tst_RawPcmReader::read_isLittleEndian()
{
    const QString path = m_folder.filePath(QStringLiteral("a.raw"));
    QVERIFY(
        testaudio::WriteBytes(path, QByteArray("\x01\x00\x00\x01\xff\xff\x00\x80\xff\x7f", 10)));
    RawPcmReader reader(8000, 1);
    QVERIFY(reader.Open(path));
    QCOMPARE(reader.getSampleRate(), 8000);
    QCOMPARE(reader.getChannelCount(), 1);
    QCOMPARE(reader.getFrameCount(), quint64(5));
    std::vector<qint16> samples(4);
    QCOMPARE(reader.Read(samples.data(), 4), std::size_t(4));
    QCOMPARE(samples, (std::vector<qint16>{1, 256, -1, -32768}));
    QCOMPARE(reader.Read(samples.data(), 4), std::size_t(1));
    QCOMPARE(samples[0], qint16(32767));
    QCOMPARE(reader.Read(samples.data(), 4), std::size_t(0));
    QCOMPARE(reader.getError(), QString());
}

void tst_RawPcmReader::read_averagesChannels()
{
    const QString path = m_folder.filePath(QStringLiteral("b.raw"));
    // (2, 4) and (-1, -2): means 3 and -1.5.
    QVERIFY(testaudio::WriteBytes(path, QByteArray("\x02\x00\x04\x00\xff\xff\xfe\xff", 8)));
    RawPcmReader reader(44100, 2);
    QVERIFY(reader.Open(path));
    std::vector<qint16> samples(2);
    QCOMPARE(reader.Read(samples.data(), 2), std::size_t(2));
    QCOMPARE(samples, (std::vector<qint16>{3, -2}));
    QCOMPARE(reader.getFrames()[1], 4.0f / 32768.0f);
}

void tst_RawPcmReader::read_leavesOutACutOffFrame_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("frames");
    QTest::newRow("odd byte") << 1 << 7 << 3;
    QTest::newRow("half a stereo frame") << 2 << 10 << 2;
    QTest::newRow("less than a frame") << 2 << 3 << 0;
    QTest::newRow("nothing") << 1 << 0 << 0;
}

void tst_RawPcmReader::read_leavesOutACutOffFrame()
{
    QFETCH(int, channels);
    QFETCH(int, bytes);
    QFETCH(int, frames);
    const QString path = m_folder.filePath(QStringLiteral("c.raw"));
    QVERIFY(testaudio::WriteBytes(path, QByteArray(bytes, '\x11')));
    RawPcmReader reader(44100, channels);
    QVERIFY(reader.Open(path));
    QCOMPARE(reader.getFrameCount(), quint64(frames));
    std::vector<qint16> samples(100);
    QCOMPARE(reader.Read(samples.data(), 100), std::size_t(frames));
    QCOMPARE(reader.getError(), QString());
}

void tst_RawPcmReader::open_fails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("words");
    QTest::newRow("missing") << "missing.raw"
                             << "no such file";
    QTest::newRow("folder") << "."
                            << "folder";
}

void tst_RawPcmReader::open_fails()
{
    QFETCH(QString, name);
    QFETCH(QString, words);
    RawPcmReader reader(44100, 1);
    QVERIFY(!reader.Open(m_folder.filePath(name)));
    QVERIFY2(reader.getError().contains(words), qPrintable(reader.getError()));
}

AA_TEST(tst_RawPcmReader, NoApplication)
#include "tst_RawPcmReader.moc"
