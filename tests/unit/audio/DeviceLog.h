// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevice.h>

#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

/// Records every signal of a device in the order of emission: "started", "stopped", and
/// "samples" with the samples themselves.
class DeviceLog : public QObject
{
public:
    explicit DeviceLog(QtAudioInputDevice* pDevice)
    {
        connect(
            pDevice,
            &QtAudioInputDevice::OnRecordingStarted,
            this,
            [this] { Add(QStringLiteral("started")); });
        connect(pDevice, &QtAudioInputDevice::OnRecordingStopped, this, [this] {
            Add(QStringLiteral("stopped"));
        });
        connect(pDevice, &QtAudioInputDevice::OnAudioSamplesRecorded, this, &DeviceLog::AddSamples);
    }

    /// Called after each record; it may act on the device.
    std::function<void(const QString&)> observer;

    /// The records since the last call, joined by blanks.
    QString Take()
    {
        const QString records = m_records.join(QLatin1Char(' '));
        m_records.clear();
        return records;
    }
    const qint16* lastPointer() const { return m_pLast; }

private:
    void Add(const QString& pRecord)
    {
        m_records.append(pRecord);
        const auto current = observer;  // it may replace itself
        if (current)
            current(pRecord.section(QLatin1Char('('), 0, 0));
    }

    void AddSamples(const qint16* pSamples, unsigned pCount)
    {
        m_pLast = pSamples;
        QStringList numbers;
        for (unsigned i = 0; i < pCount; ++i)
            numbers.append(QString::number(pSamples[i]));
        Add(QStringLiteral("samples(%1)").arg(numbers.join(QLatin1Char(','))));
    }

    QStringList m_records;
    const qint16* m_pLast = nullptr;
};
