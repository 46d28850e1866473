// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Comparable.h>
#include <AudioAnalyzer/Export.h>

#include <QList>
#include <QMetaType>
#include <QString>

class QObject;
class QtAudioInputDevice;

/// Names an audio input device: its trimmed name, and whether it was the system's default input
/// when the list was taken.
///
/// A plain value without a hold on the device: Create() looks the device up again by its name.
///
/// Threads: a value; Enumerate() and Create() belong to the event-loop thread.
class AUDIOANALYZER_EXPORT QtAudioInputDeviceInfo : public Comparable<QtAudioInputDeviceInfo>
{
public:
    /// Empty name, not the default device.
    QtAudioInputDeviceInfo();
    /// Stores both as they are; the name is not trimmed.
    QtAudioInputDeviceInfo(const QString& pName, bool pIsDefault);
    QtAudioInputDeviceInfo(const QtAudioInputDeviceInfo& pOther);
    QtAudioInputDeviceInfo& operator=(const QtAudioInputDeviceInfo& pOther);

    /// Compares the trimmed names without regard to letter case: negative, 0 or positive. The
    /// default mark takes no part.
    int CompareTo(const QtAudioInputDeviceInfo& pOther) const override;
    ~QtAudioInputDeviceInfo() override;

    /// [valid until assigned or destroyed]
    const QString& getDeviceName() const;
    bool isDefault() const;

    /// A new capture device for the first present device whose trimmed name equals the stored name,
    /// letter case included; null when there is none, and always null for an empty name. Owned by
    /// pParent, or by the caller when pParent is null. [event loop]
    QtAudioInputDevice* Create(QObject* pParent) const;

    /// The present input devices in the platform's order, nameless ones left out, duplicates kept.
    /// [event loop]
    static QList<QtAudioInputDeviceInfo> Enumerate();

private:
    QString m_deviceName;
    bool m_isDefault;
};

Q_DECLARE_TYPEINFO(QtAudioInputDeviceInfo, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(QtAudioInputDeviceInfo)
