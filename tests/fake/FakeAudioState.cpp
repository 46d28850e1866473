// SPDX-License-Identifier: MIT
#include "FakeAudioState.h"

#include <QCoreApplication>
#include <QStringList>
#include <QtPlugin>

#include <algorithm>

// Imported here, so that whoever uses the state has the back end.
Q_IMPORT_PLUGIN(FakeAudioPlugin)
Q_IMPORT_PLUGIN(FakeAudioAheadPlugin)

FakeAudioState& FakeAudioState::Get()
{
    static FakeAudioState state;
    return state;
}

void FakeAudioState::Install()
{
    QCoreApplication::setLibraryPaths(QStringList());
}

FakeAudioState::FakeAudioState() : m_defaultIndex(0), m_nextHandle(1) {}

void FakeAudioState::Clear()
{
    m_devices.clear();
    m_captures.clear();
    m_defaultIndex = 0;
}

QByteArray FakeAudioState::Plug(const FakeAudioDevice& pDevice, int pPosition)
{
    const QByteArray handle = "fake-" + QByteArray::number(m_nextHandle++);
    const int position = pPosition < 0 ? m_devices.size() : pPosition;
    m_devices.insert(position, Entry{handle, pDevice});
    return handle;
}

QByteArray FakeAudioState::Plug(const QString& pName)
{
    FakeAudioDevice device;
    device.name = pName;
    return Plug(device);
}

void FakeAudioState::Unplug(const QByteArray& pHandle)
{
    const auto isWanted = [&](const Entry& pEntry) { return pEntry.handle == pHandle; };
    m_devices.erase(std::remove_if(m_devices.begin(), m_devices.end(), isWanted), m_devices.end());
    const QList<Capture> captures = m_captures;
    for (const Capture& capture : captures)
        if (capture.handle == pHandle && capture.pInput)
            capture.pInput->Vanish();
}

void FakeAudioState::SetDefault(int pIndex)
{
    m_defaultIndex = pIndex;
}

QList<QByteArray> FakeAudioState::HandlesBeforeDefault() const
{
    return _Handles(0, _DefaultIndex());
}

QList<QByteArray> FakeAudioState::HandlesFromDefault() const
{
    return _Handles(_DefaultIndex(), m_devices.size());
}

const FakeAudioDevice* FakeAudioState::Find(const QByteArray& pHandle) const
{
    for (const Entry& entry : m_devices)
        if (entry.handle == pHandle)
            return &entry.device;
    return nullptr;
}

QAbstractAudioInput* FakeAudioState::CreateInput(const QByteArray& pHandle)
{
    // A device pulled a moment ago still has to give a capture: one that cannot be started.
    FakeAudioDevice device;
    device.givesStream = false;
    if (const FakeAudioDevice* pDevice = Find(pHandle))
        device = *pDevice;
    FakeAudioInput* pInput = new FakeAudioInput(device);
    m_captures.append(Capture{pHandle, pInput});
    return pInput;
}

FakeAudioInput* FakeAudioState::LastInput() const
{
    return m_captures.isEmpty() ? nullptr : m_captures.last().pInput.data();
}

int FakeAudioState::createdInputs() const
{
    return m_captures.size();
}

QList<QByteArray> FakeAudioState::_Handles(int pFrom, int pTo) const
{
    QList<QByteArray> result;
    for (int i = pFrom; i < pTo; ++i)
        result.append(m_devices.at(i).handle);
    return result;
}

int FakeAudioState::_DefaultIndex() const
{
    const bool hasDefault = m_defaultIndex >= 0 && m_defaultIndex < m_devices.size();
    return hasDefault ? m_defaultIndex : m_devices.size();
}
