// SPDX-License-Identifier: MIT
#include <apps/cli/output/HandMadeResult.h>
#include <cli/output/NdjsonWriter.h>

#include <QtTest>

#include <support/TestClass.h>

/// Lines are compared byte by byte: keys are sorted, nothing but the line feed is around them.
class tst_NdjsonWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void events_areOneLineEach();
    void tempo_isWritten_whenItChanged();
    void virtualBeats_areLeftOut_whenAskedTo();
    void file_isInEveryLine_whenGiven();
    void finish_sumsUp();
};

void tst_NdjsonWriter::events_areOneLineEach()
{
    const BeatFollower follower;
    BeatRelay relay(follower);
    QList<QByteArray> lines;
    const NdjsonWriter writer(relay, {}, false, [&](const QByteArray& pLine) { lines << pLine; });
    Q_EMIT relay.OnPlayingChanged(1.5, true);
    Q_EMIT relay.OnPulse(1.6000004, Pulse(0, 0, 9, 8000, 5, 300, 1200, ePulse));
    Q_EMIT relay.OnBeat({0, 1.6, false, 1200, 1.0 / 3.0, 128.12345});
    Q_EMIT relay.OnTempo(1.75, 128.12345);
    Q_EMIT relay.OnBeat({0, 2.0, true, 20, 1.0, 0.0});
    Q_EMIT relay.OnPlayingChanged(4.0, false);
    QCOMPARE(lines,
             (QList<QByteArray>{
                 "{\"time\":1.5,\"type\":\"play\"}\n",
                 "{\"loudness\":1200,\"threshold\":300,\"time\":1.6,\"type\":\"pulse\"}\n",
                 "{\"accuracy\":0.333333,\"bpm\":128.123,\"loudness\":1200,\"time\":1.6,"
                 "\"type\":\"beat\",\"virtual\":false}\n",
                 "{\"bpm\":128.123,\"time\":1.75,\"type\":\"tempo\"}\n",
                 "{\"accuracy\":1,\"bpm\":null,\"loudness\":20,\"time\":2,\"type\":\"beat\","
                 "\"virtual\":true}\n",
                 "{\"time\":4,\"type\":\"stop\"}\n"}));
}

void tst_NdjsonWriter::tempo_isWritten_whenItChanged()
{
    const BeatFollower follower;
    BeatRelay relay(follower);
    QList<QByteArray> lines;
    const NdjsonWriter writer(relay, {}, false, [&](const QByteArray& pLine) { lines << pLine; });
    // Unknown, as at the start; twice the same, to the last decimal written; unknown again.
    for (const double bpm : {0.0, 120.0, 120.0, 120.0001, 0.0, 0.0})
        Q_EMIT relay.OnTempo(1.0, bpm);
    QCOMPARE(lines,
             (QList<QByteArray>{"{\"bpm\":120,\"time\":1,\"type\":\"tempo\"}\n",
                                "{\"bpm\":null,\"time\":1,\"type\":\"tempo\"}\n"}));
}

void tst_NdjsonWriter::virtualBeats_areLeftOut_whenAskedTo()
{
    const BeatFollower follower;
    BeatRelay relay(follower);
    QList<QByteArray> lines;
    const NdjsonWriter writer(relay, {}, true, [&](const QByteArray& pLine) { lines << pLine; });
    Q_EMIT relay.OnBeat({0, 1.0, true, 1, 1.0, 0.0});
    QVERIFY(lines.isEmpty());
    Q_EMIT relay.OnBeat({0, 1.5, false, 1, 1.0, 0.0});
    QCOMPARE(lines.size(), 1);
}

void tst_NdjsonWriter::file_isInEveryLine_whenGiven()
{
    const BeatFollower follower;
    BeatRelay relay(follower);
    QList<QByteArray> lines;
    const NdjsonWriter writer(
        relay, QStringLiteral("a\n\"b\""), false, [&](const QByteArray& pLine) { lines << pLine; });
    Q_EMIT relay.OnPlayingChanged(0.0, false);
    QCOMPARE(lines,
             (QList<QByteArray>{"{\"file\":\"a\\n\\\"b\\\"\",\"time\":0,\"type\":\"stop\"}\n"}));
}

void tst_NdjsonWriter::finish_sumsUp()
{
    const BeatFollower follower;
    BeatRelay relay(follower);
    QList<QByteArray> lines;
    NdjsonWriter writer(relay, {}, false, [&](const QByteArray& pLine) { lines << pLine; });
    writer.Finish(HandMadeResult());
    QCOMPARE(lines,
             (QList<QByteArray>{"{\"bpm\":120.123,\"realBeats\":2,\"time\":2.5,\"type\":\"end\","
                                "\"virtualBeats\":1}\n"}));
}

AA_TEST(tst_NdjsonWriter, NoApplication)
#include "tst_NdjsonWriter.moc"
