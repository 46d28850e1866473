// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimerOverride.h>

namespace {

thread_local HighResolutionTimerOverride* t_pCurrent = nullptr;

}  // namespace

HighResolutionTimerOverride::HighResolutionTimerOverride(quint64 pTime)
    : m_pOuter(t_pCurrent), m_time(pTime)
{
    Q_ASSERT(pTime > 0);
    t_pCurrent = this;
}

HighResolutionTimerOverride::~HighResolutionTimerOverride()
{
    Q_ASSERT(t_pCurrent == this);
    t_pCurrent = m_pOuter;
}

bool HighResolutionTimerOverride::setTime(quint64 pTime)
{
    if (pTime == 0)
        return false;
    m_time = pTime;
    return true;
}

const HighResolutionTimerOverride* HighResolutionTimerOverride::getCurrent()
{
    return t_pCurrent;
}
