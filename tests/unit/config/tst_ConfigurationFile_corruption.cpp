// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include "support/ConfigSandbox.h"
#include "support/FileBuilder.h"

#include <QtTest>

#include <algorithm>
#include <limits>
#include <support/TestClass.h>

namespace {

constexpr int kHeadSize = 12;
constexpr int kChecksumSize = 2;

QByteArray f64(double pValue)
{
    return FileBuilder().f64(pValue).bytes();
}

}  // namespace

class tst_ConfigurationFile_corruption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileBuilder_knowsChecksum();
    void everyTruncation_isRejected_data() { addVersions(); }
    void everyTruncation_isRejected();
    void everyTruncation_isRejected_whenResealed_data() { addVersions(); }
    void everyTruncation_isRejected_whenResealed();
    void everyChangedByte_isRejected_data() { addVersions(); }
    void everyChangedByte_isRejected();
    void everyMissingByte_isRejected_whenResealed_data() { addVersions(); }
    void everyMissingByte_isRejected_whenResealed();
    void trailingBytes_areRejected_whenResealed_data() { addVersions(); }
    void trailingBytes_areRejected_whenResealed();
    void changedNumber_isRejected_whenResealed_data();
    void changedNumber_isRejected_whenResealed();
    void changedRecordVersion_isRejected_whenResealed_data();
    void changedRecordVersion_isRejected_whenResealed();
    void announcedSizes_areRejected_whenFileHoldsLess_data();
    void announcedSizes_areRejected_whenFileHoldsLess();
    void anyValueOfPlainField_isTaken_whenResealed_data();
    void anyValueOfPlainField_isTaken_whenResealed();
    void nameThatDecodesToNothing_isRejected();
    void nameOfInvalidUtf8_isTaken();
    void checksumInFrontOfTrailingBytes_isRejected();
    void checksum_isLittleEndian();
    void checksumAlone_isChecked();

private:
    static void addVersions();
    /// Accepted or not; a file shorter than the head counts as an unused one and is accepted.
    static bool isTaken(const ConfigSandbox& pSandbox, const FileBuilder& pFile)
    {
        return pSandbox.load(pFile.bytes()) != nullptr;
    }
};

void tst_ConfigurationFile_corruption::addVersions()
{
    QTest::addColumn<int>("minor");
    QTest::newRow("1.0") << 0;
    QTest::newRow("1.1") << 1;
    QTest::newRow("1.2") << 2;
}

void tst_ConfigurationFile_corruption::fileBuilder_knowsChecksum()
{
    QCOMPARE(FileBuilder::crc("123456789"), quint16(0x906E));
    const FileBuilder file = FileBuilder::sample(1, 2);
    // 26 bytes to the profile count, records of 37 + 4 and 37 + 5, 36 of durations, 5 of language.
    QCOMPARE(file.at("selected ID"), 12);
    QCOMPARE(file.at("profile count"), 22);
    QCOMPARE(file.at("ID"), 24);
    QCOMPARE(file.at("ID 2"), 24 + 41);
    QCOMPARE(file.at("average"), 24 + 41 + 42);
    QCOMPARE(file.at("language"), 24 + 41 + 42 + 36);
    QCOMPARE(file.size(), 24 + 41 + 42 + 36 + 5 + 2);
    const ConfigSandbox sandbox;
    QVERIFY(isTaken(sandbox, file));
}

void tst_ConfigurationFile_corruption::everyTruncation_isRejected()
{
    QFETCH(int, minor);
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, minor);
    QVERIFY(isTaken(sandbox, good));
    for (int size = 0; size < good.size(); ++size) {
        const bool taken = isTaken(sandbox, FileBuilder(good).truncateAt(size));
        QVERIFY2(taken == (size < kHeadSize), QByteArray::number(size).constData());
    }
}

void tst_ConfigurationFile_corruption::everyTruncation_isRejected_whenResealed()
{
    QFETCH(int, minor);
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, minor);
    const int whole = good.size() - kChecksumSize;
    for (int size = kHeadSize - kChecksumSize; size <= whole; ++size) {
        const bool taken = isTaken(sandbox, FileBuilder(good).truncateAt(size).seal());
        QVERIFY2(taken == (size == whole), QByteArray::number(size).constData());
    }
}

