// SPDX-License-Identifier: MIT
#include <shared/outputs/HostPort.h>

#include <QtTest>

#include <support/TestClass.h>

class tst_HostPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void place_isRead_data();
    void place_isRead();
    void nonsense_isRefused_data();
    void nonsense_isRefused();
};

void tst_HostPort::place_isRead_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::newRow("desk") << 7000 << QStringLiteral("desk") << 7000;
    QTest::newRow("desk:8000") << 7000 << QStringLiteral("desk") << 8000;
    QTest::newRow("desk.local:1") << 0 << QStringLiteral("desk.local") << 1;
    QTest::newRow("127.0.0.1:65535") << 0 << QStringLiteral("127.0.0.1") << 65535;
    QTest::newRow("[::1]:80") << 0 << QStringLiteral("::1") << 80;
    QTest::newRow("[fe80::1%eth0]") << 9 << QStringLiteral("fe80::1%eth0") << 9;
}

void tst_HostPort::place_isRead()
{
    QFETCH(int, given);
    const auto place = shared::HostPort::Parse(QString::fromLatin1(QTest::currentDataTag()), given);
    QVERIFY(place);
    QTEST(place->host, "host");
    QTEST(place->port, "port");
}

void tst_HostPort::nonsense_isRefused_data()
{
    QTest::addColumn<int>("given");
    for (const char* pText : {":80",
                              "desk:0",
                              "desk:65536",
                              "desk:-1",
                              "desk:x",
                              "desk:",
                              "::1",
                              "::1:80",
                              "[::1",
                              "[]:80",
                              "[::1]80",
                              "a b:80",
                              "a/b:80"})
        QTest::newRow(pText) << 7000;
    QTest::newRow("desk") << 0;
}

void tst_HostPort::nonsense_isRefused()
{
    QFETCH(int, given);
    QVERIFY(!shared::HostPort::Parse(QString::fromLatin1(QTest::currentDataTag()), given));
    QVERIFY(!shared::HostPort::Parse(QString(), given));
    QVERIFY(!shared::HostPort::Parse(QStringLiteral("a").repeated(254), given));
}

AA_TEST(tst_HostPort, NoApplication)
#include "tst_HostPort.moc"
