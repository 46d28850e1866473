// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace desktop {

constexpr int kFlashSteps = 16;

/// How bright something still is that flashed pElapsed ms ago and fades within pFade ms: from
/// kFlashSteps down to 0. Steps, so that a fade is only painted as often as it can be seen.
inline int FlashStep(qint64 pElapsed, qint64 pFade)
{
    if (pElapsed < 0 || pElapsed >= pFade)
        return 0;
    return static_cast<int>((pFade - pElapsed) * kFlashSteps / pFade);
}

}  // namespace desktop
