// SPDX-License-Identifier: MIT
#include <QtTest>

#include <link/HeardLine.h>
#include <support/TestClass.h>

class tst_HeardLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void announcement_isRead();
    void tempo_mayBeUnknown();
    void line_isOfAKind_data();
    void line_isOfAKind();
};

// As listen writes it.
void tst_HeardLine::announcement_isRead()
{
    const HeardLine line = parseHeardLine(
        "{\"beat\":17,\"beatInBar\":3,\"bpm\":127.95,\"confidence\":0.913,"
        "\"monotonic\":5021.25,\"time\":8.5,\"type\":\"announce\",\"wall\":1.5e9}\n");
    QCOMPARE(int(line.kind), int(HeardLine::eBeat));
    QCOMPARE(line.beat.time, 5021.25);
    QCOMPARE(line.beat.bpm, 127.95);
    QCOMPARE(line.beat.beatInBar, 3);
    QCOMPARE(line.beat.confidence, 0.913);
}

void tst_HeardLine::tempo_mayBeUnknown()
{
    const HeardLine line = parseHeardLine("{\"type\":\"announce\",\"beatInBar\":1,\"bpm\":null,"
                                          "\"confidence\":0,\"monotonic\":0}");
    QCOMPARE(int(line.kind), int(HeardLine::eBeat));
    QCOMPARE(line.beat.bpm, 0.0);
}

void tst_HeardLine::line_isOfAKind_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("kind");
    const auto row = [](const char* pName, const QByteArray& pLine, HeardLine::eKind pKind) {
        QTest::newRow(pName) << pLine << int(pKind);
    };
    const auto announcement = [](const QByteArray& pFields) {
        return "{\"type\":\"announce\"," + pFields + "}";
    };
    row("play", "{\"time\":1.5,\"type\":\"play\"}", HeardLine::eOther);
    row("a type of tomorrow", "{\"type\":\"colour\"}", HeardLine::eOther);
    row("empty", "", HeardLine::eUnreadable);
    row("text", "0:01.50  beat 1  128.0 BPM", HeardLine::eUnreadable);
    row("half an object", "{\"type\":\"announce\",\"bea", HeardLine::eUnreadable);
    row("array", "[1]", HeardLine::eUnreadable);
    row("no type", "{\"time\":1}", HeardLine::eUnreadable);
    row("type is no text", "{\"type\":1}", HeardLine::eUnreadable);
    row("zeros", QByteArray(100, '\0'), HeardLine::eUnreadable);
    row("deep", QByteArray(100000, '['), HeardLine::eUnreadable);
    const QByteArray whole = "\"beatInBar\":4,\"bpm\":120,\"confidence\":1,\"monotonic\":1";
    row("whole", announcement(whole), HeardLine::eBeat);
    const auto without = [&](const char* pField, const char* pReplacement) {
        return announcement(QByteArray(whole).replace(pField, pReplacement));
    };
    row("no bar", without("\"beatInBar\":4,", ""), HeardLine::eUnreadable);
    row("no time", without(",\"monotonic\":1", ""), HeardLine::eUnreadable);
    row("no confidence", without("\"confidence\":1,", ""), HeardLine::eUnreadable);
    row("no tempo", without("\"bpm\":120,", ""), HeardLine::eUnreadable);
    row("tempo 0", without("120", "0"), HeardLine::eUnreadable);
    row("tempo below 0", without("120", "-120"), HeardLine::eUnreadable);
    row("tempo 1000", without("120", "1000"), HeardLine::eUnreadable);
    row("confidence above 1",
        without("\"confidence\":1", "\"confidence\":1.1"),
        HeardLine::eUnreadable);
    row("confidence below 0",
        without("\"confidence\":1", "\"confidence\":-0.1"),
        HeardLine::eUnreadable);
    row("tempo is text", without("120", "\"fast\""), HeardLine::eUnreadable);
    row("beat 0", without("\"beatInBar\":4", "\"beatInBar\":0"), HeardLine::eUnreadable);
    row("beat 1e300", without("\"beatInBar\":4", "\"beatInBar\":1e300"), HeardLine::eUnreadable);
}

void tst_HeardLine::line_isOfAKind()
{
    QFETCH(const QByteArray, line);
    QTEST(int(parseHeardLine(line).kind), "kind");
}

AA_TEST(tst_HeardLine, NoApplication)
#include "tst_HeardLine.moc"
