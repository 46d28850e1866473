// SPDX-License-Identifier: MIT
#pragma once

/// What is wrong with the sound that arrives.
enum eCaptureNotice
{
    eNoDataNotice,          ///< the device is there but delivers nothing
    eDigitalSilenceNotice,  ///< every sample has the same value
    eTooQuietNotice,        ///< there is sound, but it never counts as music
    eClippedNotice          ///< the level is so high that it is cut off
};
