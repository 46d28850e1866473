// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/CaptureNotice.h>

#include <QString>

#include <optional>

enum eCaptureState
{
    eCaptureClosed,    ///< not opened
    eCaptureWaiting,   ///< the device is not there; as soon as it is, it is recorded again
    eCaptureUnusable,  ///< the device is there, but has no mono format
    eCaptureStarting,  ///< recording was asked for, nothing has arrived yet
    eCaptureRunning    ///< samples arrive
};

/// What is heard of a file.
enum eFileSound
{
    eFileSilent,    ///< nothing, and nobody wants it
    eFileHeard,     ///< all of it, on the default output
    eFileMuted,     ///< nothing, as the user wishes
    eFileNoServer,  ///< nothing: no sound server answers
    eFileNoOutput,  ///< nothing: the sound server has no output
    eFileStuck      ///< nothing: the output takes no sound
};

/// Where the sound comes from, and how it is.
struct SourceState
{
    enum eKind
    {
        eNone,    ///< there is no input device
        eDevice,  ///< live
        eFile,
        eEnded  ///< a file, played to its end
    };

    eKind kind = eNone;
    QString name;                            ///< of the device or file
    eCaptureState capture = eCaptureClosed;  ///< of a device
    int channels = 0;                        ///< of an unusable device; 0 = no format at all
    bool isPlaying = false;                  ///< music
    std::optional<eCaptureNotice> notice;    ///< what is wrong now
    double position = 0.0;                   ///< seconds into a file
    double length = 0.0;                     ///< seconds; 0 = unknown
    eFileSound sound = eFileSilent;          ///< of a file
    QString error;                           ///< why a file ended early
};
