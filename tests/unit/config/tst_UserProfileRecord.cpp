// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UserProfile.h>

#include "support/FileBuilder.h"

#include <QDataStream>
#include <QtTest>

#include <memory>
#include <support/TestClass.h>

namespace {

constexpr unsigned long kFixedSize = 37;  // bytes of a record without its name

/// The record alone; its fields are found by name.
FileBuilder record(const QByteArray& pName, int pID = 250)
{
    return FileBuilder().profile(pID, pName, "");
}

QByteArray serialized(const UserProfile& pProfile, unsigned long& pSize)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    pSize = pProfile.Serialize(stream);
    return bytes;
}

std::unique_ptr<UserProfile> deserialized(const QByteArray& pBytes, unsigned long& pSize)
{
    QDataStream stream(pBytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    return std::unique_ptr<UserProfile>(UserProfile::Deserialize(stream, pSize));
}

std::unique_ptr<UserProfile> deserialized(const QByteArray& pBytes)
{
    auto size = static_cast<unsigned long>(pBytes.size());
    return deserialized(pBytes, size);
}

}  // namespace

class tst_UserProfileRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { UserProfile::_nextID = 100; }

    void Serialize_writesLayout();
    void Serialize_returnsBytesWritten_data();
    void Serialize_returnsBytesWritten();
    void Serialize_writesUnsignedIDs();
    void Deserialize_readsRecord();
    void Deserialize_raisesNextID();
    void Deserialize_leavesRestOfStream();
    void Deserialize_takesEmptyName_isIntended();
    void Deserialize_readsWhatSerializeWrote();
    void Deserialize_fails_whenSizeIsTooSmall();
    void Deserialize_fails_whenStreamIsShorterThanSize();
    void Deserialize_fails_whenFieldIsWrong_data();
    void Deserialize_fails_whenFieldIsWrong();
    void failedDeserialize_raisesNoID();
};

void tst_UserProfileRecord::Serialize_writesLayout()
{
    const UserProfile profile(QString::fromUtf8("Été"), -2.5, -1, 200, 258U, 99.9, 300.0);
    unsigned long size = 0;
    const QByteArray bytes = serialized(profile, size);
    QCOMPARE(bytes.toHex(' '),
             QByteArray("02 01 00 00 05 00 c3 89 74 c3 a9 01 00 46 63 00 2c 01 "
                        "00 00 00 00 00 00 f0 3f 00 00 00 00 00 00 04 c0 "
                        "ff ff ff ff c8 00 00 00"));
    QCOMPARE(size, 42UL);
}

void tst_UserProfileRecord::Serialize_returnsBytesWritten_data()
{
    QTest::addColumn<int>("nameSize");
    QTest::addColumn<int>("expected");
    QTest::newRow("empty") << 0 << 37;
    QTest::newRow("short") << 5 << 42;
    QTest::newRow("longest") << 65535 << 65572;
    QTest::newRow("65536 is 0") << 65536 << 37;
    QTest::newRow("65540 is 4") << 65540 << 41;
}

void tst_UserProfileRecord::Serialize_returnsBytesWritten()
{
    QFETCH(int, nameSize);
    QFETCH(int, expected);
    const UserProfile profile(QString(nameSize, QLatin1Char('x')), 1.0, 0, 75, 90.0, 175.0);
    unsigned long size = 0;
    QCOMPARE(serialized(profile, size).size(), expected);
    QCOMPARE(size, static_cast<unsigned long>(expected));
}

void tst_UserProfileRecord::Serialize_writesUnsignedIDs()
{
    const UserProfile profile(QString(), 1.0, 0, 75, 4294967295U, 90.0, 175.0);
    unsigned long size = 0;
    QCOMPARE(serialized(profile, size).left(4).toHex(), QByteArray("ffffffff"));
}

void tst_UserProfileRecord::Deserialize_readsRecord()
{
    FileBuilder file = record("Acid");
    file.setI16("minimal BPM", -1).setI16("maximal BPM", 0x7FFF).setI32("filter low", -1);
    unsigned long size = 1000;
    QDataStream stream(file.bytes());
    stream.setByteOrder(QDataStream::LittleEndian);
    const std::unique_ptr<UserProfile> profile(UserProfile::Deserialize(stream, size));
    QVERIFY(profile);
    QCOMPARE(size, kFixedSize + 4);
    QCOMPARE(profile->getID(), 250U);
    QCOMPARE(profile->getName(), QStringLiteral("Acid"));
    QCOMPARE(profile->getMinimalBPM(), -1.0);
    QCOMPARE(profile->getMaximalBPM(), 32767.0);
    QCOMPARE(profile->getSensibility(), 1.25);
    QCOMPARE(profile->getFilterLowFrequency(), -1);
    QCOMPARE(profile->getFilterHighFrequency(), 200);
    QCOMPARE(profile->getMinimalThreshold(), short(1000));
    QCOMPARE(profile->getMaximalThreshold(), short(32000));
    QVERIFY(profile->isSerializable());
    QVERIFY(!profile->isReadOnly());
}

