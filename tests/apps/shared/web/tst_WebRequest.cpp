// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebRequest.h>

#include <QtTest>

#include <support/TestClass.h>

using shared::detail::ReadWebRequest;

namespace {

QByteArray headOf(const QByteArray& pFirst, const QByteArray& pRest)
{
    return pFirst + "\r\n" + pRest + "\r\n\r\n";
}

}  // namespace

/// Who is let in, and who is not.
class tst_WebRequest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void head_isRead();
    void malformed_isRefused_data();
    void malformed_isRefused();
    void judgement_data();
    void judgement();
};

void tst_WebRequest::head_isRead()
{
    const auto request = ReadWebRequest(headOf("GET /a?x=1&token=abc HTTP/1.1",
                                               "HOST: LocalHost:80\r\nOrigin:http://B\r\n"
                                               "Upgrade: WebSocket\r\nOther: x:y"));
    QVERIFY(request);
    QCOMPARE(request->method, QByteArray("GET"));
    QCOMPARE(request->path, QByteArray("/a"));
    QCOMPARE(request->token, QByteArray("abc"));
    QCOMPARE(request->host, QByteArray("localhost:80"));
    QCOMPARE(request->origin, QByteArray("http://b"));
    QVERIFY(request->isUpgrade);
}

void tst_WebRequest::malformed_isRefused_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no version") << headOf("GET /", "Host: a");
    QTest::newRow("old") << headOf("GET / HTTP/1.0", "Host: a");
    QTest::newRow("other place") << headOf("GET http://a/ HTTP/1.1", "Host: a");
    QTest::newRow("two hosts") << headOf("GET / HTTP/1.1", "Host: a\r\nHost: b");
    QTest::newRow("two origins") << headOf("GET / HTTP/1.1", "Origin: a\r\norigin: a");
    QTest::newRow("empty host") << headOf("GET / HTTP/1.1", "Host:");
    QTest::newRow("no colon") << headOf("GET / HTTP/1.1", "Host a");
    QTest::newRow("no name") << headOf("GET / HTTP/1.1", ": a");
    QTest::newRow("bytes") << headOf("GET / HTTP/1.1", "Host: \xff");
    QTest::newRow("zero") << headOf("GET / HTTP/1.1", QByteArray("Host: a\0b", 9));
    QTest::newRow("long") << headOf("GET / HTTP/1.1", "A: " + QByteArray(4096, 'a'));
}

void tst_WebRequest::malformed_isRefused()
{
    QFETCH(QByteArray, head);
    QVERIFY(!ReadWebRequest(head));
}

void tst_WebRequest::judgement_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QByteArray>("token");
    QTest::addColumn<int>("status");
    const QByteArray host = "Host: 10.0.0.2:8080";
    const QByteArray own = host + "\r\nOrigin: http://10.0.0.2:8080";
    const QByteArray upgrade = "\r\nUpgrade: websocket";
    const QByteArray none;
    QTest::newRow("page") << QByteArray("GET /") << host << none << 200;
    QTest::newRow("page, own origin") << QByteArray("GET /") << own << none << 200;
    QTest::newRow("websocket") << QByteArray("GET /") << own + upgrade << none << 101;
    QTest::newRow("name") << QByteArray("GET /") << QByteArray("Host: localhost:8080") << none
                          << 200;
    QTest::newRow("no host") << QByteArray("GET /") << QByteArray("A: b") << none << 403;
    QTest::newRow("other host") << QByteArray("GET /") << QByteArray("Host: evil:8080") << none
                                << 403;
    QTest::newRow("other port") << QByteArray("GET /") << QByteArray("Host: 10.0.0.2") << none
                                << 403;
    QTest::newRow("both hosts") << QByteArray("GET /")
                                << QByteArray("Host: 10.0.0.2:8080 localhost:8080") << none << 403;
    QTest::newRow("no origin") << QByteArray("GET /") << host + upgrade << none << 403;
    QTest::newRow("other origin") << QByteArray("GET /")
                                  << host + "\r\nOrigin: http://evil" + upgrade << none << 403;
    QTest::newRow("origin null") << QByteArray("GET /") << host + "\r\nOrigin: null" + upgrade
                                 << none << 403;
    QTest::newRow("origin of the other name")
        << QByteArray("GET /") << host + "\r\nOrigin: http://localhost:8080" + upgrade << none
        << 403;
    QTest::newRow("page, other origin")
        << QByteArray("GET /") << host + "\r\nOrigin: http://evil" << none << 403;
    QTest::newRow("token") << QByteArray("GET /?token=abc") << own + upgrade << QByteArray("abc")
                           << 101;
    QTest::newRow("page, token") << QByteArray("GET /?token=abc") << host << QByteArray("abc")
                                 << 200;
    QTest::newRow("no token") << QByteArray("GET /") << own + upgrade << QByteArray("abc") << 403;
    QTest::newRow("page, no token") << QByteArray("GET /") << host << QByteArray("abc") << 403;
    QTest::newRow("wrong token") << QByteArray("GET /?token=abd") << host << QByteArray("abc")
                                 << 403;
    QTest::newRow("half a token") << QByteArray("GET /?token=ab") << host << QByteArray("abc")
                                  << 403;
    QTest::newRow("other path") << QByteArray("GET /etc/passwd") << host << none << 404;
    QTest::newRow("post") << QByteArray("POST /") << host << none << 405;
}

void tst_WebRequest::judgement()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, lines);
    QFETCH(QByteArray, token);
    QFETCH(int, status);
    const auto request = ReadWebRequest(headOf(target + " HTTP/1.1", lines));
    QVERIFY(request);
    QCOMPARE(JudgeWebRequest(*request, {"10.0.0.2:8080 localhost:8080", token}), status);
}

AA_TEST(tst_WebRequest, NoApplication)

#include "tst_WebRequest.moc"
