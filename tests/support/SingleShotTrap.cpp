// SPDX-License-Identifier: MIT
#include "SingleShotTrap.h"

#include <QTimer>

#include <dlfcn.h>

namespace {

bool isSet = false;
std::size_t caught = 0;
int lastDelay = -1;
SingleShotTrap::Handler pHandler = nullptr;
void* pHandlerContext = nullptr;

void catchTimer(int delay, const QObject* pReceiver, const char* pMember)
{
    ++caught;
    lastDelay = delay;
    if (pHandler != nullptr)
        pHandler(pHandlerContext, delay, pReceiver, pMember);
}

using SingleShot = void (*)(int, Qt::TimerType, const QObject*, const char*);

SingleShot findQtSingleShot()
{
    const char* pName = "_ZN6QTimer10singleShotEiN2Qt9TimerTypeEPK7QObjectPKc";
    return reinterpret_cast<SingleShot>(dlsym(RTLD_NEXT, pName));
}

}  // namespace

SingleShotTrap::SingleShotTrap()
{
    isSet = true;
    caught = 0;
    lastDelay = -1;
    pHandler = nullptr;
}

SingleShotTrap::~SingleShotTrap()
{
    isSet = false;
}

void SingleShotTrap::setHandler(Handler handler, void* pContext)
{
    pHandler = handler;
    pHandlerContext = pContext;
}

std::size_t SingleShotTrap::getCount() const
{
    return caught;
}

int SingleShotTrap::getLastDelay() const
{
    return lastDelay;
}

void QTimer::singleShot(int delay,
                        Qt::TimerType type,
                        const QObject* pReceiver,
                        const char* pMember)
{
    if (isSet) {
        catchTimer(delay, pReceiver, pMember);
        return;
    }
    static const SingleShot pQtSingleShot = findQtSingleShot();
    pQtSingleShot(delay, type, pReceiver, pMember);
}

void QTimer::singleShot(int delay, const QObject* pReceiver, const char* pMember)
{
    // Qt's own rule: timers of two seconds and more may be coarse.
    singleShot(delay, delay >= 2000 ? Qt::CoarseTimer : Qt::PreciseTimer, pReceiver, pMember);
}
