// SPDX-License-Identifier: MIT
#include <shared/web/WebServer.h>
#include <shared/web/detail/WebMessages.h>
#include <shared/web/detail/WebRequest.h>

#include <QSignalSpy>
#include <QTcpSocket>
#include <QUrl>
#include <QWebSocket>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <support/TestClass.h>
#include <vector>

namespace {

constexpr int kWebMs = 60000;  // only a hang takes that long

/// A browser's websocket, of the page at pLink.
class Browser
{
public:
    explicit Browser(const QString& pLink, QString pOrigin = {})
        : m_socket(pOrigin.isEmpty() ? QUrl(pLink).toString(QUrl::RemovePath | QUrl::RemoveQuery)
                                     : pOrigin)
    {
        QUrl link(pLink);
        link.setScheme(QStringLiteral("ws"));
        m_socket.open(link);
    }
    /// Whether it was let in, in the end.
    bool isIn()
    {
        return QTest::qWaitFor([this] { return !connected.isEmpty() || !gone.isEmpty(); },
                               kWebMs) &&
               !connected.isEmpty();
    }
    bool isGone()
    {
        return QTest::qWaitFor([this] { return !gone.isEmpty(); }, kWebMs);
    }

    QWebSocket m_socket;
    QSignalSpy connected{&m_socket, &QWebSocket::connected};
    QSignalSpy gone{&m_socket, &QWebSocket::disconnected};
    QSignalSpy messages{&m_socket, &QWebSocket::textMessageReceived};
};

/// What is answered to these bytes, up to the end of the connection.
QByteArray answerTo(const WebServer& pServer, const QByteArray& pBytes)
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), pServer.getPort());
    socket.write(pBytes);
    if (!QTest::qWaitFor([&] { return socket.state() == QAbstractSocket::UnconnectedState; },
                         kWebMs))
        return "it hangs";
    return socket.readAll();
}

QByteArray getPage(const WebServer& pServer, const QByteArray& pHost)
{
    return answerTo(pServer, "GET / HTTP/1.1\r\nHost: " + pHost + "\r\n\r\n");
}

}  // namespace

/// The door of the page, by real browsers' sockets on the loopback.
class tst_WebServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_server.reset(); }
    void page_isServed();
    void otherHost_isRefused();
    void otherOrigin_isRefused();
    void garbage_isRefused();
    void longRequest_isRefused();
    void token_isNeeded_beyondThisMachine();
    void takenPort_isSaid();
    void wrongAddress_isSaid();
    void action_arrives();
    void wrongMessage_endsIt_data();
    void wrongMessage_endsIt();
    void tooMany_areRefused();
    void tooManyConnections_areRefused();
    void oneThatLeaves_makesRoom();
    void oneThatDoesNotRead_losesMessages();

private:
    WebClients& _Clients() { return m_server->getClients(); }

    std::unique_ptr<WebServer> m_server;
};

void tst_WebServer::init()
{
    m_server = std::make_unique<WebServer>();
    QVERIFY2(m_server->Open(QString(), 0), qPrintable(m_server->getError()));
}

void tst_WebServer::page_isServed()
{
    const QByteArray port = QByteArray::number(m_server->getPort());
    QCOMPARE(m_server->getLink(), QStringLiteral("http://127.0.0.1:%1/").arg(m_server->getPort()));
    for (const QByteArray& host : {"127.0.0.1:" + port, "localhost:" + port}) {
        const QByteArray answer = getPage(*m_server, host);
        QVERIFY2(answer.startsWith("HTTP/1.1 200 OK\r\n"), answer.constData());
        QVERIFY(answer.contains("connect-src 'self' ws://" + host + "\r\n"));
        const int body = answer.indexOf("\r\n\r\n") + 4;
        QVERIFY(answer.contains("Content-Length: " + QByteArray::number(answer.size() - body)));
        QVERIFY(answer.endsWith("</html>\n"));
    }
}

void tst_WebServer::otherHost_isRefused()
{
    const QByteArray port = QByteArray::number(m_server->getPort());
    QVERIFY(getPage(*m_server, "evil.example:" + port).startsWith("HTTP/1.1 403 Forbidden\r\n"));
    QVERIFY(getPage(*m_server, "127.0.0.1:1").startsWith("HTTP/1.1 403 "));
    QVERIFY(answerTo(*m_server,
                     "GET / HTTP/1.1\r\nHost: evil:" + port + "\r\nOrigin: http://evil:" + port +
                         "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n\r\n")
                .startsWith("HTTP/1.1 403 "));
    QCOMPARE(_Clients().getCount(), 0);
}