void tst_ConfigurationFile_corruption::everyChangedByte_isRejected()
{
    QFETCH(int, minor);
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, minor);
    for (int offset = 0; offset < good.size(); ++offset) {
        for (int mask = 1; mask <= 0xFF; ++mask) {
            const bool taken = isTaken(sandbox, FileBuilder(good).flip(offset, mask));
            QVERIFY2(!taken, qPrintable(QStringLiteral("%1 ^ %2").arg(offset).arg(mask)));
        }
    }
}

void tst_ConfigurationFile_corruption::everyMissingByte_isRejected_whenResealed()
{
    QFETCH(int, minor);
    const ConfigSandbox sandbox;
    const QByteArray good = FileBuilder::sample(1, minor).bytes();
    for (int offset = 0; offset < good.size() - kChecksumSize; ++offset) {
        QByteArray bytes = good;
        bytes.remove(offset, 1);
        const bool taken = isTaken(sandbox, FileBuilder().raw(bytes).reseal());
        QVERIFY2(!taken, QByteArray::number(offset).constData());
    }
}

void tst_ConfigurationFile_corruption::trailingBytes_areRejected_whenResealed()
{
    QFETCH(int, minor);
    const ConfigSandbox sandbox;
    for (const int size : {1, 2, 3, 36, 100}) {
        FileBuilder file = FileBuilder::sample(1, minor);
        file.insert("checksum", QByteArray(size, '\0')).reseal();
        QVERIFY2(!isTaken(sandbox, file), QByteArray::number(size).constData());
        FileBuilder appended = FileBuilder::sample(1, minor);
        QVERIFY(!isTaken(sandbox, appended.append(QByteArray(size, '\0'))));
    }
}

void tst_ConfigurationFile_corruption::changedNumber_isRejected_whenResealed_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("value");
    QTest::newRow("no profile") << QByteArray("profile count") << 0;
    QTest::newRow("one profile less") << QByteArray("profile count") << 1;
    QTest::newRow("one profile more") << QByteArray("profile count") << 3;
    QTest::newRow("32768 profiles") << QByteArray("profile count") << 0x8000;
    QTest::newRow("65535 profiles") << QByteArray("profile count") << 0xFFFF;
    QTest::newRow("device longer") << QByteArray("device") << 1;
    QTest::newRow("device of 4") << QByteArray("device") << 4;
    QTest::newRow("name empty") << QByteArray("name") << 0;
    QTest::newRow("name shorter") << QByteArray("name") << 3;
    QTest::newRow("name longer") << QByteArray("name") << 5;
    QTest::newRow("second name empty") << QByteArray("name 2") << 0;
    QTest::newRow("second name longer") << QByteArray("name 2") << 6;
    QTest::newRow("language empty") << QByteArray("language") << 0;
    QTest::newRow("language shorter") << QByteArray("language") << 1;
    QTest::newRow("language longer") << QByteArray("language") << 3;
    QTest::newRow("language over the flag and the checksum") << QByteArray("language") << 5;
}

void tst_ConfigurationFile_corruption::changedNumber_isRejected_whenResealed()
{
    QFETCH(QByteArray, field);
    QFETCH(int, value);
    const ConfigSandbox sandbox;
    QVERIFY(!isTaken(sandbox, FileBuilder::sample(1, 2).setI16(field, value).reseal()));
}

void tst_ConfigurationFile_corruption::changedRecordVersion_isRejected_whenResealed_data()
{
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("marker");
    for (const char* suffix : {"", " 2"}) {
        for (const int version : {0, 2, 0x0100, 0x0101, -1})
            QTest::addRow("version %d%s", version, suffix) << QByteArray(suffix) << version << 0x46;
        for (const int marker : {0x00, 0x45, 0x47, 0x66, 0xC6})
            QTest::addRow("marker %d%s", marker, suffix) << QByteArray(suffix) << 1 << marker;
    }
}

void tst_ConfigurationFile_corruption::changedRecordVersion_isRejected_whenResealed()
{
    QFETCH(QByteArray, suffix);
    QFETCH(int, version);
    QFETCH(int, marker);
    const ConfigSandbox sandbox;
    FileBuilder file = FileBuilder::sample(1, 2);
    file.setI16("record version" + suffix, version).setU8("marker" + suffix, marker).reseal();
    QVERIFY(!isTaken(sandbox, file));
}

void tst_ConfigurationFile_corruption::announcedSizes_areRejected_whenFileHoldsLess_data()
{
    QTest::addColumn<QByteArray>("field");
    for (const char* field : {"device", "profile count", "name", "name 2", "language"})
        QTest::newRow(field) << QByteArray(field);
}

