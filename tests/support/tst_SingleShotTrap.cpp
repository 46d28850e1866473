// SPDX-License-Identifier: MIT
#include <QTimer>
#include <QtTest>

#include <support/SingleShotTrap.h>
#include <support/TestClass.h>
#include <support/VirtualTime.h>

class tst_SingleShotTrap : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void count() { ++m_fired; }

private Q_SLOTS:
    void init() { m_fired = 0; }
    void timer_isCaughtAndNeverFires_whileATrapLives();
    void handler_getsDelayReceiverAndMember();
    void timer_fires_withoutATrap();

private:
    int m_fired = 0;
};

void tst_SingleShotTrap::timer_isCaughtAndNeverFires_whileATrapLives()
{
    const SingleShotTrap trap;
    QCOMPARE(trap.getLastDelay(), -1);
    QTimer::singleShot(0, this, SLOT(count()));
    QTimer::singleShot(1, Qt::PreciseTimer, this, SLOT(count()));
    QCOMPARE(trap.getCount(), std::size_t(2));
    QCOMPARE(trap.getLastDelay(), 1);
    QTest::qWait(20);
    QCOMPARE(m_fired, 0);
}

void tst_SingleShotTrap::handler_getsDelayReceiverAndMember()
{
    struct Call
    {
        int delay;
        const QObject* pReceiver;
        QByteArray member;
    };
    Call call = {};
    SingleShotTrap trap;
    trap.setHandler(
        [](void* pContext, int delay, const QObject* pReceiver, const char* pMember) {
            *static_cast<Call*>(pContext) = {delay, pReceiver, pMember};
        },
        &call);
    QTimer::singleShot(123, this, SLOT(count()));
    QCOMPARE(call.delay, 123);
    QCOMPARE(call.pReceiver, this);
    QCOMPARE(call.member.constData()[0], '1');
    QVERIFY(call.member.startsWith("1count()"));
}

void tst_SingleShotTrap::timer_fires_withoutATrap()
{
    QTimer::singleShot(1, this, SLOT(count()));
    QTimer::singleShot(0, this, SLOT(count()));
    QTRY_COMPARE(m_fired, 2);
}

AA_TEST(tst_SingleShotTrap, InVirtualTime<QCoreApplication>)
#include "tst_SingleShotTrap.moc"