void tst_WebServer::otherOrigin_isRefused()
{
    Browser evil(m_server->getLink(), QStringLiteral("http://evil.example"));
    QVERIFY(!evil.isIn());
    QCOMPARE(_Clients().getCount(), 0);
}

void tst_WebServer::garbage_isRefused()
{
    QVERIFY(answerTo(*m_server, QByteArray("\x16\x03\x01\0\xff\r\n\r\n", 9))
                .startsWith("HTTP/1.1 400 Bad Request\r\n"));
    QVERIFY(answerTo(*m_server, "\r\n\r\n").startsWith("HTTP/1.1 400 "));
    // A handshake without a key.
    const QByteArray host = "127.0.0.1:" + QByteArray::number(m_server->getPort());
    const QByteArray answer =
        answerTo(*m_server,
                 "GET / HTTP/1.1\r\nHost: " + host + "\r\nOrigin: http://" + host +
                     "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n\r\n");
    QVERIFY2(!answer.contains(" 101 "), answer.constData());
    QCOMPARE(_Clients().getCount(), 0);
}

void tst_WebServer::longRequest_isRefused()
{
    const QByteArray endless = "GET / HTTP/1.1\r\nA: " + QByteArray(4096, 'a');
    QVERIFY(answerTo(*m_server, endless.left(shared::detail::kLongestHead))
                .startsWith("HTTP/1.1 400 "));
}

void tst_WebServer::token_isNeeded_beyondThisMachine()
{
    WebServer server;
    QVERIFY(server.Open(QStringLiteral("0.0.0.0"), 0));
    const QString query = QUrl(server.getLink()).query();
    QVERIFY2(query.startsWith(QLatin1String("token=")) && query.size() == 6 + 32,
             qPrintable(server.getLink()));
    const QString place = QStringLiteral("http://127.0.0.1:%1/").arg(server.getPort());
    Browser known(place + QLatin1Char('?') + query);
    QVERIFY(known.isIn());
    Browser unknown(place);
    QVERIFY(!unknown.isIn());
    Browser wrong(place + QLatin1String("?token=") + QString(32, QLatin1Char('0')));
    QVERIFY(!wrong.isIn());
    QVERIFY(getPage(server, "127.0.0.1:" + QByteArray::number(server.getPort()))
                .startsWith("HTTP/1.1 403 "));
    WebServer other;
    QVERIFY(other.Open(QStringLiteral("0.0.0.0"), 0));
    QVERIFY(QUrl(other.getLink()).query() != query);
}

void tst_WebServer::takenPort_isSaid()
{
    WebServer second;
    QVERIFY(!second.Open(QString(), m_server->getPort()));
    QVERIFY(!second.getError().isEmpty());
    QCOMPARE(second.getPort(), std::uint16_t(0));
}

void tst_WebServer::wrongAddress_isSaid()
{
    WebServer server;
    QVERIFY(!server.Open(QStringLiteral("nowhere"), 0));
    QVERIFY(server.getError().contains(QLatin1String("nowhere")));
}

void tst_WebServer::action_arrives()
{
    std::vector<QString> actions;
    connect(&_Clients(), &WebClients::OnWish, [&](const shared::detail::WebWish& pWish) {
        actions.push_back(pWish.action.getText());
    });
    Browser browser(m_server->getLink());
    QVERIFY(browser.isIn());
    browser.m_socket.sendTextMessage(QStringLiteral("nudge -10"));
    browser.m_socket.sendTextMessage(QStringLiteral("tap"));
    QVERIFY(QTest::qWaitFor([&] { return actions.size() == 2; }, kWebMs));
    QCOMPARE(actions[0], QStringLiteral("nudge -10"));
    QCOMPARE(actions[1], QStringLiteral("tap"));
    QVERIFY(browser.gone.isEmpty());
}

void tst_WebServer::wrongMessage_endsIt_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("isText");
    QTest::addColumn<int>("code");
    QTest::newRow("other action") << QByteArray("bend 2") << true << 1008;
    QTest::newRow("bytes") << QByteArray("tap") << false << 1008;
    QTest::newRow("too long") << QByteArray(4097, ' ') << true << 1009;
}

