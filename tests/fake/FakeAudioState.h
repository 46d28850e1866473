// SPDX-License-Identifier: MIT
#pragma once

#include "FakeAudioDevice.h"
#include "FakeAudioInput.h"

#include <QAudio>
#include <QByteArray>
#include <QList>
#include <QPointer>

/// The machine behind the fake back end: which devices are plugged in, and which captures live.
///
/// A test calls Install() before the first device query, and Clear() before each case.
class FakeAudioState
{
public:
    static FakeAudioState& Get();
    /// Makes the fake back end the only one of this process. [before the first device query]
    static void Install();

    /// Unplugs everything, forgets the captures, and makes the first device the default again.
    void Clear();
    /// Appends a device, or inserts it at pPosition; returns its handle.
    QByteArray Plug(const FakeAudioDevice& pDevice, int pPosition = -1);
    QByteArray Plug(const QString& pName);
    /// Pulls a device from under its captures, as its script says.
    void Unplug(const QByteArray& pHandle);
    /// The default is the device at pIndex; -1 = the machine has no default.
    void SetDefault(int pIndex);

    /// The handles before the default device (all without one), and from it on.
    QList<QByteArray> HandlesBeforeDefault() const;
    QList<QByteArray> HandlesFromDefault() const;
    /// Null when unplugged.
    const FakeAudioDevice* Find(const QByteArray& pHandle) const;
    /// A capture that cannot be started when the device is unplugged. Owned by the caller.
    QAbstractAudioInput* CreateInput(const QByteArray& pHandle);

    /// The capture created last; null when there is none or it is destroyed.
    FakeAudioInput* LastInput() const;
    /// Captures created since Clear(), destroyed ones included.
    int createdInputs() const;

private:
    struct Entry
    {
        QByteArray handle;
        FakeAudioDevice device;
    };
    struct Capture
    {
        QByteArray handle;
        QPointer<FakeAudioInput> pInput;
    };

    FakeAudioState();
    QList<QByteArray> _Handles(int pFrom, int pTo) const;
    int _DefaultIndex() const;

    QList<Entry> m_devices;
    QList<Capture> m_captures;
    int m_defaultIndex;
    int m_nextHandle;
};
