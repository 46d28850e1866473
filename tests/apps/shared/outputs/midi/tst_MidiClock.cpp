// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/midi/MidiClock.h>
#include <shared/outputs/midi/MidiNotes.h>

#include <QSemaphore>
#include <QtTest>

#include <apps/shared/outputs/midi/MidiBench.h>
#include <mutex>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

using shared::ClockThread;
using shared::MidiClock;

namespace {

/// What a port was sent, kept beyond the port.
struct PortLog
{
    QString take()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const QString text = lines.join(QLatin1Char(' '));
        lines.clear();
        return text;
    }

    std::mutex mutex;
    QStringList lines;    ///< guarded by mutex
    qint64 lastTime = 0;  ///< guarded by mutex; µs of the last event
    QSemaphore sent;      ///< a ticket for each
    std::atomic<bool> works{true};
    qint64 origin = 0;  ///< µs; what times are told from
};

class LoggedPort : public shared::MidiPort
{
public:
    explicit LoggedPort(PortLog& pLog) : m_log(pLog) {}
    bool Open() override { return _Note(QStringLiteral("open")); }
    void Close() override { _Note(QStringLiteral("close")); }
    bool Send(const shared::MidiEvent& pEvent) override
    {
        const qint64 time = pEvent.time - m_log.origin;
        return _Note(midi_bench::bytes(pEvent.message) + QStringLiteral("@%1").arg(time / 1000),
                     pEvent.time);
    }
    bool isThere() const override { return m_log.works; }
    QString getState() const override { return QStringLiteral("a port"); }

private:
    bool _Note(const QString& pLine, qint64 pTime = 0)
    {
        const std::lock_guard<std::mutex> lock(m_log.mutex);
        m_log.lines += pLine;
        m_log.lastTime = pTime;
        m_log.sent.release();
        return m_log.works;
    }

    PortLog& m_log;
};

shared::OutputMoment momentOf(qint64 pNumber, qint64 pTime)
{
    return {midi_bench::tick(pNumber, 0, pTime), midi_bench::state(), 1.0, false};
}

constexpr int kMinuteMs = 60000;  // only a hang takes that long

}  // namespace

/// The receiver around the song's arithmetic; in virtual time, so that waiting is exact.
class tst_MidiClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticks_areSentWhenTheyWereDue();
    void clockBetweenTwo_isWaitedFor();
    void end_leavesTheReceiverStopped();
    void portThatHasGone_isTold();
    void notes_areSentAndEnded();
};

void tst_MidiClock::ticks_areSentWhenTheyWereDue()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), false);
    QCOMPARE(clock.getDivision(), 24);
    QCOMPARE(clock.getState(), QStringLiteral("a port"));
    QVERIFY(clock.Open());
    log.origin = ClockThread::getTime();
    QVERIFY(clock.Playing(true, midi_bench::state()));
    QVERIFY(clock.Beat(momentOf(0, log.origin)));
    QTest::qSleep(21);
    // A millisecond late still counts as in time, more does not.
    QVERIFY(clock.Tick(momentOf(1, log.origin + 20000)));
    QTest::qSleep(29);
    QVERIFY(clock.Tick(momentOf(2, log.origin + 40000)));
    QCOMPARE(log.take(), QStringLiteral("open fa@0 f8@0 f8@20 f8@50"));
}

void tst_MidiClock::clockBetweenTwo_isWaitedFor()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), false);
    log.origin = ClockThread::getTime();
    clock.Playing(true, midi_bench::state());
    clock.Beat(momentOf(0, log.origin));
    QTest::qSleep(40);
    clock.Tick(momentOf(2, log.origin + 40000));
    QCOMPARE(ClockThread::getTime() - log.origin, qint64(50000));
    QCOMPARE(log.take(), QStringLiteral("fa@0 f8@0 f8@40 f8@50"));
}

void tst_MidiClock::end_leavesTheReceiverStopped()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), false);
    clock.Open();
    log.origin = ClockThread::getTime();
    clock.Playing(true, midi_bench::state());
    clock.Beat(momentOf(0, log.origin));
    QVERIFY(clock.Playing(false, midi_bench::state()));
    QCOMPARE(log.take(), QStringLiteral("open fa@0 f8@0 fc@0"));
    clock.Playing(true, midi_bench::state());
    clock.Beat(momentOf(96, log.origin));
    clock.Close();
    QCOMPARE(log.take(), QStringLiteral("fa@0 f8@0 fc@0 close"));
}

void tst_MidiClock::portThatHasGone_isTold()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), false);
    QVERIFY(clock.Rest());
    log.works = false;
    QVERIFY(!clock.Rest());
    QVERIFY(!clock.Open());
    QVERIFY(!clock.Beat(momentOf(0, ClockThread::getTime())));
    QVERIFY(!clock.Playing(false, midi_bench::state()));
}

void tst_MidiClock::notes_areSentAndEnded()
{
    PortLog log;
    shared::MidiNoteSettings settings;
    settings.length = 5;
    shared::MidiNotes notes(std::make_unique<LoggedPort>(log), settings);
    QCOMPARE(notes.getDivision(), 24);
    QVERIFY(notes.Open());
    log.origin = ClockThread::getTime();
    QVERIFY(notes.Beat(momentOf(24, log.origin)));
    QVERIFY(notes.Tick(momentOf(29, log.origin + 100000)));
    QVERIFY(notes.Beat(momentOf(48, log.origin + 480000)));
    QVERIFY(notes.Playing(false, midi_bench::state()));
    notes.Close();
    QCOMPARE(log.take(), QStringLiteral("open 992464@0 892400@100 992464@480 892400@0 close"));
}

/// The thread of its own, on the machine's clock. Nothing here depends on how late it wakes.
class tst_StandbyClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clocksGoOn_whileTheMusicStands();
    void portThatHasGone_isNoticed();
};

void tst_StandbyClock::clocksGoOn_whileTheMusicStands()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), true);
    QVERIFY(clock.Playing(false, midi_bench::state()));
    QVERIFY(log.sent.tryAcquire(5, kMinuteMs));
    QVERIFY(clock.Rest());
    QVERIFY(clock.Playing(true, midi_bench::state()));
    const QString sent = log.take();
    // They have ended when the music begins.
    QCOMPARE(log.take(), QString());
    for (const QString& line : sent.split(QLatin1Char(' ')))
        QVERIFY(line.startsWith(QLatin1String("f8@")));
    // Without a tempo there is nothing to tell.
    BeatClockState none = {};
    QVERIFY(clock.Playing(false, none));
    QVERIFY(clock.Playing(true, none));
    QCOMPARE(log.take(), QString());
}

void tst_StandbyClock::portThatHasGone_isNoticed()
{
    PortLog log;
    MidiClock clock(std::make_unique<LoggedPort>(log), true);
    clock.Playing(false, midi_bench::state());
    log.works = false;
    QTRY_VERIFY_WITH_TIMEOUT(!clock.Rest(), kMinuteMs);
    clock.Close();
    log.works = true;
    QVERIFY(clock.Rest());
}

AA_TEST(tst_MidiClock, InVirtualTime<QCoreApplication>)
AA_TEST(tst_StandbyClock, QCoreApplication)

#include "tst_MidiClock.moc"
