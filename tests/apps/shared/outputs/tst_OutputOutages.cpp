// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/BeatClock.h>

#include <shared/clock/ClockThread.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <QDir>
#include <QtTest>

#include <apps/shared/outputs/FaultyProgram.h>
#include <apps/shared/outputs/midi/JackServer.h>
#include <csignal>
#include <malloc.h>
#include <random>
#include <support/PrivateNet.h>
#include <support/TestClass.h>

namespace {

constexpr int kOutageMs = FaultyProgram::kTimeoutMs;
constexpr int kFirstPort = 7001;  // in a network of its own

int countIn(const char* pFolder)
{
    return int(QDir(QString::fromLatin1(pFolder))
                   .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                   .size());
}

qint64 allocatedKiB()
{
    return qint64(::mallinfo2().uordblks / 1024);
}

}  // namespace

/// Real programs that are sent beats, and do everything wrong: AUDIOANALYZER_FAULTS says how often,
/// AUDIOANALYZER_FAULTS_SEED repeats a run. How late beats were is said, not judged.
class tst_OutputOutages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void faults_areAllSurvived_andDisturbNobodyElse();

private:
    enum eFault
    {
        eKill,
        eFreeze,
        eGarbage,
        eCut,
        eJam,
        eFaults,
        eJackKill = eFaults,
        eJackFreeze,
        eFaultsWithJack
    };

    /// In the script's long run alone: servers that are killed stay in JACK's list of eight, and
    /// when that is full no other one starts, until /dev/shm/jack-shm-registry is removed.
    static bool hasJack() { return qEnvironmentVariableIsSet("AUDIOANALYZER_FAULTS"); }

    void _Add(const char* pKind, const char* pAddress);
    void _Fail(eFault pFault, FaultyProgram& pProgram, int pMilliSeconds);
    bool _AreAllFollowed();
    QByteArray _Describe() const;

    BeatClock m_clock;
    shared::ClockThread m_thread{m_clock};
    Outputs m_outputs{m_thread, [](const BeatClockState&) { return 1.0; }};
    CalmReceiver* m_pCalm = nullptr;  ///< of m_outputs
    FaultyProgram m_programs[2] = {FaultyProgram(kFirstPort), FaultyProgram(kFirstPort + 1)};
    JackServer m_jack{256};
};

void tst_OutputOutages::initTestCase()
{
    for (FaultyProgram& program : m_programs)
        program.Start();
    m_thread.Start();
    auto calm = std::make_unique<CalmReceiver>();
    m_pCalm = calm.get();
    m_outputs.Add(QStringLiteral("calm"), std::move(calm));
    _Add("osc", "127.0.0.1:7001");
    _Add("osc", "tcp:127.0.0.1:7001");
    _Add("os2l", "127.0.0.1:7002");
    _Add("wled", "127.0.0.1:7002");
    if (hasJack()) {
        m_jack.Start();
        _Add("midi-clock", "jack:");
        _Add("midi-notes", "jack:");
    }
    m_clock.HoldAt(240.0, shared::ClockThread::getTime());
    QVERIFY2(_AreAllFollowed(), _Describe().constData());
}

void tst_OutputOutages::_Add(const char* pKind, const char* pAddress)
{
    QString reason;
    const QString kind = QString::fromLatin1(pKind);
    const QString address = QString::fromLatin1(pAddress);
    m_outputs.Add(kind + address, shared::makeReceiver(kind, address, {}, reason));
    QVERIFY2(reason.isEmpty(), qPrintable(reason));
}