void tst_UserProfileRecord::Deserialize_raisesNextID()
{
    QVERIFY(deserialized(record("A", 250).bytes()));
    QCOMPARE(UserProfile::_nextID, 251U);
    QVERIFY(deserialized(record("A", 120).bytes()));
    QCOMPARE(UserProfile::_nextID, 251U);
    QVERIFY(deserialized(record("A", -1).bytes()));
    QCOMPARE(UserProfile::_nextID, 251U);
    QVERIFY(deserialized(record("A", -2).bytes()));
    QCOMPARE(UserProfile::_nextID, 4294967295U);
}

void tst_UserProfileRecord::Deserialize_leavesRestOfStream()
{
    const QByteArray bytes = record("One").bytes() + record("Second").bytes();
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    auto size = static_cast<unsigned long>(bytes.size());
    const std::unique_ptr<UserProfile> one(UserProfile::Deserialize(stream, size));
    QCOMPARE(size, kFixedSize + 3);
    size = static_cast<unsigned long>(bytes.size()) - size;
    const std::unique_ptr<UserProfile> second(UserProfile::Deserialize(stream, size));
    QCOMPARE(size, kFixedSize + 6);
    QCOMPARE(one->getName(), QStringLiteral("One"));
    QCOMPARE(second->getName(), QStringLiteral("Second"));
    QVERIFY(stream.atEnd());
}

void tst_UserProfileRecord::Deserialize_takesEmptyName_isIntended()
{
    const auto profile = deserialized(record("").bytes());
    QVERIFY(profile);
    QVERIFY(profile->getName().isEmpty());
}

void tst_UserProfileRecord::Deserialize_readsWhatSerializeWrote()
{
    const UserProfile written(QStringLiteral(" x "), 0.1, 3, 4, 77U, 60.0, 61.0);
    unsigned long size = 0;
    const QByteArray bytes = serialized(written, size);
    const auto read = deserialized(bytes, size);
    QVERIFY(read);
    QCOMPARE(size, static_cast<unsigned long>(bytes.size()));
    unsigned long again = 0;
    QCOMPARE(serialized(*read, again), bytes);
}

void tst_UserProfileRecord::Deserialize_fails_whenSizeIsTooSmall()
{
    for (const char* name : {"", "Acid"}) {
        const QByteArray bytes = record(name).bytes();
        for (int available = 0; available < bytes.size(); ++available) {
            auto size = static_cast<unsigned long>(available);
            QVERIFY2(!deserialized(bytes, size), QByteArray::number(available).constData());
            QCOMPARE(size, 0UL);
        }
    }
}

void tst_UserProfileRecord::Deserialize_fails_whenStreamIsShorterThanSize()
{
    const QByteArray bytes = record("Acid").bytes();
    for (int length = 0; length < bytes.size(); ++length) {
        auto size = static_cast<unsigned long>(bytes.size());
        QVERIFY2(!deserialized(bytes.left(length), size), QByteArray::number(length).constData());
        QCOMPARE(size, 0UL);
    }
}

void tst_UserProfileRecord::Deserialize_fails_whenFieldIsWrong_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("record version 0")
        << QByteArray("record version") << QByteArray::fromHex("0000");
    QTest::newRow("record version 2")
        << QByteArray("record version") << QByteArray::fromHex("0200");
    QTest::newRow("record version, other order")
        << QByteArray("record version") << QByteArray::fromHex("0001");
    QTest::newRow("marker") << QByteArray("marker") << QByteArray("f");
    QTest::newRow("no marker") << QByteArray("marker") << QByteArray(1, '\0');
    QTest::newRow("name too long") << QByteArray("name") << QByteArray::fromHex("ffff");
    QTest::newRow("name longer than there is") << QByteArray("name") << QByteArray::fromHex("2900");
    QTest::newRow("name of a byte order mark")
        << QByteArray("name") << QByteArray::fromHex("0300efbbbf");
}

void tst_UserProfileRecord::Deserialize_fails_whenFieldIsWrong()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    const QByteArray bytes = record("Aci").set(field, value).bytes();
    auto size = static_cast<unsigned long>(bytes.size());
    QVERIFY(!deserialized(bytes, size));
    QCOMPARE(size, 0UL);
}

void tst_UserProfileRecord::failedDeserialize_raisesNoID()
{
    QVERIFY(!deserialized(record("A", 500).setU8("marker", 0).bytes()));
    QVERIFY(!deserialized(record("A", 500).truncateAt(37).bytes()));
    QCOMPARE(UserProfile::_nextID, 100U);
}

AA_TEST(tst_UserProfileRecord, NoApplication)
#include "tst_UserProfileRecord.moc"
