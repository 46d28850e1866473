// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/detail/MeterPhase.h>

namespace detail {

namespace {

constexpr double kSwing = 0.65;       ///< of the beat, where its second half begins
constexpr double kQuarters = 4.0;     ///< of a beat
constexpr double kUsual = 13.5;       ///< frames of a quarter at 111 BPM
constexpr double kAhead = 1.0;        ///< frames by which an onset may come early
constexpr double kOnset = 1.0 + 4.0;  ///< frames that are not stretched

double straightStep(double pPhase, double pPeriod)
{
    const double quarter = pPeriod / kQuarters;
    if (quarter <= kUsual)
        return kBinsPerBeat * pPhase;
    const double place = pPhase * kQuarters + kAhead / quarter;
    const auto index = static_cast<double>(static_cast<int>(place));
    const double frames = (place - index) * quarter;
    const double shrunk = frames <= kOnset
                              ? frames
                              : kOnset + (frames - kOnset) * (kUsual - kOnset) / (quarter - kOnset);
    return (index + (shrunk - kAhead) / kUsual) * kBinsPerBeat / kQuarters;
}

}  // namespace

double meterStep(double pPhase, double pPeriod, eMeterFeel pFeel)
{
    if (pFeel == eMeterStraight)
        return straightStep(pPhase, pPeriod);
    if (pPhase < kSwing)
        return straightStep(pPhase / kSwing * 0.5, 2.0 * kSwing * pPeriod);
    const double rest = 1.0 - kSwing;
    return straightStep(0.5 + (pPhase - kSwing) / rest * 0.5, 2.0 * rest * pPeriod);
}

}  // namespace detail
