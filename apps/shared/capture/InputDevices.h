// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundBackEnd.h>

#include <QAudioFormat>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// An input device as a person chooses one.
struct InputDevice
{
    QString name;
    bool isDefault;
    QAudioFormat format;                     ///< that would be recorded; invalid when there is none
    std::optional<SoundSource> source = {};  ///< as the hosts' own back end has it

    /// Records what the machine plays itself.
    bool isMonitor() const;
    /// Intended: of several channels the converters leave hardly anything, so only mono inputs can
    /// be analysed.
    bool isUsable() const { return isUsable(format); }
    static bool isUsable(const QAudioFormat& pFormat)
    {
        return pFormat.isValid() && pFormat.channelCount() == 1;
    }
};

/// Stands for whichever device is the sound server's default one.
inline const QString kDefaultInput = QStringLiteral("default");

/// What the hosts' own back end knows of a device; nothing where Qt's plugins serve. [event loop]
std::optional<SoundSource> findSoundSource(const QString& pName);

/// The present devices in the platform's order, each name once. Asks every device. [event loop]
std::vector<InputDevice> listInputDevices();
/// The same without their formats: asks none of them. [event loop]
std::vector<InputDevice> listInputNames();

/// The names most like pName, the best first: three at most, none when none is near.
QStringList findSimilarNames(const QString& pName, const QStringList& pNames);
