// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <QtTest>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <link/LinkSession.h>
#include <support/PrivateNet.h>
#include <support/ProcessStatus.h>
#include <support/TestClass.h>

namespace {

constexpr int kLinkWaitMs = 60000;
constexpr int kLinkQuantum = 4;

double MonotonicNow()
{
    using Seconds = std::chrono::duration<double>;
    return Seconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

QByteArray AnnounceLine(double pTime, double pBPM, int pBeatInBar)
{
    return QByteArrayLiteral("{\"type\":\"announce\",\"confidence\":0.9,\"bpm\":") +
           QByteArray::number(pBPM, 'f', 3) + ",\"beatInBar\":" + QByteArray::number(pBeatInBar) +
           ",\"monotonic\":" + QByteArray::number(pTime, 'f', 6) + "}\n";
}

/// Music of 180 BPM whose beats are told a few at a time.
struct LinkMusic
{
    static constexpr double kBPM = 180.0;

    /// The beats that have been since it told the last ones, three at most.
    QByteArray Tell()
    {
        const int last = int(std::floor((MonotonicNow() - begin) * kBPM / 60.0));
        QByteArray lines;
        for (int beat = std::max(told + 1, last - 2); beat <= last; ++beat)
            lines += AnnounceLine(TimeOf(beat), kBPM, beat % 4 + 1);
        told = last;
        return lines;
    }
    double TimeOf(int pBeat) const { return begin + pBeat * 60.0 / kBPM; }
    /// Beats by which a session is ahead, from -2 to 2.
    double AheadOf(const LinkSession& pSession) const
    {
        const double now = MonotonicNow();
        const double phase = pSession.Look(MonotonicNow() - now, kLinkQuantum).phase;
        const double off = phase - (now - begin) * kBPM / 60.0;
        return off - 4.0 * std::floor(off / 4.0 + 0.5);
    }

    double begin = MonotonicNow() - 10.0;
    int told = 0;  ///< the last beat
};

}  // namespace

class tst_LinkProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void help_andVersion_areDone();
    void usage_isRefused_data();
    void usage_isRefused();
    void input_isTold_whenItIsOfAnotherKind();
    void input_mayEndEmpty();
    void interrupt_isAGoodEnd();
    void oldBeats_areLeftOut();
    void peer_keepsItsTempo_untilBeatsAreSure_thenFollows();
    void force_movesTheBeatOfAPeer();

private:
    void _Start(const QStringList& pArguments = {})
    {
        m_process.start(QStringLiteral(LINK_PROGRAM), pArguments);
    }
    bool _WaitEnd()
    {
        m_process.closeWriteChannel();
        return m_process.waitForFinished(kLinkWaitMs) &&
               m_process.exitStatus() == QProcess::NormalExit;
    }
    bool _HasSaid(const char* pText)
    {
        m_said += m_process.readAllStandardOutput();
        return m_said.contains(pText);
    }
    bool _WaitSaid(const char* pText)
    {
        return QTest::qWaitFor([&] { return _HasSaid(pText); }, kLinkWaitMs);
    }
    /// Beats until a condition holds.
    template <typename Condition>
    bool _PlayUntil(LinkMusic& pMusic, Condition pCondition)
    {
        return QTest::qWaitFor(
            [&] {
                m_process.write(pMusic.Tell());
                return pCondition();
            },
            kLinkWaitMs);
    }

    QProcess m_process;
    QByteArray m_said;
};

void tst_LinkProgram::cleanup()
{
    m_process.kill();
    m_process.waitForFinished(kLinkWaitMs);
    m_said.clear();
}

void tst_LinkProgram::help_andVersion_areDone()
{
    _Start({QStringLiteral("--help")});
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 0);
    const QByteArray help = m_process.readAllStandardOutput();
    for (const char* text : {"--quantum", "--confidence", "--beats", "--force"})
        QVERIFY2(help.contains(text), text);
    _Start({QStringLiteral("--version")});
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 0);
    const QByteArray version = m_process.readAllStandardOutput();
    QVERIFY(version.startsWith("audio-analyzer-link " AUDIOANALYZER_VERSION "\n"));
    QVERIFY(version.contains("GNU General Public License"));
}

void tst_LinkProgram::usage_isRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::newRow("quantum 0") << QStringLiteral("--quantum 0");
    QTest::newRow("quantum 65") << QStringLiteral("--quantum 65");
    QTest::newRow("confidence 1.1") << QStringLiteral("--confidence 1.1");
    QTest::newRow("confidence nan") << QStringLiteral("--confidence nan");
    QTest::newRow("beats 0") << QStringLiteral("--beats 0");
    QTest::newRow("a file") << QStringLiteral("beats.ndjson");
}

void tst_LinkProgram::usage_isRefused()
{
    QFETCH(const QString, arguments);
    _Start(arguments.split(QLatin1Char(' ')));
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 2);
    QVERIFY(m_process.readAllStandardError().startsWith("audio-analyzer-link: "));
    QCOMPARE(m_process.readAllStandardOutput(), QByteArray());
}