void tst_ConfigurationFile_corruption::announcedSizes_areRejected_whenFileHoldsLess()
{
    QFETCH(QByteArray, field);
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, 2);
    const int rest = good.size() - good.at(field) - 2;
    for (const int announced : {rest - 1, rest, rest + 1, 0x7FFF, 0x8000, 0xFFFF}) {
        const FileBuilder file = FileBuilder(good).setI16(field, announced).reseal();
        QVERIFY2(!isTaken(sandbox, file), QByteArray::number(announced).constData());
    }
}

void tst_ConfigurationFile_corruption::anyValueOfPlainField_isTaken_whenResealed_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray ones(8, '\xFF');
    for (const char* field : {"selected ID", "ID", "ID 2", "filter low", "filter high"})
        QTest::newRow(field) << QByteArray(field) << ones.left(4);
    for (const char* field : {"threshold", "minimal BPM", "maximal BPM 2", "stop threshold"})
        QTest::newRow(field) << QByteArray(field) << ones.left(2);
    for (const char* field : {"reserved", "sensibility", "average", "BPM", "stop"}) {
        QTest::addRow("%s NaN", field) << QByteArray(field) << ones;
        QTest::addRow("%s infinite", field)
            << QByteArray(field) << f64(std::numeric_limits<double>::infinity());
        QTest::addRow("%s negative", field) << QByteArray(field) << f64(-1e300);
    }
}

void tst_ConfigurationFile_corruption::anyValueOfPlainField_isTaken_whenResealed()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, bytes);
    const ConfigSandbox sandbox;
    QVERIFY(isTaken(sandbox, FileBuilder::sample(1, 2).set(field, bytes).reseal()));
}

void tst_ConfigurationFile_corruption::nameThatDecodesToNothing_isRejected()
{
    const ConfigSandbox sandbox;
    FileBuilder file;
    // A byte order mark alone is no text.
    file.head(1, 0).settings(1).profile(100, "\xEF\xBB\xBF", "").seal();
    QVERIFY(!isTaken(sandbox, file));
}

void tst_ConfigurationFile_corruption::nameOfInvalidUtf8_isTaken()
{
    const ConfigSandbox sandbox;
    FileBuilder file;
    file.head(1, 0).settings(1).profile(100, "a\xFFz", "").seal();
    const auto loaded = sandbox.load(file.bytes());
    QVERIFY(loaded);
    QCOMPARE(loaded->m_profiles.last().getName(), QString::fromUtf8("a\uFFFDz"));
}

void tst_ConfigurationFile_corruption::checksumInFrontOfTrailingBytes_isRejected()
{
    const ConfigSandbox sandbox;
    int tried = 0;
    // A checksum that fits everything before the last two bytes, itself included, but stands where
    // a good file would end.
    for (int threshold = 0; threshold < 8; ++threshold) {
        FileBuilder body = FileBuilder::sample(1, 2).setI16("threshold", threshold);
        body.truncateAt(body.size() - kChecksumSize);
        for (int checksum = 0; checksum <= 0xFFFF; ++checksum) {
            FileBuilder file(body);
            if (FileBuilder::crc(file.i16(checksum).bytes()) != checksum)
                continue;
            ++tried;
            QVERIFY(!isTaken(sandbox, file.append("xx")));
        }
    }
    QVERIFY(tried > 0);
}

void tst_ConfigurationFile_corruption::checksum_isLittleEndian()
{
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, 2);
    QByteArray swapped = good.bytes();
    std::reverse(swapped.end() - 2, swapped.end());
    QVERIFY(swapped != good.bytes());
    QVERIFY(!sandbox.load(swapped));
}

void tst_ConfigurationFile_corruption::checksumAlone_isChecked()
{
    const ConfigSandbox sandbox;
    const FileBuilder good = FileBuilder::sample(1, 0);
    int taken = 0;
    for (int checksum = 0; checksum <= 0xFFFF; checksum += 0x101)
        taken += isTaken(sandbox, FileBuilder(good).setI16("checksum", checksum)) ? 1 : 0;
    QVERIFY(taken <= 1);
    QVERIFY(!isTaken(sandbox, FileBuilder(good).setI16("checksum", 0)));
    QVERIFY(!isTaken(sandbox, FileBuilder(good).setI16("checksum", 0xFFFF)));
}

AA_TEST(tst_ConfigurationFile_corruption, QCoreApplication)
#include "tst_ConfigurationFile_corruption.moc"