void tst_OutputOutages::_Fail(eFault pFault, FaultyProgram& pProgram, int pMilliSeconds)
{
    switch (pFault) {
    case eKill:
        pProgram.Kill();
        QTest::qWait(pMilliSeconds);
        return pProgram.Start();
    case eFreeze:
        pProgram.Signal(SIGSTOP);
        QTest::qWait(pMilliSeconds);
        return pProgram.Signal(SIGCONT);
    case eGarbage:
        return pProgram.Do("g");
    case eCut:
        return pProgram.Do("c");
    case eJam:
        pProgram.Do("j");
        QTest::qWait(pMilliSeconds);
        return pProgram.Do("r");
    case eJackKill:
        m_jack.Kill();
        QTest::qWait(pMilliSeconds);
        return m_jack.Start();
    default:
        m_jack.Signal(SIGSTOP);
        QTest::qWait(pMilliSeconds);
        m_jack.Signal(SIGCONT);
    }
}

/// All are reached, and what is sent from now on arrives.
bool tst_OutputOutages::_AreAllFollowed()
{
    const int beats = m_pCalm->beats;
    for (FaultyProgram& program : m_programs)
        program.Forget();
    const bool isHeard =
        m_programs[0].hears("t") && m_programs[1].hears("t") && m_programs[0].hears("u");
    return isHeard &&
           QTest::qWaitFor(
               [&] {
                   const QStringList names = m_outputs.getNames();
                   return m_pCalm->beats >= beats + 2 &&
                          std::all_of(names.begin(), names.end(), [&](const QString& pName) {
                              return m_outputs.isOpen(pName);
                          });
               },
               kOutageMs);
}

/// What each output says.
QByteArray tst_OutputOutages::_Describe() const
{
    QByteArray words;
    for (const QString& name : m_outputs.getNames())
        words += "; " + (name + QStringLiteral(": ") + m_outputs.getState(name)).toLocal8Bit();
    return words;
}

void tst_OutputOutages::faults_areAllSurvived_andDisturbNobodyElse()
{
    const unsigned seed = qEnvironmentVariableIsSet("AUDIOANALYZER_FAULTS_SEED")
                              ? unsigned(qEnvironmentVariableIntValue("AUDIOANALYZER_FAULTS_SEED"))
                              : std::random_device()();
    const int asked = qEnvironmentVariableIntValue("AUDIOANALYZER_FAULTS");
    const int faults = asked > 0 ? asked : 14;
    const int kinds = hasJack() ? eFaultsWithJack : eFaults;
    qInfo("AUDIOANALYZER_FAULTS_SEED=%u", seed);
    std::mt19937 random(seed);
    int handles = 0;
    int threads = 0;
    qint64 memory = 0;
    for (int i = 0; i < faults; ++i) {
        // Each kind in turn, at the least.
        const auto fault = i < kinds ? eFault(i) : eFault(random() % unsigned(kinds));
        _Fail(fault, m_programs[random() % 2], int(random() % 1000));
        QVERIFY2(_AreAllFollowed(),
                 QByteArray::number(i) + ": " + QByteArray::number(fault) + _Describe());
        // The first half warms up what is made once.
        if (i == faults / 2) {
            handles = countIn("/proc/self/fd");
            threads = countIn("/proc/self/task");
            memory = allocatedKiB();
        }
    }
    qInfo("%d faults; beats of the calm output: %d, too late to be sent %d, at most %.1f ms late",
          faults,
          m_pCalm->beats.load(),
          m_pCalm->missed.load(),
          double(m_pCalm->worst) / 1000.0);
    qInfo("from the middle to the end: handles %d to %d, threads %d to %d, memory %lld to %lld KiB",
          handles,
          countIn("/proc/self/fd"),
          threads,
          countIn("/proc/self/task"),
          memory,
          allocatedKiB());
    QCOMPARE(m_pCalm->opened.load(), 1);
    QCOMPARE(m_pCalm->breaches.load(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(countIn("/proc/self/fd") <= handles, kOutageMs);
    QTRY_VERIFY_WITH_TIMEOUT(countIn("/proc/self/task") <= threads, kOutageMs);
    QVERIFY(allocatedKiB() < memory + 512);
}

AA_TEST(tst_OutputOutages, InPrivateNet)

#include "tst_OutputOutages.moc"
