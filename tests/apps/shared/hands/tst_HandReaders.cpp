// SPDX-License-Identifier: MIT
#include <shared/hands/detail/MidiReader.h>
#include <shared/hands/detail/OscReader.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

QString textOfMessages(const std::vector<shared::HandMessage>& pMessages)
{
    QStringList texts;
    for (const auto& message : pMessages)
        texts += message.control + QLatin1Char('=') + QString::number(message.value);
    return texts.join(QLatin1Char(' '));
}

QByteArray hex(const char* pDigits)
{
    return QByteArray::fromHex(pDigits);
}

}  // namespace

class tst_HandReaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void midi_isRead_data();
    void midi_isRead();
    void osc_isRead_data();
    void osc_isRead();
    void osc_cutAnywhere_isNothing();
    void bundles_endSomewhere();
};

void tst_HandReaders::midi_isRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("note") << hex("99247f") << QStringLiteral("midi:note/10/36=1");
    QTest::newRow("note, no velocity") << hex("902400") << QStringLiteral("midi:note/1/36=0");
    QTest::newRow("note off") << hex("802440") << QStringLiteral("midi:note/1/36=0");
    QTest::newRow("controller") << hex("bf407f") << QStringLiteral("midi:cc/16/64=1");
    QTest::newRow("program") << hex("c004") << QStringLiteral("midi:program/1/5=1");
    QTest::newRow("clock") << hex("f8") << QString();
    QTest::newRow("pitch") << hex("e00040") << QString();
    QTest::newRow("cut") << hex("9024") << QString();
    QTest::newRow("data that is none") << hex("902480") << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
}

void tst_HandReaders::midi_isRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    const auto message = shared::detail::ReadMidi(
        reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
    QCOMPARE(message ? textOfMessages({*message}) : QString(), text);
}

void tst_HandReaders::osc_isRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    // "/tap" fills four bytes, and its zeros four more.
    const QByteArray tap = hex("2f74617000000000");
    const QString one = QStringLiteral("osc:/tap=1");
    const QString none = QStringLiteral("osc:/tap=0");
    QTest::newRow("without types") << tap << one;
    QTest::newRow("without arguments") << tap + hex("2c000000") << one;
    QTest::newRow("float 1") << tap + hex("2c6600003f800000") << one;
    QTest::newRow("float 0.5") << tap + hex("2c6600003f000000") << QStringLiteral("osc:/tap=0.5");
    QTest::newRow("integer 0") << tap + hex("2c69000000000000") << none;
    QTest::newRow("integer 127") << tap + hex("2c6900000000007f") << one;
    QTest::newRow("integer -1") << tap + hex("2c690000ffffffff") << none;
    QTest::newRow("double 0.25") << tap + hex("2c6400003fd0000000000000")
                                 << QStringLiteral("osc:/tap=0.25");
    QTest::newRow("long 0") << tap + hex("2c6800000000000000000000") << none;
    QTest::newRow("true") << tap + hex("2c540000") << one;
    QTest::newRow("false") << tap + hex("2c460000") << none;
    QTest::newRow("text") << tap + hex("2c73000061000000") << one;
    QTest::newRow("not a number") << tap + hex("2c6600007fc00000") << QString();
    QTest::newRow("address without slash") << hex("746170002c000000") << QString();
    QTest::newRow("address of other bytes") << hex("2fff00002c000000") << QString();
    QTest::newRow("types without comma") << tap + hex("69000000") << QString();
    QTest::newRow("nothing") << QByteArray() << QString();
    const QByteArray head = hex("2362756e646c65000000000000000001");
    QTest::newRow("bundle") << head + hex("0000000c") + tap + hex("2c000000") + hex("00000008") +
                                   tap
                            << one + QLatin1Char(' ') + one;
    QTest::newRow("empty bundle") << head << QString();
    QTest::newRow("bundle, wrong size") << head + hex("ffffffff") + tap << QString();
}

void tst_HandReaders::osc_isRead()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    QCOMPARE(textOfMessages(shared::detail::ReadOsc(bytes)), text);
}

void tst_HandReaders::osc_cutAnywhere_isNothing()
{
    const QByteArray whole = hex("2f746170000000002c6600003f800000");
    for (int size = 0; size < whole.size(); ++size)
        QCOMPARE(textOfMessages(shared::detail::ReadOsc(whole.left(size))),
                 size == 8 ? QStringLiteral("osc:/tap=1") : QString());
}

void tst_HandReaders::bundles_endSomewhere()
{
    // A message in so many bundles.
    const auto nested = [](int pDepth) {
        QByteArray packet = hex("2f74617000000000");
        for (int i = 0; i < pDepth; ++i)
            packet = hex("2362756e646c65000000000000000001000000") + char(packet.size()) + packet;
        return textOfMessages(shared::detail::ReadOsc(packet));
    };
    QCOMPARE(nested(4), QStringLiteral("osc:/tap=1"));
    QCOMPARE(nested(5), QString());
    QByteArray many = hex("2362756e646c65000000000000000001");
    for (int i = 0; i < 100; ++i)
        many += hex("000000082f74617000000000");
    QCOMPARE(shared::detail::ReadOsc(many).size(), std::size_t(64));
}

AA_TEST(tst_HandReaders, NoApplication)

#include "tst_HandReaders.moc"