void tst_WebServer::wrongMessage_endsIt()
{
    QFETCH(QByteArray, message);
    QFETCH(bool, isText);
    QFETCH(int, code);
    int actions = 0;
    connect(&_Clients(), &WebClients::OnWish, [&] { ++actions; });
    Browser browser(m_server->getLink());
    QVERIFY(browser.isIn());
    if (isText)
        browser.m_socket.sendTextMessage(QString::fromLatin1(message));
    else
        browser.m_socket.sendBinaryMessage(message);
    QVERIFY(browser.isGone());
    QCOMPARE(int(browser.m_socket.closeCode()), code);
    QVERIFY(QTest::qWaitFor([&] { return _Clients().getCount() == 0; }, kWebMs));
    QCOMPARE(actions, 0);
}

void tst_WebServer::tooMany_areRefused()
{
    std::vector<std::unique_ptr<Browser>> browsers;
    for (int i = 0; i < WebClients::kMost; ++i) {
        browsers.push_back(std::make_unique<Browser>(m_server->getLink()));
        QVERIFY(browsers.back()->isIn());
    }
    Browser late(m_server->getLink());
    QVERIFY(!late.isIn());
    QCOMPARE(_Clients().getCount(), WebClients::kMost);
    // The page still comes: it tells why.
    QVERIFY(getPage(*m_server, "127.0.0.1:" + QByteArray::number(m_server->getPort()))
                .startsWith("HTTP/1.1 200 "));
}

void tst_WebServer::tooManyConnections_areRefused()
{
    std::vector<std::unique_ptr<QTcpSocket>> idle;
    for (int i = 0; i < WebServer::kMostRequests; ++i) {
        idle.push_back(std::make_unique<QTcpSocket>());
        idle.back()->connectToHost(QStringLiteral("127.0.0.1"), m_server->getPort());
        QVERIFY(QTest::qWaitFor(
            [&] { return idle.back()->state() == QAbstractSocket::ConnectedState; }, kWebMs));
    }
    QCOMPARE(getPage(*m_server, "127.0.0.1:" + QByteArray::number(m_server->getPort())),
             QByteArray());
}

void tst_WebServer::oneThatLeaves_makesRoom()
{
    for (int i = 0; i < WebServer::kMostRequests + 2; ++i) {
        Browser browser(m_server->getLink());
        QVERIFY(browser.isIn());
        QCOMPARE(_Clients().getCount(), 1);
        browser.m_socket.close();
        QVERIFY(QTest::qWaitFor([&] { return _Clients().getCount() == 0; }, kWebMs));
    }
    // Nothing is left of them.
    QVERIFY(
        QTest::qWaitFor([&] { return m_server->findChildren<QTcpSocket*>().isEmpty(); }, kWebMs));
}

void tst_WebServer::oneThatDoesNotRead_losesMessages()
{
    Browser reader(m_server->getLink());
    QVERIFY(reader.isIn());
    // A handshake by hand, after which nothing is read.
    QTcpSocket stalled;
    stalled.setReadBufferSize(1);
    stalled.connectToHost(QStringLiteral("127.0.0.1"), m_server->getPort());
    const QByteArray host = "127.0.0.1:" + QByteArray::number(m_server->getPort());
    stalled.write("GET / HTTP/1.1\r\nHost: " + host + "\r\nOrigin: http://" + host +
                  "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                  "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    QVERIFY(QTest::qWaitFor([&] { return _Clients().getCount() == 2; }, kWebMs));
    // More than all buffers of the system hold.
    const QByteArray message(65536, 'x');
    int said = 0;
    qint64 most = 0;
    QVERIFY(QTest::qWaitFor(
        [&] {
            for (int i = 0; i < 20; ++i, ++said)
                _Clients().Say(message);
            for (const auto& client : _Clients().m_clients)
                most = std::max(most, client.pSocket->bytesToWrite());
            return _Clients().getCount() == 1;
        },
        kWebMs));
    // It was sent away, and did not fill the memory before; the other one has all that it could
    // read.
    QVERIFY(said > WebClients::kMostLost);
    QVERIFY2(most < WebClients::kMostWaiting + 2 * message.size(),
             qPrintable(QString::number(most)));
    const int before = reader.messages.size();
    QVERIFY(QTest::qWaitFor(
        [&] { return _Clients().m_clients.front().pSocket->bytesToWrite() == 0; }, kWebMs));
    _Clients().Say("last");
    QVERIFY(QTest::qWaitFor(
        [&] {
            return reader.messages.size() > before &&
                   reader.messages.last()[0].toString() == QLatin1String("last");
        },
        kWebMs));
}

AA_TEST(tst_WebServer, QCoreApplication)

#include "tst_WebServer.moc"