void tst_LinkProgram::input_isTold_whenItIsOfAnotherKind()
{
    _Start();
    // Said once, whatever it is.
    m_process.write("0:01.50  beat 1\n\n" + QByteArray(200000, 'x') + "\n{}\n");
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 1);
    const QByteArray error = m_process.readAllStandardError();
    QCOMPARE(error.count('\n'), 1);
    QVERIFY2(error.contains("--format ndjson"), error.constData());
}

void tst_LinkProgram::input_mayEndEmpty()
{
    _Start();
    m_process.write("{\"time\":0,\"type\":\"play\"}\n{\"time\":1,\"type\":\"stop\"}\n");
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 0);
    QCOMPARE(m_process.readAllStandardError(), QByteArray());
    QCOMPARE(m_process.readAllStandardOutput(),
             QByteArray("alone in the session\ntempo 120.00 BPM, the session's\n"));
}

void tst_LinkProgram::interrupt_isAGoodEnd()
{
    _Start();
    QVERIFY(_WaitSaid("tempo"));
    QCOMPARE(::kill(pid_t(m_process.processId()), SIGINT), 0);
    QVERIFY(m_process.waitForFinished(kLinkWaitMs));
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 0);
}

void tst_LinkProgram::oldBeats_areLeftOut()
{
    _Start({QStringLiteral("--beats"), QStringLiteral("1")});
    const double now = MonotonicNow();
    m_process.write(AnnounceLine(now - 61.0, 100.0, 1) + AnnounceLine(now - 60.0, 100.0, 2));
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 0);
    const QByteArray error = m_process.readAllStandardError();
    QCOMPARE(error.count('\n'), 1);
    QVERIFY2(error.contains("after their instant"), error.constData());
    QVERIFY(!m_process.readAllStandardOutput().contains("sure"));
}

void tst_LinkProgram::peer_keepsItsTempo_untilBeatsAreSure_thenFollows()
{
    LinkSession peer(90.0);
    const auto tempo = [&] { return peer.Look(0.0, kLinkQuantum).bpm; };
    LinkMusic music;
    _Start({QStringLiteral("--beats"), QStringLiteral("3")});
    QVERIFY(_WaitSaid("peers: 1"));
    // Which of two young sessions joins the other is theirs to decide.
    QTRY_COMPARE_WITH_TIMEOUT(int(peer.Look(0.0, kLinkQuantum).peers), 1, kLinkWaitMs);
    peer.Commit({91.0, LinkChange::eKeep, 0.0}, 0.0, kLinkQuantum);
    QVERIFY(_WaitSaid("tempo 91.00 BPM, from another peer"));
    // Music that the tracker does not trust; the last line is told when it has been read.
    m_process.write(music.Tell().replace("0.9,", "0.1,") + "?\n");
    m_process.setReadChannel(QProcess::StandardError);
    QTRY_VERIFY_WITH_TIMEOUT(m_process.canReadLine(), kLinkWaitMs);
    QVERIFY(m_process.readLine().contains("ndjson"));
    QVERIFY(std::fabs(tempo() - 91.0) < 0.001);
    QVERIFY(_PlayUntil(music, [&] { return tempo() > 170.0; }));
    QVERIFY(_WaitSaid("sure of the beat"));
    // The bar stays as it is.
    const auto isInStep = [&] {
        const double ahead = music.AheadOf(peer);
        return std::fabs(ahead - std::round(ahead)) < 0.03 && std::fabs(tempo() - 180.0) < 0.01;
    };
    QVERIFY(_PlayUntil(music, isInStep));
    // Somebody moves the beat, which takes a few more to be brought back.
    const double phase = peer.Look(0.0, kLinkQuantum).phase;
    peer.Commit({0.0, LinkChange::eForce, phase + 0.15}, 0.0, kLinkQuantum);
    QVERIFY(_PlayUntil(
        music, [&] { return _HasSaid("ms ahead: nudged at 17"); }));
    QVERIFY(_PlayUntil(music, [&] { return _HasSaid("in step at 180.00 BPM"); }));
    QVERIFY(_PlayUntil(music, isInStep));
    QVERIFY(_WaitEnd());
    QCOMPARE(m_process.exitCode(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(int(peer.Look(0.0, kLinkQuantum).peers), 0, kLinkWaitMs);
}

void tst_LinkProgram::force_movesTheBeatOfAPeer()
{
    LinkSession peer(90.0);
    LinkMusic music;
    _Start({QStringLiteral("--beats"), QStringLiteral("3"), QStringLiteral("--force")});
    QVERIFY(_WaitSaid("peers: 1"));
    QVERIFY(_PlayUntil(music, [&] { return peer.Look(0.0, kLinkQuantum).bpm > 170.0; }));
    QVERIFY(_WaitSaid("forced"));
    // The bar as well.
    QVERIFY(_PlayUntil(music, [&] { return std::fabs(music.AheadOf(peer)) < 0.1; }));
}

AA_TEST(tst_LinkProgram, InPrivateNet)
#include "tst_LinkProgram.moc"
