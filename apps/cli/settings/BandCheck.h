// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/Configuration.h>

#include <QCoreApplication>

namespace cli {

/// Why the selected profile's band cannot hold anything of audio of pSampleRate Hz, or an empty
/// text.
inline QString CheckBand(const Configuration& pConfiguration, int pSampleRate)
{
    const int low = pConfiguration.getSelectedProfile().getFilterLowFrequency();
    if (low < pSampleRate / 2)
        return {};
    return QCoreApplication::translate("BandCheck",
                                       "the band to listen to begins at %1 Hz, but audio of %2 Hz "
                                       "ends at %3 Hz; choose a lower one with --band LOW:HIGH")
        .arg(low)
        .arg(pSampleRate)
        .arg(pSampleRate / 2);
}

}  // namespace cli
