// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/capture/CaptureSession.h>
#include <shared/pulse/PulseBackEnd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <malloc.h>
#include <memory>
#include <pulse/PulseServer.h>
#include <random>
#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

constexpr int kOutageTimeoutMs = 60000;
constexpr unsigned kSeed = 20;

int CountOf(const char* pFolder)
{
    return QDir(Text(pFolder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

/// What this process has allocated and not freed; pages of it may be swapped out or not.
qint64 MemoryKiB()
{
    return qint64(::mallinfo2().uordblks / 1024);
}

int FaultCount()
{
    const int asked = qEnvironmentVariableIntValue("AUDIOANALYZER_FAULTS");
    return asked > 0 ? asked : 20;
}

/// What the outages take in seconds; the long ones only when they are asked for.
std::vector<double> ServerOutages()
{
    std::vector<double> outages = {0.2, 1.0, 3.5};
    if (qEnvironmentVariableIsSet("AUDIOANALYZER_LONG_OUTAGES"))
        outages.insert(outages.end(), {10.0, 60.0});
    return outages;
}

}  // namespace

/// A session on a sound server that goes and comes in every way. What takes how long is said, not
/// judged: a busy machine is no fault.
class tst_PulseOutages : public QObject
{
    Q_OBJECT

public:
    explicit tst_PulseOutages(PulseServer::eKind pKind = PulseServer::ePulseAudio) : m_server(pKind)
    {
    }

private Q_SLOTS:
    void initTestCase();
    void server_isFoundAgain_data();
    void server_isFoundAgain();
    void source_isFoundAgain_besideAnother_data();
    void source_isFoundAgain_besideAnother();
    void hungServer_isSaid_andFollowedAgain();
    void faults_areAllResumedFrom();
    void end_comesAtOnce_whileTheServerHangs();

private:
    enum eFault
    {
        eKill,
        eFreeze,
        eUnload,
        eRename,
        eOther,
        eFaults
    };

    bool _Provide();
    bool _AwaitLoss();
    bool _AwaitSound();
    void _Fail(eFault pFault, int pMilliSeconds);

    PulseServer m_server;
    PulseBackEnd m_backEnd;
    Configuration m_configuration;
    std::unique_ptr<CaptureSession> m_session;
    QString m_module;
    int m_losses = 0;
    int m_blocks = 0;
    QList<eCaptureNotice> m_notices;
};

void tst_PulseOutages::initTestCase()
{
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY(_Provide());
    QVERIFY(m_backEnd.Install());
    m_session = std::make_unique<CaptureSession>(m_configuration);
    using S = CaptureSession;
    connect(
        m_session.get(),
        &S::OnStateChanged,
        this,
        [this](eCaptureState pState) { m_losses += pState == eCaptureWaiting ? 1 : 0; });
    connect(m_session.get(), &S::OnNotice, this, [this](eCaptureNotice pNotice) {
        m_notices.append(pNotice);
    });
    m_session->Open(Text("deck"));
    QVERIFY(_AwaitSound());
}

/// Another source first, so that the server has where to move a recording.
bool tst_PulseOutages::_Provide()
{
    const bool hasOther = !m_server.LoadSource(Text("other")).isEmpty();
    m_module = m_server.LoadSource(Text("deck"));
    return hasOther && !m_module.isEmpty();
}

bool tst_PulseOutages::_AwaitLoss()
{
    return QTest::qWaitFor([&] { return m_losses > 0; }, kOutageTimeoutMs);
}

/// The session runs and has samples that were analysed after this was asked.
bool tst_PulseOutages::_AwaitSound()
{
    const auto isRunning = [&] { return m_session->getState() == eCaptureRunning; };
    if (!QTest::qWaitFor(isRunning, kOutageTimeoutMs))
        return false;
    const int anchors = m_session->getAnchorCount();
    const quint64 count = m_session->getSampleClock().getCount();
    return QTest::qWaitFor(
        [&] {
            return isRunning() && (m_session->getAnchorCount() != anchors ||
                                   m_session->getSampleClock().getCount() > count);
        },
        kOutageTimeoutMs);
}

void tst_PulseOutages::server_isFoundAgain_data()
{
    QTest::addColumn<double>("seconds");
    for (const double seconds : ServerOutages())
        QTest::addRow("%g s", seconds) << seconds;
}

void tst_PulseOutages::server_isFoundAgain()
{
    QFETCH(double, seconds);
    m_losses = 0;
    m_server.Kill();
    QVERIFY(_AwaitLoss());
    QVERIFY(m_backEnd.getSources().empty() && !m_backEnd.isAnswering());
    // The length of the outage is what is tested.
    QTest::qWait(int(seconds * 1000.0));
    QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
    QVERIFY(_Provide());
    QElapsedTimer clock;
    clock.start();
    QVERIFY(_AwaitSound());
    qInfo(
        "server away for %g s: sound %lld ms after its source was back", seconds, clock.elapsed());
}

void tst_PulseOutages::source_isFoundAgain_besideAnother_data()
{
    QTest::addColumn<double>("seconds");
    for (const double seconds : {0.0, 0.2, 0.5, 1.0, 2.0, 4.0})
        QTest::addRow("%g s", seconds) << seconds;
}

void tst_PulseOutages::source_isFoundAgain_besideAnother()
{
    QFETCH(double, seconds);
    m_losses = 0;
    QVERIFY(m_server.UnloadModule(m_module));
    QTest::qWait(int(seconds * 1000.0));
    m_module = m_server.LoadSource(Text("deck"));
    QElapsedTimer clock;
    clock.start();
    QVERIFY(_AwaitLoss());
    QVERIFY(_AwaitSound());
    QCOMPARE(m_session->getDeviceName(), Text("deck"));
    qInfo("source away for %g s: sound %lld ms after its return", seconds, clock.elapsed());
}

void tst_PulseOutages::hungServer_isSaid_andFollowedAgain()
{
    m_notices.clear();
    m_server.Freeze();
    QTRY_VERIFY_WITH_TIMEOUT(m_notices.contains(eNoDataNotice), kOutageTimeoutMs);
    QVERIFY(!m_backEnd.isAnswering());
    m_server.Thaw();
    QVERIFY(_AwaitSound());
    QTRY_VERIFY_WITH_TIMEOUT(m_backEnd.isAnswering(), kOutageTimeoutMs);
}

void tst_PulseOutages::_Fail(eFault pFault, int pMilliSeconds)
{
    m_losses = 0;
    switch (pFault) {
    case eKill:
        m_server.Kill();
        QVERIFY(_AwaitLoss());
        QTest::qWait(pMilliSeconds);
        QVERIFY2(m_server.Start(), qPrintable(m_server.error()));
        QVERIFY(_Provide());
        break;
    case eFreeze:
        m_server.Freeze();
        QTest::qWait(pMilliSeconds);
        m_server.Thaw();
        break;
    case eUnload:
        QVERIFY(m_server.UnloadModule(m_module));
        QVERIFY(_AwaitLoss());
        QTest::qWait(pMilliSeconds);
        m_module = m_server.LoadSource(Text("deck"));
        break;
    case eRename: {
        // Under another name it is another source, and a third one may be the default meanwhile.
        QVERIFY(m_server.UnloadModule(m_module));
        QVERIFY(_AwaitLoss());
        const QString renamed = m_server.LoadSource(Text("renamed"));
        QTest::qWait(pMilliSeconds);
        m_module = m_server.LoadSource(Text("deck"));
        QVERIFY(m_server.UnloadModule(renamed));
        break;
    }
    default: {
        const QString guest = m_server.LoadSource(Text("guest"));
        QVERIFY(m_server.setDefaultSource(Text("guest")));
        QVERIFY(m_server.UnloadModule(guest));
    }
    }
}

void tst_PulseOutages::faults_areAllResumedFrom()
{
    std::mt19937 random(kSeed);
    const int faults = FaultCount();
    int handles = 0;
    int threads = 0;
    qint64 memory = 0;
    for (int i = 0; i < faults; ++i) {
        const auto fault = eFault(random() % eFaults);
        _Fail(fault, int(random() % 800));
        if (QTest::currentTestFailed())
            return;
        QVERIFY2(_AwaitSound(), QByteArray::number(i).constData());
        // The first half warms up what is made once.
        if (i == faults / 2) {
            handles = CountOf("/proc/self/fd");
            threads = CountOf("/proc/self/task");
            memory = MemoryKiB();
        }
    }
    qInfo("%d faults; from the middle to the end: handles %d to %d, threads %d to %d, memory %lld "
          "to %lld KiB",
          faults,
          handles,
          CountOf("/proc/self/fd"),
          threads,
          CountOf("/proc/self/task"),
          memory,
          MemoryKiB());
    QTRY_VERIFY_WITH_TIMEOUT(CountOf("/proc/self/fd") <= handles, kOutageTimeoutMs);
    QTRY_VERIFY_WITH_TIMEOUT(CountOf("/proc/self/task") <= threads, kOutageTimeoutMs);
    QVERIFY(MemoryKiB() < memory + 512);
}

void tst_PulseOutages::end_comesAtOnce_whileTheServerHangs()
{
    m_server.Freeze();
    m_session.reset();
    // Still hung; whoever waited for it would not have come here.
    m_server.Thaw();
}

/// The same on PipeWire, whose part for clients is what fails.
class tst_PipeWireOutages : public tst_PulseOutages
{
    Q_OBJECT

public:
    tst_PipeWireOutages() : tst_PulseOutages(PulseServer::ePipeWire) {}
};

AA_TEST(tst_PulseOutages, QCoreApplication)
AA_TEST(tst_PipeWireOutages, QCoreApplication)
#include "tst_PulseOutages.moc"
