// SPDX-License-Identifier: MIT
#include <shared/files/FileNameCodec.h>

#include <QFile>
#include <QtTest>

#include <support/TestClass.h>

class tst_FileNameCodec : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FileNameCodec::Install(); }
    void text_isUtf8_data();
    void text_isUtf8();
    void bytes_comeBack_data();
    void bytes_comeBack();
    void anyBytes_comeBack();
    void escapes_standForBytes();
};

void tst_FileNameCodec::text_isUtf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("ASCII") << QByteArray("song.flac");
    QTest::newRow("two bytes") << QByteArray("caf\xc3\xa9");
    QTest::newRow("three bytes") << QByteArray("\xe6\x97\xa5.wav");
    QTest::newRow("four bytes") << QByteArray("\xf0\x9f\x8e\xb5");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf.wav");
}

void tst_FileNameCodec::text_isUtf8()
{
    QFETCH(QByteArray, bytes);
    const QString text = QFile::decodeName(bytes);
    QCOMPARE(text.toUtf8(), bytes);
    QCOMPARE(QFile::encodeName(text), bytes);
}

void tst_FileNameCodec::bytes_comeBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("Latin 1") << QByteArray("caf\xe9.wav");
    QTest::newRow("no lead byte") << QByteArray("\x80\xbf");
    QTest::newRow("no byte of UTF-8") << QByteArray("\xff\xfe\xf8");
    QTest::newRow("cut off") << QByteArray("a\xf0\x9f\x8e");
    QTest::newRow("too long") << QByteArray("\xc0\xaf");
    QTest::newRow("surrogate") << QByteArray("\xed\xb2\x80");
    QTest::newRow("pair of surrogates") << QByteArray("\xed\xa0\x80\xed\xb2\x80");
    QTest::newRow("byte behind four") << QByteArray("\xf0\x9f\x8e\xb5\x90");
}

void tst_FileNameCodec::bytes_comeBack()
{
    QFETCH(QByteArray, bytes);
    const QString text = QFile::decodeName(bytes);
    QCOMPARE(QFile::encodeName(text), bytes);
    QVERIFY(!text.contains(QChar(QChar::ReplacementCharacter)));
}

void tst_FileNameCodec::anyBytes_comeBack()
{
    for (int first = 1; first < 256; ++first)
        for (int second = 1; second < 256; ++second)
            for (const char* pRest : {"", "\x80", "\xbf\x90"}) {
                const QByteArray bytes = QByteArray(1, char(first)) + char(second) + pRest;
                QCOMPARE(QFile::encodeName(QFile::decodeName(bytes)), bytes);
            }
}

void tst_FileNameCodec::escapes_standForBytes()
{
    const QString text = QFile::decodeName("a\xe9z");
    QCOMPARE(text.size(), 3);
    QCOMPARE(text[0], QChar(u'a'));
    QCOMPARE(text[1].unicode(), ushort(0xDCE9));
    QCOMPARE(text[2], QChar(u'z'));
}

AA_TEST(tst_FileNameCodec, QCoreApplication)
#include "tst_FileNameCodec.moc"
